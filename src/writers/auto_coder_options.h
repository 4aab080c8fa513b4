// What the Auto Coder starts with, and the dialog for it.
#pragma once

#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "frame/services.h"

namespace kolvane::writers {

struct AutoCoderDefaults {
  bool handlers = true;
  bool headers = true;
  bool userName = true;
  std::string handler;
};
AutoCoderDefaults autoCoderDefaults(const frame::Services& services);

// Selects the handler of that name; the first one when the list has none of it, as when it was deleted.
void chooseHandler(forms::ComboBox& list, const std::string& handler);

// OK writes the settings; anything else leaves them as they were.
class frmAutoCoderOptions final : public forms::Form {
 public:
  explicit frmAutoCoderOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::Frame fraDefaults{*this, "fraDefaults", "&Defaults"};
  forms::CheckBox chkProcedureHeaders{*this, "chkProcedureHeaders", "&Procedure Headers"};
  forms::CheckBox chkUserName{*this, "chkUserName", "Include Login &UserName"};
  forms::CheckBox chkError{*this, "chkError", "&Error Handlers"};
  forms::Frame fraErrorType{*this, "fraErrorType", "Error &Type"};
  forms::ComboBox cboErrors{*this, "cboErrors", forms::ComboBox::kDropdownList};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load();
  void Set_Options();
  void Update_Registry();
  void cmdOK_Click();

  frame::Services& services_;
};

// Shows it and returns when it has been closed.
void showAutoCoderOptions(frame::Services& services);

}  // namespace kolvane::writers
