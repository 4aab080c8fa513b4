// All commands of this version as one menu, for front ends with a menu of their own beside the host's, which the options
// fill and order.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "frame/catalogue.h"

namespace kolvane::suite {

struct MenuLine {
  int level = 0;  // 0 in the menu itself, 1 in the popup above
  std::string_view caption;
  const frame::CatalogueRow* row = nullptr;
  std::string_view handler = {};  // of a command that has no row
  bool beginsGroup = false;

  bool isPopup() const { return row == nullptr && handler.empty(); }
};

// The tools with a dialog, what works at once, and the commands of the code window under the popups that they have in its
// menu. Rows that are not `available` are left out, and popups without any.
std::vector<MenuLine> commandMenu(const std::function<bool(const frame::CatalogueRow&)>& available);

}  // namespace kolvane::suite
