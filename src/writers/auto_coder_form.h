// The dialog that gives the procedures of the module in the active code window their headers and error handlers.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/indicators.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/text_controls.h"
#include "writers/auto_coder.h"

namespace kolvane::writers {

// What the dialog's menus open. One that is empty raises 445 when it is chosen.
struct AutoCoderActions {
  std::function<void()> customErrorHandlers;
  std::function<void()> generalOptions;
  std::function<void()> about;
};

// All of it must outlive the dialog.
struct AutoCoderParts {
  AutoCoderTools tools;
  AutoCoderActions actions;
};

// It closes when a run has come through. While one is on it does not close, and its buttons do nothing. A run that ends
// early leaves it open, and leaves in the module what was written by then.
class frmAutoCoder final : public forms::Form {
 public:
  explicit frmAutoCoder(const AutoCoderParts& parts);

  // The user's name for headers, as the dialog opened.
  const std::string& UserName() const { return userName_; }
  forms::Layout layout() const override;

  forms::Menu mnuFile{*this, "mnuFile", "&File"};
  forms::Menu mnuCustomErrors{mnuFile, "mnuCustomErrors", "Custom &Error Handlers"};
  forms::Menu mnuOptions{mnuFile, "mnuOptions", "&Options"};
  forms::Menu mnuFileAutoCoder{mnuOptions, "mnuFileAutoCoder", "&Auto Coder"};
  forms::Menu mnuFileGeneral{mnuOptions, "mnuFileGeneral", "&General"};
  forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
  forms::Menu mnuHelp{*this, "mnuHelp", "&Help"};
  forms::Menu mnuHelpContents{mnuHelp, "mnuHelpContents", "&Contents..."};
  forms::Menu mnuAbout{mnuHelp, "mnuAbout", "&About"};
  forms::CheckBox chkProcedureHeaders{*this, "chkProcedureHeaders", "Generate &Procedure Headers"};
  forms::CheckBox chkUserName{*this, "chkUserName", "&Include Login Username"};
  forms::TextBox txtName{*this, "txtName"};
  forms::CheckBox chkErrorHandlers{*this, "chkErrorHandlers", "Generate &Error Handlers"};
  forms::ComboBox cboErrors{*this, "cboErrors", forms::ComboBox::kDropdownList};
  forms::ProgressBar prgProgress{*this, "prgProgress"};
  forms::CommandButton cmdCreate{*this, "cmdCreate", "C&reate"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load();
  void Set_Options();
  void chkErrorHandlers_Click();
  void chkProcedureHeaders_Click();
  void chkUserName_Click();
  void cmdCreate_Click();
  void cmdCancel_Click();

  // Both are set, or `success` is False and the user has been told.
  void Create_Objects(std::shared_ptr<frame::CodePane>& pane, std::shared_ptr<frame::CodeModule>& module,
                      bool& success);
  // False when a custom handler could not be written.
  bool run(frame::CodeModule& module);
  std::string author() const;

  const AutoCoderParts& parts_;
  frame::Services& services_;
  std::string userName_;
  bool running_ = false;
};

}  // namespace kolvane::writers
