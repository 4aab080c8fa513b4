#include "writers/auto_coder.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/auto_coder_text.h"
#include "writers/custom_handler_writing.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/handler_text.h"
#include "writers/headers.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kModule = "frmAutoCoder";

// The command of the code window that writes a kind.
struct KindCommand {
  const HandlerKind* kind;
  std::string_view key;
};
constexpr std::array<KindCommand, kHandlerKinds.size()> kKindCommands{{
    {&kShowHandler, "CPRShErHaCo76"},
    {&kRaiseHandler, "CPRRaErHaC77"},
    {&kNextHandler, "CPRNeErHanC78"},
    {&kBlankHandler, "CPRBlaErrHaCo79"},
}};

constexpr bool kindsAndCommandsAgree() {
  for (std::size_t i = 0; i < kKindCommands.size(); ++i) {
    bool known = false;
    for (const source::CodeWindowCommand& command : source::kCodeWindowCommands)
      known = known || command.key == kKindCommands[i].key;
    if (!known || kKindCommands[i].kind != kHandlerKinds[i]) return false;
  }
  return true;
}
static_assert(kindsAndCommandsAgree());

const KindCommand* commandOf(std::string_view handler) {
  const auto found = std::find_if(kKindCommands.begin(), kKindCommands.end(),
                                  [&](const KindCommand& row) { return row.kind->name == handler; });
  return found == kKindCommands.end() ? nullptr : &*found;
}

bool isStandardModule(frame::CodeModule& module) {
  return module.Parent()->Type() == frame::ComponentType::kStdModule;
}

void begin(const PassProgress& progress, frame::CodeModule& module) {
  if (progress.begin) progress.begin(module.CountOfLines());
}
void reached(const PassProgress& progress, int line) {
  if (progress.reached) progress.reached(line);
}

// The names of the Subs and Functions behind the declarations. They are listed before the first edit: the list is read
// anew after each one.
std::vector<std::string> methodsOf(frame::CodeModule& module) {
  std::vector<std::string> names;
  const int declarations = module.CountOfDeclarationLines();
  for (const auto& member : module.Members()->items())
    if (member->Type() == frame::MemberType::kMethod && member->CodeLocation() > declarations)
      names.push_back(member->Name());
  return names;
}

bool writeCustomHandler(frame::Services& services, frame::CodeModule& module, int bodyLine,
                        std::string_view handler) {
  const auto pane = module.CodePane();
  pane->SetSelection({bodyLine, 1, bodyLine, 1});
  return CreateCustomErrorHandler(services, *module.Parent(), *pane, module, handler);
}

// The module as the dispatcher takes it.
std::shared_ptr<frame::CodeModule> shared(frame::CodeModule& module) { return module.Parent()->CodeModule(); }

// The host's lines of a plain procedure.
struct Region {
  int start = 0;
  int body = 0;
  int linesBehindBody = 0;
};
Region regionOf(frame::CodeModule& module, const std::string& name) {
  constexpr auto kKind = frame::ProcKind::kProc;
  const int start = module.ProcStartLine(name, kKind);
  const int body = module.ProcBodyLine(name, kKind);
  return {start, body, start + module.ProcCountLines(name, kKind) - 1 - body};
}

// Writes the handler by the code window's command for its kind, or as a custom one; false ends the run.
bool writeHandler(const AutoCoderTools& tools, frame::CodeModule& module, const std::string& name,
                  int bodyLine, std::string_view handler) {
  const KindCommand* command = commandOf(handler);
  if (!command) return writeCustomHandler(tools.context.services, module, bodyLine, handler);
  source::Get_Name_Of_Current_Procedure(tools.context.services, tools.commands, command->key, bodyLine, name,
                                        shared(module));
  return true;
}

