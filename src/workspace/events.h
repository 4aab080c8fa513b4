// The host's events: who listens to what, and the raising of each.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include "base/signal.h"
#include "frame/host.h"

namespace kolvane::workspace {

// Handler sets of one kind with the project and component that each is limited to.
template <typename Handlers>
class EventSource {
 public:
  // Nothing as project or component means all of them.
  [[nodiscard]] base::Subscription connect(std::shared_ptr<frame::VBProject> project,
                                           std::shared_ptr<frame::VBComponent> component, Handlers handlers) {
    return signal_.connect([project = std::move(project), component = std::move(component),
                            handlers = std::move(handlers)](const frame::VBProject* from,
                                                            const frame::VBComponent* of, const Call& call) {
      if ((project == nullptr || project.get() == from) && (component == nullptr || component.get() == of))
        call(handlers);
    });
  }

  // Calls `handler` of every set that listens to the project and component:
  //   raise(&VBComponentsHandlers::ItemRenamed, project.get(), component.get(), component, oldName)
  template <typename... Params, typename... Args>
  void raise(std::function<void(Params...)> Handlers::*handler, const frame::VBProject* project,
             const frame::VBComponent* component, Args&&... args) {
    signal_.raise(project, component, [&](const Handlers& handlers) {
      if (handlers.*handler) (handlers.*handler)(args...);
    });
  }

  bool connected() const { return signal_.connected(); }

 private:
  using Call = std::function<void(const Handlers&)>;
  base::Signal<const frame::VBProject*, const frame::VBComponent*, const Call&> signal_;
};

class EventHub final : public frame::Events {
 public:
  base::Subscription VBProjectsEvents(frame::VBProjectsHandlers handlers) override;
  base::Subscription VBComponentsEvents(std::shared_ptr<frame::VBProject> project,
                                        frame::VBComponentsHandlers handlers) override;
  base::Subscription VBControlsEvents(std::shared_ptr<frame::VBProject> project,
                                      std::shared_ptr<frame::VBForm> form,
                                      frame::VBControlsHandlers handlers) override;
  base::Subscription SelectedVBControlsEvents(std::shared_ptr<frame::VBProject> project,
                                              std::shared_ptr<frame::VBForm> form,
                                              frame::SelectedVBControlsHandlers handlers) override;
  base::Subscription CommandBarEvents(const std::shared_ptr<frame::CommandBarControl>& control,
                                      frame::CommandBarClick click) override;
  base::Subscription VBBuildEvents(frame::VBBuildHandlers handlers) override;
  base::Subscription FileControlEvents(std::shared_ptr<frame::VBProject> project,
                                       frame::FileControlHandlers handlers) override;

  EventSource<frame::VBProjectsHandlers> projects;
  EventSource<frame::VBComponentsHandlers> components;
  EventSource<frame::VBControlsHandlers> controls;
  EventSource<frame::SelectedVBControlsHandlers> selectedControls;
  EventSource<frame::VBBuildHandlers> build;
  EventSource<frame::FileControlHandlers> files;
};

// Lets a longer piece of work go on when a handler fails in the middle of it: the first failure is kept and
// raised again by rethrow().
class HandlerFailures {
 public:
  template <typename Work>
  void guard(Work&& work) {
    try {
      work();
    } catch (...) {
      if (!first_) first_ = std::current_exception();
    }
  }
  void rethrow() const {
    if (first_) std::rethrow_exception(first_);
  }

 private:
  std::exception_ptr first_;
};

}  // namespace kolvane::workspace
