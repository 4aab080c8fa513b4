// The clipboard: one text and one picture at most, shared with every other program.
#pragma once

#include <optional>
#include <string>

namespace kolvane::platform {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void clear() = 0;
  // The text in UTF-8; nothing when the clipboard holds none.
  virtual std::optional<std::string> text() const = 0;
  // The key of a picture that was put there by setPicture; nothing when there is none.
  virtual std::optional<std::string> picture() const = 0;
  // Each adds to what is there, as the run time's clipboard does; clear() first to replace.
  virtual void setText(const std::string& utf8) = 0;
  virtual void setPicture(const std::string& key) = 0;
};

class MemoryClipboard final : public Clipboard {
 public:
  void clear() override {
    text_.reset();
    picture_.reset();
  }
  std::optional<std::string> text() const override { return text_; }
  std::optional<std::string> picture() const override { return picture_; }
  void setText(const std::string& utf8) override { text_ = utf8; }
  void setPicture(const std::string& key) override { picture_ = key; }

 private:
  std::optional<std::string> text_;
  std::optional<std::string> picture_;
};

}  // namespace kolvane::platform
