// Comments around code: framed blocks to write into, and the comment marks of selected lines.
#pragma once

#include "frame/services.h"

namespace kolvane::writers {

// Inserts an empty framed comment at `line`, indented like the code there, and puts the cursor into it.
// Touching code gets a line of one blank between. Below a blank line the next line of code tells the
// indentation, in front of an Exit the code above; nothing is written when none is found within 22 lines. A
// module that cannot be edited is told to the user.
void Write_3Line_Comment_Block(const frame::Services& services, frame::CodeModule& module, int line);
void Write_5Line_Comment_Block(const frame::Services& services, frame::CodeModule& module, int line);

// Puts an apostrophe in column 1 of every line that the selection touches, and takes it away again. Taking
// away wants it in column 1 of each line, a blank last one apart, or changes nothing; on a single line it may
// stand behind the indentation. The cursor goes to the first line. A module that cannot be edited is told to
// the user.
void Write_Comment_Block(const frame::Services& services, frame::CodePane& pane);
void Write_Uncomment_Block(const frame::Services& services, frame::CodePane& pane);

}  // namespace kolvane::writers
