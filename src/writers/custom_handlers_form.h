// The dialog in which users keep their own error handlers.
#pragma once

#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "frame/tool_form.h"

namespace kolvane::writers {

// A handler is stored when its text is saved: one that was added and never saved is gone with the dialog.
class frmCustomErrorHandlers final : public frame::ToolForm {
 public:
  // The services must outlive the dialog.
  explicit frmCustomErrorHandlers(frame::Services& services);

  forms::Layout layout() const override;

  forms::ComboBox cboErrors{*this, "cboErrors", forms::ComboBox::kDropdownList};
  forms::CommandButton cmdDelete{*this, "cmdDelete", "D&elete"};
  forms::TextBox txtName{*this, "txtName"};
  forms::CommandButton cmdAdd{*this, "cmdAdd", "A&dd"};
  forms::Frame fraHandler{*this, "fraHandler", "Handle&r Code"};
  forms::RichTextBox txtError{*this, "txtError"};
  forms::ImageCombo cboStandardElements{*this, "cboStandardElements"};
  forms::CommandButton cmdAddElements{*this, "cmdAddElements", "Insert"};
  forms::CommandButton cmdClear{*this, "cmdClear", "C&lear"};
  forms::CommandButton cmdSave{*this, "cmdSave", "Sa&ve"};
  forms::CommandButton cmdColorCode{*this, "cmdColorCode", "C&olor"};
  forms::CommandButton cmdClose{*this, "cmdClose", "&Close"};

 private:
  void Form_Load() override;
  void Form_Activate();
  void Load_StandardElements();
  void GetErrorTypes();
  void Save_Error(const std::string& name);
  void cboErrors_Click();
  void cmdAdd_Click();
  void cmdDelete_Click();
  void cmdSave_Click();
  void cmdAddElements_Click();
  void cmdClear_Click();
  void txtError_KeyDown(int& key, int shift);
  bool hasChanges() const override { return cmdSave.enabled(); }
  // What there is no use for without a handler.
  void enableEditing(bool enabled);
  // Yes to the question whether the changed text is to be saved.
  bool wantsToSave();
  void tell(const std::string& text);

  std::string current_;  // the handler whose text is shown
  std::string tabText_;
  int element_ = 0;  // of cboStandardElements
  bool loading_ = false;
};

}  // namespace kolvane::writers
