#include "source/line_numbers.h"

#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::source {

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
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  const std::size_t significant = digits.find_first_not_of('0');
  return significant == std::string_view::npos ? "0" : std::string(digits.substr(significant));
}

}  // namespace kolvane::source
