#include "frame/project_settings.h"

#include <algorithm>

#include "base/text.h"

namespace kolvane::frame {
namespace {

constexpr RegistryRoot kUser = RegistryRoot::kCurrentUser;
constexpr int kString = static_cast<int>(platform::ValueType::kString);

}  // namespace

std::optional<std::string> ProjectSettings::find(std::string_view project) const {
  for (const std::string_view level : {project, kAnyProject})
    if (read(level, firstValue_) != kNotFound) return std::string(level);
  return std::nullopt;
}

std::string ProjectSettings::read(std::string_view level, std::string_view name) const {
  return settings_.ReadRegistryValue(kUser, path(level), name);
}

std::string ProjectSettings::read(std::string_view level, std::string_view name,
                                  std::string_view fallback) const {
  const std::string text = read(level, name);
  return text == kNotFound ? std::string(fallback) : text;
}

void ProjectSettings::write(std::string_view level, std::string_view name, std::string_view text) {
  settings_.WriteRegistryValue(kUser, path(level), name, kString, text);
}

void ProjectSettings::save(std::string_view level, const Settings::Rows& values) {
  settings_.store().update([&] {
    remove(level);
    for (const auto& [name, text] : values) write(level, name, text);
  });
}

void ProjectSettings::remove(std::string_view level) {
  // A project without a name has no level of its own; its path would be that of all levels.
  if (!level.empty()) settings_.DeleteRegistryTree(kUser, path(level));
}

void ProjectSettings::copy(std::string_view from, std::string_view to) {
  if (base::equalNoCase(from, to)) return;
  settings_.store().update([&] {
    remove(to);
    copyKey(path(from), path(to));
  });
}

void ProjectSettings::copyKey(const std::string& from, const std::string& to) {
  for (const RegistryValue& value : settings_.values(kUser, from))
    settings_.WriteRegistryValue(kUser, to, value.name, static_cast<int>(base::toLong(value.type)),
                                 value.data);
  for (const std::string& key : settings_.keyNames(kUser, from)) copyKey(from + '\\' + key, to + '\\' + key);
}

std::vector<std::string> ProjectSettings::levels() const { return settings_.keyNames(kUser, root_); }

std::vector<std::string> ProjectSettings::otherLevels(std::string_view level) const {
  std::vector<std::string> names = levels();
  std::erase(names, level);
  return names;
}

}  // namespace kolvane::frame
