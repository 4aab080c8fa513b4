// Two ways to take the comment off a line. They differ and are not interchangeable.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::source {

// For the question whether a line holds any code. Takes the first string literal out, both quotes included,
// then cuts at the first apostrophe and trims. Only that one literal goes: an apostrophe in a second one cuts
// too. A line without an apostrophe keeps its blanks.
std::string Remove_Comments(std::string_view text);

// The text up to the first apostrophe outside of double quotes, strings and blanks as they are. A blank text
// gives "".
std::string_view RemoveComments(std::string_view text);

}  // namespace kolvane::source
