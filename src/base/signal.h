// Events as subscriptions that end with their handle.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kolvane::base {

// Keeps one handler connected. Destroying or resetting it disconnects, also while the event is being raised
// and also after the signal itself has gone. An empty one does nothing.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<void> connection) : connection_(std::move(connection)) {}

  void reset() { connection_.reset(); }
  explicit operator bool() const { return connection_ != nullptr; }

 private:
  std::shared_ptr<void> connection_;
};

// Handlers are called in the order of their connection. A handler that is connected while the signal is
// raised is first called the next time. An exception from a handler ends the raise and passes on to the
// raiser.
template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  [[nodiscard]] Subscription connect(Handler handler) {
    auto connection = std::make_shared<Handler>(std::move(handler));
    connections_.push_back(connection);
    return Subscription(std::move(connection));
  }

  void raise(Args... args) {
    std::erase_if(connections_, [](const auto& weak) { return weak.expired(); });
    const auto snapshot = connections_;
    for (const auto& weak : snapshot)
      if (const auto handler = weak.lock(); handler && *handler) (*handler)(args...);
  }

  bool connected() const {
    return std::any_of(connections_.begin(), connections_.end(),
                       [](const auto& weak) { return !weak.expired(); });
  }

 private:
  std::vector<std::weak_ptr<Handler>> connections_;
};

}  // namespace kolvane::base
