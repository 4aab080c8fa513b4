// kolvane header: procedure headers over whole modules.
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "writers/header_pass.h"

namespace kolvane::commandline {
namespace {

struct HeaderOptions {
  ProjectOptions project;
  bool missing = false;
  bool describe = false;
};

std::string summaryOf(const writers::HeaderPassResult& sum) {
  std::string text = counted(sum.written, "header", "headers") + " written, " +
                     std::to_string(sum.unchanged) + " left as they were";
  if (sum.skipped > 0)
    text += ", " + counted(sum.skipped, "procedure", "procedures") + " of a kind without headers (Friend)";
  if (sum.commentsGone > 0)
    text += ", " + counted(sum.commentsGone, "comment line", "comment lines") +
            " of no header taken away (under Safety Careful they stay)";
  return text;
}

void add(writers::HeaderPassResult& sum, const writers::HeaderPassResult& result) {
  sum.written += result.written;
  sum.unchanged += result.unchanged;
  sum.skipped += result.skipped;
  sum.commentsGone += result.commentsGone;
}

void requireCare(Session& session, const HeaderOptions& options) {
  if (!options.describe || session.suite().services().care.guards(frame::Guard::kComments)) return;
  throw WrongUse{"--describe works under care only: kolvane settings set Safety Careful True"};
}

}  // namespace

void declareHeader(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<HeaderOptions>();
  CLI::App* command = parent.add_subcommand(
      "header", "Write or bring up to date the headers of all procedures of the modules");
  addProjectOptions(*command, options->project);
  command->add_flag("--missing", options->missing, "Only procedures without a header");
  command->add_flag("--describe", options->describe,
                    "A comment of one paragraph becomes the description of a procedure that has none");
  command->callback([options, &invocation] {
    writers::HeaderPassResult sum;
    const auto pass = options->missing ? writers::HeaderPass::kMissing : writers::HeaderPass::kAll;
    const auto describe = options->describe ? writers::Describe::kYes : writers::Describe::kNo;
    const auto treat = [&](Session& session, const ComponentPointer& component) {
      requireCare(session, *options);
      const auto result =
          writers::writeHeaders(session.suite().writing(), *component->CodeModule(), pass, describe);
      tellFailures(session, component, result.failures);
      add(sum, result);
      return true;
    };
    invocation.exit = runOnModules(invocation.environment, invocation.global, options->project, treat,
                                   [&](long) { return summaryOf(sum); });
  });
}

}  // namespace kolvane::commandline
