// A web of a few pages in memory.
#pragma once

#include <map>
#include <string>

#include "base/text.h"
#include "platform/web_pages.h"

namespace kolvane::platform {

class MemoryWebPages final : public WebPages {
 public:
  std::string read(const std::string& address) override {
    if (!base::startsWithNoCase(address, "http://") && !base::startsWithNoCase(address, "https://"))
      throw base::Error(base::errors::kInvalidCall);
    const auto page = pages.find(address);
    if (page == pages.end()) throw base::Error(base::errors::kDeviceIo, "There is no page " + address + ".");
    return page->second;
  }

  std::map<std::string, std::string> pages;  // by their addresses
};

}  // namespace kolvane::platform
