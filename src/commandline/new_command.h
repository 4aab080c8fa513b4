// kolvane new: code written from scratch. One kind of code is one function here and one line in new_command.cpp.
#pragma once

#include "commandline/commands.h"

namespace kolvane::commandline {

// Each adds its subcommand to the group; its callback sets invocation.exit.
void addNewProcedure(CLI::App& group, Invocation& invocation);
void addNewProperty(CLI::App& group, Invocation& invocation);

}  // namespace kolvane::commandline
