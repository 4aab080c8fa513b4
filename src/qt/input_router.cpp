#include "qt/input_router.h"

#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <utility>

#include "base/text.h"
#include "forms/access_keys.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/menu.h"
#include "forms/user.h"
#include "qt/control_view.h"
#include "qt/key_codes.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

namespace keys = forms::keys;

constexpr int kShiftKey = 16;
constexpr int kAltKey = 18;

bool isModifier(int key) { return key >= kShiftKey && key <= kAltKey; }

bool hasShortcut(const std::vector<forms::Menu*>& menus, int key, int shift) {
  for (const forms::Menu* menu : menus)
    if ((menu->shortcutKey() == key && menu->shortcutShift() == shift) ||
        hasShortcut(menu->items(), key, shift))
      return true;
  return false;
}

// The menu bar opens its menus by itself.
bool opensMenu(const forms::Form& form, int key, int shift) {
  if (shift != keys::kAlt) return false;
  for (const forms::Menu* menu : form.menuBar())
    if (menu->visible() && menu->enabled() &&
        forms::accessKey(menu->caption()) == base::lCase(std::string(1, static_cast<char>(key)))[0])
      return true;
  return false;
}

// The tabs that have a page with that access key.
std::pair<forms::Tabs*, int> pageWithKey(const forms::Form& form, int key, int shift) {
  if (shift != keys::kAlt) return {};
  for (forms::Control* control : form.controls()) {
    if (control->kind() != forms::Kind::kTabs || !control->canFocus()) continue;
    auto& tabs = static_cast<forms::Tabs&>(*control);
    for (int page = 0; page < tabs.pages(); ++page)
      if (forms::accessKey(tabs.pageCaption(page)) == base::lCase(std::string(1, static_cast<char>(key)))[0])
        return {&tabs, page};
  }
  return {};
}

}  // namespace

InputRouter::InputRouter(FormWindow& window) : QObject(&window), window_(window) {
  window.installEventFilter(this);
}

void InputRouter::watch(ControlView& view) {
  if (!forms::kindRow(view.control().kind()).focusable) return;
  auto widgets = view.mouseWidgets();
  widgets.push_back(view.focusWidget());
  for (QWidget* widget : widgets) {
    if (!views_.emplace(widget, &view).second) continue;
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, [this, widget] { views_.erase(widget); });
  }
}

ControlView* InputRouter::viewOf(QObject* watched) const {
  const auto found = views_.find(watched);
  return found == views_.end() ? nullptr : found->second;
}

