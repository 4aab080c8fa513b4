// Filters of a text box's KeyPress: each takes a character code and gives it back, or 0 to drop the key.
#pragma once

namespace kolvane::frame {

namespace key_filter_detail {

constexpr bool isDigit(int code) { return code >= '0' && code <= '9'; }
constexpr bool isLetter(int code) {
  return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || code == '_';
}

// What every filter lets through: Ctrl+C, Backspace, Ctrl+V, Ctrl+X, Delete and the two brackets.
constexpr bool alwaysPasses(int code) {
  return code == 3 || code == 8 || code == 22 || code == 24 || code == 127 || code == '(' || code == ')';
}
constexpr int filter(int code, bool passes) { return passes || alwaysPasses(code) ? code : 0; }

}  // namespace key_filter_detail

// Digits; a minus sign and a point are dropped.
constexpr int Numbers_Only(int code) {
  return key_filter_detail::filter(code, key_filter_detail::isDigit(code));
}
// Letters and "_".
constexpr int Letters_Only(int code) {
  return key_filter_detail::filter(code, key_filter_detail::isLetter(code));
}
// Letters, digits and "_".
constexpr int Letters_And_Digits_Only(int code) {
  return key_filter_detail::filter(code,
                                   key_filter_detail::isLetter(code) || key_filter_detail::isDigit(code));
}
// Letters, digits, "_" and the point.
constexpr int Name_Chars_Only(int code) { return code == '.' ? code : Letters_And_Digits_Only(code); }

}  // namespace kolvane::frame
