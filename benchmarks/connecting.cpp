#include "connecting.h"

#include <stdexcept>
#include <string>

#include "adapters/sqlite/sqlite_tree_store.h"
#include "frame/context_menus.h"
#include "measuring.h"
#include "suite/suite.h"

namespace kolvane::benchmarks {
namespace {

constexpr double kMostMilliseconds = 50;
constexpr int kRounds = 20;

// Every row in the menu and on the toolbar, and every entry of the context menus.
void showEverything(frame::Settings& settings) {
  settings.store().update([&] {
    const auto switchOn = [&settings](std::string_view prefix, std::string_view key) {
      settings.saveOption(std::string(prefix).append(key), "True");
    };
    for (const frame::CatalogueRow& row : frame::kCatalogue)
      for (const std::string_view prefix : {frame::kInMenuPrefix, frame::kOnToolbarPrefix})
        switchOn(prefix, row.key);
    switchOn(frame::kOnToolbarPrefix, frame::kDirtyIndicator.key);
    for (const frame::ContextEntry& entry : frame::kContextEntries) switchOn(entry.prefix, entry.key);
    for (const frame::PopupItem& item : frame::kProcRecoderPopup)
      if (!item.option.empty()) settings.saveOption(item.option, "True");
  });
}

// What a user waits for as the host starts; the host has the big project open.
Measured measureConnecting(Bench& bench) {
  OpenProject opened = open(bench.project.project);
  platform::MemoryFiles files;
  platform::RecordedKeystrokes keystrokes;
  adapters::SqliteTreeStore store(bench.folder.path() + "/connecting.db");
  platform::FixedUser user{"ann"};
  platform::FixedClock clock{base::DateTime{2026, 11, 22, 10, 20, 30}};
  platform::Random random;
  forms::ScriptedDesk desk;
  platform::NoWebPages pages;
  const auto& codePage = base::CodePage::get(base::CodePage::kDefault);
  suite::Suite suite({*opened.host,
                      store,
                      desk,
                      clock,
                      user,
                      random,
                      *opened.clipboard,
                      keystrokes,
                      files,
                      pages,
                      codePage,
                      {}});
  frame::Connect& connection = suite.connection();
  connection.AddinInstance_OnConnection();
  connection.AddinInstance_OnDisconnection();
  showEverything(suite.settings());
  Measured measured;
  std::size_t shown = 0;
  measured.value = medianOf(bench, [&] {
    double seconds = 0;
    for (int i = 0; i < kRounds; ++i) {
      seconds += secondsOf([&] {
        connection.AddinInstance_Initialize();
        connection.AddinInstance_OnConnection();
        connection.AddinInstance_OnStartupComplete();
      });
      shown = 0;
      for (const frame::CatalogueRow& row : frame::kCatalogue)
        shown += (connection.menuItem(row) ? 1U : 0U) + (connection.toolbarButton(row) ? 1U : 0U);
      if (shown != 2 * frame::kCatalogue.size()) throw std::runtime_error("not every row is shown");
      connection.AddinInstance_OnDisconnection();
    }
    return seconds * 1000 / kRounds;
  });
  measured.note = std::to_string(shown) + " buttons, and the context menus";
  return measured;
}

constexpr Figure kConnectingFigures[] = {
    {"connecting the suite with everything shown", "", "ms", kMostMilliseconds, measureConnecting},
};

}  // namespace

std::span<const Figure> connectingFigures() { return kConnectingFigures; }

}  // namespace kolvane::benchmarks
