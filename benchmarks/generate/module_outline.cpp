#include "generate/module_outline.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "generate/words.h"

namespace kolvane::generate {

namespace {

// Code lines of a procedure on the average, its share of the declarations included.
constexpr int kLinesPerProcedure = 33;

// Lengths of procedures beside each other.
constexpr std::array kHandlerWeights{3, 4, 4, 5, 6, 8, 10, 14, 22, 36};
constexpr std::array kPropertyWeights{3, 3, 4, 4, 5, 6, 9, 14};
constexpr std::array kProcedureWeights{6, 8, 10, 13, 16, 20, 25, 32, 42, 55, 75, 130};

constexpr std::array kParameterCounts{0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 3, 3, 4, 6};

struct ScopeRow {
  int publicPerMille, friendPerMille, nonePerMille;  // the rest is private
};
constexpr std::array<ScopeRow, 4> kScopes{{{330, 0, 130}, {230, 90, 70}, {60, 10, 90}, {150, 90, 60}}};

// Families of property procedures, in the frequencies of real classes.
struct FamilyRow {
  int weight;
  bool get, let, set;
};
constexpr std::array<FamilyRow, 7> kFamilies{{{5181, true, true, false},
                                              {4780, true, false, false},
                                              {571, false, true, false},
                                              {554, false, false, true},
                                              {521, true, false, true},
                                              {42, true, true, true},
                                              {7, false, true, true}}};

// Handlers of the root object: how its title begins, and what it takes.
struct RootHandlers {
  std::string_view object;
  std::array<std::string_view, 4> events;
};
constexpr std::array<RootHandlers, 4> kRootHandlers{
    {{"", {}},
     {"Class", {"Initialize()", "Terminate()"}},
     {"Form",
      {"Load()", "Unload(Cancel As Integer)", "Resize()", "KeyDown(KeyCode As Integer, Shift As Integer)"}},
     {"UserControl",
      {"Initialize()", "Resize()", "ReadProperties(PropBag As PropertyBag)",
       "WriteProperties(PropBag As PropertyBag)"}}}};

template <typename Rows>
const auto& byWeight(Random& random, const Rows& rows) {
  int total = 0;
  for (const auto& each : rows) total += each.weight;
  int at = random.below(total);
  for (const auto& each : rows)
    if ((at -= each.weight) < 0) return each;
  return rows[0];
}

class ModuleOutliner {
 public:
  ModuleOutliner(Random& random, Project& project, int index)
      : random_(random),
        project_(project),
        module_(project.modules[static_cast<std::size_t>(index)]),
        index_(index) {}

  void outline(int procedures) {
    if (module_.kind == ModuleKind::kForm || module_.kind == ModuleKind::kControl)
      placeControls(random_, module_, names_);
    const int codeLines = std::max(1, module_.lines - module_.designerLines - headerLines(module_));
    for (Procedure& event : module_.events) event.name = names_.claim(event.name);
    addConstants(codeLines);
    addRecords(codeLines);
    addEnumerations(codeLines);
    addVariables(codeLines);
    if (module_.kind != ModuleKind::kControl && random_.chance(160)) addDeclares();
    addProcedures(procedures > 0 ? procedures : std::max(1, codeLines / kLinesPerProcedure));
    if (procedures > 0) module_.procedures.resize(static_cast<std::size_t>(procedures));
  }

 private:
  bool isObjectModule() const { return module_.kind != ModuleKind::kStandard; }
  std::size_t kindRow() const { return static_cast<std::size_t>(module_.kind); }

  // About one for so many code lines, more or less.
  int countFor(int codeLines, int linesEach, int most) {
    const int usual = std::min(most, codeLines / linesEach);
    return usual == 0 ? (random_.chance(codeLines * 1000 / linesEach) ? 1 : 0)
                      : random_.between(usual / 2, usual * 3 / 2);
  }

  Type basicType() {
    const TypeRow& chosen = byWeight(random_, kTypes);
    return chosen.group == Group::kOther ? Type::kString : chosen.type;
  }

  int someClass() {
    if (project_.classes.empty()) return -1;
    const int chosen = random_.pick(project_.classes);
    return chosen == index_ ? -1 : chosen;
  }

  // ---- declarations

