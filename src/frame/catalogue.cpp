#include "frame/catalogue.h"

#include <algorithm>

#include "base/text.h"
#include "frame/context_menus.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kInMenu = " in Menu";
constexpr std::string_view kOnToolbar = " on Toolbar";

// ---- what the table promises

constexpr bool numbersAreDense() {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i)
    if (kCatalogue[i].number != static_cast<int>(i) + 1) return false;
  return true;
}
static_assert(numbersAreDense(), "menu numbers run from 1 in the table's order");

// Every number from 1 to the count of all buttons, once.
constexpr bool toolbarNumbersAreComplete() {
  std::array<bool, kCatalogue.size() + 1> seen{};
  seen[static_cast<std::size_t>(kDirtyIndicator.toolbarNumber) - 1] = true;
  for (const CatalogueRow& row : kCatalogue) {
    const auto at = static_cast<std::size_t>(row.toolbarNumber) - 1;
    if (at >= seen.size() || seen[at]) return false;
    seen[at] = true;
  }
  return true;
}
static_assert(toolbarNumbersAreComplete(), "toolbar numbers are unique and leave no gap");

template <typename Field>
constexpr bool allDiffer(Field field) {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    if (kCatalogue[i].*field == kDirtyIndicator.*field) return false;
    for (std::size_t j = 0; j < i; ++j)
      if (kCatalogue[i].*field == kCatalogue[j].*field) return false;
  }
  return true;
}
static_assert(allDiffer(&CatalogueRow::key) && allDiffer(&CatalogueRow::listName) &&
              allDiffer(&CatalogueRow::menuCaption) && allDiffer(&CatalogueRow::handlerStem) &&
              allDiffer(&CatalogueRow::pictureKey));

constexpr bool everyRowDoesSomething() {
  return std::all_of(kCatalogue.begin(), kCatalogue.end(), [](const CatalogueRow& row) {
    const bool form = row.action == Action::kModelessForm || row.action == Action::kModalForm;
    return row.action != Action::kNone && !row.target.empty() && row.target.starts_with("frm") == form;
  });
}
static_assert(everyRowDoesSomething());

// The last step puts its rows behind those that an older version has stored.
constexpr bool lastStepComesLast() {
  return std::is_sorted(kCatalogue.begin(), kCatalogue.end(),
                        [](const CatalogueRow& a, const CatalogueRow& b) {
                          return (a.since == Step::k3_0) < (b.since == Step::k3_0);
                        });
}
static_assert(lastStepComesLast());

std::string withoutAmpersands(std::string_view text) { return base::replaceAll(text, "&", ""); }

// The row of a key, the indicator among them.
const CatalogueRow* findAny(std::string_view key) {
  return base::equalNoCase(key, kDirtyIndicator.key) ? &kDirtyIndicator : findCatalogueRow(key);
}

const CatalogueRow* findAnyByListName(std::string_view name) {
  if (base::equalNoCase(name, kDirtyIndicator.listName)) return &kDirtyIndicator;
  const auto found = std::find_if(kCatalogue.begin(), kCatalogue.end(), [name](const CatalogueRow& row) {
    return base::equalNoCase(row.listName, name);
  });
  return found == kCatalogue.end() ? nullptr : &*found;
}

std::string joined(std::string_view a, std::string_view b) { return std::string(a).append(b); }

bool endsWithNoCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && base::equalNoCase(text.substr(text.size() - end.size()), end);
}

}  // namespace

const CatalogueRow* findCatalogueRow(std::string_view key) {
  const auto found = std::find_if(kCatalogue.begin(), kCatalogue.end(),
                                  [key](const CatalogueRow& row) { return base::equalNoCase(row.key, key); });
  return found == kCatalogue.end() ? nullptr : &*found;
}

