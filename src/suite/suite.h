// The suite put together, once: services, settings, connection and the actions behind the catalogue's rows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"
#include "frame/care.h"
#include "frame/catalogue.h"
#include "frame/connect.h"
#include "frame/services.h"
#include "frame/settings.h"
#include "maintenance/maintenance_run.h"
#include "platform/tree_store.h"
#include "platform/web_pages.h"
#include "source/dispatcher.h"
#include "suite/command_menu.h"
#include "writers/context.h"

namespace kolvane::suite {

// Whether rows of the catalogue whose tool is not in this version stand in the host's menus and toolbars.
enum class MissingCommands : std::uint8_t {
  kShown,   // as the order tables and options say, as ever; a click tells that the tool is not there
  kHidden,  // nothing that does nothing
};

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
  // For the look for a newer version, at the user's click.
  platform::WebPages& pages;
  const base::CodePage& codePage;
  // The folder with Events, Templates, Show Form and Help; empty when there is none.
  std::string home;
  frame::Care care = {};
  MissingCommands missing = MissingCommands::kShown;
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

  // What a click on a row's menu item or button does, errors shown in frmVBError. Needs no connection. The user is told
  // when its tool is not in this version.
  void click(const frame::CatalogueRow& row);
  // Whether the row's tool is in this version.
  bool available(const frame::CatalogueRow& row) const;
  // What this version has, for a menu of the front end's own: no options choose from it or order it.
  std::vector<MenuLine> menu() const;
  // What a click on a line of that menu does; nothing for a popup.
  void click(const MenuLine& line);
  // Why a command could do nothing now, as a sentence for people; empty when it can be used. Of a control of the host's
  // bars: empty for those that are not the suite's.
  std::string whyNot(const frame::CatalogueRow& row) const;
  std::string whyNot(const MenuLine& line) const;
  std::string whyNot(const frame::CommandBarControl& control) const;
  // The About box, modal.
  void about();
  // The dispatcher of the code window's commands, with what the active code pane holds. Errors are shown too.
  void dispatch(std::string_view key);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kolvane::suite
