#include "base/statement_lexer.h"

#include <algorithm>

namespace kolvane::base {
namespace {

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
// Control characters count as blanks: none of them means anything in code.
bool isBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }
bool isBlankOrTab(char c) { return c == ' ' || c == '\t'; }
bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

}  // namespace

Token StatementLexer::next() {
  skipBlanks();
  const bool starts = startsStatement_, member = behindDot_, first = first_;
  startsStatement_ = behindDot_ = first_ = false;
  if (at_ == text_.size()) return take(TokenKind::kEnd, at_, starts);

  const char c = text_[at_];
  if (c == '\'') return take(TokenKind::kComment, text_.size(), starts);
  if (c == '"') return take(TokenKind::kString, stringEnd(), starts);
  if (const std::size_t end = numberEnd(); end > at_) {
    startsStatement_ = first;  // a line number
    return take(TokenKind::kNumber, end, starts && !first);
  }
  if (c == '[')
    if (const std::size_t end = bracketEnd(); end > at_) return take(TokenKind::kBracketed, end, starts);
  return isWordCharacter(c) ? takeWord(starts, member) : takeSign(starts);
}

void StatementLexer::skipBlanks() {
  while (at_ < text_.size() && (isBlank(text_[at_]) || continuationAt(at_))) ++at_;
}

bool StatementLexer::continuationAt(std::size_t at) const {
  if (text_[at] != '_' || at == 0 || !isBlankOrTab(text_[at - 1])) return false;
  ++at;
  while (isBlankOrTab(charAt(at))) ++at;
  return at == text_.size() || isLineEnd(text_[at]);
}

std::size_t StatementLexer::stringEnd() const {
  std::size_t at = at_ + 1;
  while (at < text_.size() && !isLineEnd(text_[at])) {
    if (text_[at] == '"') {
      if (charAt(at + 1) != '"') return at + 1;
      ++at;
    }
    ++at;
  }
  return at;
}

std::size_t StatementLexer::numberEnd() const {
  std::size_t at = at_;
  if (text_[at] == '&') {
    const char kind = charAt(at + 1);
    const bool radix = kind == 'H' || kind == 'h' || kind == 'O' || kind == 'o';
    std::size_t digits = at + (radix ? 2 : 1);
    while (radix ? isHexDigit(charAt(digits)) : isDigit(charAt(digits))) ++digits;
    return digits > at + (radix ? 2U : 1U) ? digits : at_;
  }
  if (!isDigit(text_[at]) && !(text_[at] == '.' && isDigit(charAt(at + 1)))) return at_;
  while (isDigit(charAt(at)) || charAt(at) == '.') ++at;
  const char exponent = charAt(at);
  if (exponent == 'E' || exponent == 'e' || exponent == 'D' || exponent == 'd') {
    std::size_t digits = at + 1;
    if (charAt(digits) == '+' || charAt(digits) == '-') ++digits;
    if (isDigit(charAt(digits))) {
      at = digits;
      while (isDigit(charAt(at))) ++at;
    }
  }
  return at;
}

std::size_t StatementLexer::bracketEnd() {
  if (at_ < bracketsSought_) return at_;
  std::size_t at = at_ + 1;
  while (at < text_.size() && !isLineEnd(text_[at])) {
    if (text_[at] == ']') return at + 1;
    ++at;
  }
  bracketsSought_ = at;
  return at_;
}

Token StatementLexer::take(TokenKind kind, std::size_t end, bool startsStatement) {
  Token token;
  token.kind = kind;
  token.text = text_.substr(at_, end - at_);
  token.startsStatement = startsStatement;
  at_ = end;
  return token;
}

Token StatementLexer::takeWord(bool startsStatement, bool isMember) {
  std::size_t end = at_;
  while (end < text_.size() && isWordCharacter(text_[end])) ++end;
  const std::size_t begin = at_;
  Token token = take(TokenKind::kWord, end, startsStatement);
  token.isMember = isMember;
  const char suffix = charAt(end), behind = charAt(end + 1);
  const bool operandFollows = isWordCharacter(behind) || behind == '[';
  if (suffix == '$' || suffix == '%' || suffix == '@' ||
      ((suffix == '&' || suffix == '!' || suffix == '#') && !operandFollows)) {
    token.suffix = suffix;
    ++at_;
  }
  if (startsStatement && token.isWord("Rem") && token.suffix == 0) {
    at_ = begin;
    return take(TokenKind::kComment, text_.size(), startsStatement);
  }
  startsStatement_ = token.isWord("Then") || token.isWord("Else");
  return token;
}

Token StatementLexer::takeSign(bool startsStatement) {
  const char c = text_[at_], behind = charAt(at_ + 1);
  if (c == ':' && behind == '=') return take(TokenKind::kSign, at_ + 2, startsStatement);
  startsStatement_ = c == ':';
  behindDot_ = c == '.' || (c == '!' && (isWordCharacter(behind) || behind == '['));
  return take(TokenKind::kSign, at_ + 1, startsStatement);
}

}  // namespace kolvane::base
