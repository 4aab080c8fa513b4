#include "frame/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "frame/ini_file.h"
#include "frame/project_settings.h"
#include "frame/window_placement.h"
#include "platform/files.h"
#include "platform/memory_tree_store.h"

namespace kolvane::frame {
namespace {

using platform::ValueType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr RegistryRoot kUser = RegistryRoot::kCurrentUser;

class SettingsTest : public testing::Test {
 protected:
  platform::MemoryTreeStore store;
  Settings settings{store, base::CodePage::get(1252)};
};

long numberOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

TEST_F(SettingsTest, NamedValuesKeepOrderAndTakeNamesWithoutCase) {
  settings.SaveSetting("ADP95", "str", "String");
  settings.SaveSetting("ADP95", "bln", "");
  settings.SaveSetting("adp95", "STR", "Text");
  EXPECT_THAT(settings.GetAllSettings("ADP95"), ElementsAre(Pair("str", "Text"), Pair("bln", "")));
  EXPECT_EQ(settings.GetSetting("ADP95", "Bln", "default"), "");
  EXPECT_EQ(settings.GetSetting("ADP95", "xyz", "default"), "default");
  EXPECT_EQ(settings.GetSetting("ADP95", "xyz"), "");
  EXPECT_THAT(settings.GetAllSettings("WCW92"), IsEmpty());
}

TEST_F(SettingsTest, DeletingWhatIsNotThereRaises5) {
  EXPECT_EQ(numberOf([&] { settings.DeleteSetting("WCW92"); }), 5);
  EXPECT_EQ(numberOf([&] { settings.DeleteSetting("WCW92", "do"); }), 5);
  settings.SaveSetting("WCW92", "do", "DoEvents");
  EXPECT_EQ(numberOf([&] { settings.DeleteSetting("WCW92", "un"); }), 5);
  settings.DeleteSetting("WCW92", "DO");
  EXPECT_THAT(settings.GetAllSettings("WCW92"), IsEmpty());
  settings.DeleteSetting("WCW92");
  EXPECT_EQ(numberOf([&] { settings.DeleteSetting("WCW92"); }), 5);
}

TEST_F(SettingsTest, TextsAreInTheCodePageHereAndUtf8InTheStore) {
  settings.SaveSetting("Options", "na\xEFve", "\x80 uro");
  const auto stored =
      store.read("HKEY_CURRENT_USER\\SOFTWARE\\VB and VBA Program Settings\\KolvaneLite\\Options", "naïve");
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->text, "€ uro");
  EXPECT_THAT(settings.GetAllSettings("Options"), ElementsAre(Pair("na\xEFve", "\x80 uro")));

