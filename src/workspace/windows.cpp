#include "workspace/windows.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {

HostWindow::HostWindow(std::weak_ptr<WindowList> list, Traits traits, bool visible)
    : list_(std::move(list)), traits_(std::move(traits)), visible_(visible) {}

HostWindow& HostWindow::checked() {
  if (removed_ || list_.expired()) throw base::Error(base::errors::kObjectNotSet);
  return *this;
}

void HostWindow::setVisible(bool visible) {
  const auto list = checked().list_.lock();
  const bool wasInFront = list->frontOfComponents().get() == this;
  visible_ = visible;
  if (visible || !wasInFront) return;
  if (const auto next = list->frontOfComponents()) next->uncover();
}

void HostWindow::uncover() {
  if (traits_.uncovered) traits_.uncovered();
}

void HostWindow::SetFocus() {
  const auto self = checked().shared_from_this();
  if (traits_.activated) {
    traits_.activated();
  } else if (const auto list = list_.lock()) {
    list->bringToFront(self);
  }
}

void HostWindow::remove() {
  const auto self = shared_from_this();
  if (const auto list = list_.lock()) list->remove(self);
  removed_ = true;
}

std::shared_ptr<frame::Window> WindowList::Item(int index) {
  if (index < 1 || index > Count()) throw base::Error(base::errors::kSubscript);
  return windows_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<frame::Window> WindowList::Item(std::string_view caption) {
  for (const auto& window : windows_)
    if (base::equalNoCase(window->Caption(), caption)) return window;
  throw base::Error(base::errors::kSubscript);
}

std::shared_ptr<HostWindow> WindowList::add(HostWindow::Traits traits, bool visible) {
  return windows_.emplace_back(std::make_shared<HostWindow>(weak_from_this(), std::move(traits), visible));
}

void WindowList::remove(const std::shared_ptr<HostWindow>& window) {
  if (window == nullptr) return;
  window->removed_ = true;
  std::erase(windows_, window);
  std::erase(order_, window);
}

void WindowList::bringToFront(const std::shared_ptr<HostWindow>& window) {
  std::erase(order_, window);
  order_.push_back(window);
  window->visible_ = true;
}

std::shared_ptr<HostWindow> WindowList::front(const std::function<bool(frame::WindowType)>& accepts) const {
  const auto found = std::find_if(order_.rbegin(), order_.rend(), [&](const auto& window) {
    return window->isVisible() && accepts(window->type());
  });
  return found == order_.rend() ? nullptr : *found;
}

std::shared_ptr<HostWindow> WindowList::frontOfComponents() const {
  return front([](frame::WindowType type) {
    return type == frame::WindowType::kCodeWindow || type == frame::WindowType::kDesigner;
  });
}

void WindowList::clear() {
  for (const auto& window : windows_) window->removed_ = true;
  windows_.clear();
  order_.clear();
}

}  // namespace kolvane::workspace
