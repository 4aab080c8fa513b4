// Helpers on lists of texts. Indexes count from 0.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kolvane::source {

// Parts element `index` in front of character `position`: what stands from there on becomes element index +
// 1, and the elements behind move up by one, short of the last, which stays; the one in front of it is lost.
// An index without an element behind it raises 9.
void MoveArrayElements(std::vector<std::string>& list, int index, int position);
// Puts back the separator that a split took out: behind every element but the last.
std::vector<std::string> ReplaceStringInSplitArray(std::vector<std::string> list, std::string_view text);
// True when any element is blank.
bool BlankRowInArray(const std::vector<std::string>& list);
// The index of the first blank element, 0 without one.
int LatestNonBlankIndex(const std::vector<std::string>& list);

}  // namespace kolvane::source
