// What keys do in every kind of list.
#pragma once

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "forms/control.h"

namespace kolvane::forms {

// The row that a key goes to from `row` (below `first`: none), within first..last; nothing for a key that
// moves nowhere, also in an empty list.
inline std::optional<int> rowForKey(int key, int shift, int row, int first, int last) {
  constexpr int kPage = 10;
  if (shift != 0 || last < first) return std::nullopt;
  const bool none = row < first;
  switch (key) {
    case keys::kUp:
      return none ? last : std::max(first, row - 1);
    case keys::kDown:
      return none ? first : std::min(last, row + 1);
    case keys::kPageUp:
      return std::max(first, row - kPage);
    case keys::kPageDown:
      return std::min(last, std::max(row, first) + kPage);
    case keys::kHome:
      return first;
    case keys::kEnd:
      return last;
    default:
      return std::nullopt;
  }
}

// The first row behind `row`, round the end, whose text begins with the character, without regard to case; -1
// without one. Rows count from 0.
template <class TextOf>
int nextByLetter(int character, int row, int count, TextOf textOf) {
  if (character < keys::kSpace) return -1;
  const char letter = static_cast<char>(character);
  for (int step = 1; step <= count; ++step) {
    const int candidate = (row + step) % count;
    if (base::startsWithNoCase(textOf(candidate), std::string_view(&letter, 1))) return candidate;
  }
  return -1;
}

}  // namespace kolvane::forms
