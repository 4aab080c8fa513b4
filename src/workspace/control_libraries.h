// The libraries of the controls that projects use most.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::workspace {

class Project;

// The text of the "Object = " line that a designer needs for a control of another library: `"{guid}#2.0#0";
// "MSCOMCTL.OCX"`, as the project itself has it in another designer or in its file. Empty when the project
// does not have the library.
std::string objectLineFor(const Project& project, std::string_view progId);

}  // namespace kolvane::workspace