bool InputRouter::eventFilter(QObject* watched, QEvent* event) {
  if (event == passing_ || !window_.alive()) return false;
  ControlView* const view = viewOf(watched);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!wantsBefore(static_cast<QKeyEvent&>(*event))) return false;
      event->accept();
      return true;
    case QEvent::KeyPress:
      return keyPressed(view, static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      return keyReleased(static_cast<QKeyEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return view && mousePressed(*view, static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      if (view) view->released();
      return false;
    case QEvent::FocusIn:
      if (view) focusArrived(*view, static_cast<QFocusEvent&>(*event).reason());
      return false;
    case QEvent::Wheel:
      // A wheel that passes over a closed list scrolls the form, not the list's choice.
      if (!qobject_cast<QComboBox*>(watched) || static_cast<QWidget*>(watched)->hasFocus()) return false;
      event->ignore();
      return true;
    default:
      return false;
  }
}

// Keys

bool InputRouter::wantsBefore(const QKeyEvent& event) const {
  const int key = keyCode(event);
  const int shift = shiftState(event.modifiers());
  const forms::Control* const focus = window_.form().focus();
  const bool captured = focus && focus->kind() == forms::Kind::kKeyBox;
  return key != 0 && !isModifier(key) && (captured || !opensMenu(window_.form(), key, shift));
}

bool InputRouter::keyPressed(ControlView* view, QKeyEvent& event) {
  window_.refresh();
  if (!window_.alive()) return true;
  forms::Form& form = window_.form();
  const int key = keyCode(event);
  const int shift = shiftState(event.modifiers());
  if (isModifier(key)) return false;
  forms::Control* const focus = form.focus();
  ControlView* const aimed = focus ? window_.view(*focus) : nullptr;
  if (view && aimed && view != aimed) {  // the focus has moved since the key was pressed
    window_.placeFocus();
    QCoreApplication::sendEvent(aimed->focusWidget(), &event);
    return true;
  }
  const bool captured = focus && focus->kind() == forms::Kind::kKeyBox;
  if (!captured && opensMenu(form, key, shift)) return false;
  if (!view && views_.contains(window_.focusWidget())) return true;  // a widget had it and had no use for it
  if (const auto [tabs, page] = pageWithKey(form, key, shift); tabs && !captured) {
    window_.act(*tabs, [tabs = tabs, page = page] { forms::user::showTab(*tabs, page); });
    return true;
  }
  const bool own = aimed && view && aimed->takesKey(key, shift) && !hasShortcut(form.menuBar(), key, shift);
  if (own || (key == 0 && aimed && view)) return edit(*aimed, event, key, shift);
  if (key == 0) return true;
  forms::CommandButton* const closing =
      key == keys::kEscape && shift == 0 && !captured ? window_.closingButton() : nullptr;
  const bool alive = window_.act("Form_KeyDown", [&] { forms::user::key(form, key, shift); });
  if (closing && alive && closing == window_.closingButton())
    window_.act(*closing, [closing] { closing->click(); });
  return true;
}

bool InputRouter::edit(ControlView& view, QKeyEvent& event, int key, int shift) {
  forms::Control& control = view.control();
  if (!control.obstacle().empty()) return true;
  int kept = key;
  if (key != 0) {
    if (!event.isAutoRepeat()) down_.insert(key);
    if (!window_.act(control, [&] { kept = forms::user::keyDown(control, key, shift); })) return true;
    if (kept == 0 || !control.hasFocus()) return true;
  }
  QKeyEvent given(QEvent::KeyPress, event.key(), event.modifiers(), event.text(), event.isAutoRepeat());
  QKeyEvent other(QEvent::KeyPress, qtKey(kept), event.modifiers(),
                  QString(QChar(forms::keys::character(kept, shift))));
  QKeyEvent& meant = kept == key ? given : other;
  if (!characterDropped(view, meant, kept) && window_.alive() && window_.view(control) == &view) {
    const QEvent* const outer = std::exchange(passing_, &meant);
    QCoreApplication::sendEvent(view.focusWidget(), &meant);
    passing_ = outer;
  }
  if (window_.alive() && window_.view(control) == &view && control.hasFocus()) view.keyHandled();
  return true;
}

// KeyPress for what the key types. True when the widget must not see the key any more.
bool InputRouter::characterDropped(ControlView& view, const QKeyEvent& event, int key) {
  forms::Control& control = view.control();
  const bool control8 = key == keys::kBack || key == keys::kEnter;
  const bool command =
      event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
  const QString typed = event.text();
  const bool prints = !command && !typed.isEmpty() && typed.at(0).isPrint();
  if (!control8 && !prints) return false;
  const QString characters = control8 ? QString(QChar(key)) : typed;
  QString why;
  const auto bytes = tryFromQt(window_.codePage(), characters, &why);
  if (!bytes) {
    window_.refuse(*view.focusWidget(), why);
    return true;
  }
  bool done = false;
  for (const char byte : *bytes) {
    const int code = static_cast<unsigned char>(byte);
    int kept = code;
    if (!window_.act(control, [&] { kept = forms::user::keyPress(control, code); })) return true;
    if (kept == 0 || !control.hasFocus()) {
      done = true;
      continue;
    }
    const char keptByte = static_cast<char>(kept);
    const QString shown =
        kept == keys::kEnter ? QStringLiteral("\n") : window_.text(std::string_view(&keptByte, 1));
    if (kept == keys::kBack && kept == code) return false;
    done |= view.takeCharacter(shown.at(0), kept != code);
    if (!window_.alive()) return true;
  }
  return done;
}

bool InputRouter::keyReleased(QKeyEvent& event) {
  const int key = keyCode(event);
  if (isModifier(key)) return false;
  if (event.isAutoRepeat() || down_.erase(key) == 0) return key != 0;
  window_.refresh();
  if (forms::Control* const focus = window_.form().focus())
    window_.act(*focus, [&] { forms::user::keyUp(*focus, key, shiftState(event.modifiers())); });
  return false;
}

// Mouse and focus

bool InputRouter::mousePressed(ControlView& view, const QMouseEvent& event) {
  if (std::exchange(refused_, nullptr) == &view) return true;  // asked already, as the focus came
  window_.refresh();
  if (!window_.alive()) return true;
  if (!window_.aim(view.control())) return true;
  view.pressed(event.modifiers());
  return false;
}

void InputRouter::focusArrived(ControlView& view, Qt::FocusReason reason) {
  if (window_.refreshing() || view.control().hasFocus()) return;
  const bool back = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                    reason == Qt::MenuBarFocusReason;
  if (back) return window_.focusMoved();
  const bool there = window_.aim(view.control());
  if (there || !window_.alive()) return;
  if (reason == Qt::MouseFocusReason) refused_ = &view;
  window_.focusMoved();
}

}  // namespace kolvane::qt