  // Written under another code page: refused by name, missing for a raw read.
  store.write("HKEY_CURRENT_USER\\" + sectionPath("Options"), {"name", ValueType::kString, "Жук"});
  EXPECT_EQ(numberOf([&] { settings.option("name"); }), 5);
  EXPECT_EQ(settings.ReadRegistryValue(kUser, sectionPath("Options"), "name"), "Not Found");
}

TEST_F(SettingsTest, RawReadsFormatByKind) {
  settings.WriteRegistryValue(kUser, "A\\B", "small", 4, "7");
  settings.WriteRegistryValue(kUser, "A\\B", "large", 4, "123456");
  settings.WriteRegistryValue(kUser, "A\\B", "negative", 4, "-5");
  settings.WriteRegistryValue(kUser, "A\\B", "text", 1, "007 ");
  settings.WriteRegistryValue(kUser, "A\\B", "other", 2, "");
  store.write("HKEY_CURRENT_USER\\A\\B", {"bytes", ValueType::kBinary, "0AFF"});
  const auto read = [&](std::string_view name) { return settings.ReadRegistryValue(kUser, "A\\B\\", name); };
  EXPECT_EQ(read("small"), "007");
  EXPECT_EQ(read("large"), "123456");
  EXPECT_EQ(read("negative"), "-005");
  EXPECT_EQ(read("text"), "007 ");
  EXPECT_EQ(read("OTHER"), "");
  EXPECT_EQ(read("bytes"), "0AFF");
  EXPECT_EQ(read("missing"), "Not Found");
  EXPECT_EQ(settings.ReadRegistryValue(kUser, "A\\C", "small"), "Not Found");
  EXPECT_EQ(settings.ReadRegistryValue(RegistryRoot::kLocalMachine, "A\\B", "small"), "Not Found");
  EXPECT_EQ(read(std::string_view("a\0b", 3)), "Not Found");
}

TEST_F(SettingsTest, ARawReadTakesTextsUpToItsBuffer) {
  const std::string path = sectionPath("Control Coder\\P\\T");
  settings.WriteRegistryValue(kUser, path, "fits", 1, std::string(2047, 'x'));
  settings.WriteRegistryValue(kUser, path, "too long", 1, std::string(2048, 'x'));
  settings.WriteRegistryValue(kUser, path, "umlauts", 1, std::string(2047, '\xE4'));
  EXPECT_EQ(settings.ReadRegistryValue(kUser, path, "fits").size(), 2047u);
  EXPECT_EQ(settings.ReadRegistryValue(kUser, path, "umlauts").size(), 2047u);
  EXPECT_EQ(settings.ReadRegistryValue(kUser, path, "too long"), "Not Found");
  const RegistryValue value = settings.EnumRegistryValue(kUser, path, 1);
  EXPECT_EQ(value.name + "/" + value.data, "too long/Not Found");
  // Nothing is lost: the whole key gives it.
  EXPECT_EQ(settings.values(kUser, path).at(1).data.size(), 2048u);
}

TEST_F(SettingsTest, EnumerationEndsInNotFound) {
  settings.WriteRegistryValue(kUser, "K\\z", "v2", 1, "b");
  settings.WriteRegistryValue(kUser, "K\\a", "n", 4, "3");
  settings.WriteRegistryValue(kUser, "K\\z", "v1", 1, "a");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "K", 0), "z");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "k", 1), "a");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "K", 2), "Not Found");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "K", -1), "Not Found");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "missing", 0), "Not Found");
  const auto value = [&](std::string_view path, int index) {
    const RegistryValue found = settings.EnumRegistryValue(kUser, path, index);
    return found.type + "/" + found.name + "/" + found.data;
  };
  EXPECT_EQ(value("K\\z", 0), "1/v2/b");
  EXPECT_EQ(value("K\\z", 1), "1/v1/a");
  EXPECT_EQ(value("K\\a", 0), "4/n/003");
  EXPECT_EQ(value("K\\a", 1), "/Not Found/Not Found");
}

TEST_F(SettingsTest, AWalkSeesWhatIsDeletedAndWrittenOnTheWay) {
  for (const char* name : {"a", "b", "c", "d"}) settings.WriteRegistryValue(kUser, "K", name, 1, name);
  EXPECT_EQ(settings.EnumRegistryValue(kUser, "K", 0).name, "a");
  EXPECT_EQ(settings.EnumRegistryValue(kUser, "K", 1).name, "b");
  settings.DeleteRegistryValue(kUser, "k\\", "B");
  EXPECT_EQ(settings.EnumRegistryValue(kUser, "K", 1).name, "c");
  settings.WriteRegistryValue(kUser, "K", "d", 1, "new");
  EXPECT_EQ(settings.EnumRegistryValue(kUser, "K", 2).data, "new");
  settings.WriteRegistryValue(kUser, "K\\x", "v", 1, "");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "K", 0), "x");
  settings.WriteRegistryValue(kUser, "K\\y", "v", 1, "");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "K", 1), "y");
  settings.DeleteRegistryTree(kUser, "K");
  EXPECT_EQ(settings.EnumRegistryValue(kUser, "K", 2).name, "Not Found");
}

