#include "workspace/keyword_case.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/statement_lexer.h"
#include "base/text.h"
#include "workspace/attribute_lines.h"

namespace kolvane::workspace {
namespace {

using base::StatementLexer;
using base::Token;
using base::TokenKind;
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

constexpr bool lessNoCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i)
    if (lower(a[i]) != lower(b[i])) return lower(a[i]) < lower(b[i]);
  return a.size() < b.size();
}

// Keywords wherever they stand.
constexpr std::array kReserved = std::to_array<std::string_view>({
    "Abs",        "AddressOf",  "And",      "Any",     "Array",   "As",         "Boolean",  "ByRef",
    "Byte",       "ByVal",      "Call",     "Case",    "CBool",   "CByte",      "CCur",     "CDate",
    "CDbl",       "CDec",       "CInt",     "Circle",  "CLng",    "Close",      "Const",    "CSng",
    "CStr",       "Currency",   "CVar",     "CVErr",   "Date",    "Debug",      "Declare",  "DefBool",
    "DefByte",    "DefCur",     "DefDate",  "DefDbl",  "DefDec",  "DefInt",     "DefLng",   "DefObj",
    "DefSng",     "DefStr",     "DefVar",   "Dim",     "Do",      "DoEvents",   "Double",   "Each",
    "Else",       "ElseIf",     "Empty",    "End",     "EndIf",   "Enum",       "Eqv",      "Erase",
    "Event",      "Exit",       "False",    "Fix",     "For",     "Friend",     "Function", "Get",
    "Global",     "GoSub",      "GoTo",     "If",      "Imp",     "Implements", "In",       "Input",
    "InputB",     "Int",        "Integer",  "Is",      "LBound",  "Len",        "LenB",     "Let",
    "Like",       "Lock",       "Long",     "Loop",    "LSet",    "Me",         "Mod",      "New",
    "Next",       "Not",        "Nothing",  "Null",    "On",      "Open",       "Option",   "Optional",
    "Or",         "ParamArray", "Preserve", "Print",   "Private", "PSet",       "Public",   "Put",
    "RaiseEvent", "ReDim",      "Rem",      "Resume",  "Return",  "RSet",       "Scale",    "Seek",
    "Select",     "Set",        "Sgn",      "Shared",  "Single",  "Spc",        "Static",   "Stop",
    "String",     "Sub",        "Tab",      "Then",    "To",      "True",       "Type",     "TypeOf",
    "UBound",     "Unlock",     "Until",    "Variant", "Wend",    "While",      "With",     "WithEvents",
    "Write",      "Xor",
});
static_assert(std::is_sorted(kReserved.begin(), kReserved.end(), lessNoCase));

// Where a word is a keyword that is none elsewhere.
enum class Place : unsigned char {
  kOpenMode,       // behind For in an Open statement
  kDeclareClause,  // in a Declare, between the name and the parameters
  kOption,         // second word of an Option statement
  kOptionCompare,  // behind Option Compare
  kOptionPrivate,  // behind Option Private
  kOnError,        // On Error, On Local Error, Error n, Error$
  kOnLocal,        // On Local Error
  kLineInput,      // Line Input at a statement's start
  kRename,         // Name x As y
  kMidStatement,   // a statement's start, in front of a bracket
  kProperty,       // title, End Property, Exit Property
  kStandsAlone,    // a statement of its own
  kFileStatement,  // a statement's start, in front of a file number
  kForStep,        // behind To in a For statement
  kType,           // behind As
};

struct ContextualWord {
  std::string_view word;
  Place place;
};

constexpr bool lessWord(const ContextualWord& a, const ContextualWord& b) {
  return lessNoCase(a.word, b.word);
}

constexpr std::array kContextual = std::to_array<ContextualWord>({
    {"Access", Place::kOpenMode},      {"Alias", Place::kDeclareClause}, {"Append", Place::kOpenMode},
    {"Base", Place::kOption},          {"Binary", Place::kOpenMode},     {"Binary", Place::kOptionCompare},
    {"Cdecl", Place::kDeclareClause},  {"Compare", Place::kOption},      {"Error", Place::kOnError},
    {"Explicit", Place::kOption},      {"Lib", Place::kDeclareClause},   {"Line", Place::kLineInput},
    {"Local", Place::kOnLocal},        {"Mid", Place::kMidStatement},    {"MidB", Place::kMidStatement},
    {"Module", Place::kOptionPrivate}, {"Name", Place::kRename},         {"Object", Place::kType},
    {"Output", Place::kOpenMode},      {"Property", Place::kProperty},   {"Random", Place::kOpenMode},
    {"Read", Place::kOpenMode},        {"Reset", Place::kStandsAlone},   {"Step", Place::kForStep},
    {"Text", Place::kOptionCompare},   {"Width", Place::kFileStatement},
});
static_assert(std::is_sorted(kContextual.begin(), kContextual.end(), lessWord));

