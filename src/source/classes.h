// The class modules that the open projects offer as types.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "forms/lists.h"
#include "frame/services.h"

namespace kolvane::source {

// The active project's classes by their bare names, sorted, then those of the other projects as
// "Project.Class", sorted.
std::vector<std::string> Find_Classes_Collections(const frame::Services& services);

// Adds those names to the combos; null pointers are passed over. True also when there is no class.
bool LoadTheClasses(const frame::Services& services, std::initializer_list<forms::ComboBox*> combos);

}  // namespace kolvane::source
