// One run of the workbench: the host with its projects, the suite as its guest, and how both reach the user.
#pragma once

#include <QIcon>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "forms/desk.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/keystrokes.h"
#include "platform/tree_store.h"
#include "platform/web_pages.h"
#include "suite/suite.h"
#include "workspace/host_files.h"
#include "workspace/workspace.h"

namespace kolvane::workbench {

// What the program hands in. All of it must outlive the session.
struct Environment {
  platform::Files& files;
  platform::Clock& clock;
  platform::UserInfo& user;
  platform::TreeStore& store;
  platform::Clipboard& clipboard;
  platform::Keystrokes& keystrokes;
  platform::WebPages& pages;
  forms::Desk& desk;
  const base::CodePage& codePage;
  std::string home;  // of the suite
  // The folder that this user's recent projects, window places and recovery files are kept in. Empty: nothing is kept.
  QString stateFolder = {};
  // The picture of a command bar's control by its name; an empty function for none.
  std::function<QIcon(const std::string& face)> icon = {};
};

// Where the window keeps what is its own: place, panes, recent projects.
inline QString settingsFile(const QString& stateFolder) { return stateFolder + "/workbench.ini"; }

class Session {
 public:
  explicit Session(Environment& environment);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Environment& environment() { return environment_; }
  workspace::Workspace& host() { return *workspace_; }
  suite::Suite& suite() { return *suite_; }
  forms::Desk& desk() { return environment_.desk; }
  const base::CodePage& codePage() const { return environment_.codePage; }

  // The suite's life: connected as a host does it at its start, disconnected at its end. A user's first connection
  // puts every command that works at the cursor into the code window's menu, also those that are off by default.
  void connectSuite();
  void disconnectSuite();
  bool connected() const { return connected_; }
  // Lets the background timer of the suite know that time has passed.
  void advance(int milliseconds);

  // Whether the suite's commands protect the source that they change. Setting it holds for the next command on, and
  // for later runs.
  bool isCareful();
  void setCareful(bool isCareful);

  // Runs work of the host for the user: what it raises is told in a box, and false comes back.
  bool attempt(const std::function<void()>& work);
  // Boxes under the product's name.
  void tell(const QString& text, int icon = forms::box::kNotice);
  forms::Answer ask(const QString& text, int buttons);
  // Yes or No to a question whose Yes loses something: Enter, Esc and the close button give No.
  bool agreesToLose(const QString& question);

  QString text(std::string_view hostText) const;
  // What the code page does not have becomes "?": for texts that people read.
  std::string shown(const QString& text) const;

 private:
  void writeFirstSettings();

  Environment& environment_;
  platform::Random random_;
  std::shared_ptr<workspace::Workspace> workspace_;
  workspace::HostFiles files_;
  std::unique_ptr<suite::Suite> suite_;
  bool connected_ = false;
};

}  // namespace kolvane::workbench
