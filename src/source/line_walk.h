// Going through many lines of a module: read in stretches, since the host joins lines faster than it hands
// them out one by one.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// Calls `work(line)` for each line of a text as the host hands it out: joined by CR LF, none behind the last.
template <typename Work>
void forEachLine(std::string_view text, Work work) {
  while (true) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) break;
    work(text.substr(0, end > 0 && text[end - 1] == '\r' ? end - 1 : end));
    text.remove_prefix(end + 1);
  }
  work(text);
}

// Calls `work(number, line)` for the lines `first` to `last`, cut at the module's end, and `pause()` in front
// of each stretch. What pause() changes in the module is seen in the lines behind.
template <typename Work, typename Pause>
void walkLines(frame::CodeModule& module, int first, int last, Work work, Pause pause) {
  constexpr int kStretch = 512;
  for (int number = first; number <= last;) {
    pause();
    const int end = std::min(last, module.CountOfLines());
    if (number > end) return;
    const int count = std::min(end - number + 1, kStretch);
    const std::string text = module.Lines(number, count);
    forEachLine(text, [&](std::string_view line) { work(number++, line); });
  }
}

}  // namespace kolvane::source
