// The properties of a designer's objects as collections. Only for the designer_*.cpp files.
#pragma once

#include <memory>

#include "workspace/designer_objects.h"

namespace kolvane::workspace {

// Of a control or of a designer's root object.
std::shared_ptr<frame::Properties> propertiesOf(std::shared_ptr<ControlObject> object);
// Of a class or module, or of a designer whose objects could not be understood, which has its name alone.
std::shared_ptr<frame::Properties> modulePropertiesOf(std::shared_ptr<Designer> designer);

}  // namespace kolvane::workspace
