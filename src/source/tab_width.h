// The host editor's tab width.
#pragma once

#include "frame/services.h"

namespace kolvane::source {

inline constexpr int kDefaultTabWidth = 4;

// As the host keeps it among its own settings, read afresh at each call. kDefaultTabWidth when it cannot be read, is 0,
// or is more than the host's editor indents a line.
int GetTabWidth(const frame::Services& services);

}  // namespace kolvane::source
