// Where declarations end and procedures begin.
#include <gtest/gtest.h>

#include "code_support.h"

namespace kolvane::test {
namespace {

struct Module {
  std::string_view text;  // a line per slash
  std::string_view outline;
};

void expectOutlines(std::initializer_list<Module> modules) {
  for (const Module& module : modules) {
    const CodeText code = load(base::replaceAll(module.text, " / ", "\n") + "\n");
    EXPECT_EQ(outline(code), module.outline) << module.text;
  }
}

TEST(CodeOutline, DeclarationsEndWithTheirLastStatement) {
  expectOutlines({
      {"Option Explicit /  / ' c / Sub A() / End Sub /  / ' d / Sub B() / End Sub / ",
       "D=1; A/0 2 4 4; B/0 6 8 5"},
      {"' c / Sub A() / End Sub", "D=0; A/0 1 2 3"},
      {"' c / Option Explicit / Type T / x As Long / End Type / Sub A() / End Sub", "D=5; A/0 6 6 2"},
      {"Option Explicit /  / ' x", "D=3"},
      {"Private a As Long, _ / b As Long ' and _ / more / ' c / Sub A() / End Sub", "D=3; A/0 4 5 3"},
      {"#If X Then / Declare Sub S Lib \"k\" () / #End If / Sub A() / End Sub", "D=2; A/0 3 4 3"},
      {"Enum E / a / ' b /  / End Enum / #Const X = 1 / Sub A() / End Sub", "D=5; A/0 6 7 3"},
      {"' Private x _ / Dim y / Sub A() / End Sub", "D=0; A/0 1 3 4"},
      {"Rem a _ / Dim y / DefInt A-Z / Event E() / Implements I / Sub A() / End Sub", "D=5; A/0 6 6 2"},
      {"Foo: Const X = 1 / Sub A() / End Sub", "D=1; A/0 2 2 2"},
      {"WithEvents w As X / x = 1 / Sub A() / End Sub", "D=1; A/0 2 3 3"},
  });
}

TEST(CodeOutline, TitlesAndEnds) {
  expectOutlines({
      {"Public Static Function F$() / End Function", "D=0; F/0 1 1 2"},
      {"Friend Property Get P() / End Property / Property Let p(v) / End Property / Global Property Set P(o) "
       "/ "
       "End Property",
       "D=0; P/3 1 1 2; p/1 3 3 2; P/2 5 5 2"},
      {"Sub A( _ / x, _ / y) / End Sub / Private _ / Sub _ / B() / End Sub", "D=0; A/0 1 1 4; B/0 5 5 4"},
      {"Sub A(): End Sub / Sub B(): x = 1: End Sub ' c / Sub C() / x = \": End Sub\" ' : End Sub / End Sub",
       "D=0; A/0 1 1 1; B/0 2 2 1; C/0 3 3 3"},
      {"Sub A() / ErrTrap:         End Sub / Sub B() / 10 End Sub / Sub C() / 20: End Sub",
       "D=0; A/0 1 1 2; B/0 3 3 2; C/0 5 5 2"},
      {"Sub A() / ' End Sub / 'x _ / End Sub / Rem x _ / End Sub / x = y _ / End Sub / End Sub / Sub B()",
       "D=0; A/0 1 1 9; B/0 10 10 1"},
      {"Sub A() / End Sub ' c _ / Sub X() / Sub B() / End Sub", "D=0; A/0 1 1 3; B/0 4 4 2"},
      {"Declare Sub S Lib \"k\" () / Private Declare Function F Lib \"k\" () / Sub A() / End Sub",
       "D=2; A/0 3 3 2"},
      {"Sub / Private Sub / Function () / Sub 1a() / Exit Sub / Property P() / sub A () / end   sub",
       "D=2; A/0 3 7 6"},
      {"Property Get [_NewEnum]() / End Property", "D=0; [_NewEnum]/3 1 1 2"},
      {"Sub \xC4hnlich() / End Sub", "D=0; \xC4hnlich/0 1 1 2"},
      {"\tSub A()\t' x / \tEnd\tSub", "D=0; A/0 1 1 2"},
  });
}

TEST(CodeOutline, BlocksKeepTheirFieldsFromBeingTitles) {
  expectOutlines({
      {"Type T / sUB As Long / Function As String / End Type / Sub A() / End Sub", "D=4; A/0 5 5 2"},
      {"Private Enum E / [x y] / Sub = 1 / End Enum / Sub A() / End Sub", "D=4; A/0 5 5 2"},
      {"Type T: x As Long: End Type / Sub A() / End Sub", "D=1; A/0 2 2 2"},
      // An unfinished block ends in front of the next title.
      {"Type T / x As Long / ' c / Sub A() / End Sub / y As Long", "D=2; A/0 3 4 4"},
      {"Public Type As Long / Sub A() / End Sub", "D=1; A/0 2 2 2"},
  });
}

TEST(CodeOutline, AlternativeTitlesShareOneProcedure) {
  const CodeText code = load(
      "#If Win32 Then\nSub X(a)\n#Else\nSub X(b)\n#End If\n  x = 1\nEnd Sub\n\n"
      "#If A Then\nSub Y()\nEnd Sub\n#Else\nFunction Y()\nEnd Function\nPrivate late\n#End If\n");
  EXPECT_EQ(outline(code), "D=0; X/0 1 2 7; Y/0 8 10 4; Y/0 12 13 5");
  EXPECT_EQ(procedureOf(code, 4), "X/0");
  EXPECT_EQ(procedureOf(code, 14), "Y/0");
  EXPECT_EQ(code.procedure("y", frame::ProcKind::kProc).bodyLine, 10) << "the first of two";
}

TEST(CodeOutline, EveryLineHasOneOwner) {
  const CodeText code = load(
      "Option Explicit\n\nProperty Get P()\nEnd Property\n\nSub Other()\nEnd Sub\n' about\nProperty Let "
      "P(v)\n"
      "End Property\n\n' tail\n");
  const std::string_view owners[] = {"/0",  "P/3", "P/3", "P/3", "Other/0", "Other/0", "Other/0",
                                     "P/1", "P/1", "P/1", "P/1", "P/1",     "/0"};
  for (int line = 1; line <= 13; ++line) EXPECT_EQ(procedureOf(code, line), owners[line - 1]) << line;
  EXPECT_EQ(code.procedure("p", frame::ProcKind::kLet).startLine, 8);
  EXPECT_EQ(code.procedure("P", frame::ProcKind::kGet).startLine, 2);
}

struct Edited {
  std::string_view what;
  int line;
  int removed;
  std::string_view inserted;  // one line per slash; "-" for none
  std::string_view outline;
};

// Each edit is made to the same module.
TEST(CodeOutline, FollowsEdits) {
  constexpr std::string_view kModule =
      "Option Explicit\nPrivate a\n' on A\nSub A()\n  x\nEnd Sub\n\nSub B()\n  y\nEnd Sub\n\nSub C()\nEnd "
      "Sub\n' end\n";
  const Edited edits[] = {
      {"a line in a body", 5, 0, "z", "D=2; A/0 3 4 5; B/0 8 9 4; C/0 12 13 4"},
      {"a declaration more", 3, 0, "Dim b", "D=3; A/0 4 5 4; B/0 8 9 4; C/0 12 13 4"},
      {"the last declaration less", 2, 1, "-", "D=1; A/0 2 3 4; B/0 6 7 4; C/0 10 11 4"},
      {"no declaration left", 1, 2, "-", "D=0; A/0 1 2 4; B/0 5 6 4; C/0 9 10 4"},
      {"the last declaration a comment", 2, 1, "' was", "D=1; A/0 2 4 5; B/0 7 8 4; C/0 11 12 4"},
      {"a title gone", 4, 1, "-", "D=2; B/0 3 7 7; C/0 10 11 4"},
      {"a title gone, a variable at module level", 4, 2, "Dim x", "D=4; B/0 5 7 5; C/0 10 11 4"},
      {"a title renamed", 8, 1, "Function D()", "D=2; A/0 3 4 4; D/0 7 8 4; C/0 11 12 4"},
      {"an End gone", 6, 1, "-", "D=2; A/0 3 4 7; C/0 10 11 4"},
      {"an End more", 5, 0, "End Sub", "D=2; A/0 3 4 3; B/0 6 9 6; C/0 12 13 4"},
      {"a title more", 7, 0, "Sub N()", "D=2; A/0 3 4 4; N/0 7 7 5; C/0 12 13 4"},
      {"a whole procedure more", 7, 0, "Sub N() / End Sub",
       "D=2; A/0 3 4 4; N/0 7 7 2; B/0 9 10 4; C/0 13 14 4"},
      {"a Type opened", 3, 0, "Type T", "D=3; A/0 4 5 4; B/0 8 9 4; C/0 12 13 4"},
      {"a comment that goes on", 3, 1, "' on A _", "D=2; B/0 3 8 8; C/0 11 12 4"},
      {"a line joined to the title", 3, 1, "Private _", "D=2; A/0 3 3 4; B/0 7 8 4; C/0 11 12 4"},
      {"alternative titles", 4, 1, "#If X Then / Sub A() / #Else / Sub A(b) / #End If",
       "D=2; A/0 3 5 8; B/0 11 12 4; C/0 15 16 4"},
      {"all gone", 1, 14, "-", "D=0"},
      {"lines behind the end", 15, 0, "x / y", "D=2; A/0 3 4 4; B/0 7 8 4; C/0 11 12 6"},
      {"the last End gone", 13, 1, "-", "D=2; A/0 3 4 4; B/0 7 8 4; C/0 11 12 3"},
  };
  for (const Edited& e : edits) {
    CodeText code = load(kModule);
    (void)code.countOfDeclarationLines();  // known before the edit
    const std::string inserted = base::replaceAll(e.inserted, " / ", "\n");
    if (e.inserted == "-") {
      code.deleteLines(e.line, e.removed);
    } else if (e.removed == 1) {
      code.replaceLine(e.line, inserted);
    } else {
      code.insertLines(e.line, inserted);
      if (e.removed > 0) code.deleteLines(e.line + 1, e.removed);
    }
    EXPECT_EQ(outline(code), e.outline) << e.what;
  }
}

}  // namespace
}  // namespace kolvane::test
