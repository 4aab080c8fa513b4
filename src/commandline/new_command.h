// kolvane new: code written from scratch. One kind of code is one function here and one line in new_command.cpp.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "commandline/commands.h"
#include "commandline/project_command.h"

namespace kolvane::commandline {

// Each adds its subcommand to the group; its callback sets invocation.exit.
void addNewProcedure(CLI::App& group, Invocation& invocation);
void addNewProperty(CLI::App& group, Invocation& invocation);

// What every kind asks for.
struct NewCode {
  ProjectOptions project;
  std::string path;
  std::string module;
  std::string name;
  std::string description;
  std::string scope;  // "private" or "public" in any case; empty: as the defaults say
};
void addNewCodeOptions(CLI::App& command, NewCode& options);

// Writes into the module, whose project is the active one, and returns what was written, such as "Sub Main"; nothing
// when the host refused it, which the user has been told.
using WriteNewCode = std::function<std::optional<std::string>(Session&, frame::CodeModule&)>;
Exit writeNewCode(Invocation& invocation, NewCode& options, const WriteNewCode& write);

}  // namespace kolvane::commandline
