// Pages of the web, read whole.
#pragma once

#include <string>

#include "base/error.h"

namespace kolvane::platform {

class WebPages {
 public:
  virtual ~WebPages() = default;
  // The page's bytes as they came. Raises 5 for an address that is neither http nor https, and 57, with the reason as
  // its description, when there is no such page or it could not be had. Waits for the page, for some seconds at most.
  virtual std::string read(const std::string& address) = 0;
};

// For programs without a connection.
class NoWebPages final : public WebPages {
 public:
  std::string read(const std::string& /*address*/) override {
    throw base::Error(base::errors::kDeviceIo, "There is no connection to the internet.");
  }
};

}  // namespace kolvane::platform
