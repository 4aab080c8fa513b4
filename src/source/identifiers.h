// Names inside a line of code.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::source {

// A to Z, a to z, 0 to 9 and "_", by character code alone.
constexpr bool IsAlphaNumericUnderscore(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
         (character >= '0' && character <= '9') || character == '_';
}

// The identifier around a position. Where no identifier's character stands there, the one that begins right
// behind the position; "" outside of the text.
std::string GetAlphaNumericCharactersFromPosition(std::string_view text, int position);

// The position of the first letter A to Z, 0 without one.
int FirstCapitalLetter(std::string_view text);

// Parts a prefixed variable's name at its first capital, a leading "m" dropped first: of "mstrTitle",
// `element` "name" gives "Title" and "type" gives "str". "" without a capital and for any other element.
std::string ExtractElementFromVariable(std::string_view name, std::string_view element);

// True when `word` stands in the text with no identifier's character on either side.
bool holdsWord(std::string_view text, std::string_view word);
// The text without every such occurrence.
std::string removeWord(std::string_view text, std::string_view word);

}  // namespace kolvane::source
