// A file's change in the unified format that patch programs read.
#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"
#include "commandline/style.h"
#include "platform/text_diff.h"

namespace kolvane::commandline {

struct DiffView {
  Style style;
  // For people: text in UTF-8 by this code page, carriage returns left out. Nothing: the file's own bytes, so
  // that a patch program can apply what it reads from a pipe.
  const base::CodePage* codePage = nullptr;
  int context = 3;
};

// Empty for equal texts. `path` stands in both header lines, with "/" and without a leading "/".
std::string unifiedDiff(platform::TextDiff& diff, std::string_view path, std::string_view before,
                        std::string_view after, const DiffView& view);

}  // namespace kolvane::commandline
