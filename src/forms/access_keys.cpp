#include "forms/access_keys.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "forms/user.h"

namespace kolvane::forms {

namespace {

// A caption of the form and the control that its key acts on.
struct Holder {
  std::string caption;
  Control* control;
};

std::vector<Holder> holders(const Form& form) {
  std::vector<Holder> all;
  for (Control* control : form.tabOrder()) {
    if (kindRow(control->kind()).captioned) all.push_back({control->caption(), control});
    const std::string& label = form.place(*control).label;
    if (!label.empty()) all.push_back({label, control});
  }
  return all;
}

// False for two controls of which people never see both.
bool meet(const Form& form, const Control* a, const Control* b) {
  const auto pages = [&](const Control* control) {
    std::vector<std::pair<const Control*, int>> path;
    while (control && control->kind() != Kind::kMenu) {
      const Place& place = form.place(*control);
      if (place.page >= 0) path.emplace_back(place.container, place.page);
      control = place.container;
    }
    return path;
  };
  const auto others = pages(b);
  for (const auto& [tabs, page] : pages(a))
    for (const auto& [otherTabs, otherPage] : others)
      if (tabs == otherTabs && page != otherPage) return false;
  return true;
}

void findShared(const Form& form, const std::vector<Holder>& all, std::vector<std::string>& faults) {
  for (std::size_t i = 0; i < all.size(); ++i) {
    const char key = accessKey(all[i].caption);
    if (key == 0) continue;
    for (std::size_t k = i + 1; k < all.size(); ++k) {
      if (accessKey(all[k].caption) != key || !meet(form, all[i].control, all[k].control)) continue;
      faults.push_back(form.name() + ": \"" + all[i].caption + "\" and \"" + all[k].caption +
                       "\" share the access key " + key + ".");
    }
  }
}

void findSharedInMenu(const Form& form, const Menu& menu, std::vector<std::string>& faults) {
  std::vector<Holder> items;
  for (Menu* item : menu.items()) {
    items.push_back({item->caption(), item});
    findSharedInMenu(form, *item, faults);
  }
  findShared(form, items, faults);
}

// The first control in a frame, in tab order, that can have the focus.
Control* firstWithin(const Form& form, const Control& container) {
  for (Control* control : form.tabOrder()) {
    const Control* around = form.place(*control).container;
    while (around && around != &container) around = form.place(*around).container;
    if (around && control->canFocus()) return control;
  }
  return nullptr;
}

Control* behind(const Form& form, const Control& label) {
  const auto& order = form.tabOrder();
  for (auto i = static_cast<std::size_t>(label.tabIndex()) + 1; i < order.size(); ++i)
    if (order[i]->canFocus()) return order[i];
  return nullptr;
}

bool act(Form& form, const Holder& holder) {
  Control* control = holder.control;
  if (!control->obstacle().empty()) return false;
  switch (control->kind()) {
    case Kind::kCommandButton:
    case Kind::kCheckBox:
    case Kind::kOptionButton:
      user::click(*control, {}, FocusCause::kAccessKey);
      return true;
    case Kind::kLabel:
      control = behind(form, *control);
      break;
    case Kind::kFrame:
      control = firstWithin(form, *control);
      break;
    default:
      break;
  }
  if (!control || !control->canFocus()) return false;
  user::focus(*control, FocusCause::kAccessKey);
  return true;
}

}  // namespace

char accessKey(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return base::lCase(caption.substr(i + 1, 1))[0];
    ++i;
  }
  return 0;
}

std::string plainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

std::vector<std::string> accessKeyFaults(const Form& form) {
  std::vector<std::string> faults;
  std::vector<Holder> together = holders(form);
  for (Menu* menu : form.menuBar()) together.push_back({menu->caption(), menu});
  findShared(form, together, faults);
  for (const Menu* menu : form.menuBar()) findSharedInMenu(form, *menu, faults);
  return faults;
}

bool activateAccessKey(Form& form, char key) {
  const char wanted = base::lCase(std::string_view(&key, 1))[0];
  std::vector<Holder> all = holders(form);
  const auto firstBehindFocus = std::stable_partition(all.begin(), all.end(), [&](const Holder& holder) {
    return form.focus() && holder.control->tabIndex() <= form.focus()->tabIndex();
  });
  std::rotate(all.begin(), firstBehindFocus, all.end());
  for (const Holder& holder : all)
    if (accessKey(holder.caption) == wanted && act(form, holder)) return true;
  return false;
}

}  // namespace kolvane::forms
