#include "source/line_number_map.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/statements.h"

namespace kolvane::source {
namespace {

using base::StatementLexer;
using base::Token;
using base::TokenKind;

constexpr std::array<std::string_view, 4> kScopes{"Public", "Private", "Friend", "Global"};
constexpr std::array<std::string_view, 3> kProcedures{"Sub", "Function", "Property"};
constexpr std::array<std::string_view, 3> kPropertyKinds{"Get", "Let", "Set"};
// Whole statements that a colon may follow; any other word in front of one is a label.
constexpr std::array<std::string_view, 9> kLoneWords{"Else",   "Do",   "Loop", "Wend",  "Next",
                                                     "Return", "Stop", "End",  "Resume"};

template <std::size_t N>
bool isOneOf(const Token& token, const std::array<std::string_view, N>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

bool isTitle(StatementLexer lexer, Token token) {
  if (isOneOf(token, kScopes)) token = lexer.next();
  if (token.isWord("Static")) token = lexer.next();
  if (!isOneOf(token, kProcedures)) return false;
  if (token.isWord("Property") && !isOneOf(lexer.next(), kPropertyKinds)) return false;
  token = lexer.next();
  return (token.kind == TokenKind::kWord && !token.isWord("As")) || token.kind == TokenKind::kBracketed;
}

bool isLabel(StatementLexer lexer, const Token& token) {
  return token.kind == TokenKind::kWord && lexer.next().isSign(':') && !isOneOf(token, kLoneWords);
}

// A hidden line that the host did not take for one.
bool isAttribute(StatementLexer lexer, const Token& token) {
  return token.isWord("Attribute") && lexer.next().kind == TokenKind::kWord;
}

}  // namespace

// Goes through the statements of a module in order.
class LineNumberMap::Reader {
 public:
  explicit Reader(LineNumberMap& map) : map_(map) { map_.procedures_.emplace_back(); }

  // A statement with all its lines, of which `line` is the first.
  void read(Line& line, std::string_view text) {
    StatementLexer lexer(text);
    Token token = lexer.next();
    const std::string_view number = token.kind == TokenKind::kNumber ? token.text : std::string_view();
    const bool isNumber = !number.empty();
    if (isNumber) token = lexer.next();
    if (isNumber && token.isSign(':')) token = lexer.next();
    line.takes = inProcedure_ && !isNumber && takesNumber(lexer, token);
    if (isTitle(lexer, token)) {
      if (!inProcedure_) open(line);
      line.takes = false;
      inProcedure_ = true;
    }
    line.procedure = static_cast<int>(map_.procedures_.size()) - 1;
    Procedure& procedure = map_.procedures_.back();
    if (!lineNumberMark(lTrimWhite(text)).empty()) {
      line.number = lineNumber(number);
      line.inColumn1 = base::isDigit(text.front());
      procedure.numbers.push_back(line.number);
    }
    followBlocks(lexer, token, text);
    procedure.references.read(text);
  }

 private:
  bool takesNumber(const StatementLexer& lexer, const Token& token) const {
    if (token.kind == TokenKind::kEnd || token.kind == TokenKind::kComment || token.isSign('#')) return false;
    if (token.isWord("Case") || isAttribute(lexer, token) || isLabel(lexer, token)) return false;
    return !inSelectHead_;
  }

  void open(Line& line) {
    line.opens = true;
    inSelectHead_ = false;
    map_.procedures_.emplace_back();
  }

  void followBlocks(StatementLexer lexer, Token token, std::string_view text) {
    if (token.isSign('#')) return;
    const bool isAlone = text.find(':') == std::string_view::npos;
    for (; token.kind != TokenKind::kEnd && token.kind != TokenKind::kComment; token = lexer.next()) {
      if (token.startsStatement) follow(lexer, token);
      if (isAlone) return;
    }
  }

  void follow(StatementLexer lexer, const Token& token) {
    if (token.isWord("Case")) inSelectHead_ = false;
    if (token.isWord("Select")) inSelectHead_ = lexer.next().isWord("Case");
    if (!token.isWord("End")) return;
    const Token what = lexer.next();
    if (what.isWord("Select")) inSelectHead_ = false;
    if (isOneOf(what, kProcedures)) inProcedure_ = false;
  }

  LineNumberMap& map_;
  bool inProcedure_ = false;
  bool inSelectHead_ = false;  // no Case has come yet
};

LineNumberMap::LineNumberMap(frame::CodeModule& module) {
  const std::string text = module.Lines(1, module.CountOfLines());
  const std::vector<std::string_view> lines = base::splitLines(text);
  lines_.resize(lines.size());
  Reader reader(*this);
  for (std::size_t first = 0; first < lines.size();) {
    std::size_t last = first;
    while (last + 1 < lines.size() && isJoinedToNext(lines[last])) ++last;
    const char* const end = lines[last].data() + lines[last].size();
    reader.read(lines_[first], {lines[first].data(), static_cast<std::size_t>(end - lines[first].data())});
    for (std::size_t further = first + 1; further <= last; ++further)
      lines_[further].procedure = lines_[first].procedure;
    first = last + 1;
  }
  for (Procedure& procedure : procedures_) {
    std::sort(procedure.numbers.begin(), procedure.numbers.end());
    procedure.references.finish();
  }
  hasFreeNumbers_ = std::any_of(lines_.begin(), lines_.end(), [this](const Line& line) {
    return line.inColumn1 && line.number != kNone && !isMeant(line);
  });
}

bool LineNumberMap::isMeant(const Line& line) const {
  return line.number != kNone && procedureOf(line).references.holds(line.number);
}

bool LineNumberMap::isTaken(int line, long number) const {
  const Procedure& procedure = procedureOf(at(line));
  return procedure.references.names(number) ||
         std::binary_search(procedure.numbers.begin(), procedure.numbers.end(), number);
}

}  // namespace kolvane::source
