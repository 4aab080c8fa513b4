// The host's windows and projects.
#pragma once

#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// The active project is the host's untouched new one: called "Project1", never saved, with "Form1" for its
// only component and fewer than five references.
bool IsProjectNew(frame::VBE& vbe);
// A window with exactly that caption is open.
bool IsCodePaneOpen(frame::VBE& vbe, std::string_view caption);
// Closes the first open window with that caption; true when there was one.
bool CloseIDEWindow(frame::VBE& vbe, std::string_view caption);

}  // namespace kolvane::source
