#include "source/line_tests.h"

#include <gtest/gtest.h>

#include "source/comments.h"
#include "source/line_kinds.h"
#include "source/line_numbers.h"

namespace kolvane::source {
namespace {

struct TitleCase {
  std::string_view text;
  bool procedure;
  bool property;
  bool upperCaseHeader;
};

// The three lists of titles differ; what one takes another may leave.
TEST(LineTests, TellTitlesApart) {
  constexpr TitleCase kCases[] = {
      {"Public Sub Save()", true, false, true},
      {"Private Function Load() As Boolean", true, false, true},
      {"    Sub Indented()", true, false, false},
      {"\tSub Tabbed()", true, false, false},
      {"Static Function Once() As Long", true, false, true},
      {"Private Static Sub Once()", true, false, false},
      {"Friend Sub Save()", false, false, false},
      {"Property Get Name() As String", false, true, false},
      {"Private Property Let Name(ByVal strName As String)", false, true, true},
      {"Friend Property Get Name() As String", false, false, false},
      {"Propertyless = 1", false, false, false},
      {"Subtotal = 3", true, false, true},
      {"Functions.Add objOne", true, false, true},
      {"public sub Save()", false, false, true},
      {"End Sub", false, false, false},
      {"Exit Function", false, false, false},
      {"Private Declare Function GetTick Lib \"kernel32\" () As Long", false, false, false},
      {"' Sub Old()", false, false, false},
      {"", false, false, false},
  };
  for (const TitleCase& each : kCases) {
    EXPECT_EQ(Is_Procedure_Title(each.text), each.procedure) << each.text;
    EXPECT_EQ(Is_Property_Title(each.text), each.property) << each.text;
    EXPECT_EQ(Are_We_On_Procedure_Header(each.text), each.upperCaseHeader) << each.text;
  }
}

TEST(LineTests, TellOtherLines) {
  EXPECT_TRUE(Are_We_At_End_Of_Procedure("EXIT SUB"));
  EXPECT_TRUE(Are_We_At_End_Of_Procedure("END FUNCTION ' DONE"));
  EXPECT_FALSE(Are_We_At_End_Of_Procedure("END PROPERTY"));
  EXPECT_FALSE(Are_We_At_End_Of_Procedure("End Sub"));
  EXPECT_TRUE(Is_Blank_Line("  \t "));
  EXPECT_FALSE(Is_Blank_Line(" ' "));
  EXPECT_TRUE(Is_Comment_Line("\t '* note"));
  EXPECT_FALSE(Is_Comment_Line("x = 1 ' note"));
  EXPECT_TRUE(Is_Numbered_Line("10 Exit Sub"));
  EXPECT_FALSE(Is_Numbered_Line(" 10 Exit Sub"));
  EXPECT_FALSE(Is_Numbered_Line(""));
  EXPECT_TRUE(Is_Dim_Line("   Dim lngCount As Long"));
  EXPECT_TRUE(Is_Dim_Line("Dimension = 2"));
  EXPECT_TRUE(Is_With_Member_Line("    .Show vbModal"));
  EXPECT_FALSE(Is_With_Member_Line("x.Show"));
}

TEST(LineTests, FindContinuationsInTheLastThreeCharacters) {
  EXPECT_TRUE(isContinued("Sub A(x As Long, _"));
  EXPECT_TRUE(isContinued("Sub A(x As Long, _  "));
  EXPECT_FALSE(isContinued("Sub A(x As Long, _   "));
  EXPECT_FALSE(isContinued("Sub A(x As Long, _ ' why"));
  EXPECT_TRUE(isContinued("_"));
  EXPECT_FALSE(isContinued("Sub a_Long()"));
  EXPECT_FALSE(isContinued(""));
}

TEST(LineNumbers, AreReadAndTakenOff) {
  EXPECT_EQ(Find_Width_Of_LineNumber("120   x = 1"), 3);
  EXPECT_EQ(Find_Width_Of_LineNumber("120"), 0);
  EXPECT_EQ(Strip_Line_Number("10 End Sub"), " End Sub");
  EXPECT_EQ(Strip_Line_Number("120"), "120");
  EXPECT_EQ(Strip_Line_Number(" 10 End Sub"), " 10 End Sub");
  EXPECT_EQ(GetNumberedCodeLineNumber("0070 x = 5"), "70");
  EXPECT_EQ(GetNumberedCodeLineNumber("000"), "0");
  EXPECT_EQ(GetNumberedCodeLineNumber("Retry: x = 5"), "-999");
}

struct CommentCase {
  std::string_view text;
  std::string_view withoutFirstLiteral;  // Remove_Comments
  std::string_view withoutComment;       // RemoveComments
};

TEST(Comments, AreTakenOffInTwoWays) {
  constexpr CommentCase kCases[] = {
      {"x = 1 ' one", "x = 1", "x = 1 "},
      {"x = \"it's\" ' one", "x =", "x = \"it's\" "},
      {"Call A(\"a\", \"it's\")", "Call A(, \"it", "Call A(\"a\", \"it's\")"},
      {"x = 1  ", "x = 1  ", "x = 1  "},
      {"' only", "", ""},
      {"   ", "   ", ""},
      {"\t' tabbed", "", "\t"},
      {"x = \"open ' end", "x = \"open", "x = \"open ' end"},
      {"s = \"a\"\"'b\" 'c", "s = \"", "s = \"a\"\"'b\" "},
  };
  for (const CommentCase& each : kCases) {
    EXPECT_EQ(Remove_Comments(each.text), each.withoutFirstLiteral) << each.text;
    EXPECT_EQ(RemoveComments(each.text), each.withoutComment) << each.text;
  }
}

TEST(LineKinds, AreDetectedInTheirOrder) {
  constexpr std::pair<std::string_view, std::string_view> kCases[] = {
      {"  Private Sub Form_Load()", "Procedure Line"},
      {"Subtotal = 1", "Procedure Line"},
      {"If a = 1 And b = 2 Then", "If Logical Line"},
      {"If a = 1 Then", "If Function Line"},
      {"If Len(a) = 1 Or b Then", "If Function Line"},
      {"colItems.Add strName, strKey", "Collection Add Line"},
      {"Set x = colItems.Add(strName)", "Collection Add Line"},
      {"s = \"a\" & b", "Variable Assignment Line No Breaks"},
      {"s = \"a\" & b & \"c\"", "Variable Assignment Line With Breaks"},
      {"n = Compute(1, 2)", "Variable Assignment Line No Breaks"},
      {"Call Save(1, 2)", "Sub Call Line"},
      {"Beep", ""},
      {"", ""},
  };
  for (const auto& [text, kind] : kCases) EXPECT_EQ(DetectLineType(text), kind) << text;
}

TEST(LineKinds, LongTitlesAreBrokenAtTheLastComma) {
  const std::string longTitle =
      "Public Sub Save(ByVal strFileName As String, ByVal lngOptions As Long, ByVal blnOverwrite As Boolean)";
  EXPECT_EQ(Format_Procedure_Title(longTitle),
            "Public Sub Save(ByVal strFileName As String, ByVal lngOptions As Long, _ \r"
            "                ByVal blnOverwrite As Boolean)");
  const std::string oneParameter = "Sub A(" + std::string(80, 'x') + ")";
  EXPECT_EQ(Format_Procedure_Title(oneParameter), oneParameter);
  const std::string behindBracket73 = "Sub A(" + std::string(70, 'x') + ",y)";
  EXPECT_EQ(Format_Procedure_Title(behindBracket73), behindBracket73);
  const std::string behindBracket74 = "Sub A(" + std::string(71, 'x') + ",y)";
  EXPECT_EQ(Format_Procedure_Title(behindBracket74), "Sub A(" + std::string(71, 'x') + ", _ \r      y)");
}

}  // namespace
}  // namespace kolvane::source
