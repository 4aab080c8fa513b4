// kolvane autocode: headers and error handlers for all procedures that have none.
#include "base/error.h"
#include "base/text.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "writers/auto_coder.h"

namespace kolvane::commandline {
namespace {

struct AutoCodeOptions {
  ProjectOptions project;
  bool headers = false;
  std::string handlers;
  std::string author;
};

// The kind as the user's list of handlers spells it.
std::string kindOf(Session& session, const std::string& name) {
  const std::vector<std::string> kinds = writers::autoCoderHandlers(session.suite().settings());
  const std::string wanted = session.codePage().fromUtf8(name);
  std::string known;
  for (const std::string& kind : kinds) {
    if (base::equalNoCase(kind, wanted)) return kind;
    known += (known.empty() ? "" : ", ") + session.utf8(kind);
  }
  throw WrongUse{"there is no error handler \"" + name + "\"; there are: " + known};
}

struct Sum {
  int handlers = 0;
  int headers = 0;
  int skipped = 0;

  void add(const Sum& other) {
    handlers += other.handlers;
    headers += other.headers;
    skipped += other.skipped;
  }
};

void writeHandlers(Session& session, const ComponentPointer& component, const std::string& kind, Sum& sum) {
  const auto shared = component->CodeModule();
  frame::CodeModule& module = *shared;
  // The code window's commands want one.
  module.CodePane()->Show();
  const writers::AutoCoderTools tools{session.suite().writing(), session.suite().commands()};
  const auto result = writers::Process_CodeModule_For_ErrorHandlers(tools, module, kind);
  // The user has been told why.
  if (result.stopped) throw base::Error(base::errors::kNotAvailable, "the work was stopped");
  tellFailures(session, component, result.failures);
  sum.handlers += result.written;
  sum.skipped += result.skipped;
}

void writeHeaders(Session& session, const ComponentPointer& component, const std::string& author, Sum& sum) {
  const std::string name = author.empty() ? frame::GetCurrentUser(session.suite().services())
                                          : session.codePage().fromUtf8(author);
  const auto result =
      writers::Process_CodeModule_For_Headers(session.suite().writing(), *component->CodeModule(), name);
  tellFailures(session, component, result.failures);
  sum.headers += result.written;
}

std::string summaryOf(const AutoCodeOptions& options, const Sum& sum) {
  std::string text;
  if (!options.handlers.empty()) text = counted(sum.handlers, "error handler", "error handlers");
  if (options.headers) text += (text.empty() ? "" : " and ") + counted(sum.headers, "header", "headers");
  text += " written";
  if (sum.skipped > 0)
    text += ", " + counted(sum.skipped, "title takes", "titles take") + " no handler (Friend, Static, Name$)";
  return text;
}

Exit run(Invocation& invocation, const AutoCodeOptions& options) {
  if (!options.headers && options.handlers.empty())
    throw WrongUse{"choose --headers, --handlers KIND or both; kolvane autocode --help tells what they do"};
  Sum sum;
  // Handlers come first, so that headers see the final procedures.
  const auto treat = [&](Session& session, const ComponentPointer& component) {
    Sum own;
    if (!options.handlers.empty()) writeHandlers(session, component, kindOf(session, options.handlers), own);
    if (options.headers) writeHeaders(session, component, options.author, own);
    sum.add(own);
    return true;
  };
  return runOnModules(invocation.environment, invocation.global, options.project, treat,
                      [&](long) { return summaryOf(options, sum); });
}

}  // namespace

void declareAutoCode(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<AutoCodeOptions>();
  CLI::App* command = parent.add_subcommand(
      "autocode", "Write headers and error handlers for all procedures of the modules that have none");
  addProjectOptions(*command, options->project);
  const auto headers = command->add_flag("--headers", options->headers, "Procedure headers");
  command->add_option("--handlers", options->handlers,
                      "Error handlers of this kind: Show, Raise, Next, Blank or a custom one");
  command->add_option("--author", options->author, "The author in the headers; the user without it")
      ->needs(headers);
  command->callback([options, &invocation] { invocation.exit = run(invocation, *options); });
}

}  // namespace kolvane::commandline
