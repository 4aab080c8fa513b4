// The header command over all procedures of a module.
#pragma once

#include <vector>

#include "writers/context.h"
#include "writers/headers.h"
#include "writers/procedure_failures.h"

namespace kolvane::writers {

enum class HeaderPass {
  kAll,      // writes missing headers, brings the others up to date
  kMissing,  // leaves every procedure alone that has a header
};

struct HeaderPassResult {
  int written = 0;       // headers that were added or that changed
  int unchanged = 0;     // up to date, or with kMissing there already
  int skipped = 0;       // titles that the command does not know, such as Friend
  int commentsGone = 0;  // comment lines taken away that belonged to no header; none under care
  std::vector<ProcedureFailure> failures;  // under care only
};

// Does to each procedure what the command "Procedure Header" does with the cursor on its title. Call it for
// modules that can be edited: the command tells of one that cannot, each time. Without care an error ends the pass.
// Linear in the number of procedures.
HeaderPassResult writeHeaders(const Context& context, frame::CodeModule& module, HeaderPass pass,
                              Describe describe = Describe::kNo);

// A comment block with a Name field touches the title from above, however it is indented.
bool hasHeaderAbove(const frame::Services& services, frame::CodeModule& module, int titleLine);

}  // namespace kolvane::writers