  void addConstants(int codeLines) {
    for (int i = countFor(codeLines, 110, 40); i > 0; --i) {
      Constant constant;
      const std::string noun = nounName(random_);
      if (random_.chance(300)) {
        constant.group = Group::kText;
        constant.value = "\"" + noun + "\"";
      } else {
        constant.value = random_.chance(250) ? "&H" + std::to_string(random_.between(1, 99))
                                             : std::to_string(random_.below(500));
      }
      constant.name = names_.claim((random_.chance(600) ? "c" : "mc") + noun);
      module_.constants.push_back(std::move(constant));
    }
  }

  void addRecords(int codeLines) {
    for (int i = std::min(countFor(codeLines, 900, 6), 12); i > 0; --i) {
      Record record;
      const std::string noun = nounName(random_);
      record.name = names_.claim((random_.chance(500) ? "typ" : "T") + noun);
      Names fields;
      for (int f = random_.between(2, 9); f > 0; --f) {
        Variable field;
        field.type = basicType();
        field.name = fields.claim(variableName(random_, module_.style, field.type));
        record.fields.push_back(std::move(field));
      }
      Variable variable;
      variable.name = names_.claim("mudt" + noun);
      module_.recordVariables.push_back(std::move(variable));
      module_.recordTypes.push_back(static_cast<int>(module_.records.size()));
      module_.records.push_back(std::move(record));
    }
  }

  void addEnumerations(int codeLines) {
    for (int i = std::min(countFor(codeLines, 1000, 4), 8); i > 0; --i) {
      Enumeration enumeration;
      const std::string noun = nounName(random_);
      enumeration.name = names_.claim("e" + noun);
      for (int e = random_.between(2, 7); e > 0; --e) {
        std::string element = noun.substr(0, 3);
        element += random_.pick(words::kQualifiers);
        element += random_.pick(words::kNouns);
        enumeration.elements.push_back(names_.claim(std::move(element)));
      }
      module_.enumerations.push_back(std::move(enumeration));
    }
  }

  void addVariables(int codeLines) {
    for (int i = 1 + countFor(codeLines, 55, 60); i > 0; --i) {
      Variable variable;
      variable.type = byWeight(random_, kTypes).type;
      if (variable.type == Type::kObject && (variable.classIndex = someClass()) < 0)
        variable.type = Type::kString;
      variable.isArray =
          random_.chance(90) && (variable.type == Type::kString || variable.type == Type::kLong);
      variable.withEvents =
          variable.type == Type::kObject && isObjectModule() && listensTo(variable.classIndex);
      std::string name(isObjectModule() || random_.chance(600) ? module_.style.memberPrefix : "g_");
      name += variableName(random_, module_.style, variable.type);
      variable.name = names_.claim(std::move(name));
      module_.variables.push_back(std::move(variable));
    }
  }

  bool listensTo(int classIndex) {
    return !project_.modules[static_cast<std::size_t>(classIndex)].events.empty() && random_.chance(900);
  }

  void addDeclares() {
    for (int i = random_.few(5); i > 0; --i) {
      std::string line("Private ");
      line += random_.pick(words::kDeclares);
      if (std::find(module_.declares.begin(), module_.declares.end(), line) == module_.declares.end())
        module_.declares.push_back(std::move(line));
    }
  }

  // ---- procedures

  // Handlers and properties up to their share, in any order, then what the module is for.
  void addProcedures(int count) {
    module_.procedures.reserve(static_cast<std::size_t>(count) + 4);
    const auto full = [&](int perMille) {
      return static_cast<int>(module_.procedures.size()) * 1000 >= count * perMille;
    };
    if (startsProgram()) addMain();
    addRootHandlers(count);
    if (isObjectModule()) {
      addVariableHandlers(count);
      addControlHandlers(count * (module_.kind == ModuleKind::kForm ? 600 : 200) / 1000);
    }
    if (module_.kind == ModuleKind::kClass && count > 8 && random_.chance(120)) addCollectionMembers();
    const int properties = module_.kind == ModuleKind::kClass     ? 190
                           : module_.kind == ModuleKind::kControl ? 300
                                                                  : 15;
    for (const std::size_t before = module_.procedures.size();
         static_cast<int>(module_.procedures.size() - before) * 1000 < count * properties && !full(1000);)
      addPropertyFamily();
    while (!full(1000)) addProcedure();
  }

