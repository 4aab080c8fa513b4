// The dialog in which users keep their own error handlers.
#pragma once

#include <functional>
#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/text_controls.h"
#include "frame/services.h"

namespace kolvane::writers {

// What the dialog's menus open. One that is empty raises 445 when it is chosen.
struct CustomHandlersActions {
  std::function<void()> generalOptions;
  std::function<void()> about;
};

// A handler is stored when its text is saved: one that was added and never saved is gone with the dialog.
class frmCustomErrorHandlers final : public forms::Form {
 public:
  // Both must outlive the dialog.
  frmCustomErrorHandlers(frame::Services& services, const CustomHandlersActions& actions);

  forms::Layout layout() const override;

  forms::Menu mnuFile{*this, "mnuFile", "&File"};
  forms::Menu mnuOptions{mnuFile, "mnuOptions", "&Options"};
  forms::Menu mnuCustomErrorHandlers{mnuOptions, "mnuCustomErrorHandlers", "Custom &Error Handlers"};
  forms::Menu mnuGeneral{mnuOptions, "mnuGeneral", "&General"};
  forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
  forms::Menu mnuHelp{*this, "mnuHelp", "&Help"};
  forms::Menu mnuContents{mnuHelp, "mnuContents", "&Contents..."};
  forms::Menu mnuAbout{mnuHelp, "mnuAbout", "&About"};
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
  void Form_Load();
  void Form_Activate();
  void Form_QueryUnload(bool& cancel, forms::UnloadMode mode);
  void Load_StandardElements();
  void GetErrorTypes();
  void Save_Error(const std::string& name);
  void cboErrors_Click();
  void cmdAdd_Click();
  void cmdDelete_Click();
  void cmdSave_Click();
  void cmdAddElements_Click();
  void cmdClear_Click();
  void cmdClose_Click();
  void txtError_KeyDown(int& key, int shift);
  // What there is no use for without a handler.
  void enableEditing(bool enabled);
  // Yes to the question whether the changed text is to be saved.
  bool wantsToSave();
  void tell(const std::string& text);

  frame::Services& services_;
  const CustomHandlersActions& actions_;
  std::string current_;  // the handler whose text is shown
  std::string tabText_;
  int element_ = 0;  // of cboStandardElements
  bool loading_ = false;
};

}  // namespace kolvane::writers
