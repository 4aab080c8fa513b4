#include "source/number_references.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "source/line_numbers.h"

namespace kolvane::source {
namespace {

using base::StatementLexer;
using base::Token;
using base::TokenKind;
using Tokens = std::vector<Token>;

constexpr std::string_view kErl = "Erl";
// An "=" behind them compares; behind any other first word it assigns.
constexpr std::array<std::string_view, 9> kComparingStatements{"If",    "ElseIf", "While",  "Do",   "Loop",
                                                               "Until", "Case",   "Select", "Debug"};
constexpr std::array<std::string_view, 5> kJumps{"GoTo", "GoSub", "Resume", "Then", "Else"};

bool mayRead(const Tokens& tokens, std::size_t at) { return at < tokens.size(); }
bool isSign(const Tokens& tokens, std::size_t at, char sign) {
  return mayRead(tokens, at) && tokens[at].isSign(sign);
}
bool isComparison(const Tokens& tokens, std::size_t at) {
  return isSign(tokens, at, '=') || isSign(tokens, at, '<') || isSign(tokens, at, '>');
}
bool isArithmetic(const Tokens& tokens, std::size_t at) {
  constexpr std::string_view kSigns = "+-*/\\^";
  if (!mayRead(tokens, at)) return false;
  const Token& token = tokens[at];
  return token.isWord("Mod") || (token.kind == TokenKind::kSign && token.text.size() == 1 &&
                                 kSigns.find(token.text[0]) != std::string_view::npos);
}
bool endsStatement(const Tokens& tokens, std::size_t at) {
  return !mayRead(tokens, at) || tokens[at].isSign(':') || tokens[at].isWord("Else");
}

bool isNumber(const Tokens& tokens, std::size_t at) {
  return mayRead(tokens, at) && tokens[at].kind == TokenKind::kNumber && lineNumber(tokens[at].text) >= 0;
}

template <std::size_t N>
bool isOneOf(const Token& token, const std::array<std::string_view, N>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

bool beginsSelect(const Tokens& tokens, std::size_t at) {
  return tokens[at].startsStatement && tokens[at].isWord("Select");
}

}  // namespace

bool NumberReferences::mayRefer(std::string_view text) const {
  if (!variables_.empty() || !selects_.empty()) return true;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (base::isDigit(text[at])) return true;
    if ((text[at] | 0x20) == 'e' && base::startsWithNoCase(text.substr(at), kErl)) return true;
  }
  return false;
}

bool NumberReferences::isErl(const Token& token) const {
  if (token.kind != TokenKind::kWord) return false;
  if (base::equalNoCase(token.text, kErl)) return true;
  return std::any_of(variables_.begin(), variables_.end(),
                     [&](std::string_view name) { return token.isWord(name); });
}

void NumberReferences::read(std::string_view logicalLine) {
  if (all_ || !mayRefer(logicalLine)) return;
  tokens_.clear();
  StatementLexer lexer(logicalLine);
  for (Token token = lexer.next(); token.kind != TokenKind::kEnd && token.kind != TokenKind::kComment;
       token = lexer.next())
    tokens_.push_back(token);
  readJumps(tokens_);
  readErl(tokens_);
  readSelect(tokens_);
}

void NumberReferences::readJumps(const Tokens& tokens) {
  bool jumps = false, inList = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (jumps && isNumber(tokens, at)) {
      numbers_.push_back(lineNumber(tokens[at].text));
      inList = true;
      jumps = false;
    } else {
      inList = inList && tokens[at].isSign(',');
      // "Go To" and "Go Sub" are one word each to the language.
      const bool second =
          at > 0 && tokens[at - 1].isWord("Go") && (tokens[at].isWord("To") || tokens[at].isWord("Sub"));
      jumps = inList || second || isOneOf(tokens[at], kJumps);
    }
  }
}

void NumberReferences::readErl(const Tokens& tokens) {
  std::size_t statement = 0;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].startsStatement) statement = at;
    if (!isErl(tokens[at])) continue;
    if (isArithmetic(tokens, at + 1) && !isSign(tokens, at + 1, '+')) all_ = true;
    readRight(tokens, at, statement);
    readLeft(tokens, at, statement);
  }
}

// What Erl is compared with. A number that goes on into a sum is no number of a line.
void NumberReferences::addOperand(const Tokens& tokens, std::size_t operand, std::size_t behind) {
  if (isNumber(tokens, operand) && !isArithmetic(tokens, behind))
    numbers_.push_back(lineNumber(tokens[operand].text));
  else
    all_ = true;
}

void NumberReferences::readRight(const Tokens& tokens, std::size_t erl, std::size_t statement) {
  const std::size_t sign = erl + 1;
  if (!isComparison(tokens, sign)) return;
  if (erl == statement && isSign(tokens, sign, '=')) return;  // the variable is set anew
  if (isSign(tokens, sign, '=') && !isComparison(tokens, sign + 1))
    addOperand(tokens, sign + 1, sign + 2);
  else if (isSign(tokens, sign, '<') && isSign(tokens, sign + 1, '>'))
    addOperand(tokens, sign + 2, sign + 3);
  else
    all_ = true;
}

void NumberReferences::readLeft(const Tokens& tokens, std::size_t erl, std::size_t statement) {
  if (erl < statement + 2 || !isComparison(tokens, erl - 1)) return;
  const std::size_t sign = erl - 1;
  const bool two = isComparison(tokens, sign - 1);
  if (!two && isSign(tokens, sign, '=')) {
    if (isOneOf(tokens[statement], kComparingStatements)) return addOperand(tokens, sign - 1, sign - 2);
    if (sign == statement + 1 && endsStatement(tokens, erl + 1) && !isErl(tokens[statement]))
      variables_.push_back(tokens[statement].text);
  } else if (two && isSign(tokens, sign - 1, '<') && isSign(tokens, sign, '>') && sign >= 2) {
    addOperand(tokens, sign - 2, sign - 3);
  } else {
    all_ = true;
  }
}

void NumberReferences::readSelect(const Tokens& tokens) {
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const Token& token = tokens[at];
    if (!token.startsStatement) continue;
    if (beginsSelect(tokens, at)) {
      const bool overErl = mayRead(tokens, at + 2) && isErl(tokens[at + 2]) && endsStatement(tokens, at + 3);
      if (overErl || !selects_.empty()) selects_.push_back(overErl);
    } else if (token.isWord("End") && mayRead(tokens, at + 1) && tokens[at + 1].isWord("Select")) {
      if (!selects_.empty()) selects_.pop_back();
    } else if (token.isWord("Case") && !selects_.empty() && selects_.back()) {
      readCase(Tokens(tokens.begin() + static_cast<std::ptrdiff_t>(at) + 1, tokens.end()));
    }
  }
}

void NumberReferences::readCase(const Tokens& values) {
  if (!values.empty() && values[0].isWord("Else")) return;
  for (std::size_t at = 0; !endsStatement(values, at); ++at) {
    const bool isAlone = isSign(values, at + 1, ',') || endsStatement(values, at + 1);
    if (isNumber(values, at) && isAlone)
      numbers_.push_back(lineNumber(values[at].text));
    else if (!values[at].isSign(','))
      all_ = true;
  }
}

void NumberReferences::finish() {
  std::sort(numbers_.begin(), numbers_.end());
  variables_.clear();
  tokens_ = {};
}

bool NumberReferences::names(long number) const {
  return std::binary_search(numbers_.begin(), numbers_.end(), number);
}

bool NumberReferences::holds(long number) const { return all_ || names(number); }

}  // namespace kolvane::source
