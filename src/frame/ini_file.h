// Entries of INI-style files.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace kolvane::frame {

// The text behind "key=" in a section: blanks and one pair of quotes around it are taken off, and no more
// than 255 characters come back. Section and key compare without case; the first of several counts.
// `fallback` where there is no such entry or the file cannot be read.
std::string GetIniKeyValue(platform::Files& files, const std::string& file, std::string_view section,
                           std::string_view key, std::string_view fallback = {});

}  // namespace kolvane::frame
