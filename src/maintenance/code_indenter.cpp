#include "maintenance/code_indenter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/byte_search.h"
#include "base/text.h"
#include "forms/error_form.h"
#include "maintenance/indent_keywords.h"
#include "maintenance/line_rewriter.h"
#include "maintenance/module_line_numbers.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/tab_width.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kModule = "modCodeIndenter";
constexpr std::string_view kActivity = " - Code Indenting";
constexpr std::string_view kDim = "Dim ";
constexpr std::string_view kContinuation = " _";

bool endsContinued(std::string_view text) {
  const bool possible = !text.empty() && (text.back() == '_' || text.back() == ' ' || text.back() == '\t');
  return possible && source::trimWhite(text).ends_with(kContinuation);
}

// ---- a single-line If

// The statement without its string literals, cut at its comment.
std::string withoutStrings(std::string_view statement) {
  std::string code;
  code.reserve(statement.size());
  while (true) {
    const std::size_t quote = statement.find('"');
    code.append(statement.substr(0, quote));
    if (quote == std::string_view::npos) break;
    const std::size_t end = statement.find('"', quote + 1);
    if (end == std::string_view::npos) break;
    statement.remove_prefix(end + 1);
  }
  return code.substr(0, code.find('\''));
}

// What stands behind the first Then that is a word of its own.
bool findThen(std::string_view code, std::string_view& behind) {
  constexpr std::string_view kThen = "THEN";
  for (std::size_t at = 0; at + kThen.size() <= code.size(); ++at) {
    if (at > 0) {
      at = code.find(' ', at - 1);
      if (at == std::string_view::npos) return false;
      ++at;
    }
    const std::string_view word = code.substr(at);
    if (!beginsWith(word, kThen)) continue;
    if (word.size() > kThen.size() && word[kThen.size()] != ' ') continue;
    behind = word.substr(kThen.size());
    return true;
  }
  return false;
}

void checkIf(IndentState& state, std::string_view statement, int& indentCount) {
  if (state.IfContinued) indentCount = 1;
  state.IfContinued = statement.ends_with(kContinuation);
  std::string own;
  std::string_view code = statement;
  const auto quotes = [](char c) { return c == '"' || c == '\''; };
  if (std::any_of(statement.begin(), statement.end(), quotes)) code = own = withoutStrings(statement);
  std::string_view behind;
  if (findThen(code, behind)) {
    state.IfContinued = false;
    if (!source::trimWhite(behind).empty()) indentCount = 0;
  }
  if (state.IfContinued) indentCount = 0;
}

bool beginsWithIf(std::string_view statement) {
  const std::size_t begin = statement.starts_with('#') ? 1 : 0;
  const std::string_view word = statement.substr(begin);
  return beginsWith(word, "IF") && (word.size() == 2 || word[2] == ' ');
}

// ---- Dim lines at the head of a procedure

// What a walk upward from a line would find about its Dim: in the words of IndentLineIfDeclaration, "False", "True" or
// "Dim". Kept up to date line by line, so that nobody walks.
class DimRule {
 public:
  enum class Answer { kLeave, kIndent, kFlushLeft };

  Answer answer() const { return above_; }

  // Begins below `line`.
  void startBelow(frame::CodeModule& module, int line) {
    for (; line > 0; --line) {
      const std::string text = module.Lines(line, 1);
      if (decides(text)) return pass(text);
    }
  }

  // Takes the next line as it stands now.
  void pass(std::string_view text) {
    if (decides(text)) passText(text);
  }

  // The same for a line that is not blank.
  void passText(std::string_view text) {
    if (text.starts_with(kDim)) return;
    const bool header = text[0] != ' ' && (source::Are_We_On_Procedure_Header(text) ||
                                           source::Are_We_At_End_Of_Procedure(text));
    above_ = header ? Answer::kFlushLeft : Answer::kIndent;
  }

 private:
  static bool decides(std::string_view text) {
    return !text.starts_with(kDim) && text.find_first_not_of(' ') != std::string_view::npos;
  }

  Answer above_ = Answer::kLeave;
};

// ---- the lines

// Whether one of eight characters stops the scan of a line: at a string, a comment, a colon, or an R that begins the
// word Rem in any case. The two characters behind them must be there.
bool stopsAmong(const char* at) {
  constexpr std::uint64_t kLowerCase = base::everyByte(' ');
  const auto differsFrom = [at](std::size_t offset, char letter) {
    return (base::wordAt(at + offset) | kLowerCase) ^ base::everyByte(letter);
  };
  const std::uint64_t word = base::wordAt(at);
  const std::uint64_t rem = differsFrom(0, 'r') | differsFrom(1, 'e') | differsFrom(2, 'm');
  return (base::marksOf(word, '"') | base::marksOf(word, ':') | base::marksOf(word, '\'') |
          base::zeroMarks(rem)) != 0;
}

