// The options of List My Callers and of the Called From field.
#pragma once

#include "frame/services.h"

namespace kolvane::maintenance {

// Shows the dialog and returns when it has been closed.
void showListMyCallersOptions(frame::Services& services);

}  // namespace kolvane::maintenance
