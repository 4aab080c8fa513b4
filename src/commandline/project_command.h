// What all commands share that work on projects and may write: their options, the choice of modules, and what
// becomes of the changes: a diff, a check, JSON, or files.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "commandline/session.h"
#include "writers/procedure_failures.h"

namespace kolvane::commandline {

struct ProjectOptions {
  std::vector<std::string> paths;
  std::vector<std::string> modules;
  bool diff = false;
  bool check = false;
  bool json = false;
  bool breakLinks = false;
};

// PROJECT…, --modules, and what addOutputOptions() adds.
void addProjectOptions(CLI::App& command, ProjectOptions& options);
// --diff, --check, --json and --break-links.
void addOutputOptions(CLI::App& command, ProjectOptions& options);

using ComponentPointer = std::shared_ptr<frame::VBComponent>;

// Raised for what the user asked wrongly; ends the command with exit status 2.
struct WrongUse {
  std::string reason;
};

// The components with code that --modules names ("Module1" or "Project1/Module1"), all of them without it. A
// name that no open project has raises WrongUse.
std::vector<ComponentPointer> chosenModules(Session& session, const std::vector<std::string>& names);

// The component of that name, "Project1/Module1" or "Module1"; WrongUse without one.
ComponentPointer findModule(Session& session, const std::string& name);

// Shows or writes what the command changed and returns the exit status: kFailed when there was any problem, also one
// that concerned some of the files alone. `summary` is the sentence for people behind it.
Exit finishChanges(Session& session, const ProjectOptions& options, const std::string& summary);

// Opens the paths, runs `work` and finishes the changes.
Exit runOnProjects(Environment& environment, const GlobalOptions& global, const ProjectOptions& options,
                   const std::function<std::string(Session&)>& work);

// What a command does with one module. Returns whether it counts as treated; an error leaves the module as its
// file has it, and the others go on.
using TreatModule = std::function<bool(Session&, const ComponentPointer&)>;

// Treats the chosen modules that can be edited, until the user interrupts, and returns how many counted as treated.
// Those that could not be are told as problems.
long treatModules(Session& session, const ProjectOptions& options, const TreatModule& treat);

// Takes back what was done to a module, and tells why; with the file and its line where the reason is in a line of code.
void leaveAsItWas(Session& session, const ComponentPointer& component, const std::string& reason,
                  int codeLine = 0);

// Names the procedures of the module that a command could not treat, with the reasons, as problems.
void tellFailures(Session& session, const ComponentPointer& component,
                  const std::vector<writers::ProcedureFailure>& failures);

// Opens the paths and treats the chosen modules that can be edited, then finishes the changes. `summary` is told
// how many were treated. Modules that failed are told by name, and so is how many came through.
Exit runOnModules(Environment& environment, const GlobalOptions& global, const ProjectOptions& options,
                  const TreatModule& treat, const std::function<std::string(long treated)>& summary);

// A module that cannot be edited is told in the suite's own sentence; false then.
bool requireEditable(Session& session, const ComponentPointer& component);

// A path as people would type it: from the current folder where the file is below it.
std::string shownPath(Session& session, const std::string& path);

// "1 file", "3 files".
std::string counted(long count, std::string_view one, std::string_view many);

}  // namespace kolvane::commandline
