#include "source/text_utilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "frame/key_filters.h"
#include "source/array_helpers.h"
#include "source/form_utilities.h"
#include "source/identifiers.h"
#include "source/paths.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

using frame::Letters_And_Digits_Only;
using frame::Letters_Only;
using frame::Name_Chars_Only;
using frame::Numbers_Only;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextUtilities, CapitalizeKeepsBlanksAndOtherLetters) {
  test::TestHost host;
  EXPECT_EQ(Capitalize(host.services(), "  two  little wORDS "), "Two  Little WORDS");
  EXPECT_EQ(Capitalize(host.services(), "\xE9t\xE9 \xFC"), "\xC9t\xE9 \xDC");
  EXPECT_EQ(Capitalize(host.services(), ""), "");
}

TEST(TextUtilities, CutAndClean) {
  EXPECT_EQ(Trim_CRs("\r\n\n a\r\nb \n\r"), " a\r\nb ");
  EXPECT_EQ(Trim_CRs("\r\n"), "");
  EXPECT_THAT(SplitLineToArray("1234567890", 5), ElementsAre("12345", "67890"));
  EXPECT_THAT(SplitLineToArray("12345678901", 5), ElementsAre("12345", "67890", "1"));
  EXPECT_THAT(SplitLineToArray("1234", 5), ElementsAre("1234"));
  EXPECT_THAT(SplitLineToArray("", 5), IsEmpty());
  EXPECT_THROW(SplitLineToArray("1234", 0), base::Error);
  EXPECT_EQ(RemovevbLfFromString("a, \r\n     b\n\n  c "), "a, \rbc ");
  EXPECT_EQ(AddBlankSpaceToTextInMultiLineTextBoxString("a\r\nb"), "a \r\nb");
  EXPECT_EQ(RemoveSingleAmps("&File && E&xit"), "File & Exit");
  EXPECT_EQ(RemoveSingleAmps("&&&"), "&");
  EXPECT_EQ(RemoveBracket("txtName(2)"), "txtName");
  EXPECT_EQ(RemoveBracket("txtName"), "txtName");
  EXPECT_EQ(GetFirstPart("a/b/c"), "a");
  EXPECT_EQ(GetSecondPart("a/b/c"), "b");
  EXPECT_EQ(GetSecondPart("a/b"), "b");
  EXPECT_EQ(GetSecondPart("a"), "");
  EXPECT_EQ(ReturnStringFromUpperCase("btnSave"), "Save");
  EXPECT_EQ(ReturnStringFromUpperCase("save"), "save");
  EXPECT_EQ(ReturnStringFromUpperCase(""), "");
  EXPECT_EQ(FindFirstNonSpaceChar("   x "), 3);
  EXPECT_EQ(FindFirstNonSpaceChar("   "), 0);
  EXPECT_EQ(White_Space("   "), 3);
  EXPECT_EQ(Remove_Char("a_b_", "_"), "ab");
  EXPECT_EQ(Count_Occurrences("a, b, c", ","), 2);
  EXPECT_EQ(Count_Occurrences("", ","), 0);
  EXPECT_TRUE(IsLetter("Zeile"));
  EXPECT_FALSE(IsLetter("_x"));
  EXPECT_FALSE(IsLetter(""));
  EXPECT_EQ(Floor(-7, -2), -8);
  EXPECT_EQ(Floor(7.5, 2.5), 7.5);
  EXPECT_THROW(Floor(7, 0), base::Error);
}

TEST(TextUtilities, ExtractValueReadsTheSubjectOfAPage) {
  EXPECT_EQ(ExtractValue("<A HREF=\"(modMain) Procedure (Save).html\">Save</A>", "Procedure"), "Save");
  EXPECT_EQ(ExtractValue("(modMain) Module Variable (mlngCount).html", "Module"), "mlngCount");
  EXPECT_EQ(ExtractValue("(modMain) Constant (MAX).html", "Procedure"), "(modMain) Constant (MAX).html");
  EXPECT_EQ(ExtractValue("(modMain) Procedure (Save).html", "Other"), "(modMain) Procedure (Save).html");
}

