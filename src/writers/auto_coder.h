// The Auto Coder: a header and an error handler for every procedure of a module that has none.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "source/dispatcher.h"
#include "writers/context.h"
#include "writers/procedure_failures.h"

namespace kolvane::writers {

// What the Auto Coder works with. All of it must outlive it.
struct AutoCoderTools {
  const Context& context;
  const source::CodeWindowCommands& commands;
};

// How far a pass has come, for a bar. Either may be empty. `reached` may raise, which ends the run.
struct PassProgress {
  std::function<void(int lines)> begin;
  std::function<void(int line)> reached;
};

struct AutoCoderResult {
  int written = 0;
  int there = 0;         // had one already
  int skipped = 0;       // of a kind that the commands do not know, such as Friend; only for handlers
  bool stopped = false;  // a custom handler could not be written
  std::vector<ProcedureFailure> failures = {};  // under care only
};

// The kinds of handler to choose from: the four fixed ones, then the user's own.
std::vector<std::string> autoCoderHandlers(const frame::Settings& settings);

// Gives each Sub and Function without any `On Error` the handler: one of the four kinds, or the custom handler of
// that name. A standard module gets VB_MODULE_NAME in any case. A module that cannot be edited is told to the user,
// once for the constant and once for each procedure. Raises 91 without an active code pane, and the host's error for
// a procedure that it lists but cannot find. What was written before an error stays; under care the errors of
// single procedures are among the result's failures and end nothing. A handler's label counts as a handler then. Of procedures of one name, as
// conditional compilation allows them, the first one is treated. Linear in the number of procedures.
AutoCoderResult Process_CodeModule_For_ErrorHandlers(const AutoCoderTools& tools, frame::CodeModule& module,
                                                     std::string_view handler,
                                                     const PassProgress& progress = {});

// Gives each Sub and Function without a header one by this author, who may be blank. Errors as above; a module that
// cannot be edited raises 40198. Under care a header stands above the title in every case, below the other comments.
AutoCoderResult Process_CodeModule_For_Headers(const Context& context, frame::CodeModule& module,
                                               std::string_view author, const PassProgress& progress = {});

}  // namespace kolvane::writers
