// What the suite's procedures work with, passed on explicitly. One set a suite; nothing here is global.
#pragma once

#include <string>

#include "base/code_page.h"
#include "forms/desk.h"
#include "frame/care.h"
#include "frame/host.h"
#include "frame/settings.h"
#include "frame/tools.h"
#include "frame/version.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/keystrokes.h"

namespace kolvane::frame {

struct Services {
  VBE& vbe;
  Settings& settings;
  forms::Desk& desk;
  platform::Clock& clock;
  platform::UserInfo& user;
  platform::Random& random;
  platform::Clipboard& clipboard;
  platform::Keystrokes& keystrokes;
  // Takes the paths of the host, with "\" between names and no regard to case.
  platform::Files& files;
  const base::CodePage& codePage;
  // The folder that holds Events, Templates, Show Form and Help; empty when there is none.
  std::string home;
  // Indentation of generated code; Set_Tabs rebuilds it before every command.
  std::string CodeTabs = {};
  // What is kept that a command to the letter would lose.
  Care care = {};
  // Opens other tools; nullptr where there are none.
  Tools* tools = nullptr;
};

// The user's name for headers: the configured one, or the logged-on user's.
std::string GetCurrentUser(const Services& services);

// Opens another tool by its name (tools.h); 445 where there are none.
void openTool(const Services& services, std::string_view name);

}  // namespace kolvane::frame
