#include "source/parameter_text.h"

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/procedure_questions.h"

namespace kolvane::source {
namespace {

// Without the result type behind a function's parameters.
std::string_view withoutResultType(std::string_view title) {
  if (opensSub(title)) return title;
  const int close = base::inStrRev(base::lCase(title), ") as");
  return close == 0 ? title : base::left(title, close);
}

std::string_view betweenBrackets(std::string_view title) {
  const int open = base::inStr(title, "(");
  const int close = base::inStrRev(title, ")");
  return open == 0 || close <= open ? std::string_view() : base::mid(title, open + 1, close - open - 1);
}

}  // namespace

std::string Find_Parameter_String(const frame::Services& services, frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{"modVBIDEFunctions", "Find_Parameter_String"};
  const std::string title = base::replaceAll(joinTitle(module, titleLine, TitlePieces::kTrimmed), " _", " ");
  std::string text(betweenBrackets(withoutResultType(title)));
  for (const std::string_view word : {"ByVal ", "ByRef "}) text = base::replaceAll(text, word, "");
  text = base::replaceAll(text, " _", " ");
  const std::string lineStart = headerIndent(services) + headerContinuation(commentCharacter(services));
  text = brokenBehindCommas(text, lineStart);
  if (base::trim(text).empty()) return "None";
  return base::replaceAll(text, " As ", " - ");
}

std::string brokenBehindCommas(std::string_view text, std::string_view lineStart) {
  std::string result;
  bool second = false;
  for (const char c : text) {
    result.push_back(c);
    if (c != ',') continue;
    if (second) result.append("\r").append(lineStart);
    second = !second;
  }
  return result;
}

}  // namespace kolvane::source
