#include "maintenance/called_from_field.h"

#include "base/text.h"
#include "source/code_tabs.h"
#include "source/options.h"
#include "source/procedure_questions.h"
#include "source/text_utilities.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kLabel = "  Called From  :";
constexpr source::Option kWidth = source::option("etrertretre4fg405ertwrt");
// What the field's label takes of the width.
constexpr int kLabelColumns = 19;

}  // namespace

int calledFromLine(const frame::Services& services, frame::CodeModule& module, const std::string& procedure) {
  const std::string field = "'" + source::commentCharacter(services) + std::string(kLabel);
  for (int line = module.ProcBodyLine(procedure, frame::ProcKind::kProc); line > 0; --line) {
    if (source::lineText(module, line).find(field) != std::string::npos) return line;
    if (module.ProcOfLine(line) != procedure) return 0;
  }
  return 0;
}

std::string calledFromField(const frame::Services& services, std::string_view callers) {
  const std::string character = source::commentCharacter(services);
  const auto width = static_cast<int>(source::numberOf(services, kWidth));
  std::string text(callers);
  if (static_cast<int>(text.size()) > width) {
    auto pieces = source::SplitLineToArray(text, width - kLabelColumns);
    for (std::size_t i = 1; i < pieces.size(); ++i)
      pieces[i] = source::headerContinuation(character) + " " + std::string(base::trim(pieces[i]));
    text = base::join(pieces, base::kCrLf);
  }
  return source::headerIndent(services) + "'" + character + std::string(kLabel) + " " + text;
}

}  // namespace kolvane::maintenance
