// Going through many lines of a module in stretches.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// Calls `work(number, line)` for the lines `first` to `last`, cut at the module's end, and `pause()` in front
// of each stretch. What pause() changes in the module is seen in the lines behind; work() must not edit it.
template <typename Work, typename Pause>
void walkLines(frame::CodeModule& module, int first, int last, Work work, Pause pause) {
  constexpr int kStretch = 512;
  for (int number = first; number <= last;) {
    pause();
    const int end = std::min(last, module.CountOfLines());
    if (number > end) return;
    const int count = std::min(end - number + 1, kStretch);
    module.VisitLines(number, count, [&](std::string_view line) { work(number++, line); });
  }
}

}  // namespace kolvane::source
