// The three audits as the command line names and words them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "commandline/findings.h"
#include "maintenance/operation_table.h"
#include "source/declarations.h"

namespace kolvane::commandline {

struct AuditRow {
  maintenance::Operation operation;
  const char* description;
  FindingRule rule;
  source::colDeclarations (*find)(frame::Services& services, frame::VBComponent& component);
  std::string (*message)(const source::clsDeclaration& found);
  std::string_view one;  // what it finds
  std::string_view many;

  std::string_view name() const { return maintenance::rowOf(operation).shortName; }
};

extern const std::array<AuditRow, 3> kAudits;

// The row of an operation that is an audit.
const AuditRow& auditOf(maintenance::Operation operation);
// The module that a finding of the audit names.
const std::string& moduleOf(const AuditRow& audit, const source::clsDeclaration& found);
Finding auditFinding(Session& session, const AuditRow& audit, const ComponentPointer& component,
                     const source::clsDeclaration& found);

}  // namespace kolvane::commandline
