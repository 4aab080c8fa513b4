#include "writers/auto_with.h"

#include <algorithm>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "source/line_tests.h"
#include "source/read_only_notice.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";

// What stands in front of the point can stand behind With.
bool isObject(std::string_view text) {
  text = source::trimWhite(text);
  const auto count = [text](char c) { return std::count(text.begin(), text.end(), c); };
  return !text.empty() && text.find(' ') == std::string_view::npos && !text.starts_with('\'') &&
         count('"') % 2 == 0 && count('(') == count(')');
}

bool allBeginWith(const std::vector<std::string>& lines, std::string_view prefix) {
  return std::all_of(lines.begin(), lines.end(),
                     [prefix](const std::string& line) { return base::startsWithNoCase(line, prefix); });
}

std::vector<std::string> withBlock(const std::vector<std::string>& lines, int point) {
  const std::string_view object = base::left(lines.front(), point - 1);
  const std::string_view name = source::lTrimWhite(object);
  const std::string indentation(object.substr(0, object.size() - name.size()));
  std::vector<std::string> block{std::string(indentation).append("With ").append(name), ""};
  for (const std::string& line : lines)
    block.push_back(std::string(indentation).append("\t").append(base::mid(line, point)));
  block.push_back(indentation + "End With");
  return block;
}

}  // namespace

int Find_With_Prefix(const std::vector<std::string>& lines) {
  const base::ErrorScope scope{kModule, "Find_With_Prefix"};
  const std::string& first = lines.front();
  for (int point = base::inStrRev(first, "."); point > 1; point = base::inStrRev(first, ".", point - 1))
    if (allBeginWith(lines, base::left(first, point)))
      return isObject(base::left(first, point - 1)) ? point : -1;
  return -1;
}

void Auto_With(const frame::Services& services, frame::CodeModule& module, int startLine, int endLine) {
  const base::ErrorScope scope{kModule, "Auto_With"};
  source::withReadOnlyNotice(services, module, [&] {
    const std::vector<std::string> lines = linesOf(module, startLine, endLine);
    if (lines.empty()) return;
    const int point = Find_With_Prefix(lines);
    if (point < 0) return;
    const std::vector<std::string> block = withBlock(lines, point);
    replaceLines(module, startLine, static_cast<int>(lines.size()), block);
    const std::string& last = block.back();
    const int indentation = static_cast<int>(last.size() - source::lTrimWhite(last).size());
    putCursor(*module.CodePane(), startLine + static_cast<int>(block.size()), indentation + 1);
  });
}

}  // namespace kolvane::writers
