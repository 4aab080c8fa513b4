// Keystrokes sent to whatever window has the focus.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kolvane::platform {

class Keystrokes {
 public:
  virtual ~Keystrokes() = default;
  // `keys` in the run time's notation, such as "^({Home})" or "{Del}". With `wait`, returns when they are
  // handled.
  virtual void send(const std::string& keys, bool wait) = 0;
};

// Keeps what was sent, for a host without a keyboard.
class RecordedKeystrokes final : public Keystrokes {
 public:
  void send(const std::string& keys, bool /*wait*/) override { sent_.push_back(keys); }
  // What was sent since the last call, oldest first.
  std::vector<std::string> take() { return std::exchange(sent_, {}); }

 private:
  std::vector<std::string> sent_;
};

}  // namespace kolvane::platform
