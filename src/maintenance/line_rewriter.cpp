#include "maintenance/line_rewriter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::maintenance {
namespace {

// What a member's declaration may begin with, a line number and scope included.
constexpr std::array<std::string_view, 12> kDeclarers{"Public", "Private", "Friend",   "Global",
                                                      "Static", "Sub",     "Function", "Property",
                                                      "Dim",    "Const",   "Event",    "Declare"};

bool mayDeclare(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" \t0123456789:");
  if (begin == std::string_view::npos) return false;
  const std::string_view code = line.substr(begin);
  return std::any_of(kDeclarers.begin(), kDeclarers.end(), [code](std::string_view word) {
    return (code[0] | 0x20) == (word[0] | 0x20) && base::startsWithNoCase(code, word);
  });
}

}  // namespace

LineBlock::LineBlock(frame::CodeModule& module, int first, int last) : first_(first) {
  const int end = std::min(last, module.CountOfLines());
  if (first < 1 || end < first) return;
  text_ = module.Lines(first, end - first + 1);
  lines_.reserve(static_cast<std::size_t>(end - first + 1));
  const char* at = text_.data();
  const char* const stop = at + text_.size();
  while (true) {
    const auto* found = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(stop - at)));
    const char* const lineEnd = found ? found - 1 : stop;  // the host joins lines by CR LF
    lines_.emplace_back(at, static_cast<std::size_t>(lineEnd - at));
    if (!found) break;
    at = found + 1;
  }
}

LineRewriter::LineRewriter(frame::CodeModule& module)
    : module_(module), declarationLines_(module.CountOfDeclarationLines()), pane_(module.CodePane()) {
  if (!pane_) return;
  selection_ = pane_->GetSelection();
  topLine_ = pane_->TopLine();
}

void LineRewriter::replace(int line, std::string_view oldText, std::string_view text) {
  const bool declares = line <= declarationLines_ || mayDeclare(oldText);
  if (!joins(line) || hunk_.declares || (declares && hunk_.removed > 0)) open(line);
  hunk_.declares = declares;
  ++hunk_.removed;
  add(text);
}

void LineRewriter::insert(int line, std::string_view text) {
  if (!joins(line)) open(line);
  add(text);
  for (int* place : {&selection_.startLine, &selection_.endLine})
    if (*place >= line) ++*place;
  if (topLine_ > line) ++topLine_;
}

void LineRewriter::open(int line) {
  write();
  hunk_.first = line;
}

void LineRewriter::add(std::string_view text) {
  if (hunk_.inserted++ > 0) hunk_.text.append(base::kCrLf);
  hunk_.text.append(text);
}

// The new lines come before the old ones go: a host that fails between the two has lost nothing.
void LineRewriter::write() {
  if (hunk_.inserted == 0) return;
  const Hunk hunk = std::exchange(hunk_, {});
  const int at = hunk.first + shift_;
  if (hunk.removed == 0)
    module_.InsertLines(at, hunk.text);
  else
    module_.ReplaceLine(at, hunk.text);
  shift_ += hunk.inserted - std::min(hunk.removed, 1);
  if (hunk.removed > 1) {
    module_.DeleteLines(at + hunk.inserted, hunk.removed - 1);
    shift_ -= hunk.removed - 1;
  }
}

void LineRewriter::finish() {
  write();
  if (!pane_) return;
  if (pane_->GetSelection() != selection_) pane_->SetSelection(selection_);
  if (pane_->TopLine() != topLine_) pane_->setTopLine(topLine_);
}

}  // namespace kolvane::maintenance
