// The menu of the suite's commands that the workbench has of its own: all of this version, whatever the options show in
// the host's menus.
#pragma once

#include <QMenu>
#include <functional>

#include "workbench/session.h"

namespace kolvane::workbench {

// The host's menu that it is in.
inline constexpr const char* kToolMenu = "Tools";

// Puts the lines into the menu. What cannot be used now is grey, with the reason as its tool tip. A choice goes to `run`
// once the menu has closed. The session must outlive the menu, whose parent is the window.
void fillToolMenu(Session& session, QMenu& menu,
                  const std::function<void(const std::function<void()>& work)>& run);

}  // namespace kolvane::workbench
