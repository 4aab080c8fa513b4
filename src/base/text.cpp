#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/error.h"
#include "base/line_cutter.h"

namespace kolvane::base {
namespace {

constexpr char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
constexpr char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

std::size_t checkedCount(int count) {
  if (count < 0) throw Error(errors::kInvalidCall);
  return static_cast<std::size_t>(count);
}

// Hexadecimal or octal digits behind "&H" and "&O".
std::optional<double> radixNumber(std::string_view text) {
  if (text.size() < 3 || text[0] != '&') return std::nullopt;
  const char kind = lowerAscii(text[1]);
  if (kind != 'h' && kind != 'o') return std::nullopt;
  long long value = 0;
  const char* first = text.data() + 2;
  const auto [end, status] = std::from_chars(first, text.data() + text.size(), value, kind == 'h' ? 16 : 8);
  if (status != std::errc() || end == first) return std::nullopt;
  return static_cast<double>(value);
}

struct NumberPrefix {
  double value;
  std::size_t length;
};

// The decimal number at the start of a text; from_chars takes no plus sign and would read "inf" and "nan".
std::optional<NumberPrefix> decimalPrefix(std::string_view text) {
  std::size_t sign = 0;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) sign = 1;
  if (sign == text.size() || (!isDigit(text[sign]) && text[sign] != '.')) return std::nullopt;
  double value = 0;
  const char* first = text.data() + sign;
  const auto [end, status] = std::from_chars(first, text.data() + text.size(), value);
  if (status != std::errc() || end == first) return std::nullopt;
  if (text[0] == '-') value = -value;
  return NumberPrefix{value, static_cast<std::size_t>(end - text.data())};
}

}  // namespace

std::string_view mid(std::string_view text, int start) {
  if (start < 1) throw Error(errors::kInvalidCall);
  const auto offset = static_cast<std::size_t>(start) - 1;
  return offset >= text.size() ? std::string_view() : text.substr(offset);
}

std::string_view mid(std::string_view text, int start, int count) {
  return mid(text, start).substr(0, checkedCount(count));
}

std::string_view left(std::string_view text, int count) { return text.substr(0, checkedCount(count)); }

std::string_view right(std::string_view text, int count) {
  const std::size_t wanted = checkedCount(count);
  return wanted >= text.size() ? text : text.substr(text.size() - wanted);
}

int inStr(std::string_view text, std::string_view what) { return inStr(1, text, what); }

int inStr(int start, std::string_view text, std::string_view what) {
  if (start < 1) throw Error(errors::kInvalidCall);
  if (text.empty()) return 0;
  const std::size_t found = text.find(what, static_cast<std::size_t>(start) - 1);
  return found == std::string_view::npos ? 0 : static_cast<int>(found) + 1;
}

int inStrRev(std::string_view text, std::string_view what, int end) {
  if (end >= 0) text = text.substr(0, static_cast<std::size_t>(end));
  if (text.empty()) return 0;
  const std::size_t found = text.rfind(what);
  return found == std::string_view::npos ? 0 : static_cast<int>(found) + 1;
}

std::string_view lTrim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view rTrim(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view trim(std::string_view text) { return lTrim(rTrim(text)); }

std::string uCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperAscii);
  return result;
}

std::string lCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerAscii);
  return result;
}

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
  if (prefix.size() > text.size()) return false;
  return std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

bool LessNoCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(lowerAscii(x)) < static_cast<unsigned char>(lowerAscii(y));
  });
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by) {
  std::string result;
  if (what.empty()) return std::string(text);
  std::size_t from = 0;
  for (std::size_t found; (found = text.find(what, from)) != std::string_view::npos;
       from = found + what.size())
    result.append(text.substr(from, found - from)).append(by);
  return result.append(text.substr(from));
}

std::string repeat(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result.append(text);
  return result;
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  if (separator.empty()) return {std::string(text)};
  std::size_t from = 0;
  for (std::size_t found; (found = text.find(separator, from)) != std::string_view::npos;
       from = found + separator.size())
    pieces.emplace_back(text.substr(from, found - from));
  pieces.emplace_back(text.substr(from));
  return pieces;
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string result;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) result.append(separator);
    result.append(pieces[i]);
  }
  return result;
}

std::vector<std::string_view> splitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (LineCutter cutter(text); !cutter.atEnd();) lines.push_back(cutter.next());
  if (text.empty() || text.back() == '\r' || text.back() == '\n') lines.push_back(text.substr(text.size()));
  return lines;
}

bool isNumeric(std::string_view text) {
  text = trim(text);
  if (const auto radix = radixNumber(text)) {
    return std::all_of(text.begin() + 2, text.end(), [](char c) {
      const char low = lowerAscii(c);
      return isDigit(c) || (low >= 'a' && low <= 'f');
    });
  }
  const auto number = decimalPrefix(text);
  return number && number->length == text.size();
}

double val(std::string_view text) {
  text = lTrim(text);
  if (const auto radix = radixNumber(text)) return *radix;
  const auto number = decimalPrefix(text);
  return number ? number->value : 0;
}

long toLong(std::string_view text, long fallback) {
  text = trim(text);
  if (!radixNumber(text) && !decimalPrefix(text)) return fallback;
  const double value = std::clamp(std::nearbyint(val(text)), -2147483648.0, 2147483647.0);
  return static_cast<long>(value);
}

bool toBool(std::string_view text) {
  text = trim(text);
  return equalNoCase(text, "True") || val(text) != 0;
}

std::string boolText(bool value) { return value ? "True" : "False"; }

std::string numberText(double value) {
  std::array<char, 400> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value == 0 ? 0.0 : value,
                                    std::chars_format::fixed);
  return std::string(buffer.data(), result.ptr);
}

}  // namespace kolvane::base
