// The comment block above each procedure, and the command that writes it.
#pragma once

#include <string>
#include <string_view>

#include "source/dispatcher.h"
#include "writers/context.h"
#include "writers/header_layout.h"

namespace kolvane::writers {

// Writes the header of the procedure at `line`, or rewrites the one that is there: Description, Author, Date
// and the parameters' comments survive, everything else follows the title or is lost. A property gets its own
// short header. `name` goes into a new header. `skipCalledFrom` leaves the callers out of a new header, for a
// procedure that has none yet. Nothing happens in the declarations, on an End line and above a title. A
// module that cannot be edited is told to the user. Costs what the procedure and its header are long.
void Add_Procedure_Header(const Context& context, frame::CodeModule& module, std::string_view name, int line,
                          bool skipCalledFrom = false);

// Puts a header in front of `line`. All comments and blank lines directly above it go first, but for a blank
// first line of the module; a module whose first lines all go keeps an empty one. A module that cannot be
// edited raises 40198.
void Create_Header(const frame::Services& services, frame::CodeModule& module, int line,
                   const HeaderValues& values);

// Puts a property's short header in front of its title. All comments and blank lines directly above go first.
// A module that cannot be edited is told to the user.
void CreatePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                          std::string_view name, std::string_view description);

// Binds the command "Procedure header".
void bindHeaderCommand(source::CodeWindowCommands& commands, const Context& context);

}  // namespace kolvane::writers
