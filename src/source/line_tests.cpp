#include "source/line_tests.h"

#include "base/text.h"

namespace kolvane::source {
namespace {

constexpr bool isWhite(char c) { return c == ' ' || c == '\t'; }
constexpr std::size_t kContinuationReach = 3;

}  // namespace

std::string_view lTrimWhite(std::string_view text) {
  std::size_t begin = 0;
  while (begin < text.size() && isWhite(text[begin])) ++begin;
  return text.substr(begin);
}

std::string_view trimWhite(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0 && isWhite(text[end - 1])) --end;
  return lTrimWhite(text.substr(0, end));
}

bool Is_Procedure_Title(std::string_view text) { return startsWithAny(trimWhite(text), kProcedureTitles); }

bool Is_Property_Title(std::string_view text) { return startsWithAny(trimWhite(text), kPropertyTitles); }

bool Are_We_On_Procedure_Header(std::string_view text) {
  for (const std::string_view title : kUpperCaseTitles)
    if (base::startsWithNoCase(text, title)) return true;
  return false;
}

bool Are_We_At_End_Of_Procedure(std::string_view text) { return startsWithAny(text, kUpperCaseEnds); }

bool Is_Blank_Line(std::string_view text) { return trimWhite(text).empty(); }

bool Is_Comment_Line(std::string_view text) { return trimWhite(text).starts_with('\''); }

bool Is_Numbered_Line(std::string_view text) { return !text.empty() && base::isDigit(text.front()); }

bool Is_Dim_Line(std::string_view text) { return trimWhite(text).starts_with("Dim"); }

bool Is_With_Member_Line(std::string_view text) { return trimWhite(text).starts_with('.'); }

bool isContinued(std::string_view text) {
  const std::size_t reach = text.size() < kContinuationReach ? 0 : text.size() - kContinuationReach;
  return text.find('_', reach) != std::string_view::npos;
}

}  // namespace kolvane::source
