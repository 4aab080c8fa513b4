#include "source/ide_windows.h"

#include "base/error.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr int kNewProjectReferences = 5;

// A window that was closed stays in the host's list and is hidden.
std::shared_ptr<frame::Window> findOpenWindow(frame::VBE& vbe, std::string_view caption) {
  for (const auto& window : vbe.Windows()->items())
    if (window->Visible() && window->Caption() == caption) return window;
  return nullptr;
}

}  // namespace

bool IsProjectNew(frame::VBE& vbe) {
  const base::ErrorScope scope{kModule, "IsProjectNew"};
  const auto project = vbe.ActiveVBProject();
  if (!project || project->Name() != "Project1" || !project->FileName().empty()) return false;
  const auto components = project->VBComponents();
  return components->Count() == 1 && components->Item(1)->Name() == "Form1" &&
         project->References()->Count() < kNewProjectReferences;
}

bool IsCodePaneOpen(frame::VBE& vbe, std::string_view caption) {
  const base::ErrorScope scope{kModule, "IsCodePaneOpen"};
  return findOpenWindow(vbe, caption) != nullptr;
}

bool CloseIDEWindow(frame::VBE& vbe, std::string_view caption) {
  const base::ErrorScope scope{kModule, "CloseIDEWindow"};
  const auto window = findOpenWindow(vbe, caption);
  if (window) window->Close();
  return window != nullptr;
}

}  // namespace kolvane::source
