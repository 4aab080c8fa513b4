#include "commandline/commands.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>

#include "base/error.h"
#include "commandline/project_command.h"
#include "commandline/text_table.h"
#include "frame/version.h"

namespace kolvane::commandline {
namespace {

// In the order of the help.
constexpr std::array<DeclareCommand, 13> kCommands{
    declareHeader,   declareAutoCode, declareMaintenance, declareMaintain, declareAudit,
    declareCallers,  declareNew,      declareRun,         declareCommands, declareVerify,
    declareHandlers, declareSettings, declareServe};

constexpr std::string_view kFooter =
    "Exit status: 0 done, 1 findings or changes needed (--check), 2 wrong use,\n"
    "3 failed: not all that was asked for could be read, done or written. That holds for the settings\n"
    "and for output whose reader has gone, too.\n"
    "Settings: --settings FILE, or the variable KOLVANE_SETTINGS, or kolvane/settings.db in the user's\n"
    "configuration folder. \":memory:\" stands for settings that are forgotten.";

// A sentence instead of a list in every help text.
std::string knownCodePage(const std::string& text, const platform::CodePages& pages) {
  const auto known = pages.numbers();
  if (std::any_of(known.begin(), known.end(), [&](int page) { return std::to_string(page) == text; }))
    return {};
  std::string all;
  for (const int page : known) all += (all.empty() ? "" : ", ") + std::to_string(page);
  return "code page " + text + " is not known; known are " + all;
}

void declareGlobalOptions(CLI::App& app, GlobalOptions& options, const platform::CodePages& pages) {
  app.add_option("--settings", options.settings, "The settings file, or :memory:");
  app.add_option(
         "--code-page", options.codePage,
         "Code page of the source files: 1252, 1251, 932 … (default: what their names show, or else 1252)")
      ->check([&pages](const std::string& text) { return knownCodePage(text, pages); });
  app.add_option("--color", options.color, "Colours: auto, always or never")
      ->capture_default_str()
      ->check(CLI::IsMember({"auto", "always", "never"}));
  const auto yes = app.add_flag("--yes", options.yes, "Answer every question with Yes");
  app.add_flag("--no", options.no, "Answer every question with No")->excludes(yes);
  app.set_version_flag("--version", "kolvane " + frame::versionText());
}

// Where the descriptions of options begin.
int helpColumn(const Terminal& terminal) { return std::clamp(terminal.width / 2, 20, 34); }

int wrongUse(Environment& environment, const std::string& reason) {
  environment.terminal.err << "kolvane: " << reason << "\n";
  return static_cast<int>(Exit::kWrongUse);
}

bool hasCommand(CLI::App& app, const std::string& name) {
  const auto all = app.get_subcommands([](CLI::App*) { return true; });
  return std::any_of(all.begin(), all.end(), [&](CLI::App* command) { return command->check_name(name); });
}

int parseAndRun(CLI::App& app, Invocation& invocation, std::vector<std::string> arguments) {
  Environment& environment = invocation.environment;
  std::reverse(arguments.begin(), arguments.end());  // CLI11 takes them from the back
  try {
    app.parse(std::move(arguments));
    return static_cast<int>(invocation.exit);
  } catch (const CLI::Success& success) {
    std::ostringstream help;
    const int exit = app.exit(success, help, help);
    environment.terminal.out << wrapHelp(help.str(), environment.terminal.width,
                                         helpColumn(environment.terminal));
    return exit;
  } catch (const CLI::ParseError& error) {
    return wrongUse(environment, std::string(error.what()) + " (kolvane --help shows what there is)");
  } catch (const WrongUse& wrong) {
    return wrongUse(environment, wrong.reason);
  } catch (const base::Error& error) {
    environment.terminal.err << "kolvane: " << error.description() << "\n";
    return static_cast<int>(Exit::kFailed);
  } catch (const std::exception& error) {
    environment.terminal.err << "kolvane: " << error.what() << "\n";
    return static_cast<int>(Exit::kFailed);
  }
}

// True when all that was printed has arrived.
bool finishOutput(Terminal& terminal) {
  if (!terminal.out.flush().bad()) return true;
  const std::string reason = terminal.whyLost ? terminal.whyLost() : "a write failed";
  terminal.err << "kolvane: standard output: " << reason << "; not all of it was written\n";
  return false;
}

// Neither "done" nor "findings" is true of output that nobody got, or under other settings than the user's: a build
// must not go on from there.
int finished(Environment& environment, int exit) {
  const bool complete = finishOutput(environment.terminal) && !environment.settingsDamaged;
  return complete ? exit : std::max(exit, static_cast<int>(Exit::kFailed));
}

}  // namespace

int run(const std::vector<std::string>& arguments, Environment& environment) {
  CLI::App app("Code tools for Visual Basic 6, at work on the project files themselves.", "kolvane");
  GlobalOptions global;
  Invocation invocation{environment, global};
  declareGlobalOptions(app, global, *environment.codePages);
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(std::string(kFooter));
  app.get_formatter()->column_width(static_cast<std::size_t>(helpColumn(environment.terminal)));
  for (const DeclareCommand declare : kCommands) declare(app, invocation);
  if (!arguments.empty() && !arguments[0].starts_with('-') && !hasCommand(app, arguments[0]))
    return wrongUse(environment,
                    "there is no command \"" + arguments[0] + "\"; kolvane --help shows what there is");
  if (arguments.empty()) {
    environment.terminal.err << app.help();
    return static_cast<int>(Exit::kWrongUse);
  }
  return finished(environment, parseAndRun(app, invocation, arguments));
}

}  // namespace kolvane::commandline
