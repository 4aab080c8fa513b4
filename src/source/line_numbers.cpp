#include "source/line_numbers.h"

#include <algorithm>

#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kMostDigits = 9;

}  // namespace

int Find_Width_Of_LineNumber(std::string_view text) {
  const int blank = base::inStr(text, " ");
  return static_cast<int>(base::trim(base::left(text, blank)).size());
}

std::string_view Strip_Line_Number(std::string_view text) {
  if (!Is_Numbered_Line(text)) return text;
  return base::mid(text, Find_Width_Of_LineNumber(text) + 1);
}

std::string GetNumberedCodeLineNumber(std::string_view text) {
  if (!Is_Numbered_Line(text)) return std::string(kNoLineNumber);
  const std::string_view digits = text.substr(0, text.find_first_not_of(kDigits));
  const std::size_t significant = digits.find_first_not_of('0');
  return significant == std::string_view::npos ? "0" : std::string(digits.substr(significant));
}

long lineNumber(std::string_view digits) {
  if (digits.empty() || digits.find_first_not_of(kDigits) != std::string_view::npos) return -1;
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size() - 1));
  return digits.size() > kMostDigits ? -1 : base::toLong(digits);
}

std::string_view lineNumberMark(std::string_view text) {
  std::size_t end = std::min(text.find_first_not_of(kDigits), text.size());
  if (end == 0) return {};
  if (end < text.size() && text[end] == ':') ++end;
  return end == text.size() || text[end] == ' ' || text[end] == '\t' ? text.substr(0, end)
                                                                     : std::string_view();
}

}  // namespace kolvane::source
