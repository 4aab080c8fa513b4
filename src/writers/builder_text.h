// What the texts of the builders have in common.
#pragma once

#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::writers {

// A description as a comment takes it: on one line, trimmed, its first letter in upper case.
std::string descriptionLine(const frame::Services& services, std::string_view text);

// The line behind the last one above `line` that is not blank; 1 without one.
int lineBehindText(frame::CodeModule& module, int line);

}  // namespace kolvane::writers
