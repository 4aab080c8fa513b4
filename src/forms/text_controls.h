// Controls of text: Label, TextBox, RichTextBox, KeyBox.
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"

namespace kolvane::forms {

// Its access key leads to the control behind it in the tab order.
class Label final : public Control {
 public:
  Label(Form& form, std::string_view name, std::string_view caption = {});

 protected:
  void describe(ControlState& state) const override;
};

// Text that can be edited. Positions count characters from 0, as SelStart does; out of range they are brought
// into it. Lines are parted by CR LF.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string_view name, std::string_view text = {});

  const std::string& text() const { return text_; }
  // Cut at the greatest length. The caret goes to the start. Change is raised when the text differs.
  void setText(std::string_view text);
  bool multiLine() const { return multiLine_; }
  void setMultiLine(bool multiLine);
  bool password() const { return password_; }
  void setPassword(bool password);
  // People can read and select, not edit.
  bool locked() const { return locked_; }
  void setLocked(bool locked);
  // 0: no limit. A text that is already longer stays.
  int maxLength() const { return maxLength_; }
  void setMaxLength(int length);

  int selStart() const { return selStart_; }
  int selLength() const { return selLength_; }
  void setSelection(int start, int length);
  void selectAll() { setSelection(0, static_cast<int>(text_.size())); }
  std::string selText() const;
  // Replaces the selection, or inserts at the caret, and puts the caret behind the new text.
  void setSelText(std::string_view text);

 protected:
  TextBox(Form& form, Kind kind, std::string_view name);
  void describe(ControlState& state) const override;
  Deed takeText(std::string_view text) override;
  bool takeKey(int key, int shift) override;
  void takeCharacter(int character) override;
  void takeEdited(std::string_view text, int caret) override;

 private:
  void typeAll(std::string_view text);
  void replace(std::string text, int caret);
  void erase(int start, int length);

  std::string text_;
  int selStart_ = 0;
  int selLength_ = 0;
  int maxLength_ = 0;
  bool multiLine_ = false;
  bool password_ = false;
  bool locked_ = false;
};

// A larger editor for code: of several lines from the start.
class RichTextBox final : public TextBox {
 public:
  RichTextBox(Form& form, std::string_view name);
};

// Captures a key with its modifiers (keys::kShift, kCtrl, kAlt, summed). Back and Delete alone clear it.
class KeyBox final : public Control {
 public:
  KeyBox(Form& form, std::string_view name);

  int key() const { return key_; }
  int modifier() const { return modifier_; }
  void set(int key, int modifier);
  // "None", or "Ctrl + Shift", " + " and the key.
  std::string text() const;

 protected:
  void describe(ControlState& state) const override;
  Deed takeValue(double value) override;  // key + 256 * modifier
  bool takeKey(int key, int shift) override;

 private:
  int key_ = 0;
  int modifier_ = 0;
};

}  // namespace kolvane::forms
