#include "writers/procedure_failures.h"

#include "base/text.h"

namespace kolvane::writers {

void raiseFailures(const std::vector<ProcedureFailure>& failures) {
  if (failures.empty()) return;
  std::vector<std::string> lines;
  for (const ProcedureFailure& failure : failures) lines.push_back(failure.name + ": " + failure.reason);
  throw base::Error(failures.front().number, base::join(lines, base::kCrLf));
}

}  // namespace kolvane::writers
