#include "frame/settings_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "base/error.h"
#include "frame/default_settings.h"
#include "frame/settings.h"
#include "platform/memory_tree_store.h"

namespace kolvane::frame {
namespace {

using platform::MemoryTreeStore;
using platform::TreeStore;
using platform::ValueType;
using testing::ElementsAre;
using testing::StartsWith;

// All that a store holds, in its order, one line a key or value.
std::string picture(TreeStore& store, const std::string& path = {}) {
  std::string out = "<" + path + ">\n";
  for (const auto& value : store.values(path))
    out += "  " + value.name + "|" + std::to_string(static_cast<int>(value.type)) + "|" + value.text + "\n";
  for (const std::string& key : store.keys(path))
    out += picture(store, path.empty() ? key : path + "\\" + key);
  return out;
}

void put(TreeStore& store, const std::string& path, const std::string& name, const std::string& text,
         ValueType type = ValueType::kString) {
  store.write(path, {name, type, text});
}

TEST(SettingsText, IsReadable) {
  MemoryTreeStore store;
  put(store, "Top\\Options", "DH7", "1");
  put(store, "Top\\Options", "path", "C:\\a \"b\"\r\n\tend");
  put(store, "Top\\Options", "count", "-7", ValueType::kNumber);
  put(store, "Top\\Options", "bytes", "0AFF", ValueType::kBinary);
  put(store, "Top\\Options\\100%", "€", "ž\x01");
  EXPECT_EQ(exportTree(store, "Top"), R"(KolvaneLite settings, format 1
tree [Top]

[Top\Options]
"DH7"="1"
"path"="C:\\a \"b\"\r\n\tend"
"count"=number:-7
"bytes"=binary:0AFF

[Top\Options\100%25]
"€"="ž\x01"
)");
}

TEST(SettingsText, ComesBackWhole) {
  MemoryTreeStore store;
  const std::string allBytes = [] {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
    return bytes + bytes;
  }();
  put(store, "", "at the root", "1");
  for (const char* key : {"B\\z", "B", "A\\] [x] ; \"q\"", "A\\%0A\nline\r", "A\\ blank ", "A\\\xFF"})
    put(store, key, "v", key);
  for (const std::string& text :
       {allBytes, std::string(), std::string("\xEF\xBB\xBF; [x]\n\"y\"=\"z\""), std::string(" number:5 "),
        std::string("\\"), std::string("\\\""), std::string("\xC3"), std::string("\xED\xA0\x80"),
        std::string(100'000, '"')})
    put(store, "B\\z", "n" + std::to_string(text.size()) + "=", text);
  put(store, "B\\z", "", "no name");
  put(store, "B\\z", "= \"; \n", "nasty name");
  put(store, "Empty\\below", "gone", "");
  store.removeValue("Empty\\below", "gone");

  const std::string before = picture(store);
  const std::string text = exportTree(store);
  MemoryTreeStore other;
  importTree(other, text);
  EXPECT_EQ(picture(other), before);
  EXPECT_EQ(exportTree(other), text);
  // Over a store that differs, and with another editor's line ends.
  put(other, "B\\z", "n0=", "changed");
  put(other, "New", "v", "");
  std::string windows = "\xEF\xBB\xBF";
  for (const char c : text) windows += c == '\n' ? std::string("\r\n") : std::string(1, c);
  importTree(other, windows);
  EXPECT_EQ(picture(other), before);
}

TEST(SettingsText, AllDefaultsComeBack) {
  MemoryTreeStore store;
  Settings settings{store, base::CodePage::get(1252)};
  ApplyDefaultSettings(settings, platform::FixedUser("User"));
  MemoryTreeStore other;
  importTree(other, exportTree(store));
  EXPECT_EQ(picture(other), picture(store));
}

TEST(SettingsText, APartReplacesOnlyItself) {
  MemoryTreeStore store;
  put(store, "Top\\A", "v", "old");
  put(store, "Top\\B", "v", "stays");
  const std::string text = exportTree(store, "top\\a");
  put(store, "Top\\A", "v", "new");
  put(store, "Top\\A", "w", "new");
  put(store, "Top\\A\\Deep", "v", "new");
  importTree(store, text);
  EXPECT_EQ(picture(store), "<>\n<Top>\n<Top\\A>\n  v|1|old\n<Top\\B>\n  v|1|stays\n");
}

TEST(SettingsText, MergingKeepsWhatTheTextDoesNotMention) {
  MemoryTreeStore store;
  put(store, "Top\\A", "v", "old");
  put(store, "Top\\A", "w", "kept");
  importTree(store, R"(KolvaneLite settings, format 1
tree [Top]
; a comment

[Top\A]
  "x"="1"
"V"="new"
)",
             ImportMode::kMerge);
  EXPECT_EQ(picture(store), "<>\n<Top>\n<Top\\A>\n  v|1|new\n  w|1|kept\n  x|1|1\n");
}

TEST(SettingsText, AFaultNamesItsLineAndChangesNothing) {
  const std::string head = "KolvaneLite settings, format 1\ntree [Top]\n";
  struct Case {
    std::string text;
    std::string description;
  };
  const std::vector<Case> cases{
      {"", "Line 1: this is no settings text, which begins with \"KolvaneLite settings, format 1\"."},
      {"[Top]\n", "Line 1: this is no settings text"},
      {"KolvaneLite settings, format 2\n", "Line 1: format 2 is not known, only format 1."},
      {"KolvaneLite settings, format 1\n\n", "Line 3: the tree is not named here."},
      {head + "\"a\"=\"b\"\n", "Line 3: a value stands here before any key."},
      {head + "[Top\n", "Line 3: a \"]\" is missing."},
      {head + "[Topless]\n", "Line 3: this key is not in the tree [Top]."},
      {head + "[Top\\%4]\n", "Line 3: two hexadecimal digits are missing behind \"%\"."},
      {head + "[Top\\%00]\n", "Line 3: a key's name cannot hold a NUL character."},
      {head + "[Top]\na=1\n", "Line 4: the value's name is not in quotes."},
      {head + "[Top]\n\"a=1\n", "Line 4: the quote that ends the value's name is missing."},
      {head + "[Top]\n\"a\" \"1\"\n", "Line 4: a \"=\" is missing behind the name."},
      {head + "[Top]\n\"a\"=1\n", "Line 4: the text is not in quotes."},
      {head + "[Top]\n\"a\"=\"1\n", "Line 4: the quote that ends the text is missing."},
      {head + "[Top]\n\"a\"=\"1\\\"\n", "Line 4: the quote that ends the text is missing."},
      {head + "[Top]\n\"a\"=\"\\q\"\n", "Line 4: \"\\\" stands before a character"},
      {head + "[Top]\n\"a\"=\"\\x4\"\n", "Line 4: two hexadecimal digits are missing behind \"\\x\"."},
      {head + "[Top]\n\"a\"=\"1\" 2\n", "Line 4: nothing may stand behind the text."},
      {head + "[Top]\n\"a\"=number:1.5\n", "Line 4: \"number:\" wants a whole number"},
      {head + "[Top]\n\"a\"=binary:ABC\n", "Line 4: \"binary:\" wants pairs"},
      {head + "[Top]\n\"a\"=\"1\"\n\n\"A\"=\"2\"\n", "Line 6: the value \"A\" stands here twice."},
      {head + "[Top]\n\"a\"=\"\xE4\"\n", "Line 4: the text is not valid UTF-8."},
  };
  MemoryTreeStore store;
  put(store, "Top", "v", "old");
  const std::string before = picture(store);
  for (const Case& each : cases) {
    try {
      importTree(store, each.text);
      ADD_FAILURE() << "taken: " << each.text;
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), base::errors::kInvalidFormat);
      EXPECT_THAT(error.description(), StartsWith(each.description));
    }
    EXPECT_EQ(picture(store), before);
  }
}

TEST(SettingsText, AMissingKeyCannotBeExported) {
  MemoryTreeStore store;
  EXPECT_THROW(exportTree(store, "Nowhere"), base::Error);
}

}  // namespace
}  // namespace kolvane::frame
