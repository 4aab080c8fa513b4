#include "commandline/new_command.h"

#include <array>

namespace kolvane::commandline {
namespace {

// In the order of the help.
constexpr std::array<DeclareCommand, 2> kKinds{addNewProcedure, addNewProperty};

}  // namespace

void declareNew(CLI::App& parent, Invocation& invocation) {
  CLI::App* group = parent.add_subcommand("new", "Write new code into a module");
  group->require_subcommand(1);
  for (const DeclareCommand add : kKinds) add(*group, invocation);
}

}  // namespace kolvane::commandline
