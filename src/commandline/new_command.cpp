#include "commandline/new_command.h"

#include <array>

namespace kolvane::commandline {
namespace {

// In the order of the help.
constexpr std::array<DeclareCommand, 2> kKinds{addNewProcedure, addNewProperty};

}  // namespace

void addNewCodeOptions(CLI::App& command, NewCode& options) {
  command.add_option("PROJECT", options.path, "Project (.vbp), group (.vbg) or single module")->required();
  command.add_option("MODULE", options.module, "The module that gets it")->required();
  command.add_option("--name", options.name, "Its name")->required();
  command.add_option("--description", options.description, "For the header");
  command.add_option("--scope", options.scope, "private or public")
      ->check(CLI::IsMember({"private", "public"}, CLI::ignore_case));
  addOutputOptions(command, options.project);
}

Exit writeNewCode(Invocation& invocation, NewCode& options, const WriteNewCode& write) {
  options.project.paths = {options.path};
  bool refused = false;
  const Exit exit = runOnProjects(
      invocation.environment, invocation.global, options.project, [&](Session& session) -> std::string {
        const ComponentPointer component = findModule(session, options.module);
        session.suite().services().vbe.setActiveVBProject(component->VBProject());
        if (!requireEditable(session, component)) return {};
        const auto written = write(session, *component->CodeModule());
        refused = !written;
        return refused ? std::string() : *written + " in " + session.utf8(component->Name());
      });
  return refused ? Exit::kFailed : exit;
}

void declareNew(CLI::App& parent, Invocation& invocation) {
  CLI::App* group = parent.add_subcommand("new", "Write new code into a module");
  group->require_subcommand(1);
  for (const DeclareCommand add : kKinds) add(*group, invocation);
}

}  // namespace kolvane::commandline
