#include "writers/headers.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/parameter_text.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/called_from.h"
#include "writers/header_placing.h"
#include "writers/header_reading.h"
#include "writers/kept_fields.h"
#include "writers/line_block.h"
#include "writers/standing_header.h"

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

// ---- under care

// The host's limit for a line.
constexpr std::size_t kLongestLine = 1023;

// The values as they are to stand: what the old header had goes with those of the title, and a comment may become
// the description of a procedure without one.
struct CarefulValues {
  CarefulValues(const frame::Services& services, const LinesAbove& above, HeaderValues fresh,
                std::string_view indent, bool describes) {
    if (above.header && services.care.guards(frame::Guard::kFieldTexts)) {
      KeptFields kept = keptFields(services, *above.header, std::move(fresh), indent);
      values = std::move(kept.values);
      header.comments = std::move(kept.unfit);
    } else {
      values = std::move(fresh);
    }
    if (!describes || !base::trim(values.description).empty()) return;
    const auto paragraph = describingParagraph(above, header.comments);
    const std::size_t start =
        indent.size() + fieldStart(source::commentCharacter(services), "Description").size() + 1;
    if (!paragraph || start + paragraph->size() > kLongestLine) return;
    values.description = *paragraph;
    header.tookParagraph = true;
  }

  HeaderValues values;
  PlacedHeader header;
};

std::vector<std::string> physicalLines(const std::vector<std::string>& lines) {
  const std::string text = base::join(lines, base::kCrLf);
  const auto parts = base::splitLines(text);
  return {parts.begin(), parts.end()};
}

void placeProcedureHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                          const HeaderValues& values, Describe describe) {
  const LinesAbove above = readAbove(services, module, titleLine, values.name);
  const bool describes = describe == Describe::kYes && showsField(services, "Description");
  const std::string indent = source::headerIndent(services);
  CarefulValues careful(services, above, values, indent, describes);
  careful.header.lead = indent;
  careful.header.lines = physicalLines(headerLines(services, completed(services, std::move(careful.values))));
  placeHeader(module, titleLine, above, careful.header);
}

std::vector<std::string> propertyHeaderLines(const frame::Services& services, const HeaderValues& values) {
  const std::string character = source::commentCharacter(services);
  const std::string rule = ruleLine(services);
  const std::string mark = "'" + character;
  std::vector<std::string> lines{rule, mark};
  for (std::size_t i = 0; i < kHeaderValues.size(); ++i) {
    const auto& [label, value] = kHeaderValues[i];
    if (values.kept[i] || label == "Name" || label == "Description")
      lines.push_back(fieldStart(character, label).append(" ").append(values.*value));
  }
  lines.insert(lines.end(), {mark + " ", rule, ""});
  return lines;
}

void placePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                         std::string_view name, std::string_view description, Describe describe) {
  const LinesAbove above = readAbove(services, module, titleLine, name);
  HeaderValues values;
  values.name = name;
  if (!above.header) values.description = description;
  CarefulValues careful(services, above, std::move(values), "", describe == Describe::kYes);
  careful.header.keepsFirstLine = false;
  careful.header.lines = physicalLines(propertyHeaderLines(services, careful.values));
  placeHeader(module, titleLine, above, careful.header);
}

// The command as the title says it is one: the word ends there, and the line is no part of a comment above.
bool isTitleLine(frame::CodeModule& module, int line, std::string_view text) {
  if (line > 1 && endsInContinuation(lineText(module, line - 1))) return false;
  text = source::trimWhite(text);
  return std::any_of(source::kProcedureTitles.begin(), source::kProcedureTitles.end(),
                     [text](std::string_view title) {
                       return text.starts_with(title) && text.substr(title.size()).starts_with(' ');
                     });
}

// ---- the commands

void writePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                         Describe describe) {
  std::string name = source::Find_Procedure_Name(module, titleLine);
  for (const std::string_view word : kPropertyWords) name = base::replaceAll(name, word, "");
  const std::string description =
      propertyDescriptionAbove(services, module, titleLine, module.ProcOfLine(titleLine));
  CreatePropertyHeader(services, module, titleLine, base::trim(name), description, describe);
}

