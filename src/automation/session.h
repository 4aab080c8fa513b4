// One session: a host, a suite and all that they work with, from session/start to session/end.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/environment.h"
#include "base/date_time.h"
#include "forms/scripted_desk.h"
#include "platform/keystrokes.h"
#include "suite/suite.h"
#include "workspace/workspace.h"

namespace kolvane::automation {

class Session {
 public:
  struct Options {
    std::string settings = ":memory:";
    std::optional<std::string> user;  // this and what follows: nothing for the environment's
    std::optional<base::DateTime> now;
    std::optional<std::string> decimalSeparator;
    std::optional<std::string> home;
    std::optional<int> seed;
    // Asked for by the client alone: what a user has stored does not change what a program gets.
    bool careful = false;
    const base::CodePage* codePage = &base::CodePage::get(base::CodePage::kDefault);
  };

  // Both must outlive the session.
  Session(Environment& environment, forms::ScriptedDesk& desk);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // At most once. What the settings' store raises passes on, and the session has not started.
  void start(const Options& options);
  bool started() const { return parts_ != nullptr; }
  // Asks the server to answer this request and end.
  void end() { ended_ = true; }
  bool ended() const { return ended_; }

  // ---- from here on: only once it has started
  workspace::Workspace& host();
  suite::Suite& suite();
  frame::Settings& settings() { return suite().settings(); }
  forms::ScriptedDesk& desk() { return desk_; }
  platform::Clipboard& clipboard();
  platform::RecordedKeystrokes& keystrokes();
  const base::CodePage& codePage() const;
  const std::string& settingsPath() const;
  // What to tell of a damaged settings file, in whose place defaults are in force; empty when all is well.
  const std::string& settingsProblem() const;

  // ---- by the names of the interface; an unknown name raises 9 with a sentence that holds it, what is not
  // there 91 Without a name the active project.
  std::shared_ptr<frame::VBProject> project(const std::optional<std::string>& name = std::nullopt);
  // "Module1" of the given project or the active one, or "Project1/Module1".
  std::shared_ptr<frame::VBComponent> component(std::string_view name,
                                                const std::optional<std::string>& project = std::nullopt);
  std::shared_ptr<frame::CodeModule> code(std::string_view component);
  // Of the component, or the active one.
  std::shared_ptr<frame::CodePane> pane(const std::optional<std::string>& component);
  std::shared_ptr<frame::VBForm> designer(std::string_view component);
  std::shared_ptr<frame::VBControl> control(std::string_view component, std::string_view name);

  // A path of a client, the system's or the host's in UTF-8, in the host's form.
  std::string path(const std::string& utf8);

 private:
  struct Parts;
  Parts& parts() const;

  Environment& environment_;
  forms::ScriptedDesk& desk_;
  std::unique_ptr<Parts> parts_;
  bool ended_ = false;
};

}  // namespace kolvane::automation
