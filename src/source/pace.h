// Keeps the host alive during a long walk.
#pragma once

#include <chrono>

#include "forms/desk.h"

namespace kolvane::source {

// Lets events be handled often enough that a click is answered at once, and no oftener: handling events at
// each of a million lines would cost more than the walk. After a step() anything may have changed.
class Pace {
 public:
  explicit Pace(forms::Desk& desk) : desk_(desk) {}

  // To be called wherever the walk may pause; costs the reading of a clock.
  void step() {
    const auto now = Clock::now();
    if (now - last_ < kInterval) return;
    desk_.doEvents();
    last_ = Clock::now();
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kInterval{25};

  forms::Desk& desk_;
  Clock::time_point last_{};  // the first step handles events at once: what the walk is to show appears
};

}  // namespace kolvane::source
