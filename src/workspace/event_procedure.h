// The titles of event handlers: which objects of a component raise which events, and with what parameters.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::workspace {

class Component;

// "Private Sub cmdOK_Click()" for an object of the component: the designer or class itself, a control, or a
// variable declared WithEvents whose class the project holds. Names take the spelling of the declaration; a
// member of a control array gets its Index. Raises 57017 for an unknown object or event, and when the module
// has the handler.
std::string eventTitle(Component& component, std::string_view event, std::string_view object);

}  // namespace kolvane::workspace
