#include "source/procedure_questions.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "source/components.h"
#include "source/ide_windows.h"
#include "source/parameter_text.h"
#include "source/read_only_notice.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

class ProcedureQuestions : public testing::Test {
 protected:
  frame::CodeModule& load(std::string_view code) { return host_.addModule(code); }

  static std::string parameters(std::string_view title) {
    test::TestHost host;
    return Find_Parameter_String(host.services(), host.addModule(title), 1);
  }

  test::TestHost host_;
};

struct TitleFacts {
  std::string_view title;
  std::string_view name, type, returns, parameters;
};

TEST_F(ProcedureQuestions, ReadATitle) {
  constexpr TitleFacts kTitles[] = {
      {"Public Sub MySubmit(a As Long, b As Long, c As Long, d As Long)", "MySubmit", "Sub", "Nothing",
       "a - Long, b - Long,\r'*               : c - Long, d - Long"},
      {"Sub Empty()", "Empty", "Sub", "Nothing", "None"},
      {"Private Function GetSubTotal(ByVal curNet As Currency) As Currency", "GetSubTotal", "Function",
       "Currency", "curNet - Currency"},
      {"Function Untyped(x)", "Untyped", "Function", "Variant", "x"},
      {"Function Noted() As String ' with a note", "Noted", "Function", "String ' with a note", "None"},
      {"Private Static Sub Once(ByRef x As Long)", "Static  Once", "Static", "Nothing", "x - Long"},
      {"Public Property Get Name() As String", "Property Get Name", "Property", "String", "None"},
      {"Function F(Optional ByVal s As String = \"a,b\", Optional n As Long = 3) As Long", "F", "Function",
       "Long", "Optional s - String = \"a,b\",\r'*               : Optional n - Long = 3"},
      {"Public Function Save( _\n    ByVal strName As String, _\n    ParamArray vntRest() As Variant) As "
       "Boolean",
       "Save", "Function", "Boolean", " strName - String, ParamArray vntRest() - Variant"},
      {"Private Sub Private_Data(Function_Name As String)", "Private_Data", "Sub", "Nothing",
       "Function_Name - String"},
      {"Subtotal = 3", "Subtotal = 3", "Subtotal", "Variant", "None"},
  };
  for (const TitleFacts& each : kTitles) {
    test::TestHost host;
    frame::CodeModule& module = host.addModule(each.title);
    EXPECT_EQ(Find_Procedure_Name(module, 1), each.name);
    EXPECT_EQ(Find_Procedure_Type(module, 1), each.type) << each.title;
    EXPECT_EQ(Find_Procedure_Return_Type(module, 1), each.returns) << each.title;
    EXPECT_EQ(Find_Parameter_String(host.services(), module, 1), each.parameters) << each.title;
  }
}

TEST_F(ProcedureQuestions, AContinuedTitleGivesTheSameParametersAsOneLine) {
  EXPECT_EQ(parameters("Sub A(a As Long, _\n        b As Long, _\n        c As Long)"),
            parameters("Sub A(a As Long, b As Long, c As Long)"));
}

TEST_F(ProcedureQuestions, FindTheEndsOfATitleAndAProcedure) {
  frame::CodeModule& module = load(
      "Option Explicit\n"
      "Public Sub One(a As Long, _\n"
      "               b As Long)\n"
      "    x = \"End Sub\"\n"
      "10  Exit Sub\n"
      "20  End Sub ' done\n"
      "Function Two() As Long\n"
      "End Function");
  EXPECT_EQ(Procedure_Definition_End_Line(module, 2), 3);
  EXPECT_EQ(Find_Last_LineNumber(module, 2), 6);
  EXPECT_EQ(Find_Last_LineNumber(module, 7), 8);
  EXPECT_FALSE(At_Procedure_End(module, 6));
  EXPECT_FALSE(At_Procedure_End(module, 4));
  EXPECT_TRUE(At_Procedure_End(module, 8));
  EXPECT_FALSE(At_Procedure_End(module, 99));
}

