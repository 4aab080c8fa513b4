#include "writers/called_from.h"

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/code_tabs.h"
#include "source/procedure_questions.h"
#include "source/text_utilities.h"

namespace kolvane::writers {
namespace {

constexpr frame::Option kWidth = frame::option("etrertretre4fg405ertwrt");
// What the field's label takes of the width.
constexpr int kLabelColumns = 19;

}  // namespace

std::string Get_Called_From_Text(const Context& context, frame::CodeModule& module, int line) {
  const base::ErrorScope scope{"modVBIDEFunctions", "Get_Called_From_Text"};
  if (!context.findCallers) return {};
  const int start = source::GetProcedureRealStartLine(module, line);
  module.CodePane()->SetSelection({start, 1, start, 1});
  const std::string callers = context.findCallers(module);
  const auto width = static_cast<int>(frame::numberOf(context.services, kWidth));
  if (static_cast<int>(callers.size()) <= width) return callers;
  const std::string lineStart = source::headerIndent(context.services) +
                                source::headerContinuation(source::commentCharacter(context.services)) + " ";
  std::vector<std::string> pieces = source::SplitLineToArray(callers, width - kLabelColumns);
  for (std::size_t i = 1; i < pieces.size(); ++i) pieces[i] = lineStart + std::string(base::trim(pieces[i]));
  return base::join(pieces, base::kCrLf);
}

}  // namespace kolvane::writers
