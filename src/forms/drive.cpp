#include "forms/drive.h"

#include "base/error.h"
#include "forms/user.h"

namespace kolvane::forms::drive {

namespace {

Spot spotOf(const RowOrKey& where) {
  Spot spot;
  if (const int* row = std::get_if<int>(&where))
    spot.row = *row;
  else
    spot.node = std::get<std::string>(where);
  return spot;
}

bool selectAll(Control& control, const std::vector<RowOrKey>& rows) {
  std::vector<Spot> spots;
  for (const RowOrKey& row : rows) spots.push_back(spotOf(row));
  return user::select(control, spots);
}

}  // namespace

Form& openForm(Desk& desk, std::string_view name) {
  if (Form* form = desk.openForms().find(name)) return *form;
  throw base::Error(base::errors::kInvalidCall, "No form named " + std::string(name) + " is open.");
}

bool set(Form& form, std::string_view name, const Setting& setting) {
  Control& control = form.control(name);
  const int given = static_cast<int>(setting.text.has_value()) + static_cast<int>(setting.value.has_value()) +
                    static_cast<int>(setting.index.has_value()) + static_cast<int>(setting.item.has_value()) +
                    static_cast<int>(!setting.select.empty()) + static_cast<int>(setting.check.has_value()) +
                    static_cast<int>(setting.tab.has_value());
  if (given != 1)
    throw base::Error(base::errors::kInvalidCall,
                      "One of text, value, index, item, select, check and tab is to be set; " +
                          std::to_string(given) + " are given.");
  if (setting.text) return user::setText(control, *setting.text);
  if (setting.value) return user::setValue(control, *setting.value);
  if (setting.index) return user::selectIndex(control, *setting.index);
  if (setting.item) return user::selectItem(control, *setting.item);
  if (setting.check) return user::check(control, spotOf(setting.check->where), setting.check->value);
  if (setting.tab) return user::showTab(control, *setting.tab);
  return selectAll(control, setting.select);
}

bool click(Form& form, std::string_view control, const Spot& spot) {
  return user::click(form.control(control), spot);
}

bool doubleClick(Form& form, std::string_view control, const Spot& spot) {
  return user::doubleClick(form.control(control), spot);
}

bool key(Form& form, std::optional<std::string_view> control, int code, int shift) {
  if (control && !user::focus(form.control(*control))) return false;
  user::key(form, code, shift);
  return true;
}

bool focus(Form& form, std::string_view control) { return user::focus(form.control(control)); }

bool close(Form& form) { return user::close(form); }

}  // namespace kolvane::forms::drive
