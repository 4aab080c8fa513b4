// The question before a form with unsaved changes closes.
#pragma once

#include "frame/services.h"

namespace kolvane::frame {

// True when the form may close: nothing was changed, the options do not ask for a confirmation, or the user
// agrees.
bool mayDropChanges(const Services& services, bool changed);

}  // namespace kolvane::frame
