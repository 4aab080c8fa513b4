#include "forms/buttons.h"

#include "forms/form.h"
#include "forms/snapshot.h"
#include "forms/user.h"

namespace kolvane::forms {

CommandButton::CommandButton(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kCommandButton, name, caption) {}

void CommandButton::setDefault(bool isDefault) {
  if (CommandButton* other = form().defaultButton(); other && isDefault) other->isDefault_ = false;
  isDefault_ = isDefault;
  touched(Aspect::kState);
}

void CommandButton::setCancel(bool isCancel) {
  if (CommandButton* other = form().cancelButton(); other && isCancel) other->isCancel_ = false;
  isCancel_ = isCancel;
  touched(Aspect::kState);
}

void CommandButton::setPicture(std::string_view key) {
  picture_ = key;
  touched(Aspect::kState);
}

void CommandButton::describe(ControlState& state) const {
  state.defaultButton = isDefault_;
  state.cancelButton = isCancel_;
  state.picture = picture_;
}

// CheckBox

CheckBox::CheckBox(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kCheckBox, name, caption) {}

void CheckBox::setValue(Check value) {
  if (value_ == value) return;
  value_ = value;
  touched(Aspect::kContent);
  raise(onClick);
}

void CheckBox::toggle() { setChecked(value_ == Check::kUnchecked); }

Deed CheckBox::takeValue(double value) {
  return [this, value] { setChecked(value != 0); };
}

Deed CheckBox::takeClick(const Spot&) {
  return [this] { toggle(); };
}

bool CheckBox::takeKey(int key, int shift) {
  if (key != keys::kSpace || shift != 0) return false;
  toggle();
  return true;
}

void CheckBox::describe(ControlState& state) const { state.value = static_cast<int>(value_); }

// OptionButton

OptionButton::OptionButton(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kOptionButton, name, caption) {}

void OptionButton::setValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  touched(Aspect::kContent);
  if (!value) return;
  const Place place = form().place(*this);
  for (Control* control : form().controls()) {
    if (control == this || control->kind() != Kind::kOptionButton) continue;
    const Place& other = form().place(*control);
    if (other.container == place.container && other.page == place.page)
      static_cast<OptionButton*>(control)->setValue(false);
  }
  raise(onClick);
}

Deed OptionButton::takeValue(double value) {
  if (value == 0) refuse("is cleared by choosing another one");
  return takeClick({});
}

Deed OptionButton::takeClick(const Spot&) {
  return [this] { setValue(true); };
}

// The next one of the group that can be used, round its ends.
OptionButton* OptionButton::neighbour(bool forward) const {
  const auto& order = form().tabOrder();
  const auto size = static_cast<int>(order.size());
  const Place place = form().place(*this);
  for (int step = 1; step < size; ++step) {
    const int index = ((tabIndex() + (forward ? step : -step)) % size + size) % size;
    Control* const control = order[static_cast<std::size_t>(index)];
    const Place& other = form().place(*control);
    if (control->kind() == Kind::kOptionButton && other.container == place.container &&
        other.page == place.page && control->canFocus())
      return static_cast<OptionButton*>(control);
  }
  return nullptr;
}

bool OptionButton::takeKey(int key, int shift) {
  if (shift != 0) return false;
  const bool forward = key == keys::kDown || key == keys::kRight;
  if (key == keys::kSpace) {
    setValue(true);
  } else if (forward || key == keys::kUp || key == keys::kLeft) {
    if (OptionButton* const next = neighbour(forward)) user::click(*next);
  } else {
    return false;
  }
  return true;
}

void OptionButton::describe(ControlState& state) const { state.value = value_ ? 1 : 0; }

// Picture

Picture::Picture(Form& form, std::string_view name, std::string_view key)
    : Control(form, Kind::kPicture, name), key_(key) {}

void Picture::setPicture(std::string_view key) {
  key_ = key;
  image_.clear();
  touched(Aspect::kContent);
}

void Picture::setImage(std::string bytes) {
  image_ = std::move(bytes);
  key_.clear();
  touched(Aspect::kContent);
}

Deed Picture::takeDoubleClick(const Spot&) {
  return [this] { raise(onDblClick); };
}

void Picture::describe(ControlState& state) const { state.picture = image_.empty() ? key_ : "(drawn)"; }

}  // namespace kolvane::forms
