#include "forms/user.h"

#include <memory>

#include "base/error.h"
#include "forms/access_keys.h"
#include "forms/buttons.h"
#include "forms/menu.h"
#include "forms/text_controls.h"

namespace kolvane::forms {

// The one way from outside to what controls do with a gesture.
class UserHand {
 public:
  // Runs what `gesture` gives for a control that a person could use, once it has got the focus, as far as its
  // kind can have it. The form stays alive meanwhile; afterwards its focus is where a person could have it.
  template <class Gesture>
  static bool use(Control& control, FocusCause cause, Gesture gesture) {
    if (const std::string why = control.obstacle(); !why.empty())
      throw base::Error(base::errors::kInvalidCall, why);
    const Deed deed = gesture(control);
    const Holding form(control.form());
    form->activate();
    if (kindRow(control.kind()).focusable && !form->moveFocus(control, cause)) return false;
    if (!control.obstacle().empty()) return false;  // a handler has disabled or hidden it, or closed the form
    if (deed) deed();
    return true;
  }

  static Deed text(Control& control, std::string_view text) { return control.takeText(text); }
  static Deed value(Control& control, double value) { return control.takeValue(value); }
  static Deed index(Control& control, int index) { return control.takeIndex(index); }
  static Deed item(Control& control, std::string_view text) { return control.takeItem(text); }
  static Deed selection(Control& control, const Spot& spot, bool extend) {
    return control.takeSelection(spot, extend);
  }
  static Deed selections(Control& control, const std::vector<Spot>& spots) {
    if (spots.size() > 1 && !control.selectsSeveral()) control.refuse("selects one row at a time");
    std::vector<Deed> deeds;
    for (const Spot& spot : spots) deeds.push_back(control.takeSelection(spot, !deeds.empty()));
    return [form = &control.form(), deeds] {
      for (const Deed& deed : deeds)
        if (form->visible()) deed();
    };
  }
  static Deed tick(Control& control, const Spot& spot, bool value) { return control.takeCheck(spot, value); }
  static Deed tab(Control& control, int page) { return control.takeTab(page); }
  static Deed click(Control& control, const Spot& spot) { return control.takeClick(spot); }
  static Deed doubleClick(Control& control, const Spot& spot) { return control.takeDoubleClick(spot); }

  // Typing goes where the focus is: a KeyPress handler may have moved it.
  static void typeCharacter(Control& control, int character) {
    const int code = control.filtered(character);
    if (code != 0 && control.form().visible() && control.hasFocus()) control.takeCharacter(code);
  }

  static int keyDown(Form& form, Control* control, int key, int shift) {
    int code = key;
    form.raise(form.onKeyDown, code, shift);
    if (control && code != 0) control->raise(control->onKeyDown, code, shift);
    return code;
  }
  static void keyUp(Form& form, Control* control, int key, int shift) {
    if (!form.visible()) return;
    int code = key;
    if (control) control->raise(control->onKeyUp, code, shift);
    form.raise(form.onKeyUp, code, shift);
  }
  static int keyPress(Control& control, int character) { return control.filtered(character); }
  static Deed edited(Control& control, std::string_view text, int caret) {
    return [&control, text, caret] { control.takeEdited(text, caret); };
  }

  static void press(Form& form, int key, int shift);

 private:
  // Keeps a form alive and settles its focus at the end.
  class Holding {
   public:
    explicit Holding(Form& form) : form_(form), keep_(form.weak_from_this().lock()) {}
    ~Holding() noexcept(false) {
      if (std::uncaught_exceptions() == uncaught_) form_.settleFocus();
    }
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;
    Form* operator->() const { return &form_; }

   private:
    Form& form_;
    std::shared_ptr<Form> keep_;
    int uncaught_ = std::uncaught_exceptions();
  };

