#include "maintenance/comment_formatter.h"

#include <algorithm>

#include "base/error.h"
#include "base/statement_lexer.h"
#include "base/text.h"
#include "maintenance/edit_refused.h"
#include "maintenance/line_rewriter.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/text_utilities.h"

namespace kolvane::maintenance {
namespace {

constexpr int kBorderCharacters = 66;
// So many of them make a border.
constexpr int kLeastBorderCharacters = 17;
constexpr std::string_view kMark = "'* ";
constexpr std::string_view kUnmarked = "' ";
// A line that holds this has its border, whatever the comment character is.
constexpr std::string_view kKnownBorder = "'*****************";

bool hasApostrophe(std::string_view line) { return line.find('\'') != std::string_view::npos; }
// A border behind such a line would tear a statement or a comment apart.
bool continues(std::string_view line) { return source::trimWhite(line).ends_with(" _"); }

// The first apostrophe outside of a string.
std::size_t commentBegin(std::string_view line) {
  bool inString = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '"') inString = !inString;
    if (line[at] == '\'' && !inString) return at;
  }
  return std::string_view::npos;
}

// Where the comment of a line begins that goes on with none from above: at its apostrophe or its Rem.
std::size_t commentOrRem(std::string_view line) {
  base::StatementLexer lexer(line);
  while (true) {
    const base::Token token = lexer.next();
    if (token.kind == base::TokenKind::kEnd) return std::string_view::npos;
    if (token.kind == base::TokenKind::kComment)
      return static_cast<std::size_t>(token.text.data() - line.data());
  }
}

std::string borderOf(const frame::Services& services, int count) {
  return "'" + source::RepeatString(source::commentCharacter(services), count);
}

// Goes through the lines in order. What it needs of the line above is kept, as that line may be one that was put in.
class CommentPass {
 public:
  explicit CommentPass(const frame::Services& services)
      : border_(borderOf(services, kBorderCharacters)),
        ownBorder_(borderOf(services, kLeastBorderCharacters)),
        careful_(services.care.guards(frame::Guard::kCommentMarks)) {}

  void startBelow(std::string_view line) {
    setAbove(line);
    followComment(line);
  }

  // Formats a line of which `next` is the one behind it.
  void format(LineRewriter& rewriter, int number, std::string_view line, std::string_view next) {
    const bool inComment = inComment_;
    followComment(line);
    if (!hasApostrophe(line)) return setAbove(line);
    putTopBorder(rewriter, number, line, next);
    if (!careful_)
      markAll(rewriter, number, line);
    else if (!inComment && !holdsBorder(line))
      markFirst(rewriter, number, line);
    const bool ends = aboveHasApostrophe_ && !hasApostrophe(next) && !holdsBorder(line) && !continues(line);
    setAbove(line);
    if (ends) putBottomBorder(rewriter, number + 1, line, next);
  }

 private:
  // A border of the comment character counts under care alone: to the letter each run adds further ones.
  bool holdsBorder(std::string_view line) const {
    return line.find(kKnownBorder) != std::string_view::npos || (careful_ && holdsOwnBorder(line));
  }

  // One of a blank character, or of none, is an apostrophe and nothing behind it.
  bool holdsOwnBorder(std::string_view line) const {
    if (source::trimWhite(ownBorder_) == "'") return source::trimWhite(line) == "'";
    return line.find(ownBorder_) != std::string_view::npos;
  }

  // Whether the line below goes on with a comment.
  void followComment(std::string_view line) {
    if (careful_)
      inComment_ = continues(line) && (inComment_ || commentOrRem(line) != std::string_view::npos);
  }

  // The one apostrophe that begins a comment.
  void markFirst(LineRewriter& rewriter, int number, std::string_view line) {
    const std::size_t begin = commentOrRem(line);
    if (begin == std::string_view::npos || !line.substr(begin).starts_with(kUnmarked)) return;
    marked_.assign(line.substr(0, begin)).append(kMark).append(line.substr(begin + kUnmarked.size()));
    rewriter.replace(number, line, marked_);
  }

  void markAll(LineRewriter& rewriter, int number, std::string_view line) {
    if (line.find(kMark) != std::string_view::npos || line.find(kUnmarked) == std::string_view::npos) return;
    const std::size_t begin = commentBegin(line);
    if (begin == std::string_view::npos) return;
    marked_.assign(line.substr(0, begin)).append(base::replaceAll(line.substr(begin), kUnmarked, kMark));
    if (marked_ != line) rewriter.replace(number, line, marked_);
  }

  void putTopBorder(LineRewriter& rewriter, int number, std::string_view line, std::string_view next) {
    if (!source::Is_Comment_Line(line) || !hasApostrophe(next) || aboveHasApostrophe_ || holdsBorder(line) ||
        aboveContinues_)
      return;
    if (!aboveIsBlank_) rewriter.insert(number, {});
    putBorder(rewriter, number, line);
  }

  void putBottomBorder(LineRewriter& rewriter, int number, std::string_view line, std::string_view next) {
    putBorder(rewriter, number, line);
    if (source::Is_Blank_Line(next)) return;
    rewriter.insert(number, {});
    setAbove({});
  }

  void putBorder(LineRewriter& rewriter, int number, std::string_view line) {
    marked_.assign(Num_Of_Tabs(line)).append(border_);
    rewriter.insert(number, marked_);
    setAbove(border_);
  }

  void setAbove(std::string_view line) {
    aboveHasApostrophe_ = hasApostrophe(line);
    aboveIsBlank_ = source::Is_Blank_Line(line);
    aboveContinues_ = continues(line);
  }

  std::string border_;
  std::string ownBorder_;
  bool careful_;
  std::string marked_;
  bool aboveHasApostrophe_ = false;
  bool aboveIsBlank_ = true;
  bool aboveContinues_ = false;
  bool inComment_ = false;
};

void formatFrom(const frame::Services& services, frame::CodeModule& module, int first) {
  CommentPass pass(services);
  if (first > 1) pass.startBelow(module.Lines(first - 1, 1));
  int line = first;
  // The last line of the module is not looked at, unless it is the first one asked for.
  for (int count = module.CountOfLines(); line == first || line < count; count = module.CountOfLines()) {
    const int end = std::min(line + kLinesBetweenEvents, std::max(line + 1, count));
    const LineBlock block(module, line, end);
    LineRewriter rewriter(module);
    const int begin = line;
    for (; line < end; ++line) pass.format(rewriter, line, block.line(line), block.line(line + 1));
    rewriter.finish();
    line += rewriter.added();
    if (line <= begin) break;
    services.desk.doEvents();
  }
}

}  // namespace

std::string_view Num_Of_Tabs(std::string_view line) {
  return line.substr(0, std::min(line.find_first_not_of(' '), line.size()));
}

bool FormatComments(const frame::Services& services, frame::CodeModule& module, int first, int last) {
  if (last < first) return true;
  try {
    formatFrom(services, module, first);
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kModuleNotEditable) return true;
    tellFormattingStops(services, module);
    return false;
  }
  return true;
}

}  // namespace kolvane::maintenance
