// May a text serve as a name?
#pragma once

#include <string_view>

namespace kolvane::source {

// True when the trimmed text begins with anything but a letter A to Z, or is a reserved word. What stands
// behind the first character is not looked at.
bool InvalidName(std::string_view text);
// The same for the name of a type: Long is one, reserved as it is.
bool InvalidTypeName(std::string_view text);
// Whole words, without regard to case; "End If" is one of them. The names of types are none, save Long.
bool NameReservedVBWord(std::string_view text);

}  // namespace kolvane::source
