#include "writers/procedure_text.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/code_tabs.h"
#include "source/line_kinds.h"
#include "source/names.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "source/variable_prefixes.h"
#include "writers/builder_text.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/handler_text.h"
#include "writers/header_layout.h"

namespace kolvane::writers {
namespace {

using Lines = std::vector<std::string>;
using frame::ComponentType;

constexpr std::string_view kForm = "frmProcedureBuilder";
constexpr frame::Option kWriteHeaders = frame::option("DH7");
constexpr frame::Option kLineAfterHeader = frame::option("LAH8");
constexpr frame::Option kRuleLength = frame::option("CoNu11");

// Columns that a header's line has in front of a value, and one more.
constexpr int kBeforeValue = 18;
constexpr int kContinuationBlanks = 15;

// ---- handlers

// Unlike the handlers around code that is there: shorter, and only in the components that can name themselves.
constexpr std::array<HandlerLine, 8> kShowBody{{
    {HandlerPiece::kIndent, "With frmVBError"},
    {HandlerPiece::kSource, "\t"},
    {HandlerPiece::kIndent, "\tSet .Error = Err"},
    {HandlerPiece::kText, ""},
    {HandlerPiece::kIndent, "\t.Show vbModal"},
    {HandlerPiece::kIndent, "\tSet frmVBError = NOTHING"},
    {HandlerPiece::kIndent, "End With"},
    {HandlerPiece::kText, ""},
}};
constexpr std::array<HandlerLine, 4> kRaiseBody{{
    {HandlerPiece::kSource, ""},
    {HandlerPiece::kText, ""},
    {HandlerPiece::kIndent, "Err.Raise Err.Number, Err.Source, Err.Description"},
    {HandlerPiece::kText, ""},
}};
constexpr std::array<HandlerLine, 2> kBlankBody{{{HandlerPiece::kText, ""}, {HandlerPiece::kText, ""}}};

struct HandlerBody {
  std::string_view name;
  std::span<const HandlerLine> lines;
};
constexpr std::array<HandlerBody, 3> kBodies{{
    {kShowHandler.name, kShowBody},
    {kRaiseHandler.name, kRaiseBody},
    {kBlankHandler.name, kBlankBody},
}};

bool isNext(std::string_view errors) { return base::equalNoCase(errors, kNextHandler.name); }
bool hasTail(std::string_view errors) {
  return !errors.empty() && !base::equalNoCase(errors, "None") && !isNext(errors);
}

// ---- what the lines are made of

struct Pieces {
  const frame::Services& services;
  ComponentType component;
  std::string name;
  std::string description;
  std::string_view kindWord;
  bool isPrivate;
  std::string returnType;
  std::vector<NewParameter> parameters;
  std::string_view errors;
  std::string author;
  // Whether the handler calls the module by the constant.
  bool namesModule = false;
};

std::vector<NewParameter> usedParameters(const frame::Services& services, const NewProcedure& procedure) {
  std::vector<NewParameter> used;
  for (const NewParameter& parameter : procedure.parameters) {
    if (base::trim(parameter.name).empty()) break;
    NewParameter next{std::string(base::trim(parameter.name)), std::string(base::trim(parameter.type)),
                      parameter.byRef || Array_Variable(parameter.name), parameter.optional};
    source::procedure_builder::TagVariable(services, next.name, next.type);
    used.push_back(std::move(next));
  }
  return used;
}

// ---- header

// Pieces as wide as the rule leaves room for, the further ones on lines of their own. The last piece takes the few
// characters that the division leaves over.
std::string wrappedDescription(const frame::Services& services, const std::string& text) {
  const std::string character = source::commentCharacter(services);
  const int rule = static_cast<int>(ruleLine(services).size()) - 1;
  const int length = static_cast<int>(text.size());
  const int room = rule - static_cast<int>(character.size()) - kBeforeValue;
  const int width = room - 1;
  if (length <= rule || width < 1) return text;
  std::string wrapped = text.substr(0, static_cast<std::size_t>(width));
  const int further = length / room;
  for (int piece = 1; piece <= further; ++piece) {
    const auto start = static_cast<std::size_t>(piece * width);
    wrapped.append("\r").append(source::headerIndent(services));
    wrapped.append(source::headerContinuation(character)).append(" ");
    wrapped.append(
        text.substr(start, piece == further ? std::string::npos : static_cast<std::size_t>(width)));
  }
  return wrapped;
}

std::string parametersValue(const Pieces& pieces) {
  if (pieces.parameters.empty()) return "None";
  std::vector<std::string> texts;
  for (const NewParameter& parameter : pieces.parameters)
    texts.push_back((parameter.optional ? "Optional " : "") + parameter.name + " - " + parameter.type);
  const frame::Services& services = pieces.services;
  return Format_Header_Parameter_String(
      base::join(texts, ", "), static_cast<int>(frame::numberOf(services, kRuleLength)), kContinuationBlanks,
      source::commentCharacter(services), source::headerIndent(services));
}

void addHeader(Lines& lines, const Pieces& pieces) {
  const frame::Services& services = pieces.services;
  HeaderValues values;
  values.name = pieces.name;
  values.description = wrappedDescription(services, pieces.description);
  values.parameters = parametersValue(pieces);
  values.returns = pieces.returnType;
  values.author = pieces.author;
  values.date = headerDate(services, "");
  const Lines header = headerLines(services, values);
  lines.insert(lines.end(), header.begin(), header.end());
  if (frame::isOn(services, kLineAfterHeader)) lines.back().clear();
}

// ---- title and body

std::string titleText(const Pieces& pieces) {
  std::vector<std::string> texts;
  for (const NewParameter& parameter : pieces.parameters)
    texts.push_back(std::string(parameter.optional ? "Optional " : "")
                        .append(parameter.byRef ? "ByRef " : "ByVal ")
                        .append(parameter.name)
                        .append(" AS ")
                        .append(parameter.type));
  std::string title(pieces.isPrivate ? "Private " : "Public ");
  title.append(pieces.kindWord).append(" ").append(pieces.name);
  title.append("(").append(base::join(texts, ", ")).append(")");
  if (pieces.kindWord == "Function") title.append(" AS ").append(pieces.returnType);
  return source::Format_Procedure_Title(title);
}

// The line that adds module and procedure to the error's source; "" where the module has no name of its own at run
// time.
std::string sourceLine(const Pieces& pieces) {
  switch (pieces.component) {
    case ComponentType::kVBForm:
    case ComponentType::kVBMDIForm:
    case ComponentType::kClassModule:
      return "Err.Source = Err.Source & \".\"& TypeName(Me) & \"." + pieces.name + "\" ";
    case ComponentType::kStdModule:
      return "Err.Source = Err.Source  & vb_module_name & \"." + pieces.name + "\"";
    default:
      return {};
  }
}

void addBody(Lines& lines, std::span<const HandlerLine> body, Pieces& pieces) {
  const std::string& tabs = pieces.services.CodeTabs;
  for (const auto& [piece, text] : body) {
    if (piece == HandlerPiece::kText) lines.emplace_back(text);
    if (piece == HandlerPiece::kIndent) lines.push_back(std::string(tabs).append(text));
    if (piece != HandlerPiece::kSource) continue;
    const std::string source = sourceLine(pieces);
    if (!source.empty()) lines.push_back(std::string(tabs).append(text).append(source));
    pieces.namesModule = pieces.component == ComponentType::kStdModule;
  }
}

void addCustomBody(Lines& lines, Pieces& pieces) {
  const auto text = readCustomHandler(pieces.services.settings, pieces.errors);
  if (!text) return;
  const ElementValues values{pieces.name, pieces.component, pieces.author, "VB_Module_Name"};
  lines.push_back(replaceElements(pieces.services, *text, values));
  pieces.namesModule =
      pieces.component == ComponentType::kStdModule && text->find("<Module Name>") != std::string::npos;
}

void addHandler(Lines& lines, Pieces& pieces) {
  const auto body = std::find_if(kBodies.begin(), kBodies.end(), [&](const HandlerBody& each) {
    return base::equalNoCase(each.name, pieces.errors);
  });
  if (body != kBodies.end())
    addBody(lines, body->lines, pieces);
  else
    addCustomBody(lines, pieces);
}

Lines procedureLines(Pieces& pieces) {
  Lines lines;
  if (frame::isOn(pieces.services, kWriteHeaders)) addHeader(lines, pieces);
  lines.push_back(titleText(pieces));
  lines.emplace_back();
  const bool tail = hasTail(pieces.errors);
  if (tail)
    lines.insert(lines.end(),
                 {std::string(kOnErrorGoto), "", "", "", "Exit " + std::string(pieces.kindWord)});
  else if (isNext(pieces.errors))
    lines.emplace_back("On Error Resume Next");
  lines.emplace_back();
  if (tail) lines.emplace_back("errHandler:");
  lines.emplace_back();
  if (tail) addHandler(lines, pieces);
  lines.push_back("End " + std::string(pieces.kindWord));
  return lines;
}

std::string_view kindWordOf(const NewProcedure& procedure) {
  return procedure.isFunction ? "Function" : "Sub";
}

}  // namespace

std::string procedureName(const frame::Services& services, std::string_view name) {
  return source::procedure_builder::Cap(services, base::replaceAll(base::trim(name), " ", "_"));
}

bool Array_Variable(std::string_view name) { return name.find_first_of("()") != std::string_view::npos; }

std::optional<ProcedureFault> faultOf(const NewProcedure& procedure) {
  if (source::InvalidName(procedure.name)) return ProcedureFault{ProcedureField::kName, 0, "Invalid Name!"};
  for (std::size_t i = 0; i < procedure.parameters.size(); ++i) {
    const NewParameter& parameter = procedure.parameters[i];
    if (base::trim(parameter.name).empty()) break;
    const std::string number = std::to_string(i + 1);
    if (base::trim(parameter.type).empty())
      return ProcedureFault{ProcedureField::kParameterType, i,
                            "You need to specify the type for parameter" + number + "!"};
    if (source::InvalidTypeName(parameter.type))
      return ProcedureFault{ProcedureField::kParameterType, i, "Invalid type for parameter " + number + "!"};
  }
  if (!procedure.isFunction) return std::nullopt;
  if (base::trim(procedure.returnType).empty())
    return ProcedureFault{ProcedureField::kReturnType, 0, "You need to specify the type for the function!"};
  if (source::InvalidTypeName(procedure.returnType))
    return ProcedureFault{ProcedureField::kReturnType, 0, "Invalid function return type!"};
  return std::nullopt;
}

std::optional<ProcedureFault> faultOf(const frame::Services& services, frame::CodeModule& module,
                                      const NewProcedure& procedure) {
  if (auto fault = faultOf(procedure)) return fault;
  if (source::ProcedureExists(procedureName(services, procedure.name), module))
    return ProcedureFault{ProcedureField::kName, 0, "Procedure name already used!"};
  return std::nullopt;
}

bool Create_Procedure(frame::Services& services, frame::CodeModule& module, const NewProcedure& procedure) {
  const base::ErrorScope scope{kForm, "Create_Procedure"};
  source::Set_Tabs(services);
  Pieces pieces{services,
                module.Parent()->Type(),
                procedureName(services, procedure.name),
                descriptionLine(services, procedure.description),
                kindWordOf(procedure),
                procedure.isPrivate,
                procedure.isFunction ? std::string(base::trim(procedure.returnType)) : "Nothing",
                usedParameters(services, procedure),
                procedure.errors,
                base::trim(procedure.author).empty() ? frame::GetCurrentUser(services) : procedure.author};
  Lines lines = procedureLines(pieces);
  lines.insert(lines.begin(), "");
  return source::withReadOnlyNotice(services, module, [&] {
    module.InsertLines(lineBehindText(module, module.CountOfLines() + 1), base::join(lines, base::kCrLf));
    // Once the procedure is there, the declarations end where they do for good.
    if (pieces.namesModule) Ensure_VB_Module_Name_Is_Defined(module);
  });
}

std::optional<int> FindLineForCursor(frame::CodeModule& module, std::string_view kindWord,
                                     std::string_view errors) {
  const base::ErrorScope scope{kForm, "FindLineForCursor"};
  const std::string wanted = (hasTail(errors) ? "Exit " : "End ") + std::string(base::trim(kindWord));
  for (int line = module.CountOfLines(); line >= 1; --line)
    if (base::trim(source::lineText(module, line)) == wanted) return line - 2;
  return std::nullopt;
}

std::string Format_Header_Parameter_String(std::string_view text, int width, int blanks,
                                           std::string_view character, std::string_view indent) {
  const int comma = base::inStrRev(text, ",");
  if (static_cast<int>(text.size()) < width - kBeforeValue || comma == 0) return std::string(text);
  std::string wrapped(base::left(text, comma - 1));
  wrapped.append("\r").append(indent).append("'").append(character);
  return wrapped.append(base::repeat(' ', blanks))
      .append(": ")
      .append(base::trim(base::mid(text, comma + 1)));
}

}  // namespace kolvane::writers
