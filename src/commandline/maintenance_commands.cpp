// kolvane indent, comments, sort, number: one operation of Code Maintenance each, over whole modules.
#include <array>

#include "base/error.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "maintenance/code_indenter.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/module_line_numbers.h"
#include "maintenance/procedure_sorter.h"

namespace kolvane::commandline {
namespace {

// Whether the module was treated.
using Operation = bool (*)(frame::Services& services, frame::VBComponent& component);

void requireDone(bool done) {
  if (!done) throw base::Error(base::errors::kModuleNotEditable, "the work was stopped");
}

// A module is indented by itself: one that is badly formed has no say in the next.
bool indent(frame::Services& services, frame::VBComponent& component) {
  maintenance::IndentState state;
  maintenance::CodeIndentModuleLevel(services, state, *component.CodeModule());
  return true;
}

bool formatComments(frame::Services& services, frame::VBComponent& component) {
  const auto module = component.CodeModule();
  requireDone(maintenance::FormatComments(services, *module, module->CountOfDeclarationLines() + 1,
                                          module->CountOfLines()));
  return true;
}

bool sort(frame::Services& services, frame::VBComponent& component) {
  maintenance::Do_Procedure_Sort(services, *component.CodeModule());
  return true;
}

bool addNumbers(frame::Services& services, frame::VBComponent& component) {
  if (!maintenance::takesLineNumbers(component.Type()) ||
      maintenance::hasLineNumbers(services, *component.CodeModule()))
    return false;
  bool stop = false;
  const bool done = maintenance::Add_Line_Numbers_Mod(services, component, stop);
  requireDone(!stop);
  return done;
}

bool removeNumbers(frame::Services& services, frame::VBComponent& component) {
  if (!maintenance::takesLineNumbers(component.Type())) return false;
  bool stop = false;
  const bool done = maintenance::Remove_Line_Numbers_Mod(services, component, stop);
  requireDone(!stop);
  return done;
}

bool invertNumbers(frame::Services& services, frame::VBComponent& component) {
  return maintenance::hasLineNumbers(services, *component.CodeModule()) ? removeNumbers(services, component)
                                                                        : addNumbers(services, component);
}

struct ModuleCommand {
  const char* name;
  const char* description;
  std::string_view done;  // what the summary says of the modules
  Operation operation;
};

constexpr std::array<ModuleCommand, 3> kModuleCommands{{
    {"indent", "Indent the code by its block structure", "indented", indent},
    {"comments", "Bring comments into the suite's style, with borders around blocks", "formatted",
     formatComments},
    {"sort", "Put the procedures into the order of their names", "sorted", sort},
}};

Exit runOperation(Invocation& invocation, const ProjectOptions& options, Operation operation,
                  std::string_view done) {
  const auto treat = [operation](Session& session, const ComponentPointer& component) {
    return operation(session.suite().services(), *component);
  };
  return runOnModules(invocation.environment, invocation.global, options, treat, [done](long treated) {
    return counted(treated, "module", "modules") + " " + std::string(done);
  });
}

struct NumberOptions {
  ProjectOptions project;
  bool add = false;
  bool remove = false;
};

void declareNumber(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<NumberOptions>();
  CLI::App* command = parent.add_subcommand(
      "number", "Number the lines of modules without numbers, and take them out of modules that have any");
  addProjectOptions(*command, options->project);
  const auto add = command->add_flag("--add", options->add, "Only add: modules that have numbers stay");
  command->add_flag("--remove", options->remove, "Only remove: modules without numbers stay")->excludes(add);
  command->callback([options, &invocation] {
    const Operation operation = options->add ? addNumbers : options->remove ? removeNumbers : invertNumbers;
    const std::string_view done = options->add      ? "numbered"
                                  : options->remove ? "freed of numbers"
                                                    : "treated";
    invocation.exit = runOperation(invocation, options->project, operation, done);
  });
}

}  // namespace

void declareMaintenance(CLI::App& parent, Invocation& invocation) {
  for (const ModuleCommand& row : kModuleCommands) {
    auto options = std::make_shared<ProjectOptions>();
    CLI::App* command = parent.add_subcommand(row.name, row.description);
    addProjectOptions(*command, *options);
    command->callback([options, &row, &invocation] {
      invocation.exit = runOperation(invocation, *options, row.operation, row.done);
    });
  }
  declareNumber(parent, invocation);
}

}  // namespace kolvane::commandline
