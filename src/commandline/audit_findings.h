// The three audits as the command line names and words them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "commandline/findings.h"
#include "maintenance/module_audits.h"
#include "maintenance/operation_table.h"

namespace kolvane::commandline {

struct AuditRow {
  maintenance::Operation operation;
  const char* description;
  FindingRule rule;
  std::string (*message)(const maintenance::AuditFinding& found);
  std::string_view one;  // what it finds
  std::string_view many;

  std::string_view name() const { return maintenance::rowOf(operation).shortName; }
};

extern const std::array<AuditRow, 3> kAudits;

// How the user wants the audits to read: as the dialogs do where the setting asks for the letter.
maintenance::AuditReading auditReading(Session& session);

Finding auditFinding(Session& session, const ComponentPointer& component,
                     const maintenance::AuditFinding& found);

}  // namespace kolvane::commandline
