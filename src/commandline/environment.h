// What the command line works with: streams, the machine, and nothing global, so that a test runs whole
// commands in its own process.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "frame/settings_file.h"
#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/files.h"
#include "platform/line_channel.h"
#include "platform/text_diff.h"
#include "platform/web_pages.h"

namespace kolvane::commandline {

// Exit status of every command.
enum class Exit : int {
  kDone = 0,
  kFindings = 1,  // with --check: something would change; verify: something differs
  kWrongUse = 2,
  kFailed = 3,
};

struct Terminal {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool inIsTerminal = false;
  bool outIsTerminal = false;
  bool errIsTerminal = false;
  int width = 80;  // columns of out
  // The system's reason once writing to out has failed; an empty function where nobody knows.
  std::function<std::string()> whyLost = nullptr;
};

struct Environment {
  Terminal terminal;
  platform::Files& files;
  platform::Clock& clock;
  platform::UserInfo& user;
  platform::TextDiff& diff;
  platform::WebPages& pages;
  frame::OpenStore openSettings;
  // The channel of `serve`.
  std::function<std::unique_ptr<platform::LineChannel>()> openChannel;
  // Where the settings are when --settings does not say.
  std::string settingsPath;
  // The folder with the suite's data files; empty when there is none.
  std::string home;
  // True once the user has asked to stop (Ctrl-C). Long work looks at it between two steps.
  std::function<bool()> interrupted = [] { return false; };
  std::shared_ptr<const platform::CodePages> codePages = std::make_shared<platform::CodePages>();
  // Set by a command that has found its settings damaged, told so, and gone on with the defaults.
  bool settingsDamaged = false;
};

// Runs one command; `arguments` without the program's name. Prints to the environment's streams and returns
// the exit status. Never throws.
int run(const std::vector<std::string>& arguments, Environment& environment);

}  // namespace kolvane::commandline
