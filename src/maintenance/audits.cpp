#include "maintenance/audits.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "maintenance/event_names.h"
#include "maintenance/methods_of.h"
#include "maintenance/procedure_uses.h"
#include "maintenance/variable_uses.h"
#include "source/comments.h"
#include "source/line_walk.h"
#include "source/pace.h"
#include "source/procedure_description.h"
#include "source/variable_prefixes.h"

namespace kolvane::maintenance {
namespace {

using source::clsDeclaration;
using source::colDeclarations;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kDim = "Dim ";
constexpr std::string_view kReDim = "ReDim ";

struct Procedure {
  std::string name;
  int firstLine = 0;  // of its code
  int lastLine = 0;
};

// GetProcEndLine's answer without asking the host about each line: what it counts to the procedure follows
// one another from the start on.
int endLine(frame::CodeModule& module, int start, int firstLine, const std::string& name) {
  int line = firstLine;
  if (module.ProcOfLine(line) == name)
    line = std::max(line, start + module.ProcCountLines(name, frame::ProcKind::kProc) - 1);
  return source::GetProcEndLine(module, line, name);
}

Procedure procedureOf(frame::CodeModule& module, frame::Member& member) {
  Procedure procedure{member.Name(), 0, 0};
  const int start = module.ProcStartLine(procedure.name, frame::ProcKind::kProc);
  procedure.firstLine = source::GetProcedureRealStartLine(module, start);
  procedure.lastLine = endLine(module, start, procedure.firstLine, procedure.name);
  return procedure;
}

// The findings that `audit(procedure, locals)` has for the module's procedures, with the place of each filled
// in.
template <typename Audit>
colDeclarations auditLocals(const frame::Services& services, frame::CodeModule& module,
                            std::string_view projectName, Audit audit) {
  colDeclarations findings;
  source::Pace pace(services.desk);
  const std::string moduleName = module.Name();
  for (const auto& member : methodsOf(module)) {
    pace.step();
    const Procedure procedure = procedureOf(module, *member);
    const colDeclarations locals = source::Get_Module_Declarations(services, projectName, module,
                                                                   procedure.firstLine, procedure.lastLine);
    if (locals.Count() == 0) continue;
    for (clsDeclaration& finding : audit(procedure, locals)) {
      finding.Updated_Name = procedure.name;
      finding.Scope = std::to_string(procedure.firstLine);
      finding.Project = projectName;
      finding.Class = moduleName;
      findings.Add(std::move(finding));
    }
  }
  return findings;
}

// The lines without comments and declarations. A line that has a comment runs into the next one.
std::string procedureText(frame::CodeModule& module, int firstLine, int lastLine) {
  std::string text;
  std::string line;
  const auto add = [&](int, std::string_view code) {
    if (std::any_of(code.begin(), code.end(), [](char c) { return c == '\'' || c == '"'; })) {
      line.assign(code).push_back('\r');
      text.append(RemoveDeclarations(source::Remove_Comments(line)));
      return;
    }
    const std::string_view kept = RemoveDeclarations(code);
    text.append(kept);
    if (kept.size() == code.size()) text.push_back('\r');
  };
  source::walkLines(module, firstLine, lastLine, add, [] {});
  return text;
}

std::string fullName(const clsDeclaration& declaration) {
  std::string name = declaration.Original_Prefix + declaration.Original_Name;
  return name.substr(0, name.find('('));
}

bool isCandidate(const frame::Services& services, frame::VBComponent& component, frame::Member& member) {
  return member.Scope() == frame::MemberScope::kPrivate &&
         !IsStandardEvent(services.codePage, component.Type(), member.Name());
}

// The private procedures that nothing but the module's own code can call.
std::vector<std::string> candidatesOf(const frame::Services& services, frame::VBComponent& component,
                                      frame::CodeModule& module) {
  std::vector<std::string> names;
  for (const auto& member : methodsOf(module))
    if (isCandidate(services, component, *member)) names.push_back(member->Name());
  if (names.empty()) return names;
  const std::string handlers = controlHandlers(services.codePage, component);
  std::erase_if(names,
                [&](const std::string& name) { return IsControlEvent(services.codePage, name, handlers); });
  return names;
}

clsDeclaration unusedProcedure(frame::CodeModule& module, const std::string& name) {
  const int start = module.ProcStartLine(name, frame::ProcKind::kProc);
  const int line = source::GetProcedureRealStartLine(module, start);
  clsDeclaration finding;
  finding.Updated_Name = name;
  finding.Original_Prefix = source::Find_Procedure_Return_Type(module, line);
  finding.Updated_Prefix = source::GetProceduresDescription(module, name, line);
  finding.Variable_Type = source::Find_Procedure_Type(module, line);
  finding.Scope = std::to_string(line);
  return finding;
}

}  // namespace

std::optional<colDeclarations> ReportOnVariablePrefixes_CodeModule(const frame::Services& services,
                                                                   frame::CodeModule& module,
                                                                   std::string_view projectName) {
  const base::ErrorScope scope{kModule, "ReportOnVariablePrefixes_CodeModule"};
  const frame::Settings::Rows table = source::variablePrefixes(services);
  if (table.empty()) return std::nullopt;
  return auditLocals(services, module, projectName,
                     [&table](const Procedure&, const colDeclarations& locals) {
                       return GetIncorrectPrefixes(locals, table);
                     });
}

colDeclarations ReportOnUnusedVariables_CodeModule(const frame::Services& services, frame::CodeModule& module,
                                                   std::string_view projectName) {
  const base::ErrorScope scope{kModule, "ReportOnUnusedVariables_CodeModule"};
  const auto audit = [&module](const Procedure& procedure, const colDeclarations& locals) {
    colDeclarations unused =
        GetProcedureVariablesUnused(module, locals, procedure.firstLine, procedure.lastLine);
    for (clsDeclaration& finding : unused) {
      finding.Just_Original_Prefix = std::exchange(finding.Original_Prefix, {});
      finding.Updated_Prefix.clear();
    }
    return unused;
  };
  return auditLocals(services, module, projectName, audit);
}

colDeclarations ReportOnUnusedProcedure_CodeModule(const frame::Services& services, frame::VBProject& project,
                                                   frame::VBComponent& component, frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "ReportOnUnusedProcedure_CodeModule"};
  colDeclarations findings;
  const std::vector<std::string> names = candidatesOf(services, component, module);
  const ProcedureUses uses(services, module, names);
  const std::string moduleName = module.Name();
  const std::string projectName = project.Name();
  source::Pace pace(services.desk);
  for (const std::string& name : names) {
    if (uses.isCalled(name)) continue;
    pace.step();
    clsDeclaration finding = unusedProcedure(module, name);
    finding.Original_Name = moduleName;
    finding.Project = projectName;
    findings.Add(std::move(finding));
  }
  return findings;
}

