// kolvane callers, called-from: where a procedure is called from, and the field of its header that says so.
#include "base/error.h"
#include "commandline/commands.h"
#include "commandline/findings.h"
#include "maintenance/list_my_callers.h"

namespace kolvane::commandline {
namespace {

constexpr FindingRule kCaller{"caller", "A line that calls the procedure.", "note"};

struct CallersOptions {
  std::string path;
  std::string procedure;
  FindingOptions output;
};

// In the first project that has the module; the reason of the last one otherwise.
maintenance::SoughtProcedure findProcedure(Session& session, const std::string& name) {
  const std::string wanted = session.codePage().fromUtf8(name);
  std::string reason;
  for (const auto& project : session.workspace().VBProjects()->items()) {
    try {
      return maintenance::soughtProcedure(*project, wanted);
    } catch (const base::Error& error) {
      reason = session.utf8(error.description());
    }
  }
  throw WrongUse{reason};
}

ComponentPointer componentOf(Session& session, const maintenance::Caller& caller) {
  for (const auto& project : session.workspace().VBProjects()->items())
    if (project->Name() == caller.project)
      for (const auto& component : project->VBComponents()->items())
        if (component->Name() == caller.module) return component;
  throw base::Error(base::errors::kSubscript, caller.project + " has no component " + caller.module);
}

Exit runCallers(Invocation& invocation, const CallersOptions& options) {
  Session session(invocation.environment, invocation.global);
  session.open(options.path);
  if (session.workspace().VBProjects()->Count() == 0) return Exit::kFailed;
  const auto sought = findProcedure(session, options.procedure);
  const auto keepGoing = [&] { return !invocation.environment.interrupted(); };
  std::vector<Finding> findings;
  for (const auto& caller : maintenance::findCallers(session.suite().services(), sought, keepGoing)) {
    const std::string text(base::trim(caller.text));
    findings.push_back(findingAt(session, kCaller, componentOf(session, caller),
                                 {caller.line, caller.procedure, text, text}));
  }
  const std::string summary = session.utf8(sought.name) + " is called " +
                              counted(static_cast<long>(findings.size()), "time", "times");
  printFindings(session, options.output.format(), {&kCaller}, findings, summary);
  if (!keepGoing()) session.printProblem("interrupted, there may be more callers");
  return session.hadProblems() ? Exit::kFailed : Exit::kDone;
}

std::string updateFields(Session& session, const ProjectOptions& options) {
  maintenance::Callers& callers = session.suite().maintaining().callers;
  const maintenance::Callers::Batch batch(callers, false);
  const long treated = treatModules(session, options, [&](Session&, const ComponentPointer& component) {
    std::vector<writers::ProcedureFailure> failures;
    const bool done = callers.UpdateCalledFrom_CM(*component->CodeModule(), &failures);
    tellFailures(session, component, failures);
    return done;
  });
  return counted(treated, "module", "modules") + " brought up to date";
}

void declareCalledFrom(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<ProjectOptions>();
  CLI::App* command = parent.add_subcommand(
      "called-from", "Write the callers into the Called From field of procedure headers");
  addProjectOptions(*command, *options);
  command->callback([options, &invocation] {
    invocation.exit = runOnProjects(invocation.environment, invocation.global, *options,
                                    [&](Session& session) { return updateFields(session, *options); });
  });
}

}  // namespace

void declareCallers(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<CallersOptions>();
  CLI::App* command = parent.add_subcommand("callers", "List the lines that call a procedure");
  command->add_option("PROJECT", options->path, "Project (.vbp) or group (.vbg)")->required();
  command->add_option("PROCEDURE", options->procedure, "Module.Procedure")->required();
  addFindingOptions(*command, options->output);
  command->callback([options, &invocation] { invocation.exit = runCallers(invocation, *options); });
  declareCalledFrom(parent, invocation);
}

}  // namespace kolvane::commandline
