#include "frame/default_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "base/error.h"
#include "base/text.h"
#include "frame/catalogue.h"
#include "frame/context_menus.h"
#include "frame/option_tables.h"
#include "platform/memory_tree_store.h"

namespace kolvane::frame {
namespace {

using platform::FixedUser;
using platform::StoredValue;
using testing::IsEmpty;
using testing::Pair;

// A store that fails at a write of the test's choice.
class FailingStore final : public platform::TreeStore {
 public:
  std::optional<StoredValue> read(const std::string& path, const std::string& name) override {
    return inner.read(path, name);
  }
  void write(const std::string& path, const StoredValue& value) override {
    if (writesLeft-- == 0) throw base::Error(base::errors::kDiskFull);
    inner.write(path, value);
  }
  std::vector<StoredValue> values(const std::string& path) override { return inner.values(path); }
  std::vector<std::string> keys(const std::string& path) override { return inner.keys(path); }
  bool keyExists(const std::string& path) override { return inner.keyExists(path); }
  bool removeKey(const std::string& path) override { return inner.removeKey(path); }
  bool removeValue(const std::string& path, const std::string& name) override {
    return inner.removeValue(path, name);
  }
  void update(const std::function<void()>& work) override { inner.update(work); }

  platform::MemoryTreeStore inner;
  int writesLeft = -1;
};

class DefaultSettingsTest : public testing::Test {
 protected:
  void apply() { ApplyDefaultSettings(settings, user); }
  std::map<std::string, std::string> options() {
    std::map<std::string, std::string> result;
    for (const auto& [key, text] : settings.GetAllSettings(kOptions)) result[key] = text;
    return result;
  }
  // The options that a run writes when this version is stored, by key; the forced ones and the version aside.
  std::set<std::string> writtenFrom(const std::string& version) {
    store.removeKey("");
    settings.saveOption("AdVnc1", version);
    apply();
    std::set<std::string> keys;
    for (const auto& [key, text] : settings.GetAllSettings(kOptions)) keys.insert(key);
    return keys;
  }

