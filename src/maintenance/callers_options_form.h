// The options of List My Callers and of the Called From field.
#pragma once

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/text_controls.h"
#include "frame/services.h"

namespace kolvane::maintenance {

// OK writes the settings; anything else leaves them as they were.
class frmListMyCallersOptions final : public forms::Form {
 public:
  explicit frmListMyCallersOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::Frame fraOptions{*this, "fraOptions", "&Options"};
  forms::CheckBox chkModuleDeclarations{*this, "chkModuleDeclarations", "&Use Module Declarations"};
  forms::TextBox txtMaxWidth{*this, "txtMaxWidth"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load();
  void txtMaxWidth_LostFocus();
  void cmdOK_Click();

  frame::Services& services_;
};

// Shows it and returns when it has been closed.
void showListMyCallersOptions(frame::Services& services);

}  // namespace kolvane::maintenance
