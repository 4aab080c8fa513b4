// What the operations that go on to the next module say when the host refuses to change one.
#pragma once

#include "frame/host.h"
#include "frame/services.h"

namespace kolvane::maintenance {

// Tells the user, in two boxes, that the module is read-only and that formatting stops.
void tellFormattingStops(const frame::Services& services, frame::CodeModule& module);

}  // namespace kolvane::maintenance
