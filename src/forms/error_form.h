// The form that shows an error, and the one way in which entry points get there.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "base/error.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"

namespace kolvane::forms {

// Set `Error`, then show it modally. It copies number, source and description as it loads.
class frmVBError final : public Form {
 public:
  explicit frmVBError(Desk& desk);

  std::optional<base::Error> Error;

  TextBox txtErrorNo{*this, "txtErrorNo"};
  TextBox txtSource{*this, "txtSource"};
  TextBox txtDescription{*this, "txtDescription"};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};

  Layout layout() const override;

 private:
  void Form_Load();
};

// Runs an entry point. Whatever it throws ends here: the error is shown in frmVBError, with
// ".module.procedure" added to its source; any exception that is no Error comes as number 51 with its text.
void showErrors(Desk& desk, std::string_view module, std::string_view procedure,
                const std::function<void()>& work);
// The same for work that adds its own module and procedure.
void showErrors(Desk& desk, const std::function<void()>& work);

}  // namespace kolvane::forms
