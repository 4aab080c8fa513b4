#include "writers/sort_lines.h"

#include <string>
#include <vector>

#include "base/error.h"
#include "source/read_only_notice.h"
#include "source/sorting.h"
#include "writers/line_block.h"

namespace kolvane::writers {

void SortCodeModLines(const frame::Services& services, frame::CodeModule& module, int startLine,
                      int endLine) {
  const base::ErrorScope scope{"modVBIDEFunctions", "SortCodeModLines"};
  source::withReadOnlyNotice(services, module, [&] {
    std::vector<std::string> lines = linesOf(module, startLine, endLine);
    if (lines.empty()) return;
    const int count = static_cast<int>(lines.size());
    source::QuickTrimmedSort(services, lines, 0, count - 1);
    replaceLines(module, startLine, count, lines);
    putCursor(*module.CodePane(), endLine, 1);
  });
}

}  // namespace kolvane::writers
