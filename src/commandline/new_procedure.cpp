// kolvane new procedure: what the Procedure Builder writes, without its dialog.
#include <algorithm>
#include <optional>

#include "base/text.h"
#include "commandline/new_command.h"
#include "writers/custom_handlers.h"
#include "writers/handler_text.h"
#include "writers/procedure_defaults.h"

namespace kolvane::commandline {
namespace {

using writers::NewParameter;
using writers::NewProcedure;

constexpr std::string_view kNoHandler = "None";

struct NewProcedureOptions {
  NewCode code;
  std::string type;
  std::string returns;
  std::vector<std::string> parameters;
  std::string errors;
};

// ---- --errors

// Those of the dialog's list, with a name for the empty entry.
std::vector<std::string> knownHandlers(const frame::Settings& settings) {
  std::vector<std::string> names{std::string(kNoHandler)};
  for (const writers::HandlerKind* kind : writers::kHandlerKinds) names.emplace_back(kind->name);
  for (std::string& name : writers::GetCustomErrors(settings)) names.push_back(std::move(name));
  return names;
}

bool isKnownHandler(const frame::Settings& settings, std::string_view name) {
  const auto known = knownHandlers(settings);
  return std::any_of(known.begin(), known.end(),
                     [name](const std::string& each) { return base::equalNoCase(each, name); });
}

void requireHandler(Session& session, const std::string& name) {
  if (isKnownHandler(session.suite().settings(), name)) return;
  throw WrongUse{"there is no error handler \"" + session.utf8(name) + "\"; there are: " +
                 session.utf8(base::join(knownHandlers(session.suite().settings()), ", "))};
}

// ---- --parameter

[[noreturn]] void refuseParameter(const std::string& text) {
  throw WrongUse{"--parameter takes NAME:TYPE:ByVal or NAME:TYPE:ByRef, and :optional behind it; not \"" +
                 text + "\""};
}

// What is left out stays as `parameter` has it.
void readParameter(const std::string& text, NewParameter& parameter) {
  const auto parts = base::split(text, ":");
  if (parts.size() > 4) refuseParameter(text);
  parameter.name = parts.empty() ? std::string() : parts[0];
  if (parts.size() > 1) parameter.type = parts[1];
  if (parts.size() > 2) {
    parameter.byRef = base::equalNoCase(parts[2], "ByRef");
    if (!parameter.byRef && !base::equalNoCase(parts[2], "ByVal")) refuseParameter(text);
    if (!parameter.byRef && writers::Array_Variable(parameter.name))
      throw WrongUse{"an array is always passed ByRef; not \"" + text + "\""};
  }
  if (parts.size() > 3) {
    parameter.optional = base::equalNoCase(parts[3], "optional");
    if (!parameter.optional) refuseParameter(text);
  }
}

void readParameters(Session& session, const std::vector<std::string>& texts, NewProcedure& procedure) {
  if (texts.empty()) return;
  if (texts.size() > procedure.parameters.size())
    throw WrongUse{"a new procedure takes up to " + std::to_string(procedure.parameters.size()) +
                   " parameters"};
  for (std::size_t i = 0; i < procedure.parameters.size(); ++i)
    if (i < texts.size())
      readParameter(session.codePage().fromUtf8(texts[i]), procedure.parameters[i]);
    else
      procedure.parameters[i].name.clear();
}

// ---- the procedure

NewProcedure defaultsOf(Session& session, const std::string& project) {
  frame::Settings& settings = session.suite().settings();
  const writers::BuilderDefaults defaults(settings, writers::kProcedureBuilder);
  NewProcedure procedure = writers::procedureDefaults(defaults.inForce(project)).procedure;
  // A handler that has gone meanwhile.
  if (!isKnownHandler(settings, procedure.errors)) procedure.errors.clear();
  return procedure;
}

NewProcedure wantedProcedure(Session& session, const NewProcedureOptions& options,
                             const std::string& project) {
  const base::CodePage& page = session.codePage();
  NewProcedure procedure = defaultsOf(session, project);
  procedure.name = page.fromUtf8(options.code.name);
  procedure.description = page.fromUtf8(options.code.description);
  if (!options.code.scope.empty()) procedure.isPrivate = base::equalNoCase(options.code.scope, "private");
  if (!options.type.empty()) procedure.isFunction = base::equalNoCase(options.type, "function");
  if (!options.returns.empty()) {
    procedure.isFunction = true;
    procedure.returnType = page.fromUtf8(options.returns);
  }
  if (!options.errors.empty()) {
    procedure.errors = page.fromUtf8(options.errors);
    requireHandler(session, procedure.errors);
  }
  readParameters(session, options.parameters, procedure);
  return procedure;
}

std::optional<std::string> writeProcedure(Session& session, const NewProcedureOptions& options,
                                          frame::CodeModule& module) {
  frame::Services& services = session.suite().services();
  const NewProcedure procedure = wantedProcedure(session, options, module.Parent()->VBProject()->Name());
  if (const auto fault = writers::faultOf(services, module, procedure))
    throw WrongUse{session.utf8(fault->message)};
  if (!writers::Create_Procedure(services, module, procedure)) return std::nullopt;
  return std::string(procedure.isFunction ? "Function " : "Sub ") +
         session.utf8(writers::procedureName(services, procedure.name));
}

void requireSense(const NewProcedureOptions& options) {
  if (!options.returns.empty() && base::equalNoCase(options.type, "sub"))
    throw WrongUse{"a Sub returns nothing: --returns goes with --type function"};
}

}  // namespace

void addNewProcedure(CLI::App& group, Invocation& invocation) {
  auto options = std::make_shared<NewProcedureOptions>();
  CLI::App* command = group.add_subcommand(
      "procedure",
      "A Sub or Function with header and error handler, behind the module's code. What is left "
      "out comes from the project's defaults of the Procedure Builder");
  addNewCodeOptions(*command, options->code);
  command->add_option("--type", options->type, "sub or function")
      ->check(CLI::IsMember({"sub", "function"}, CLI::ignore_case));
  command->add_option("--returns", options->returns, "The type that a function returns");
  command
      ->add_option("--parameter", options->parameters,
                   "NAME:TYPE:ByVal or NAME:TYPE:ByRef, and :optional behind it; up to three times. An empty "
                   "one takes away the parameters of the defaults")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command->add_option("--errors", options->errors,
                      "The error handler: none, show, raise, next, blank or a custom handler's name");
  command->callback([options, &invocation] {
    requireSense(*options);
    invocation.exit =
        writeNewCode(invocation, options->code, [&](Session& session, frame::CodeModule& module) {
          return writeProcedure(session, *options, module);
        });
  });
}

}  // namespace kolvane::commandline
