// What every settings tree promises, run on the stand-in and on the SQLite file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "adapters/sqlite/sqlite_tree_store.h"
#include "base/error.h"
#include "platform/memory_tree_store.h"
#include "platform/temporary_folder.h"

namespace kolvane::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct InMemory {
  MemoryTreeStore store;
};
struct SqliteInMemory {
  adapters::SqliteTreeStore store{":memory:"};
};
struct SqliteFile {
  test::TemporaryFolder folder;
  adapters::SqliteTreeStore store{folder.path("settings.db")};
};

template <typename Subject>
class TreeStoreContract : public testing::Test {
 protected:
  void put(const std::string& path, const std::string& name, const std::string& text) {
    store.write(path, {name, ValueType::kString, text});
  }
  std::string text(const std::string& path, const std::string& name) {
    const auto found = store.read(path, name);
    return found ? found->text : "(none)";
  }
  std::vector<std::string> names(const std::string& path) {
    std::vector<std::string> result;
    for (const StoredValue& value : store.values(path)) result.push_back(value.name);
    return result;
  }

  Subject subject;
  TreeStore& store = subject.store;
};

using Subjects = testing::Types<InMemory, SqliteInMemory, SqliteFile>;
TYPED_TEST_SUITE(TreeStoreContract, Subjects);

