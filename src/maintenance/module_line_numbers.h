// Line numbers for a whole module: put in front of its statements, or taken out again. They begin at 1 in each
// procedure. A numbered line is the number, three blanks and the line as it was, indentation included.
#pragma once

#include <cstddef>
#include <string_view>

#include "frame/host.h"
#include "frame/services.h"

namespace kolvane::maintenance {

// Behind a number, in front of the line as it was.
inline constexpr std::size_t kBlanksBehindNumber = 3;

// Standard modules, classes, forms, property pages and designers; user controls and documents are left as they are.
bool takesLineNumbers(frame::ComponentType type);
// Whether any line behind the declarations begins with a digit. Under care, whether one has a number that
// Remove_Line_Numbers_Mod would take off.
bool hasLineNumbers(const frame::Services& services, frame::CodeModule& module);

// The line behind its number, a colon and up to three blanks; the whole line when it does not begin with a number.
std::string_view withoutNumber(std::string_view line);

// Takes the numbers out of a module that has any, and puts them into one that has none. Nothing is done to a component
// that was never saved, whose file is read-only, or whose type takes no numbers. False when an error stopped the work.
bool Invert_LineNumbers_Mod(const frame::Services& services, frame::VBComponent& component);

// Both give true when they ran to their end; `stop` is then false. False without `stop` for a component of another
// type and for a module of declarations alone. A module that cannot be edited and any other error are told to the user,
// set `stop` and leave the module as far as the work had come.
//
// Under care a line has a number only where the language takes one; one that has a number keeps it, and no number comes
// twice in a procedure.
bool Add_Line_Numbers_Mod(const frame::Services& services, frame::VBComponent& component, bool& stop);
// A line that begins with another kind of number than those above keeps its statement: what is taken off is digits, a
// colon behind them and up to three blanks. A continued line that begins with a digit stays as it is. Under care a
// number stays that a jump or a use of Erl in its procedure may mean.
bool Remove_Line_Numbers_Mod(const frame::Services& services, frame::VBComponent& component, bool& stop);

}  // namespace kolvane::maintenance
