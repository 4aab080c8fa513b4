// Random edits of random modules: after each of them everything that a module tells must be what a fresh one
// tells that was loaded from the bytes as they would be written.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "code_support.h"

namespace kolvane::test {
namespace {

// Pieces of modules, each of one or more lines; names come from so small a stock that they meet.
constexpr std::string_view kPieces[] = {
    "Sub A()",
    "Private Sub B(x)",
    "Function a() As Long",
    "Public Static Function C$( _\n  x, _\n  y)",
    "Property Get P()",
    "property let P(v)",
    "Friend Property Set q(o)",
    "Private _\n  Sub _\n  D()",
    "End Sub",
    "End Function",
    "End Property",
    "end sub ' done _\nreally",
    "Lbl:   End Sub",
    "x = 1: End Sub",
    "10 End Sub",
    "Sub E(): End Sub",
    "Sub F()\n  y = 2\nEnd Sub\n",
    "Property Get G()\nEnd Property",
    "#If X Then\nSub A(b)\n#Else\nSub A(c)\n#End If",
    "#If X Then",
    "#Else",
    "#End If",
    "#Const k = 1",
    "Type T",
    "Private Type U\n  sUB As Long\n  function As String",
    "End Type",
    "Enum V",
    "  el = 1",
    "End Enum",
    "Type W: z As Long: End Type",
    "Public Enum X _\n  ",
    "  field As Long",
    "' comment",
    "' goes on _",
    "Rem old _\nSub Z()",
    "x = y ' and on _",
    "x = y _",
    " _",
    "_",
    "",
    "",
    "   ",
    "Option Explicit",
    "Dim h, i( _\n  3) As Long",
    "Private WithEvents j As K, l",
    "Const m = 1",
    "Event N(ByVal o)",
    "Declare Sub r Lib \"k\" ()",
    "Dim s: Const t = 2",
    "WithEvents u As V",
    "DefInt A-Z",
    "Sub A()\nAttribute A.VB_Description = \"a\"",
    "Private WithEvents j As K\nAttribute j.VB_VarHelpID = -1",
    "Property Get P()\nAttribute P.VB_UserMemId = 0\nAttribute p.VB_MemberFlags = \"40\"\nEnd Property",
    "Attribute A.VB_Description = \"loose\"",
    "Attribute j.VB_VarHelpID = 3",
    "Attribute h.VB_VarDescription = \"x\"",
    "Attribute VB_Name = \"m\"",
    " Attribute A.VB_UserMemId = 1",
    "Attribute A.VB_Description = 1 _",
    "  if x then ' \": End Sub\"",
    "  s = \": End Sub\"",
    "garbage [ \" ' \x80\xFF",
    "Sub",
    "Private Sub As Long",
    "Dim x\nSub Y()\nEnd Sub\n\n\nSub A()\n  body\nEnd Sub",
};

class RandomModule {
 public:
  explicit RandomModule(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t count) { return random_() % count; }

  std::string text(std::size_t pieces) {
    const std::string_view ends[] = {"\r\n", "\n", "\r"};
    std::string text;
    for (std::size_t i = 0; i < pieces; ++i) {
      if (i > 0) text += ends[below(12) == 0 ? below(3) : end_];
      text += base::replaceAll(kPieces[below(std::size(kPieces))], "\n", ends[end_]);
    }
    if (below(2) == 0) text += ends[end_];
    return text;
  }

  void chooseLineEnd() { end_ = below(3); }

  void edit(CodeText& code) {
    const int line = 1 + static_cast<int>(below(static_cast<std::size_t>(code.countOfLines()) + 1));
    const bool there = line <= code.countOfLines();
    switch (below(there ? 10 : 2)) {
      case 0:
      case 1:
        code.insertLines(line, text(1 + below(2)));
        break;
      case 2:
        code.insertLines(line, text(below(6)));
        break;
      case 3:
      case 4:
        code.deleteLines(line, 1);
        break;
      case 5:
        code.deleteLines(line, static_cast<int>(below(8)));
        break;
      case 6:
        code.replaceLine(line, text(1));
        break;
      case 7:
        code.replaceLines(line, countFrom(code, line), text(below(4)));
        break;
      case 8:
        indent(code, line, countFrom(code, line));
        break;
      default:
        moveBlock(code, line, static_cast<int>(below(6)));
        break;
    }
  }

