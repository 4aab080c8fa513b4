// kolvane maintain: several operations of Code Maintenance in one run, in their order.
#include <array>
#include <set>

#include "base/error.h"
#include "commandline/audit_findings.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "maintenance/maintenance_run.h"

namespace kolvane::commandline {
namespace {

using maintenance::MaintenanceSummary;
using maintenance::Operation;
using maintenance::OperationRow;

struct MaintainOptions {
  ProjectOptions project;
  std::array<bool, maintenance::kOperations.size()> chosen{};
};

maintenance::OperationSet operationsOf(const MaintainOptions& options) {
  maintenance::OperationSet set;
  for (const OperationRow& row : maintenance::kOperations)
    if (options.chosen[static_cast<std::size_t>(row.operation)]) set.add(row.operation);
  if (set.empty())
    throw WrongUse{"choose an operation, such as --indent; kolvane maintain --help lists them"};
  return set;
}

// The names that this project has, of those that --modules gives ("Module1" or "Project1/Module1").
std::vector<std::string> namesIn(Session& session, frame::VBProject& project, const ProjectOptions& options) {
  std::vector<std::string> names;
  if (options.modules.empty()) return names;
  for (const auto& component : chosenModules(session, options.modules))
    if (component->VBProject().get() == &project) names.push_back(component->Name());
  return names;
}

std::vector<Finding> findingsOf(Session& session, frame::VBProject& project,
                                const MaintenanceSummary& summary) {
  std::vector<Finding> findings;
  for (const maintenance::AuditFinding& found : summary.findings)
    findings.push_back(auditFinding(session, project.VBComponents()->Item(found.module), found));
  return findings;
}

struct RunResult {
  std::vector<Finding> findings;
  long done = 0;
  bool failed = false;
};

void maintainProject(Session& session, const MaintainOptions& options, frame::VBProject& project,
                     RunResult& result) {
  const auto names = namesIn(session, project, options.project);
  if (names.empty() && !options.project.modules.empty()) return;
  const MaintenanceSummary summary = maintenance::maintain(
      session.suite().maintaining(), project, {operationsOf(options), names, auditReading(session)});
  for (const auto& skipped : summary.skipped)
    session.printProblem(session.utf8(skipped.name + ": " + skipped.reason));
  for (const auto& left : summary.leftOut)
    tellFailures(session, project.VBComponents()->Item(left.module), left.procedures);
  for (const auto& failed : summary.failed)
    leaveAsItWas(session, project.VBComponents()->Item(failed.name), failed.reason, failed.line);
  for (Finding& finding : findingsOf(session, project, summary))
    result.findings.push_back(std::move(finding));
  result.done += static_cast<long>(summary.done.size());
  result.failed = result.failed || !summary.complete();
}

std::string maintainAll(Session& session, const MaintainOptions& options, RunResult& result) {
  for (const auto& project : session.workspace().VBProjects()->items()) {
    if (session.environment().interrupted()) break;
    maintainProject(session, options, *project, result);
  }
  if (!options.project.json && !result.findings.empty())
    printFindings(session, FindingFormat::kTable, {}, result.findings,
                  counted(static_cast<long>(result.findings.size()), "finding", "findings"));
  return counted(result.done, "module", "modules") + " done";
}

}  // namespace

void declareMaintain(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<MaintainOptions>();
  CLI::App* command =
      parent.add_subcommand("maintain", "Run several operations over the modules, in their usual order");
  addProjectOptions(*command, options->project);
  for (const OperationRow& row : maintenance::kOperations)
    command->add_flag("--" + std::string(row.shortName),
                      options->chosen[static_cast<std::size_t>(row.operation)], std::string(row.listText));
  command->callback([options, &invocation] {
    operationsOf(*options);
    RunResult result;
    const Exit exit = runOnProjects(invocation.environment, invocation.global, options->project,
                                    [&](Session& session) { return maintainAll(session, *options, result); });
    if (result.failed)
      invocation.exit = Exit::kFailed;
    else
      invocation.exit = exit == Exit::kDone && !result.findings.empty() ? Exit::kFindings : exit;
  });
}

}  // namespace kolvane::commandline
