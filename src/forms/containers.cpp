#include "forms/containers.h"

#include <algorithm>

#include "base/error.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

Frame::Frame(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kFrame, name, caption) {}

void Frame::describe(ControlState&) const {}

Tabs::Tabs(Form& form, std::string_view name, std::initializer_list<std::string_view> captions)
    : Control(form, Kind::kTabs, name), captions_(captions.begin(), captions.end()) {}

void Tabs::requirePage(int page) const {
  if (page < 0 || page >= pages())
    throw base::Error(errors::kInvalidPropertyValue, name() + " has no page " + std::to_string(page) + ".");
}

const std::string& Tabs::pageCaption(int page) const {
  requirePage(page);
  return captions_[static_cast<std::size_t>(page)];
}

void Tabs::setPageCaption(int page, std::string_view caption) {
  requirePage(page);
  captions_[static_cast<std::size_t>(page)] = caption;
  touched(Aspect::kState);
}

void Tabs::setTab(int page) {
  requirePage(page);
  if (tab_ == page) return;
  const int previous = tab_;
  tab_ = page;
  touched(Aspect::kSelection);
  dispatch([&] { raise(onTabClick, previous); });
}

Deed Tabs::takeTab(int page) {
  requirePage(page);
  return [this, page] { setTab(page); };
}

Deed Tabs::takeItem(std::string_view text) {
  const auto found = std::find(captions_.begin(), captions_.end(), text);
  if (found == captions_.end()) refuse("has no page \"" + std::string(text) + "\"");
  return takeTab(static_cast<int>(found - captions_.begin()));
}

Deed Tabs::takeClick(const Spot& spot) {
  if (!spot.column) refuse("is clicked on a page: a column, from 0");
  return takeTab(*spot.column);
}

bool Tabs::takeKey(int key, int shift) {
  const bool ctrlTab = key == keys::kTab && (shift == keys::kCtrl || shift == keys::kCtrl + keys::kShift);
  if (!ctrlTab && (shift != 0 || (key != keys::kLeft && key != keys::kRight))) return false;
  const bool back = key == keys::kLeft || shift == keys::kCtrl + keys::kShift;
  setTab((tab_ + (back ? pages() - 1 : 1)) % pages());
  return true;
}

void Tabs::describe(ControlState& state) const {
  state.tab = tab_;
  state.pages = captions_;
}

}  // namespace kolvane::forms
