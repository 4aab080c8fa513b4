// Code of a module: loading gives the bytes back, and after edits the tables agree with those of a fresh
// load.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "workspace/code_text.h"

namespace {

using kolvane::frame::TextRange;
using kolvane::workspace::CodeKind;
using kolvane::workspace::CodeText;

void require(bool condition) {
  if (!condition) std::abort();
}

bool sameProcedures(const CodeText& a, const CodeText& b) {
  const auto left = a.procedures(), right = b.procedures();
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i)
    if (left[i].name != right[i].name || left[i].kind != right[i].kind ||
        left[i].startLine != right[i].startLine || left[i].bodyLine != right[i].bodyLine ||
        left[i].countLines != right[i].countLines)
      return false;
  return true;
}

void indent(CodeText& text, int first, int count, int width) {
  std::string lines;
  for (int line = first; line < first + count; ++line) {
    if (line > first) lines += "\r\n";
    lines.append(static_cast<std::size_t>(width), ' ').append(kolvane::base::trim(text.line(line)));
  }
  text.replaceLines(first, count, lines);
}

// The first bytes choose an edit, the rest is the module; the inserted text is a piece of the module itself.
void edit(CodeText& text, const unsigned char* data, std::string_view module) {
  const int lines = text.countOfLines();
  if (lines == 0) return;
  const int at = 1 + data[1] % lines;
  switch (data[0] % 4) {
    case 0:
      text.insertLines(at, module.substr(0, data[2]));
      break;
    case 1:
      text.deleteLines(at, 1 + data[2] % 3);
      break;
    case 2:
      indent(text, at, std::min(lines - at + 1, 1 + data[2] % 5), data[2] % 3);
      break;
    default:
      text.replaceLine(at, module.substr(0, data[2]));
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  if (size < 8) return 0;
  const std::string_view module(reinterpret_cast<const char*>(data) + 6, size - 6);
  CodeText text(CodeKind::kObjectModule, nullptr, module);
  require(text.bytes() == module);
  text.members();
  TextRange range{1, 1, -1, -1};
  text.find(module.substr(0, 3), range, data[0] % 2 != 0, false, false);
  try {
    TextRange other{1, 1, -1, -1};
    text.find(module.substr(0, 8), other, false, false, true);
  } catch (const kolvane::base::Error&) {
    // a malformed pattern
  }
  edit(text, data, module);
  edit(text, data + 3, module);
  const std::string bytes = text.bytes();
  const CodeText fresh(CodeKind::kObjectModule, nullptr, bytes);
  require(text.countOfLines() == fresh.countOfLines());
  require(text.countOfDeclarationLines() == fresh.countOfDeclarationLines());
  require(sameProcedures(text, fresh));
  return 0;
}
