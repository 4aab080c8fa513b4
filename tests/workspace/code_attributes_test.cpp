// Hidden attribute lines: when they are hidden, and where they go when code is edited. And what they tell of
// members.
#include <gtest/gtest.h>

#include "code_support.h"

namespace kolvane::test {
namespace {

constexpr std::string_view kClass =
    "Private WithEvents src As Source\nAttribute src.VB_VarHelpID = -1\n"
    "Public Property Get Item(ByVal Key, _\n    Other) As Long\n"
    "Attribute Item.VB_Description = \"One \"\"item\"\"\"\nAttribute Item.VB_UserMemId = 0\n"
    "  Item = 1\nEnd Property\n"
    "Public Property Let Item(v)\nEnd Property\n"
    "Sub Last()\nEnd Sub\n";

TEST(CodeAttributes, AreNoLines) {
  const CodeText code = load(kClass);
  EXPECT_EQ(visible(code),
            "Private WithEvents src As Source\nPublic Property Get Item(ByVal Key, _\n    Other) As Long\n"
            "  Item = 1\nEnd Property\nPublic Property Let Item(v)\nEnd Property\nSub Last()\nEnd Sub\n");
  EXPECT_EQ(outline(code), "D=1; Item/3 2 2 4; Item/1 6 6 2; Last/0 8 8 2");
  EXPECT_EQ(written(code), kClass);
}

TEST(CodeAttributes, LinesThatFitNoDeclarationStayVisible) {
  const std::string_view texts[] = {
      "Attribute X.VB_Description = \"first line\"\n",
      "Sub A()\nAttribute B.VB_Description = \"other name\"\nEnd Sub\n",
      "Sub A()\n Attribute A.VB_Description = \"indented\"\nEnd Sub\n",
      "Sub A()\n\nAttribute A.VB_Description = \"not directly behind\"\nEnd Sub\n",
      "Sub A()\nAttribute A.VB_Description = \"goes on\" _\nEnd Sub\n",
      "Sub A()\nAttribute VB_Name = \"of the module\"\nEnd Sub\n",
      "Sub A()\nAttribute A.Description = 1\nEnd Sub\n",
      "Sub A()\nAttribute A.VB_Description\nEnd Sub\n",
      "Type T\nAttribute T.VB_Description = \"no member\"\nEnd Type\n",
      "' Sub A()\nAttribute A.VB_Description = \"behind a comment\"\n",
  };
  for (const std::string_view text : texts) EXPECT_EQ(visible(load(text)), text);
}

TEST(CodeAttributes, StandBehindEveryKindOfDeclaration) {
  const std::string_view declarations[] = {
      "Dim a, b(1 To 2) As Long, \\n$",
      "Const c = 1, \\n = 2",
      "Event \\n(ByVal x)",
      "Declare Function \\n Lib \"k\" ()",
      "Public WithEvents \\n As X ' comment _\nmore comment",
      "Static Function \\n&() As Long",
      "Friend Sub _\n  \\n()",
      "Dim a: Dim \\n",
  };
  for (const std::string_view declaration : declarations) {
    const std::string text = base::replaceAll(declaration, "\\n", "Thing") + "\n";
    const CodeText code = load(text + "attribute THING.VB_Description = \"x\"\n" + "rest\n");
    EXPECT_EQ(visible(code), text + "rest\n");
  }
}

struct Move {
  std::string_view what;
  void (*edit)(CodeText&);
  std::string_view written;
};

TEST(CodeAttributes, GoWithTheirMember) {
  constexpr std::string_view kModule = "Sub A()\nAttribute A.VB_UserMemId = 1\nEnd Sub\n\nSub B()\nEnd Sub\n";
  const Move moves[] = {
      {"lines around it",
       [](CodeText& c) {
         c.insertLines(1, "' about");
         c.insertLines(3, "body");
       },
       "' about\nSub A()\nAttribute A.VB_UserMemId = 1\nbody\nEnd Sub\n\nSub B()\nEnd Sub\n"},
      {"a title that keeps the name", [](CodeText& c) { c.replaceLine(1, "Private Function a( _\n  x)"); },
       "Private Function a( _\n  x)\nAttribute A.VB_UserMemId = 1\nEnd Sub\n\nSub B()\nEnd Sub\n"},
      {"a title that goes on", [](CodeText& c) { c.replaceLine(1, "Sub A( _"); },
       "Sub A( _\nEnd Sub\nAttribute A.VB_UserMemId = 1\n\nSub B()\nEnd Sub\n"},
      {"another name", [](CodeText& c) { c.replaceLine(1, "Sub C()"); },
       "Sub C()\nEnd Sub\n\nSub B()\nEnd Sub\n"},
      {"another kind", [](CodeText& c) { c.replaceLine(1, "Property Get A()"); },
       "Property Get A()\nEnd Sub\n\nSub B()\nEnd Sub\n"},
      {"the title gone", [](CodeText& c) { c.deleteLines(1, 1); }, "End Sub\n\nSub B()\nEnd Sub\n"},
      {"deleted, then inserted elsewhere",
       [](CodeText& c) {
         c.deleteLines(1, 3);
         c.insertLines(3, "Sub A()\nEnd Sub");
       },
       "Sub B()\nEnd Sub\nSub A()\nAttribute A.VB_UserMemId = 1\nEnd Sub\n"},
      {"inserted elsewhere, then deleted",
       [](CodeText& c) {
         c.insertLines(6, "Sub A()\nEnd Sub");
         c.deleteLines(1, 3);
       },
       "Sub B()\nEnd Sub\nSub A()\nAttribute A.VB_UserMemId = 1\nEnd Sub\n"},
      {"renamed, copied under the old name, then deleted",
       [](CodeText& c) {
         c.replaceLine(1, "Sub Asrt()");
         c.insertLines(6, "Sub A()\nEnd Sub");
         c.deleteLines(1, 3);
       },
       "Sub B()\nEnd Sub\nSub A()\nAttribute A.VB_UserMemId = 1\nEnd Sub\n"},
      {"forgotten at saving",
       [](CodeText& c) {
         c.deleteLines(1, 3);
         c.forgetDroppedAttributes();
         c.insertLines(1, "Sub A()\nEnd Sub");
       },
       "Sub A()\nEnd Sub\nSub B()\nEnd Sub\n"},
      {"text that brings its own",
       [](CodeText& c) { c.replaceLine(1, "Sub A()\nAttribute A.VB_Description = \"new\""); },
       "Sub A()\nAttribute A.VB_Description = \"new\"\nEnd Sub\n\nSub B()\nEnd Sub\n"},
      {"one more behind the title",
       [](CodeText& c) { c.insertLines(2, "Attribute A.VB_MemberFlags = \"40\"\nx"); },
       "Sub A()\nAttribute A.VB_UserMemId = 1\nAttribute A.VB_MemberFlags = \"40\"\nx\nEnd Sub\n\nSub "
       "B()\nEnd Sub\n"},
      {"an open procedure in front", [](CodeText& c) { c.insertLines(1, "Sub New1()"); },
       "Sub New1()\nSub A()\nAttribute A.VB_UserMemId = 1\nEnd Sub\n\nSub B()\nEnd Sub\n"},
  };
  for (const Move& move : moves) {
    CodeText code = load(kModule);
    move.edit(code);
    EXPECT_EQ(written(code), move.written) << move.what;
    EXPECT_EQ(visible(load(written(code))), visible(code)) << move.what;
  }
}

TEST(CodeAttributes, VariablesOfOneListAreToldApart) {
  CodeText code = load(
      "Private WithEvents a As X, WithEvents b As Y\nAttribute a.VB_VarHelpID = -1\nAttribute b.VB_VarHelpID "
      "= 7\n"
      "Private c\n");
  code.replaceLine(1, "Private WithEvents b As Y");
  EXPECT_EQ(written(code), "Private WithEvents b As Y\nAttribute b.VB_VarHelpID = 7\nPrivate c\n");
  code.replaceLine(2, "Public A As Z");
  EXPECT_EQ(written(code),
            "Private WithEvents b As Y\nAttribute b.VB_VarHelpID = 7\nPublic A As Z\nAttribute "
            "a.VB_VarHelpID = -1\n");
}

// Name type scope static line "description" help method flags
std::string memberList(const CodeText& code) {
  std::string text;
  for (const auto& m : code.members()) {
    text += m.name + " " + std::to_string(static_cast<int>(m.type)) + " " +
            std::to_string(static_cast<int>(m.scope)) + (m.isStatic ? " static " : " ") +
            std::to_string(m.codeLocation);
    if (!m.description.empty()) text += " \"" + m.description + "\"";
    if (m.helpContextId != 0) text += " help " + std::to_string(m.helpContextId);
    if (m.standardMethod != 0) text += " method " + std::to_string(m.standardMethod);
    if (m.memberFlags != 0) text += " flags " + std::to_string(m.memberFlags);
    text += "\n";
  }
  return text;
}

constexpr std::string_view kMembers =
    "Option Explicit\nImplements IThing\nEvent Changed(ByVal x As Long)\n"
    "Attribute Changed.VB_Description = \"Has \"\"changed\"\"\"\nAttribute Changed.VB_HelpID = 12\n"
    "Private Const A = 1, B As String = \"x, y\", _\n  C = (1 + 2)\nPublic Const D = 4\n"
    "Dim e(1 To 3, 4) As Long, f$, _\n    WithEvents g As X\nAttribute g.VB_VarHelpID = -1\n"
    "WithEvents h As Y\nPublic i As New Z, j As String * 20\nGlobal k\n"
    "Type T\n  l As Long\nEnd Type\nPrivate Enum M\n  n\nEnd Enum\n"
    "Declare Sub o Lib \"x\" Alias \"y\" (ByVal p As Any)\nPrivate Declare PtrSafe Function q Lib \"x\" ()\n"
    "Dim r: Const s = 1\n#Const T = 1\n"
    "Friend Static Sub t()\nDim u\nEnd Sub\nPrivate Property Let V(x)\nEnd Property\n"
    "Function w()\nAttribute w.VB_UserMemId = -4\nAttribute w.VB_MemberFlags = \"440\"\nEnd Function\n"
    "Public Property Get V()\nAttribute V.VB_Description = \"v\"\nEnd Property\nPublic late\nSub X( "
    "_\n)\nEnd Sub\n";

TEST(CodeMembers, InOrderOfTheText) {
  EXPECT_EQ(
      memberList(load(kMembers)),
      "Changed 4 2 3 \"Has \"changed\"\" help 12\nA 5 1 4\nB 5 1 4\nC 5 1 5\nD 5 2 6\ne 3 1 7\nf 3 1 7\n"
      "g 3 1 8\nh 3 1 9\ni 3 2 10\nj 3 2 10\nk 3 2 11\no 1 1 18\nq 1 1 19\nr 3 1 20\ns 5 1 20\n"
      "t 1 3 static 22\nV 2 1 25 \"v\"\nw 1 2 27 method -4 flags 1088\nlate 3 2 31\nX 1 2 32\n");
  const std::string standard = memberList(load(kMembers, CodeKind::kStandardModule));
  EXPECT_NE(standard.find("\no 1 2 18\nq 1 1 19\n"), std::string::npos)
      << "Declare is public in a standard module";
}

TEST(CodeMembers, FollowEdits) {
  CodeText code = load("Dim a\nSub B()\nEnd Sub\n");
  EXPECT_EQ(memberList(code), "a 3 1 1\nB 1 2 2\n");
  code.insertLines(1, "Private c");
  EXPECT_EQ(memberList(code), "c 3 1 1\na 3 1 2\nB 1 2 3\n");
}

}  // namespace
}  // namespace kolvane::test
