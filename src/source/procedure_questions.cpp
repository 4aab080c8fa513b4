#include "source/procedure_questions.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "source/comments.h"
#include "source/identifiers.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::size_t kEndReach = 12;

// The order in which the host is asked for a name of unknown kind.
constexpr std::array<frame::ProcKind, 4> kKindOrder{frame::ProcKind::kProc, frame::ProcKind::kGet,
                                                    frame::ProcKind::kLet, frame::ProcKind::kSet};

std::string_view upToBracket(std::string_view title) {
  const int bracket = base::inStr(title, "(");
  return bracket == 0 ? title : base::left(title, bracket);
}

// The statement of a line: without number and indentation.
std::string_view statementOf(std::string_view text) { return lTrimWhite(Strip_Line_Number(text)); }

// The host's line count of a procedure, 0 when it has none of that name and kind.
int countLines(frame::CodeModule& module, std::string_view name, frame::ProcKind kind) {
  try {
    return module.ProcCountLines(name, kind);
  } catch (const base::Error&) {
    return 0;
  }
}

}  // namespace

std::string lineText(frame::CodeModule& module, int line) { return module.Lines(line, 1); }

int walkUpToTitle(frame::CodeModule& module, int line, const TitleTest& accept) {
  for (line = std::min(line, module.CountOfLines()); line >= 1; --line) {
    if (At_Procedure_End(module, line)) return 0;
    if (accept(line, lineText(module, line))) return line;
  }
  return 0;
}

bool At_Procedure_End(frame::CodeModule& module, int line) {
  const std::string text = lineText(module, line);
  const std::string_view statement = statementOf(text);
  return statement == "End Function" || statement == "End Sub" || statement == "End Property";
}

std::string Find_Procedure_Name(frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Find_Procedure_Name"};
  std::string title = lineText(module, titleLine);
  for (const std::string_view word : {"Public", "Private", "Sub", "Function"})
    title = removeWord(title, word);
  const std::string_view name = trimWhite(title);
  return std::string(name.substr(0, name.find('(')));
}

std::string Find_Procedure_Type(frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Find_Procedure_Type"};
  const std::string title = removeWord(removeWord(lineText(module, titleLine), "Public"), "Private");
  const std::string_view words = trimWhite(title);
  return std::string(words.substr(0, words.find(' ')));
}

std::string Find_Procedure_Return_Type(frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Find_Procedure_Return_Type"};
  constexpr std::string_view kMark = ") As ";
  const std::string joined = joinTitle(module, titleLine, TitlePieces::kAsTheyAre);
  const std::string_view title = trimWhite(joined);
  if (opensSub(title)) return "Nothing";
  const std::size_t mark = title.rfind(kMark);
  return mark == std::string_view::npos ? "Variant" : std::string(title.substr(mark + kMark.size()));
}

int Procedure_Definition_End_Line(frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Procedure_Definition_End_Line"};
  const int last = module.CountOfLines();
  for (int line = titleLine; line <= last; ++line)
    if (lineText(module, line).find(')') != std::string::npos) return line;
  return 0;
}

int Find_Last_LineNumber(frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Find_Last_LineNumber"};
  const int last = std::min(titleLine + kLongestProcedure, module.CountOfLines());
  for (int line = titleLine + 1; line <= last; ++line) {
    const std::string text = lineText(module, line);
    const std::string_view start = statementOf(text).substr(0, kEndReach);
    if (start.starts_with("End Sub") || start == "End Property" || start == "End Function") return line;
  }
  return 0;
}

std::string joinTitle(frame::CodeModule& module, int titleLine, TitlePieces pieces) {
  std::string piece = lineText(module, titleLine);
  std::string title = piece;
  while (isContinued(piece)) {
    piece = lineText(module, ++titleLine);
    title.append(pieces == TitlePieces::kTrimmed ? trimWhite(piece) : std::string_view(piece));
  }
  return title;
}

bool opensSub(std::string_view title) { return holdsWord(upToBracket(title), "Sub"); }

int GetProcedureRealStartLine(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{"modGeneral", "GetProcedureRealStartLine"};
  const int last = module.CountOfLines();
  for (; line <= last; ++line)
    if (!Remove_Comments(trimWhite(lineText(module, line))).empty()) return line;
  return 0;
}

int GetProcEndLine(frame::CodeModule& module, int line, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetProcEndLine"};
  const int last = module.CountOfLines();
  while (line < last && module.ProcOfLine(line) == name) ++line;
  return line - 1;
}

void Get_Procedure_Start_End_Lines(frame::CodeModule& module, int& start, int& end) {
  const base::ErrorScope scope{kModule, "Get_Procedure_Start_End_Lines"};
  const std::string name = module.ProcOfLine(module.CodePane()->GetSelection().startLine);
  if (name.empty()) return;
  start = module.ProcStartLine(name, frame::ProcKind::kProc);
  end = start + module.ProcCountLines(name, frame::ProcKind::kProc);
}

frame::ProcKind GetProcKindAtLine(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "GetProcKindAtLine"};
  for (const auto& member : module.Members()->items()) {
    const int location = member->CodeLocation();
    if (location > line) continue;
    const std::string name = member->Name();
    for (const frame::ProcKind kind : kKindOrder) {
      const int count = countLines(module, name, kind);
      if (count == 0) continue;
      if (location + count >= line) return kind;
      break;
    }
  }
  return frame::ProcKind::kProc;
}

bool ProcedureExists(std::string_view name, frame::CodeModule& module) {
  try {
    return module.ProcBodyLine(name, frame::ProcKind::kProc) > 0;
  } catch (const base::Error&) {
    return false;
  }
}

bool Last_Line_Is_Blank(frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "Last_Line_Is_Blank"};
  const int last = module.CountOfLines();
  return last == 0 || Is_Blank_Line(lineText(module, last));
}

std::string GetProcedureCode(frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetProcedureCode"};
  const int start = module.ProcStartLine(name, frame::ProcKind::kProc);
  return module.Lines(start + 1, module.ProcCountLines(name, frame::ProcKind::kProc));
}

std::string GetProcedureCode(frame::VBE& vbe, std::string_view name) {
  const auto component = vbe.SelectedVBComponent();
  const auto module = component ? component->CodeModule() : nullptr;
  if (!module) throw base::Error(base::errors::kObjectNotSet);
  return GetProcedureCode(*module, name);
}

std::string GetLineAccountingForContinuations(frame::CodeModule& module, std::string_view text, int index,
                                              std::string_view name) {
  const base::ErrorScope scope{kModule, "GetLineAccountingForContinuations"};
  if (index == 0) {
    frame::TextRange range{1, 1, -1, -1};
    return module.Find(name, range, true, true) ? lineText(module, range.startLine) : std::string();
  }
  const auto lines = base::split(base::replaceAll(text, "_\r\n", ""), base::kCrLf);
  if (index < 0 || index > static_cast<int>(lines.size())) throw base::Error(base::errors::kSubscript);
  return lines[static_cast<std::size_t>(index) - 1];
}

}  // namespace kolvane::source
