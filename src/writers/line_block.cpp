#include "writers/line_block.h"

#include <algorithm>

#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::writers {

std::vector<std::string> linesOf(frame::CodeModule& module, int first, int last) {
  last = std::min(last, module.CountOfLines());
  if (first > last) return {};
  const std::string text = module.Lines(first, last - first + 1);
  const auto lines = base::splitLines(text);
  return {lines.begin(), lines.end()};
}

void replaceLines(frame::CodeModule& module, int first, int count, const std::vector<std::string>& lines) {
  const std::string text = base::join(lines, base::kCrLf);
  if (text == module.Lines(first, count)) return;
  module.DeleteLines(first, count);
  module.InsertLines(first, text);
}

void putCursor(frame::CodePane& pane, int line, int column) {
  pane.SetSelection({line, column, line, column});
}

bool endsInContinuation(std::string_view text) {
  text = source::trimWhite(text);
  if (!text.ends_with('_')) return false;
  return text.size() == 1 || text[text.size() - 2] == ' ' || text[text.size() - 2] == '\t';
}

}  // namespace kolvane::writers
