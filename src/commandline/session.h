// One run of a command: the host with the projects that it opened, the suite, and how the user wants to hear
// of it all.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commandline/environment.h"
#include "commandline/style.h"
#include "forms/console_desk.h"
#include "platform/clipboard.h"
#include "platform/keystrokes.h"
#include "suite/suite.h"
#include "workspace/host_files.h"
#include "workspace/workspace.h"

namespace kolvane::commandline {

// Options that every command takes.
struct GlobalOptions {
  std::string settings;         // empty: the environment's
  std::optional<int> codePage;  // nothing: the one that the projects show, 1252 where they show none
  std::string color = "auto";
  bool yes = false;
  bool no = false;
};

// Where the settings of this run are.
const std::string& settingsPath(const Environment& environment, const GlobalOptions& options);
// The settings of this run; a damaged file is told, and the defaults, to be written by the caller, take its place.
std::unique_ptr<platform::TreeStore> openSettings(Environment& environment, const GlobalOptions& options);

class Session {
 public:
  // A settings file that cannot be used raises 321 or what the store raises.
  Session(Environment& environment, const GlobalOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Opens a project, group or single file. What is wrong is printed, a line each; false when nothing could be
  // opened.
  bool open(const std::string& path);
  // Whether anything was told by printProblem: then what the command did is not all that was asked for.
  bool hadProblems() const { return hadProblems_; }
  void printProblem(const std::string& line);
  // What is worth knowing, though nothing is wrong.
  void printNote(const std::string& line);

  workspace::Workspace& workspace() { return *workspace_; }
  suite::Suite& suite() { return *suite_; }
  Environment& environment() { return environment_; }
  Terminal& terminal() { return environment_.terminal; }
  const base::CodePage& codePage() const { return codePage_; }
  const Style& style() const { return style_; }

  // For the terminal and JSON.
  std::string utf8(std::string_view text) const { return codePage_.toUtf8(text); }

 private:
  Environment& environment_;
  base::CodePage codePage_;  // in use; before all that works in it
  Style style_;
  std::unique_ptr<platform::TreeStore> store_;
  platform::Random random_;
  platform::MemoryClipboard clipboard_;
  platform::RecordedKeystrokes keystrokes_;
  std::shared_ptr<workspace::Workspace> workspace_;
  std::unique_ptr<workspace::HostFiles> hostFiles_;
  std::unique_ptr<forms::Desk> desk_;
  std::unique_ptr<suite::Suite> suite_;
  bool hadProblems_ = false;
};

// True when colours are wanted for a stream that is a terminal or not.
bool wantsColor(const std::string& option, bool isTerminal);

}  // namespace kolvane::commandline
