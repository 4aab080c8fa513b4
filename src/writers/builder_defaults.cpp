#include "writers/builder_defaults.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::writers {

const std::string* BuilderValues::find(std::string_view name) const {
  const auto row = std::find_if(rows_.begin(), rows_.end(),
                                [&](const auto& value) { return base::equalNoCase(value.first, name); });
  return row == rows_.end() || row->second == frame::kNotFound ? nullptr : &row->second;
}

std::string BuilderValues::text(std::string_view name, std::string_view fallback) const {
  const std::string* found = find(name);
  return found ? *found : std::string(fallback);
}

bool BuilderValues::flag(std::string_view name, bool fallback) const {
  const std::string* found = find(name);
  return found ? base::toBool(*found) : fallback;
}

int BuilderValues::index(std::string_view name, const forms::ListControl& list, int fallback) const {
  const auto fits = [&list](long index) { return index >= 0 && index < list.listCount(); };
  const long stored = base::toLong(text(name), -1);
  if (fits(stored)) return static_cast<int>(stored);
  return fits(fallback) ? fallback : -1;
}

BuilderValues BuilderDefaults::inForce(std::string_view project) const {
  const auto set = sets_.find(project.empty() ? frame::kAnyProject : project);
  return set ? of(*set) : BuilderValues();
}

BuilderValues BuilderDefaults::of(std::string_view project) const {
  frame::Settings::Rows rows;
  if (!project.empty())
    for (frame::RegistryValue& value :
         settings_.values(frame::RegistryRoot::kCurrentUser, sets_.path(project)))
      rows.emplace_back(std::move(value.name), std::move(value.data));
  return BuilderValues(std::move(rows));
}

void BuilderDefaults::save(std::string_view project, const frame::Settings::Rows& values) {
  if (project.empty()) throw base::Error(base::errors::kInvalidCall);
  sets_.save(project, values);
}

void BuilderDefaults::clear(std::string_view project) { sets_.remove(project); }

std::vector<std::string> BuilderDefaults::others(std::string_view project) const {
  std::vector<std::string> names = sets_.levels();
  std::erase_if(names, [project](const std::string& name) { return base::equalNoCase(name, project); });
  return names;
}

std::string activeProjectName(const frame::Services& services) {
  const auto project = services.vbe.ActiveVBProject();
  return project ? project->Name() : std::string();
}

}  // namespace kolvane::writers
