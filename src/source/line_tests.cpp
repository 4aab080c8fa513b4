#include "source/line_tests.h"

#include "base/text.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kWhite = " \t";
constexpr std::size_t kContinuationReach = 3;

}  // namespace

std::string_view lTrimWhite(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhite);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view trimWhite(std::string_view text) {
  const std::size_t last = text.find_last_not_of(kWhite);
  return last == std::string_view::npos ? std::string_view() : lTrimWhite(text.substr(0, last + 1));
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
