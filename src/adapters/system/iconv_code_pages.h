// All code pages: the double-byte ones with the tables of the system's iconv.
#pragma once

#include <memory>

#include "platform/code_pages.h"

namespace kolvane::adapters {

// Without the pages for which this system has no tables installed.
std::unique_ptr<platform::CodePages> makeIconvCodePages();

}  // namespace kolvane::adapters
