// The description in a procedure's header, as reports and pages show it.
#pragma once

#include <string>
#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// The text behind "Description  :" in the lines above the title that the host counts to `name`, its
// continuation lines joined to it. Their comment marks stay, apostrophes go. "" without a header, for a
// description of a single "*", and for a title line of 0.
std::string GetProceduresDescription(frame::CodeModule& module, std::string_view name, int titleLine);

}  // namespace kolvane::source
