#include "workspace/line_scanner.h"

#include <algorithm>
#include <array>

#include "base/statement_lexer.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

using base::StatementLexer;
using base::Token;
using base::TokenKind;
using frame::MemberScope;
using frame::MemberType;
using frame::ProcKind;

template <std::size_t N>
bool isOneOf(const Token& token, const std::array<std::string_view, N>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

constexpr std::array<std::string_view, 3> kProcedureWords{"Sub", "Function", "Property"};
constexpr std::array<std::string_view, 2> kBlockWords{"Type", "Enum"};

struct ScopeWord {
  std::string_view word;
  MemberScope scope;
};

constexpr std::array<ScopeWord, 4> kScopeWords{{
    {"Public", MemberScope::kPublic},
    {"Private", MemberScope::kPrivate},
    {"Friend", MemberScope::kFriend},
    {"Global", MemberScope::kPublic},
}};

struct PropertyWord {
  std::string_view word;
  ProcKind kind;
};

constexpr std::array<PropertyWord, 3> kPropertyWords{{
    {"Get", ProcKind::kGet},
    {"Let", ProcKind::kLet},
    {"Set", ProcKind::kSet},
}};

// First words of declaration statements.
constexpr std::array<std::string_view, 25> kDeclarationWords{
    "Const",      "Declare", "DefBool", "DefByte", "DefCur", "DefDate", "DefDbl",    "DefDec", "DefInt",
    "DefLng",     "DefObj",  "DefSng",  "DefStr",  "DefVar", "Dim",     "Enum",      "Event",  "Global",
    "Implements", "Option",  "Private", "Public",  "Static", "Type",    "WithEvents"};

const ScopeWord* scopeWord(const Token& token) {
  const auto found = std::find_if(kScopeWords.begin(), kScopeWords.end(),
                                  [&](const ScopeWord& row) { return token.isWord(row.word); });
  return found == kScopeWords.end() ? nullptr : &*found;
}

char lowerFirst(std::string_view text, std::size_t at) { return static_cast<char>(text[at] | 0x20); }

std::size_t firstNonBlank(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
  return at;
}

// A name that a title or a block may have. A reserved As tells a field or a variable that is called like a
// statement.
bool isProperName(const Token& token) {
  if (token.kind == TokenKind::kBracketed) return true;
  return token.kind == TokenKind::kWord && !base::isDigit(token.text.front()) && !token.isWord("As");
}

// Reads a title from its tokens; `token` is the first one and then the one that did not fit or the name.
std::optional<Title> readTitle(StatementLexer& lexer, Token& token) {
  Title title;
  if (token.kind == TokenKind::kNumber) token = lexer.next();  // a line number
  if (const ScopeWord* scope = scopeWord(token)) {
    title.scope = scope->scope;
    token = lexer.next();
  }
  if (token.isWord("Static")) {
    title.isStatic = true;
    token = lexer.next();
  }
  if (!isOneOf(token, kProcedureWords)) return std::nullopt;
  if (token.isWord("Property")) {
    token = lexer.next();
    const auto found = std::find_if(kPropertyWords.begin(), kPropertyWords.end(),
                                    [&](const PropertyWord& row) { return token.isWord(row.word); });
    if (found == kPropertyWords.end()) return std::nullopt;
    title.kind = found->kind;
  }
  token = lexer.next();
  if (!isProperName(token)) return std::nullopt;
  title.name = token.text;
  return title;
}

bool mayBeginTitle(char c) { return c == 'p' || c == 'f' || c == 'g' || c == 's' || base::isDigit(c); }
bool mayBeginBlock(char c) { return c == 'p' || c == 't' || c == 'e' || c == 'g'; }

bool opensBlock(std::string_view line) {
  StatementLexer lexer(line);
  Token token = lexer.next();
  if (scopeWord(token)) token = lexer.next();
  return isOneOf(token, kBlockWords) && isProperName(lexer.next());
}

// Whether the word End may stand at `at`, behind blanks and the underscores of continued lines.
bool mayBeEnd(std::string_view line, std::size_t at) {
  while (at < line.size() && (static_cast<unsigned char>(line[at]) <= ' ' || line[at] == '_')) ++at;
  return at + 3 < line.size() && lowerFirst(line, at) == 'e' && lowerFirst(line, at + 1) == 'n' &&
         lowerFirst(line, at + 2) == 'd';
}

bool mayHaveEndBehindColon(std::string_view line) {
  for (std::size_t colon = line.find(':'); colon != std::string_view::npos; colon = line.find(':', colon + 1))
    if (mayBeEnd(line, colon + 1)) return true;
  return false;
}

// The same for certain, read from tokens.
template <std::size_t N>
bool endsAnywhere(std::string_view line, const std::array<std::string_view, N>& words) {
  StatementLexer lexer(line);
  bool more = false;
  for (Token token = lexer.next(); token.kind != TokenKind::kEnd; token = lexer.next()) {
    if (!token.startsStatement || !token.isWord("End")) continue;
    StatementLexer ahead = lexer;
    if (isOneOf(ahead.next(), words)) return true;
    if (!more && !(more = mayHaveEndBehindColon(line))) return false;
  }
  return false;
}

// Whether a statement of the line is End with one of the words. `begin` is the first character that is no
// blank. Looks at single characters before it reads tokens: nearly all lines of a module pass here.
template <std::size_t N>
bool hasEnd(std::string_view line, std::size_t begin, const std::array<std::string_view, N>& words) {
  const bool possible = mayBeEnd(line, begin) || base::isDigit(line[begin]) || mayHaveEndBehindColon(line);
  return possible && endsAnywhere(line, words);
}

ScanStep scanModuleLine(std::string_view line, std::size_t begin) {
  const char first = lowerFirst(line, begin);
  if (mayBeginTitle(first)) {
    StatementLexer lexer(line);
    Token token = lexer.next();
    if (auto title = readTitle(lexer, token)) {
      const bool closed = mayHaveEndBehindColon(line) && endsAnywhere(line, kProcedureWords);
      return {closed ? ScanState::kModule : ScanState::kProcedure, title};
    }
  }
  if (mayBeginBlock(first) && opensBlock(line) &&
      !(mayHaveEndBehindColon(line) && endsAnywhere(line, kBlockWords)))
    return {ScanState::kBlock, std::nullopt};
  return {ScanState::kModule, std::nullopt};
}

ScanStep scanBlockLine(std::string_view line, std::size_t begin) {
  if (hasEnd(line, begin, kBlockWords)) return {ScanState::kModule, std::nullopt};
  if (mayBeginTitle(lowerFirst(line, begin)) && parseTitle(line)) return scanModuleLine(line, begin);
  return {ScanState::kBlock, std::nullopt};
}

bool endsStatement(const Token& token) {
  return token.kind == TokenKind::kEnd || token.kind == TokenKind::kComment || token.isSign(':');
}

// Goes behind the next comma outside brackets; false at the statement's end, whose token it leaves in
// `token`.
bool nextInList(StatementLexer& lexer, Token& token) {
  int depth = 0;
  while (!endsStatement(token)) {
    if (token.isSign('(')) ++depth;
    if (token.isSign(')')) --depth;
    const bool comma = token.isSign(',') && depth <= 0;
    token = lexer.next();
    if (comma) return true;
  }
  return false;
}

// Reads the statements of a line and collects the names that they declare.
class DeclarationReader {
 public:
  DeclarationReader(std::string_view line, const DefaultScopes& scopes) : lexer_(line), scopes_(scopes) {}

  std::vector<DeclaredName> read() {
    token_ = lexer_.next();
    bool first = true;
    while (token_.kind != TokenKind::kEnd && token_.kind != TokenKind::kComment) {
      if (!readStatement(first)) break;
      first = false;
      while (!endsStatement(token_)) token_ = lexer_.next();
      while (token_.isSign(':')) token_ = lexer_.next();
    }
    return std::move(names_);
  }

 private:
  // False behind a title: what follows on its line is the procedure's body.
  bool readStatement(bool first) {
    if (first) {
      StatementLexer ahead = lexer_;
      Token token = token_;
      if (const auto title = readTitle(ahead, token)) {
        addTitle(*title);
        return false;
      }
    }
    const ScopeWord* const scope = scopeWord(token_);
    bool declares = scope != nullptr;
    if (scope) advance();
    if (token_.isWord("Dim") || token_.isWord("Static")) {
      declares = true;
      advance();
    }
    readDeclaration(scope, declares);
    return true;
  }

  void readDeclaration(const ScopeWord* scope, bool declares) {
    const auto scopeOr = [&](MemberScope otherwise) { return scope ? scope->scope : otherwise; };
    if (token_.isWord("Const")) {
      advance();
      readList(MemberType::kConst, scopeOr(MemberScope::kPrivate));
    } else if (token_.isWord("Event")) {
      advance();
      add(MemberType::kEvent, scopeOr(MemberScope::kPublic));
    } else if (token_.isWord("Declare")) {
      advance();
      while (token_.kind == TokenKind::kWord && !isOneOf(token_, kProcedureWords)) advance();
      advance();
      add(MemberType::kMethod, scopeOr(scopes_.declare));
    } else if (token_.isWord("WithEvents") || (declares && !isOneOf(token_, kBlockWords))) {
      readList(MemberType::kVariable, scopeOr(MemberScope::kPrivate));
    }
  }

  void readList(MemberType type, MemberScope scope) {
    do {
      if (token_.isWord("WithEvents")) advance();
      add(type, scope);
    } while (nextInList(lexer_, token_));
  }

  void addTitle(const Title& title) {
    const MemberType type = title.kind == ProcKind::kProc ? MemberType::kMethod : MemberType::kProperty;
    names_.push_back({title.name, type, title.kind, title.scope, title.isStatic, true});
  }

  void add(MemberType type, MemberScope scope) {
    if (isProperName(token_)) names_.push_back({token_.text, type, ProcKind::kProc, scope, false, false});
  }

  void advance() { token_ = lexer_.next(); }

  StatementLexer lexer_;
  const DefaultScopes& scopes_;
  Token token_;
  std::vector<DeclaredName> names_;
};

}  // namespace

