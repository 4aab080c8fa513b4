// The commands, each declared in the file of its own name. One more command is one more line here and in
// commands.cpp.
#pragma once

#include <CLI/CLI.hpp>

#include "commandline/environment.h"
#include "commandline/session.h"

namespace kolvane::commandline {

// What a command's declaration works with. Its callback sets `exit`.
struct Invocation {
  Environment& environment;
  const GlobalOptions& global;
  Exit exit = Exit::kDone;
};

using DeclareCommand = void (*)(CLI::App& parent, Invocation& invocation);

void declareHeader(CLI::App& parent, Invocation& invocation);
void declareAutoCode(CLI::App& parent, Invocation& invocation);
void declareNew(CLI::App& parent, Invocation& invocation);  // new procedure, new property
void declareRun(CLI::App& parent, Invocation& invocation);
void declareHandlers(CLI::App& parent, Invocation& invocation);
void declareSettings(CLI::App& parent, Invocation& invocation);
void declareVerify(CLI::App& parent, Invocation& invocation);
void declareServe(CLI::App& parent, Invocation& invocation);
void declareMaintenance(CLI::App& parent, Invocation& invocation);  // indent, comments, sort, number
void declareAudit(CLI::App& parent, Invocation& invocation);
void declareCallers(CLI::App& parent, Invocation& invocation);  // callers, called-from
void declareMaintain(CLI::App& parent, Invocation& invocation);
void declareCommands(CLI::App& parent, Invocation& invocation);

}  // namespace kolvane::commandline
