#include "source/variable_prefixes.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "frame/option_tables.h"
#include "source/classes.h"
#include "source/identifiers.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
// What class modules' names begin with.
constexpr frame::ComponentPrefix kClassPrefix =
    *std::ranges::find(frame::kComponentPrefixes, "Class", &frame::ComponentPrefix::type);
constexpr std::string_view kObjectType = "Object";
constexpr std::string_view kObjectTag = "obj";
constexpr std::string_view kCollectionTag = "col";
constexpr int kTagLength = 3;

// The types whose prefix a property's variable takes from the table.
constexpr std::array<std::string_view, 11> kTaggedTypes{
    "string",  "integer",         "long",   "date", "double", "boolean", "single", "byte",
    "variant", "adodb.recordset", "object",
};

struct ClassTag {
  std::string_view start;
  std::string_view tag;
};

// The tag of a class, by the first three letters of its name.
constexpr std::array<ClassTag, 3> kPropertyClassTags{{
    {"cls", kObjectTag},
    {"obj", kObjectTag},
    {"col", kCollectionTag},
}};
constexpr std::array<ClassTag, 2> kBuilderClassTags{{
    {"cls", kObjectTag},
    {"col", kCollectionTag},
}};
// Types that the Procedure Builder knows even when the table does not.
constexpr std::array<ClassTag, 3> kBuilderTypeTags{{
    {"object", kObjectTag},
    {"class", kObjectTag},
    {"collection", kCollectionTag},
}};

template <std::size_t N>
std::string_view tagOf(std::string_view start, const std::array<ClassTag, N>& tags) {
  for (const ClassTag& row : tags)
    if (row.start == start) return row.tag;
  return {};
}

void putInFront(std::string& name, std::string_view tag) { name.insert(0, tag); }

void raise(const frame::Services& services, std::string& text, std::size_t place) {
  if (place < text.size()) text[place] = services.codePage.upper(text.substr(place, 1)).front();
}

// The class whose name, without the class prefix, is `restOfName`; "" without one.
std::string classNamed(const frame::Services& services, std::string_view restOfName) {
  const int prefixLength =
      static_cast<int>(services.settings.option(kClassPrefix.key, kClassPrefix.defaultText).size());
  std::string found;
  for (std::string& name : Find_Classes_Collections(services))
    if (base::mid(name, prefixLength + 1) == restOfName) found = std::move(name);
  return found;
}

}  // namespace

frame::Settings::Rows variablePrefixes(const frame::Services& services) {
  return services.settings.GetAllSettings(frame::kVariablePrefixSection);
}

std::string Get_Prefix_From_Type(const frame::Services& services, std::string_view type) {
  const base::ErrorScope scope{kModule, "Get_Prefix_From_Type"};
  const std::string wanted = services.codePage.lower(type);
  for (const auto& [prefix, known] : variablePrefixes(services))
    if (services.codePage.lower(known) == wanted) return services.codePage.lower(prefix);
  return {};
}

std::string Get_Type_From_Prefix(const frame::Services& services, std::string_view prefix,
                                 std::string_view restOfName) {
  const base::ErrorScope scope{kModule, "Get_Type_From_Prefix"};
  const frame::Settings::Rows rows = variablePrefixes(services);
  const auto row =
      std::find_if(rows.begin(), rows.end(), [prefix](const auto& each) { return each.first == prefix; });
  if (row == rows.end()) return {};
  const auto object =
      std::find_if(rows.begin(), rows.end(), [](const auto& each) { return each.second == kObjectType; });
  if (object == rows.end() || object->first != row->first) return row->second;
  std::string className = classNamed(services, restOfName);
  return className.empty() ? row->second : className;
}

std::string_view GetPossiblePrefix(std::string_view name) {
  const int capital = FirstCapitalLetter(name);
  return capital == 0 ? name : base::left(name, capital - 1);
}

std::string GetCurrentTypes(const frame::Services& services) {
  std::string types;
  for (const auto& [prefix, type] : variablePrefixes(services)) types.append(type).push_back(',');
  return types;
}

void TagVariable(const frame::Services& services, std::string& name, std::string_view type, bool hasGet,
                 bool hasSet) {
  const base::ErrorScope scope{kModule, "TagVariable"};
  type = base::trim(type);
  const std::string lower = services.codePage.lower(type);
  if (std::find(kTaggedTypes.begin(), kTaggedTypes.end(), lower) != kTaggedTypes.end()) {
    putInFront(name, Get_Prefix_From_Type(services, type));
    return;
  }
  std::string_view start = base::left(type, kTagLength);
  if (hasGet && hasSet) start = type.ends_with('s') ? kCollectionTag : kObjectTag;
  putInFront(name, tagOf(start, kPropertyClassTags));
}

std::string Cap(const frame::Services& services, std::string_view text) {
  std::string result(base::trim(text));
  for (std::size_t i = 0; i + 1 < result.size(); ++i)
    if (result[i] == '_') raise(services, result, i + 1);
  return result;
}

namespace procedure_builder {

void TagVariable(const frame::Services& services, std::string& name, std::string_view type) {
  const base::ErrorScope scope{"frmProcedureBuilder", "TagVariable"};
  const std::string_view prefix = GetPossiblePrefix(name);
  const std::string_view rest = std::string_view(name).substr(prefix.size());
  if (!Get_Type_From_Prefix(services, prefix, rest).empty()) return;
  raise(services, name, 0);
  const std::string lower = services.codePage.lower(type);
  const std::string types = services.codePage.lower(GetCurrentTypes(services));
  if (types.find(lower + ",") != std::string::npos)
    putInFront(name, Get_Prefix_From_Type(services, type));
  else if (const std::string_view tag = tagOf(lower, kBuilderTypeTags); !tag.empty())
    putInFront(name, tag);
  else
    putInFront(name, tagOf(base::left(lower, kTagLength), kBuilderClassTags));
}

std::string Cap(const frame::Services& services, std::string_view text) {
  std::string result = source::Cap(services, text);
  if (!result.starts_with("g_") && !result.starts_with("m_")) raise(services, result, 0);
  return result;
}

}  // namespace procedure_builder

void Generate_DataTypes_For_Combo(const frame::Services& services,
                                  std::initializer_list<forms::ComboBox*> combos) {
  const base::ErrorScope scope{"modGeneral", "Generate_DataTypes_For_Combo"};
  const frame::Settings::Rows rows = variablePrefixes(services);
  for (forms::ComboBox* combo : combos) {
    if (!combo) continue;
    combo->clear();
    for (const auto& [prefix, type] : rows) combo->addItem(type);
  }
}

}  // namespace kolvane::source
