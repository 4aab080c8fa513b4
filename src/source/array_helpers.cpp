#include "source/array_helpers.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::source {
namespace {

bool isBlank(const std::string& text) { return base::trim(text).empty(); }

}  // namespace

void MoveArrayElements(std::vector<std::string>& list, int index, int position) {
  if (index < 0 || index + 1 >= static_cast<int>(list.size())) throw base::Error(base::errors::kSubscript);
  const auto slot = static_cast<std::size_t>(index);
  for (std::size_t i = list.size() - 2; i > slot; --i) list[i] = list[i - 1];
  const std::string text = list[slot];
  list[slot + 1] = base::mid(text, position);
  list[slot] = base::left(text, position - 1);
}

std::vector<std::string> ReplaceStringInSplitArray(std::vector<std::string> list, std::string_view text) {
  for (std::size_t i = 0; i + 1 < list.size(); ++i) list[i].append(text);
  return list;
}

bool BlankRowInArray(const std::vector<std::string>& list) {
  return std::any_of(list.begin(), list.end(), isBlank);
}

int LatestNonBlankIndex(const std::vector<std::string>& list) {
  const auto blank = std::find_if(list.begin(), list.end(), isBlank);
  return blank == list.end() ? 0 : static_cast<int>(blank - list.begin());
}

}  // namespace kolvane::source
