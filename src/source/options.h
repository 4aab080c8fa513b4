// The suite's options under the names that the source rooms use for them.
#pragma once

#include "frame/options.h"

namespace kolvane::source {

using frame::isOn;
using frame::numberOf;
using frame::Option;
using frame::option;
using frame::textOf;

}  // namespace kolvane::source
