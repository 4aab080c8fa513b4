#include "source/procedure_list.h"

#include "base/text.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::source {
namespace {

bool isTitleOf(const std::string& text, const std::string& name) {
  static constexpr std::string_view kFriend = "Friend ";
  const std::string_view trimmed = trimWhite(text);
  const bool title =
      Is_Procedure_Title(trimmed) || Is_Property_Title(trimmed) || trimmed.starts_with(kFriend);
  const std::size_t bracket = trimmed.find('(');
  return title && base::inStr(base::lCase(trimmed.substr(0, bracket)), base::lCase(name)) > 0;
}

// The lines of a procedure that the host does not give by its name, because an earlier one has the same.
ListedProcedure listDouble(frame::CodeModule& module, std::string name, frame::ProcKind kind, int start) {
  ListedProcedure procedure{std::move(name), kind, start, 0, start};
  const int count = module.CountOfLines();
  for (int line = start; line <= count; ++line) {
    frame::ProcKind found{};
    const bool own = module.ProcOfLine(line, found) == procedure.name && found == kind;
    const bool closed =
        procedure.titleLine > 0 && line > procedure.titleLine && At_Procedure_End(module, line - 1);
    if (!own || closed) break;
    if (procedure.titleLine == 0 && isTitleOf(lineText(module, line), procedure.name))
      procedure.titleLine = line;
    procedure.lastLine = line;
  }
  return procedure;
}

}  // namespace

std::vector<ListedProcedure> listProcedures(frame::CodeModule& module) {
  std::vector<ListedProcedure> procedures;
  const int count = module.CountOfLines();
  for (int line = module.CountOfDeclarationLines() + 1; line <= count;) {
    frame::ProcKind kind{};
    std::string name = module.ProcOfLine(line, kind);
    if (name.empty()) {
      ++line;
      continue;
    }
    if (module.ProcStartLine(name, kind) == line) {
      const int body = module.ProcBodyLine(name, kind);
      const int last = line + module.ProcCountLines(name, kind) - 1;
      procedures.push_back({std::move(name), kind, line, body, last});
    } else {
      procedures.push_back(listDouble(module, std::move(name), kind, line));
    }
    line = procedures.back().lastLine + 1;
  }
  return procedures;
}

}  // namespace kolvane::source
