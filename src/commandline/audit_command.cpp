// kolvane audit: what Code Maintenance reports on, for people and for programs. Nothing is changed.
#include <array>

#include "commandline/audit_findings.h"
#include "commandline/commands.h"
#include "commandline/progress.h"

namespace kolvane::commandline {
namespace {

using AuditCounts = std::array<long, 3>;  // by audit

struct AuditOptions {
  std::vector<std::string> paths;
  std::vector<std::string> modules;
  FindingOptions output;
  const AuditRow* audit = nullptr;  // null: all of them
  bool allPrivate = false;
};

bool isWanted(const AuditOptions& options, const AuditRow& audit) {
  return options.audit == nullptr || options.audit == &audit;
}

void auditModule(Session& session, const AuditOptions& options, maintenance::ModuleAudits& audits,
                 const ComponentPointer& component, AuditCounts& counts, std::vector<Finding>& findings) {
  for (std::size_t i = 0; i < kAudits.size(); ++i) {
    const AuditRow& audit = kAudits[i];
    if (!isWanted(options, audit)) continue;
    for (const auto& found : audits.find(audit.operation, *component)) {
      findings.push_back(auditFinding(session, component, found));
      ++counts[i];
    }
  }
}

std::string summaryOf(const AuditOptions& options, const AuditCounts& counts) {
  std::string text;
  for (std::size_t i = 0; i < kAudits.size(); ++i)
    if (isWanted(options, kAudits[i]))
      text += (text.empty() ? "" : ", ") + counted(counts[i], kAudits[i].one, kAudits[i].many);
  return text;
}

Exit runAudit(Invocation& invocation, const AuditOptions& options) {
  Session session(invocation.environment, invocation.global);
  for (const std::string& path : options.paths) session.open(path);
  if (session.workspace().VBProjects()->Count() == 0) return Exit::kFailed;

  maintenance::AuditReading reading = auditReading(session);
  reading.allPrivate = options.allPrivate;
  maintenance::ModuleAudits audits(session.suite().services(), reading);
  std::vector<Finding> findings;
  AuditCounts counts{};
  {
    Progress progress(session.terminal());
    for (const auto& component : chosenModules(session, options.modules)) {
      if (invocation.environment.interrupted()) {
        session.printProblem("interrupted");
        return Exit::kFailed;
      }
      progress.step(session.utf8(component->Name()));
      auditModule(session, options, audits, component, counts, findings);
    }
  }
  std::vector<const FindingRule*> rules;
  for (const AuditRow& audit : kAudits)
    if (isWanted(options, audit)) rules.push_back(&audit.rule);
  printFindings(session, options.output.format(), rules, findings, summaryOf(options, counts));
  if (session.hadProblems()) return Exit::kFailed;
  return findings.empty() ? Exit::kDone : Exit::kFindings;
}

void addAuditOptions(CLI::App& command, AuditOptions& options) {
  command.add_option("PROJECT", options.paths, "Projects (.vbp), groups (.vbg) or single modules")
      ->required();
  command.add_option("--modules", options.modules, "Only these modules, parted by commas")->delimiter(',');
  if (options.audit == nullptr || options.audit->operation == maintenance::Operation::kUnusedProcedures)
    command.add_flag(
        "--all-private", options.allPrivate,
        "List unused procedures as the dialog does, also those that events, interfaces and AddressOf call");
  addFindingOptions(command, options.output);
}

}  // namespace

void declareAudit(CLI::App& parent, Invocation& invocation) {
  CLI::App* command =
      parent.add_subcommand("audit", "Report on prefixes, unused variables and unused procedures");
  command->require_subcommand(1);
  const auto declare = [&](const std::string& name, const char* description, const AuditRow* audit) {
    auto options = std::make_shared<AuditOptions>();
    options->audit = audit;
    CLI::App* one = command->add_subcommand(name, description);
    addAuditOptions(*one, *options);
    one->callback([options, &invocation] { invocation.exit = runAudit(invocation, *options); });
  };
  for (const AuditRow& audit : kAudits) declare(std::string(audit.name()), audit.description, &audit);
  declare("all", "All three at once", nullptr);
}

}  // namespace kolvane::commandline
