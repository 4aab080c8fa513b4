// Pages of the web by libcurl.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>

#include "platform/web_pages.h"

namespace kolvane::adapters {

struct WebLimits {
  std::chrono::milliseconds connecting{5'000};
  std::chrono::milliseconds all{10'000};  // connecting among it
  std::size_t bytes = 1 << 20;
};

// What goes beyond a limit raises 57. Redirections are followed, a few of them, and never from https to http. Proxies are
// those of the environment. Built without libcurl, it is a platform::NoWebPages.
std::unique_ptr<platform::WebPages> makeWebPages(const WebLimits& limits = {});

}  // namespace kolvane::adapters
