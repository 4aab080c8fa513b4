#include "frame/settings_file.h"

#include <array>

namespace kolvane::frame {
namespace {

// Endings of what SQLite leaves beside a file when a program is killed. Beside another one it would be taken for that
// one's.
constexpr std::array<std::string_view, 3> kBeside{"-wal", "-shm", "-journal"};
constexpr std::string_view kAside = ".old";

std::string notice(const platform::StoreDamaged& damage, const std::string& path) {
  return damage.description() +
         " The defaults are in force, and the file is left as it is. Put a copy of it back in its place, or "
         "start "
         "afresh with \"kolvane settings reset --settings '" +
         path + "'\", which keeps it as \"" + path + std::string(kAside) + "\".";
}

std::string asideName(platform::Files& files, const std::string& path) {
  const std::string first = path + std::string(kAside);
  std::string name = first;
  for (int number = 2; files.stamp(name); ++number) name = first + "-" + std::to_string(number);
  return name;
}

}  // namespace

OpenedSettings openSettings(const OpenStore& open, const std::string& path) {
  try {
    return {open(path), {}};
  } catch (const platform::StoreDamaged& damage) {
    return {open(std::string(kForgottenSettings)), notice(damage, path)};
  }
}

std::unique_ptr<platform::TreeStore> openStoredSettings(const OpenStore& open, const std::string& path) {
  try {
    return open(path);
  } catch (const platform::StoreDamaged& damage) {
    throw base::Error(damage.number(), notice(damage, path));
  }
}

std::string setSettingsAside(platform::Files& files, const std::string& path) {
  if (!files.stamp(path)) throw base::Error(base::errors::kFileNotFound, path + ": there is no such file");
  const std::string aside = asideName(files, path);
  files.move(path, aside);
  for (const std::string_view ending : kBeside)
    if (const std::string name = path + std::string(ending); files.stamp(name))
      files.move(name, aside + std::string(ending));
  return aside;
}

}  // namespace kolvane::frame
