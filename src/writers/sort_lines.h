// The selected lines in order.
#pragma once

#include "frame/services.h"

namespace kolvane::writers {

// Sorts by the lines' bytes without leading blanks; each keeps its indentation. Comments are lines like all
// others, blank lines end up scattered. The cursor goes to the last line. A module that cannot be edited is
// told to the user.
void SortCodeModLines(const frame::Services& services, frame::CodeModule& module, int startLine, int endLine);

}  // namespace kolvane::writers
