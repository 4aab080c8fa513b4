#include "source/classes.h"

#include "base/error.h"
#include "base/text.h"
#include "source/sorting.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
// Sorts the active project's classes in front of all others.
constexpr std::string_view kFirst = "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";
static_assert(kFirst.size() == 51);

}  // namespace

std::vector<std::string> Find_Classes_Collections(const frame::Services& services) {
  const base::ErrorScope scope{kModule, "Find_Classes_Collections"};
  const auto active = services.vbe.ActiveVBProject();
  const std::string activeStart = active ? active->Name() + "." : std::string();
  std::vector<std::string> names;
  for (const auto& project : services.vbe.VBProjects()->items()) {
    const std::string start = project->Name() + ".";
    const std::string_view mark = start == activeStart ? kFirst : std::string_view();
    for (const auto& component : project->VBComponents()->items())
      if (component->Type() == frame::ComponentType::kClassModule)
        names.push_back(std::string(mark) + start + component->Name());
  }
  QuickSort(services, names, 0, static_cast<int>(names.size()) - 1);
  for (std::string& name : names)
    if (name.starts_with(kFirst)) name.erase(0, kFirst.size() + activeStart.size());
  return names;
}

bool LoadTheClasses(const frame::Services& services, std::initializer_list<forms::ComboBox*> combos) {
  const base::ErrorScope scope{kModule, "LoadTheClasses"};
  const std::vector<std::string> names = Find_Classes_Collections(services);
  for (forms::ComboBox* combo : combos)
    if (combo) combo->addItems(names);
  return true;
}

}  // namespace kolvane::source