std::optional<Title> parseTitle(std::string_view logicalLine) {
  StatementLexer lexer(logicalLine);
  Token token = lexer.next();
  return readTitle(lexer, token);
}

ScanStep scanLine(ScanState state, std::string_view logicalLine) {
  const std::size_t begin = firstNonBlank(logicalLine);
  if (begin == logicalLine.size() || logicalLine[begin] == '\'') return {state, std::nullopt};
  switch (state) {
    case ScanState::kProcedure:
      if (hasEnd(logicalLine, begin, kProcedureWords)) return {ScanState::kModule, std::nullopt};
      return {state, std::nullopt};
    case ScanState::kBlock:
      return scanBlockLine(logicalLine, begin);
    case ScanState::kModule:
      break;
  }
  return scanModuleLine(logicalLine, begin);
}

bool isCode(std::string_view logicalLine) {
  const Token token = StatementLexer(logicalLine).next();
  return token.kind != TokenKind::kEnd && token.kind != TokenKind::kComment && !token.isSign('#');
}

bool holdsDeclaration(std::string_view logicalLine) {
  StatementLexer lexer(logicalLine);
  for (Token token = lexer.next(); token.kind != TokenKind::kEnd; token = lexer.next())
    if (token.startsStatement && isOneOf(token, kDeclarationWords)) return true;
  return false;
}

std::vector<DeclaredName> declaredNames(std::string_view logicalLine, const DefaultScopes& scopes) {
  const std::size_t begin = firstNonBlank(logicalLine);
  constexpr std::string_view kFirstLetters = "pfgsdcew0123456789";
  const bool possible = begin < logicalLine.size() &&
                        (kFirstLetters.find(lowerFirst(logicalLine, begin)) != std::string_view::npos ||
                         logicalLine.find(':') != std::string_view::npos);
  if (!possible) return {};
  return DeclarationReader(logicalLine, scopes).read();
}

}  // namespace kolvane::workspace
