#include "source/components.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::source {
namespace {

constexpr std::array<std::pair<frame::ComponentType, std::string_view>, 7> kTypeNames{{
    {frame::ComponentType::kStdModule, "Standard Module"},
    {frame::ComponentType::kClassModule, "Class"},
    {frame::ComponentType::kVBForm, "Form"},
    {frame::ComponentType::kVBMDIForm, "Form"},
    {frame::ComponentType::kPropPage, "Property Page"},
    {frame::ComponentType::kUserControl, "User Control"},
    {frame::ComponentType::kActiveXDesigner, "ActiveX Designer"},
}};

// The lines of the #If directives that are open behind `text`, outermost first.
void followDirective(std::string_view text, int line, std::vector<int>& open) {
  text = trimWhite(text);
  if (base::startsWithNoCase(text, "#If ")) open.push_back(line);
  if (base::startsWithNoCase(text, "#End If") && !open.empty()) open.pop_back();
}

bool isTitle(std::string_view text) {
  return Is_Procedure_Title(text) || Is_Property_Title(text) || trimWhite(text).starts_with("Friend ");
}

}  // namespace

std::string_view Get_Component_Type_Name(frame::ComponentType type) {
  for (const auto& [known, name] : kTypeNames)
    if (type == known) return name;
  return {};
}

std::string_view Get_Component_Type_Name(frame::VBComponent& component) {
  return Get_Component_Type_Name(component.Type());
}

int GetRealControlCount(const std::shared_ptr<frame::VBControls>& controls) {
  int count = 0;
  if (controls)
    for (const auto& control : controls->items()) count += control->ClassName() == "Menu" ? 0 : 1;
  return count;
}

int GetControlIndex(std::string_view text) {
  const int open = base::inStr(text, "(");
  return open == 0 ? 0 : static_cast<int>(base::val(base::mid(text, open + 1)));
}

int lineBehindDeclarations(frame::CodeModule& module) {
  const int behind = module.CountOfDeclarationLines() + 1;
  std::vector<int> open;
  const std::string declarations = module.Lines(1, behind - 1);
  int line = 0;
  for (const std::string_view text : base::splitLines(declarations)) followDirective(text, ++line, open);
  const int last = module.CountOfLines();
  for (line = behind; !open.empty() && line <= last; ++line) {
    const std::string text = lineText(module, line);
    if (isTitle(text)) return open.front();
    followDirective(text, line, open);
    if (open.empty()) return line + 1;
  }
  return behind;
}

void Create_Constant(frame::CodeModule& module, std::string_view name, std::string_view value,
                     std::string_view scope) {
  const base::ErrorScope errors{"modGeneral", "Create_Constant"};
  std::string text(scope);
  text.append(" Const ").append(name).append(" = ");
  if (base::isNumeric(value))
    text.append(value);
  else
    text.append("\"").append(base::replaceAll(value, "\"", "\"\"")).append("\"");
  module.InsertLines(lineBehindDeclarations(module), text);
}

}  // namespace kolvane::source
