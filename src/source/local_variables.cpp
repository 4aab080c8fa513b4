#include "source/local_variables.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kolvane::source {
namespace {

constexpr std::string_view kDim = "Dim";
constexpr std::string_view kAs = "As";
constexpr std::array<std::string_view, 2> kEnds{"End Sub", "End Function"};

struct SuffixRow {
  char suffix;
  std::string_view type;
};
constexpr std::array<SuffixRow, 6> kSuffixes{{
    {'%', "Integer"},
    {'&', "Long"},
    {'!', "Single"},
    {'#', "Double"},
    {'@', "Currency"},
    {'$', "String"},
}};
constexpr std::string_view kUntyped = "Variant";

bool startsWithWord(std::string_view text, std::string_view word) {
  return base::startsWithNoCase(text, word) &&
         (text.size() == word.size() || !base::isWordCharacter(text[word.size()]));
}

// Calls `work(piece)` for the pieces between the commas outside of brackets.
template <typename Work>
void forEachDeclared(std::string_view names, Work work) {
  int depth = 0;
  std::size_t start = 0;
  for (std::size_t at = 0; at <= names.size(); ++at) {
    const char c = at < names.size() ? names[at] : ',';
    if (c == '(') ++depth;
    if (c == ')') --depth;
    if (at < names.size() && (c != ',' || depth > 0)) continue;
    work(trimWhite(names.substr(start, at - start)));
    start = at + 1;
  }
}

// What stands behind the bracket that closes the first one.
std::string_view behindBounds(std::string_view text) {
  int depth = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '(') ++depth;
    if (text[at] == ')' && --depth == 0) return trimWhite(text.substr(at + 1));
  }
  return {};
}

LocalVariable variableOf(std::string_view piece) {
  LocalVariable variable;
  const auto end = std::ranges::find_if_not(piece, base::isWordCharacter);
  variable.name = std::string(piece.begin(), end);
  variable.type = kUntyped;
  std::string_view rest = piece.substr(variable.name.size());
  if (!rest.empty()) {
    const auto* const row = std::ranges::find(kSuffixes, rest.front(), &SuffixRow::suffix);
    if (row != kSuffixes.end()) {
      variable.type = row->type;
      rest.remove_prefix(1);
    }
  }
  rest = trimWhite(rest);
  variable.isArray = rest.starts_with('(');
  if (variable.isArray) rest = behindBounds(rest);
  if (startsWithWord(rest, kAs)) variable.type = trimWhite(rest.substr(kAs.size()));
  return variable;
}

struct Title {
  std::string name;
  int line = 0;
};

std::vector<Title> titlesOf(frame::CodeModule& module) {
  std::vector<Title> titles;
  const int declarations = module.CountOfDeclarationLines();
  for (const auto& member : module.Members()->items())
    if (member->Type() == frame::MemberType::kMethod && member->CodeLocation() > declarations)
      titles.push_back({member->Name(), member->CodeLocation()});
  std::ranges::stable_sort(titles, {}, &Title::line);
  return titles;
}

// Takes a module's statements one by one.
class LocalsReader {
 public:
  explicit LocalsReader(frame::CodeModule& module)
      : titles_(titlesOf(module)), lastLine_(module.CountOfLines()) {}

  void read(const Statement& statement) {
    while (next_ < titles_.size() && statement.line >= titles_[next_].line) open();
    if (!open_) return;
    const std::string_view text = withoutNumber(statement.text);
    for (LocalVariable& variable : declaredVariables(text)) current_.variables.push_back(std::move(variable));
    const auto isEnd = [text](std::string_view end) { return base::equalNoCase(text, end); };
    if (std::ranges::any_of(kEnds, isEnd)) close(statement.line);
  }

  std::vector<ProcedureLocals> finish() {
    if (open_) close(lastLine_);
    return std::move(procedures_);
  }

 private:
  void open() {
    const Title& title = titles_[next_++];
    if (open_) close(title.line - 1);
    current_ = {title.name, title.line, title.line, {}};
    open_ = true;
  }

  void close(int lastLine) {
    open_ = false;
    if (current_.variables.empty()) return;
    current_.lastLine = lastLine;
    procedures_.push_back(std::move(current_));
  }

  std::vector<Title> titles_;
  int lastLine_;
  std::size_t next_ = 0;
  bool open_ = false;
  ProcedureLocals current_;
  std::vector<ProcedureLocals> procedures_;
};

}  // namespace

bool isDim(std::string_view statement) { return startsWithWord(withoutNumber(statement), kDim); }

std::vector<LocalVariable> declaredVariables(std::string_view statement) {
  std::vector<LocalVariable> variables;
  if (!isDim(statement)) return variables;
  const std::string_view names = trimWhite(withoutNumber(statement).substr(kDim.size()));
  forEachDeclared(names, [&](std::string_view piece) {
    LocalVariable variable = variableOf(piece);
    if (!variable.name.empty()) variables.push_back(std::move(variable));
  });
  return variables;
}

std::vector<ProcedureLocals> localsOf(frame::CodeModule& module) {
  LocalsReader reader(module);
  forEachStatement(module, 1, module.CountOfLines(), [&](const Statement& each) { reader.read(each); });
  return reader.finish();
}

}  // namespace kolvane::source
