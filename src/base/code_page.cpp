#include "base/code_page.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "base/code_page_tables.h"
#include "base/error.h"
#include "base/text.h"

namespace kolvane::base {
namespace {

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return byteOf(c) >= 0x80; });
}

void appendUtf8(std::string& out, std::uint32_t code) {
  const auto add = [&out](std::uint32_t value) { out.push_back(static_cast<char>(value)); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | (code >> 6));
    add(0x80 | (code & 0x3F));
  } else {
    add(0xE0 | (code >> 12));
    add(0x80 | ((code >> 6) & 0x3F));
    add(0x80 | (code & 0x3F));
  }
}

[[noreturn]] void refuseMalformed() { throw Error(errors::kInvalidCall, "The text is not valid UTF-8."); }

// The character at `at`, which moves behind it.
std::uint32_t nextCharacter(std::string_view utf8, std::size_t& at) {
  const unsigned char first = byteOf(utf8[at++]);
  if (first < 0x80) return first;
  const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4 || at + static_cast<std::size_t>(following) > utf8.size())
    refuseMalformed();
  std::uint32_t code = first & (0x3Fu >> following);
  for (int i = 0; i < following; ++i) {
    const unsigned char next = byteOf(utf8[at++]);
    if ((next & 0xC0) != 0x80) refuseMalformed();
    code = (code << 6) | (next & 0x3Fu);
  }
  constexpr std::array<std::uint32_t, 4> kSmallest{0, 0x80, 0x800, 0x10000};
  if (code < kSmallest[static_cast<std::size_t>(following)] || (code >= 0xD800 && code < 0xE000) ||
      code > 0x10FFFF)
    refuseMalformed();
  return code;
}

[[noreturn]] void refuseCharacter(std::string_view character, std::uint32_t code, int page) {
  std::array<char, 16> hex{};
  std::snprintf(hex.data(), hex.size(), "U+%04X", code);
  throw Error(errors::kInvalidCall, "The character \"" + std::string(character) + "\" (" + hex.data() +
                                        ") does not exist in code page " + std::to_string(page) + ".");
}

bool isWordGap(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f' || c == '\0';
}

}  // namespace

CodePage::CodePage(int number, const std::array<char16_t, 128>& high) : number_(number), high_(high) {
  for (std::size_t i = 0; i < 256; ++i) upper_[i] = lower_[i] = static_cast<unsigned char>(i);
  for (std::size_t i = 0; i < 26; ++i) {
    upper_['a' + i] = static_cast<unsigned char>('A' + i);
    lower_['A' + i] = static_cast<unsigned char>('a' + i);
  }
  const auto byteFor = [&](char16_t wanted) {
    const auto found = std::find(high_.begin(), high_.end(), wanted);
    return found == high_.end() ? 0 : 128 + static_cast<int>(found - high_.begin());
  };
  for (const auto& [upperChar, lowerChar] : detail::kCasePairs) {
    const int upperByte = byteFor(upperChar);
    const int lowerByte = byteFor(lowerChar);
    if (upperByte == 0 || lowerByte == 0) continue;
    upper_[static_cast<std::size_t>(lowerByte)] = static_cast<unsigned char>(upperByte);
    lower_[static_cast<std::size_t>(upperByte)] = static_cast<unsigned char>(lowerByte);
  }
}

const CodePage& CodePage::get(int number) {
  static const std::vector<std::unique_ptr<const CodePage>> kPages = [] {
    std::vector<std::unique_ptr<const CodePage>> pages;
    for (const auto& table : detail::kCodePages)
      pages.emplace_back(std::unique_ptr<const CodePage>(new CodePage(table.number, table.high)));
    return pages;
  }();
  for (const auto& page : kPages)
    if (page->number() == number) return *page;
  std::string known;
  for (const int page : numbers()) known += (known.empty() ? "" : ", ") + std::to_string(page);
  throw Error(errors::kInvalidCall,
              "Code page " + std::to_string(number) + " is not known; known are " + known + ".");
}

std::vector<int> CodePage::numbers() {
  std::vector<int> all;
  for (const auto& table : detail::kCodePages) all.push_back(table.number);
  return all;
}

std::string CodePage::toUtf8(std::string_view bytes) const {
  if (isAscii(bytes)) return std::string(bytes);
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    if (byteOf(c) < 0x80)
      result.push_back(c);
    else
      appendUtf8(result, high_[byteOf(c) - 0x80U]);
  }
  return result;
}

std::string CodePage::fromUtf8(std::string_view utf8) const {
  if (isAscii(utf8)) return std::string(utf8);
  std::string result;
  result.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t start = at;
    const std::uint32_t code = nextCharacter(utf8, at);
    if (code < 0x80) {
      result.push_back(static_cast<char>(code));
      continue;
    }
    const auto found = std::find(high_.begin(), high_.end(), code);
    if (found == high_.end()) refuseCharacter(utf8.substr(start, at - start), code, number_);
    result.push_back(static_cast<char>(0x80 + (found - high_.begin())));
  }
  return result;
}

std::string CodePage::upper(std::string_view bytes) const {
  std::string result(bytes);
  for (char& c : result) c = static_cast<char>(upper_[byteOf(c)]);
  return result;
}

std::string CodePage::lower(std::string_view bytes) const {
  std::string result(bytes);
  for (char& c : result) c = static_cast<char>(lower_[byteOf(c)]);
  return result;
}

std::string CodePage::proper(std::string_view bytes) const {
  std::string result(bytes);
  bool first = true;
  for (char& c : result) {
    const bool gap = isWordGap(c);
    c = static_cast<char>(first ? upper_[byteOf(c)] : lower_[byteOf(c)]);
    first = gap;
  }
  return result;
}

}  // namespace kolvane::base
