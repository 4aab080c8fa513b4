#include "workbench/focus_keystrokes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <array>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workbench {
namespace {

struct NamedKey {
  std::string_view name;
  Qt::Key key;
};
constexpr std::array kNames = {
    NamedKey{"BACKSPACE", Qt::Key_Backspace},
    NamedKey{"BS", Qt::Key_Backspace},
    NamedKey{"BKSP", Qt::Key_Backspace},
    NamedKey{"BREAK", Qt::Key_Cancel},
    NamedKey{"CAPSLOCK", Qt::Key_CapsLock},
    NamedKey{"DELETE", Qt::Key_Delete},
    NamedKey{"DEL", Qt::Key_Delete},
    NamedKey{"DOWN", Qt::Key_Down},
    NamedKey{"END", Qt::Key_End},
    NamedKey{"ENTER", Qt::Key_Enter},
    NamedKey{"ESC", Qt::Key_Escape},
    NamedKey{"HELP", Qt::Key_Help},
    NamedKey{"HOME", Qt::Key_Home},
    NamedKey{"INSERT", Qt::Key_Insert},
    NamedKey{"INS", Qt::Key_Insert},
    NamedKey{"LEFT", Qt::Key_Left},
    NamedKey{"NUMLOCK", Qt::Key_NumLock},
    NamedKey{"PGDN", Qt::Key_PageDown},
    NamedKey{"PGUP", Qt::Key_PageUp},
    NamedKey{"PRTSC", Qt::Key_Print},
    NamedKey{"RIGHT", Qt::Key_Right},
    NamedKey{"SCROLLLOCK", Qt::Key_ScrollLock},
    NamedKey{"TAB", Qt::Key_Tab},
    NamedKey{"UP", Qt::Key_Up},
};
constexpr int kFunctionKeys = 16;

class Sender {
 public:
  explicit Sender(std::string_view keys) : keys_(keys) {}

  void run() {
    while (at_ < keys_.size()) key({});
  }

 private:
  // One key, one name in braces or one bracket of them, with the signs in front of it.
  void key(Qt::KeyboardModifiers held) {
    for (; at_ < keys_.size(); ++at_) {
      if (keys_[at_] == '^')
        held |= Qt::ControlModifier;
      else if (keys_[at_] == '+')
        held |= Qt::ShiftModifier;
      else if (keys_[at_] == '%')
        held |= Qt::AltModifier;
      else
        break;
    }
    if (at_ >= keys_.size()) return;
    const char c = keys_[at_];
    if (c == '(') {
      ++at_;
      while (at_ < keys_.size() && keys_[at_] != ')') key(held);
      if (at_ < keys_.size()) ++at_;
    } else if (c == '{') {
      braces(held);
    } else {
      ++at_;
      c == '~' ? press(Qt::Key_Return, "\r", held) : character(c, held);
    }
  }

  void braces(Qt::KeyboardModifiers held) {
    // "{}}" is a closing brace.
    const std::size_t end = keys_.find('}', at_ + 2);
    if (end == std::string_view::npos) throw base::Error(base::errors::kInvalidCall);
    std::string_view name = keys_.substr(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    long count = 1;
    if (const std::size_t blank = name.find(' '); blank != std::string_view::npos && blank > 0) {
      count = base::toLong(std::string(name.substr(blank + 1)));
      name = name.substr(0, blank);
    }
    for (long i = 0; i < count; ++i) {
      if (name.size() == 1)
        character(name[0], held);
      else
        press(named(name), {}, held);
    }
  }

  static Qt::Key named(std::string_view name) {
    for (const NamedKey& key : kNames)
      if (base::equalNoCase(key.name, name)) return key.key;
    for (int i = 1; i <= kFunctionKeys; ++i)
      if (base::equalNoCase("F" + std::to_string(i), name)) return static_cast<Qt::Key>(Qt::Key_F1 + i - 1);
    throw base::Error(base::errors::kInvalidCall, "There is no key {" + std::string(name) + "}.");
  }

  static void character(char c, Qt::KeyboardModifiers held) {
    const QString text(QChar::fromLatin1(c));
    press(static_cast<Qt::Key>(text.toUpper()[0].unicode()), text, held);
  }

  static void press(Qt::Key key, const QString& text, Qt::KeyboardModifiers held) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) return;
    QKeyEvent down(QEvent::KeyPress, key, held, held.testFlag(Qt::ControlModifier) ? QString() : text);
    QApplication::sendEvent(focus, &down);
    QKeyEvent up(QEvent::KeyRelease, key, held);
    if (QApplication::focusWidget() != nullptr) QApplication::sendEvent(QApplication::focusWidget(), &up);
  }

  std::string_view keys_;
  std::size_t at_ = 0;
};

}  // namespace

void FocusKeystrokes::send(const std::string& keys, bool /*wait*/) {
  if (beforeSending) beforeSending();
  Sender(keys).run();
}

}  // namespace kolvane::workbench
