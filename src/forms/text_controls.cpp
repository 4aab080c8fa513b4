#include "forms/text_controls.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "forms/form.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

Label::Label(Form& form, std::string_view name, std::string_view caption)
    : Control(form, Kind::kLabel, name, caption) {}

void Label::describe(ControlState&) const {}

// TextBox

TextBox::TextBox(Form& form, std::string_view name, std::string_view text)
    : Control(form, Kind::kTextBox, name), text_(text) {}

TextBox::TextBox(Form& form, Kind kind, std::string_view name) : Control(form, kind, name) {}

void TextBox::setText(std::string_view text) {
  if (maxLength_ > 0) text = text.substr(0, static_cast<std::size_t>(maxLength_));
  replace(std::string(text), 0);
}

// The one place where the text changes.
void TextBox::replace(std::string text, int caret) {
  const bool differs = text != text_;
  text_ = std::move(text);
  selStart_ = std::clamp(caret, 0, static_cast<int>(text_.size()));
  selLength_ = 0;
  touched(differs ? Aspect::kContent : Aspect::kSelection);
  if (differs) raise(onChange);
}

void TextBox::setMultiLine(bool multiLine) {
  multiLine_ = multiLine;
  touched(Aspect::kState);
}

void TextBox::setPassword(bool password) {
  password_ = password;
  touched(Aspect::kState);
}

void TextBox::setLocked(bool locked) {
  locked_ = locked;
  touched(Aspect::kState);
}

void TextBox::setMaxLength(int length) {
  maxLength_ = std::max(length, 0);
  touched(Aspect::kState);
}

void TextBox::setSelection(int start, int length) {
  const int size = static_cast<int>(text_.size());
  selStart_ = std::clamp(start, 0, size);
  selLength_ = std::clamp(length, 0, size - selStart_);
  touched(Aspect::kSelection);
}

std::string TextBox::selText() const {
  return text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

void TextBox::setSelText(std::string_view text) {
  if (maxLength_ > 0) {
    const int room = std::max(0, maxLength_ - static_cast<int>(text_.size()) + selLength_);
    text = text.substr(0, static_cast<std::size_t>(room));
  }
  std::string next = text_;
  next.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_), text);
  replace(std::move(next), selStart_ + static_cast<int>(text.size()));
}

void TextBox::erase(int start, int length) {
  std::string next = text_;
  next.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  replace(std::move(next), start);
}

Deed TextBox::takeText(std::string_view text) {
  if (locked_) refuse("is locked");
  if (!multiLine_ && text.find_first_of("\r\n") != std::string_view::npos) refuse("takes one line only");
  return [this, typed = std::string(text)] { typeAll(typed); };
}

void TextBox::typeAll(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool lineEnd = text[i] == '\r' || text[i] == '\n';
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    const int code = filtered(lineEnd ? keys::kEnter : static_cast<unsigned char>(text[i]));
    if (!form().visible()) return;  // closed by its own KeyPress handler
    if (code == keys::kEnter)
      kept += base::kCrLf;
    else if (code != 0)
      kept += static_cast<char>(code);
  }
  if (maxLength_ > 0 && kept.size() > static_cast<std::size_t>(maxLength_))
    kept.resize(static_cast<std::size_t>(maxLength_));
  const int caret = static_cast<int>(kept.size());
  replace(std::move(kept), caret);
}

void TextBox::takeCharacter(int character) {
  if (locked_) return;
  if (character == keys::kBack) {
    if (selLength_ > 0) return setSelText({});
    if (selStart_ == 0) return;
    const auto at = static_cast<std::size_t>(selStart_);
    const int width = at >= 2 && text_.compare(at - 2, 2, base::kCrLf) == 0 ? 2 : 1;
    erase(selStart_ - width, width);
  } else if (character == keys::kEnter) {
    if (multiLine_) setSelText(base::kCrLf);
  } else if (character >= keys::kSpace || character == keys::kTab) {
    const char typed = static_cast<char>(character);
    setSelText(std::string_view(&typed, 1));
  }
}

void TextBox::takeEdited(std::string_view text, int caret) {
  if (locked_) refuse("is locked");
  replace(std::string(text), caret);
}

bool TextBox::takeKey(int key, int shift) {
  const int size = static_cast<int>(text_.size());
  if (shift == keys::kCtrl && key == 'A') {
    selectAll();
    return true;
  }
  if (shift != 0) return false;
  switch (key) {
    case keys::kLeft:
      setSelection(selStart_ - (selLength_ > 0 ? 0 : 1), 0);
      return true;
    case keys::kRight:
      setSelection(selStart_ + (selLength_ > 0 ? selLength_ : 1), 0);
      return true;
    case keys::kHome:
      setSelection(0, 0);
      return true;
    case keys::kEnd:
      setSelection(size, 0);
      return true;
    case keys::kDelete:
      if (locked_) return true;
      if (selLength_ > 0) {
        setSelText({});
      } else if (selStart_ < size) {
        const auto at = static_cast<std::size_t>(selStart_);
        erase(selStart_, text_.compare(at, 2, base::kCrLf) == 0 ? 2 : 1);
      }
      return true;
    default:
      return false;
  }
}

void TextBox::describe(ControlState& state) const {
  state.text = text_;
  state.locked = locked_;
  state.password = password_;
}

RichTextBox::RichTextBox(Form& form, std::string_view name) : TextBox(form, Kind::kRichTextBox, name) {
  setMultiLine(true);
}

// KeyBox

KeyBox::KeyBox(Form& form, std::string_view name) : Control(form, Kind::kKeyBox, name) {}

void KeyBox::set(int key, int modifier) {
  if (key_ == key && modifier_ == modifier) return;
  key_ = key;
  modifier_ = modifier;
  touched(Aspect::kContent);
  raise(onChange);
}

std::string KeyBox::text() const {
  static constexpr std::string_view kModifiers[] = {"",    "Shift",       "Ctrl",       "Shift + Ctrl",
                                                    "Alt", "Alt + Shift", "Ctrl + Alt", "Ctrl + Alt + Shift"};
  if (key_ == 0) return "None";
  const std::string modifier(kModifiers[modifier_ & 7]);
  return modifier.empty() ? keys::name(key_, 0) : modifier + " + " + keys::name(key_, 0);
}

Deed KeyBox::takeValue(double value) {
  if (!(value >= 0 && value < 8 * 256) || value != std::floor(value))
    refuse("takes a key code + 256 * modifiers");
  return [this, number = static_cast<int>(value)] { set(number % 256, number / 256); };
}

bool KeyBox::takeKey(int key, int shift) {
  const bool plain = shift == 0;
  if (plain && (key == keys::kTab || key == keys::kEnter || key == keys::kEscape)) return false;
  if (shift == keys::kShift && key == keys::kTab) return false;
  if (plain && (key == keys::kBack || key == keys::kDelete))
    set(0, 0);
  else
    set(key, shift & 7);
  return true;
}

void KeyBox::describe(ControlState& state) const {
  state.text = text();
  state.value = key_ + 256 * modifier_;
}

}  // namespace kolvane::forms
