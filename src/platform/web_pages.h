// Pages of the web, read whole.
#pragma once

#include <string>

#include "base/error.h"

namespace kolvane::platform {

class WebPages {
 public:
  virtual ~WebPages() = default;
  // The page's text. Raises 445 where no page can be read at all, and any other error when this one could not
  // be reached.
  virtual std::string read(const std::string& address) = 0;
};

// For a product that has no site yet.
class NoWebPages final : public WebPages {
 public:
  std::string read(const std::string& /*address*/) override {
    throw base::Error(base::errors::kNotAvailable, "Looking for a newer version is not available yet.");
  }
};

}  // namespace kolvane::platform
