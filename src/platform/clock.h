// Who works here and when: services, so that tests and automation can fix them.
#pragma once

#include <cstdint>
#include <string>

#include "base/date_time.h"

namespace kolvane::platform {

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time, to the second.
  virtual base::DateTime now() const = 0;
};

class UserInfo {
 public:
  virtual ~UserInfo() = default;
  // The logged-on user's name in UTF-8; empty if the system gives none.
  virtual std::string userName() const = 0;
  // The user's decimal character, "." or ",".
  virtual std::string decimalSeparator() const = 0;
};

// The language's Rnd: one sequence a suite.
class Random {
 public:
  explicit Random(std::uint32_t seed = 0x50000) : state_(seed & 0xFFFFFF) {}
  // A number from 0 up to, not including, 1.
  float next() {
    state_ = (state_ * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFFu;
    return static_cast<float>(state_) / 16777216.0F;
  }

 private:
  std::uint32_t state_;
};

class FixedClock final : public Clock {
 public:
  explicit FixedClock(const base::DateTime& start) : moment(start) {}
  base::DateTime now() const override { return moment; }
  base::DateTime moment;
};

class FixedUser final : public UserInfo {
 public:
  explicit FixedUser(std::string name, std::string separator = ".")
      : name_(std::move(name)), separator_(std::move(separator)) {}
  std::string userName() const override { return name_; }
  std::string decimalSeparator() const override { return separator_; }

 private:
  std::string name_;
  std::string separator_;
};

}  // namespace kolvane::platform
