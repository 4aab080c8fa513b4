// A continued statement back on one line.
#pragma once

#include "frame/services.h"

namespace kolvane::writers {

// Joins the lines of the statement at `line` by single blanks; the first line keeps its indentation. Comments
// and statements of one line stay as they are, and so does one that would be longer than a line may be. The
// cursor goes to the first line, at `startColumn`. A module that cannot be edited is told to the user.
void JoinLines(const frame::Services& services, frame::CodeModule& module, int line, int startColumn);

}  // namespace kolvane::writers
