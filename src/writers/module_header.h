// The short free text at the top of a module.
#pragma once

#include <string>

#include "frame/services.h"

namespace kolvane::writers {

// The header text of a component's type with <Author>, <Project> and <Date> filled in; "" for a type without
// one.
std::string moduleHeaderText(const frame::Services& services, frame::ComponentType type);

// Inserts that text at the module's top when "ouloi45lwefwd" is 1 and the text is not blank. What stands
// there already is not looked at: a second call writes it a second time. A module that cannot be edited is
// told to the user.
void Add_Module_Header(const frame::Services& services, frame::VBComponent& component);

// The catalogue's command: the module header of the selected component; 91 when none is.
void AddModuleHeader(const frame::Services& services);

}  // namespace kolvane::writers
