// The host's windows: the fixed ones, and one for each code pane and designer that was opened.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::workspace {

class WindowList;

// Closing a window hides it, and uncovers another. Members of a window whose component has gone raise 91.
class HostWindow final : public frame::Window, public std::enable_shared_from_this<HostWindow> {
 public:
  struct Traits {
    frame::WindowType type = frame::WindowType::kToolWindow;
    std::function<std::string()> caption;
    // Runs when a user or a tool puts the focus on the window; nothing to do when empty.
    std::function<void()> activated;
    // Runs when the window is the front one of its kind again because the one before it was closed.
    std::function<void()> uncovered = {};
  };
  HostWindow(std::weak_ptr<WindowList> list, Traits traits, bool visible);

  std::string Caption() override { return checked().traits_.caption(); }
  frame::WindowType Type() override { return checked().traits_.type; }
  bool Visible() override { return checked().visible_; }
  void setVisible(bool visible) override;
  void SetFocus() override;
  void Close() override { setVisible(false); }

  // Takes the window out of the list for good.
  void remove();
  // Lets the window know that it is in front after another was closed.
  void uncover();
  bool isVisible() const { return visible_; }
  frame::WindowType type() const { return traits_.type; }

 private:
  friend class WindowList;
  HostWindow& checked();

  std::weak_ptr<WindowList> list_;
  Traits traits_;
  bool visible_;
  bool removed_ = false;
};

class WindowList final : public frame::Collection<frame::Window>,
                         public std::enable_shared_from_this<WindowList> {
 public:
  int Count() override { return static_cast<int>(windows_.size()); }
  std::shared_ptr<frame::Window> Item(int index) override;
  std::shared_ptr<frame::Window> Item(std::string_view caption) override;

  std::shared_ptr<HostWindow> add(HostWindow::Traits traits, bool visible);
  void remove(const std::shared_ptr<HostWindow>& window);
  // Shows the window and puts it in front of all others, without telling it.
  void bringToFront(const std::shared_ptr<HostWindow>& window);
  // The front window that is visible and of a type that `accepts`; nothing when there is none.
  std::shared_ptr<HostWindow> front(const std::function<bool(frame::WindowType)>& accepts) const;
  std::shared_ptr<HostWindow> front() const {
    return front([](frame::WindowType) { return true; });
  }
  // The front one of the windows that components have: code and designers.
  std::shared_ptr<HostWindow> frontOfComponents() const;
  void clear();

 private:
  std::vector<std::shared_ptr<HostWindow>> windows_;
  std::vector<std::shared_ptr<HostWindow>> order_;  // those that had the focus, the front one last
};

}  // namespace kolvane::workspace
