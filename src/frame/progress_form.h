// How far long work is: a bar for the project over a bar for the module. The work sets the bars' maximum and
// value and the labels' captions itself.
#pragma once

#include <string_view>

#include "forms/forms.h"

namespace kolvane::frame {

class frmProgress final : public forms::Form {
 public:
  explicit frmProgress(forms::Desk& desk);

  forms::Label lblProject{*this, "lblProject", "Project"};
  forms::ProgressBar prgProject{*this, "prgProject"};
  forms::Label lblModule{*this, "lblModule", "Module"};
  forms::ProgressBar prgModule{*this, "prgModule"};

  // "ProjectOnly" and "ModuleOnly" leave one of the two bars; any other text leaves both. To be called before
  // the form is shown.
  void Setup(std::string_view strType);

  forms::Layout layout() const override;
};

}  // namespace kolvane::frame