const CatalogueRow* findCatalogueRowByName(std::string_view name) {
  const std::string wanted = withoutAmpersands(name);
  for (const auto field : {&CatalogueRow::listName, &CatalogueRow::toolbarTip, &CatalogueRow::menuCaption}) {
    for (const CatalogueRow& row : kCatalogue)
      if (base::equalNoCase(withoutAmpersands(row.*field), wanted)) return &row;
  }
  return nullptr;
}

std::string menuHandlerName(const CatalogueRow& row) {
  return joined(row.handlerStem,
                row.sinks == SinkNames::kMenuBar ? "_MenuBarHandler_Click" : "_MenuHandler_Click");
}

std::string toolbarHandlerName(const CatalogueRow& row) {
  switch (row.sinks) {
    case SinkNames::kTool:
      return joined(row.handlerStem, "_ToolHandler_Click");
    case SinkNames::kToolbarLow:
      return joined(row.handlerStem, "_ToolbarHandler_Click");
    case SinkNames::kUsual:
    case SinkNames::kMenuBar:
      break;
  }
  return joined(row.handlerStem, "_ToolBarHandler_Click");
}

std::string GetAddinNameFromRegValue(std::string_view value) {
  if (base::equalNoCase(value, kSeparatorKey)) return std::string(kSeparatorName);
  for (const ContextEntry& entry : kContextEntries)
    if (base::equalNoCase(value, joined(entry.prefix, entry.key))) return contextEntryName(entry);
  const bool inMenu = base::startsWithNoCase(value, kInMenuPrefix);
  if (!inMenu && !base::startsWithNoCase(value, kOnToolbarPrefix)) return {};
  const CatalogueRow* row = findAny(value.substr((inMenu ? kInMenuPrefix : kOnToolbarPrefix).size()));
  return row ? joined(row->listName, inMenu ? kInMenu : kOnToolbar) : std::string();
}

std::string GetRegValueFromAddinName(std::string_view name) {
  if (base::equalNoCase(name, kSeparatorName)) return std::string(kSeparatorKey);
  for (const ContextEntry& entry : kContextEntries)
    if (base::equalNoCase(name, contextEntryName(entry))) return joined(entry.prefix, entry.key);
  const bool inMenu = endsWithNoCase(name, kInMenu);
  if (!inMenu && !endsWithNoCase(name, kOnToolbar)) return {};
  const CatalogueRow* row =
      findAnyByListName(name.substr(0, name.size() - (inMenu ? kInMenu : kOnToolbar).size()));
  return row ? joined(inMenu ? kInMenuPrefix : kOnToolbarPrefix, row->key) : std::string();
}

void CreateDefaultMenusToolbarOrder(Settings& settings) {
  settings.store().update([&] {
    settings.deleteIfPresent(kMenuOrderSection);
    settings.deleteIfPresent(kToolbarOrderSection);
    std::array<std::string_view, kCatalogue.size() + 1> toolbar{};
    const auto place = [&toolbar](const CatalogueRow& row) {
      toolbar[static_cast<std::size_t>(row.toolbarNumber) - 1] = row.key;
    };
    place(kDirtyIndicator);
    for (const CatalogueRow& row : kCatalogue) {
      place(row);
      settings.SaveSetting(kMenuOrderSection, std::to_string(row.number), joined(kInMenuPrefix, row.key));
    }
    for (std::size_t i = 0; i < toolbar.size(); ++i)
      settings.SaveSetting(kToolbarOrderSection, std::to_string(i + 1), joined(kOnToolbarPrefix, toolbar[i]));
  });
}

void CreateDefaultMenusToolbarChecked(Settings& settings) {
  settings.store().update([&] {
    for (const CatalogueRow& row : kCatalogue) {
      settings.saveOption(joined(kInMenuPrefix, row.key), base::boolText(row.inMenu));
      settings.saveOption(joined(kOnToolbarPrefix, row.key), base::boolText(row.onToolbar));
    }
    settings.saveOption(joined(kOnToolbarPrefix, kDirtyIndicator.key),
                        base::boolText(kDirtyIndicator.onToolbar));
  });
}

}  // namespace kolvane::frame
