// kolvane serve: the suite driven by a program over JSON-RPC.
#include "automation/server.h"
#include "commandline/commands.h"

namespace kolvane::commandline {

void declareServe(CLI::App& parent, Invocation& invocation) {
  CLI::App* command = parent.add_subcommand(
      "serve", "Take requests (JSON-RPC 2.0, one a line) on standard input; see docs/automation.md");
  command->callback([&invocation] {
    Environment& environment = invocation.environment;
    const auto channel = environment.openChannel();
    automation::Environment served{*channel,         environment.files,        environment.clock,
                                   environment.user, environment.openSettings, environment.home};
    automation::Server(served).run();
  });
}

}  // namespace kolvane::commandline
