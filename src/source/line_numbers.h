// The number in front of a numbered line: a line whose first character is a digit.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::source {

inline constexpr std::string_view kNoLineNumber = "-999";

// The length of what stands in front of the first blank, 0 for a line without a blank.
int Find_Width_Of_LineNumber(std::string_view text);
// The text behind its number, the blank included: "10 Exit Sub" gives " Exit Sub". A line that is not
// numbered, or that holds nothing behind its number, comes back as it is.
std::string_view Strip_Line_Number(std::string_view text);
// The number without leading zeros ("0070 x" gives "70"), kNoLineNumber for a line that is not numbered.
std::string GetNumberedCodeLineNumber(std::string_view text);

// The value of a text of digits alone; -1 for any other, and for one above all numbers that a line may bear.
long lineNumber(std::string_view digits);
// The number that a text begins with, and a colon behind it: "20:" of "20: y = 2". "" for a text that begins with no
// digit, and where something else than white space follows.
std::string_view lineNumberMark(std::string_view text);

}  // namespace kolvane::source
