// The Parameters field of a procedure header, from the procedure's title.
#pragma once

#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// "a - Long, b - String": what stands between the title's brackets, its lines joined, without ByVal and
// ByRef. Behind every second comma comes a carriage return and the start of a header line, so that a line
// holds two parameters. All commas count, also one of a default value. "None" for empty brackets.
std::string Find_Parameter_String(const frame::Services& services, frame::CodeModule& module, int titleLine);

// The text with a carriage return and `lineStart` behind every second comma.
std::string brokenBehindCommas(std::string_view text, std::string_view lineStart);

}  // namespace kolvane::source
