// The comment block above each procedure, and the command that writes it.
#pragma once

#include <string>
#include <string_view>

#include "source/dispatcher.h"
#include "writers/context.h"
#include "writers/header_layout.h"

namespace kolvane::writers {

// Whether a comment that is one paragraph becomes the description of a procedure that has none. Under care only.
enum class Describe { kNo, kYes };

// Writes the header of the procedure at `line`, or rewrites the one that is there: Description, Author, Date
// and the parameters' comments survive, everything else follows the title or is lost. Under care no field's text is
// lost. A property gets its own short header. `name` goes into a new header. `skipCalledFrom` leaves the callers out
// of a new header, for a procedure that has none yet. Nothing happens in the declarations, on an End line and above a
// title. A module that cannot be edited is told to the user. Costs what the procedure and its header are long.
void Add_Procedure_Header(const Context& context, frame::CodeModule& module, std::string_view name, int line,
                          bool skipCalledFrom = false, Describe describe = Describe::kNo);

// Puts a header in front of `line`. All comments and blank lines directly above it go first, but for a blank
// first line of the module; a module whose first lines all go keeps an empty one. A module that cannot be
// edited raises 40198. Under care `line` is a title, a header that stands above it gives its texts to the new one and
// makes room for it, and all other comments stay above.
void Create_Header(const frame::Services& services, frame::CodeModule& module, int line,
                   const HeaderValues& values, Describe describe = Describe::kNo);

// Puts a property's short header in front of its title. All comments and blank lines directly above go first; under
// care as above. A module that cannot be edited is told to the user.
void CreatePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                          std::string_view name, std::string_view description,
                          Describe describe = Describe::kNo);

// For a procedure without a header, under care: one with these values as they are, blank ones too. Nothing happens
// where one stands. A module that cannot be edited raises 40198.
void putNewHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                  const HeaderValues& values);

// Whether a header stands above the title of the procedure, as care knows it.
bool hasStandingHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                       std::string_view name);
// How many comment lines that belong to no header the writers above take away without care.
int commentsThatWouldGo(const frame::Services& services, frame::CodeModule& module, int titleLine,
                        std::string_view name);

// Binds the command "Procedure header".
void bindHeaderCommand(source::CodeWindowCommands& commands, const Context& context);

}  // namespace kolvane::writers
