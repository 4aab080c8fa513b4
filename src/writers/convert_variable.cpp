#include "writers/convert_variable.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "source/comments.h"
#include "source/components.h"
#include "source/identifiers.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "source/variable_prefixes.h"
#include "writers/property_text.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kForm = "frmPropertyBuilder";
constexpr std::array<std::string_view, 4> kScopes{"Private ", "Public ", "Dim ", "Global "};
constexpr std::string_view kAs = "As ";
constexpr std::string_view kNew = "New ";
constexpr std::string_view kWithEvents = "WithEvents ";

// The types that a character behind a name stands for.
constexpr std::array<std::pair<char, std::string_view>, 6> kTypeCharacters{{
    {'%', "Integer"},
    {'&', "Long"},
    {'!', "Single"},
    {'#', "Double"},
    {'@', "Currency"},
    {'$', "String"},
}};

struct Variable {
  std::string name;  // as it is declared
  std::string type;
  int line = 0;
  std::string without;  // the line without this variable, "" when nothing is left of it
};

bool takeWord(std::string_view& text, std::string_view word) {
  if (!base::startsWithNoCase(text, word)) return false;
  text = source::trimWhite(text.substr(word.size()));
  return true;
}

std::string_view identifierOf(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), source::IsAlphaNumericUnderscore);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

// What stands behind the name in its declaration; nothing for an array.
std::optional<std::string> typeOf(std::string_view behindName) {
  if (behindName.starts_with('(')) return std::nullopt;
  for (const auto& [character, type] : kTypeCharacters)
    if (behindName.starts_with(character)) return std::string(type);
  behindName = source::trimWhite(behindName);
  if (!takeWord(behindName, kAs)) return "Variant";
  takeWord(behindName, kNew);
  return std::string(behindName.substr(0, behindName.find(' ')));  // of "String * 10" the String
}

// The line without one variable and the comma beside it. `code` is the line in front of a comment, `piece` the
// part of it that declares the variable.
std::string lineWithout(std::string_view line, std::string_view code, std::string_view piece) {
  const auto begin = static_cast<std::size_t>(piece.data() - code.data());
  const std::size_t before = code.rfind(',', begin);
  const std::size_t behind = code.find(',', begin);
  std::string text(line);
  if (before != std::string_view::npos) return text.erase(before, begin + piece.size() - before);
  if (behind != std::string_view::npos)
    return text.erase(begin, code.find_first_not_of(" \t", behind + 1) - begin);
  return std::string(source::trimWhite(line.substr(code.size())));
}

// The variable in a line of declarations; nothing when it is not there or cannot be taken out.
std::optional<Variable> variableIn(std::string_view line, std::string_view name) {
  const std::string_view code = source::RemoveComments(line);
  if (source::isContinued(line) || code.find(':') != std::string_view::npos) return std::nullopt;
  std::string_view rest = source::trimWhite(code);
  if (std::none_of(kScopes.begin(), kScopes.end(), [&](auto word) { return takeWord(rest, word); }))
    return std::nullopt;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    const std::string_view piece = source::trimWhite(rest.substr(0, comma));
    std::string_view declared = piece;
    takeWord(declared, kWithEvents);
    const std::string_view found = identifierOf(declared);
    if (base::equalNoCase(found, name)) {
      auto type = typeOf(declared.substr(found.size()));
      if (!type) return std::nullopt;
      return Variable{std::string(found), std::move(*type), 0, lineWithout(line, code, piece)};
    }
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return std::nullopt;
}

std::optional<Variable> findVariable(frame::CodeModule& module, std::string_view name) {
  for (const auto& member : module.Members()->items()) {
    if (member->Type() != frame::MemberType::kVariable || !base::equalNoCase(member->Name(), name)) continue;
    const int line = member->CodeLocation();
    auto variable = variableIn(source::lineText(module, line), name);
    if (variable) variable->line = line;
    return variable;
  }
  return std::nullopt;
}

// "Total" of "mlngTotal", "mTotal" and "m_Total".
std::string bareName(const frame::Services& services, std::string_view variable) {
  std::string_view name = variable.substr(1);
  if (name.starts_with('_')) name.remove_prefix(1);
  const std::string_view prefix = source::GetPossiblePrefix(name);
  const std::string_view rest = name.substr(prefix.size());
  const bool known = !rest.empty() && !source::Get_Type_From_Prefix(services, prefix, rest).empty();
  return std::string(known ? rest : name);
}

bool agrees(const frame::Services& services, std::string_view question) {
  return services.desk.msgBox(question, forms::box::kAsk, base::kProductName) == forms::Answer::kYes;
}

}  // namespace

bool ConvertVariableToProperty(frame::Services& services, frame::CodeModule& module,
                               std::string_view variable) {
  const base::ErrorScope scope{kForm, "ConvertVariableToProperty"};
  const auto found = variable.starts_with('m') ? findVariable(module, variable) : std::nullopt;
  if (!found || !agrees(services, "Convert to property?")) return false;
  PropertyValues property;
  property.name = bareName(services, found->name);
  property.type = found->type;
  property.isPublic = agrees(services, "Make it public?");
  property.methods = methodsOfType(services, found->type).value_or(PropertyMethods{true, true, false});
  property.declareMember = false;
  property.member = found->name;
  if (const auto fault = faultOf(services, module, property)) {
    services.desk.msgBox(fault->message, forms::box::kNotice, base::kProductName);
    return false;
  }
  return Create_Property(services, module, property);
}

bool ConvertVariableToConstant(const frame::Services& services, frame::CodeModule& module,
                               std::string_view variable) {
  const base::ErrorScope scope{kForm, "ConvertVariableToConstant"};
  const auto found = findVariable(module, variable);
  if (!found || !agrees(services, "Convert to Constant?")) return false;
  const bool isPublic =
      module.Parent()->Type() == frame::ComponentType::kStdModule && agrees(services, "Make it public?");
  const auto value = services.desk.inputBox("Value for constant - " + found->name, "Enter Value.", "");
  if (!value) return false;
  return source::withReadOnlyNotice(services, module, [&] {
    source::Create_Constant(module, found->name, *value, isPublic ? "Public" : "Private");
    if (found->without.empty())
      module.DeleteLines(found->line);
    else
      module.ReplaceLine(found->line, found->without);
  });
}

}  // namespace kolvane::writers
