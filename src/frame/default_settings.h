// Writes the defaults of all options on a first run, and those of newer versions on an upgrade.
#pragma once

#include <string>

#include "frame/settings.h"
#include "platform/clock.h"

namespace kolvane::frame {

// Where the version that last wrote its defaults is kept.
inline constexpr std::string_view kStoredVersionKey = "AdVnc1";

// Runs every step of the option tables that is newer than the stored version: a step writes its defaults over
// whatever is stored. Then carries old keys over and, always, switches eight settings on. One transaction: a
// kill leaves the settings as they were or complete.
void ApplyDefaultSettings(Settings& settings, const platform::UserInfo& user);

// Replace a section, or write over it, with its defaults.
void CreateDefaultVariablePrefixes(Settings& settings);  // replaces
void CreateDefaultsWordComplete(Settings& settings);     // writes over
void CreateDefaultHotKeys(Settings& settings);           // writes over

// The name that headers give as the author, in the code page of the settings: the configured one where the
// options say so, or the logged-on user's; empty if the system gives none.
std::string currentUser(const Settings& settings, const platform::UserInfo& user);

}  // namespace kolvane::frame
