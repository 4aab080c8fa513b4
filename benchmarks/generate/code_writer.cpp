#include "generate/code_writer.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "generate/words.h"

namespace kolvane::generate {

namespace {

constexpr int kErrorHandlerRoom = 14;

struct KindText {
  std::string_view title;
  std::string_view end;
};
constexpr std::array<KindText, 5> kKindTexts{{{"Sub ", "End Sub"},
                                              {"Function ", "End Function"},
                                              {"Property Get ", "End Property"},
                                              {"Property Let ", "End Property"},
                                              {"Property Set ", "End Property"}}};
constexpr std::array<std::string_view, 4> kScopeTexts{"", "Public ", "Private ", "Friend "};

const KindText& texts(const Procedure& procedure) {
  return kKindTexts[static_cast<std::size_t>(procedure.kind)];
}

bool isReference(Type type) { return row(type).group == Group::kOther; }

// A continued title has at most four lines.
std::size_t parametersPerLine(const Procedure& procedure) { return (procedure.parameters.size() + 3) / 4; }

int titleLines(const Procedure& procedure) {
  if (!procedure.continuedTitle) return 1;
  const std::size_t each = parametersPerLine(procedure);
  return static_cast<int>((procedure.parameters.size() + each - 1) / each);
}

bool hasResult(const Procedure& procedure) { return procedure.kind != ProcedureKind::kSub; }

// The names of a continued list of declarations stand below each other in some modules.
std::string padded(const std::string& name, bool aligned) {
  constexpr std::size_t kColumn = 24;
  return aligned && name.size() < kColumn ? name + std::string(kColumn - name.size(), ' ') : name;
}

}  // namespace

// ---- declarations

void CodeWriter::writeDeclarations() {
  writeOptions();
  separate(900);
  writeDeclares();
  writeConstants();
  writeEnumerations();
  writeRecords();
  writeEvents();
  writeVariables();
}

void CodeWriter::separate(int perMille) {
  if (random_.chance(perMille)) out_.end();
}

void CodeWriter::writeOptions() {
  if (random_.chance(950)) out_.line("Option Explicit");
  if (random_.chance(40)) out_.line("Option Compare Text");
}

void CodeWriter::writeDeclares() {
  if (module_.declares.empty()) return;
  const bool conditional = random_.chance(60);
  if (conditional) out_.line("#If ", random_.pick(words::kConditions), " Then");
  for (const std::string& declare : module_.declares) out_.block(declare);
  if (conditional) out_.line("#End If");
  separate(800);
}

void CodeWriter::writeConstants() {
  const bool isPublic = module_.kind == ModuleKind::kStandard && random_.chance(300);
  for (std::size_t i = 0; i < module_.constants.size(); ++i) {
    const Constant& constant = module_.constants[i];
    out_.put(isPublic ? "Public Const " : "Private Const ");
    out_.put(constant.name);
    if (constant.group == Group::kText && random_.chance(500)) out_.put(" As String");
    out_.put(" = ");
    out_.put(constant.value);
    if (random_.chance(60)) out_.put("   ' see the manual");
    out_.end();
  }
  if (!module_.constants.empty()) separate(800);
}

void CodeWriter::writeRecords() {
  for (const Record& record : module_.records) {
    out_.line("Private Type ", record.name);
    for (const Variable& field : record.fields) {
      out_.blanks(module_.style.indent);
      out_.line(padded(field.name, module_.style.alignedAs), " As ", typeName(field),
                field.type == Type::kString && random_.chance(100) ? " * 30" : "");
    }
    out_.line("End Type");
    separate(700);
  }
}

void CodeWriter::writeEnumerations() {
  for (const Enumeration& enumeration : module_.enumerations) {
    out_.line(random_.chance(700) ? "Public Enum " : "Private Enum ", enumeration.name);
    int value = 0;
    for (const std::string& element : enumeration.elements) {
      out_.blanks(module_.style.indent);
      out_.put(element);
      if (random_.chance(600)) {
        out_.put(" = ");
        out_.put(value);
      }
      out_.end();
      ++value;
    }
    out_.line("End Enum");
    separate(700);
  }
}

void CodeWriter::writeEvents() {
  for (const Procedure& event : module_.events) {
    out_.line("Public Event ", event.name, "(", event.handlerParameters, ")");
    if (random_.chance(200))
      out_.line("Attribute ", event.name, ".VB_Description = \"Raised when it has happened.\"");
  }
}

void CodeWriter::writeVariables() {
  for (const Variable& variable : module_.variables) {
    if (random_.chance(40)) statements_.blankLine(0);
    if (random_.chance(30)) out_.line("' used by more than one procedure");
    writeVariable(variable);
  }
  for (std::size_t i = 0; i < module_.recordVariables.size(); ++i)
    out_.line("Private ", module_.recordVariables[i].name, " As ",
              module_.records[static_cast<std::size_t>(module_.recordTypes[i])].name);
}

void CodeWriter::writeVariable(const Variable& variable) {
  const bool global = variable.name.starts_with("g_");
  out_.put(global ? (random_.chance(80) ? "Global " : "Public ")
                  : (random_.chance(80) && !variable.withEvents ? "Dim " : "Private "));
  if (variable.withEvents) out_.put("WithEvents ");
  out_.put(padded(variable.name + (variable.isArray ? "()" : ""), module_.style.alignedAs));
  out_.put(" As ");
  out_.put(typeName(variable));
  if (random_.chance(40)) {
    out_.put("   '");
    out_.put(random_.pick(words::kNouns));
  }
  out_.end();
  if (variable.withEvents) out_.line("Attribute ", variable.name, ".VB_VarHelpID = -1");
}

std::string CodeWriter::typeName(Type type, int classIndex) const {
  if (type == Type::kObject)
    return classIndex < 0 ? "IUnknown" : project_.modules[static_cast<std::size_t>(classIndex)].name;
  return std::string(row(type).keyword);
}

std::string CodeWriter::typeName(const Variable& variable) const {
  return typeName(variable.type, variable.classIndex);
}

// ---- procedures

int CodeWriter::leastLines(const Procedure& procedure) const {
  int lines = titleLines(procedure) + static_cast<int>(procedure.attributes.size()) + 1;
  if (procedure.alternateTitles) lines += titleLines(procedure) + 3;
  return lines + (hasResult(procedure) ? 1 : 0);
}

void CodeWriter::writeProcedures() {
  static constexpr std::array kTrailing{0, 0, 0, 1, 1, 2, 3};
  std::vector<int> weights;
  std::vector<int> least;
  for (const Procedure& procedure : module_.procedures) {
    weights.push_back(procedure.weight);
    least.push_back(leastLines(procedure));
  }
  const int room = module_.lines - out_.lines();
  const int spare = room - std::accumulate(least.begin(), least.end(), 0);
  const int trailing = std::clamp(random_.pick(kTrailing), 0, std::max(spare, 0));
  const std::vector<int> lines = shares(room - trailing, weights, least);
  for (std::size_t i = 0; i < lines.size(); ++i) writeProcedure(module_.procedures[i], lines[i], i == 0);
  const bool remark = random_.chance(250);
  for (int i = 0; i < trailing; ++i) {
    if (remark && i == trailing - 1) out_.put("' end of module");
    out_.end();
  }
}

void CodeWriter::writeProcedure(const Procedure& procedure, int lines, bool first) {
  int spare = lines - leastLines(procedure);
  // Banners name the procedure.
  statements_.enter(procedure, {}, {});
  spare -= writeLeadIn(procedure, spare, first);
  if (procedure.alternateTitles) {
    out_.line("#If ", random_.pick(words::kConditions), " Then");
    writeTitle(procedure, Scope::kPublic);
    out_.line("#Else");
    writeTitle(procedure, Scope::kPrivate);
    out_.line("#End If");
  } else {
    writeTitle(procedure, procedure.scope);
  }
  writeAttributes(procedure);
  writeBody(procedure, spare);
  writeEnd(procedure);
}

// Blank lines and comments in front of the title.
int CodeWriter::writeLeadIn(const Procedure& procedure, int spare, bool first) {
  int used = 0;
  const auto blank = [&] {
    if (used >= spare) return;
    out_.end();
    ++used;
  };
  if (!first || random_.chance(850)) blank();
  if (random_.chance(90)) blank();
  const int banner = module_.style.banner;
  if (banner < 0 || procedure.isHandler || !random_.chance(750)) return used;
  const PatternRow& row = kBanners[static_cast<std::size_t>(banner) % std::size(kBanners)];
  if (spare - used < row.lines + 3) return used;
  statements_.write(row, 0);
  used += row.lines;
  if (random_.chance(60)) blank();
  return used;
}

void CodeWriter::writeTitle(const Procedure& procedure, Scope scope) {
  out_.put(kScopeTexts[static_cast<std::size_t>(scope)]);
  out_.put(texts(procedure).title);
  out_.put(procedure.name);
  out_.put('(');
  out_.put(procedure.handlerParameters);
  const std::size_t perLine =
      procedure.continuedTitle ? parametersPerLine(procedure) : procedure.parameters.size();
  for (std::size_t i = 0; i < procedure.parameters.size(); ++i) {
    if (i > 0 && i % perLine == 0) {
      out_.put(", _");
      out_.end();
      out_.blanks(2 * module_.style.indent);
    } else if (i > 0) {
      out_.put(", ");
    }
    out_.put(parameterText(procedure, i));
  }
  out_.put(')');
  if (procedure.result != Type::kNone) {
    out_.put(" As ");
    out_.put(typeName(procedure.result, procedure.classIndex));
  }
  if (random_.chance(1)) out_.put(" ' called by the timer as well");
  out_.end();
}

std::string CodeWriter::parameterText(const Procedure& procedure, std::size_t index) const {
  const Variable& parameter = procedure.parameters[index];
  std::string text;
  const bool optional =
      procedure.kind <= ProcedureKind::kFunction && index >= 2 && index + 1 == procedure.parameters.size();
  if (optional) text += "Optional ";
  if (parameter.byVal) text += "ByVal ";
  text += parameter.name + " As " + typeName(parameter);
  if (optional && row(parameter.type).group == Group::kNumber) text += " = 0";
  if (optional && row(parameter.type).group == Group::kText) text += " = \"\"";
  return text;
}

void CodeWriter::writeAttributes(const Procedure& procedure) {
  for (const std::string& attribute : procedure.attributes)
    out_.line("Attribute ", procedure.name, ".", attribute);
}

// `room` lines, and the one that gives the result.
void CodeWriter::writeBody(const Procedure& procedure, int room) {
  if (room >= 6 && random_.chance(220)) {
    statements_.blankLine(1);
    --room;
  }
  std::vector<std::string> loops;
  const std::vector<Variable> locals = makeLocals(room, loops);
  statements_.enter(procedure, locals, loops);
  const bool handler = room >= kErrorHandlerRoom && random_.chance(330);
  room -= writeLocals(locals, loops);
  if (!locals.empty() && room > 4 && random_.chance(600)) {
    statements_.blankLine(1);
    --room;
  }
  const PatternRow& tail = random_.pick(kErrorTails);
  if (handler && room > tail.lines + 1) {
    out_.blanks(module_.style.indent);
    out_.line("On Error GoTo ", module_.style.errorLabel);
    statements_.fill(room - tail.lines - 1, 1);
    writeResult(procedure);
    statements_.write(tail, 1);
  } else {
    statements_.fill(room, 1);
    writeResult(procedure);
  }
}

// The locals of a body of so many lines, and the variables for its loops.
std::vector<Variable> CodeWriter::makeLocals(int room, std::vector<std::string>& loops) {
  static constexpr std::array kLoopNames{"i", "j", "k"};
  static constexpr std::array kLongLoopNames{"lngRow", "lngCol", "intLoop"};
  if (room >= 9)
    for (int i = 0; i < (room >= 40 ? 3 : room >= 20 ? 2 : 1); ++i)
      loops.emplace_back(
          (module_.style.hungarian ? kLongLoopNames : kLoopNames)[static_cast<std::size_t>(i)]);
  std::vector<Variable> locals;
  Names names;
  for (int i = room < 5 ? 0 : random_.below(std::min(room / 5, 8) + 1); i > 0; --i) {
    Variable local;
    local.type = kTypes[static_cast<std::size_t>(random_.below(9))].type;
    if (random_.chance(600)) local.type = random_.chance(500) ? Type::kString : Type::kLong;
    if (random_.chance(60)) local.type = Type::kRecordset;
    if (random_.chance(80) && !project_.classes.empty()) {
      local.type = Type::kObject;
      local.classIndex = random_.pick(project_.classes);
    }
    local.name = names.claim(variableName(random_, module_.style, local.type));
    locals.push_back(std::move(local));
  }
  return locals;
}

int CodeWriter::writeLocals(const std::vector<Variable>& locals, const std::vector<std::string>& loops) {
  int lines = 0;
  for (std::size_t i = 0; i < locals.size(); ++i, ++lines) {
    writeLocal(locals[i], random_.chance(15) ? "Static " : "Dim ");
    if (i + 1 < locals.size() && random_.chance(60)) writeLocal(locals[++i], ", ");
    out_.end();
  }
  if (loops.empty()) return lines;
  std::string_view keyword = "Dim ";
  for (const std::string& name : loops) {
    if (keyword != ", ") out_.blanks(module_.style.indent);
    out_.put(keyword);
    out_.put(name);
    out_.put(name.starts_with("int") ? " As Integer" : " As Long");
    keyword = ", ";
  }
  out_.end();
  return lines + 1;
}

void CodeWriter::writeLocal(const Variable& variable, std::string_view keyword) {
  if (keyword != ", ") out_.blanks(module_.style.indent);
  out_.put(keyword);
  out_.put(keyword == ", " ? variable.name : padded(variable.name, module_.style.alignedAs));
  out_.put(" As ");
  out_.put(typeName(variable));
}

void CodeWriter::writeResult(const Procedure& procedure) {
  if (!hasResult(procedure)) return;
  const bool assigns = procedure.kind == ProcedureKind::kLet || procedure.kind == ProcedureKind::kSet;
  out_.blanks(module_.style.indent);
  if (procedure.kind == ProcedureKind::kSet || (!assigns && isReference(procedure.result))) out_.put("Set ");
  out_.put(assigns ? procedure.backing : procedure.name);
  out_.put(" = ");
  if (assigns) {
    out_.put(procedure.parameters.back().name);
  } else if (!procedure.backing.empty()) {
    out_.put(procedure.backing);
  } else {
    statements_.writeExpression(row(procedure.result).group);
  }
  out_.end();
}

void CodeWriter::writeEnd(const Procedure& procedure) {
  if (random_.chance(1) && random_.chance(100)) out_.put("Finish: ");
  out_.put(texts(procedure).end);
  if (random_.chance(1)) {
    out_.put(" '");
    out_.put(procedure.name);
  }
  out_.end();
}

}  // namespace kolvane::generate
