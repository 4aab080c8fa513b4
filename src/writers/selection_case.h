// Upper, lower and proper case of the selected characters.
#pragma once

#include <string_view>

#include "frame/services.h"

namespace kolvane::writers {

// `word` is "UCASE", "LCASE" or "PROPER" in any case; another one changes nothing. Letters are those of the
// code page. Only selected characters change, and the selection stays; without one nothing happens. The
// host's keywords get their own case back. The pane knows its lines, so `line` is not looked at. A module that
// cannot be edited is told to the user.
void MakeSelectionCase(const frame::Services& services, frame::CodePane& pane, int line,
                       std::string_view word);

}  // namespace kolvane::writers
