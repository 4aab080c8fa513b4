// A run over many procedures that goes on when one of them fails.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "frame/services.h"

namespace kolvane::writers {

// A procedure that a run could not treat and left as it was.
struct ProcedureFailure {
  std::string name;
  long number = 0;     // of the error
  std::string reason;  // for people
};

// Does `work`. Under care an error of it joins `failures`, otherwise it passes on; false then.
template <class Work>
bool attemptProcedure(const frame::Services& services, std::vector<ProcedureFailure>& failures,
                      const std::string& name, const Work& work) {
  try {
    work();
    return true;
  } catch (const base::Error& error) {
    if (!services.care.guards(frame::Guard::kFailures)) throw;
    failures.push_back({name, error.number(), error.description()});
    return false;
  }
}

// One error for all of them, "Save: the reason", a line each. Nothing without any.
void raiseFailures(const std::vector<ProcedureFailure>& failures);

}  // namespace kolvane::writers
