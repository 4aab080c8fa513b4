// The dialog that gives the procedures of the module in the active code window their headers and error handlers, and the
// one for what it starts with.
#pragma once

#include <memory>
#include <string>

#include "forms/buttons.h"
#include "forms/indicators.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "frame/tool_form.h"
#include "writers/auto_coder.h"

namespace kolvane::writers {

// It closes when a run has come through. While one is on it does not close, and its buttons do nothing. A run that ends
// early leaves it open, and leaves in the module what was written by then.
class frmAutoCoder final : public frame::ToolForm {
 public:
  // The tools must outlive the dialog.
  explicit frmAutoCoder(const AutoCoderTools& tools);

  // The user's name for headers, as the dialog opened.
  const std::string& UserName() const { return userName_; }
  forms::Layout layout() const override;

  forms::CheckBox chkProcedureHeaders{*this, "chkProcedureHeaders", "Generate &Procedure Headers"};
  forms::CheckBox chkUserName{*this, "chkUserName", "&Include Login Username"};
  forms::TextBox txtName{*this, "txtName"};
  forms::CheckBox chkErrorHandlers{*this, "chkErrorHandlers", "Generate &Error Handlers"};
  forms::ComboBox cboErrors{*this, "cboErrors", forms::ComboBox::kDropdownList};
  forms::ProgressBar prgProgress{*this, "prgProgress"};
  forms::CommandButton cmdCreate{*this, "cmdCreate", "C&reate"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void Set_Options();
  void chkErrorHandlers_Click();
  void chkProcedureHeaders_Click();
  void chkUserName_Click();
  void cmdCreate_Click();

  // Both are set, or `success` is False and the user has been told.
  void Create_Objects(std::shared_ptr<frame::CodePane>& pane, std::shared_ptr<frame::CodeModule>& module,
                      bool& success);
  // False when a custom handler could not be written.
  bool run(frame::CodeModule& module);
  std::string author() const;

  const AutoCoderTools& tools_;
  std::string userName_;
};

// Shows its options and returns when the dialog has been closed.
void showAutoCoderOptions(frame::Services& services);

}  // namespace kolvane::writers
