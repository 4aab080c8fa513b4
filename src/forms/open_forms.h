// The forms that are shown on a desk, in the order in which they lie over each other.
#pragma once

#include <string_view>
#include <vector>

namespace kolvane::forms {

class Form;

struct OpenForm {
  Form* form = nullptr;
  bool modal = false;
  int shown = 0;  // number of its showing: later ones are higher
};

// Kept by the forms themselves as they are shown and closed; desks and servers read it.
class OpenForms {
 public:
  // The lowest first.
  const std::vector<OpenForm>& all() const { return forms_; }
  bool empty() const { return forms_.empty(); }
  // By name, without regard to case; of two with one name the higher. nullptr without one.
  Form* find(std::string_view name) const;
  // The form that people work in: the one activated last. nullptr when none is open.
  Form* active() const { return active_; }
  // The modal form that was shown after `form` and keeps people from it, or nullptr.
  Form* blocker(const Form& form) const;

 private:
  friend class Form;
  void add(Form& form, bool modal);
  void remove(const Form& form);
  void raise(const Form& form);
  // The highest form that nothing blocks.
  Form* top() const;

  std::vector<OpenForm> forms_;
  Form* active_ = nullptr;
  int shown_ = 0;
};

}  // namespace kolvane::forms
