// Single-byte code pages of Windows: what a module's bytes mean to people.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::base {

// Immutable and shared; one object a number for the life of the program. Every byte has a meaning: those that
// the code page leaves open read as the C1 control of their number and are written back from it, so that
// decoding and encoding again gives the same bytes.
class CodePage {
 public:
  static constexpr int kDefault = 1252;

  // 874, 1250 to 1258 or 28591 (Latin-1). Any other number raises 5 with a description that lists these.
  static const CodePage& get(int number);
  static std::vector<int> numbers();

  int number() const { return number_; }

  std::string toUtf8(std::string_view bytes) const;
  // A character that the code page does not have, and text that is no UTF-8, raise 5; the description names
  // the character and the code page.
  std::string fromUtf8(std::string_view utf8) const;

  // Case by the code page; length never changes (a letter whose other case is not in the code page stays).
  std::string upper(std::string_view bytes) const;
  std::string lower(std::string_view bytes) const;
  // Each word's first letter upper, the rest lower; words are parted by blanks, tabs, line ends and NUL.
  std::string proper(std::string_view bytes) const;

 private:
  CodePage(int number, const std::array<char16_t, 128>& high);

  int number_;
  std::array<char16_t, 128> high_;
  std::array<unsigned char, 256> upper_;
  std::array<unsigned char, 256> lower_;
};

}  // namespace kolvane::base
