// The question before a form with unsaved changes closes.
#pragma once

#include "frame/services.h"

namespace kolvane::source {

// True when the form may close: nothing was changed, the options do not ask for a confirmation, or the user
// agrees.
bool mayDropChanges(const frame::Services& services, bool changed);

}  // namespace kolvane::source
