// What the writers share beside the services. One a suite; it must outlive the commands that are bound to it.
#pragma once

#include <functional>
#include <string>

#include "frame/services.h"

namespace kolvane::writers {

struct Context {
  frame::Services& services;
  // The callers of the procedure at the cursor of the module, as List My Callers tells them: "Class1.Load,
  // Main". The callers search hands itself in here; until it has, the Called From field of new headers stays
  // empty.
  std::function<std::string(frame::CodeModule& module)> findCallers = nullptr;
};

}  // namespace kolvane::writers