TEST(Identifiers, AreFoundAroundAPosition) {
  constexpr std::string_view kText = "x = strName1 + 2";
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 7), "strName1");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 5), "strName1");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 4), "strName1");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 3), "");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 0), "x");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 16), "2");
  EXPECT_EQ(GetAlphaNumericCharactersFromPosition(kText, 17), "");
  EXPECT_EQ(ExtractElementFromVariable("mstrTitle", "name"), "Title");
  EXPECT_EQ(ExtractElementFromVariable("mstrTitle", "type"), "str");
  EXPECT_EQ(ExtractElementFromVariable("Count", "type"), "");
  EXPECT_EQ(ExtractElementFromVariable("count", "name"), "");
  EXPECT_FALSE(holdsWord("Function MySubmit(", "Sub"));
  EXPECT_FALSE(holdsWord("Function Sub_Total(", "Sub"));
  EXPECT_TRUE(holdsWord("Private Sub A(", "Sub"));
  EXPECT_EQ(removeWord("Sub SubFunction Sub", "Sub"), " SubFunction ");
}

TEST(ArrayHelpers, MoveArrayElementsPartsOneAndKeepsTheLast) {
  std::vector<std::string> list{"one", "twothree", "four", "five", "last"};
  MoveArrayElements(list, 1, 4);
  EXPECT_THAT(list, ElementsAre("one", "two", "three", "four", "last"));
  EXPECT_THROW(MoveArrayElements(list, 4, 1), base::Error);
}

TEST(ArrayHelpers, AskAndExtend) {
  EXPECT_THAT(ReplaceStringInSplitArray({"a", "b", "c"}, ","), ElementsAre("a,", "b,", "c"));
  EXPECT_TRUE(BlankRowInArray({"a", "  "}));
  EXPECT_FALSE(BlankRowInArray({"a"}));
  EXPECT_EQ(LatestNonBlankIndex({"a", "b", " ", ""}), 2);
  EXPECT_EQ(LatestNonBlankIndex({"a", "b"}), 0);
}

TEST(Paths, AreTakenApart) {
  EXPECT_EQ(AddSlashToPath(" C:\\Work "), "C:\\Work\\");
  EXPECT_EQ(AddSlashToPath("C:\\"), "C:\\");
  EXPECT_EQ(GetPath("C:\\Work\\a.bas"), "C:\\Work\\");
  EXPECT_EQ(GetPath("a.bas"), "a.bas");
  EXPECT_EQ(GetFileName("C:\\Work\\a.b.bas"), "a.b");
  EXPECT_EQ(GetFileName("C:\\Work\\a.bas", true), "a.bas");
  EXPECT_EQ(GetFileName("C:\\Work\\a.bas", false, true), ".bas");
  EXPECT_EQ(GetFileName("C:\\Work.old\\a", false, true), "");
  EXPECT_EQ(GetFileName("a.bas", true), "");
  EXPECT_TRUE(IsSourceFileExtension(".FRM"));
  EXPECT_FALSE(IsSourceFileExtension("frm"));
  EXPECT_FALSE(IsSourceFileExtension(".frx"));
}

TEST(Paths, ReadOnlyIsWhatTheAttributesSay) {
  test::TestHost host;
  platform::Files& files = host.services().files;
  files.replace("/p/a.bas", "x");
  EXPECT_FALSE(IsFileReadOnly(host.services(), "/p/a.bas"));
  files.setAttributes("/p/a.bas", platform::kAttributeReadOnly | platform::kAttributeArchive);
  EXPECT_TRUE(IsFileReadOnly(host.services(), "/p/a.bas"));
  EXPECT_FALSE(IsFileReadOnly(host.services(), "  "));
  EXPECT_THROW(IsFileReadOnly(host.services(), "/p/none.bas"), base::Error);
}

TEST(KeyFilters, PassWhatTheyName) {
  constexpr std::string_view kKeys = "a_9.-( \x08\x16";
  const auto passed = [kKeys](int (*filter)(int)) {
    std::string all;
    for (const char key : kKeys)
      if (filter(key) == key) all.push_back(key);
    return all;
  };
  EXPECT_EQ(passed(Numbers_Only), "9(\x08\x16");
  EXPECT_EQ(passed(Letters_Only), "a_(\x08\x16");
  EXPECT_EQ(passed(Letters_And_Digits_Only), "a_9(\x08\x16");
  EXPECT_EQ(passed(Name_Chars_Only), "a_9.(\x08\x16");
  EXPECT_EQ(Numbers_Only('-'), 0);
}

TEST(FormUtilities, AKeyboardSelectsAllAndTheMouseNothing) {
  EXPECT_EQ(HighlightOnTabEntry({}), TabEntryAction::kSelectNothing);
  EXPECT_EQ(HighlightOnTabEntry({.tabDown = true}), TabEntryAction::kSelectAll);
  EXPECT_EQ(HighlightOnTabEntry({.altDown = true, .textFits = false}), TabEntryAction::kSelectBackwards);
}

}  // namespace
}  // namespace kolvane::source
