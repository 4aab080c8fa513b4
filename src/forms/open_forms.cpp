#include "forms/open_forms.h"

#include <algorithm>

#include "base/text.h"
#include "forms/form.h"

namespace kolvane::forms {

Form* OpenForms::find(std::string_view name) const {
  const auto found = std::find_if(forms_.rbegin(), forms_.rend(), [&](const OpenForm& open) {
    return base::equalNoCase(open.form->name(), name);
  });
  return found == forms_.rend() ? nullptr : found->form;
}

Form* OpenForms::blocker(const Form& form) const {
  const auto self =
      std::find_if(forms_.begin(), forms_.end(), [&](const OpenForm& open) { return open.form == &form; });
  const int shown = self == forms_.end() ? 0 : self->shown;
  const OpenForm* highest = nullptr;
  for (const OpenForm& open : forms_)
    if (open.modal && open.shown > shown && (!highest || open.shown > highest->shown)) highest = &open;
  return highest ? highest->form : nullptr;
}

void OpenForms::add(Form& form, bool modal) { forms_.push_back({&form, modal, ++shown_}); }

void OpenForms::remove(const Form& form) {
  std::erase_if(forms_, [&](const OpenForm& open) { return open.form == &form; });
  if (active_ == &form) active_ = nullptr;
}

void OpenForms::raise(const Form& form) {
  const auto self =
      std::find_if(forms_.begin(), forms_.end(), [&](const OpenForm& open) { return open.form == &form; });
  if (self != forms_.end()) std::rotate(self, self + 1, forms_.end());
}

Form* OpenForms::top() const {
  const auto found = std::find_if(forms_.rbegin(), forms_.rend(),
                                  [&](const OpenForm& open) { return !blocker(*open.form); });
  return found == forms_.rend() ? nullptr : found->form;
}

}  // namespace kolvane::forms
