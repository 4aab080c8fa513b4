// What a new component's file has in front of its code.
#pragma once

#include <string>
#include <string_view>

#include "frame/host.h"

namespace kolvane::workspace {

// Raises 445 for a type whose files are not text with a header: resource files, related documents, foreign
// designers.
std::string newHeaderText(frame::ComponentType type, std::string_view name, std::string_view lineEnd);

}  // namespace kolvane::workspace
