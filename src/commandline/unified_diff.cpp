#include "commandline/unified_diff.h"

namespace kolvane::commandline {
namespace {

using platform::DiffHunk;
using platform::DiffLine;

std::string place(int start, int count) {
  return count == 1 ? std::to_string(start) : std::to_string(start) + "," + std::to_string(count);
}

std::string shown(const DiffLine& line, const DiffView& view) {
  std::string text = static_cast<char>(line.kind) + line.text;
  if (view.codePage == nullptr) return text;
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  text = view.codePage->toUtf8(text);
  if (line.kind == DiffLine::Kind::kRemoved) text = view.style(Paint::kRemoved, text);
  if (line.kind == DiffLine::Kind::kAdded) text = view.style(Paint::kAdded, text);
  return text + "\n";
}

void appendHunk(std::string& out, const DiffHunk& hunk, const DiffView& view) {
  out += view.style(Paint::kPlace, "@@ -" + place(hunk.oldStart, hunk.oldCount) + " +" +
                                       place(hunk.newStart, hunk.newCount) + " @@") +
         "\n";
  for (const DiffLine& line : hunk.lines) {
    out += shown(line, view);
    if (!line.lacksEnd) continue;
    if (out.back() != '\n') out += "\n";
    out += "\\ No newline at end of file\n";
  }
}

}  // namespace

std::string unifiedDiff(platform::TextDiff& diff, std::string_view path, std::string_view before,
                        std::string_view after, const DiffView& view) {
  const auto hunks = diff.compare(before, after, view.context);
  if (hunks.empty()) return {};
  while (path.starts_with('/')) path.remove_prefix(1);
  const std::string name(path);
  std::string out =
      view.style(Paint::kTitle, "--- a/" + name) + "\n" + view.style(Paint::kTitle, "+++ b/" + name) + "\n";
  for (const DiffHunk& hunk : hunks) appendHunk(out, hunk, view);
  return out;
}

}  // namespace kolvane::commandline
