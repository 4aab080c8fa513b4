#include "commandline/session.h"

#include <istream>
#include <ostream>

#include "base/error.h"
#include "frame/default_settings.h"

namespace kolvane::commandline {
namespace {

using Policy = forms::ConsoleDesk::Policy;

// Nobody answers in a pipe, so that questions take the cautious answer there at once.
Policy policyOf(const GlobalOptions& options, const Terminal& terminal) {
  if (options.yes) return Policy::kYes;
  return options.no || !terminal.inIsTerminal ? Policy::kNo : Policy::kAsk;
}

frame::Care storedCare(platform::TreeStore& store, const base::CodePage& codePage) {
  return frame::storedCare(frame::Settings(store, codePage));
}

void tellProblem(Terminal& terminal, const std::string& line) {
  const Style style(wantsColor("auto", terminal.errIsTerminal));
  terminal.err << style(Paint::kProblem, "kolvane:") << " " << line << "\n";
}

}  // namespace

bool wantsColor(const std::string& option, bool isTerminal) {
  return option == "always" || (option == "auto" && isTerminal);
}

const std::string& settingsPath(const Environment& environment, const GlobalOptions& options) {
  return options.settings.empty() ? environment.settingsPath : options.settings;
}

std::unique_ptr<platform::TreeStore> openSettings(Environment& environment, const GlobalOptions& options) {
  auto opened = frame::openSettings(environment.openSettings, settingsPath(environment, options));
  if (!opened.problem.empty()) {
    environment.settingsDamaged = true;
    tellProblem(environment.terminal, opened.problem);
  }
  return std::move(opened.store);
}

Session::Session(Environment& environment, const GlobalOptions& options)
    : environment_(environment),
      codePage_(environment.codePages->get(options.codePage.value_or(base::CodePage::kDefault))),
      style_(wantsColor(options.color, environment.terminal.outIsTerminal)),
      store_(openSettings(environment, options)),
      workspace_(workspace::Workspace::create(environment.files, clipboard_, codePage_)),
      hostFiles_(std::make_unique<workspace::HostFiles>(workspace_->paths())),
      desk_(std::make_unique<forms::ConsoleDesk>(environment.terminal.in, environment.terminal.err,
                                                 environment.terminal.err, codePage_,
                                                 policyOf(options, environment.terminal))),
      suite_(std::make_unique<suite::Suite>(
          suite::Ports{*workspace_, *store_, *desk_, environment.clock, environment.user, random_, clipboard_,
                       keystrokes_, *hostFiles_, environment.pages, codePage_, environment.home,
                       storedCare(*store_, codePage_), suite::MissingCommands::kHidden})) {
  if (!options.codePage) workspace_->recogniseCodePages(codePage_, *environment.codePages);
  // The commands count on the defaults being there, as the connection leaves them.
  frame::ApplyDefaultSettings(suite_->settings(), environment.user);
}

Session::~Session() = default;

void Session::printProblem(const std::string& line) {
  hadProblems_ = true;
  tellProblem(environment_.terminal, line);
}

void Session::printNote(const std::string& line) {
  const Style style(wantsColor("auto", environment_.terminal.errIsTerminal));
  environment_.terminal.err << style(Paint::kQuiet, "kolvane:") << " " << line << "\n";
}

bool Session::open(const std::string& path) {
  bool opened = false;
  try {
    opened = !workspace_->open(path).empty();
    if (!opened && workspace_->problems().empty()) printProblem(path + ": holds no project");
  } catch (const base::Error& error) {
    printProblem(error.description());
  }
  for (const auto& note : workspace_->takeNotes()) printNote(note.text());
  for (const auto& problem : workspace_->problems()) printProblem(problem.text());
  workspace_->clearProblems();
  return opened;
}

}  // namespace kolvane::commandline
