#include "frame/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "frame/context_menus.h"
#include "frame/option_tables.h"
#include "platform/memory_tree_store.h"

namespace kolvane::frame {
namespace {

using testing::Pair;

const CatalogueRow& row(std::string_view key) { return *findCatalogueRow(key); }

TEST(Catalogue, FindsByKeyAndByAnyNameWithoutCase) {
  EXPECT_EQ(row("spb35").menuCaption, "&Procedure Builder");
  EXPECT_EQ(findCatalogueRow("nM164SPB35"), nullptr);
  EXPECT_EQ(findCatalogueRow(kDirtyIndicator.key), nullptr);
  for (const char* name : {"DB Data Scriptier", "db data scripter", "D&B Data Scripter", "DB Data Scripter"})
    EXPECT_EQ(findCatalogueRowByName(name), &row("SDDSr111")) << name;
  EXPECT_EQ(findCatalogueRowByName("standards monitor"), &row("SStMoi150"));
  EXPECT_EQ(findCatalogueRowByName("5 line comment"), findCatalogueRowByName("5 Line Comment Block"));
  EXPECT_EQ(findCatalogueRowByName(""), nullptr);
  EXPECT_EQ(findCatalogueRowByName("Procedure"), nullptr);
}

// Every row is found by each of its own names, so that no name of one hides another.
TEST(Catalogue, NoNameBelongsToTwoCommands) {
  for (const CatalogueRow& each : kCatalogue)
    for (const std::string_view name : {each.listName, each.toolbarTip, each.menuCaption})
      EXPECT_EQ(findCatalogueRowByName(name), &each) << name;
}

TEST(Catalogue, HandlerNamesFollowTheStemWithItsExceptions) {
  const std::vector<std::array<std::string_view, 3>> cases{
      {"SS66", "Search_MenuHandler_Click", "Search_ToolBarHandler_Click"},
      {"SAD93", "Auto_Declare_MenuBarHandler_Click", "Auto_Declare_ToolBarHandler_Click"},
      {"sardfijgnbs451sidjfgn", "ProjectBackup_MenuHandler_Click", "ProjectBackup_ToolHandler_Click"},
      {"ShWoC90", "WordComplete_MenuHandler_Click", "WordComplete_ToolbarHandler_Click"},
  };
  for (const auto& [key, menu, toolbar] : cases) {
    EXPECT_EQ(menuHandlerName(row(key)), menu);
    EXPECT_EQ(toolbarHandlerName(row(key)), toolbar);
  }
}

TEST(Catalogue, ListNamesGoThereAndBack) {
  EXPECT_EQ(GetAddinNameFromRegValue("nM164SMCkIns145"), "Multi Check in in Menu");
  EXPECT_EQ(GetAddinNameFromRegValue("b165SStMoi150"), "Standards &Monitor on Toolbar");
  EXPECT_EQ(GetAddinNameFromRegValue("b165328srgksjerg"), "Dirty Project on Toolbar");
  EXPECT_EQ(GetAddinNameFromRegValue("o166SCPR75"), "Proc. Recoder in Code Menu");
  EXPECT_EQ(GetAddinNameFromRegValue("ol168SAD93"), "Copy Control Code in Control Menu");
  std::set<std::string> names;
  const auto expectBothWays = [&](const std::string& value) {
    const std::string name = GetAddinNameFromRegValue(value);
    EXPECT_FALSE(name.empty()) << value;
    EXPECT_EQ(GetRegValueFromAddinName(name), value);
    EXPECT_TRUE(names.insert(name).second) << name;
  };
  for (const CatalogueRow& each : kCatalogue)
    for (const std::string_view prefix : {kInMenuPrefix, kOnToolbarPrefix})
      expectBothWays(std::string(prefix).append(each.key));
  for (const ContextEntry& entry : kContextEntries)
    expectBothWays(std::string(entry.prefix).append(entry.key));
  expectBothWays(std::string(kSeparatorKey));

  for (const char* unknown : {"", "nM164", "nM164nobody", "b165", "SPB35", "o166SPB35"})
    EXPECT_EQ(GetAddinNameFromRegValue(unknown), "") << unknown;
  for (const char* unknown : {"", " in Menu", "Nobody in Menu", "Search", "Search in Code Menu"})
    EXPECT_EQ(GetRegValueFromAddinName(unknown), "") << unknown;
}

TEST(Catalogue, DefaultOrderReplacesWhateverStandsThere) {
  platform::MemoryTreeStore store;
  Settings settings{store, base::CodePage::get(1252)};
  settings.SaveSetting(kMenuOrderSection, "99", "nM164SS66");
  settings.SaveSetting(kToolbarOrderSection, "1", "fdsfdfdsfwert");
  CreateDefaultMenusToolbarOrder(settings);
  const auto menu = settings.GetAllSettings(kMenuOrderSection);
  const auto toolbar = settings.GetAllSettings(kToolbarOrderSection);
  ASSERT_EQ(menu.size(), 54u);
  ASSERT_EQ(toolbar.size(), 55u);
  EXPECT_THAT(menu.front(), Pair("1", "nM164SPB35"));
  EXPECT_THAT(menu.back(), Pair("54", "nM164dhmstr456hdfgjdghj"));
  EXPECT_THAT(toolbar[21], Pair("22", "b165rtgertg399rsfgjnbdfg"));
  EXPECT_THAT(toolbar[22], Pair("23", "b165328srgksjerg"));
  EXPECT_THAT(toolbar[23], Pair("24", "b165SSW118"));
  EXPECT_THAT(toolbar.back(), Pair("55", "b165dhmstr456hdfgjdghj"));
}

TEST(Catalogue, DefaultTicksReplaceTheUsers) {
  platform::MemoryTreeStore store;
  Settings settings{store, base::CodePage::get(1252)};
  settings.saveOption("nM164SPB35", "False");
  CreateDefaultMenusToolbarChecked(settings);
  EXPECT_EQ(settings.option("nM164SPB35") + settings.option("b165SPB35"), "TrueFalse");
  EXPECT_EQ(settings.option("nM164SS66") + settings.option("b165SS66"), "FalseTrue");
  EXPECT_EQ(settings.option("b165328srgksjerg"), "False");
  EXPECT_EQ(settings.GetAllSettings(kOptions).size(), 2 * kCatalogue.size() + 1);
}

// ---- the popup of the code window

TEST(ProcRecoderPopup, EachItemIsAnOptionAndEachOptionAnItem) {
  std::multiset<std::string_view> shown;
  for (const PopupItem& item : kProcRecoderPopup)
    if (!item.option.empty()) shown.insert(item.option);
  std::multiset<std::string_view> offered;
  for (const TickOption& option : kProcRecoderItems) offered.insert(option.key);
  EXPECT_EQ(shown, offered);
}

TEST(ProcRecoderPopup, ItsButtonsAreTheCataloguesCommands) {
  std::set<std::string_view> targets;
  for (const CatalogueRow& each : kCatalogue)
    if (each.action == Action::kDispatcher) targets.insert(each.target);
  for (const PopupItem& item : kProcRecoderPopup) {
    EXPECT_EQ(item.kind == PopupKind::kButton, !item.handler.empty()) << item.caption;
    if (item.kind != PopupKind::kButton) continue;
    EXPECT_EQ(targets.erase(item.target), 1u) << item.caption;
  }
  EXPECT_TRUE(targets.empty());
}

TEST(ProcRecoderPopup, ItemsStandBelowAPopup) {
  int level = -1;
  for (const PopupItem& item : kProcRecoderPopup) {
    EXPECT_LE(item.level, level + 1) << item.caption;
    level = item.kind == PopupKind::kPopup ? item.level : item.level - 1;
  }
}

}  // namespace
}  // namespace kolvane::frame
