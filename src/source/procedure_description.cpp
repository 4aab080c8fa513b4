#include "source/procedure_description.h"

#include "base/error.h"
#include "base/text.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kLabel = "Description  :";
// What a header's line that goes on with a value has in the label's place.
constexpr std::string_view kContinuation = "               :";
constexpr std::string_view kNoDescription = "*";

// The line of the label in the procedure's lines above the title; 0 without one.
int labelLine(frame::CodeModule& module, std::string_view name, int line) {
  while (line > 0 && module.ProcOfLine(line) == name) {
    --line;
    if (line > 0 && lineText(module, line).find(kLabel) != std::string::npos) return line;
  }
  return 0;
}

}  // namespace

std::string GetProceduresDescription(frame::CodeModule& module, std::string_view name, int titleLine) {
  const base::ErrorScope scope{"modAutoDocumentor", "GetProceduresDescription"};
  int line = labelLine(module, name, titleLine);
  if (line == 0) return {};
  std::string text = base::replaceAll(trimWhite(lineText(module, line)), kLabel, {});
  text = base::replaceAll(text, "'", {});
  if (!text.empty() && text.front() != ' ') text.erase(0, 1);
  for (std::string next = lineText(module, ++line); next.find(kContinuation) != std::string::npos;
       next = lineText(module, ++line))
    text.append(base::replaceAll(trimWhite(next), kContinuation, {}));
  const std::string_view description = trimWhite(text);
  return description == kNoDescription ? std::string() : std::string(description);
}

}  // namespace kolvane::source
