// The classification of a statement, against the same rules written down step by step.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "base/text.h"
#include "maintenance/code_indenter.h"
#include "maintenance/indent_keywords.h"

namespace kolvane::maintenance {
namespace {

struct Outcome {
  int indentCount = 0;
  int outdentCount = 0;
  bool onHeader = false;
  IndentState state;
  bool operator==(const Outcome&) const = default;
};

// All 56 starts, in their order.
std::vector<std::string> procedureStarts() {
  std::vector<std::string> starts;
  for (const std::string_view prefix : kStartPrefixes)
    for (const std::string_view word : kStartWords) starts.push_back(std::string(prefix).append(word));
  return starts;
}

Outcome stepByStep(IndentState state, const std::string& statement) {
  static const std::vector<std::string> kStarts = procedureStarts();
  Outcome out;
  std::string t = base::uCase(base::trim(statement)) + " ";
  const auto matches = [&t](std::string_view keyword) {
    return t.starts_with(keyword) && (t[keyword.size()] == ' ' || t[keyword.size()] == ':');
  };
  if (!state.InTypeOrEnum) {
    for (const auto opener : kBlockOpeners) out.indentCount += matches(opener) ? 1 : 0;
    for (const auto closer : kBlockClosers) out.outdentCount += matches(closer) ? 1 : 0;
  }
  for (const std::string& start : kStarts) {
    if (!matches(start)) continue;
    if (!state.InTypeOrEnum) ++out.indentCount;
    out.onHeader = true;
    if (start.ends_with("TYPE") || start.ends_with("ENUM")) state.InTypeOrEnum = true;
  }
  for (const auto end : kProcedureEnds) {
    if (!matches(end)) continue;
    state.InTypeOrEnum = false;
    ++out.outdentCount;
  }
  out.state = state;
  if (state.InTypeOrEnum || !(t.starts_with("#IF ") || t.starts_with("IF ") || state.IfContinued)) return out;
  if (state.IfContinued) out.indentCount = 1;
  state.IfContinued = base::trim(t).ends_with(" _");
  for (std::size_t quote; (quote = t.find('"')) != std::string::npos;) {
    std::size_t end = t.find('"', quote + 1);
    if (end == std::string::npos) end = t.size() - 1;
    t.erase(quote, end - quote + 1);
  }
  t = " " + t.substr(0, t.find('\'')) + " ";
  if (const std::size_t then = t.find(" THEN "); then != std::string::npos) {
    state.IfContinued = false;
    if (!base::trim(t.substr(then + 6)).empty()) out.indentCount = 0;
  }
  if (state.IfContinued) out.indentCount = 0;
  out.state = state;
  return out;
}

Outcome fast(IndentState state, const std::string& statement) {
  Outcome out;
  CheckLine(state, statement, out.indentCount, out.outdentCount, out.onHeader);
  out.state = state;
  return out;
}

// Words that begin statements, pieces of conditions, and things that look like either.
const std::vector<std::string_view> kPieces{
    "If",     "if",       "#If",      "ElseIf", "#ElseIf",  "Else",   "#Else", "End",     "#End",
    "Select", "Case",     "With",     "For",    "Do",       "While",  "Next",  "Loop",    "Wend",
    "Sub",    "Function", "Property", "Let",    "Get",      "Set",    "Type",  "Enum",    "Static",
    "Public", "Private",  "Friend",   "Global", "Then",     "THEN",   "_",     "\"",      "\"a Then b\"",
    "'",      ":",        "x",        "=",      "Nextline", "Thence", "EndIf", "Declare", "Exit",
    "10",     "Dim",      "a.Next",   "\"\"",   "(",        "\t",
};

TEST(CheckLine, KnowsAFewStatementsByHeart) {
  const auto check = [](std::string_view text, int in, int out, bool header) {
    IndentState state;
    int indentCount = 9, outdentCount = 9;
    bool onHeader = false;
    CheckLine(state, text, indentCount, outdentCount, onHeader);
    EXPECT_EQ(std::tuple(indentCount, outdentCount, onHeader), std::tuple(in, out, header)) << text;
  };
  check("select case x", 2, 0, false);
  check("End Select", 0, 2, false);
  check("Else", 1, 1, false);
  check("Do:", 1, 0, false);
  check("Nextline", 0, 0, false);
  check("If a = \"Then x\" Then", 1, 0, false);
  check("If a Then MsgBox \"x\"", 0, 0, false);
  check("  Private Static Property Get Size() As Long", 1, 0, true);
  check("Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)", 0, 0, false);
  check("10 If a Then", 0, 0, false);
  check("", 0, 0, false);
}

TEST(CheckLine, IsTheSameAsStepByStepOnAnyStatement) {
  std::mt19937 random(20261122);
  const auto below = [&random](std::size_t count) { return random() % count; };
  for (int i = 0; i < 200'000; ++i) {
    std::string statement(below(3), ' ');
    for (std::size_t words = below(7); words > 0; --words) {
      statement.append(kPieces[below(kPieces.size())]);
      statement.append(below(8) == 0 ? "" : below(8) == 0 ? "  " : " ");
    }
    IndentState state;
    state.InTypeOrEnum = below(4) == 0;
    state.IfContinued = below(4) == 0;
    if (statement.find('\t') != std::string::npos && statement.find_first_of("tT") != std::string::npos)
      continue;  // a tab behind Then counts as a blank
    ASSERT_EQ(fast(state, statement), stepByStep(state, statement)) << "[" << statement << "]";
  }
}

TEST(CheckLine, KnowsEveryRowOfTheTables) {
  std::vector<std::string> rows = procedureStarts();
  for (const auto word : kBlockOpeners) rows.emplace_back(word);
  for (const auto word : kBlockClosers) rows.emplace_back(word);
  for (const auto word : kProcedureEnds) rows.emplace_back(word);
  EXPECT_EQ(rows.size(), 56U + 13 + 13 + 5);
  for (const std::string& row : rows)
    for (const std::string_view end : {"", " x", ":", "x", "  ", "()"})
      for (const bool inType : {false, true}) {
        const std::string statement = base::lCase(row).append(end);
        IndentState state;
        state.InTypeOrEnum = inType;
        EXPECT_EQ(fast(state, statement), stepByStep(state, statement)) << "[" << statement << "]";
      }
}

}  // namespace
}  // namespace kolvane::maintenance
