// A project before its text: which files there are, and what each declares. Made first and as a whole, so
// that the code of one module can call what another one has.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "generate/control_classes.h"
#include "generate/generator.h"
#include "generate/random.h"

namespace kolvane::generate {

enum class Type : unsigned char {
  kString,
  kLong,
  kInteger,
  kBoolean,
  kDouble,
  kCurrency,
  kDate,
  kVariant,
  kCollection,
  kRecordset,
  kObject,  // of a class of the project
  kNone,
};

// What an expression can be asked for: Long and Integer mix freely, and so do Double and Currency.
enum class Group : unsigned char { kText, kNumber, kFlag, kDecimal, kMoment, kVariant, kOther };
inline constexpr std::size_t kGroups = 7;

struct TypeRow {
  Type type;
  Group group;
  std::string_view keyword;
  std::string_view prefix;  // of a variable's name
  int weight;               // how often a variable is declared so
};
inline constexpr std::array<TypeRow, 12> kTypes{{
    {Type::kString, Group::kText, "String", "str", 300},
    {Type::kLong, Group::kNumber, "Long", "lng", 240},
    {Type::kInteger, Group::kNumber, "Integer", "int", 120},
    {Type::kBoolean, Group::kFlag, "Boolean", "bln", 110},
    {Type::kDouble, Group::kDecimal, "Double", "dbl", 50},
    {Type::kCurrency, Group::kDecimal, "Currency", "cur", 40},
    {Type::kDate, Group::kMoment, "Date", "dtm", 35},
    {Type::kVariant, Group::kVariant, "Variant", "var", 40},
    {Type::kCollection, Group::kOther, "Collection", "col", 15},
    {Type::kRecordset, Group::kOther, "ADODB.Recordset", "rs", 20},
    {Type::kObject, Group::kOther, "", "obj", 40},
    {Type::kNone, Group::kOther, "", "", 0},
}};
constexpr const TypeRow& row(Type type) { return kTypes[static_cast<std::size_t>(type)]; }
static_assert([] {
  for (std::size_t i = 0; i < kTypes.size(); ++i)
    if (static_cast<std::size_t>(kTypes[i].type) != i) return false;
  return true;
}());

struct Variable {
  std::string name;
  Type type = Type::kString;
  int classIndex = -1;  // of the project's modules, for an object
  bool isArray = false;
  bool withEvents = false;
  bool byVal = false;  // parameters only
};

struct Constant {
  std::string name;
  std::string value;
  Group group = Group::kNumber;
};

enum class Scope : unsigned char { kNone, kPublic, kPrivate, kFriend };
enum class ProcedureKind : unsigned char { kSub, kFunction, kGet, kLet, kSet };

struct Procedure {
  std::string name;
  ProcedureKind kind = ProcedureKind::kSub;
  Scope scope = Scope::kPrivate;
  bool isHandler = false;
  std::string handlerParameters;  // of a handler, as the title has them
  bool continuedTitle = false;
  // Two titles in an #If and its #Else, one body.
  bool alternateTitles = false;
  std::vector<Variable> parameters;
  Type result = Type::kNone;  // of a Function or Property Get
  int classIndex = -1;        // of an object result
  std::string backing;        // the variable behind a property
  // Hidden attribute lines behind the title: "VB_UserMemId = 0".
  std::vector<std::string> attributes;
  int weight = 10;  // its length beside the others'
};

struct Record {  // a Type … End Type
  std::string name;
  std::vector<Variable> fields;
};

struct Enumeration {
  std::string name;
  std::vector<std::string> elements;
};

// The habits of whoever wrote the module.
struct Style {
  int indent = 4;
  bool hungarian = true;
  std::string_view memberPrefix = "m_";
  bool alignedAs = false;
  bool callKeyword = false;
  bool caseIndented = true;
  bool lineNumbers = false;
  bool accented = false;
  int blankLinesWithBlanks = 0;  // per mille
  int banner = -1;               // row of the comment blocks above titles; -1 for none
  std::string_view errorLabel;
  std::string_view exitLabel;
  std::string_view lineEnd = "\r\n";
};

enum class ModuleKind : unsigned char { kStandard, kClass, kForm, kControl };

struct Control {
  const ControlClass* type = nullptr;
  std::string name;
  std::string caption;
  int index = -1;  // of a control array
  int tabIndex = -1;
  int left = 0, top = 0, width = 0, height = 0;
  std::vector<int> children;  // of Module::controls
};

struct Module {
  ModuleKind kind = ModuleKind::kStandard;
  std::string name;
  std::string path;  // relative, "/"
  Style style;
  int lines = 0;          // of the whole file
  int designerLines = 0;  // about so many of them
  bool hasCompanion = false;

  std::vector<Control> controls;  // all levels
  std::vector<int> topControls;   // directly on the form, in file order

  std::vector<Variable> variables;
  std::vector<Constant> constants;
  std::vector<Record> records;
  std::vector<Enumeration> enumerations;
  std::vector<Procedure> events;
  std::vector<std::string> declares;
  std::vector<Variable> recordVariables;  // name "udtOrder", its type in recordTypes at the same place
  std::vector<int> recordTypes;
  std::vector<Procedure> procedures;
  // Those of a class that others may use, by index: Subs, Property Lets, and Property Gets that give a text.
  std::vector<int> publicSubs, publicLets, publicTexts;
};

// Names in use, without regard to case.
class Names {
 public:
  bool taken(std::string_view name) const;
  // The name, with the first free number behind it when it is taken.
  std::string claim(std::string name);

 private:
  // In lower case, each with the number last put behind it.
  std::unordered_map<std::string, int> lower_;
};

struct Project {
  std::string name;
  std::vector<Module> modules;
  // Places of procedures that any module may call: module and procedure index.
  struct Place {
    int module = 0;
    int procedure = 0;
  };
  std::vector<Place> publicSubs;
  std::array<std::vector<Place>, kGroups> publicFunctions;
  std::vector<int> classes;  // module indexes
  std::vector<int> forms;
};

Project makeOutline(const Options& options);

// Parts of `total` in proportion to the weights, none below its least; their sum is `total` unless the least
// ones are more than that.
std::vector<int> shares(int total, const std::vector<int>& weights, const std::vector<int>& least);

// "CustomerNumber", "LastInvoice"
std::string nounName(Random& random);
// A variable's name in the module's style, without module prefix.
std::string variableName(Random& random, const Style& style, Type type);

}  // namespace kolvane::generate