TEST_F(SettingsTest, AKeyWithSubkeysIsDeletedOnlyAsATree) {
  settings.WriteRegistryValue(kUser, "K\\sub", "v", 1, "");
  settings.WriteRegistryValue(kUser, "K", "v", 1, "stays");
  settings.DeleteRegistryKey(kUser, "K");
  EXPECT_EQ(settings.ReadRegistryValue(kUser, "K", "v"), "stays");
  settings.DeleteRegistryKey(kUser, "K\\sub");
  settings.DeleteRegistryKey(kUser, "K\\");
  EXPECT_EQ(settings.ReadRegistryValue(kUser, "K", "v"), "Not Found");
  settings.WriteRegistryValue(kUser, "K\\sub", "v", 1, "");
  settings.DeleteRegistryTree(kUser, "K");
  EXPECT_EQ(settings.EnumRegistryKey(kUser, "", 0), "Not Found");
  settings.DeleteRegistryKey(kUser, "K");
  settings.DeleteRegistryTree(kUser, "K");
  settings.DeleteRegistryValue(kUser, "K", "v");
}

TEST_F(SettingsTest, TheLocalMachineHasATreeOfItsOwn) {
  settings.WriteRegistryValue(RegistryRoot::kLocalMachine, "SOFTWARE\\X", "v", 1, "machine");
  settings.WriteRegistryValue(kUser, "SOFTWARE\\X", "v", 1, "user");
  EXPECT_EQ(settings.ReadRegistryValue(RegistryRoot::kLocalMachine, "SOFTWARE\\X", "v"), "machine");
  settings.DeleteRegistryTree(kUser, "SOFTWARE");
  EXPECT_EQ(settings.ReadRegistryValue(RegistryRoot::kLocalMachine, "SOFTWARE\\X", "v"), "machine");
}

// ---- sets for each project

class ProjectSettingsTest : public SettingsTest {
 protected:
  ProjectSettings builder{settings, "PBO36", "PBDS37"};
};

TEST_F(ProjectSettingsTest, TheProjectsOwnSetWinsAsAWhole) {
  EXPECT_EQ(builder.find("Bank"), std::nullopt);
  builder.save("Any Project", {{"PBDS37", "1"}, {"PBDT38", "1"}});
  EXPECT_EQ(builder.find("Bank"), "Any Project");
  builder.save("Bank", {{"PBDS37", "0"}});
  EXPECT_EQ(builder.find("Bank"), "Bank");
  EXPECT_EQ(builder.find("bank"), "bank");
  // A value that the set lacks does not come from the shared set.
  EXPECT_EQ(builder.read("Bank", "PBDT38"), "Not Found");
  EXPECT_EQ(builder.read("Bank", "PBDT38", "0"), "0");
  // The first value decides, not the key.
  builder.write("Shop", "PBDT38", "1");
  EXPECT_EQ(builder.find("Shop"), "Any Project");
  // A text that says so counts as missing.
  builder.write("Bank", "PBDS37", "Not Found");
  EXPECT_EQ(builder.find("Bank"), "Any Project");
  builder.save("Any Project", {{"PBDS37", "2"}});
  EXPECT_EQ(builder.read("Any Project", "PBDT38"), "Not Found");
}

TEST_F(ProjectSettingsTest, AProjectCalledAnyProjectSharesTheSharedSet) {
  builder.save(kAnyProject, {{"PBDS37", "1"}});
  EXPECT_EQ(builder.find("Any Project"), "Any Project");
  EXPECT_EQ(settings.ReadRegistryValue(kUser, sectionPath("PBO36\\Any Project"), "PBDS37"), "1");
}

TEST_F(ProjectSettingsTest, CopyingPutsOneSetInThePlaceOfAnother) {
  ProjectSettings coder{settings, "Control Coder", ""};
  const auto put = [&](const std::string& key, std::string_view name, std::string_view text) {
    settings.WriteRegistryValue(kUser, sectionPath("Control Coder\\" + key), name, 1, text);
  };
  const std::string longCode(5000, 'x');
  put("Bank\\VB.TextBox", "Change()", longCode);
  put("Bank\\VB.TextBox", "_CreateHeaderChange()", "1");
  put("Bank", "VB.TextBox - ConfirmYN", "1");
  put("Shop\\VB.Label", "Click()", "old");
  EXPECT_THAT(coder.otherLevels("Shop"), ElementsAre("Bank"));
  coder.copy("Bank", "Shop");
  EXPECT_THAT(settings.keyNames(kUser, coder.path("Shop")), ElementsAre("VB.TextBox"));
  const auto values = settings.values(kUser, coder.path("Shop\\VB.TextBox"));
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].name, "Change()");
  EXPECT_EQ(values[0].data, longCode);
  EXPECT_EQ(coder.read("Shop", "VB.TextBox - ConfirmYN"), "1");
  coder.copy("Bank", "BANK");
  EXPECT_THAT(coder.levels(), ElementsAre("Bank", "Shop"));
  coder.remove("Bank");
  EXPECT_THAT(coder.levels(), ElementsAre("Shop"));
  // Without a project there is nothing to remove.
  coder.remove("");
  EXPECT_THAT(coder.levels(), ElementsAre("Shop"));
}

