#include "suite/suite.h"

#include <array>
#include <functional>

#include "base/error.h"
#include "forms/error_form.h"
#include "source/ide_windows.h"
#include "writers/headers.h"
#include "writers/module_header.h"

namespace kolvane::suite {
namespace {

// Commands that run straight from the click, by the catalogue's target.
struct AtOnceAction {
  std::string_view target;
  void (*run)(frame::Services& services);
};

constexpr std::array<AtOnceAction, 1> kAtOnceActions{{
    {"AddModuleHeader", [](frame::Services& services) { writers::AddModuleHeader(services); }},
}};

const AtOnceAction* findAtOnceAction(std::string_view target) {
  for (const AtOnceAction& action : kAtOnceActions)
    if (action.target == target) return &action;
  return nullptr;
}

}  // namespace

struct Suite::Parts {
  explicit Parts(const Ports& ports)
      : settings(ports.store, ports.codePage),
        services{ports.vbe,       settings,         ports.desk,  ports.clock,    ports.user, ports.random,
                 ports.clipboard, ports.keystrokes, ports.files, ports.codePage, ports.home, {}},
        writing{services},
        connection(services, bindings()) {
    writers::bindHeaderCommand(commands, writing);
  }

  frame::Connect::Bindings bindings() {
    frame::Connect::Bindings bound;
    bound.click = [this](const frame::CatalogueRow& row) { click(row); };
    bound.isProjectNew = [this] { return source::IsProjectNew(services.vbe); };
    bound.moduleHeaderText = [this](frame::ComponentType type) {
      return writers::moduleHeaderText(services, type);
    };
    return bound;
  }

  bool available(const frame::CatalogueRow& row) const {
    if (row.action == frame::Action::kDispatcher) return commands.isBound(row.target);
    return row.action == frame::Action::kAtOnce && findAtOnceAction(row.target) != nullptr;
  }

  void click(const frame::CatalogueRow& row) {
    if (!available(row)) {
      services.desk.msgBox(std::string(row.listName) + " is not in this version.", forms::box::kNotice,
                           base::kProductName);
      return;
    }
    if (row.action == frame::Action::kDispatcher) return dispatch(row.target);
    forms::showErrors(services.desk, "Connect", frame::menuHandlerName(row),
                      [&] { findAtOnceAction(row.target)->run(services); });
  }

  void dispatch(std::string_view key) {
    forms::showErrors(services.desk, "modVBIDEFunctions", "Get_Name_Of_Current_Procedure",
                      [&] { source::Get_Name_Of_Current_Procedure(services, commands, key); });
  }

  frame::Settings settings;
  frame::Services services;
  writers::Context writing;
  source::CodeWindowCommands commands;
  frame::Connect connection;
};

Suite::Suite(const Ports& ports) : parts_(std::make_unique<Parts>(ports)) {}
Suite::~Suite() = default;

frame::Services& Suite::services() { return parts_->services; }
frame::Settings& Suite::settings() { return parts_->settings; }
frame::Connect& Suite::connection() { return parts_->connection; }
const source::CodeWindowCommands& Suite::commands() const { return parts_->commands; }
const writers::Context& Suite::writing() const { return parts_->writing; }

void Suite::click(const frame::CatalogueRow& row) { parts_->click(row); }
bool Suite::available(const frame::CatalogueRow& row) const { return parts_->available(row); }
void Suite::dispatch(std::string_view key) { parts_->dispatch(key); }

}  // namespace kolvane::suite