colDeclarations GetIncorrectPrefixes(const colDeclarations& declarations,
                                     const frame::Settings::Rows& prefixTable) {
  const base::ErrorScope scope{kModule, "GetIncorrectPrefixes"};
  colDeclarations findings;
  for (const clsDeclaration& declaration : declarations)
    for (const auto& [prefix, type] : prefixTable) {
      if (type != declaration.Variable_Type || prefix == declaration.Original_Prefix) continue;
      clsDeclaration& finding = findings.Add({});
      finding.Original_Name = declaration.Original_Name;
      finding.Original_Prefix = declaration.Original_Prefix;
      finding.Updated_Prefix = prefix;
      finding.Variable_Type = declaration.Variable_Type;
    }
  return findings;
}

colDeclarations GetProcedureVariablesUnused(frame::CodeModule& module, const colDeclarations& declarations,
                                            int firstLine, int lastLine) {
  const base::ErrorScope scope{kModule, "GetProcedureVariablesUnused"};
  std::vector<std::string> names;
  for (const clsDeclaration& declaration : declarations) names.push_back(fullName(declaration));
  const std::string text = procedureText(module, firstLine, lastLine);
  const VariableUses uses(names, text);
  colDeclarations unused;
  std::size_t index = 0;
  for (const clsDeclaration& declaration : declarations)
    if (!uses.isUsed(index++)) unused.Add(declaration);
  return unused;
}

std::string_view RemoveDeclarations(std::string_view line) {
  const std::size_t dim = line.find(kDim);
  if (dim == std::string_view::npos) return line;
  return line.substr(0, dim + kDim.size()).ends_with(kReDim) ? line : line.substr(0, dim);
}

}  // namespace kolvane::maintenance