// All words by the ends and the length that they have: most names of a program are told from them at one look.
class WordTable {
 public:
  constexpr WordTable() {
    for (std::size_t i = 0; i < kReserved.size(); ++i) put(kReserved[i], i);
    for (std::size_t i = 0; i < kContextual.size(); ++i) put(kContextual[i].word, kReserved.size() + i);
  }

  // The index of a word among the reserved ones and the contextual ones behind them, or kNone.
  static constexpr std::size_t kNone = SIZE_MAX;
  std::size_t find(std::string_view word) const {
    for (std::size_t slot = slotOf(word); slots_[slot] != 0; slot = (slot + 1) % kSlots) {
      const std::size_t index = slots_[slot] - std::size_t{1};
      if (base::equalNoCase(spelling(index), word)) return index;
    }
    return kNone;
  }

  static constexpr std::string_view spelling(std::size_t index) {
    return index < kReserved.size() ? kReserved[index] : kContextual[index - kReserved.size()].word;
  }

 private:
  static constexpr std::size_t kSlots = 1024;
  static_assert(kReserved.size() + kContextual.size() < 255);

  static constexpr std::size_t slotOf(std::string_view word) {
    const auto code = [](char c) { return static_cast<std::size_t>(static_cast<unsigned char>(c) | 0x20U); };
    return (code(word.front()) * 41 + code(word.back()) * 11 + word.size() * 97) % kSlots;
  }

  constexpr void put(std::string_view word, std::size_t index) {
    std::size_t slot = slotOf(word);
    for (; slots_[slot] != 0; slot = (slot + 1) % kSlots)
      if (spelling(slots_[slot] - std::size_t{1}) == word) return;  // a contextual word with several places
    slots_[slot] = static_cast<unsigned char>(index + 1);
  }

  std::array<unsigned char, kSlots> slots_{};
};
constexpr WordTable kWords;

// Statements of one word: in front of a colon in column 1 they are no labels.
constexpr std::array<std::string_view, 11> kOneWordStatements{
    "Close", "Do", "DoEvents", "Else", "End", "Loop", "Next", "Resume", "Return", "Stop", "Wend"};

// Behind these an operand follows, so that a Step there is a name.
constexpr std::array<std::string_view, 10> kOperators{"And", "Eqv", "Imp", "Is", "Like",
                                                      "Mod", "Not", "Or",  "To", "Xor"};

constexpr std::array<std::string_view, 5> kModifiers{"Friend", "Global", "Private", "Public", "Static"};

template <std::size_t N>
bool isOneOf(const Token& token, const std::array<std::string_view, N>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

bool endsStatement(const Token& token) {
  return token.kind == TokenKind::kEnd || token.kind == TokenKind::kComment || token.isSign(':');
}

enum class CharKind : unsigned char { kOther, kLetter, kDigit, kQuote, kApostrophe, kUnsure };

constexpr auto kCharKinds = [] {
  std::array<CharKind, 256> kinds{};
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const char c = static_cast<char>(i);
    if (base::isWordCharacter(c)) kinds[i] = base::isDigit(c) ? CharKind::kDigit : CharKind::kLetter;
  }
  kinds['"'] = CharKind::kQuote;
  kinds['\''] = CharKind::kApostrophe;
  kinds['['] = CharKind::kUnsure;
  return kinds;
}();

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
bool isWordKind(CharKind kind) { return kind == CharKind::kLetter || kind == CharKind::kDigit; }
CharKind kindOf(char c) { return kCharKinds[static_cast<unsigned char>(c)]; }

// Goes through a logical line with one token on either side of the current one. The sink is told each token that is no
// keyword, and each keyword with its spelling.
template <typename Sink>
class KeywordWalk {
 public:
  KeywordWalk(std::string_view line, bool insideBlock, Sink sink)
      : line_(line), insideBlock_(insideBlock), sink_(sink), lexer_(line) {}