TEST_F(ProcedureQuestions, AreBoundedInLongAndBrokenCode) {
  std::string code = "Sub Long1()";
  for (int i = 0; i < kLongestProcedure; ++i) code += "\nx = 1";
  frame::CodeModule& module = load(code + "\nEnd Sub\nSub NoBrackets\ny = 1");
  EXPECT_EQ(Find_Last_LineNumber(module, 1), 0);
  EXPECT_EQ(Find_Last_LineNumber(module, 2), kLongestProcedure + 2);
  EXPECT_EQ(Procedure_Definition_End_Line(module, kLongestProcedure + 3), 0);
  EXPECT_EQ(GetProcedureRealStartLine(module, kLongestProcedure + 5), 0);
}

TEST_F(ProcedureQuestions, WalkUpEndsAtAnEndLineAndAtTheTop) {
  frame::CodeModule& module = load(
      "Option Explicit\n"
      "Private mlngCount As Long\n"
      "Sub One()\n"
      "    x = 1\n"
      "10 End Sub\n"
      "\n"
      "' about Two\n"
      "Sub Two()\n"
      "    y = 1\n"
      "End Sub ' Two");
  const auto isTitle = [](int, const std::string& text) { return text.find("Sub ") == 0; };
  const int expected[] = {0, 0, 3, 3, 0, 0, 0, 8, 8, 8, 8};
  for (int line = 1; line <= 11; ++line)
    EXPECT_EQ(walkUpToTitle(module, line, isTitle), expected[line - 1]) << line;
}

TEST_F(ProcedureQuestions, AskTheHostForItsCount) {
  frame::CodeModule& module = load(
      "Option Explicit\n"
      "\n"
      "' about One\n"
      "\n"
      "Private Sub One()\n"
      "End Sub\n"
      "Property Get Two() As Long\n"
      "End Property\n"
      "Property Let Two(x As Long)\n"
      "End Property\n"
      "Sub Three()\n"
      "End Sub\n"
      "\n");
  EXPECT_EQ(GetProcedureRealStartLine(module, module.ProcStartLine("One", frame::ProcKind::kProc)), 5);
  EXPECT_EQ(GetProcEndLine(module, 5, "One"), 6);
  EXPECT_EQ(GetProcEndLine(module, 11, "Three"), module.CountOfLines() - 1);
  int start = -1;
  int end = -1;
  Get_Procedure_Start_End_Lines(module, start, end);
  EXPECT_EQ(start, -1);
  module.CodePane()->SetSelection({5, 1, 5, 1});
  Get_Procedure_Start_End_Lines(module, start, end);
  EXPECT_EQ(start, 2);
  EXPECT_EQ(end, 7);
  EXPECT_EQ(GetProcKindAtLine(module, 5), frame::ProcKind::kProc);
  EXPECT_EQ(GetProcKindAtLine(module, 1), frame::ProcKind::kProc);
  EXPECT_TRUE(ProcedureExists("one", module));
  EXPECT_FALSE(ProcedureExists("Two", module));
  EXPECT_TRUE(Last_Line_Is_Blank(module));
  EXPECT_EQ(GetProcedureCode(module, "One"),
            "' about One\r\n\r\nPrivate Sub One()\r\nEnd Sub\r\nProperty Get Two() As Long");
  EXPECT_EQ(GetProcedureCode(host_.services().vbe, "Three"), "End Sub\r\n\r\n");
  EXPECT_THROW(GetProcedureCode(module, "Nobody"), base::Error);
}

TEST_F(ProcedureQuestions, TellThePropertyKindOfALine) {
  frame::CodeModule& module = load("Property Set Item(x As Object)\n    Set y = x\nEnd Property");
  EXPECT_EQ(GetProcKindAtLine(module, 2), frame::ProcKind::kSet);
}

