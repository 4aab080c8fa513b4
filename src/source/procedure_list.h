// All procedures of a module, one after the other, as the host counts them.
#pragma once

#include <string>
#include <vector>

#include "frame/host.h"

namespace kolvane::source {

struct ListedProcedure {
  std::string name;
  frame::ProcKind kind = frame::ProcKind::kProc;
  int startLine = 0;  // first line of its region, comments above the title included
  int titleLine = 0;
  int lastLine = 0;  // of its region
};

// In the order of the module. Of two procedures of one name and kind, as conditional compilation allows, each
// is listed with its own lines. Costs one walk over the lines of such doubles only.
std::vector<ListedProcedure> listProcedures(frame::CodeModule& module);

}  // namespace kolvane::source
