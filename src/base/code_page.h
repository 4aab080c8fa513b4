// Code pages of Windows: what a module's bytes mean to people.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::base {

// True for text that is all ASCII, or UTF-8 throughout.
bool isAscii(std::string_view text);
// The first byte from `at` on that is not ASCII; the text's size without one. Eight bytes a step.
std::size_t findNonAscii(std::string_view text, std::size_t at);
bool isUtf8(std::string_view text);

// A value. Every byte has a meaning, so that decoding and encoding again gives the same bytes: those that a
// single-byte page leaves open read as the C1 control of their number; in the other pages, bytes that are no
// character read as the private character U+F700 + byte.
class CodePage {
 public:
  static constexpr int kDefault = 1252;
  static constexpr int kUtf8 = 65001;

  // A single-byte page: 874, 1250 to 1258 or 28591 (Latin-1); one object a number for the life of the program. Any
  // other number raises 5 with a description that lists these.
  static const CodePage& get(int number);
  static std::vector<int> numbers();
  static const CodePage& utf8();

  // The tables of a page whose characters take one or two bytes. Each gives the whole text, or nothing when some
  // of it is no character of the page.
  class Conversion {
   public:
    virtual ~Conversion() = default;
    virtual std::optional<std::string> toUtf8(std::string_view bytes) const = 0;
    virtual std::optional<std::string> fromUtf8(std::string_view utf8) const = 0;
  };
  // 932 (Japanese), 936 and 950 (Chinese), 949 (Korean).
  static std::vector<int> doubleByteNumbers();
  // One of these; any other number raises 5.
  CodePage(int number, std::shared_ptr<const Conversion> conversion);

  int number() const { return number_; }
  // Whether a byte below 0x80 may be the second one of a character, and so not what it looks like.
  bool isDoubleByte() const { return conversion_ != nullptr; }
  // 2 where a character of a double-byte page begins that has two bytes, 1 anywhere else.
  std::size_t characterSize(std::string_view bytes, std::size_t at) const {
    return conversion_ == nullptr ? 1 : characterSize(number_, bytes, at);
  }
  // The same for the page of a number, known or not.
  static std::size_t characterSize(int number, std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) < 0x81 ? 1 : doubleSize(number, bytes, at);
  }

  std::string toUtf8(std::string_view bytes) const;
  // A character that the code page does not have, and text that is no UTF-8, raise 5; the description names
  // the character and the code page.
  std::string fromUtf8(std::string_view utf8) const;

  // Case by the code page; length never changes (a letter whose other case is not in the code page stays). In
  // pages of more than one byte a character only ASCII letters have case.
  std::string upper(std::string_view bytes) const;
  std::string lower(std::string_view bytes) const;
  // Each word's first letter upper, the rest lower; words are parted by blanks, tabs, line ends and NUL.
  std::string proper(std::string_view bytes) const;

 private:
  CodePage(int number, const std::array<char16_t, 128>& high);
  static std::size_t doubleSize(int number, std::string_view bytes, std::size_t at);
  template <typename Change>
  std::string changed(std::string_view bytes, Change&& change) const;
  std::string decoded(std::string_view bytes) const;
  std::string encoded(std::string_view utf8) const;

  int number_;
  std::shared_ptr<const Conversion> conversion_;  // of a double-byte page
  std::array<char16_t, 128> high_{};
  std::array<unsigned char, 256> upper_;
  std::array<unsigned char, 256> lower_;
};

}  // namespace kolvane::base
