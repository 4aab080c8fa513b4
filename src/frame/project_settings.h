// Settings that a tool keeps once for each project and once for all: below its section stands a key for each
// project name, and one called "Any Project". A project is its name and nothing else; one that is called "Any
// Project" reads and writes the shared set.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/settings.h"

namespace kolvane::frame {

class ProjectSettings {
 public:
  // `firstValue` is the value that tells whether a set is there. The settings must outlive the object.
  ProjectSettings(Settings& settings, std::string_view section, std::string_view firstValue)
      : settings_(settings), root_(sectionPath(section)), firstValue_(firstValue) {}

  // The level whose set counts for a project: its own, else "Any Project", else nothing: the tool's fixed
  // defaults stay. The set counts as a whole; what it lacks does not come from the other level.
  std::optional<std::string> find(std::string_view project) const;

  // "Not Found" where the level has no such value.
  std::string read(std::string_view level, std::string_view name) const;
  // The text, or `fallback` where the level has no such value.
  std::string read(std::string_view level, std::string_view name, std::string_view fallback) const;
  void write(std::string_view level, std::string_view name, std::string_view text);
  // Puts these values, and only these, in the place of the level's set.
  void save(std::string_view level, const Settings::Rows& values);
  // Removes the level with all below it.
  void remove(std::string_view level);
  // Puts the set of another level, with the keys below it, in the place of the level's own.
  void copy(std::string_view from, std::string_view to);

  // Names that have a set, in the order of their creation.
  std::vector<std::string> levels() const;
  // The same without one of them, by exact name.
  std::vector<std::string> otherLevels(std::string_view level) const;

  // Path of a level for the raw operations.
  std::string path(std::string_view level) const { return std::string(root_).append("\\").append(level); }

 private:
  void copyKey(const std::string& from, const std::string& to);

  Settings& settings_;
  std::string root_;
  std::string firstValue_;
};

}  // namespace kolvane::frame
