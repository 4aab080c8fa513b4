#include "workspace/events.h"

#include "base/error.h"
#include "workspace/command_bars.h"

namespace kolvane::workspace {
namespace {

std::shared_ptr<frame::VBComponent> parentOf(const std::shared_ptr<frame::VBForm>& form) {
  return form ? form->Parent() : nullptr;
}

}  // namespace

base::Subscription EventHub::VBProjectsEvents(frame::VBProjectsHandlers handlers) {
  return projects.connect(nullptr, nullptr, std::move(handlers));
}

base::Subscription EventHub::VBComponentsEvents(std::shared_ptr<frame::VBProject> project,
                                                frame::VBComponentsHandlers handlers) {
  return components.connect(std::move(project), nullptr, std::move(handlers));
}

base::Subscription EventHub::VBControlsEvents(std::shared_ptr<frame::VBProject> project,
                                              std::shared_ptr<frame::VBForm> form,
                                              frame::VBControlsHandlers handlers) {
  return controls.connect(std::move(project), parentOf(form), std::move(handlers));
}

base::Subscription EventHub::SelectedVBControlsEvents(std::shared_ptr<frame::VBProject> project,
                                                      std::shared_ptr<frame::VBForm> form,
                                                      frame::SelectedVBControlsHandlers handlers) {
  return selectedControls.connect(std::move(project), parentOf(form), std::move(handlers));
}

base::Subscription EventHub::CommandBarEvents(const std::shared_ptr<frame::CommandBarControl>& control,
                                              frame::CommandBarClick click) {
  const auto source = std::dynamic_pointer_cast<BarControl>(control);
  if (source == nullptr) throw base::Error(base::errors::kInvalidCall);
  return source->onClick(std::move(click));
}

base::Subscription EventHub::VBBuildEvents(frame::VBBuildHandlers handlers) {
  return build.connect(nullptr, nullptr, std::move(handlers));
}

base::Subscription EventHub::FileControlEvents(std::shared_ptr<frame::VBProject> project,
                                               frame::FileControlHandlers handlers) {
  return files.connect(std::move(project), nullptr, std::move(handlers));
}

}  // namespace kolvane::workspace
