#include "writers/error_handlers.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "source/components.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/handler_text.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using source::lineText;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr int kHandlerReach = 18;
constexpr std::size_t kEndReach = 12;
constexpr std::string_view kConstant = "Private Const VB_MODULE_NAME = ";
constexpr std::array<std::string_view, 3> kPropertyWords{"Property Get ", "Property Let ", "Property Set "};

using Writer = void (*)(const frame::Services&, frame::CodeModule&, int, int, std::string_view,
                        std::string_view);

bool isStandardModule(frame::CodeModule& module) {
  return module.Parent()->Type() == frame::ComponentType::kStdModule;
}

// The End line closes the procedure of the title, and not a later one: a procedure on one line has none.
bool closes(frame::CodeModule& module, int titleLine, int endLine) {
  frame::ProcKind titleKind{};
  frame::ProcKind endKind{};
  return module.ProcOfLine(titleLine, titleKind) == module.ProcOfLine(endLine, endKind) &&
         titleKind == endKind;
}

void addToTitle(const frame::Services& services, frame::CodeModule& module, int titleLine,
                std::string_view name, std::string_view kindWord, Writer write) {
  const int definitionEnd = source::Procedure_Definition_End_Line(module, titleLine);
  const int endLine = source::Find_Last_LineNumber(module, titleLine);
  if (endLine != 0 && !closes(module, titleLine, endLine)) return;
  write(services, module, definitionEnd, endLine, name, kindWord);
}

std::string propertyName(frame::CodeModule& module, int titleLine) {
  std::string name = source::Find_Procedure_Name(module, titleLine);
  for (const std::string_view word : kPropertyWords) name = base::replaceAll(name, word, "");
  return name;
}

enum class Properties { kLeftAlone, kTaken };

void addErrorCode(const frame::Services& services, frame::CodeModule& module, std::string_view name, int line,
                  Writer write, Properties properties = Properties::kLeftAlone) {
  source::withReadOnlyNotice(services, module, [&] {
    bool isProperty = false;
    const int titleLine = source::walkUpToTitle(module, line, [&](int at, const std::string& text) {
      isProperty = !source::Is_Procedure_Title(text);
      if (isProperty && (properties == Properties::kLeftAlone || !source::Is_Property_Title(text)))
        return false;
      return !Handler_Exists(module, at) && takesHandler(services, module, at);
    });
    if (titleLine == 0) return;
    if (isProperty)
      addToTitle(services, module, titleLine, propertyName(module, titleLine), "Property", write);
    else if (source::Find_Procedure_Name(module, titleLine) == name)
      addToTitle(services, module, titleLine, name, source::Find_Procedure_Type(module, titleLine), write);
  });
}

// Looks for an `On Error` statement and the handlers' label, line by line, up to the procedure's End. Comments and
// literals do not count.
class HandlerSearch {
 public:
  bool found() const { return found_; }
  bool isOver() const { return found_ || ended_; }

  void read(std::string_view text) {
    if (!continued_) {
      before_.clear();
      inComment_ = false;
      text = source::lTrimWhite(source::Strip_Line_Number(text));
      found_ = found_ || isLabel(text);
    }
    continued_ = endsInContinuation(text);
    for (std::size_t at = 0; at < text.size() && !inComment_ && !isOver();) at = take(text, at);
  }

 private:
  static bool isLabel(std::string_view text) {
    constexpr std::string_view kLabel = "errHandler";
    if (!base::startsWithNoCase(text, kLabel)) return false;
    const std::string_view rest = source::lTrimWhite(text.substr(kLabel.size()));
    return rest.starts_with(':') && !rest.starts_with(":=");
  }

  // One literal, word or sign; returns where the next one begins.
  std::size_t take(std::string_view text, std::size_t at) {
    const char c = text[at];
    if (c == '"') {
      const std::size_t close = text.find('"', at + 1);
      before_ = c;
      return close == std::string_view::npos ? text.size() : close + 1;
    }
    inComment_ = c == '\'';
    if (!base::isWordCharacter(c)) {
      if (c != ' ' && c != '\t') before_ = c;
      return at + 1;
    }
    std::size_t end = at;
    while (end < text.size() && base::isWordCharacter(text[end])) ++end;
    takeWord(base::lCase(text.substr(at, end - at)));
    return end;
  }

  void takeWord(std::string word) {
    inComment_ = word == "rem" && (before_.empty() || before_ == ":");
    found_ = word == "error" && (before_ == "on" || before_ == "on local");
    ended_ = before_ == "end" && (word == "sub" || word == "function" || word == "property");
    before_ = before_ == "on" && word == "local" ? "on local" : std::move(word);
  }

  std::string before_;  // the word or sign before, "on local" for both
  bool continued_ = false;
  bool inComment_ = false;
  bool found_ = false;
  bool ended_ = false;
};

bool startsDirective(std::string_view text, std::string_view directive) {
  return base::startsWithNoCase(source::trimWhite(text), directive);
}

// Where the `On Error` line goes: behind the title, whose first closing bracket may be that of an array among the
// parameters. A title that stands among alternatives of the conditional compilation shares its body with the
// others; the line goes behind all of them, to hold for each.
int topLine(frame::CodeModule& module, int definitionEnd, int endLine) {
  while (definitionEnd < endLine && source::isContinued(lineText(module, definitionEnd))) ++definitionEnd;
  const int behind = std::min(definitionEnd + 1, endLine);
  const std::string text = lineText(module, behind);
  if (!startsDirective(text, "#Else") && !startsDirective(text, "#End If")) return behind;
  for (int line = behind; line < endLine; ++line)
    if (startsDirective(lineText(module, line), "#End If")) return line + 1;
  return behind;
}