// True when a line is one statement without strings and comments for certain, as most are.
bool isPlain(std::string_view text) {
  constexpr std::size_t kAhead = 2;
  for (; text.size() >= base::kWordBytes + kAhead; text.remove_prefix(base::kWordBytes))
    if (stopsAmong(text.data())) return false;
  std::array<char, 2 * base::kWordBytes + kAhead> rest{};
  std::copy(text.begin(), text.end(), rest.begin());
  return !stopsAmong(rest.data()) && !stopsAmong(rest.data() + base::kWordBytes);
}

// Which characters the scan of a line has to look at.
constexpr std::array<bool, 256> kStops = [] {
  std::array<bool, 256> stops{};
  for (const char c : {'"', ':', '\'', 'R', 'r'}) stops[static_cast<unsigned char>(c)] = true;
  return stops;
}();

bool isIndentedBy(std::string_view line, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i)
    if (line[i] != ' ') return false;
  return true;
}

class LineIndenter {
 public:
  // With `keepsNumbers` a line number stands in column 1, and the line behind it is indented as if it had none.
  LineIndenter(IndentState& state, int tabWidth, bool keepsNumbers)
      : state_(state), tabWidth_(static_cast<std::size_t>(tabWidth)), keepsNumbers_(keepsNumbers) {}

  // True when the line is to be written as text(), which otherwise is undefined.
  bool indent(std::string_view line);
  const std::string& text() const { return out_; }
  // Blocks that are open behind the line.
  long level() const { return level_ + pending_; }

  DimRule dims;

 private:
  bool indentNumbered(std::string_view line);
  bool indentBare(std::string_view line);
  bool indentPlain(std::string_view line, std::string_view statement);
  bool indentAny(std::string_view line);
  void scan();
  void separate(std::size_t colon);
  bool commentBegins(std::size_t at) const;
  void apply(std::string_view statement, bool isFirst);
  void applyUpTo(std::size_t end);
  void putContinuedComment();
  void putComment();
  void putCodeAndComment();
  std::size_t codeWidth() const;
  void putCode(std::string_view code);
  void tidyCommentColumn();
  bool decide(std::string_view line);
  bool mayWrite(std::string_view text, std::size_t& width) const;

  IndentState& state_;
  std::size_t tabWidth_;
  bool keepsNumbers_;
  long level_ = 0;
  long pending_ = 0;
  bool onHeader_ = false;
  bool inComment_ = false;
  std::size_t commentColumn_ = 0;  // counts from 1 while it is looked for

  std::string in_;   // the line without its indentation, a blank behind it
  std::string out_;  // the line as it is to be
  std::size_t statement_ = 0;
  std::size_t comment_ = std::string::npos;
};

bool LineIndenter::indent(std::string_view line) {
  const bool mayHaveNumber = keepsNumbers_ && !state_.LineContinued && !inComment_;
  return mayHaveNumber && !source::lineNumberMark(source::lTrimWhite(line)).empty() ? indentNumbered(line)
                                                                                    : indentBare(line);
}

bool LineIndenter::indentNumbered(std::string_view line) {
  const std::string_view text = source::lTrimWhite(line);
  const std::string_view bare = withoutNumber(text);
  const bool changes = indentBare(bare);
  if (!changes && text.size() == line.size()) return false;
  std::string numbered(source::lineNumberMark(text));
  const std::string_view behind = changes ? std::string_view(out_) : bare;
  if (!behind.empty()) numbered.append(kBlanksBehindNumber, ' ').append(behind);
  out_ = std::move(numbered);
  return out_ != line;
}

bool LineIndenter::indentBare(std::string_view line) {
  const std::string_view text = base::rTrim(source::lTrimWhite(line));
  if (text.empty() && line.find_first_not_of(' ') == std::string_view::npos) return false;
  if (!state_.LineContinued) {
    pending_ = 0;
    onHeader_ = false;
  }
  bool write = false;
  if (!inComment_ && !text.empty() && isPlain(text)) {
    write = indentPlain(line, text);
  } else {
    in_.assign(text).push_back(' ');
    write = indentAny(line);
  }
  if (!state_.LineContinued) {
    level_ = std::max(0L, level_ + pending_);
    pending_ = 0;
  }
  return write;
}

