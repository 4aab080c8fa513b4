// Puts the procedures of a module into the order of their names.
#pragma once

#include <string>
#include <vector>

#include "frame/host.h"
#include "frame/services.h"
#include "maintenance/project_walk.h"

namespace kolvane::maintenance {

// What is moved as one: a procedure with the lines that the host counts to it. Procedures whose lines open a #If that
// only a later one closes stay together in their order, under the name of the first: parted, they would not compile. Under
// care that is so behind a line number too.
struct SortEntry {
  std::string name;
  int startLine = 0;
  int countLines = 0;
};

// By name without regard to case; entries of one name keep their order. True when the order changed.
bool Sort_Procedures(const frame::Services& services, std::vector<SortEntry>& entries);

// Rewrites all that stands behind the declarations: each procedure with its comments and one empty line behind it. A
// module in order is not written at all. A module that cannot be edited is told to the user; other errors pass on.
// n log n in procedures.
void Do_Procedure_Sort(const frame::Services& services, frame::CodeModule& module);

// All modules of a project; read-only ones are passed over without a word.
void sortProject(const frame::Services& services, frame::VBProject& project,
                 WalkProgress* progress = nullptr);

}  // namespace kolvane::maintenance
