// The header command over all procedures of a module.
#pragma once

#include "writers/context.h"

namespace kolvane::writers {

enum class HeaderPass {
  kAll,      // writes missing headers, brings the others up to date
  kMissing,  // leaves every procedure alone that has a header
};

struct HeaderPassResult {
  int written = 0;    // headers that were added or that changed
  int unchanged = 0;  // up to date, or with kMissing there already
  int skipped = 0;    // titles that the command does not know, such as Friend
};

// Does to each procedure what the command "Procedure Header" does with the cursor on its title. Call it for
// modules that can be edited: the command tells of one that cannot, each time. Linear in the number of
// procedures.
HeaderPassResult writeHeaders(const Context& context, frame::CodeModule& module, HeaderPass pass);

// A comment block with a Name field touches the title from above, however it is indented.
bool hasHeaderAbove(const frame::Services& services, frame::CodeModule& module, int titleLine);

}  // namespace kolvane::writers
