#include "frame/window_commands.h"

#include <array>

#include "base/error.h"

namespace kolvane::frame {
namespace {

// To the text's start, mark to its end, delete.
constexpr std::array<const char*, 3> kClearingKeys{"^({Home})", "^(+({End}))", "{Del}"};

bool isCodeOrDesigner(WindowType type) {
  return type == WindowType::kCodeWindow || type == WindowType::kDesigner;
}

}  // namespace

void CloseInactiveWindows(Services& services) {
  const base::ErrorScope scope{"modGeneral", "CloseInactiveWindows"};
  const auto active = services.vbe.ActiveWindow();
  for (const auto& window : services.vbe.Windows()->items())
    if (window != active && isCodeOrDesigner(window->Type())) window->Close();
}

void ClearImmediateWindow(Services& services) {
  const base::ErrorScope scope{"modGeneral", "ClearImmediateWindow"};
  for (const auto& window : services.vbe.Windows()->items()) {
    if (window->Type() != WindowType::kImmediate) continue;
    services.desk.doEvents();
    window->SetFocus();
    services.desk.doEvents();
    for (const char* keys : kClearingKeys) services.keystrokes.send(keys, true);
    return;
  }
}

}  // namespace kolvane::frame