  platform::MemoryTreeStore store;
  Settings settings{store, base::CodePage::get(1252)};
  FixedUser user{"User"};
};

constexpr std::array<std::string_view, 8> kForcedKeys{
    "ol168fd345sfdghjsga",    "ol168sd324srtgseg",   "nM164SS66",
    "b165328srgksjerg",       "nM164dsgsdfg567sdfg", "b165xdfgh456dhgfhdhhdfghgfh",
    "b165dhmstr456hdfgjdghj", "ol168SSTO152"};

// ---- the tables among themselves

// Every key of section "Options" that the tables and the catalogue name, as often as they do.
std::multiset<std::string> allKeys() {
  std::multiset<std::string> keys{std::string(kStoredVersionKey)};
  const auto add = [&keys](std::string_view a, std::string_view b = {}) {
    keys.insert(std::string(a).append(b));
  };
  for (const auto& option : kGeneralOptions) add(option.key);
  for (const auto& [key, text] : kBarPlaces) add(key);
  for (const auto& option : kHeaderFields) add(option.key);
  for (const auto& option : kProcRecoderItems) add(option.key);
  for (const auto& prefix : kComponentPrefixes) add(prefix.key);
  for (const auto& header : kModuleHeaderTemplates) add(header.key);
  for (const auto& option : kToolOptions) add(option.key);
  for (const auto& row : kPlacements)
    for (const auto& key : {row.keys.left, row.keys.top, row.keys.width, row.keys.height}) add(key);
  std::set<std::string> available;
  for (const auto& row : kCatalogue) {
    available.insert(std::string(row.key));
    add(kInMenuPrefix, row.key);
    add(kOnToolbarPrefix, row.key);
  }
  available.insert(std::string(kDirtyIndicator.key));
  add(kOnToolbarPrefix, kDirtyIndicator.key);
  for (const auto& entry : kContextEntries) {
    available.insert(std::string(entry.key));
    add(entry.prefix, entry.key);
  }
  keys.insert(available.begin(), available.end());
  return keys;
}

TEST(OptionTables, NoKeyIsUsedTwice) {
  std::set<std::string, base::LessNoCase> seen;
  for (const std::string& key : allKeys()) EXPECT_TRUE(seen.insert(key).second) << key;
}

TEST(OptionTables, PlacementNamesAreUnique) {
  std::set<std::string_view> names;
  for (const auto& row : kPlacements) EXPECT_TRUE(names.insert(row.name).second) << row.name;
  EXPECT_EQ(names.size(), 46u);
}

TEST(OptionTables, DefaultsAreOfTheirKind) {
  const auto check = [](std::string_view key, std::string_view text, OptionKind kind) {
    switch (kind) {
      case OptionKind::kCheck:
        EXPECT_TRUE(text == "0" || text == "1" || key == "ouloi45lwefwd") << key;
        break;
      case OptionKind::kBoolean:
        EXPECT_TRUE(text == "True" || text == "False") << key;
        break;
      case OptionKind::kNumber:
        EXPECT_EQ(std::to_string(base::toLong(text)), text) << key;
        break;
      case OptionKind::kText:
        break;
    }
  };
  for (const auto& option : kGeneralOptions) check(option.key, option.defaultText, option.kind);
  for (const auto& option : kToolOptions) check(option.key, option.defaultText, option.kind);
}

TEST(OptionTables, HotKeysBelongToCommandsAndDiffer) {
  std::set<std::string_view> codes;
  for (const auto& [key, code] : kHotKeys) {
    EXPECT_NE(findCatalogueRow(key), nullptr) << key;
    EXPECT_TRUE(codes.insert(code).second) << code;
  }
}

// ---- a first run

TEST_F(DefaultSettingsTest, AFirstRunWritesEveryDefault) {
  apply();
  const auto stored = options();
  // Module headers have no default.
  std::set<std::string> expected;
  for (const std::string& key : allKeys()) expected.insert(key);
  for (const auto& header : kModuleHeaderTemplates) expected.erase(std::string(header.key));
  std::set<std::string> keys;
  for (const auto& [key, text] : stored) keys.insert(key);
  EXPECT_EQ(keys, expected);

  EXPECT_EQ(stored.at("AdVnc1"), "3");
  EXPECT_EQ(stored.at("CoNu11"), "75");
  EXPECT_EQ(stored.at("DefDF17"), "dd mmm yyyy");
  EXPECT_EQ(stored.at("SCF29"), "False");
  EXPECT_EQ(stored.at("fgsdfg350sdfgsfg"), "False");
  EXPECT_EQ(stored.at("esfg47sfdg"), "uct");
  EXPECT_EQ(stored.at("CTorp159"), "23");
  EXPECT_EQ(stored.at("esrfh304fghe"), "Group");
  EXPECT_EQ(stored.at("sdfgfsdgsdfg329dfgsdfgfsdg"), "\\HTML Files\\");
  EXPECT_EQ(stored.at("er\xA3"
                      "55%VEW%GG^\xA3%vs8erg"),
            "0");
  EXPECT_EQ(stored.at("PBWL46"), "500");
  EXPECT_EQ(stored.at("nM164SPB35") + stored.at("b165SPB35") + stored.at("SPB35"), "TrueFalseTrue");
  for (const std::string_view key : kForcedKeys) EXPECT_EQ(stored.at(std::string(key)), "True") << key;

  EXPECT_EQ(settings.GetAllSettings(kMenuOrderSection).size(), 54u);
  const auto toolbar = settings.GetAllSettings(kToolbarOrderSection);
  ASSERT_EQ(toolbar.size(), 55u);
  for (std::size_t i = 0; i < toolbar.size(); ++i) EXPECT_EQ(toolbar[i].first, std::to_string(i + 1));
  EXPECT_EQ(settings.GetAllSettings("ADP95").size(), 12u);
  EXPECT_THAT(settings.GetAllSettings("WCW92")[2],
              Pair("mq", "intAnswer = Msgbox(\"<Cursor Position>\", vbYesNo)"));
  EXPECT_THAT(settings.GetAllSettings("awes345df").front(), Pair("SPB35", "80/6"));
}

TEST_F(DefaultSettingsTest, ASecondRunOnlyForcesTheEight) {
  apply();
  settings.saveOption("CoNu11", "40");
  settings.saveOption("nM164SPB35", "False");
  settings.DeleteSetting(kMenuOrderSection);
  settings.DeleteSetting("ADP95");
  for (const std::string_view key : kForcedKeys) settings.saveOption(key, "False");
  auto expected = options();
  for (const std::string_view key : kForcedKeys) expected[std::string(key)] = "True";
  apply();
  EXPECT_EQ(options(), expected);
  EXPECT_THAT(settings.GetAllSettings(kMenuOrderSection), IsEmpty());
  EXPECT_THAT(settings.GetAllSettings("ADP95"), IsEmpty());
}

// ---- versions

TEST_F(DefaultSettingsTest, AStoredThreeIsThreePointZero) {
  for (const char* version : {"3", "3.0", "3,0", "4.1"}) {
    EXPECT_EQ(writtenFrom(version).size(), kForcedKeys.size() + 1) << version;
    EXPECT_EQ(settings.option("AdVnc1"), version);
  }
}

TEST_F(DefaultSettingsTest, AVersionReadsTheSameUnderEitherDecimalSeparator) {
  const auto expected = writtenFrom("2.3");
  EXPECT_TRUE(expected.contains("re487tewertwrtert"));
  EXPECT_FALSE(expected.contains("asdfsdfsdfsdf378asdfdfsdf"));
  EXPECT_EQ(writtenFrom("2,3"), expected);
  user = FixedUser("User", ",");
  EXPECT_EQ(writtenFrom("2.3"), expected);
  EXPECT_EQ(writtenFrom("2,3"), expected);
  EXPECT_EQ(settings.option("AdVnc1"), "3");
}

TEST_F(DefaultSettingsTest, AnUpgradeWritesOnlyTheNewerSteps) {
  EXPECT_EQ(writtenFrom(" "), writtenFrom(""));
  const auto from12 = writtenFrom("1.2");
  EXPECT_FALSE(from12.contains("CoNu11"));
  EXPECT_FALSE(from12.contains("SPB35"));
  EXPECT_THAT(settings.GetAllSettings("ADP95"), IsEmpty());
  for (const char* key : {"e271der", "sdfgh4678bsdfvsdfv", "ertervtreb400teyrtyerty", "b165tsrjh294er"})
    EXPECT_TRUE(from12.contains(key)) << key;
  const auto from22 = writtenFrom("2.2");
  EXPECT_FALSE(from22.contains("e271der"));
  EXPECT_FALSE(from22.contains("rthg5sdfgdfgsd"));
  EXPECT_TRUE(from22.contains("sardfijgnbs451sidjfgn"));
  EXPECT_EQ(settings.GetAllSettings(kMenuOrderSection).size(), 54u);
}

TEST_F(DefaultSettingsTest, TheLastStepPutsItsRowsBehindTheUsersOrder) {
  settings.saveOption("AdVnc1", "2.4");
  settings.SaveSetting(kMenuOrderSection, "1", "nM164SS66");
  settings.SaveSetting(kMenuOrderSection, "2", "fdsfdfdsfwert");
  settings.saveOption("CoNu11", "40");
  apply();
  const auto menu = settings.GetAllSettings(kMenuOrderSection);
  ASSERT_EQ(menu.size(), 8u);
  EXPECT_THAT(menu[0], Pair("1", "nM164SS66"));
  EXPECT_THAT(menu[2], Pair("49", "nM164wesrg455sdfhgbdaszfg"));
  EXPECT_THAT(menu[7], Pair("54", "nM164dhmstr456hdfgjdghj"));
  const auto toolbar = settings.GetAllSettings(kToolbarOrderSection);
  ASSERT_EQ(toolbar.size(), 6u);
  EXPECT_THAT(toolbar[0], Pair("50", "b165wesrg455sdfhgbdaszfg"));
  EXPECT_EQ(settings.option("CoNu11"), "40");
  EXPECT_EQ(settings.option("AdVnc1"), "3");
}

// ---- older keys

TEST_F(DefaultSettingsTest, AnOldMenuCopierIsCarriedOver) {
  for (const char* version : {"2.2", "1.2", "2.4"}) {
    store.removeKey("");
    settings.saveOption("AdVnc1", version);
    settings.saveOption("Show Menu Copier", "True");
    settings.saveOption("nM164Show Menu Copier", "True");
    settings.saveOption("b165Show Menu Copier", "False");
    apply();
    const auto stored = options();
    const bool carried = version == std::string("2.2");
    for (const char* old : {"Show Menu Copier", "nM164Show Menu Copier", "b165Show Menu Copier"})
      EXPECT_EQ(stored.contains(old), !carried) << version << ' ' << old;
    if (!carried) continue;
    EXPECT_EQ(stored.at("rtgertg399rsfgjnbdfg") + stored.at("nM164rtgertg399rsfgjnbdfg") +
                  stored.at("b165rtgertg399rsfgjnbdfg"),
              "TrueTrueFalse");
  }
}

TEST_F(DefaultSettingsTest, AnOldMsgBoxBuilderGetsItsDefaultsAgain) {
  for (const char* version : {"2.3", "2,3", "2.4"}) {
    settings.saveOption("AdVnc1", version);
    settings.saveOption("Show MsgBox Builder", "False");
    for (const char* key : {"sdfgsdf450gsdfg", "nM164sardfijgnbs451sidjfgn", "b165sdfgsdf450gsdfg"})
      settings.saveOption(key, "odd");
    settings.saveOption("nM164selkrjgnsdkjfgn452sekiruhg", "odd");
    apply();
    const bool rewritten = version != std::string("2.4");
    EXPECT_EQ(settings.option("sdfgsdf450gsdfg"), rewritten ? "True" : "odd");
    EXPECT_EQ(settings.option("nM164sardfijgnbs451sidjfgn"), rewritten ? "False" : "odd");
    EXPECT_EQ(settings.option("b165sdfgsdf450gsdfg"), rewritten ? "False" : "odd");
    EXPECT_EQ(settings.option("nM164selkrjgnsdkjfgn452sekiruhg"), "odd");
  }
}

// ---- faults

TEST(DefaultSettings, AFailureOnTheWayLeavesTheOldSettings) {
  FailingStore store;
  Settings settings{store, base::CodePage::get(1252)};
  settings.saveOption("AdVnc1", "2.1");
  settings.saveOption("mine", "1");
  for (const int writes : {1, 30, 100}) {
    store.writesLeft = writes;
    try {
      ApplyDefaultSettings(settings, FixedUser("User"));
      FAIL() << "no error";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), base::errors::kDiskFull);
      EXPECT_EQ(error.source(), "KolvaneLite.modGeneral.ApplyDefaultSettings");
    }
    EXPECT_EQ(settings.GetAllSettings(kOptions).size(), 2u);
    EXPECT_EQ(settings.option("AdVnc1"), "2.1");
    EXPECT_THAT(settings.GetAllSettings(kMenuOrderSection), IsEmpty());
  }
}