// ---- where windows stand

TEST_F(SettingsTest, WindowPlacementsAreRememberedOnlyWhenAsked) {
  const WindowPlacement fresh;
  EXPECT_EQ(fresh, (WindowPlacement{500, 500, 3000, 3000}));
  EXPECT_EQ(RestoreWindowPlacement(settings, "Search"), fresh);
  const WindowPlacement moved{-120, 40, 9000, 7000};
  for (const char* off : {"", "0", "False"}) {
    settings.saveOption("seg360nsdgdg", off);
    SaveWindowPlacement(settings, "Search", moved);
    EXPECT_EQ(RestoreWindowPlacement(settings, "Search"), fresh);
  }
  settings.saveOption("seg360nsdgdg", "1");
  SaveWindowPlacement(settings, "Search", moved);
  EXPECT_EQ(RestoreWindowPlacement(settings, "Search"), moved);
  EXPECT_EQ(settings.option("Seft185"), "-120");
  EXPECT_EQ(settings.option("Seht188"), "7000");
  EXPECT_EQ(RestoreWindowPlacement(settings, "SO67"), fresh);
}

TEST_F(SettingsTest, AnUnknownWindowIsNotRemembered) {
  settings.saveOption("seg360nsdgdg", "1");
  const auto before = settings.GetAllSettings(kOptions);
  SaveWindowPlacement(settings, "Nobody", {1, 2, 3, 4});
  EXPECT_EQ(settings.GetAllSettings(kOptions), before);
  EXPECT_EQ(RestoreWindowPlacement(settings, "Nobody"), WindowPlacement{});
  EXPECT_EQ(GetLeftAndTop("Nobody").left, "");
  EXPECT_EQ(GetLeftAndTop("General Options").height, "Gn263t");
}

// ---- INI-style files

TEST(IniFile, ReadsOneEntry) {
  const auto files = platform::makeMemoryFiles();
  files->replace("/p/mssccprj.scc",
                 "; made by hand\r\n"
                 "[Bank.vbp]\r\n"
                 "SCC_Aux_Path = \"\\\\server\\vss\\\"\r\n"
                 "SCC_Project_Name = \"$/Bank\", ABCDAAAA\r\n"
                 ";SCC_Provider=no\r\n"
                 "empty=\r\n"
                 "long=" +
                     std::string(300, 'x') +
                     "\r\n"
                     "[ SHOP.VBP ]\n"
                     "scc_project_name=first\n"
                     "SCC_Project_Name=second");
  const auto get = [&](std::string_view section, std::string_view key) {
    return GetIniKeyValue(*files, "/p/mssccprj.scc", section, key, "none");
  };
  EXPECT_EQ(get("bank.VBP", "SCC_Project_Name"), "\"$/Bank\", ABCDAAAA");
  EXPECT_EQ(get("Bank.vbp", "scc_aux_path"), "\\\\server\\vss\\");
  EXPECT_EQ(get("Bank.vbp", "empty"), "");
  EXPECT_EQ(get("Bank.vbp", "SCC_Provider"), "none");
  EXPECT_EQ(get("Bank.vbp", "long").size(), 255u);
  EXPECT_EQ(get("Shop.vbp", "SCC_Project_Name"), "first");
  EXPECT_EQ(get("Shop.vbp", "empty"), "none");
  EXPECT_EQ(get("Other.vbp", "empty"), "none");
  EXPECT_EQ(GetIniKeyValue(*files, "/p/missing.ini", "a", "b", "none"), "none");
}

}  // namespace
}  // namespace kolvane::frame
