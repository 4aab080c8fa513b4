// The dialog for what the Property Builder starts with, project by project.
#pragma once

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/lists.h"
#include "writers/builder_options_form.h"

namespace kolvane::writers {

class frmPropertyBuilderOptions final : public BuilderOptionsForm {
 public:
  explicit frmPropertyBuilderOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::Frame fraOptions{*this, "fraOptions", "Property &Builder Options"};
  forms::CheckBox chkUseErrorHandling{*this, "chkUseErrorHandling", "Use &Error Handling"};
  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownList, {"Private", "Public"}};
  forms::CheckBox chkClasses{*this, "chkClasses", "Include Custom C&lasses of Project(s)"};
  forms::ComboBox cboReturns{*this, "cboReturns"};

 protected:
  void fillLists() override;
  void showValues(const BuilderValues& values) override;
  frame::Settings::Rows values() const override;
};

}  // namespace kolvane::writers
