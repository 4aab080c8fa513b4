// The Called From field of a procedure header.
#pragma once

#include <string>

#include "writers/context.h"

namespace kolvane::writers {

// The callers of the first procedure at or behind `line`, as context.findCallers tells them; "" while nothing
// stands behind that. A text longer than "etrertretre4fg405ertwrt" is cut into header lines, joined by CR LF.
// The cursor moves to the procedure's first line of code.
std::string Get_Called_From_Text(const Context& context, frame::CodeModule& module, int line);

}  // namespace kolvane::writers
