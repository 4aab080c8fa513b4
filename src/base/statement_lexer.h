// Cuts a logical line of code into words, literals and signs.
#pragma once

#include <string_view>

#include "base/text.h"

namespace kolvane::base {

enum class TokenKind : unsigned char { kEnd, kWord, kBracketed, kNumber, kString, kComment, kSign };

// `text` points into the lexer's text. A word's is without its type suffix; a sign is one character, or ":=".
struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;
  char suffix = 0;               // a word's type suffix, one of $ % & ! # @
  bool startsStatement = false;  // first in a statement, a line number not counted
  bool isMember = false;         // right behind a dot or an exclamation mark

  bool isWord(std::string_view word) const {
    return kind == TokenKind::kWord && !isMember && equalNoCase(text, word);
  }
  bool isSign(char sign) const { return kind == TokenKind::kSign && text.size() == 1 && text[0] == sign; }
};

// A statement starts at the line's start, behind a colon, and behind Then and Else. Line ends inside the text
// are blanks, and so is the underscore that continues a line; strings end with their physical line. Cheap to
// copy for looking ahead.
class StatementLexer {
 public:
  explicit StatementLexer(std::string_view logicalLine) : text_(logicalLine) {}

  Token next();

 private:
  void skipBlanks();
  bool continuationAt(std::size_t at) const;
  std::size_t stringEnd() const;
  std::size_t numberEnd() const;
  std::size_t bracketEnd();
  char charAt(std::size_t at) const { return at < text_.size() ? text_[at] : '\0'; }
  Token take(TokenKind kind, std::size_t end, bool startsStatement);
  Token takeWord(bool startsStatement, bool isMember);
  Token takeSign(bool startsStatement);

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t bracketsSought_ = 0;  // up to here no bracket is closed
  bool first_ = true;
  bool startsStatement_ = true;
  bool behindDot_ = false;
};

}  // namespace kolvane::base