  void run() {
    following_ = lexer_.next();
    do {
      previous_ = token_;
      token_ = following_;
      following_ = lexer_.next();
      if (token_.startsStatement) beginStatement();
      if (token_.kind == TokenKind::kWord) {
        takeWord();
      } else {
        sink_.other(token_);
      }
      notePlace();
    } while (token_.kind != TokenKind::kEnd);
  }

 private:
  // What the statement is as far as it has been read.
  struct Statement {
    Token first;
    bool isDeclare = false;
    bool isOpenMode = false;  // an Open behind its For
    bool isForLimit = false;  // a For behind its To
    bool parameters = false;  // a bracket was opened
  };

  void beginStatement() {
    statement_ = {};
    statement_.first = token_;
  }

  void notePlace() {
    if (token_.isSign('(')) statement_.parameters = true;
    if (token_.kind != TokenKind::kWord) return;
    if (token_.isWord("Declare") && (token_.startsStatement || isOneOf(previous_, kModifiers)))
      statement_.isDeclare = true;
    if (token_.isWord("For") && statement_.first.isWord("Open")) statement_.isOpenMode = true;
    if (token_.isWord("As")) statement_.isOpenMode = false;
    if (token_.isWord("To") && statement_.first.isWord("For")) statement_.isForLimit = true;
  }

  void takeWord() {
    const std::size_t index = kWords.find(token_.text);
    if (index == WordTable::kNone) return;
    if (token_.isMember || following_.text == ":=" || isLabel() || isDeclaredName()) return;
    if (index < kReserved.size()) {
      sink_.keyword(token_, kReserved[index]);
      return;
    }
    const auto [from, to] =
        std::equal_range(kContextual.begin(), kContextual.end(), ContextualWord{token_.text, {}}, lessWord);
    for (auto row = from; row != to; ++row) {
      if (!standsAt(row->place)) continue;
      sink_.keyword(token_, row->word);
      if (row->place == Place::kForStep) statement_.isForLimit = false;
    }
  }

  // In column 1, in front of a colon.
  bool isLabel() const {
    return token_.text.data() == line_.data() && following_.isSign(':') &&
           !isOneOf(token_, kOneWordStatements);
  }

  // The first word of a line in a Type or Enum, but for its End.
  bool isDeclaredName() const {
    if (!insideBlock_ || !token_.startsStatement) return false;
    return !(token_.isWord("End") && (following_.isWord("Type") || following_.isWord("Enum")));
  }

  bool standsAt(Place place) const {
    switch (place) {
      case Place::kOpenMode:
        return statement_.isOpenMode;
      case Place::kDeclareClause:
        return statement_.isDeclare && !statement_.parameters && !previous_.isWord("Sub") &&
               !previous_.isWord("Function");
      case Place::kOption:
        return isSecondBehind("Option");
      case Place::kOptionCompare:
        return previous_.isWord("Compare") && statement_.first.isWord("Option");
      case Place::kOptionPrivate:
        return previous_.isWord("Private") && statement_.first.isWord("Option");
      case Place::kOnError:
        return token_.suffix == '$' || isSecondBehind("On") ||
               (previous_.isWord("Local") && statement_.first.isWord("On")) ||
               (token_.startsStatement && operandFollows());
      case Place::kOnLocal:
        return isSecondBehind("On") && following_.isWord("Error");
      case Place::kLineInput:
        return token_.startsStatement && following_.isWord("Input");
      case Place::kRename:
        return token_.startsStatement && operandFollows() && asFollows();
      case Place::kMidStatement:
        return token_.startsStatement && token_.suffix == 0 && following_.isSign('(');
      case Place::kProperty:
        return isPropertyKeyword();
      case Place::kStandsAlone:
        return token_.startsStatement && endsStatement(following_);
      case Place::kFileStatement:
        return token_.startsStatement && token_.suffix == 0 && following_.isSign('#');
      case Place::kForStep:
        return statement_.isForLimit && endsOperand(previous_);
      case Place::kType:
        return previous_.isWord("As");
    }
    return false;
  }

  bool isSecondBehind(std::string_view first) const {
    return statement_.first.isWord(first) && previous_.text.data() == statement_.first.text.data();
  }

