#include "maintenance/module_audits.h"

#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "maintenance/audits.h"
#include "maintenance/methods_of.h"
#include "maintenance/name_mentions.h"
#include "source/variable_prefixes.h"

namespace kolvane::maintenance {
namespace {

using source::clsDeclaration;
using source::LocalVariable;
using source::ProcedureLocals;

// ---- rows of the reports as typed values; audits.h tells their fields

AuditFinding findingOf(Operation audit, const clsDeclaration& row) {
  AuditFinding finding{audit, row.Class,        row.Updated_Name, static_cast<int>(base::toLong(row.Scope)),
                       {},    row.Variable_Type};
  switch (audit) {
    case Operation::kVariablePrefixes:
      finding.subject = row.Original_Prefix + row.Original_Name;
      finding.prefix = row.Updated_Prefix;
      break;
    case Operation::kUnusedVariables:
      finding.subject = row.Just_Original_Prefix + row.Original_Name;
      break;
    default:
      finding.module = row.Original_Name;
      finding.subject = row.Updated_Name;
  }
  return finding;
}

std::vector<AuditFinding> findingsOf(Operation audit, const source::colDeclarations& rows) {
  std::vector<AuditFinding> findings;
  for (const clsDeclaration& row : rows) findings.push_back(findingOf(audit, row));
  return findings;
}

// ---- local variables

AuditFinding findingOf(Operation audit, const std::string& module, const ProcedureLocals& locals,
                       const LocalVariable& variable) {
  return {audit,
          module,
          locals.procedure,
          locals.titleLine,
          variable.name + (variable.isArray ? "()" : ""),
          variable.type};
}

// A name without a capital has none, or is nothing but its prefix: "i".
bool hasPrefix(const LocalVariable& variable, std::string_view prefix) {
  const std::string_view start = source::GetPossiblePrefix(variable.name);
  if (prefix.empty()) return start.empty() || start == variable.name;
  return start == prefix;
}

// Whether each variable is mentioned in its procedure.
NameMentions mentionsOf(const frame::Services& services, frame::CodeModule& module,
                        const ProcedureLocals& locals) {
  std::vector<std::string> names;
  for (const LocalVariable& variable : locals.variables) names.push_back(variable.name);
  NameMentions mentions(services.codePage, names);
  source::forEachStatement(module, locals.titleLine, locals.lastLine,
                           [&](const source::Statement& statement) { mentions.read(statement.text); });
  return mentions;
}

}  // namespace

ModuleAudits::ModuleAudits(const frame::Services& services, AuditReading reading)
    : services_(services), reading_(reading) {}

std::vector<AuditFinding> ModuleAudits::find(Operation audit, frame::VBComponent& component) {
  switch (audit) {
    case Operation::kVariablePrefixes:
      return wrongPrefixes(component);
    case Operation::kUnusedVariables:
      return unusedVariables(component);
    case Operation::kUnusedProcedures:
      return unusedProcedures(component);
    default:
      throw base::Error(base::errors::kInvalidCall);
  }
}

std::vector<AuditFinding> ModuleAudits::wrongPrefixes(frame::VBComponent& component) {
  constexpr Operation kAudit = Operation::kVariablePrefixes;
  frame::CodeModule& module = *component.CodeModule();
  if (reading_.toTheLetter) {
    const auto rows = ReportOnVariablePrefixes_CodeModule(services_, module, component.VBProject()->Name());
    return rows ? findingsOf(kAudit, *rows) : std::vector<AuditFinding>();
  }
  std::vector<AuditFinding> findings;
  const frame::Settings::Rows table = source::variablePrefixes(services_);
  if (table.empty()) return findings;
  for (const ProcedureLocals& locals : localsOf(component))
    for (const LocalVariable& variable : locals.variables)
      for (const auto& [prefix, type] : table) {
        if (type != variable.type || hasPrefix(variable, prefix)) continue;
        findings.push_back(findingOf(kAudit, component.Name(), locals, variable));
        findings.back().prefix = prefix;
      }
  return findings;
}

std::vector<AuditFinding> ModuleAudits::unusedVariables(frame::VBComponent& component) {
  constexpr Operation kAudit = Operation::kUnusedVariables;
  frame::CodeModule& module = *component.CodeModule();
  if (reading_.toTheLetter)
    return findingsOf(kAudit,
                      ReportOnUnusedVariables_CodeModule(services_, module, component.VBProject()->Name()));
  std::vector<AuditFinding> findings;
  for (const ProcedureLocals& locals : localsOf(component)) {
    const NameMentions mentions = mentionsOf(services_, module, locals);
    for (const LocalVariable& variable : locals.variables)
      if (!mentions.isMentioned(variable.name))
        findings.push_back(findingOf(kAudit, component.Name(), locals, variable));
  }
  return findings;
}

std::vector<AuditFinding> ModuleAudits::unusedProcedures(frame::VBComponent& component) {
  constexpr Operation kAudit = Operation::kUnusedProcedures;
  if (!reportsUnusedProcedures(component.Type())) return {};
  auto findings = findingsOf(kAudit, ReportOnUnusedProcedure_CodeModule(services_, *component.VBProject(),
                                                                        component, *component.CodeModule()));
  if (!reading_.toTheLetter && !reading_.allPrivate && !findings.empty()) keepUncalled(component, findings);
  return findings;
}

void ModuleAudits::keepUncalled(frame::VBComponent& component, std::vector<AuditFinding>& findings) {
  frame::CodeModule& module = *component.CodeModule();
  const LanguageCalls language(services_, classesOf(component.VBProject()), component, module);
  std::erase_if(findings,
                [&language](const AuditFinding& finding) { return language.calls(finding.procedure); });
  std::vector<std::string> names;
  for (const AuditFinding& finding : findings) names.push_back(finding.procedure);
  NameMentions mentions(services_.codePage, names, component.Name());
  source::forEachStatement(module, 1, module.CountOfLines(), [&](const source::Statement& statement) {
    mentions.read(statement.text, [&](const std::string& name) {
      return services_.codePage.upper(module.ProcOfLine(statement.line)) != name;
    });
  });
  std::erase_if(findings,
                [&mentions](const AuditFinding& finding) { return mentions.isMentioned(finding.procedure); });
}

const std::vector<ProcedureLocals>& ModuleAudits::localsOf(frame::VBComponent& component) {
  if (const auto module = component.CodeModule(); module != module_) {
    locals_ = source::localsOf(*module);
    module_ = module;
  }
  return locals_;
}

ProjectClasses& ModuleAudits::classesOf(const std::shared_ptr<frame::VBProject>& project) {
  if (project != project_) {
    project_ = project;
    classes_.emplace(services_, *project);
  }
  return *classes_;
}

}  // namespace kolvane::maintenance