// The same as indentAny(), with nothing copied unless the line changes.
bool LineIndenter::indentPlain(std::string_view line, std::string_view statement) {
  apply(statement, true);
  std::size_t width = codeWidth();
  state_.LineContinued = endsContinued(statement);
  const bool write = mayWrite(statement, width);
  const bool isSame = line.size() == width + statement.size() && isIndentedBy(line, width);
  if (!write || isSame) {
    dims.passText(line);
    return false;
  }
  out_.assign(width, ' ').append(statement);
  dims.passText(out_);
  return true;
}

bool LineIndenter::indentAny(std::string_view line) {
  scan();
  if (comment_ == std::string::npos) {
    if (statement_ + 1 < in_.size()) applyUpTo(in_.size());
    putCode(in_);
    state_.LineContinued = endsContinued(in_);
  } else {
    if (inComment_)
      putContinuedComment();
    else if (comment_ == 0)
      putComment();
    else
      putCodeAndComment();
    inComment_ = endsContinued(out_);
  }
  return decide(line);
}

// Checks the statements in front of each ": " and stops where a comment begins.
void LineIndenter::scan() {
  statement_ = 0;
  comment_ = std::string::npos;
  for (std::size_t at = 0; at < in_.size(); ++at) {
    const char c = in_[at];
    if (!kStops[static_cast<unsigned char>(c)] && !inComment_) continue;
    if (c == '"') at = in_.find('"', at + 1);
    if (at == std::string::npos) return;
    if (c == ':' && at + 1 < in_.size() && in_[at + 1] == ' ') separate(at);
    if (commentBegins(at)) {
      comment_ = at;
      return;
    }
  }
}

void LineIndenter::separate(std::size_t colon) {
  const std::size_t behind = colon + 2;
  const std::size_t last = in_.find_last_not_of(' ');
  in_.erase(last + 1 > behind ? last + 1 : behind);
  if (const std::size_t next = in_.find_first_not_of(' ', behind); next != std::string::npos)
    in_.erase(behind, next - behind);
  applyUpTo(colon);
  statement_ = behind;
}

bool LineIndenter::commentBegins(std::size_t at) const {
  if (in_[at] == '\'' || inComment_) return true;
  return (in_[at] | 0x20) == 'r' && beginsWith(std::string_view(in_).substr(at), "REM ") &&
         (at == 0 || !base::isWordCharacter(in_[at - 1]));
}

// The first statement of a line moves its own line out; the others act on the lines behind.
void LineIndenter::apply(std::string_view statement, bool isFirst) {
  int indentCount = 0, outdentCount = 0;
  CheckLine(state_, statement, indentCount, outdentCount, onHeader_);
  if (isFirst) {
    level_ = std::max(0L, level_ - outdentCount);
    pending_ += indentCount;
  } else {
    pending_ += indentCount - outdentCount;
  }
}

void LineIndenter::applyUpTo(std::size_t end) {
  apply(std::string_view(in_).substr(statement_, end - statement_), statement_ == 0);
}

void LineIndenter::putContinuedComment() { out_.assign(commentColumn_, ' ').append(in_); }

void LineIndenter::putComment() {
  const std::size_t indent = static_cast<std::size_t>(level_) * tabWidth_;
  out_.assign(indent, ' ').append(in_);
  commentColumn_ = indent + 2;
  tidyCommentColumn();
}

void LineIndenter::putCodeAndComment() {
  applyUpTo(comment_);
  const std::string_view text = in_;
  const std::string_view code = base::trim(text.substr(0, comment_));
  putCode(code);
  state_.LineContinued = code.ends_with(kContinuation);
  out_.append(tabWidth_, ' ');
  commentColumn_ = out_.size() + 1;
  out_.append(base::trim(text.substr(comment_)));
  tidyCommentColumn();
}

std::size_t LineIndenter::codeWidth() const {
  return (static_cast<std::size_t>(level_) + (state_.LineContinued ? 2 : 0)) * tabWidth_;
}

void LineIndenter::putCode(std::string_view code) { out_.assign(codeWidth(), ' ').append(code); }

// A comment that goes on lines up under its text, one behind code under its apostrophe.
void LineIndenter::tidyCommentColumn() {
  const std::string_view text = out_;
  if (commentColumn_ <= text.size() && beginsWith(text.substr(commentColumn_ - 1), "REM "))
    commentColumn_ += 3;
  while (commentColumn_ <= text.size() && text[commentColumn_ - 1] == ' ') ++commentColumn_;
  --commentColumn_;
}

