// The machine's clock, user and locale.
#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"

namespace kolvane::adapters {

std::unique_ptr<platform::Clock> makeSystemClock();
std::unique_ptr<platform::UserInfo> makeSystemUser();

// The settings file of this user by the XDG base directories: $XDG_CONFIG_HOME/kolvane/settings.db, with
// ~/.config in place of an unset or relative variable. Empty when the system knows no home.
std::string defaultSettingsPath();

// Creates the folder of a file, with its parents, for this user alone. Failure raises 75 or 70.
void createFolderOf(const std::string& file);

// The folder "data" of the installed or built suite, found from the running program; empty when it is not
// there.
std::string suiteHome();

}  // namespace kolvane::adapters
