#include "writers/builder_text.h"

#include <algorithm>

#include "base/text.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::writers {

std::string descriptionLine(const frame::Services& services, std::string_view text) {
  std::string line = base::replaceAll(text, base::kCrLf, " ");
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  line = base::trim(line);
  if (!line.empty()) line.front() = services.codePage.upper(line.substr(0, 1)).front();
  return line;
}

int lineBehindText(frame::CodeModule& module, int line) {
  while (line > 1 && source::Is_Blank_Line(source::lineText(module, line - 1))) --line;
  return line;
}

}  // namespace kolvane::writers
