#include "writers/property_text.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/classes.h"
#include "source/code_tabs.h"
#include "source/components.h"
#include "source/line_tests.h"
#include "source/names.h"
#include "source/procedure_questions.h"
#include "source/property_questions.h"
#include "source/read_only_notice.h"
#include "source/variable_prefixes.h"
#include "writers/builder_text.h"
#include "writers/error_handlers.h"
#include "writers/header_layout.h"

namespace kolvane::writers {
namespace {

using source::lineText;
using Lines = std::vector<std::string>;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr frame::Option kWriteHeaders = frame::option("DH7");
constexpr frame::Option kLineAfterHeader = frame::option("LAH8");

// ---- methods by type

struct TypeMethods {
  std::string_view type;
  PropertyMethods methods;
};
constexpr PropertyMethods kOfValues{true, true, false};
constexpr PropertyMethods kOfObjects{true, false, true};
constexpr PropertyMethods kOfVariants{true, true, true};
constexpr std::array<TypeMethods, 12> kTypeMethods{{
    {"integer", kOfValues},
    {"long", kOfValues},
    {"string", kOfValues},
    {"single", kOfValues},
    {"double", kOfValues},
    {"date", kOfValues},
    {"boolean", kOfValues},
    {"byte", kOfValues},
    {"object", kOfObjects},
    {"collection", kOfObjects},
    {"adodb.recordset", kOfObjects},
    {"variant", kOfVariants},
}};
// What names of classes begin with.
constexpr std::array<std::string_view, 3> kObjectStarts{"cls", "col", "obj"};

// ---- faults

struct Check {
  PropertyFault fault;
  bool (*fails)(const frame::Services& services, frame::CodeModule& module, const PropertyValues& property);
};

// In the order in which they are looked at.
constexpr std::array<Check, 6> kChecks{{
    {{PropertyField::kName, "Property name already used!"},
     [](const frame::Services& services, frame::CodeModule& module, const PropertyValues& property) {
       return source::PropertyExists(propertyName(services, property.name), module);
     }},
    {{PropertyField::kName, "Invalid Name!"},
     [](const frame::Services&, frame::CodeModule&, const PropertyValues& property) {
       return source::InvalidName(property.name);
     }},
    {{PropertyField::kName, "You must specify a name!"},
     [](const frame::Services&, frame::CodeModule&, const PropertyValues& property) {
       return base::trim(property.name).empty();
     }},
    {{PropertyField::kType, "You need to specify the properties type!"},
     [](const frame::Services&, frame::CodeModule&, const PropertyValues& property) {
       return base::trim(property.type).empty();
     }},
    {{PropertyField::kType, "Invalid Type!"},
     [](const frame::Services&, frame::CodeModule&, const PropertyValues& property) {
       return source::InvalidTypeName(property.type);
     }},
    {{PropertyField::kMethods, "You must specify the properties methods."},
     [](const frame::Services&, frame::CodeModule&, const PropertyValues& property) {
       return property.methods.none();
     }},
}};

// ---- the text

std::string withFirstLetterRaised(const frame::Services& services, std::string_view text) {
  std::string result(text);
  if (!result.empty()) result.front() = services.codePage.upper(result.substr(0, 1)).front();
  return result;
}

// What the methods' lines are made of.
struct Pieces {
  const frame::Services& services;
  std::string name;
  std::string description;
  std::string type;
  std::string member;  // the variable's whole name
  PropertyMethods methods;
  std::string_view scope;
  bool useHandler;
  bool standardModule;
};

void add(Lines& lines, std::initializer_list<std::string> further) { lines.insert(lines.end(), further); }

void addHeader(Lines& lines, const Pieces& pieces) {
  const frame::Services& services = pieces.services;
  const std::string indent = source::headerIndent(services);
  const std::string character = source::commentCharacter(services);
  const std::string rule = indent + ruleLine(services);
  const std::string mark = indent + "'" + character;
  const auto field = [&](std::string_view label, std::string_view value) {
    return (indent + fieldStart(character, label)).append(" ").append(value);
  };
  add(lines, {rule, mark, field("Name", pieces.name), field("Description", pieces.description), mark, rule});
  if (frame::isOn(services, kLineAfterHeader)) lines.emplace_back();
}

void addGetBody(Lines& lines, const Pieces& pieces) {
  const std::string& tabs = pieces.services.CodeTabs;
  const std::string reads = pieces.name + "= " + pieces.member;
  const std::string readsObject = "Set " + pieces.name + " = " + pieces.member;
  if (pieces.services.codePage.lower(pieces.type) != "variant") {
    lines.push_back(tabs + (pieces.methods.set ? readsObject : reads));
    return;
  }
  lines.push_back(tabs + "If IsObject(" + pieces.member + ") Then");
  lines.push_back(tabs + "\t" + readsObject);
  lines.push_back(tabs + "else");
  lines.push_back(tabs + "\t" + reads);
  lines.push_back(tabs + "end if");
}

void addLetBody(Lines& lines, const Pieces& pieces) {
  lines.push_back(pieces.services.CodeTabs + pieces.member + " = NewValue ");
}

void addSetBody(Lines& lines, const Pieces& pieces) {
  lines.push_back(pieces.services.CodeTabs + "Set " + pieces.member + " = NewValue ");
}

std::string sourceText(const Pieces& pieces) {
  const std::string_view start = pieces.standardModule
                                     ? "\terr.source = err.source  & vb_module_name  & \"."
                                     : "err.source = err.source  & \".\" &  typename(me)  & \".";
  return std::string(start).append(pieces.name).append("\"");
}

void addHandler(Lines& lines, const Pieces& pieces) {
  add(lines, {"", "Exit Property", "", "errHandler:", "", "\t" + sourceText(pieces), " ",
              "\tErr.raise err.number, err.source, err.description"});
}

struct MethodText {
  const source::PropertyMethod& method;
  bool PropertyMethods::*wanted;
  std::string_view behindName;  // in the title, in front of the type
  std::string_view behindType;
  void (*addBody)(Lines& lines, const Pieces& pieces);
};

// In the order in which they are written.
constexpr std::array<MethodText, 3> kMethodTexts{{
    {source::kPropertyMethods[0], &PropertyMethods::get, "( ) AS ", "", addGetBody},
    {source::kPropertyMethods[1], &PropertyMethods::let, "(Byval NewValue AS ", ")", addLetBody},
    {source::kPropertyMethods[2], &PropertyMethods::set, "(ByVal NewValue AS ", ")", addSetBody},
}};

void addMethod(Lines& lines, const MethodText& text, const Pieces& pieces) {
  const bool header = frame::isOn(pieces.services, kWriteHeaders);
  if (text.wanted != &PropertyMethods::get)
    lines.emplace_back(" ");
  else if (header)
    lines.emplace_back();
  if (header) addHeader(lines, pieces);
  lines.push_back(std::string(pieces.scope)
                      .append(" ")
                      .append(text.method.title)
                      .append(pieces.name)
                      .append(text.behindName)
                      .append(pieces.type)
                      .append(text.behindType));
  lines.emplace_back();
  if (pieces.useHandler) add(lines, {"On Error Goto errHandler", ""});
  text.addBody(lines, pieces);
  if (pieces.useHandler) addHandler(lines, pieces);
  add(lines, {"", "End Property"});
}

Lines methodLines(const Pieces& pieces) {
  Lines lines;
  for (const MethodText& text : kMethodTexts)
    if (pieces.methods.*text.wanted) addMethod(lines, text, pieces);
  return lines;
}

// ---- its place

bool hasVariable(frame::CodeModule& module, std::string_view name) {
  const auto members = module.Members()->items();
  return std::any_of(members.begin(), members.end(), [name](const auto& member) {
    return member->Type() == frame::MemberType::kVariable && base::equalNoCase(member->Name(), name);
  });
}

void declareMember(frame::CodeModule& module, const Pieces& pieces) {
  if (hasVariable(module, pieces.member)) return;
  module.InsertLines(lineBehindText(module, source::lineBehindDeclarations(module)),
                     "Private " + pieces.member + " AS " + pieces.type + "    '* Private Property Variable");
}

std::string memberName(const frame::Services& services, const PropertyValues& property,
                       std::string_view name) {
  if (!property.member.empty()) return property.member;
  std::string tagged(name);
  source::TagVariable(services, tagged, property.type, property.methods.get, property.methods.set);
  return "m" + tagged;
}

}  // namespace

std::string methodNames(const PropertyMethods& methods) {
  Lines names;
  for (const MethodText& text : kMethodTexts)
    if (methods.*text.wanted) names.emplace_back(text.method.word);
  return base::join(names, "/");
}

std::optional<PropertyMethods> usualMethods(const frame::Services& services, std::string_view type) {
  const std::string lower = services.codePage.lower(base::trim(type));
  for (const TypeMethods& row : kTypeMethods)
    if (row.type == lower) return row.methods;
  if (source::startsWithAny(lower, kObjectStarts)) return kOfObjects;
  return std::nullopt;
}

std::optional<PropertyMethods> methodsOfType(const frame::Services& services, std::string_view type) {
  if (const auto usual = usualMethods(services, type)) return usual;
  // The language's one type of plain values that the dialog's rule does not know.
  if (base::equalNoCase(base::trim(type), "Currency")) return kOfValues;
  const std::vector<std::string> classes = source::Find_Classes_Collections(services);
  const bool isClass = std::any_of(classes.begin(), classes.end(), [&](const std::string& name) {
    return base::equalNoCase(name, base::trim(type));
  });
  return isClass ? std::optional(kOfObjects) : std::nullopt;
}

std::string propertyName(const frame::Services& services, std::string_view name) {
  std::string result(base::trim(name));
  if (!result.starts_with("col") && !result.starts_with("obj"))
    result = withFirstLetterRaised(services, result);
  return source::Cap(services, base::replaceAll(result, " ", "_"));
}

std::optional<PropertyFault> faultOf(const frame::Services& services, frame::CodeModule& module,
                                     const PropertyValues& property) {
  for (const Check& check : kChecks)
    if (check.fails(services, module, property)) return check.fault;
  return std::nullopt;
}

bool Create_Property(frame::Services& services, frame::CodeModule& module, const PropertyValues& property) {
  const base::ErrorScope scope{kModule, "Create_Property"};
  if (property.methods.none()) return true;
  source::Set_Tabs(services);
  const std::string name = propertyName(services, property.name);
  const Pieces pieces{services,
                      name,
                      descriptionLine(services, property.description),
                      std::string(base::trim(property.type)),
                      memberName(services, property, name),
                      property.methods,
                      property.isPublic ? "Public" : "Private",
                      property.useHandler,
                      module.Parent()->Type() == frame::ComponentType::kStdModule};
  return source::withReadOnlyNotice(services, module, [&] {
    if (property.declareMember) declareMember(module, pieces);
    module.InsertLines(lineBehindText(module, module.CountOfLines() + 1),
                       base::join(methodLines(pieces), base::kCrLf));
    // Once the methods are there, the declarations end where they do for good.
    if (pieces.useHandler && pieces.standardModule) Ensure_VB_Module_Name_Is_Defined(module);
  });
}

}  // namespace kolvane::writers
