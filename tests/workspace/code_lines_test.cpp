// Lines, counts, line ends, edits and the errors they raise.
#include <gtest/gtest.h>

#include "base/error.h"
#include "code_support.h"

namespace kolvane::test {
namespace {

template <typename Action>
long errorOf(Action action) {
  try {
    action();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

struct Counted {
  std::string_view bytes;
  int lines;
  std::string_view joined;
};

TEST(CodeLines, EveryKindOfLineEndPartsLines) {
  const Counted cases[] = {
      {"", 0, ""},
      {"End Sub\r\n", 1, "End Sub"},
      {"End Sub\r\n\r\n", 2, "End Sub\r\n"},
      {"a\nb", 2, "a\r\nb"},
      {"a\rb\r", 2, "a\r\nb"},
      {"a\r\rb\n\nc\n\r", 6, "a\r\n\r\nb\r\n\r\nc\r\n"},
      {"\r", 1, ""},
      {std::string_view("a\0b\r\n\0\0", 7), 2, std::string_view("a\0b\r\n\0\0", 7)},
  };
  for (const Counted& c : cases) {
    const CodeText code(CodeKind::kStandardModule, nullptr, c.bytes);
    EXPECT_EQ(code.countOfLines(), c.lines) << testing::PrintToString(c.bytes);
    EXPECT_EQ(code.lines(1, 100), c.joined) << testing::PrintToString(c.bytes);
    EXPECT_EQ(code.bytes(), c.bytes);
  }
}

TEST(CodeLines, BytesOfAnUneditedTextAreThoseLoaded) {
  const std::string texts[] = {
      "Attribute A.VB_Description = \"no declaration\"\r\n",
      "Sub X()\nAttribute X.VB_UserMemId = 0",
      "Sub X() _\n",
      "  \t \r\n\t\r\nText \r\n ",
      "Private WithEvents a As B\rAttribute a.VB_VarHelpID = -1\rAttribute a.VB_VarDescription = \"x\"\r\n\n",
      "Sub X()\r\n x = \"\x81\x8d\xff\r\n\0\x1a",
      std::string(3, '\0') + "\r\n" + std::string(637, '\0') + "\r\n",
      std::string(200000, 'x') + "\n" + std::string(100000, ' ') + "_\n_",
      "\xEF\xBB\xBFOption Explicit\r\nSub \xC4\xE4()\r\nEnd Sub",
  };
  for (const std::string& text : texts) {
    const CodeText code(CodeKind::kObjectModule, nullptr, text);
    EXPECT_EQ(code.bytes(), text);
    std::string behindHeader = "header";
    code.appendBytes(behindHeader);
    EXPECT_EQ(behindHeader, "header" + text);
  }
}

TEST(CodeLines, RangesAreCutAtTheEnd) {
  const CodeText code = load("a\nb\nc\n");
  EXPECT_EQ(code.lines(2, 5), "b\r\nc");
  EXPECT_EQ(code.lines(2, 2147483647), "b\r\nc");
  EXPECT_EQ(code.lines(4, 1), "");
  EXPECT_EQ(code.lines(2, 0), "");
  EXPECT_EQ(code.line(3), "c");
  EXPECT_EQ(code.line(0), "");
  EXPECT_EQ(code.line(4), "");
}

TEST(CodeLines, ErrorsLeaveTheTextAsItWas) {
  CodeText code = load("a\nb\n");
  frame::ProcKind kind{};
  const long invalid = base::errors::kInvalidArgument;
  EXPECT_EQ(errorOf([&] { code.lines(0, 1); }), invalid);
  EXPECT_EQ(errorOf([&] { code.lines(1, -1); }), invalid);
  EXPECT_EQ(errorOf([&] { code.insertLines(0, "x"); }), invalid);
  EXPECT_EQ(errorOf([&] { code.deleteLines(1, -1); }), invalid);
  EXPECT_EQ(errorOf([&] { code.deleteLines(3, 1); }), invalid);
  EXPECT_EQ(errorOf([&] { code.deleteLines(0, 1); }), invalid);
  EXPECT_EQ(errorOf([&] { code.deleteLines(3, 0); }), invalid);
  EXPECT_EQ(errorOf([&] { code.replaceLine(3, "x"); }), invalid);
  EXPECT_EQ(errorOf([&] { code.procOfLine(0, kind); }), invalid);
  EXPECT_EQ(errorOf([&] { code.procedure("a", frame::ProcKind::kProc); }),
            base::errors::kProcedureNotDefined);
  EXPECT_EQ(errorOf([&] { code.procedure("a", static_cast<frame::ProcKind>(4)); }),
            base::errors::kInvalidCall);
  EXPECT_EQ(visible(code), "a\nb\n");
}

TEST(CodeLines, InsertedTextIsNotTerminated) {
  CodeText code = load("one\ntwo\n");
  code.insertLines(2, "a\r\nb\rc\nd");
  EXPECT_EQ(visible(code), "one\na\nb\nc\nd\ntwo\n");
  code.insertLines(1, "");
  EXPECT_EQ(code.line(1), "");
  code.insertLines(99, "last\n");
  EXPECT_EQ(visible(code), "\none\na\nb\nc\nd\ntwo\nlast\n\n");
  code.deleteLines(7, 0);
  EXPECT_EQ(code.countOfLines(), 9);
  code.deleteLines(7, 2147483647);
  EXPECT_EQ(visible(code), "\none\na\nb\nc\nd\n");
  code.replaceLine(1, "x\ny");
  code.replaceLine(3, "");
  EXPECT_EQ(visible(code), "x\ny\n\na\nb\nc\nd\n");
}

TEST(CodeLines, ALineOfTheModuleMayBeInsertedIntoIt) {
  CodeText code = load("start\n");
  for (int i = 0; i < 12; ++i) code.insertLines(1, code.lines(1, code.countOfLines()));
  EXPECT_EQ(code.countOfLines(), 4096);
  for (int i = 0; i < 1000; ++i) code.insertLines(1, code.line(1));
  EXPECT_EQ(code.line(5096), "start");
}

struct Ends {
  std::string_view before;
  std::string_view after;
};

TEST(CodeLines, NewLinesTakeTheLineEndOfTheFile) {
  const Ends appended[] = {
      {"", "added\r\n"},     {"a", "a\r\nadded\r\n"},  // the last line gets the end that it lacked
      {"a\n", "a\nadded\n"}, {"a\rb\n", "a\rb\nadded\r"}, {"a\r\nb", "a\r\nb\r\nadded\r\n"},
  };
  for (const Ends& c : appended) {
    CodeText code(CodeKind::kStandardModule, nullptr, c.before);
    code.insertLines(100, "added");
    EXPECT_EQ(code.bytes(), c.after);
  }
}

TEST(CodeLines, AMissingLastLineEndStaysMissing) {
  CodeText code(CodeKind::kStandardModule, nullptr, "a\nb\nc");
  code.insertLines(1, "x");
  code.replaceLine(3, "y");
  EXPECT_EQ(code.bytes(), "x\na\ny\nc");
  code.insertLines(5, "z");
  code.deleteLines(5, 1);
  EXPECT_EQ(code.bytes(), "x\na\ny\nc");
  code.replaceLine(4, "c");
  EXPECT_EQ(code.bytes(), "x\na\ny\nc\n");
}

// Between a lone CR and an empty line that ends in LF there must be no meeting.
TEST(CodeLines, AnEmptyLineSurvivesBehindALoneCarriageReturn) {
  CodeText code(CodeKind::kStandardModule, nullptr, "a\rb\n\n\nc\n");
  code.deleteLines(2, 1);
  EXPECT_EQ(code.countOfLines(), 4);
  const std::string bytes = code.bytes();
  EXPECT_EQ(bytes, "a\r\r\rc\n");
}

TEST(CodeLines, AddFromStringLandsAboveTheFirstProcedure) {
  CodeText code = load("Option Explicit\n\n' about A\nSub A()\nEnd Sub\n");
  code.addFromString("Private x As Long");
  EXPECT_EQ(visible(code), "Option Explicit\nPrivate x As Long\n\n' about A\nSub A()\nEnd Sub\n");
  CodeText bare = load("Option Explicit\n\n");
  bare.addFromString("Sub B()\nEnd Sub");
  EXPECT_EQ(visible(bare), "Option Explicit\n\nSub B()\nEnd Sub\n");
}

TEST(CodeLines, EditsAreToldInVisibleLines) {
  CodeText code = load("Sub A()\nEnd Sub\n");
  std::string told;
  code.onEdited = [&](int line, int removed, int inserted) {
    told += std::to_string(line) + "-" + std::to_string(removed) + "+" + std::to_string(inserted) + " ";
  };
  code.insertLines(2, "x\ny");
  code.replaceLine(2, "z");
  code.deleteLines(2, 1);
  code.insertLines(2, "Attribute A.VB_UserMemId = 0\nx");
  code.insertLines(4, "Sub B()\nx\nAttribute B.VB_UserMemId = 0");
  code.deleteLines(5, 1);
  code.setText("a\nb\n");
  EXPECT_EQ(told, "2-0+2 2-1+1 2-1+0 2-0+1 4-0+3 5-2+0 1-5+2 ");
}

TEST(CodeLines, EditedTextThatNoLineUsesIsGivenUp) {
  CodeText code = load("Sub A()\nEnd Sub\nSub B()\nAttribute B.VB_UserMemId = 0\nEnd Sub\n");
  code.replaceLine(3, "Sub B(x)");
  const std::string line(5000, 'x');
  for (int i = 0; i < 2000; ++i) {
    code.insertLines(2, line);
    if (i % 5 != 0) code.deleteLines(2, 1);
  }
  EXPECT_EQ(code.countOfLines(), 404);
  EXPECT_EQ(code.line(2), line);
  EXPECT_EQ(code.line(401), line);
  EXPECT_EQ(code.line(403), "Sub B(x)");
  EXPECT_NE(code.bytes().find("Sub B(x)\r\nAttribute B.VB_UserMemId = 0\r\nEnd Sub\r\n"), std::string::npos);
}

}  // namespace
}  // namespace kolvane::test
