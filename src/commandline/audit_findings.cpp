#include "commandline/audit_findings.h"

#include "base/error.h"
#include "base/text.h"
#include "maintenance/audits.h"
#include "maintenance/methods_of.h"

namespace kolvane::commandline {
namespace {

using maintenance::Operation;
using source::clsDeclaration;
using source::colDeclarations;

colDeclarations wrongPrefixes(frame::Services& services, frame::VBComponent& component) {
  return maintenance::ReportOnVariablePrefixes_CodeModule(services, *component.CodeModule(),
                                                          component.VBProject()->Name())
      .value_or(colDeclarations());
}

colDeclarations unusedVariables(frame::Services& services, frame::VBComponent& component) {
  return maintenance::ReportOnUnusedVariables_CodeModule(services, *component.CodeModule(),
                                                         component.VBProject()->Name());
}

colDeclarations unusedProcedures(frame::Services& services, frame::VBComponent& component) {
  if (!maintenance::reportsUnusedProcedures(component.Type())) return {};
  return maintenance::ReportOnUnusedProcedure_CodeModule(services, *component.VBProject(), component,
                                                         *component.CodeModule());
}

std::string wrongPrefixMessage(const clsDeclaration& found) {
  const std::string expected = found.Updated_Prefix.empty() ? "none" : "\"" + found.Updated_Prefix + "\"";
  return found.Original_Prefix + found.Original_Name + " As " + found.Variable_Type +
         ": the prefix should be " + expected;
}

std::string unusedVariableMessage(const clsDeclaration& found) {
  return found.Just_Original_Prefix + found.Original_Name + " As " + found.Variable_Type + " is never used";
}

std::string unusedProcedureMessage(const clsDeclaration& found) {
  return found.Variable_Type + " " + found.Updated_Name + " is never called";
}

}  // namespace

const std::array<AuditRow, 3> kAudits{{
    {Operation::kVariablePrefixes,
     "Local variables whose prefix does not fit their type",
     {"wrong-prefix", "A local variable's prefix does not fit its type.", "note"},
     wrongPrefixes,
     wrongPrefixMessage,
     "incorrect prefix",
     "incorrect prefixes"},
    {Operation::kUnusedVariables,
     "Local variables that are never used",
     {"unused-variable", "A local variable is declared and never used.", "warning"},
     unusedVariables,
     unusedVariableMessage,
     "unused variable",
     "unused variables"},
    {Operation::kUnusedProcedures,
     "Private procedures that nobody calls",
     {"unused-procedure", "A private procedure is never called.", "warning"},
     unusedProcedures,
     unusedProcedureMessage,
     "unused procedure",
     "unused procedures"},
}};

const AuditRow& auditOf(Operation operation) {
  for (const AuditRow& audit : kAudits)
    if (audit.operation == operation) return audit;
  throw base::Error(base::errors::kInvalidCall);
}

// A finding on a procedure has the module where one on a variable has the variable's name.
const std::string& moduleOf(const AuditRow& audit, const clsDeclaration& found) {
  return audit.operation == Operation::kUnusedProcedures ? found.Original_Name : found.Class;
}

Finding auditFinding(Session& session, const AuditRow& audit, const ComponentPointer& component,
                     const clsDeclaration& found) {
  return findingAt(session, audit.rule, component, static_cast<int>(base::toLong(found.Scope)),
                   found.Updated_Name, audit.message(found));
}

}  // namespace kolvane::commandline
