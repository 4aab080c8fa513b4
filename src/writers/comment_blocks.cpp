#include "writers/comment_blocks.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "source/text_utilities.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using source::lineText;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr int kRuleLength = 67;
constexpr int kTries = 22;

// The lines between the two rules.
struct BlockLayout {
  int lines;
  std::string_view text;  // of each, behind the comment mark
};
constexpr BlockLayout kThreeLines{1, "       "};
constexpr BlockLayout kFiveLines{3, "   "};

int indentationAbove(frame::CodeModule& module, int line) {
  for (; line >= 1; --line)
    if (const std::string text = lineText(module, line); !source::Is_Blank_Line(text))
      return source::White_Space(text);
  return 0;
}

std::optional<int> indentationNear(frame::CodeModule& module, int line) {
  int at = line;
  for (int i = 0; i < kTries; ++i) {
    if (const std::string text = lineText(module, at); !source::Is_Blank_Line(text))
      return source::White_Space(text);
    ++at;
    if (source::At_Procedure_End(module, at)) return 0;
    if (base::startsWithNoCase(source::trimWhite(lineText(module, at)), "EXIT"))
      return indentationAbove(module, line);
  }
  return std::nullopt;
}

std::vector<std::string> blockLines(const frame::Services& services, const BlockLayout& layout,
                                    int indentation) {
  const std::string character = source::commentCharacter(services);
  const std::string start = base::repeat(' ', indentation).append("'");
  const std::string rule = start + base::repeat(character, kRuleLength);
  std::vector<std::string> lines(static_cast<std::size_t>(layout.lines) + 2,
                                 std::string(start).append(character).append(layout.text));
  lines.front() = lines.back() = rule;
  return lines;
}

void insertGap(frame::CodeModule& module, int line) { module.InsertLines(line, " "); }

void writeBlock(const frame::Services& services, frame::CodeModule& module, int line,
                const BlockLayout& layout) {
  source::withReadOnlyNotice(services, module, [&] {
    const auto indentation = indentationNear(module, line);
    if (!indentation) return;
    const std::vector<std::string> lines = blockLines(services, layout, *indentation);
    module.InsertLines(line, base::join(lines, "\r"));
    if (line > 1 && !source::Is_Blank_Line(lineText(module, line - 1))) insertGap(module, line++);
    const int below = line + static_cast<int>(lines.size());
    if (!source::Is_Blank_Line(lineText(module, below))) insertGap(module, below);
    putCursor(*module.CodePane(), line + 1, *indentation + 3);
  });
}

// ---- marks of selected lines

bool isMarked(std::string_view text) { return text.starts_with('\''); }

void mark(std::vector<std::string>& lines) {
  for (std::string& line : lines) line.insert(0, 1, '\'');
}

// False, and the lines as they were, when one of them has no mark to take away.
bool unmarkOne(std::string& line) {
  if (source::Is_Blank_Line(line)) return true;
  const std::size_t place = line.find('\'');
  if (!isMarked(source::lTrimWhite(line))) return false;
  line.erase(place, 1);
  return true;
}

bool unmark(std::vector<std::string>& lines) {
  if (lines.size() == 1) return unmarkOne(lines.front());
  const auto last = source::Is_Blank_Line(lines.back()) ? lines.end() - 1 : lines.end();
  if (!std::all_of(lines.begin(), last, isMarked)) return false;
  std::for_each(lines.begin(), last, [](std::string& line) { line.erase(0, 1); });
  return true;
}

// Rewrites the lines of the selection by `change`, which may refuse.
template <typename Change>
void rewriteSelectedLines(const frame::Services& services, frame::CodePane& pane, const Change& change) {
  const auto module = pane.CodeModule();
  source::withReadOnlyNotice(services, *module, [&] {
    const frame::TextRange selection = pane.GetSelection();
    std::vector<std::string> lines = linesOf(*module, selection.startLine, selection.endLine);
    if (lines.empty()) return;
    const int count = static_cast<int>(lines.size());
    if (!change(lines)) return;
    replaceLines(*module, selection.startLine, count, lines);
    putCursor(pane, selection.startLine, 1);
  });
}

}  // namespace

void Write_3Line_Comment_Block(const frame::Services& services, frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "Write_3Line_Comment_Block"};
  writeBlock(services, module, line, kThreeLines);
}

void Write_5Line_Comment_Block(const frame::Services& services, frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "Write_5Line_Comment_Block"};
  writeBlock(services, module, line, kFiveLines);
}

void Write_Comment_Block(const frame::Services& services, frame::CodePane& pane) {
  const base::ErrorScope scope{kModule, "Write_Comment_Block"};
  rewriteSelectedLines(services, pane, [](std::vector<std::string>& lines) {
    mark(lines);
    return true;
  });
}

void Write_Uncomment_Block(const frame::Services& services, frame::CodePane& pane) {
  const base::ErrorScope scope{kModule, "Write_Uncomment_Block"};
  rewriteSelectedLines(services, pane, unmark);
}

}  // namespace kolvane::writers
