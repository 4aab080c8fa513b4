// Brings comments into the suite's own style: "'* text", with a border above and below each block of comment lines.
#pragma once

#include <string>
#include <string_view>

#include "frame/host.h"
#include "frame/services.h"

namespace kolvane::maintenance {

// Formats from line `first` to the module's last line but one; nothing happens when `last` lies before `first`. The
// border is drawn with the comment character of the settings; a second run changes nothing as long as that is "*", and
// under care whatever it is. Under care only the apostrophe that begins a comment is marked, and none behind it. No border
// is put between the lines of a continued statement or comment.
//
// False when the module cannot be edited, which the user has been told then. Any other error ends the work with true;
// what was written stays.
bool FormatComments(const frame::Services& services, frame::CodeModule& module, int first, int last);

// The blanks that a line begins with, empty when it has none. Despite its name it counts no tabs.
std::string_view Num_Of_Tabs(std::string_view line);

}  // namespace kolvane::maintenance
