#include "base/code_page.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "base/code_page_tables.h"
#include "base/error.h"
#include "base/text.h"

namespace kolvane::base {
namespace {

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

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

// The character at `at`, which moves behind it; nothing, and no move, where none begins.
std::optional<std::uint32_t> readCharacter(std::string_view utf8, std::size_t& at) {
  const unsigned char first = byteOf(utf8[at]);
  if (first < 0x80) {
    ++at;
    return first;
  }
  const std::size_t following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4 || at + following >= utf8.size()) return std::nullopt;
  std::uint32_t code = first & (0x3Fu >> following);
  for (std::size_t i = 1; i <= following; ++i) {
    const unsigned char next = byteOf(utf8[at + i]);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    code = (code << 6) | (next & 0x3Fu);
  }
  constexpr std::array<std::uint32_t, 4> kSmallest{0, 0x80, 0x800, 0x10000};
  if (code < kSmallest[following] || (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF)
    return std::nullopt;
  at += following + 1;
  return code;
}

std::uint32_t nextCharacter(std::string_view utf8, std::size_t& at) {
  const auto code = readCharacter(utf8, at);
  if (!code) refuseMalformed();
  return *code;
}

// Where a byte that is no character goes, and comes back from.
constexpr std::uint32_t kStrayBytes = 0xF700;
constexpr bool isStrayByte(std::uint32_t code) {
  return code >= kStrayBytes + 0x80 && code <= kStrayBytes + 0xFF;
}

struct ByteRange {
  unsigned char first;
  unsigned char last;
  constexpr bool holds(unsigned char byte) const { return byte >= first && byte <= last; }
};
struct DoubleByteRule {
  int number;
  std::array<ByteRange, 2> lead;
  std::array<ByteRange, 3> trail;
};
constexpr std::array kDoubleByte{
    DoubleByteRule{932, {{{0x81, 0x9F}, {0xE0, 0xFC}}}, {{{0x40, 0x7E}, {0x80, 0xFC}, {0x80, 0xFC}}}},
    DoubleByteRule{936, {{{0x81, 0xFE}, {0x81, 0xFE}}}, {{{0x40, 0x7E}, {0x80, 0xFE}, {0x80, 0xFE}}}},
    DoubleByteRule{949, {{{0x81, 0xFE}, {0x81, 0xFE}}}, {{{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}}},
    DoubleByteRule{950, {{{0x81, 0xFE}, {0x81, 0xFE}}}, {{{0x40, 0x7E}, {0xA1, 0xFE}, {0xA1, 0xFE}}}},
};

template <std::size_t N>
bool anyHolds(const std::array<ByteRange, N>& ranges, char c) {
  return std::any_of(ranges.begin(), ranges.end(), [c](ByteRange range) { return range.holds(byteOf(c)); });
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

bool isAscii(std::string_view text) { return findNonAscii(text, 0) == text.size(); }

std::size_t findNonAscii(std::string_view text, std::size_t at) {
  for (std::uint64_t eight = 0; at + sizeof eight <= text.size(); at += sizeof eight) {
    std::memcpy(&eight, text.data() + at, sizeof eight);
    if ((eight & 0x8080808080808080U) != 0) break;
  }
  while (at < text.size() && byteOf(text[at]) < 0x80) ++at;
  return at;
}

bool isUtf8(std::string_view text) {
  for (std::size_t at = findNonAscii(text, 0); at < text.size(); at = findNonAscii(text, at))
    if (!readCharacter(text, at)) return false;
  return true;
}

CodePage::CodePage(int number, std::shared_ptr<const Conversion> conversion)
    : CodePage(number, std::array<char16_t, 128>{}) {
  const auto numbers = doubleByteNumbers();
  if (conversion == nullptr || std::find(numbers.begin(), numbers.end(), number) == numbers.end())
    throw Error(errors::kInvalidCall, "Code page " + std::to_string(number) + " is no double-byte page.");
  conversion_ = std::move(conversion);
}

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

const CodePage& CodePage::utf8() {
  static const CodePage kPage(kUtf8, std::array<char16_t, 128>{});
  return kPage;
}

std::vector<int> CodePage::doubleByteNumbers() {
  std::vector<int> all;
  for (const DoubleByteRule& rule : kDoubleByte) all.push_back(rule.number);
  return all;
}

std::size_t CodePage::doubleSize(int number, std::string_view bytes, std::size_t at) {
  const auto* rule = std::find_if(kDoubleByte.begin(), kDoubleByte.end(),
                                  [number](const DoubleByteRule& each) { return each.number == number; });
  const bool two = rule != kDoubleByte.end() && anyHolds(rule->lead, bytes[at]) && at + 1 < bytes.size() &&
                   anyHolds(rule->trail, bytes[at + 1]);
  return two ? 2 : 1;
}

// Of UTF-8 and double-byte pages: character by character, as some may be none.
std::string CodePage::decoded(std::string_view bytes) const {
  if (conversion_ != nullptr)
    if (auto whole = conversion_->toUtf8(bytes)) return *std::move(whole);
  std::string result;
  for (std::size_t at = 0; at < bytes.size();) {
    std::size_t size = 1;
    std::optional<std::string> character;
    if (conversion_ != nullptr) {
      size = characterSize(bytes, at);
      character = conversion_->toUtf8(bytes.substr(at, size));
    } else {
      std::size_t behind = at;
      const auto code = readCharacter(bytes, behind);
      if (code && !isStrayByte(*code)) character = bytes.substr(at, size = behind - at);
    }
    if (character) {
      result += *character;
    } else {
      size = 1;
      appendUtf8(result, byteOf(bytes[at]) < 0x80 ? byteOf(bytes[at]) : kStrayBytes + byteOf(bytes[at]));
    }
    at += size;
  }
  return result;
}

std::string CodePage::encoded(std::string_view utf8) const {
  std::string result;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t start = at;
    const std::uint32_t code = nextCharacter(utf8, at);
    const std::string_view character = utf8.substr(start, at - start);
    if (isStrayByte(code)) {
      result.push_back(static_cast<char>(code - kStrayBytes));
    } else if (conversion_ == nullptr || code < 0x80) {
      result += character;
    } else if (const auto bytes = conversion_->fromUtf8(character)) {
      result += *bytes;
    } else {
      refuseCharacter(character, code, number_);
    }
  }
  return result;
}

std::string CodePage::toUtf8(std::string_view bytes) const {
  if (isAscii(bytes)) return std::string(bytes);
  if (conversion_ != nullptr || number_ == kUtf8) return decoded(bytes);
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
  if (conversion_ != nullptr || number_ == kUtf8) return encoded(utf8);
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

// Calls `change` with the first byte of each character and whether it has a second one.
template <typename Change>
std::string CodePage::changed(std::string_view bytes, Change&& change) const {
  std::string result(bytes);
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t size = characterSize(bytes, at);
    change(result[at], size > 1);
    at += size;
  }
  return result;
}

std::string CodePage::upper(std::string_view bytes) const {
  return changed(bytes, [this](char& c, bool wide) {
    if (!wide) c = static_cast<char>(upper_[byteOf(c)]);
  });
}

std::string CodePage::lower(std::string_view bytes) const {
  return changed(bytes, [this](char& c, bool wide) {
    if (!wide) c = static_cast<char>(lower_[byteOf(c)]);
  });
}

std::string CodePage::proper(std::string_view bytes) const {
  bool first = true;
  return changed(bytes, [&](char& c, bool wide) {
    const bool gap = isWordGap(c);
    if (!wide) c = static_cast<char>(first ? upper_[byteOf(c)] : lower_[byteOf(c)]);
    first = gap;
  });
}

}  // namespace kolvane::base
