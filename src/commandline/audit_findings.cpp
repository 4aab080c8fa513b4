#include "commandline/audit_findings.h"

#include "base/error.h"

namespace kolvane::commandline {
namespace {

using maintenance::AuditFinding;
using maintenance::Operation;

std::string wrongPrefixMessage(const AuditFinding& found) {
  const std::string expected = found.prefix.empty() ? "none" : "\"" + found.prefix + "\"";
  return found.subject + " As " + found.type + ": the prefix should be " + expected;
}

std::string unusedVariableMessage(const AuditFinding& found) {
  return found.subject + " As " + found.type + " is never used";
}

std::string unusedProcedureMessage(const AuditFinding& found) {
  return found.type + " " + found.subject + " is never called";
}

const AuditRow& auditOf(Operation operation) {
  for (const AuditRow& audit : kAudits)
    if (audit.operation == operation) return audit;
  throw base::Error(base::errors::kInvalidCall);
}

}  // namespace

const std::array<AuditRow, 3> kAudits{{
    {Operation::kVariablePrefixes,
     "Local variables whose prefix does not fit their type",
     {"wrong-prefix", "A local variable's prefix does not fit its type.", "note"},
     wrongPrefixMessage,
     "incorrect prefix",
     "incorrect prefixes"},
    {Operation::kUnusedVariables,
     "Local variables that are never used",
     {"unused-variable", "A local variable is declared and never used.", "warning"},
     unusedVariableMessage,
     "unused variable",
     "unused variables"},
    {Operation::kUnusedProcedures,
     "Private procedures that nobody calls",
     {"unused-procedure", "A private procedure is never called.", "warning"},
     unusedProcedureMessage,
     "unused procedure",
     "unused procedures"},
}};

maintenance::AuditReading auditReading(Session& session) {
  return {.toTheLetter = !session.suite().services().care.guards(frame::Guard::kAudits)};
}

Finding auditFinding(Session& session, const ComponentPointer& component, const AuditFinding& found) {
  const AuditRow& audit = auditOf(found.audit);
  return findingAt(session, audit.rule, component,
                   {found.line, found.procedure, found.subject, audit.message(found)});
}

}  // namespace kolvane::commandline