bool LineIndenter::decide(std::string_view line) {
  out_.erase(out_.find_last_not_of(' ') + 1);
  const std::size_t first = std::min(out_.find_first_not_of(' '), out_.size());
  std::size_t width = first;
  const bool write = mayWrite(std::string_view(out_).substr(first), width);
  out_.erase(0, first - width);
  dims.pass(write ? std::string_view(out_) : line);
  return write && out_ != line;
}

// Whether a line whose text begins at `width` is one that is written at all; a Dim line may go to the left.
bool LineIndenter::mayWrite(std::string_view text, std::size_t& width) const {
  if (!text.starts_with(kDim) || dims.answer() == DimRule::Answer::kIndent) return !onHeader_;
  if (dims.answer() == DimRule::Answer::kLeave) return false;
  width = 0;
  return true;
}

// By a run over the lines that writes nothing: what comes behind the line counts as little as what stands before it.
void requireShallow(IndentState state, frame::CodeModule& module, int first, int last, bool keepsNumbers) {
  LineIndenter indenter(state, 1, keepsNumbers);
  int line = first;
  module.VisitLines(first, last - first + 1, [&](std::string_view text) {
    indenter.indent(text);
    if (indenter.level() > kDeepestBlocks) throw NestedTooDeep(line);
    ++line;
  });
}

}  // namespace

NestedTooDeep::NestedTooDeep(int line)
    : base::Error(base::errors::kInvalidFormat, reason() + " in line " + std::to_string(line)), line_(line) {}

std::string NestedTooDeep::reason() {
  return "blocks are nested deeper than " + std::to_string(kDeepestBlocks) + " levels";
}

void CheckLine(IndentState& state, std::string_view statement, int& indentCount, int& outdentCount,
               bool& onHeader) {
  indentCount = outdentCount = 0;
  const std::string_view code = base::trim(statement);
  const StatementStart start = statementStart(code);
  if (!state.InTypeOrEnum) {
    indentCount = start.opens + (start.startsProcedure ? 1 : 0);
    outdentCount = start.closes;
  }
  if (start.startsProcedure) onHeader = true;
  if (start.startsTypeOrEnum) state.InTypeOrEnum = true;
  if (start.endsProcedure) {
    state.InTypeOrEnum = false;
    ++outdentCount;
  }
  if (state.InTypeOrEnum) return;
  if (state.IfContinued || (!code.empty() && beginsWithIf(code))) checkIf(state, code, indentCount);
}

void IndentCodeLines(const frame::Services& services, IndentState& state, frame::CodeModule& module,
                     int first, int last) {
  const bool keepsNumbers = services.care.guards(frame::Guard::kNumberColumn);
  if (last - first >= kDeepestBlocks) requireShallow(state, module, first, last, keepsNumbers);
  LineIndenter indenter(state, source::GetTabWidth(services), keepsNumbers);
  indenter.dims.startBelow(module, first - 1);
  for (int begin = first; begin <= last; begin += kLinesBetweenEvents) {
    const int end = std::min(last, begin + kLinesBetweenEvents - 1);
    if (begin > first) services.desk.doEvents();
    LineRewriter rewriter(module, [](long) { return true; });
    int line = begin;
    module.VisitLines(begin, end - begin + 1, [&](std::string_view text) {
      if (indenter.indent(text)) rewriter.replace(line, text, indenter.text());
      ++line;
    });
    rewriter.finish();
  }
}

bool CodeIndentModuleLevel(const frame::Services& services, IndentState& state, frame::CodeModule& module) {
  IndentCodeLines(services, state, module, 1, module.CountOfLines());
  return true;
}

bool CodeIndentProjectLevel(const frame::Services& services, IndentState& state, frame::VBProject& project,
                            std::string& message, WalkProgress* progress, const PassesOver& passesOver) {
  bool done = false;
  forms::showErrors(services.desk, kModule, "CodeIndentProjectLevel", [&] {
    ProjectWalk walk;
    walk.activity = kActivity;
    walk.wants = [](frame::VBComponent&, frame::CodeModule& module) {
      return DoesCodeModuleHaveCode(module);
    };
    walk.readOnly = [&](frame::VBComponent&) {
      message = kNotIndentedMessage;
      return WalkStep::kSkip;
    };
    walk.treat = [&](frame::VBComponent& component, frame::CodeModule& module) {
      try {
        return CodeIndentModuleLevel(services, state, module);
      } catch (const NestedTooDeep& error) {
        if (!passesOver || !passesOver(component, error)) throw;
        return true;
      }
    };
    done = walkProject(services, project, walk, progress);
  });
  return done;
}

}  // namespace kolvane::maintenance
