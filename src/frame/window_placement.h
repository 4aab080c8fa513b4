// Where a form stood when it was last closed, in twips.
#pragma once

#include <optional>
#include <string_view>

#include "frame/option_tables.h"
#include "frame/settings.h"

namespace kolvane::frame {

struct WindowPlacement {
  long left = 500;
  long top = 500;
  long width = 3000;
  long height = 3000;

  bool operator==(const WindowPlacement&) const = default;
};

// The four keys of a placement name; all empty for an unknown one.
PlacementKeys GetLeftAndTop(std::string_view name);

// What is stored; 500 for left and top and 3000 for width and height where nothing is.
WindowPlacement RestoreWindowPlacement(const Settings& settings, std::string_view name);

// Stores the placement if the options say that windows are remembered and the name is known.
void SaveWindowPlacement(Settings& settings, std::string_view name, const WindowPlacement& placement);

}  // namespace kolvane::frame
