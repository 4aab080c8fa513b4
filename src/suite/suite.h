// The suite put together, once: services, settings, connection and the actions behind the catalogue's rows.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "frame/care.h"
#include "frame/catalogue.h"
#include "frame/connect.h"
#include "frame/services.h"
#include "frame/settings.h"
#include "maintenance/maintenance_run.h"
#include "platform/tree_store.h"
#include "source/dispatcher.h"
#include "writers/context.h"

namespace kolvane::suite {

// What the suite works on and with. All of it must outlive the suite.
struct Ports {
  frame::VBE& vbe;
  platform::TreeStore& store;
  forms::Desk& desk;
  platform::Clock& clock;
  platform::UserInfo& user;
  platform::Random& random;
  platform::Clipboard& clipboard;
  platform::Keystrokes& keystrokes;
  platform::Files& files;
  const base::CodePage& codePage;
  // The folder with Events, Templates, Show Form and Help; empty when there is none.
  std::string home;
  frame::Care care = {};
};

// Two suites may live in one process.
class Suite {
 public:
  explicit Suite(const Ports& ports);
  ~Suite();
  Suite(const Suite&) = delete;
  Suite& operator=(const Suite&) = delete;

  frame::Services& services();
  frame::Settings& settings();
  frame::Connect& connection();
  const source::CodeWindowCommands& commands() const;
  // What the writers work with, for callers that run them over many procedures.
  const writers::Context& writing() const;
  // What Code Maintenance works with.
  const maintenance::MaintenanceTools& maintaining() const;

  // What a click on a row's menu item or button does, errors shown in frmVBError. Needs no connection.
  void click(const frame::CatalogueRow& row);
  // Whether the row's tool is in this version.
  bool available(const frame::CatalogueRow& row) const;
  // The dispatcher of the code window's commands, with what the active code pane holds. Errors are shown too.
  void dispatch(std::string_view key);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kolvane::suite
