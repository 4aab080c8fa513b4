#include "forms/control.h"

#include <algorithm>

#include "base/error.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

Control::Control(Form& form, Kind kind, std::string_view name, std::string_view caption)
    : form_(form), kind_(kind), name_(name), caption_(caption) {
  form_.add(*this);
}

Control::~Control() { form_.remove(*this); }

void Control::setCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  touched(Aspect::kState);
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  touched(Aspect::kState);
  form_.dispatch([] {});
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  touched(Aspect::kState);
  form_.dispatch([] {});
}

void Control::setTooltip(std::string_view text) {
  tooltip_ = text;
  touched(Aspect::kState);
}

void Control::setFont(std::string_view name) {
  font_ = name;
  touched(Aspect::kState);
}

int Control::tabIndex() const {
  const auto& order = form_.tabOrder();
  const auto found = std::find(order.begin(), order.end(), this);
  return found == order.end() ? -1 : static_cast<int>(found - order.begin());
}

void Control::setTabIndex(int index) { form_.moveInTabOrder(*this, index); }

std::string Control::obstacle() const {
  if (!form_.visible()) return form_.name() + " is not open.";
  if (const Form* blocker = form_.desk().openForms().blocker(form_))
    return form_.name() + " waits until " + blocker->name() + " is closed.";
  return standing();
}

std::string Control::standing() const {
  const std::string who = name_ + " of " + form_.name();
  if (!enabled_) return who + " is disabled.";
  if (!visible_) return who + " is hidden.";
  if (kind_ == Kind::kTimer) return who + " is never shown.";
  if (kind_ == Kind::kMenu) {
    const Menu* parent = static_cast<const Menu*>(this)->parent();
    return parent ? parent->standing() : std::string();
  }
  const Place& place = form_.place(*this);
  if (place.unplaced) return who + " is not shown.";
  const Control* container = place.container;
  if (!container) return {};
  const std::string where = who + " lies in " + container->name();
  if (!container->enabled()) return where + ", which is disabled.";
  if (!container->visible()) return where + ", which is hidden.";
  if (container->kind() == Kind::kTabs && static_cast<const Tabs*>(container)->tab() != place.page)
    return who + " lies on page " + std::to_string(place.page) + " of " + container->name() +
           ", which isn't shown.";
  return container->standing();
}

bool Control::hasFocus() const { return form_.focus() == this; }

void Control::setFocus() {
  if (!form_.visible()) {
    form_.firstFocus_ = this;
    return;
  }
  if (!kindRow(kind_).focusable) refuse("can't have the focus");
  if (const std::string why = standing(); !why.empty()) throw base::Error(base::errors::kInvalidCall, why);
  form_.moveFocus(*this, FocusCause::kCode);
}

ControlState Control::snapshot() const {
  ControlState state;
  state.name = name_;
  state.kind = kind_;
  state.caption = caption_.empty() ? form_.place(*this).label : caption_;
  state.enabled = enabled_;
  state.visible = visible_;
  state.focus = hasFocus();
  describe(state);
  return state;
}

Deed Control::takeText(std::string_view) { refuse("takes no text"); }
Deed Control::takeValue(double) { refuse("takes no value"); }
Deed Control::takeIndex(int) { refuse("has no list to choose from"); }
Deed Control::takeItem(std::string_view) { refuse("has no list to choose from"); }
Deed Control::takeSelection(const Spot&, bool) { refuse("has no rows to select"); }
Deed Control::takeCheck(const Spot&, bool) { refuse("has nothing to tick"); }
Deed Control::takeTab(int) { refuse("has no pages"); }

Deed Control::takeClick(const Spot& spot) {
  if (spot.row || spot.column || spot.node) refuse("has no rows or columns");
  return [this] { raise(onClick); };
}

Deed Control::takeDoubleClick(const Spot&) { refuse("takes no double click"); }

bool Control::takeKey(int, int) { return false; }
void Control::takeCharacter(int) {}
void Control::takeEdited(std::string_view, int) { refuse("takes no text"); }

void Control::refuse(std::string_view why) const {
  throw base::Error(base::errors::kInvalidCall, name_ + " of " + form_.name() + " (" +
                                                    std::string(kindName()) + ") " + std::string(why) + ".");
}

void Control::touched(Aspect aspect) {
  if (FormView* view = form_.view()) view->controlChanged(*this, aspect);
}

int Control::filtered(int character) {
  int code = character;
  raise(onKeyPress, code);
  return code;
}

std::optional<std::string> Control::filteredLine(std::string_view text) {
  std::string kept;
  for (const char character : text) {
    const int code = filtered(static_cast<unsigned char>(character));
    if (!form_.visible()) return std::nullopt;
    if (code != 0) kept += static_cast<char>(code);
  }
  return kept;
}

void Control::dispatch(const std::function<void()>& work) { form_.dispatch(work); }

}  // namespace kolvane::forms