void writeHandler(const frame::Services& services, frame::CodeModule& module, const HandlerKind& kind,
                  int definitionEnd, int endLine, std::string_view name, std::string_view kindWord) {
  const HandlerValues values{services.CodeTabs, name, kindWord, isStandardModule(module)};
  placeHandler(module, definitionEnd, endLine, kind.onError, handlerTail(kind, values));
}

// The host refuses a procedure whose End line was not found, before anything has changed.
void checkExtent(frame::CodeModule& module, int definitionEnd, int endLine) {
  if (endLine < definitionEnd) module.Lines(definitionEnd, endLine - definitionEnd);
}

}  // namespace

void Add_Show_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                         int line) {
  const base::ErrorScope scope{kModule, "Add_Show_Error_Code"};
  addErrorCode(services, module, name, line, Create_Show_Error_Handler);
}

void Add_Raise_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                          int line) {
  const base::ErrorScope scope{kModule, "Add_Raise_Error_Code"};
  addErrorCode(services, module, name, line, Create_Raise_Error_Handler, Properties::kTaken);
}

void Add_Next_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                         int line) {
  const base::ErrorScope scope{kModule, "Add_Next_Error_Code"};
  addErrorCode(services, module, name, line, Create_Next_Error_Handler);
}

void Add_Blank_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                          int line) {
  const base::ErrorScope scope{kModule, "Add_Blank_Error_Code"};
  addErrorCode(services, module, name, line, Create_Blank_Error_Handler);
}

void Create_Show_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                               int endLine, std::string_view name, std::string_view kindWord) {
  const base::ErrorScope scope{kModule, "Create_Show_Error_Handler"};
  checkExtent(module, definitionEnd, endLine);
  writeHandler(services, module, kShowHandler, definitionEnd, endLine, name, kindWord);
  if (isStandardModule(module)) Ensure_VB_Module_Name_Is_Defined(module);
}

void Create_Raise_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                                int endLine, std::string_view name, std::string_view kindWord) {
  const base::ErrorScope scope{kModule, "Create_Raise_Error_Handler"};
  checkExtent(module, definitionEnd, endLine);
  if (isStandardModule(module) && Ensure_VB_Module_Name_Is_Defined(module)) {
    ++definitionEnd;
    ++endLine;
  }
  writeHandler(services, module, kRaiseHandler, definitionEnd, endLine, name, kindWord);
}

void Create_Next_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                               int endLine, std::string_view name, std::string_view kindWord) {
  const base::ErrorScope scope{kModule, "Create_Next_Error_Handler"};
  checkExtent(module, definitionEnd, endLine);
  writeHandler(services, module, kNextHandler, definitionEnd, endLine, name, kindWord);
}

void Create_Blank_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                                int endLine, std::string_view name, std::string_view kindWord) {
  const base::ErrorScope scope{kModule, "Create_Blank_Error_Handler"};
  checkExtent(module, definitionEnd, endLine);
  writeHandler(services, module, kBlankHandler, definitionEnd, endLine, name, kindWord);
}

// The tail goes in first, so that the place of the top still holds.
void placeHandler(frame::CodeModule& module, int definitionEnd, int endLine, std::string_view onError,
                  const std::vector<std::string>& tail) {
  const int top = topLine(module, definitionEnd, endLine);
  const int before = module.CountOfLines();
  if (!tail.empty()) module.InsertLines(endLine, base::join(tail, base::kCrLf));
  try {
    module.InsertLines(top, std::string("\r").append(onError));
  } catch (const base::Error&) {
    // A tail alone would be half a handler.
    if (const int added = module.CountOfLines() - before; added > 0) module.DeleteLines(endLine, added);
    throw;
  }
}

bool Handler_Exists(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "Handler_Exists"};
  const int last = std::min(line + kHandlerReach, module.CountOfLines());
  for (int at = line + 1; at <= last; ++at) {
    const std::string text = lineText(module, at);
    // A file that was written elsewhere may spell the keywords in any case.
    if (base::startsWithNoCase(source::trimWhite(text), "On Error GoTo ")) return true;
    const std::string_view start = source::lTrimWhite(source::Strip_Line_Number(text)).substr(0, kEndReach);
    if (start.starts_with("End Sub") || start == "End Property" || start == "End Function") return false;
  }
  return false;
}

bool takesHandler(const frame::Services& services, frame::CodeModule& module, int titleLine) {
  return takesHandler(services, module, titleLine, module.CountOfLines());
}

bool takesHandler(const frame::Services& services, frame::CodeModule& module, int first, int last) {
  if (!services.care.guards(frame::Guard::kHandlerPlaces)) return true;
  HandlerSearch search;
  for (int line = first; line <= last && !search.isOver(); ++line) search.read(lineText(module, line));
  return !search.found();
}

bool Ensure_VB_Module_Name_Is_Defined(frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "Ensure_VB_Module_Name_Is_Defined"};
  const int count = module.CountOfDeclarationLines();
  if (count > 0 && module.Lines(1, count).find(kConstant) != std::string::npos) return false;
  std::string text(kConstant);
  text.append("\".").append(module.Parent()->Name()).append("\" '* Used in Error Handling");
  module.InsertLines(source::lineBehindDeclarations(module), text);
  return true;
}

void AddErrorHandlers(forms::ComboBox& list, const std::vector<std::string>& customHandlers) {
  const base::ErrorScope scope{"modGeneral", "AddErrorHandlers"};
  list.clear();
  list.addItem("");
  for (const HandlerKind* kind : kHandlerKinds) list.addItem(kind->name);
  list.addItems(customHandlers);
  list.setListIndex(1);
}

}  // namespace kolvane::writers
