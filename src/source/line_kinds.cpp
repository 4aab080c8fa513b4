#include "source/line_kinds.h"

#include <algorithm>

#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::source {
namespace {

constexpr int kLongTitle = 74;

bool holds(std::string_view text, std::string_view what) { return text.find(what) != std::string_view::npos; }

}  // namespace

std::string_view DetectLineType(std::string_view text) {
  text = trimWhite(text);
  if (Are_We_On_Procedure_Header(text)) return line_kind::kProcedure;
  if (text.starts_with("If ")) {
    const bool logical = holds(text, " Or ") || holds(text, " And ");
    return logical && !holds(text, "(") ? line_kind::kIfLogical : line_kind::kIfFunction;
  }
  if (holds(text, ".Add(") || holds(text, ".Add ")) return line_kind::kCollectionAdd;
  if (holds(text, " = ")) {
    const auto quotes = std::count(text.begin(), text.end(), '"');
    return quotes <= 2 ? line_kind::kAssignmentNoBreaks : line_kind::kAssignmentWithBreaks;
  }
  return holds(text, " ") ? line_kind::kSubCall : std::string_view();
}

std::string Format_Procedure_Title(std::string_view text) {
  const int bracket = base::inStr(text, "(");
  const int comma = base::inStrRev(text, ",");
  if (static_cast<int>(text.size()) - bracket < kLongTitle || comma == 0) return std::string(text);
  std::string title(base::left(text, comma - 1));
  title.append(", _ \r").append(base::repeat(' ', bracket));
  return title.append(base::trim(base::mid(text, comma + 1)));
}

}  // namespace kolvane::source
