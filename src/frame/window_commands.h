// Two commands on the host's windows.
#pragma once

#include "frame/services.h"

namespace kolvane::frame {

// Closes every code window and every designer but the active one. Windows of other kinds stay.
void CloseInactiveWindows(Services& services);

// Gives the immediate window the focus and sends the keystrokes that select and delete its text. Nothing
// happens when there is no such window.
void ClearImmediateWindow(Services& services);

}  // namespace kolvane::frame
