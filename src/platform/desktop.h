// Windows and programs of the machine beside the host's own.
#pragma once

#include <string>

#include "base/error.h"

namespace kolvane::platform {

// Windows are known by numbers above 0; 0 is none. They come in one order from the first on.
class Desktop {
 public:
  virtual ~Desktop() = default;
  virtual long firstWindow() = 0;
  virtual long nextWindow(long window) = 0;
  virtual long parentOf(long window) = 0;
  virtual long processOf(long window) = 0;
  // Starts a program in a normal window and does not wait for it; or opens an address with what the user has for
  // it. Raises 445 where that cannot be done at all, and 53 for a program that is not there.
  virtual void start(const std::string& programOrAddress) = 0;
};

// For machines where the suite sees no windows and starts nothing.
class NoDesktop final : public Desktop {
 public:
  long firstWindow() override { return 0; }
  long nextWindow(long /*window*/) override { return 0; }
  long parentOf(long /*window*/) override { return 0; }
  long processOf(long /*window*/) override { return 0; }
  void start(const std::string& programOrAddress) override {
    throw base::Error(
        base::errors::kNotAvailable,
        "Starting " + programOrAddress + " is not available here: no other programs are started.");
  }
};

}  // namespace kolvane::platform
