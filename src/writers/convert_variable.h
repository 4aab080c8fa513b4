// A variable of a module's declarations turned into something better: a property around it, or a constant.
//
// Both take the variable by its name and ask the user first. They do nothing, without a word, for a name that
// is no variable of the module, for an array, and for a declaration that goes on over several lines or shares
// its line with another statement. False when nothing was changed.
#pragma once

#include <string_view>

#include "frame/services.h"

namespace kolvane::writers {

// For a variable whose name begins with "m": writes a property that reads and writes it, without a handler.
// The variable stays as it is. The property is called what the variable is without "m" and prefix; a name that
// is taken is told to the user.
bool ConvertVariableToProperty(frame::Services& services, frame::CodeModule& module,
                               std::string_view variable);

// Asks for the value. The declaration goes, a comment behind it stays; the constant stands behind the
// declarations.
bool ConvertVariableToConstant(const frame::Services& services, frame::CodeModule& module,
                               std::string_view variable);

}  // namespace kolvane::writers
