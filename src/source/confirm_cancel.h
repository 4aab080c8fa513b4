#pragma once

#include "frame/confirm_cancel.h"

namespace kolvane::source {

using frame::mayDropChanges;

}  // namespace kolvane::source