TEST_F(DefaultSettingsTest, VariablePrefixesReplaceTheUsersAndWordsDoNot) {
  settings.SaveSetting("ADP95", "mny", "Currency");
  settings.SaveSetting("WCW92", "zz", "Beep");
  settings.SaveSetting("WCW92", "do", "Do");
  CreateDefaultVariablePrefixes(settings);
  CreateDefaultsWordComplete(settings);
  EXPECT_EQ(settings.GetSetting("ADP95", "mny", "gone"), "gone");
  EXPECT_EQ(settings.GetSetting("ADP95", "rec"), "ADODB.Recordset");
  EXPECT_EQ(settings.GetSetting("WCW92", "zz"), "Beep");
  EXPECT_EQ(settings.GetSetting("WCW92", "do"), "DoEvents");
}

TEST_F(DefaultSettingsTest, TheAuthorIsTheConfiguredNameOrTheSystems) {
  user = FixedUser("Jürgen");
  EXPECT_EQ(currentUser(settings, user), "J\xFCrgen");
  settings.saveOption("dsfgs56djfhgysdjig", "Somebody");
  for (const char* off : {"0", "False", ""}) {
    settings.saveOption("dfgdfgdf34jhg", off);
    EXPECT_EQ(currentUser(settings, user), "J\xFCrgen") << off;
  }
  for (const char* on : {"1", "True", "-1"}) {
    settings.saveOption("dfgdfgdf34jhg", on);
    EXPECT_EQ(currentUser(settings, user), "Somebody") << on;
  }
  settings.deleteIfPresent(kOptions, "dsfgs56djfhgysdjig");
  EXPECT_EQ(currentUser(settings, user), "");
  settings.saveOption("dfgdfgdf34jhg", "0");
  EXPECT_EQ(currentUser(settings, FixedUser("")), "");
}

}  // namespace
}  // namespace kolvane::frame
