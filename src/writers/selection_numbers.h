// Line numbers on the selected lines: four characters wide, in columns 1 to 4.
#pragma once

#include "frame/services.h"

namespace kolvane::writers {

// Takes the number column off each numbered line: the number, a colon behind it, and blanks up to column 4;
// never a character of code. Under care a number stays that a jump or a use of Erl in its procedure may mean, and so
// does the further line of a statement that begins with a digit. Standard modules, classes, forms, MDI forms and property pages only. The cursor
// goes to the last line. A module that cannot be edited is told to the user.
void RemoveLineNumbersFromSelectedCode(const frame::Services& services, frame::CodeModule& module,
                                       int startLine, int endLine);

// Numbers the lines that can bear one, from 1, or from the number behind that of the first selected line.
// Declarations, error statements and comments in column 1, labels, titles, blank, continuing and numbered
// lines get none; under care no other line either that the language takes no number in front of, and no number comes twice
// in a procedure. Number 10000 does not fit and raises 5; the lines above have their numbers by then.
// ActiveX designers too. The cursor goes behind the lines. A module that cannot be edited is told to the user.
void AddLineNumbersToSelectedCode(const frame::Services& services, frame::CodeModule& module, int startLine,
                                  int endLine);

}  // namespace kolvane::writers