  static bool clickShortcut(const std::vector<Menu*>& menus, int key, int shift);
  static bool clickButton(CommandButton* button);
  static bool meanFormKey(Form& form, int key, int shift);
  static bool meanEnterOrEscape(Form& form, int key);
  static bool moveByTab(Form& form, bool forward);
};

bool UserHand::clickShortcut(const std::vector<Menu*>& menus, int key, int shift) {
  for (Menu* menu : menus) {
    if (menu->shortcutKey() == key && menu->shortcutShift() == shift && menu->items().empty() &&
        menu->obstacle().empty()) {
      menu->click();
      return true;
    }
    if (clickShortcut(menu->items(), key, shift)) return true;
  }
  return false;
}

bool UserHand::clickButton(CommandButton* button) {
  if (!button || !button->obstacle().empty()) return false;
  button->click();
  return true;
}

bool UserHand::moveByTab(Form& form, bool forward) {
  Control* next = form.nextInTabOrder(form.focus(), forward);
  if (next) form.moveFocus(*next, FocusCause::kTab);
  return true;
}

// Enter and Esc, where the control has no use of its own for them. The focus stays where it is, without
// Validate.
bool UserHand::meanEnterOrEscape(Form& form, int key) {
  if (key == keys::kEscape) return clickButton(form.cancelButton());
  Control* focus = form.focus();
  if (focus && focus->kind() == Kind::kCommandButton) return clickButton(static_cast<CommandButton*>(focus));
  return clickButton(form.defaultButton());
}

bool UserHand::meanFormKey(Form& form, int key, int shift) {
  if (key == keys::kTab && (shift & ~keys::kShift) == 0) return moveByTab(form, shift == 0);
  if (shift == keys::kAlt && activateAccessKey(form, static_cast<char>(key))) return true;
  if (key == keys::kF1 && shift == 0 && !form.helpTopic().empty()) {
    form.showHelp();
    return true;
  }
  return clickShortcut(form.menuBar(), key, shift);
}

void UserHand::press(Form& form, int key, int shift) {
  const Holding holding(form);
  form.activate();
  form.settleFocus();
  const int code = keyDown(form, form.focus(), key, shift);
  Control* const focus = form.focus();
  const bool editor = focus && (focus->kind() == Kind::kTextBox || focus->kind() == Kind::kRichTextBox);
  const bool own = code != 0 && form.visible() && focus && focus->takeKey(code, shift);
  if (!own && code != 0 && form.visible() && !meanFormKey(form, code, shift)) {
    const bool enterText = code == keys::kEnter && editor && static_cast<TextBox*>(focus)->multiLine();
    const bool buttonKey = (code == keys::kEnter && shift == 0 && !enterText) || code == keys::kEscape;
    const bool spaceClick = code == keys::kSpace && focus && focus->kind() == Kind::kCommandButton;
    if (spaceClick)
      clickButton(static_cast<CommandButton*>(focus));
    else if ((!buttonKey || !meanEnterOrEscape(form, code)) && form.focus())
      if (const int character = keys::character(code, shift)) typeCharacter(*form.focus(), character);
  }
  keyUp(form, form.focus(), key, shift);
}

namespace user {

namespace {

void requireOpen(const Form& form) {
  if (!form.visible()) throw base::Error(base::errors::kInvalidCall, form.name() + " is not open.");
  if (const Form* blocker = form.desk().openForms().blocker(form))
    throw base::Error(base::errors::kInvalidCall,
                      form.name() + " waits until " + blocker->name() + " is closed.");
}

}  // namespace

bool focus(Control& control, FocusCause cause) {
  return UserHand::use(control, cause, [](Control& it) -> Deed {
    if (!kindRow(it.kind()).focusable)
      throw base::Error(base::errors::kInvalidCall, it.name() + " of " + it.form().name() + " (" +
                                                        std::string(it.kindName()) +
                                                        ") can't have the focus.");
    return {};
  });
}

bool setText(Control& control, std::string_view text) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) { return UserHand::text(it, text); });
}

bool type(Control& control, std::string_view text) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) -> Deed {
    return [&it, text] {
      for (const char character : text) {
        if (!it.form().visible() || !it.hasFocus()) return;
        UserHand::typeCharacter(it, static_cast<unsigned char>(character));
      }
    };
  });
}

bool setValue(Control& control, double value) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) { return UserHand::value(it, value); });
}

bool selectIndex(Control& control, int index) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) { return UserHand::index(it, index); });
}

bool selectItem(Control& control, std::string_view text) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) { return UserHand::item(it, text); });
}

bool select(Control& control, const Spot& spot, bool extend) {
  return UserHand::use(control, FocusCause::kMouse,
                       [&](Control& it) { return UserHand::selection(it, spot, extend); });
}

bool select(Control& control, const std::vector<Spot>& spots) {
  return UserHand::use(control, FocusCause::kMouse,
                       [&](Control& it) { return UserHand::selections(it, spots); });
}

bool check(Control& control, const Spot& spot, bool value) {
  return UserHand::use(control, FocusCause::kMouse,
                       [&](Control& it) { return UserHand::tick(it, spot, value); });
}

bool showTab(Control& control, int page) {
  return UserHand::use(control, FocusCause::kMouse, [&](Control& it) { return UserHand::tab(it, page); });
}

bool click(Control& control, const Spot& spot, FocusCause cause) {
  return UserHand::use(control, cause, [&](Control& it) { return UserHand::click(it, spot); });
}

bool doubleClick(Control& control, const Spot& spot) {
  return UserHand::use(control, FocusCause::kMouse,
                       [&](Control& it) { return UserHand::doubleClick(it, spot); });
}

void key(Form& form, int key, int shift) {
  requireOpen(form);
  UserHand::press(form, key, shift);
}

int keyDown(Control& control, int key, int shift) {
  return UserHand::keyDown(control.form(), &control, key, shift);
}

int keyPress(Control& control, int character) { return UserHand::keyPress(control, character); }

void keyUp(Control& control, int key, int shift) { UserHand::keyUp(control.form(), &control, key, shift); }

bool edited(Control& control, std::string_view text, int caret) {
  return UserHand::use(control, FocusCause::kMouse,
                       [&](Control& it) { return UserHand::edited(it, text, caret); });
}

bool close(Form& form) {
  requireOpen(form);
  return form.close();
}

}  // namespace user
}  // namespace kolvane::forms
