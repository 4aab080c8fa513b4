#include "source/property_questions.h"

#include <algorithm>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kPublic = "Public";
constexpr std::string_view kPrivate = "Private";

// The line of the method's title, 0 without one.
int titleLine(frame::CodeModule& module, const PropertyMethod& method, std::string_view name) {
  frame::TextRange range{module.CountOfDeclarationLines() + 1, 1, -1, -1};
  return module.Find(std::string(method.title).append(name), range) ? range.startLine : 0;
}

// "" without the method.
std::string_view scopeOf(frame::CodeModule& module, const PropertyMethod& method, std::string_view name) {
  const int line = titleLine(module, method, name);
  if (line == 0) return {};
  return lineText(module, line).starts_with("Public ") ? kPublic : kPrivate;
}

bool holdsHandler(frame::CodeModule& module, int title, std::string_view name) {
  const int last = module.CountOfLines();
  for (int line = title + 1; line <= last && base::equalNoCase(module.ProcOfLine(line), name); ++line)
    if (lineText(module, line).find("On Error ") != std::string::npos) return true;
  return false;
}

}  // namespace

bool PropertyExists(std::string_view name, frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "PropertyExists"};
  const auto members = module.Members()->items();
  return std::any_of(members.begin(), members.end(), [name](const auto& member) {
    return member->Type() == frame::MemberType::kProperty && base::equalNoCase(member->Name(), name);
  });
}

std::string FindPropertiesType(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "FindPropertiesType"};
  const std::string text = lineText(module, line);
  std::string_view title = trimWhite(text);
  if (title.ends_with(')') && !title.ends_with("()")) title.remove_suffix(1);
  return std::string(base::mid(title, base::inStrRev(title, " ") + 1));
}

int GetPropertyRealStartLine(frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetPropertyRealStartLine"};
  for (const PropertyMethod& method : kPropertyMethods)
    if (const int line = titleLine(module, method, name); line != 0) return line;
  return 0;
}

std::string GetPropertyDeclarations(frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetPropertyDeclarations"};
  std::vector<std::string> words;
  for (const PropertyMethod& method : kPropertyMethods)
    if (titleLine(module, method, name) != 0) words.emplace_back(method.word);
  return base::join(words, "/");
}

std::string GetPropertiesScope(frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "GetPropertiesScope"};
  const std::string_view get = scopeOf(module, kPropertyMethods[0], name);
  const std::string_view let = scopeOf(module, kPropertyMethods[1], name);
  const std::string_view set = scopeOf(module, kPropertyMethods[2], name);
  std::string_view result;
  if ((get == kPrivate || set == kPrivate) && let == kPublic) result = "Write Only";
  if ((get == kPublic || set == kPublic) && let == kPublic) result = "Read Write";
  if ((let == kPrivate || set == kPrivate) && get == kPublic) result = "Read Only";
  if ((let == kPrivate || set == kPrivate) && get == kPrivate) result = "Private";
  return std::string(result);
}

bool DoesPropertyUseErrorHandler(frame::CodeModule& module, std::string_view name) {
  const base::ErrorScope scope{kModule, "DoesPropertyUseErrorHandler"};
  return std::any_of(kPropertyMethods.begin(), kPropertyMethods.end(), [&](const PropertyMethod& method) {
    const int line = titleLine(module, method, name);
    return line != 0 && holdsHandler(module, line, name);
  });
}

std::string GetPropertiesDescription(const frame::Services& services, frame::CodeModule& module,
                                     std::string_view name) {
  const base::ErrorScope scope{kModule, "GetPropertiesDescription"};
  return descriptionUpwards(services, module, GetPropertyRealStartLine(module, name) - 1, name);
}

std::string descriptionUpwards(const frame::Services& services, frame::CodeModule& module, int line,
                               std::string_view name) {
  const std::string label = fieldStart(commentCharacter(services), "Description");
  for (; line >= 1 && base::equalNoCase(module.ProcOfLine(line), name); --line) {
    const std::string text = lineText(module, line);
    if (const std::size_t found = text.find(label); found != std::string::npos)
      return std::string(base::trim(std::string_view(text).substr(found + label.size())));
  }
  return {};
}

}  // namespace kolvane::source
