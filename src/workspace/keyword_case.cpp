#include "workspace/keyword_case.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/text.h"
#include "workspace/attribute_lines.h"
#include "workspace/statement_lexer.h"

namespace kolvane::workspace {
namespace {

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

// The reserved words from the letter's first on stand at kLetterStarts[letter - 'a'], the end of the last at 'z' + 1.
constexpr auto kLetterStarts = [] {
  std::array<unsigned char, 27> starts{};
  for (std::size_t letter = 0; letter < starts.size(); ++letter)
    for (const std::string_view word : kReserved)
      if (static_cast<std::size_t>(lower(word[0]) - 'a') < letter) ++starts[letter];
  return starts;
}();

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

// Goes through a logical line with one token on either side of the current one.
class Recaser {
 public:
  Recaser(std::span<char> line, bool insideBlock)
      : line_(line), insideBlock_(insideBlock), lexer_(std::string_view(line.data(), line.size())) {}

  void run() {
    following_ = lexer_.next();
    do {
      previous_ = token_;
      token_ = following_;
      following_ = lexer_.next();
      if (token_.startsStatement) beginStatement();
      if (token_.kind == TokenKind::kComment) {
        recaseRem();
      } else if (token_.kind == TokenKind::kWord) {
        recaseWord();
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
    if (token_.isWord("Declare") && (token_.startsStatement || isOneOf(previous_, kModifiers)))
      statement_.isDeclare = true;
    if (token_.isWord("For") && statement_.first.isWord("Open")) statement_.isOpenMode = true;
    if (token_.isWord("As")) statement_.isOpenMode = false;
    if (token_.isWord("To") && statement_.first.isWord("For")) statement_.isForLimit = true;
    if (token_.isSign('(')) statement_.parameters = true;
  }

  void recaseWord() {
    if (token_.isMember || following_.text == ":=" || isLabel() || isDeclaredName()) return;
    if (const std::string_view spelling = reservedSpelling(token_.text); !spelling.empty()) {
      respell(spelling);
      return;
    }
    const auto [from, to] =
        std::equal_range(kContextual.begin(), kContextual.end(), ContextualWord{token_.text, {}}, lessWord);
    for (auto row = from; row != to; ++row) {
      if (!standsAt(row->place)) continue;
      respell(row->word);
      if (row->place == Place::kForStep) statement_.isForLimit = false;
    }
  }

  void recaseRem() {
    if (token_.text.front() != '\'') respell("Rem");
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

  void respell(std::string_view spelling) {
    const auto at = token_.text.data() - line_.data();
    std::copy(spelling.begin(), spelling.end(), line_.begin() + at);
  }

  std::span<char> line_;
  bool insideBlock_;
  StatementLexer lexer_;
  Token previous_;
  Token token_;
  Token following_;
  Statement statement_;
};

}  // namespace

std::span<const std::string_view> reservedWords() { return kReserved; }

std::string_view reservedSpelling(std::string_view word) {
  if (word.empty() || !base::isAsciiLetter(word[0])) return {};
  const auto letter = static_cast<std::size_t>(lower(word[0]) - 'a');
  for (std::size_t i = kLetterStarts[letter]; i < kLetterStarts[letter + 1]; ++i)
    if (base::equalNoCase(kReserved[i], word)) return kReserved[i];
  return {};
}

void recaseKeywords(std::span<char> logicalLine, bool insideBlock) {
  if (beginsWithAttribute({logicalLine.data(), logicalLine.size()})) return;
  Recaser(logicalLine, insideBlock).run();
}

}  // namespace kolvane::workspace
