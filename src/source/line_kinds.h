// What kind of statement a line is, and the layout of a long title.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::source {

namespace line_kind {
inline constexpr std::string_view kProcedure = "Procedure Line";
inline constexpr std::string_view kIfLogical = "If Logical Line";
inline constexpr std::string_view kIfFunction = "If Function Line";
inline constexpr std::string_view kCollectionAdd = "Collection Add Line";
inline constexpr std::string_view kAssignmentNoBreaks = "Variable Assignment Line No Breaks";
inline constexpr std::string_view kAssignmentWithBreaks = "Variable Assignment Line With Breaks";
inline constexpr std::string_view kSubCall = "Sub Call Line";
// Of the same vocabulary, but DetectLineType does not give it: a line with " = " is an assignment already.
inline constexpr std::string_view kReturningCall = "Returning Function Call Line";
}  // namespace line_kind

// One of line_kind, or "" for a line of no kind.
std::string_view DetectLineType(std::string_view text);

// A title whose text behind the first "(" takes 74 characters or more is broken once, in front of its last
// parameter, which is indented to that bracket; the pieces are joined by " _ " and a carriage return.
std::string Format_Procedure_Title(std::string_view text);

}  // namespace kolvane::source
