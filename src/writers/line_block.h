// A run of lines as the code window's commands work on it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::writers {

// The lines `first` to `last` without their ends, cut at the module's end; none behind it.
std::vector<std::string> linesOf(frame::CodeModule& module, int first, int last);

// Puts `lines` in the place of the `count` lines from `first` on. A module that says this already is not
// touched.
void replaceLines(frame::CodeModule& module, int first, int count, const std::vector<std::string>& lines);

// Nothing is selected afterwards. A place outside of the text is moved into it.
void putCursor(frame::CodePane& pane, int line, int column);

// The line ends in a continuation mark: "_" behind a blank, not the last letter of a name.
bool endsInContinuation(std::string_view text);

}  // namespace kolvane::writers
