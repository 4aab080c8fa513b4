// Composition of the command line: this machine's files, clock, user and streams.
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "adapters/git/git_text_diff.h"
#include "adapters/sqlite/sqlite_tree_store.h"
#include "adapters/system/iconv_code_pages.h"
#include "adapters/system/posix_files.h"
#include "adapters/system/standard_streams.h"
#include "adapters/system/stdio_channel.h"
#include "adapters/system/system_services.h"
#include "adapters/web/curl_web_pages.h"
#include "commandline/environment.h"

namespace {

using namespace kolvane;

std::atomic<bool> interruptRequested = false;

// The first Ctrl-C asks, so that work ends between two steps; the second one ends the program at once. No
// file is ever in a state between, either way.
void onInterrupt(int) {
  if (interruptRequested.exchange(true)) ::_exit(130);
}

int terminalWidth() {
  winsize size{};
  return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

std::string settingsPath() {
  const char* named = std::getenv("KOLVANE_SETTINGS");
  return named != nullptr && *named != '\0' ? named : adapters::defaultSettingsPath();
}

std::unique_ptr<platform::TreeStore> openSettings(const std::string& path) {
  if (path != ":memory:") adapters::createFolderOf(path);
  return std::make_unique<adapters::SqliteTreeStore>(path);
}

}  // namespace

int main(int argc, char** argv) {
  adapters::prepareStandardStreams();
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  // A server has nothing to bring to an end: it goes at the first Ctrl-C.
  if (std::find(arguments.begin(), arguments.end(), "serve") == arguments.end())
    std::signal(SIGINT, onInterrupt);
  std::ios::sync_with_stdio(false);
  adapters::DescriptorOutput output(STDOUT_FILENO);
  std::ostream out(&output);
  const auto files = adapters::makePosixFiles();
  const auto clock = adapters::makeSystemClock();
  const auto user = adapters::makeSystemUser();
  const auto diff = adapters::makeGitTextDiff();
  const auto pages = adapters::makeWebPages();
  commandline::Environment environment{
      {std::cin, out, std::cerr, ::isatty(STDIN_FILENO) != 0, ::isatty(STDOUT_FILENO) != 0,
       ::isatty(STDERR_FILENO) != 0, terminalWidth(), [&] { return output.failure(); }},
      *files,
      *clock,
      *user,
      *diff,
      *pages,
      openSettings,
      [] { return adapters::makeStdioChannel(); },
      settingsPath(),
      adapters::suiteHome(),
      [] { return interruptRequested.load(); },
      adapters::makeIconvCodePages()};
  return commandline::run(arguments, environment);
}