TYPED_TEST(TreeStoreContract, KeepsTextsByteForByte) {
  const std::string nul("a\0b", 3);
  for (const std::string& text :
       {std::string(), std::string("line\r\nline"), nul, std::string("£ ž \xF0\x9F\x98\x80"),
        std::string("\xFF raw"), std::string(300'000, 'x')}) {
    this->put("A\\B", "v", text);
    EXPECT_EQ(this->text("A\\B", "v"), text);
    EXPECT_EQ(this->store.values("A\\B").at(0).text, text);
  }
  this->store.write("A\\B", {"v", ValueType::kNumber, "-7"});
  const auto number = this->store.read("A\\B", "v");
  ASSERT_TRUE(number);
  EXPECT_EQ(number->type, ValueType::kNumber);
  EXPECT_EQ(number->text, "-7");
}

TYPED_TEST(TreeStoreContract, MissingIsNotEmpty) {
  this->put("Section", "empty", "");
  EXPECT_EQ(this->text("Section", "empty"), "");
  EXPECT_EQ(this->text("Section", "other"), "(none)");
  EXPECT_EQ(this->text("Elsewhere", "empty"), "(none)");
  EXPECT_FALSE(this->store.keyExists("Sect"));
  EXPECT_THAT(this->store.values("Elsewhere"), IsEmpty());
  EXPECT_THAT(this->store.keys("Elsewhere"), IsEmpty());
}

TYPED_TEST(TreeStoreContract, NamesCompareWithoutAsciiCaseAndKeepTheirFirstSpelling) {
  this->put("Software\\Any Project", "VB.TextBox", "1");
  this->put("SOFTWARE\\ANY PROJECT", "vb.textbox", "2");
  EXPECT_EQ(this->text("software\\any project", "VB.TEXTBOX"), "2");
  EXPECT_THAT(this->names("Software\\Any Project"), ElementsAre("VB.TextBox"));
  EXPECT_THAT(this->store.keys(""), ElementsAre("Software"));
  EXPECT_THAT(this->store.keys("softWARE"), ElementsAre("Any Project"));
  // Beyond ASCII, case makes two names.
  this->put("Software", "Ä", "big");
  this->put("Software", "ä", "small");
  EXPECT_EQ(this->text("Software", "Ä"), "big");
}

TYPED_TEST(TreeStoreContract, OrderIsThatOfTheFirstCreation) {
  for (const char* name : {"zz", "10", "9", "", "a b", "AA"}) this->put("S", name, "first");
  this->put("S", "10", "again");
  EXPECT_THAT(this->names("S"), ElementsAre("zz", "10", "9", "", "a b", "AA"));
  EXPECT_TRUE(this->store.removeValue("S", "ZZ"));
  EXPECT_TRUE(this->store.removeValue("S", "aa"));
  this->put("S", "AA", "back");
  this->put("S", "zz", "back");
  EXPECT_THAT(this->names("S"), ElementsAre("10", "9", "", "a b", "AA", "zz"));

  for (const char* key : {"P\\two", "P\\one\\deep", "P\\three"}) this->put(key, "v", "");
  this->put("P\\one", "v", "");
  EXPECT_THAT(this->store.keys("P"), ElementsAre("two", "one", "three"));
  this->store.removeKey("P\\two");
  this->put("P\\two", "v", "");
  EXPECT_THAT(this->store.keys("P"), ElementsAre("one", "three", "two"));
}

TYPED_TEST(TreeStoreContract, ValuesOfOneNameInManyKeysAreApart) {
  this->put("", "v", "root");
  this->put("A", "v", "a");
  this->put("A\\B", "v", "ab");
  this->put("A B", "v", "a b");
  EXPECT_EQ(this->text("", "v") + this->text("A", "v") + this->text("A\\B", "v") + this->text("A B", "v"),
            "rootaaba b");
  EXPECT_THAT(this->store.keys(""), ElementsAre("A", "A B"));
}

TYPED_TEST(TreeStoreContract, StrayBackslashesDoNotMakeKeys) {
  this->put("\\A\\\\B\\", "v", "1");
  EXPECT_EQ(this->text("A\\B", "v"), "1");
  EXPECT_TRUE(this->store.keyExists("A\\"));
  EXPECT_THAT(this->store.keys("\\"), ElementsAre("A"));
}

TYPED_TEST(TreeStoreContract, RemovingAKeyTakesAllBelowItAndNothingBeside) {
  for (const char* key : {"A", "A\\B", "A\\B\\C", "A\\BB", "A B", "a-"}) this->put(key, "v", key);
  EXPECT_TRUE(this->store.removeKey("a\\b"));
  EXPECT_FALSE(this->store.removeKey("a\\b"));
  EXPECT_FALSE(this->store.keyExists("A\\B\\C"));
  EXPECT_EQ(this->text("A\\B\\C", "v"), "(none)");
  EXPECT_THAT(this->store.keys("A"), ElementsAre("BB"));
  EXPECT_EQ(this->text("A", "v"), "A");
  EXPECT_TRUE(this->store.removeKey("A"));
  EXPECT_THAT(this->store.keys(""), ElementsAre("A B", "a-"));
  EXPECT_FALSE(this->store.removeValue("A B", "w"));
  EXPECT_FALSE(this->store.removeValue("nowhere", "v"));

  this->put("", "v", "root");
  EXPECT_TRUE(this->store.removeKey(""));
  EXPECT_THAT(this->store.keys(""), IsEmpty());
  EXPECT_EQ(this->text("", "v"), "(none)");
  this->put("A", "v", "new");
  EXPECT_EQ(this->text("A", "v"), "new");
}

TYPED_TEST(TreeStoreContract, AnExceptionUndoesAnUpdate) {
  this->put("S", "kept", "old");
  this->put("Gone", "v", "old");
  EXPECT_THROW(this->store.update([&] {
    this->put("S", "kept", "new");
    this->put("New\\Key", "v", "1");
    this->store.removeKey("Gone");
    EXPECT_EQ(this->text("S", "kept"), "new");
    throw std::runtime_error("no");
  }),
               std::runtime_error);
  EXPECT_EQ(this->text("S", "kept"), "old");
  EXPECT_EQ(this->text("Gone", "v"), "old");
  EXPECT_FALSE(this->store.keyExists("New"));
  // The store goes on as if nothing had been.
  this->store.update([&] { this->put("S", "kept", "new"); });
  EXPECT_EQ(this->text("S", "kept"), "new");
}

TYPED_TEST(TreeStoreContract, AnInnerUpdateFailsAloneAndFallsWithTheOuterOne) {
  this->store.update([&] {
    this->put("S", "outer", "1");
    EXPECT_THROW(this->store.update([&] {
      this->put("S", "inner", "1");
      this->store.update([&] { this->put("S", "innermost", "1"); });
      throw std::runtime_error("no");
    }),
                 std::runtime_error);
    this->put("S", "after", "1");
  });
  EXPECT_THAT(this->names("S"), ElementsAre("outer", "after"));

  EXPECT_THROW(this->store.update([&] {
    this->store.update([&] { this->put("S", "done", "1"); });
    throw std::runtime_error("no");
  }),
               std::runtime_error);
  EXPECT_THAT(this->names("S"), ElementsAre("outer", "after"));
}

TYPED_TEST(TreeStoreContract, ANameWithANulIsRefused) {
  const std::string nul("a\0b", 3);
  EXPECT_THROW(this->put("S", nul, ""), base::Error);
  EXPECT_THROW(this->put(nul, "v", ""), base::Error);
  EXPECT_FALSE(this->store.keyExists("S"));
}

}  // namespace
}  // namespace kolvane::platform
