// Paths in the host's form, with "\" between their parts.
#pragma once

#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// Trimmed, with one "\" at the end.
std::string AddSlashToPath(std::string_view path);
// Up to and including the last "\"; all of it without one.
std::string_view GetPath(std::string_view path);
// The name behind the last "\" without its extension; with it when `keepExtension`. With `extensionOnly`, the
// extension with its point, "" when there is none. "" for a path without "\".
std::string_view GetFileName(std::string_view path, bool keepExtension = false, bool extensionOnly = false);
// ".frm", ".bas", ".mod", ".cls", ".ctl", ".pag" or ".dsr", in any case.
bool IsSourceFileExtension(std::string_view text);
// The file's attributes are exactly read-only, or read-only and archive. False for a blank path; a missing
// file raises 53.
bool IsFileReadOnly(const frame::Services& services, std::string_view path);

}  // namespace kolvane::source
