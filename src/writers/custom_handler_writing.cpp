#include "writers/custom_handler_writing.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/handler_text.h"

namespace kolvane::writers {
namespace {

using source::lineText;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kLabel = "errHandler:";
constexpr std::string_view kBlankLine = " ";
constexpr std::string_view kOnError = "on error goto ";
constexpr std::array<std::string_view, 2> kEnds{"End Sub", "End Function"};

void tellNotFound(const frame::Services& services, std::string_view name) {
  services.desk.msgBox(customHandlerNotFound(name), forms::box::kNotice, base::kProductName);
}

// "Sub" or "Function" of an End line, "" of any other line. It serves behind `Exit` where the title's first word
// would not, as of a Friend or Static procedure.
std::string_view kindOfEnd(std::string_view text) {
  const std::string_view statement = source::trimWhite(source::Strip_Line_Number(text));
  for (const std::string_view end : kEnds)
    if (base::startsWithNoCase(statement, end)) return end.substr(sizeof("End ") - 1);
  return {};
}

// What the host counts to the procedure of that name. Of two alternatives of the conditional compilation it is
// the first.
struct Extent {
  Extent(frame::CodeModule& module, std::string_view name)
      : first(module.ProcStartLine(name, frame::ProcKind::kProc)),
        title(module.ProcBodyLine(name, frame::ProcKind::kProc)),
        behind(first + module.ProcCountLines(name, frame::ProcKind::kProc)) {}

  bool holds(int line) const { return first <= line && line < behind; }

  int first;
  int title;
  int behind;
};

// The procedure's End line; 0 when it has none of its own. The last procedure of a module counts all that
// follows it.
int endLineOf(frame::CodeModule& module, const Extent& extent) {
  int line = std::min(extent.behind - 1, module.CountOfLines());
  while (line > extent.title && kindOfEnd(lineText(module, line)).empty()) --line;
  return line > extent.title ? line : 0;
}

// A file that was written elsewhere may spell the keywords in any case.
bool holdsOnError(frame::CodeModule& module, int first, int last) {
  for (int line = first; line <= last; ++line)
    if (base::lCase(lineText(module, line)).find(kOnError) != std::string::npos) return true;
  return false;
}

void place(frame::CodeModule& module, int definitionEnd, int endLine, std::string_view kindWord,
           const std::string& text) {
  placeHandler(module, definitionEnd, endLine, kOnErrorGoto,
               {std::string("Exit ").append(kindWord), std::string(kBlankLine), std::string(kLabel),
                std::string(kBlankLine), text});
}

}  // namespace

bool CreateCustomErrorHandler(frame::Services& services, frame::VBComponent& component, frame::CodePane& pane,
                              frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "CreateCustomErrorHandler"};
  const int line = pane.GetSelection().startLine;
  if (Handler_Exists(module, line)) return true;
  const std::string handler = base::replaceAll(name, "&", "");
  frame::ProcKind kind{};
  const std::string procedure = module.ProcOfLine(line, kind);
  if (procedure.empty() || kind != frame::ProcKind::kProc) return true;
  const Extent extent(module, procedure);
  if (!extent.holds(line) || !takesHandler(services, module, extent.title)) return true;
  if (ReturnCustomError(services.settings, handler).empty()) {
    tellNotFound(services, handler);
    return false;
  }
  source::Set_Tabs(services);
  const int endLine = endLineOf(module, extent);
  if (endLine == 0) return true;
  const std::string end = lineText(module, endLine);
  const std::string user = frame::GetCurrentUser(services);
  return source::withReadOnlyNotice(services, module, [&] {
    Create_Custom_Error(services, module, component, procedure, extent.first, endLine + 1,
                        {handler, kindOfEnd(end), user});
  });
}

void Create_Custom_Error(const frame::Services& services, frame::CodeModule& module,
                         frame::VBComponent& component, std::string_view procedureName, int first,
                         int behindEnd, const CustomHandlerUse& use) {
  const base::ErrorScope scope{kModule, "Create_Custom_Error"};
  const int endLine = behindEnd - 1;
  if (holdsOnError(module, first, endLine - 1)) return;
  const auto text = readCustomHandler(services.settings, use.handler);
  if (!text) return;
  const ElementValues values{std::string(procedureName), component.Type(), std::string(use.user)};
  const int title = module.ProcBodyLine(procedureName, frame::ProcKind::kProc);
  place(module, std::max(title, source::Procedure_Definition_End_Line(module, title)), endLine, use.kindWord,
        replaceElements(services, *text, values));
  if (component.Type() == frame::ComponentType::kStdModule) Ensure_VB_Module_Name_Is_Defined(module);
}

void Create_Custom_Error(const frame::Services& services, frame::CodeModule& module,
                         std::string_view eventName, std::string_view controlName, int first, int last,
                         const CustomHandlerUse& use) {
  const base::ErrorScope scope{kModule, "Create_Custom_Error"};
  const auto text = readCustomHandler(services.settings, use.handler);
  if (!text) return tellNotFound(services, use.handler);
  if (!takesHandler(services, module, first, last)) return;
  const frame::ComponentType type = module.Parent()->Type();
  const std::string procedure = std::string(controlName).append("_").append(eventName);
  place(module, first - 1, last + 1, use.kindWord,
        replaceElements(services, *text, {procedure, type, std::string(use.user)}));
  if (type == frame::ComponentType::kStdModule) Ensure_VB_Module_Name_Is_Defined(module);
}

}  // namespace kolvane::writers
