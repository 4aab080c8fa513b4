#include "writers/selection_case.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/read_only_notice.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

struct CaseWord {
  std::string_view word;
  std::string (base::CodePage::*convert)(std::string_view bytes) const;
};

constexpr std::array<CaseWord, 3> kCaseWords{{
    {"UCASE", &base::CodePage::upper},
    {"LCASE", &base::CodePage::lower},
    {"PROPER", &base::CodePage::proper},
}};

const CaseWord* findWord(std::string_view word) {
  for (const CaseWord& known : kCaseWords)
    if (base::equalNoCase(known.word, word)) return &known;
  return nullptr;
}

// The lines of a selection as one text, cut in three: what is selected and what stands around it.
struct SelectedText {
  std::string before;
  std::string selected;
  std::string behind;
};

SelectedText selectedText(frame::CodeModule& module, const frame::TextRange& selection) {
  const int count = selection.endLine - selection.startLine + 1;
  const std::string text = module.Lines(selection.startLine, count);
  const std::size_t lastLine = text.rfind('\n') == std::string::npos ? 0 : text.rfind('\n') + 1;
  const std::size_t from = static_cast<std::size_t>(selection.startColumn) - 1;
  const std::size_t to = std::min(lastLine + static_cast<std::size_t>(selection.endColumn) - 1, text.size());
  if (from >= to) return {text, {}, {}};
  return {text.substr(0, from), text.substr(from, to - from), text.substr(to)};
}

}  // namespace

void MakeSelectionCase(const frame::Services& services, frame::CodePane& pane, int /*line*/,
                       std::string_view word) {
  const base::ErrorScope scope{"modVBIDEFunctions", "MakeSelectionCase"};
  const CaseWord* known = findWord(word);
  if (!known) return;
  const auto module = pane.CodeModule();
  source::withReadOnlyNotice(services, *module, [&] {
    const frame::TextRange selection = pane.GetSelection();
    const SelectedText text = selectedText(*module, selection);
    if (text.selected.empty()) return;
    const std::string changed =
        text.before + (services.codePage.*known->convert)(text.selected) + text.behind;
    replaceLines(*module, selection.startLine, selection.endLine - selection.startLine + 1,
                 base::split(changed, base::kCrLf));
    pane.SetSelection(selection);
  });
}

}  // namespace kolvane::writers