  bool isPropertyKeyword() const {
    if (previous_.isWord("End") || previous_.isWord("Exit")) return true;
    const bool inFront = token_.startsStatement || isOneOf(previous_, kModifiers);
    return inFront && (following_.isWord("Get") || following_.isWord("Let") || following_.isWord("Set"));
  }

  // A literal or a name, as behind a statement's keyword; not what would make a name of the word itself.
  bool operandFollows() const {
    return token_.suffix == 0 && !following_.isWord("As") &&
           (following_.kind == TokenKind::kWord || following_.kind == TokenKind::kNumber ||
            following_.kind == TokenKind::kString || following_.kind == TokenKind::kBracketed);
  }

  static bool endsOperand(const Token& token) {
    if (token.kind == TokenKind::kSign) return token.isSign(')');
    return !isOneOf(token, kOperators);
  }

  bool asFollows() const {
    StatementLexer ahead = lexer_;
    for (Token token = following_; !endsStatement(token); token = ahead.next())
      if (token.isWord("As")) return true;
    return false;
  }

  std::string_view line_;
  bool insideBlock_;
  Sink sink_;
  StatementLexer lexer_;
  Token previous_;
  Token token_;
  Token following_;
  Statement statement_;
};

struct Respelling {
  std::span<char> line;

  void keyword(const Token& token, std::string_view spelling) const {
    const auto at = token.text.data() - line.data();
    std::copy(spelling.begin(), spelling.end(), line.begin() + at);
  }
  void other(const Token& token) const {
    if (token.kind == TokenKind::kComment && token.text.front() != '\'') keyword(token, "Rem");
  }
};

struct Parts {
  const VisitPart& visit;

  void keyword(const Token& token, std::string_view /*spelling*/) const {
    visit(CodePart::kKeyword, token.text);
  }
  void other(const Token& token) const {
    if (token.kind == TokenKind::kString) visit(CodePart::kString, token.text);
    if (token.kind == TokenKind::kComment) visit(CodePart::kComment, token.text);
    if (token.isSign('#') && token.startsStatement) visit(CodePart::kKeyword, token.text);
  }
};

}  // namespace

std::string_view reservedSpelling(std::string_view word) {
  const std::size_t index = word.empty() ? WordTable::kNone : kWords.find(word);
  return index < kReserved.size() ? kReserved[index] : std::string_view();
}

void recaseKeywords(std::span<char> logicalLine, bool insideBlock) {
  const std::string_view line(logicalLine.data(), logicalLine.size());
  if (!beginsWithAttribute(line)) KeywordWalk(line, insideBlock, Respelling{logicalLine}).run();
}

void visitCodeParts(std::string_view logicalLine, bool insideBlock, const VisitPart& visit) {
  if (!beginsWithAttribute(logicalLine)) KeywordWalk(logicalLine, insideBlock, Parts{visit}).run();
}

// Every word outside strings and comments that could be a keyword is spelled as one, whatever it is. The lines of a
// comment that goes on are looked at like code.
bool hasKeywordsSpelled(std::string_view lines) {
  const auto wordEnd = [lines](std::size_t at) {
    while (at < lines.size() && isWordKind(kindOf(lines[at]))) ++at;
    return at;
  };
  for (std::size_t at = 0; at < lines.size();) {
    std::size_t end = at + 1;
    switch (kindOf(lines[at])) {
      case CharKind::kOther:
        // A number such as &H10 may have a word right behind it.
        if (lines[at] == '&' && end < lines.size() && kindOf(lines[end]) == CharKind::kLetter) return false;
        break;
      case CharKind::kLetter: {
        end = wordEnd(end);
        const std::string_view word = lines.substr(at, end - at);
        const std::size_t index = kWords.find(word);
        if (index != WordTable::kNone && WordTable::spelling(index) != word) return false;
        break;
      }
      case CharKind::kDigit:
        while (end < lines.size() && base::isDigit(lines[end])) ++end;
        if (end < lines.size() && isWordKind(kindOf(lines[end]))) return false;
        break;
      case CharKind::kQuote:
        while (end < lines.size() && lines[end] != '"' && !isLineEnd(lines[end])) ++end;
        if (end == lines.size() || lines[end++] != '"') return false;
        break;
      case CharKind::kApostrophe:
        while (end < lines.size() && !isLineEnd(lines[end])) ++end;
        break;
      case CharKind::kUnsure:
        return false;
    }
    at = end;
  }
  return true;
}

}  // namespace kolvane::workspace
