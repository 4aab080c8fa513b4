#include "maintenance/comment_formatter.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "maintenance/edit_refused.h"
#include "maintenance/line_rewriter.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/text_utilities.h"

namespace kolvane::maintenance {
namespace {

constexpr int kBorderCharacters = 66;
constexpr std::string_view kMark = "'* ";
constexpr std::string_view kUnmarked = "' ";
// A line that holds this has its border, whatever the comment character is.
constexpr std::string_view kKnownBorder = "'*****************";

bool hasApostrophe(std::string_view line) { return line.find('\'') != std::string_view::npos; }
// A border behind such a line would tear a statement or a comment apart.
bool continues(std::string_view line) { return source::trimWhite(line).ends_with(" _"); }
bool holdsBorder(std::string_view line) { return line.find(kKnownBorder) != std::string_view::npos; }

// The first apostrophe outside of a string.
std::size_t commentBegin(std::string_view line) {
  bool inString = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '"') inString = !inString;
    if (line[at] == '\'' && !inString) return at;
  }
  return std::string_view::npos;
}

// Goes through the lines in order. What it needs of the line above is kept, as that line may be one that was put in.
class CommentPass {
 public:
  explicit CommentPass(std::string border) : border_(std::move(border)) {}

  void startBelow(std::string_view line) { setAbove(line); }

  // Formats a line of which `next` is the one behind it.
  void format(LineRewriter& rewriter, int number, std::string_view line, std::string_view next) {
    if (!hasApostrophe(line)) return setAbove(line);
    putTopBorder(rewriter, number, line, next);
    mark(rewriter, number, line);
    const bool ends = aboveHasApostrophe_ && !hasApostrophe(next) && !holdsBorder(line) && !continues(line);
    setAbove(line);
    if (ends) putBottomBorder(rewriter, number + 1, line, next);
  }

 private:
  void mark(LineRewriter& rewriter, int number, std::string_view line) {
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
  std::string marked_;
  bool aboveHasApostrophe_ = false;
  bool aboveIsBlank_ = true;
  bool aboveContinues_ = false;
};

void formatFrom(const frame::Services& services, frame::CodeModule& module, int first) {
  CommentPass pass("'" + source::RepeatString(source::commentCharacter(services), kBorderCharacters));
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
