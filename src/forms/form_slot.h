// The one implicit instance of a form that its users share, and the members of a control array.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "forms/errors.h"
#include "forms/form.h"

namespace kolvane::forms {

// Creates the form at first use and lets it go when it has been unloaded; the next use makes a new one. So a
// value that is read from a form after it was unloaded is that of a new form: keep hold() across the call, or
// let the form hide itself.
//   FormSlot<frmSearch> search{services};
//   search->show();
template <class T>
class FormSlot {
 public:
  // Each new form is constructed with these; they must outlive the slot.
  template <class... Arguments>
  explicit FormSlot(Arguments&... arguments)
      : make_([&arguments...] { return std::make_shared<T>(arguments...); }) {}
  ~FormSlot() {
    if (form_) form_->setRelease(nullptr);
  }
  FormSlot(const FormSlot&) = delete;
  FormSlot& operator=(const FormSlot&) = delete;

  T& get() { return *hold(); }
  T* operator->() { return hold().get(); }
  T& operator*() { return get(); }
  std::shared_ptr<T> hold() {
    if (!form_) {
      form_ = make_();
      form_->setRelease([this] { form_.reset(); });
    }
    return form_;
  }
  // nullptr while there is none; does not create it.
  T* existing() const { return form_.get(); }
  // True when there is none afterwards.
  bool unload(UnloadMode mode = UnloadMode::kCode) { return !form_ || hold()->unload(mode); }

 private:
  std::function<std::shared_ptr<T>()> make_;
  std::shared_ptr<T> form_;
};

// Controls "txtName(0)", "txtName(1)", … that share a name. An index that isn't there raises 340.
//   forms::ControlArray<forms::TextBox> txtName{*this, "txtName", 3};
template <class T>
class ControlArray {
 public:
  ControlArray(Form& form, std::string_view name, int count, int first = 0) : name_(name), first_(first) {
    for (int index = first; index < first + count; ++index)
      members_.emplace_back(form, name_ + "(" + std::to_string(index) + ")");
  }

  T& operator[](int index) { return members_[position(index)]; }
  const T& operator[](int index) const { return members_[position(index)]; }
  int first() const { return first_; }
  int last() const { return first_ + static_cast<int>(members_.size()) - 1; }
  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }

 private:
  std::size_t position(int index) const {
    if (index < first_ || index > last())
      throw base::Error(errors::kNoSuchArrayElement,
                        "Control array element " + name_ + "(" + std::to_string(index) + ") doesn't exist.");
    return static_cast<std::size_t>(index - first_);
  }

  std::string name_;
  int first_;
  std::deque<T> members_;
};

}  // namespace kolvane::forms
