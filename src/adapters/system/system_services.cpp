#include "adapters/system/system_services.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <locale>
#include <vector>

#include "base/error.h"

namespace kolvane::adapters {
namespace {

class SystemClock final : public platform::Clock {
 public:
  base::DateTime now() const override {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     std::min(local.tm_sec, 59)};
  }
};

class SystemUser final : public platform::UserInfo {
 public:
  std::string userName() const override {
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
      return found->pw_name;
    const char* name = std::getenv("USER");
    return name != nullptr ? name : "";
  }

  std::string decimalSeparator() const override {
    try {
      return {std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point()};
    } catch (const std::runtime_error&) {
      return ".";  // the environment names a locale that is not installed
    }
  }
};

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
  std::array<char, 4096> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
    return found->pw_dir;
  return {};
}

}  // namespace

std::unique_ptr<platform::Clock> makeSystemClock() { return std::make_unique<SystemClock>(); }
std::unique_ptr<platform::UserInfo> makeSystemUser() { return std::make_unique<SystemUser>(); }

std::string defaultSettingsPath() {
  std::string folder;
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && *config == '/') {
    folder = config;
  } else if (const std::string home = homeFolder(); !home.empty()) {
    folder = home + "/.config";
  }
  return folder.empty() ? std::string() : folder + "/kolvane/settings.db";
}

void createFolderOf(const std::string& file) {
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  if (folder.empty()) return;
  std::error_code code;
  if (std::filesystem::is_directory(folder, code)) return;
  std::filesystem::create_directories(folder, code);
  if (code)
    throw base::Error(code.value() == EACCES ? base::errors::kPermissionDenied : base::errors::kPathAccess,
                      folder.string() + ": " + code.message());
  ::chmod(folder.c_str(), S_IRWXU);
}

std::string suiteHome() {
  std::error_code code;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", code);
  if (code) return {};
  // Installed: PREFIX/bin beside PREFIX/share/kolvane; built: some folders below the sources.
  std::vector<std::filesystem::path> places{program.parent_path().parent_path() / "share/kolvane"};
  for (std::filesystem::path folder = program.parent_path(); folder.has_relative_path();
       folder = folder.parent_path())
    places.push_back(folder / "data");
  for (const auto& place : places)
    if (std::filesystem::is_directory(place / "Show Form", code)) return place.string();
  return {};
}

}  // namespace kolvane::adapters
