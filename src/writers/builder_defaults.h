// What the builders' dialogs start with: a set of values for each project and one called "Any Project".
//
//   const BuilderDefaults defaults(services.settings, kProcedureBuilder);
//   const BuilderValues values = defaults.inForce(activeProjectName(services));
//   cboScope.setListIndex(values.index("PBDS37", cboScope));
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/lists.h"
#include "frame/project_settings.h"
#include "frame/services.h"

namespace kolvane::writers {

// Where a builder keeps its sets, and the value that every one of them has.
struct BuilderSection {
  std::string_view name;
  std::string_view firstValue;
};
inline constexpr BuilderSection kProcedureBuilder{"PBO36", "PBDS37"};
inline constexpr BuilderSection kPropertyBuilder{"PrBO56", "PrBDS58"};

// One set, as it was read. Names compare without case. A value that is missing, or reads "Not Found", gives
// the fallback; so an empty set stands for the builder's fixed defaults.
class BuilderValues {
 public:
  BuilderValues() = default;
  explicit BuilderValues(frame::Settings::Rows rows) : rows_(std::move(rows)) {}

  bool empty() const { return rows_.empty(); }
  bool has(std::string_view name) const { return find(name) != nullptr; }
  std::string text(std::string_view name, std::string_view fallback = {}) const;
  // "True" and "1" are true.
  bool flag(std::string_view name, bool fallback) const;
  // An index into the items of `list`: the fallback also for one that the list does not have, -1 when it does
  // not have that either.
  int index(std::string_view name, const forms::ListControl& list, int fallback = 0) const;

 private:
  const std::string* find(std::string_view name) const;

  frame::Settings::Rows rows_;
};

class BuilderDefaults {
 public:
  // `settings` must outlive the object.
  BuilderDefaults(frame::Settings& settings, const BuilderSection& section)
      : settings_(settings), sets_(settings, section.name, section.firstValue) {}

  // The set that counts for a project: its own, else that of "Any Project", else an empty one. An own set
  // counts as a whole. An empty name is that of no project.
  BuilderValues inForce(std::string_view project) const;
  // The set of this name, an empty one when there is none.
  BuilderValues of(std::string_view project) const;
  // Puts these values, and only these, in the place of the project's set. An empty name raises 5.
  void save(std::string_view project, const frame::Settings::Rows& values);
  // Removes the project's set; "Any Project" counts for it from now on.
  void clear(std::string_view project);
  // The names that have a set, in the order of their creation, without this one (case apart).
  std::vector<std::string> others(std::string_view project) const;

 private:
  frame::Settings& settings_;
  frame::ProjectSettings sets_;
};

// Empty when no project is open.
std::string activeProjectName(const frame::Services& services);

}  // namespace kolvane::writers
