// The routines behind the code window's commands.
#pragma once

#include "source/dispatcher.h"
#include "writers/context.h"

namespace kolvane::writers {

// Binds every command of source::kCodeWindowCommands. `context` must outlive the commands.
void bindCodeWindowCommands(source::CodeWindowCommands& commands, const Context& context);

}  // namespace kolvane::writers
