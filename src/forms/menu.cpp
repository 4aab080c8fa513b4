#include "forms/menu.h"

#include "forms/form.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

Menu::Menu(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kMenu, name, caption) {}

Menu::Menu(Menu& parent, std::string_view name, std::string_view caption)
    : Control(parent.form(), Kind::kMenu, name, caption), parent_(&parent) {
  parent.items_.push_back(this);
}

Menu::~Menu() {
  if (parent_) std::erase(parent_->items_, this);
  for (Menu* item : items_) item->parent_ = nullptr;
}

void Menu::setChecked(bool checked) {
  checked_ = checked;
  touched(Aspect::kState);
}

void Menu::setShortcut(int key, int shift) {
  shortcutKey_ = key;
  shortcutShift_ = shift;
  touched(Aspect::kState);
}

Deed Menu::takeClick(const Spot&) {
  if (separator()) refuse("is a separating line");
  if (!items_.empty()) refuse("has items to click on");
  return [this] { raise(onClick); };
}

void Menu::describe(ControlState& state) const { state.value = checked_ ? 1 : 0; }

}  // namespace kolvane::forms