void writeHeader(const Context& context, frame::CodeModule& module, const std::string& name,
                 const Region& region, std::string_view author) {
  const bool careful = context.services.care.guards(frame::Guard::kComments);
  const std::string parameters = auto_coder::Find_Parameter_String(context.services, module, region.body);
  const std::string returns = auto_coder::Find_Procedure_Return_Type(module, region.body);
  const auto_coder::HeaderText text{name, parameters, returns, author};
  if (careful) {
    putNewHeader(context.services, module, region.body,
                 auto_coder::headerValues(context, module, text, region.body));
    return;
  }
  const int back = auto_coder::Get_Back_Count(module, region.start);
  const int line = region.start - back - 1;
  auto_coder::Delete_Blank_Lines(module, line, back);
  auto_coder::Create_Header(context, module, text, line);
}

bool hasHandler(const frame::Services& services, frame::CodeModule& module, const Region& region) {
  return auto_coder::Handler_Exists(module, region.body, region.linesBehindBody) ||
         !takesHandler(services, module, region.body);
}

bool hasHeader(const frame::Services& services, frame::CodeModule& module, const std::string& name,
               const Region& region) {
  return auto_coder::Header_Exists(services, module, region.start, region.body) ||
         (services.care.guards(frame::Guard::kComments) &&
          hasStandingHeader(services, module, region.body, name));
}

// The host refuses a procedure whose End line is out of reach without a word for people.
std::string reasonFor(frame::CodeModule& module, const std::string& name, const std::string& reason) {
  const int title = module.ProcBodyLine(name, frame::ProcKind::kProc);
  if (source::Find_Last_LineNumber(module, title) != 0) return reason;
  return "it has no End line within " + std::to_string(source::kLongestProcedure) + " lines";
}

}  // namespace

std::vector<std::string> autoCoderHandlers(const frame::Settings& settings) {
  std::vector<std::string> names;
  for (const HandlerKind* kind : kHandlerKinds) names.emplace_back(kind->name);
  for (std::string& name : GetCustomErrors(settings)) names.push_back(std::move(name));
  return names;
}

AutoCoderResult Process_CodeModule_For_ErrorHandlers(const AutoCoderTools& tools, frame::CodeModule& module,
                                                     std::string_view handler, const PassProgress& progress) {
  const base::ErrorScope scope{kModule, "Process_CodeModule_For_ErrorHandlers"};
  if (!tools.context.services.vbe.ActiveCodePane()) throw base::Error(base::errors::kObjectNotSet);
  const frame::Services& services = tools.context.services;
  AutoCoderResult result;
  if (isStandardModule(module))
    source::withReadOnlyNotice(services, module, [&] { Ensure_VB_Module_Name_Is_Defined(module); });
  begin(progress, module);
  for (const std::string& name : methodsOf(module)) {
    Region region;
    const bool went = attemptProcedure(services, result.failures, name, [&] {
      region = regionOf(module, name);
      if (hasHandler(services, module, region)) {
        ++result.there;
        return;
      }
      const int before = module.CountOfLines();
      result.stopped = !writeHandler(tools, module, name, region.body, handler);
      ++(module.CountOfLines() > before ? result.written : result.skipped);
    });
    if (!went && region.body > 0)
      result.failures.back().reason = reasonFor(module, name, result.failures.back().reason);
    if (result.stopped) break;
    reached(progress, region.body);
  }
  return result;
}

AutoCoderResult Process_CodeModule_For_Headers(const Context& context, frame::CodeModule& module,
                                               std::string_view author, const PassProgress& progress) {
  const base::ErrorScope scope{kModule, "Process_CodeModule_For_Headers"};
  AutoCoderResult result;
  begin(progress, module);
  for (const std::string& name : methodsOf(module)) {
    Region region;
    attemptProcedure(context.services, result.failures, name, [&] {
      region = regionOf(module, name);
      const bool there = hasHeader(context.services, module, name, region);
      if (!there) writeHeader(context, module, name, region, author);
      ++(there ? result.there : result.written);
    });
    reached(progress, region.body);
  }
  return result;
}

}  // namespace kolvane::writers
