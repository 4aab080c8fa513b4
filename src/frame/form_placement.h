// Where a dialog stood when it was last closed.
#pragma once

#include <string_view>

#include "forms/form.h"
#include "frame/window_placement.h"

namespace kolvane::frame {

inline void restorePlacement(forms::Form& form, const Settings& settings, std::string_view name) {
  const WindowPlacement stored = RestoreWindowPlacement(settings, name);
  form.setPlacement({static_cast<int>(stored.left), static_cast<int>(stored.top),
                     static_cast<int>(stored.width), static_cast<int>(stored.height)});
}

// Only of a window that is neither minimized nor maximized, and only while the options say that windows are
// remembered.
inline void savePlacement(const forms::Form& form, Settings& settings, std::string_view name) {
  if (form.windowState() != forms::WindowState::kNormal || !form.placement()) return;
  const forms::Placement& now = *form.placement();
  SaveWindowPlacement(settings, name, {now.left, now.top, now.width, now.height});
}

}  // namespace kolvane::frame
