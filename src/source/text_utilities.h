// Small text routines that the tools share. None keeps any state.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/services.h"

namespace kolvane::source {

// The trimmed text with its first character and each one behind a blank in upper case; the others stay as
// they are.
std::string Capitalize(const frame::Services& services, std::string_view text);
// Without the carriage returns and line feeds at both ends.
std::string_view Trim_CRs(std::string_view text);
// Pieces of `width` characters, the last one shorter; words are cut wherever the width falls. No piece for an
// empty text. A width below 1 raises 5.
std::vector<std::string> SplitLineToArray(std::string_view text, int width);
std::string RepeatString(std::string_view text, int count);
// Without every line feed and the blanks directly behind it.
std::string RemovevbLfFromString(std::string_view text);
// With a blank in front of every carriage return.
std::string AddBlankSpaceToTextInMultiLineTextBoxString(std::string_view text);
// A caption without its access key marks: "&&" becomes "&", a single "&" goes.
std::string RemoveSingleAmps(std::string_view text);
// What stands in front of the first "("; all of it without one.
std::string_view RemoveBracket(std::string_view text);
// What stands in front of the first "/" (all of it without one), and between the first and the second.
std::string_view GetFirstPart(std::string_view text);
std::string_view GetSecondPart(std::string_view text);
// The text from its first letter A to Z on; all of it without one.
std::string_view ReturnStringFromUpperCase(std::string_view text);
// How many blanks stand in front of the first other character; 0 when there is no other.
int FindFirstNonSpaceChar(std::string_view text);
// True when the first character is an ASCII letter.
bool IsLetter(std::string_view text);

// The count of leading blanks, of all of them in a blank line.
int White_Space(std::string_view text);
std::string Remove_Char(std::string_view text, std::string_view character);
// How often `separator` occurs, overlaps not counted.
int Count_Occurrences(std::string_view text, std::string_view separator);

// The greatest multiple of |step| that is not above the value. A step of 0 raises 11.
double Floor(double value, double step);

// The key of an item in a list of pictures or rows: "X" and a text.
std::string MakeKey(std::string_view text);
std::string_view GetKey(std::string_view key);

// What a help page's file name says of its subject: for the kind "Procedure" what stands between ") Procedure
// (" and
// ").html". Kinds: Procedure, Property, Module, Constants, UDT, Enum, Event; any other kind, and a text
// without the kind's marker, give the text as it is.
std::string_view ExtractValue(std::string_view text, std::string_view kind);

}  // namespace kolvane::source
