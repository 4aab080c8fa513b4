#include "maintenance/called_from_field.h"

#include "base/text.h"
#include "frame/options.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/text_utilities.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kLabel = "  Called From  :";
constexpr frame::Option kWidth = frame::option("etrertretre4fg405ertwrt");
// What the field's label takes of the width.
constexpr int kLabelColumns = 19;

// The last line of the field that begins at `line`.
int lastFieldLine(const frame::Services& services, frame::CodeModule& module, int line) {
  const std::string further = source::headerContinuation(source::commentCharacter(services));
  while (source::lTrimWhite(source::lineText(module, line + 1)).starts_with(further)) ++line;
  return line;
}

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
  const auto width = static_cast<int>(frame::numberOf(services, kWidth));
  std::string text(callers);
  if (static_cast<int>(text.size()) > width) {
    auto pieces = source::SplitLineToArray(text, width - kLabelColumns);
    for (std::size_t i = 1; i < pieces.size(); ++i)
      pieces[i] = source::headerContinuation(character) + " " + std::string(base::trim(pieces[i]));
    text = base::join(pieces, base::kCrLf);
  }
  return source::headerIndent(services) + "'" + character + std::string(kLabel) + " " + text;
}

void writeCalledFrom(const frame::Services& services, frame::CodeModule& module, int line,
                     std::string_view callers) {
  const std::string text = calledFromField(services, callers);
  if (!services.care.guards(frame::Guard::kCalledFrom)) return module.ReplaceLine(line, text);
  const int count = lastFieldLine(services, module, line) - line + 1;
  if (module.Lines(line, count) != text) module.ReplaceLines(line, count, text);
}

}  // namespace kolvane::maintenance