TEST_F(ProcedureQuestions, FindOneLogicalLine) {
  frame::CodeModule& module = load("Private mlngCounter As Long\nPrivate mlngCount As Long");
  constexpr std::string_view kText = "Dim a As Long, _\r\n    b As Long\r\nDim c As Long";
  EXPECT_EQ(GetLineAccountingForContinuations(module, kText, 1, ""), "Dim a As Long,     b As Long");
  EXPECT_EQ(GetLineAccountingForContinuations(module, kText, 2, ""), "Dim c As Long");
  EXPECT_THROW(GetLineAccountingForContinuations(module, kText, 3, ""), base::Error);
  EXPECT_EQ(GetLineAccountingForContinuations(module, "", 0, "mlngCount"), "Private mlngCount As Long");
  EXPECT_EQ(GetLineAccountingForContinuations(module, "", 0, "MLNGCOUNT"), "");
}

struct ConstantCase {
  std::string_view code;
  int line;
};

TEST_F(ProcedureQuestions, AConstantGoesBehindTheDeclarationsAndOutOfConditions) {
  constexpr ConstantCase kCases[] = {
      {"Option Explicit\n\nSub A()\nEnd Sub", 2},
      {"Sub A()\nEnd Sub", 1},
      {"Option Explicit\n#If Win64 Then\nPrivate x As Long\n#Else\n#End If\nSub A()\nEnd Sub", 6},
      {"Option Explicit\n#If A Then\nPrivate x As Long\nSub A()\nEnd Sub\n#End If", 2},
  };
  for (const auto& [code, line] : kCases) {
    test::TestHost host;
    frame::CodeModule& module = host.addModule(code);
    Create_Constant(module, "MAX_ROWS", "12", "Private");
    EXPECT_EQ(module.Lines(line, 1), "Private Const MAX_ROWS = 12") << code;
  }
  frame::CodeModule& module = load("Option Explicit");
  Create_Constant(module, "TITLE", "the \"best\"", "Public");
  EXPECT_EQ(module.Lines(2, 1), "Public Const TITLE = \"the \"\"best\"\"\"");
}

TEST_F(ProcedureQuestions, SmallFactsOfComponents) {
  EXPECT_EQ(Get_Component_Type_Name(frame::ComponentType::kVBMDIForm), "Form");
  EXPECT_EQ(Get_Component_Type_Name(frame::ComponentType::kResFile), "");
  EXPECT_EQ(GetControlIndex("txtName(12)"), 12);
  EXPECT_EQ(GetControlIndex("txtName"), 0);
  EXPECT_EQ(GetRealControlCount(nullptr), 0);
}

TEST_F(ProcedureQuestions, WindowsAndNewProjects) {
  frame::VBE& vbe = host_.services().vbe;
  EXPECT_FALSE(IsProjectNew(vbe));
  host_.addComponent("Form1.frm", {});
  EXPECT_TRUE(IsProjectNew(vbe));
  load("Option Explicit");
  EXPECT_FALSE(IsProjectNew(vbe));
  EXPECT_TRUE(IsCodePaneOpen(vbe, "Module1 (Code)"));
  EXPECT_FALSE(IsCodePaneOpen(vbe, "module1 (Code)"));
  EXPECT_TRUE(CloseIDEWindow(vbe, "Module1 (Code)"));
  EXPECT_FALSE(CloseIDEWindow(vbe, "Module1 (Code)"));
}

TEST_F(ProcedureQuestions, AReadOnlyModuleIsToldAndOtherErrorsPass) {
  frame::CodeModule& module = load("Option Explicit");
  host_.setReadOnly("Module1.bas", true);
  EXPECT_FALSE(withReadOnlyNotice(host_.services(), module, [&] { module.InsertLines(1, "x"); }));
  const auto messages = host_.desk().takeLog();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].text,
            "Either the file Module1 is readonly or it's checked in within Source Code control.");
  EXPECT_EQ(messages[0].flags, 48);
  EXPECT_THROW(withReadOnlyNotice(host_.services(), module, [] { throw base::Error(9); }), base::Error);
  EXPECT_TRUE(host_.desk().takeLog().empty());
}

}  // namespace
}  // namespace kolvane::source
