#include "frame/system_programs.h"

#include "base/error.h"
#include "frame/settings.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kProgramKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr std::string_view kToolsKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
constexpr std::string_view kProgramFile = "\\MSINFO32.EXE";

[[noreturn]] void notFound() {
  throw base::Error(base::errors::kFileNotFound,
                    "System information is not available: this machine has no program for it.");
}

}  // namespace

long GetWinHandle(platform::Desktop& desktop, long processId) {
  try {
    for (long window = desktop.firstWindow(); window != 0; window = desktop.nextWindow(window))
      if (desktop.parentOf(window) == 0 && desktop.processOf(window) == processId) return window;
  } catch (const base::Error&) {
    return 0;
  }
  return 0;
}

std::string systemInformationProgram(const Services& services) {
  const Settings& settings = services.settings;
  const std::string path = settings.ReadRegistryValue(RegistryRoot::kLocalMachine, kProgramKey, "PATH");
  if (path != kNotFound) return path;
  const std::string folder = settings.ReadRegistryValue(RegistryRoot::kLocalMachine, kToolsKey, "MSINFO");
  if (folder == kNotFound) notFound();
  const std::string program = folder + std::string(kProgramFile);
  if (!services.files.stamp(program)) notFound();
  return program;
}

}  // namespace kolvane::frame
