#include "writers/join_lines.h"

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/comments.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using source::lineText;

// The host's limit for a line.
constexpr std::size_t kLongestLine = 1023;

// The line is part of a statement and goes on in the next one.
bool goesOn(frame::CodeModule& module, int line) {
  const std::string text = lineText(module, line);
  return endsInContinuation(text) && !source::Is_Blank_Line(source::RemoveComments(text));
}

int firstLineOf(frame::CodeModule& module, int line) {
  while (line > 1 && goesOn(module, line - 1)) --line;
  return line;
}

int lastLineOf(frame::CodeModule& module, int line) {
  const int last = module.CountOfLines();
  while (line < last && goesOn(module, line)) ++line;
  return line;
}

// What stands in front of the continuation mark.
std::string_view withoutMark(std::string_view text) {
  text = text.substr(0, text.rfind('_'));
  return text.substr(0, text.find_last_not_of(" \t") + 1);
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text = lines.front();
  for (auto line = lines.begin() + 1; line != lines.end(); ++line)
    text = std::string(withoutMark(text)).append(" ").append(source::lTrimWhite(*line));
  return text;
}

}  // namespace

void JoinLines(const frame::Services& services, frame::CodeModule& module, int line, int startColumn) {
  const base::ErrorScope scope{"modGeneral", "JoinLines"};
  if (source::Is_Blank_Line(lineText(module, line))) return;
  source::withReadOnlyNotice(services, module, [&] {
    const int first = firstLineOf(module, line);
    const int last = lastLineOf(module, line);
    if (first == last) return;
    const std::string text = joined(linesOf(module, first, last));
    if (text.size() > kLongestLine) return;
    module.DeleteLines(first + 1, last - first);
    module.ReplaceLine(first, text);
    putCursor(*module.CodePane(), first, startColumn);
  });
}

}  // namespace kolvane::writers
