// The options of the Custom Error Handlers dialog.
#pragma once

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "frame/services.h"

namespace kolvane::writers {

// OK writes the setting; anything else leaves it as it was. The editor of handlers shows no colours yet: the
// setting is kept for the one that does.
class frmCustomErrorHandlersOptions final : public forms::Form {
 public:
  explicit frmCustomErrorHandlersOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::Frame fraOptions{*this, "fraOptions", "&Options"};
  forms::CheckBox chkColorCode{*this, "chkColorCode", "C&olor Code"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load();
  void cmdOK_Click();

  frame::Services& services_;
};

}  // namespace kolvane::writers
