#include "maintenance/line_rewriter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "source/line_tests.h"

namespace kolvane::maintenance {
namespace {

// What a procedure's title may begin with, behind a line number.
constexpr std::array<std::string_view, 8> kTitleWords{"Public", "Private", "Friend",   "Global",
                                                      "Static", "Sub",     "Function", "Property"};

bool mayBeTitle(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" \t0123456789:");
  if (begin == std::string_view::npos) return false;
  const std::string_view code = line.substr(begin);
  return std::any_of(kTitleWords.begin(), kTitleWords.end(), [code](std::string_view word) {
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

LineRewriter::LineRewriter(frame::CodeModule& module, Tolerates tolerates)
    : module_(module),
      tolerates_(tolerates),
      declarationLines_(module.CountOfDeclarationLines()),
      pane_(module.CodePane()) {
  if (!pane_) return;
  selection_ = pane_->GetSelection();
  topLine_ = pane_->TopLine();
}

void LineRewriter::replace(int line, std::string_view oldText, std::string_view text) {
  const bool declares = line <= declarationLines_ || mayBeTitle(oldText);
  if (!joins(line) || hunks_.back().declares || (declares && hunks_.back().removed > 0))
    hunks_.push_back({line});
  hunks_.back().declares = declares;
  ++hunks_.back().removed;
  --added_;
  add(text);
}

void LineRewriter::insert(int line, std::string_view text) {
  if (!joins(line)) hunks_.push_back({line});
  add(text);
  for (int* place : {&selection_.startLine, &selection_.endLine})
    if (*place >= line) ++*place;
  if (topLine_ > line) ++topLine_;
}

void LineRewriter::add(std::string_view text) {
  Hunk& hunk = hunks_.back();
  if (hunk.inserted++ > 0) text_.append(base::kCrLf);
  text_.append(text);
  hunk.textEnd = text_.size();
  ++added_;
}

void LineRewriter::write(const Hunk& hunk, std::string_view text) {
  const int at = hunk.first + shift_;
  if (hunk.removed == 0)
    module_.InsertLines(at, text);
  else
    module_.ReplaceLines(at, hunk.removed, text);
  shift_ += hunk.inserted - hunk.removed;
}

void LineRewriter::finish() {
  std::size_t begin = 0;
  for (const Hunk& hunk : std::exchange(hunks_, {})) {
    try {
      write(hunk, std::string_view(text_).substr(begin, hunk.textEnd - begin));
    } catch (const base::Error& error) {
      if (!tolerates_(error.number())) throw;
    }
    begin = hunk.textEnd;
  }
  text_.clear();
  if (!pane_) return;
  if (pane_->GetSelection() != selection_) pane_->SetSelection(selection_);
  if (pane_->TopLine() != topLine_) pane_->setTopLine(topLine_);
}

}  // namespace kolvane::maintenance
