#include "writers/header_reading.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/property_questions.h"
#include "source/text_utilities.h"
#include "writers/header_layout.h"

namespace kolvane::writers {
namespace {

using source::lineText;

constexpr std::string_view kModule = "modVBIDEFunctions";
// How far behind a title a header of a foreign style is looked for.
constexpr int kForeignReach = 18;
// How many further lines a Parameters field may have.
constexpr int kMostContinuations = 10;
// The shortest rule above a Name label without comment character.
constexpr int kShortRule = 16;
constexpr int kSearchColumn = 120;
// What a further line of any field holds.
constexpr std::string_view kContinuedValue = "           : ";

std::string withoutBlanks(std::string_view text) { return source::Remove_Char(base::lCase(text), " "); }

std::string_view behindColon(std::string_view text) {
  return base::trim(base::mid(text, base::inStr(text, ":") + 1));
}

std::string withSingleBlanks(std::string text) {
  text.erase(std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
             text.end());
  return text;
}

// ---- parameter comments

constexpr std::string_view kOptional = "Optional";
constexpr std::string_view kDefaultMark = " = ";

// What two elements of a parameter list are recognised by: the name, the word Optional apart.
std::string_view parameterKey(std::string_view element) {
  if (const std::string_view trimmed = base::lTrim(element); trimmed.starts_with("Optional "))
    element = trimmed.substr(kOptional.size());
  const int blank = base::inStr(2, element, " ");
  return base::trim(blank == 0 ? element : base::left(element, blank));
}

// A text that begins with " = value", without that.
std::string_view withoutDefault(std::string_view text) {
  if (!text.starts_with(kDefaultMark)) return text;
  const std::string_view value = text.substr(kDefaultMark.size());
  const std::size_t from = value.starts_with('"') ? std::min(value.find('"', 1), value.size()) : 0;
  return value.substr(std::min(value.find(' ', from), value.size()));
}

// What the user wrote behind a parameter's type. Its tail in the header may begin with what the title itself
// says there: a default value, the second word of "New Collection", the type of a ParamArray. `fresh` is the
// same parameter as the title has it now.
std::string userComment(std::string_view old, std::string_view fresh) {
  const std::string tail = GetParameterComment(old);
  const std::string said = GetParameterComment(fresh);
  const std::string_view rest = std::string_view(tail).substr(std::min(said.size(), tail.size()));
  const bool saidBefore = !said.empty() && tail.starts_with(said) && (rest.empty() || rest.starts_with(' '));
  if (saidBefore) return std::string(rest);
  return std::string(base::lTrim(old).starts_with(kOptional) ? withoutDefault(tail) : tail);
}

}  // namespace

bool Header_Exists(const frame::Services& services, frame::CodeModule& module, int titleLine) {
  const base::ErrorScope scope{kModule, "Header_Exists"};
  if (Header_Exists_Within_Procedure(module, titleLine)) return true;
  const std::string character = source::commentCharacter(services);
  const std::string name = fieldStart(character, "Name") + " ";
  const std::string bareName = fieldStart("", "Name") + " ";
  const std::string rule = "'" + base::repeat(character, kShortRule);
  std::string below = lineText(module, titleLine + 2);
  for (int line = titleLine + 1; line >= 1; --line) {
    std::string text = lineText(module, line);
    if (below.starts_with(name) || (text.starts_with(rule) && below.starts_with(bareName))) return true;
    if (source::startsWithAny(text, source::kExitsAndEnds)) return false;
    below = std::move(text);
  }
  return false;
}

bool Header_Exists_Within_Procedure(frame::CodeModule& module, int titleLine,
                                    std::span<const std::string_view> stops) {
  const base::ErrorScope scope{kModule, "Header_Exists_Within_Procedure"};
  for (int line = titleLine + 1; line <= titleLine + kForeignReach; ++line) {
    const std::string line0 = lineText(module, line);
    const std::string_view text = source::trimWhite(line0);
    if (source::startsWithAny(text, kForeignRules) &&
        withoutBlanks(lineText(module, line + 1)).starts_with("'name:") &&
        withoutBlanks(lineText(module, line + 2)).starts_with("'description:"))
      return true;
    if (std::any_of(stops.begin(), stops.end(),
                    [&](std::string_view stop) { return text.starts_with(stop); }))
      return false;
  }
  return false;
}

std::string Get_Field_From_Procedure_Header(const frame::Services& services, frame::CodeModule& module,
                                            int line, std::string_view field) {
  const base::ErrorScope scope{kModule, "Get_Field_From_Procedure_Header"};
  if (line < 1) return {};
  frame::TextRange range{std::max(line - kHeaderWindow, 1), 1, line, kSearchColumn};
  if (!module.Find(fieldLabel(field), range, true, true)) return {};
  int found = range.startLine;
  std::string value(behindColon(lineText(module, found)));
  for (std::string text; (text = lineText(module, ++found)).find(kContinuedValue) != std::string::npos;)
    value.append(behindColon(text));
  const std::string continuation = source::headerContinuation(source::commentCharacter(services));
  return withSingleBlanks(base::replaceAll(value, continuation, ""));
}

std::string GetCurrentParameters(const frame::Services& services, frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "GetCurrentParameters"};
  const std::string character = source::commentCharacter(services);
  const std::string label = fieldStart(character, "Parameters");
  const std::string continuation = source::headerContinuation(character);
  const std::string name = module.ProcOfLine(line);
  for (; line >= 1 && module.ProcOfLine(line) == name; --line) {
    std::string text = lineText(module, line);
    if (!text.starts_with(label)) continue;
    std::string value(base::trim(std::string_view(text).substr(label.size())));
    for (int further = 1; further <= kMostContinuations; ++further) {
      text = lineText(module, line + further);
      if (!text.starts_with(continuation)) break;
      value.append(text, continuation.size());
    }
    return value;
  }
  return {};
}

std::string GetParameterComment(std::string_view parameter) {
  parameter = base::trim(parameter);
  int blank = 0;
  for (int skip = parameter.starts_with(kOptional) ? 4 : 3; skip > 0; --skip)
    if (blank = base::inStr(blank + 1, parameter, " "); blank == 0) return {};
  return std::string(base::mid(parameter, blank));
}

std::string carryParameterComments(std::string_view fresh, std::string_view old) {
  std::vector<std::string> parameters = base::split(fresh, ",");
  const std::vector<std::string> before = base::split(old, ",");
  for (std::string& parameter : parameters) {
    const std::string bare = parameter;
    for (const std::string& earlier : before)
      if (parameterKey(bare) == parameterKey(earlier)) parameter.append(userComment(earlier, bare));
  }
  return base::join(parameters, ",");
}

std::string propertyDescriptionAbove(const frame::Services& services, frame::CodeModule& module,
                                     int titleLine, std::string_view name) {
  return source::descriptionUpwards(services, module, titleLine - 2, name);
}

std::string GetIndividualPropertyDescription(const frame::Services& services, frame::CodeModule& module,
                                             std::string_view titleText, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetIndividualPropertyDescription"};
  frame::TextRange range{1, 1, -1, -1};
  if (titleText.empty() || !module.Find(titleText, range, true, true)) return {};
  return propertyDescriptionAbove(services, module, range.startLine, name);
}

}  // namespace kolvane::writers