  bool startsProgram() const {
    for (const Module& module : project_.modules)
      if (module.kind == ModuleKind::kStandard) return &module == &module_;
    return false;
  }

  void addMain() {
    Procedure procedure;
    procedure.name = names_.claim("Main");
    procedure.scope = Scope::kPublic;
    procedure.weight = 20;
    module_.procedures.push_back(std::move(procedure));
  }

  void addHandler(const std::string& object, std::string_view event, bool indexed) {
    const std::size_t open = event.find('(');
    Procedure procedure;
    procedure.name = object + "_" + std::string(event.substr(0, open));
    if (names_.taken(procedure.name)) return;
    names_.claim(procedure.name);
    procedure.isHandler = true;
    procedure.handlerParameters = event.substr(open + 1, event.size() - open - 2);
    if (indexed)
      procedure.handlerParameters.insert(
          0, procedure.handlerParameters.empty() ? "Index As Integer" : "Index As Integer, ");
    procedure.weight = random_.pick(kHandlerWeights);
    module_.procedures.push_back(std::move(procedure));
  }

  void addRootHandlers(int count) {
    const RootHandlers& root = kRootHandlers[kindRow()];
    for (const std::string_view event : root.events)
      if (!event.empty() && static_cast<int>(module_.procedures.size()) < count && random_.chance(550))
        addHandler(std::string(root.object), event, false);
  }

  void addVariableHandlers(int count) {
    for (const Variable& variable : module_.variables) {
      if (!variable.withEvents || static_cast<int>(module_.procedures.size()) >= count) continue;
      for (const Procedure& event : project_.modules[static_cast<std::size_t>(variable.classIndex)].events)
        addHandler(variable.name, event.name + "(" + event.handlerParameters + ")", false);
    }
  }

  void addControlHandlers(int most) {
    std::vector<const Control*> order;
    for (const Control& control : module_.controls)
      if (!control.type->events.empty() && control.caption != "-" && !control.name.starts_with("Label"))
        order.push_back(&control);
    random_.shuffle(order);
    for (const Control* control : order) {
      if (static_cast<int>(module_.procedures.size()) >= most) return;
      addHandler(control->name, random_.pick(control->type->events), control->index >= 0);
    }
  }

  // Item, Count and NewEnum over a collection of the class's own.
  void addCollectionMembers() {
    Variable items;
    items.type = Type::kCollection;
    items.name = names_.claim("mcolItems");
    for (const std::string_view name : {"Item", "Count", "NewEnum"}) {
      Procedure procedure;
      procedure.name = names_.claim(std::string(name));
      procedure.kind = ProcedureKind::kGet;
      procedure.scope = Scope::kPublic;
      procedure.weight = 3;
      if (name == "Item") {
        procedure.result = Type::kVariant;
        procedure.backing = items.name + "(vntIndexKey)";
        procedure.parameters.push_back({"vntIndexKey", Type::kVariant});
        procedure.attributes = {"VB_UserMemId = 0"};
      } else if (name == "Count") {
        procedure.result = Type::kLong;
        procedure.backing = items.name + ".Count";
      } else {
        procedure.result = Type::kObject;
        procedure.backing = items.name + ".[_NewEnum]";
        procedure.attributes = {"VB_UserMemId = -4", "VB_MemberFlags = \"40\""};
      }
      module_.procedures.push_back(std::move(procedure));
    }
    module_.variables.push_back(std::move(items));
  }

  // The variable behind the property, and the procedures around it.
  void addPropertyFamily() {
    FamilyRow family = byWeight(random_, kFamilies);
    Variable value;
    value.type = basicType();
    if (family.set) {
      value.classIndex = someClass();
      if (value.classIndex < 0) {
        family = kFamilies[0];
      } else if (!family.let) {
        value.type = Type::kObject;
      } else {
        value.type = Type::kVariant;
      }
    }
    const std::string noun = nounName(random_);
    const std::string name = names_.claim(noun);
    value.name =
        names_.claim(std::string(module_.style.memberPrefix) +
                     (module_.style.hungarian ? std::string(row(value.type).prefix) : std::string()) + noun);
    const Scope scope = random_.chance(900) ? Scope::kPublic : Scope::kFriend;
    const auto add = [&](ProcedureKind kind) { addPropertyPart(name, kind, scope, value); };
    if (family.get) add(ProcedureKind::kGet);
    if (family.let) add(ProcedureKind::kLet);
    if (family.set) add(ProcedureKind::kSet);
    module_.variables.push_back(std::move(value));
  }

