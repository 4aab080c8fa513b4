// Which procedures the run time calls: events of a component and of its controls.
#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"
#include "frame/host.h"

namespace kolvane::maintenance {

// The name is an event procedure of that kind of component. A class's two names compare exactly, all others
// without case. False for components of other types.
bool IsStandardEvent(const base::CodePage& codePage, frame::ComponentType type, std::string_view name);

// The same with all that the run time calls: the events that IsStandardEvent leaves out of an MDI form and of a class,
// and a class's names in any case.
bool isRunTimeEvent(const base::CodePage& codePage, frame::ComponentType type, std::string_view name);

// "PRIVATE SUB CMDOK_,PRIVATE SUB TXTNAME_,": how the event procedures of the component's controls begin; ""
// for a component without a designer.
std::string controlHandlers(const base::CodePage& codePage, frame::VBComponent& component);
// The name up to its first "_" begins one of the handlers.
bool IsControlEvent(const base::CodePage& codePage, std::string_view name, std::string_view handlers);

}  // namespace kolvane::maintenance