void writeProcedureHeaderCarefully(const Context& context, frame::CodeModule& module, std::string_view name,
                                   int titleLine, bool skipCalledFrom, Describe describe) {
  const frame::Services& services = context.services;
  HeaderValues values;
  values.name = module.ProcOfLine(titleLine);
  if (values.name.empty()) values.name = name;
  values.returns = source::Find_Procedure_Return_Type(module, titleLine);
  values.parameters = source::Find_Parameter_String(services, module, titleLine);
  if (showsField(services, "Called From") &&
      (!skipCalledFrom || readAbove(services, module, titleLine, values.name).header))
    values.calledFrom = Get_Called_From_Text(context, module, titleLine);
  Create_Header(services, module, titleLine, values, describe);
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
                          bool skipCalledFrom, Describe describe) {
  const base::ErrorScope scope{kModule, "Add_Procedure_Header"};
  const bool careful = context.services.care.guards(frame::Guard::kComments);
  source::withReadOnlyNotice(context.services, module, [&] {
    bool isProcedure = false;
    const int titleLine = source::walkUpToTitle(module, line, [&](int at, const std::string& text) {
      isProcedure = careful ? isTitleLine(module, at, text) : source::Is_Procedure_Title(text);
      return isProcedure || source::Is_Property_Title(text);
    });
    if (titleLine == 0) return;
    if (!isProcedure)
      writePropertyHeader(context.services, module, titleLine, describe);
    else if (careful)
      writeProcedureHeaderCarefully(context, module, name, titleLine, skipCalledFrom, describe);
    else
      writeProcedureHeader(context, module, name, titleLine, skipCalledFrom);
  });
}

void Create_Header(const frame::Services& services, frame::CodeModule& module, int line,
                   const HeaderValues& values, Describe describe) {
  const base::ErrorScope scope{kModule, "Create_Header"};
  if (services.care.guards(frame::Guard::kComments))
    return placeProcedureHeader(services, module, line, values, describe);
  const std::string block = headerBlock(services, values);
  line = clearAbove(module, line);
  deleteIfBlank(module, line);
  module.InsertLines(line, block);
}

void CreatePropertyHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                          std::string_view name, std::string_view description, Describe describe) {
  const base::ErrorScope scope{kModule, "CreatePropertyHeader"};
  source::withReadOnlyNotice(services, module, [&] {
    if (services.care.guards(frame::Guard::kComments))
      return placePropertyHeader(services, module, titleLine, name, description, describe);
    HeaderValues values;
    values.name = name;
    values.description = description;
    std::vector<std::string> lines = propertyHeaderLines(services, values);
    lines.insert(lines.begin(), "");
    const int first = firstLooseLine(module, titleLine, true);
    if (first < titleLine) module.DeleteLines(first, titleLine - first);
    deleteIfBlank(module, first);
    module.InsertLines(first, base::join(lines, base::kCrLf));
  });
}

void putNewHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                  const HeaderValues& values) {
  const LinesAbove above = readAbove(services, module, titleLine, values.name);
  if (above.header) return;
  PlacedHeader header{source::headerIndent(services), physicalLines(headerLines(services, values))};
  placeHeader(module, titleLine, above, header);
}

int commentsThatWouldGo(const frame::Services& services, frame::CodeModule& module, int titleLine,
                        std::string_view name) {
  const LinesAbove above = readAbove(services, module, titleLine, name);
  int count = 0;
  for (int line = firstLooseLine(module, titleLine, true); line < titleLine; ++line) {
    const auto at = static_cast<std::size_t>(line - above.first);
    const bool inHeader = above.header && above.header->begin <= at && at < above.header->end;
    if (!inHeader && source::Is_Comment_Line(lineText(module, line))) ++count;
  }
  return count;
}

bool hasStandingHeader(const frame::Services& services, frame::CodeModule& module, int titleLine,
                       std::string_view name) {
  return readAbove(services, module, titleLine, name).header.has_value();
}

void bindHeaderCommand(source::CodeWindowCommands& commands, const Context& context) {
  commands.bind("CPRProHe80", [&context](const source::CodeWindowCall& call) {
    Add_Procedure_Header(context, call.module, call.name, call.line);
  });
}

}  // namespace kolvane::writers
