// Menus of a form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

// An item of the form's menu bar or of another menu; one that has items opens, one that hasn't raises Click.
// A caption
// "-" is a separating line.
//   forms::Menu mnuFile{*this, "mnuFile", "&File"};
//   forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
class Menu final : public Control {
 public:
  Menu(Form& form, std::string_view name, std::string_view caption);
  Menu(Menu& parent, std::string_view name, std::string_view caption);
  ~Menu() override;

  Menu* parent() const { return parent_; }
  const std::vector<Menu*>& items() const { return items_; }
  bool separator() const { return caption() == "-"; }
  bool checked() const { return checked_; }
  void setChecked(bool checked);
  // A key that clicks it wherever the focus is; key 0 for none.
  void setShortcut(int key, int shift = 0);
  int shortcutKey() const { return shortcutKey_; }
  int shortcutShift() const { return shortcutShift_; }
  std::string shortcut() const { return keys::name(shortcutKey_, shortcutShift_); }
  // Raises Click.
  void click() { raise(onClick); }

 protected:
  void describe(ControlState& state) const override;
  Deed takeClick(const Spot& spot) override;

 private:
  Menu* parent_ = nullptr;
  std::vector<Menu*> items_;
  bool checked_ = false;
  int shortcutKey_ = 0;
  int shortcutShift_ = 0;
};

}  // namespace kolvane::forms
