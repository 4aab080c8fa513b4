// A long line broken into continuation lines at its separators.
#pragma once

#include "frame/services.h"

namespace kolvane::writers {

// Breaks `line` so that each piece is shorter than the maximum width of a code line, as far as the separators
// of its kind allow, and puts them under one another. Separators in string literals do not count. A shorter
// line, a continued one, one of no kind and one that would need more lines than a statement may have are left
// alone. The cursor stays at `startColumn`. A module that cannot be edited is told to the user.
void LineSplitter(const frame::Services& services, frame::CodeModule& module, int line, int startColumn);

}  // namespace kolvane::writers
