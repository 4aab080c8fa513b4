// Text in the language's own manner: positions count from 1, trimming takes blanks only, a position outside
// the text is no error but gives an empty text or 0. Texts are bytes of one single-byte code page; everything
// here that compares letters without case does so for ASCII letters only (CodePage knows the others).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::base {

inline constexpr std::string_view kCrLf = "\r\n";

// Up to `count` characters from position `start`; all that follow when `count` is left out. A start below 1
// or a negative count raises 5.
std::string_view mid(std::string_view text, int start);
std::string_view mid(std::string_view text, int start, int count);
// The first or last `count` characters, the whole text when it is shorter. A negative count raises 5.
std::string_view left(std::string_view text, int count);
std::string_view right(std::string_view text, int count);

// The position of `what` at or behind `start`, or 0. An empty `what` is found at `start` (0 in an empty
// text).
int inStr(std::string_view text, std::string_view what);
int inStr(int start, std::string_view text, std::string_view what);
// The position of the last occurrence that lies wholly within the first `end` characters (-1: all), or 0.
int inStrRev(std::string_view text, std::string_view what, int end = -1);

// Without leading and trailing blanks (character 32 only; a tab is no blank).
std::string_view trim(std::string_view text);
std::string_view lTrim(std::string_view text);
std::string_view rTrim(std::string_view text);

// ASCII case; see CodePage::upper and lower for a module's text.
std::string uCase(std::string_view text);
std::string lCase(std::string_view text);
bool startsWithNoCase(std::string_view text, std::string_view prefix);
inline bool equalNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithNoCase(a, b);
}
// For maps and sets whose keys compare without case.
struct LessNoCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by);
// `count` times the text; none for a count below 1.
std::string repeat(std::string_view text, int count);
inline std::string repeat(char character, int count) {
  return count > 0 ? std::string(static_cast<std::size_t>(count), character) : std::string();
}

// Pieces between separators, at least one. An empty text gives no piece at all, as in the language.
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::string join(const std::vector<std::string>& pieces, std::string_view separator);
// Physical lines: CR LF, a lone CR and a lone LF each end one. "a\n" is two lines, the second one empty; ""
// is one.
std::vector<std::string_view> splitLines(std::string_view text);

// Inline: scanners ask them of every character of a project.
constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }
constexpr bool isAsciiLetter(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}
// A letter, digit or underscore of an identifier; every character from 128 up counts as a letter.
constexpr bool isWordCharacter(char character) {
  return isAsciiLetter(character) || isDigit(character) || character == '_' ||
         static_cast<unsigned char>(character) >= 0x80;
}

// True when the whole text, blanks around it ignored, reads as a number ("12", "-1.5", "1e3", "&H1F").
bool isNumeric(std::string_view text);
// The number that the text begins with, blanks skipped; 0 without one. Reads "12abc" as 12 and "&HFF" as 255.
double val(std::string_view text);
// A whole number as the settings hold it: text that begins with one, rounded to even as the language rounds.
// Text without a number gives `fallback`.
long toLong(std::string_view text, long fallback = 0);
// "True", "-1", "1" and any other number but 0 are true; "False", "0", "" and everything else false. Case is
// ignored.
bool toBool(std::string_view text);
// "True" or "False".
std::string boolText(bool value);
// A number without exponent as the language prints it: "2.5", "3", "-0.25".
std::string numberText(double value);

}  // namespace kolvane::base
