#include "writers/headers.h"

#include <array>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/parameter_text.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/called_from.h"
#include "writers/header_reading.h"

namespace kolvane::writers {
namespace {

using source::lineText;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::array<std::string_view, 3> kPropertyWords{"Property Get ", "Property Let ", "Property Set "};

// The first of the lines directly above `line` that are comments or blank. Line 1 counts when it is a
// comment, and when it is blank and `blankFirstLine` says so.
int firstLooseLine(frame::CodeModule& module, int line, bool blankFirstLine) {
  for (; line > 1; --line) {
    const std::string above = lineText(module, line - 1);
    const bool blank = source::Is_Blank_Line(above) && (blankFirstLine || line > 2);
    if (!blank && !source::Is_Comment_Line(above)) break;
  }
  return line;
}

void deleteIfBlank(frame::CodeModule& module, int line) {
  if (line <= module.CountOfLines() && source::Is_Blank_Line(lineText(module, line)))
    module.DeleteLines(line);
}

// Takes away what stands loose above a title and returns the line where the title is then.
int clearAbove(frame::CodeModule& module, int line) {
  const int first = firstLooseLine(module, line, false);
  if (first == line) return line;
  module.DeleteLines(first, line - first);
  if (first > 1) return first;
  module.InsertLines(1, "");
  return 2;
}

void writePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine) {
  std::string name = source::Find_Procedure_Name(module, titleLine);
  for (const std::string_view word : kPropertyWords) name = base::replaceAll(name, word, "");
  const std::string description =
      propertyDescriptionAbove(services, module, titleLine, module.ProcOfLine(titleLine));
  CreatePropertyHeader(services, module, titleLine, base::trim(name), description);
}

void writeProcedureHeader(const Context& context, frame::CodeModule& module, std::string_view name,
                          int titleLine, bool skipCalledFrom) {
  const frame::Services& services = context.services;
  const bool exists = Header_Exists(services, module, titleLine);
  HeaderValues values;
  values.name = exists ? module.ProcOfLine(titleLine) : std::string(name);
  values.returns = source::Find_Procedure_Return_Type(module, titleLine);
  values.parameters = source::Find_Parameter_String(services, module, titleLine);
  if (showsField(services, "Called From") && (exists || !skipCalledFrom))
    values.calledFrom = Get_Called_From_Text(context, module, titleLine);
  if (exists) {
    const auto field = [&](std::string_view label) {
      return Get_Field_From_Procedure_Header(services, module, titleLine - 1, label);
    };
    values.description = field("Description");
    values.author = field("Author");
    values.date = field("Date");
    const std::string old = GetCurrentParameters(services, module, titleLine);
    if (!base::trim(old).empty()) values.parameters = carryParameterComments(values.parameters, old);
  }
  Create_Header(services, module, titleLine, values);
}

}  // namespace

void Add_Procedure_Header(const Context& context, frame::CodeModule& module, std::string_view name, int line,
                          bool skipCalledFrom) {
  const base::ErrorScope scope{kModule, "Add_Procedure_Header"};
  source::withReadOnlyNotice(context.services, module, [&] {
    bool isProcedure = false;
    const int titleLine = source::walkUpToTitle(module, line, [&isProcedure](int, const std::string& text) {
      isProcedure = source::Is_Procedure_Title(text);
      return isProcedure || source::Is_Property_Title(text);
    });
    if (titleLine == 0) return;
    if (isProcedure)
      writeProcedureHeader(context, module, name, titleLine, skipCalledFrom);
    else
      writePropertyHeader(context.services, module, titleLine);
  });
}

void Create_Header(const frame::Services& services, frame::CodeModule& module, int line,
                   const HeaderValues& values) {
  const base::ErrorScope scope{kModule, "Create_Header"};
  const std::string block = headerBlock(services, values);
  line = clearAbove(module, line);
  deleteIfBlank(module, line);
  module.InsertLines(line, block);
}

void CreatePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                          std::string_view name, std::string_view description) {
  const base::ErrorScope scope{kModule, "CreatePropertyHeader"};
  source::withReadOnlyNotice(services, module, [&] {
    const std::string character = source::commentCharacter(services);
    const std::string rule = ruleLine(services);
    const std::string mark = "'" + character;
    const std::string nameLine = fieldStart(character, "Name").append(" ").append(name);
    const std::string descriptionLine = fieldStart(character, "Description").append(" ").append(description);
    const std::vector<std::string> lines{"", rule, mark, nameLine, descriptionLine, mark + " ", rule, ""};
    const int first = firstLooseLine(module, titleLine, true);
    if (first < titleLine) module.DeleteLines(first, titleLine - first);
    deleteIfBlank(module, first);
    module.InsertLines(first, base::join(lines, base::kCrLf));
  });
}

void bindHeaderCommand(source::CodeWindowCommands& commands, const Context& context) {
  commands.bind("CPRProHe80", [&context](const source::CodeWindowCall& call) {
    Add_Procedure_Header(context, call.module, call.name, call.line);
  });
}

}  // namespace kolvane::writers