  void addPropertyPart(const std::string& name, ProcedureKind kind, Scope scope, const Variable& value) {
    Procedure procedure;
    procedure.name = name;
    procedure.kind = kind;
    procedure.scope = scope;
    procedure.backing = value.name;
    procedure.weight = random_.pick(kPropertyWeights);
    if (kind == ProcedureKind::kGet) {
      procedure.result = value.type;
      procedure.classIndex = value.classIndex;
      if (isObjectModule() && random_.chance(70))
        procedure.attributes.push_back("VB_Description = \"Returns/sets the " + name + ".\"");
    } else {
      Variable parameter;
      parameter.name = std::string(row(value.type).prefix) + "New" + name;
      parameter.type = value.type;
      parameter.classIndex = value.classIndex;
      parameter.byVal = random_.chance(750);
      procedure.parameters.push_back(std::move(parameter));
    }
    module_.procedures.push_back(std::move(procedure));
  }

  void addProcedure() {
    Procedure procedure;
    const bool function = random_.chance(450);
    procedure.kind = function ? ProcedureKind::kFunction : ProcedureKind::kSub;
    if (function) procedure.result = basicType();
    const bool question = procedure.result == Type::kBoolean && random_.chance(600);
    std::string name(question ? random_.pick(words::kQuestions) : random_.pick(words::kVerbs));
    name += nounName(random_);
    if (module_.style.accented && random_.chance(6)) name += random_.pick(words::kAccentedNames);
    procedure.name = names_.claim(std::move(name));
    procedure.scope = chooseScope();
    procedure.weight = random_.pick(kProcedureWeights);
    addParameters(procedure, random_.pick(kParameterCounts));
    procedure.continuedTitle = procedure.parameters.size() >= 2 && random_.chance(225);
    procedure.alternateTitles = !procedure.continuedTitle && procedure.weight > 16 && random_.chance(1);
    module_.procedures.push_back(std::move(procedure));
  }

  Scope chooseScope() {
    const ScopeRow& scopes = kScopes[kindRow()];
    int at = random_.below(1000);
    if ((at -= scopes.publicPerMille) < 0) return Scope::kPublic;
    if ((at -= scopes.friendPerMille) < 0) return Scope::kFriend;
    if ((at -= scopes.nonePerMille) < 0) return Scope::kNone;
    return Scope::kPrivate;
  }

  void addParameters(Procedure& procedure, int count) {
    Names own;
    for (int i = 0; i < count; ++i) {
      Variable parameter;
      parameter.type = basicType();
      parameter.byVal = random_.chance(550);
      do {
        parameter.name = own.claim(variableName(random_, module_.style, parameter.type));
      } while (names_.taken(parameter.name));
      procedure.parameters.push_back(std::move(parameter));
    }
  }

  Random& random_;
  Project& project_;
  Module& module_;
  int index_;
  Names names_;
};

}  // namespace

int headerLines(const Module& module) { return module.kind == ModuleKind::kStandard ? 1 : 14; }

void declareEvents(Random& random, Module& module) {
  if (module.kind != ModuleKind::kClass && module.kind != ModuleKind::kControl) return;
  if (!random.chance(module.kind == ModuleKind::kControl ? 800 : 120)) return;
  for (int i = random.few(4); i > 0; --i) {
    Procedure event;
    event.name = random.pick(words::kNouns);
    event.name += random.chance(500) ? "Changed" : "Done";
    if (random.chance(400)) event.handlerParameters = "ByVal Index As Long";
    if (random.chance(150)) event.handlerParameters = "Cancel As Boolean";
    const auto same = [&](const Procedure& other) { return other.name == event.name; };
    if (std::none_of(module.events.begin(), module.events.end(), same))
      module.events.push_back(std::move(event));
  }
}

void outlineModule(Random& random, Project& project, int moduleIndex, int procedures) {
  ModuleOutliner(random, project, moduleIndex).outline(procedures);
}

}  // namespace kolvane::generate