 private:
  int countFrom(const CodeText& code, int line) {
    return 1 + static_cast<int>(below(static_cast<std::size_t>(code.countOfLines() - line + 1)));
  }

  void indent(CodeText& code, int line, int count) {
    std::string text;
    for (int i = line; i < line + count; ++i) {
      if (i > line) text += "\r\n";
      std::string_view old = code.line(i);
      if (below(2) == 0) old.remove_prefix(std::min(old.find_first_not_of(' '), old.size()));
      text.append(below(3), ' ').append(old);
    }
    code.replaceLines(line, count, text);
  }

  void moveBlock(CodeText& code, int line, int count) {
    const std::string block = code.lines(line, count);
    code.deleteLines(line, count);
    code.insertLines(1 + static_cast<int>(below(static_cast<std::size_t>(code.countOfLines()) + 1)), block);
  }

  std::mt19937 random_;
  std::size_t end_ = 0;
};

std::string told(const CodeText& code) {
  std::string text = outline(code) + "\n";
  for (int line = 1; line <= code.countOfLines(); ++line)
    text.append(procedureOf(code, line)).append(" ").append(code.line(line)).append("\n");
  for (const auto& p : code.procedures())
    text += p.name + " first at " + std::to_string(code.procedure(p.name, p.kind).bodyLine) + "\n";
  for (const auto& m : code.members())
    text += m.name + " " + std::to_string(static_cast<int>(m.type)) + " " + std::to_string(m.codeLocation) +
            " " + m.description + std::to_string(m.standardMethod) + "\n";
  return text;
}

void expectRegionsCoverAllLines(const CodeText& code) {
  int next = code.countOfDeclarationLines() + 1;
  for (const auto& p : code.procedures()) {
    EXPECT_EQ(p.startLine, next);
    EXPECT_LE(p.startLine, p.bodyLine);
    next = p.startLine + p.countLines;
    EXPECT_LT(p.bodyLine, next);
  }
  EXPECT_EQ(next, code.countOfLines() + 1);
}

TEST(CodeRandomEdits, LeaveWhatAFreshLoadWouldGive) {
  constexpr unsigned kModules = 800;
  constexpr int kEdits = 40;
  for (unsigned seed = 1; seed <= kModules && !testing::Test::HasFailure(); ++seed) {
    RandomModule random(seed);
    random.chooseLineEnd();
    const std::string start = random.text(random.below(25));
    CodeText code(CodeKind::kObjectModule, nullptr, start);
    ASSERT_EQ(code.bytes(), start);
    int counted = code.countOfLines();
    code.onEdited = [&](int, int removed, int inserted) { counted += inserted - removed; };
    for (int i = 0; i < kEdits && !testing::Test::HasFailure(); ++i) {
      const std::string before = code.bytes();
      if (random.below(4) == 0) (void)code.countOfDeclarationLines();
      random.edit(code);
      const std::string bytes = code.bytes();
      const CodeText fresh(CodeKind::kObjectModule, nullptr, bytes);
      SCOPED_TRACE("seed " + std::to_string(seed) + " edit " + std::to_string(i) + "\nbefore:\n" + before);
      EXPECT_EQ(told(code), told(fresh));
      EXPECT_EQ(counted, code.countOfLines());
      expectRegionsCoverAllLines(code);
    }
  }
}

// Undone by the opposite edit, an edit that moved no attribute line leaves every byte as it was.
TEST(CodeRandomEdits, InsertingAndDeletingAgainRestoresTheBytes) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    RandomModule random(seed);
    random.chooseLineEnd();
    const std::string start = random.text(random.below(25));
    if (start.find("Attribute") != std::string::npos) continue;
    CodeText code(CodeKind::kStandardModule, nullptr, start);
    const int line = 1 + static_cast<int>(random.below(static_cast<std::size_t>(code.countOfLines()) + 1));
    const int count = code.countOfLines();
    code.insertLines(line, "Sub New1()\n  x _\nEnd Type");
    code.deleteLines(line, code.countOfLines() - count);
    EXPECT_EQ(code.bytes(), start) << "seed " << seed;
    EXPECT_EQ(told(code), told(CodeText(CodeKind::kStandardModule, nullptr, start)));
  }
}

}  // namespace
}  // namespace kolvane::test
