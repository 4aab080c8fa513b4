#include "suite/suite.h"

#include <array>
#include <functional>

#include "base/error.h"
#include "forms/error_form.h"
#include "frame/about_form.h"
#include "frame/window_commands.h"
#include "maintenance/code_maintenance_form.h"
#include "maintenance/list_my_callers.h"
#include "source/ide_windows.h"
#include "suite/show_preconditions.h"
#include "suite/tool_forms.h"
#include "writers/auto_coder_form.h"
#include "writers/code_window_commands.h"
#include "writers/custom_handler_writing.h"
#include "writers/custom_handlers.h"
#include "writers/custom_handlers_form.h"
#include "writers/error_handlers.h"
#include "writers/module_header.h"
#include "writers/procedure_builder.h"
#include "writers/property_builder.h"

namespace kolvane::suite {

struct Suite::Parts final : frame::Tools {
  explicit Parts(const Ports& ports)
      : pages(ports.pages),
        settings(ports.store, ports.codePage),
        services{ports.vbe,       settings,         ports.desk,  ports.clock,    ports.user, ports.random,
                 ports.clipboard, ports.keystrokes, ports.files, ports.codePage, ports.home, {},
                 ports.care},
        writing{services},
        reports(services),
        callers(services, reports),
        connection(services, bindings(ports.missing)) {
    services.tools = this;
    writing.findCallers = [this](frame::CodeModule& module) { return callers.callersText(module); };
    writers::bindCodeWindowCommands(commands, writing);
  }

  frame::Connect::Bindings bindings(MissingCommands missing) {
    frame::Connect::Bindings bound;
    if (missing == MissingCommands::kHidden) {
      bound.has = [this](const frame::CatalogueRow& row) { return available(row); };
      bound.menus.has = [this](std::string_view action) { return hasAction(action); };
    }
    bound.click = [this](const frame::CatalogueRow& row) { click(row); };
    bound.isProjectNew = [this] { return source::IsProjectNew(services.vbe); };
    bound.moduleHeaderText = [this](frame::ComponentType type) {
      return writers::moduleHeaderText(services, type);
    };
    bound.unloadForm = [this](std::string_view form) {
      toolForms.unload(form);
      // One that its tool holds itself.
      if (forms::Form* open = services.desk.openForms().find(form)) open->unload(forms::UnloadMode::kEnd);
    };
    bound.hooks.build.EnterRunMode = [this] {
      forms::showErrors(services.desk, "Connect", "objVBBuildEvents_EnterRunMode",
                        [this] { frame::ClearImmediateWindow(services); });
    };
    bound.menus.dispatch = [this](std::string_view key) { dispatch(key); };
    bound.menus.handlerExists = [](frame::CodeModule& module, int line) {
      return writers::Handler_Exists(module, line);
    };
    bound.menus.customErrors = [this] { return writers::GetCustomErrors(settings); };
    bound.menus.createCustomError = [this](const std::string& name) { createCustomError(name); };
    bound.menus.clicks["evtListMyCallers_Click"] = [this] { callers.evtListMyCallers_Click(); };
    return bound;
  }

  void open(std::string_view name) override {
    if (name == frame::kAboutBox) return about();
    const frame::CatalogueRow* row = frame::findCatalogueRowByName(name);
    if (row == nullptr)
      throw base::Error(base::errors::kNotAvailable, std::string(name) + " is not available.");
    click(*row);
  }

  // In the active code window; nothing happens without one.
  void createCustomError(const std::string& name) {
    const auto pane = services.vbe.ActiveCodePane();
    if (!pane) return;
    const auto module = pane->CodeModule();
    writers::CreateCustomErrorHandler(services, *module->Parent(), *pane, *module, name);
  }

  // What the context menus' entries lead to: a key of the dispatcher, or the name of a handler.
  bool hasAction(std::string_view action) const {
    return commands.isBound(action) || action == frame::kListMyCallersEntry.handler;
  }

  void about() { frame::Show_About(services, pages, desktop); }

  // What a click on a row runs, by the row's target: a command at once, or the showing of a form.
  struct AtOnce {
    std::string_view target;
    void (*run)(Parts& parts);
  };
  struct ShowForm {
    std::string_view target;
    void (*run)(Parts& parts, const frame::CatalogueRow& row);
  };
  static const AtOnce* findAtOnce(std::string_view target);
  static const ShowForm* findShowForm(std::string_view target);

  bool available(const frame::CatalogueRow& row) const {
    if (row.action == frame::Action::kDispatcher) return commands.isBound(row.target);
    return findAtOnce(row.target) != nullptr || findShowForm(row.target) != nullptr;
  }

  void click(const frame::CatalogueRow& row) {
    if (!available(row)) {
      services.desk.msgBox(std::string(row.listName) + " is not in this version.", forms::box::kNotice,
                           base::kProductName);
      return;
    }
    if (row.action == frame::Action::kDispatcher) return dispatch(row.target);
    forms::showErrors(services.desk, "Connect", frame::menuHandlerName(row), [&] {
      if (const AtOnce* command = findAtOnce(row.target)) return command->run(*this);
      if (mayShow(services, row.target)) findShowForm(row.target)->run(*this, row);
    });
  }

  void dispatch(std::string_view key) {
    forms::showErrors(services.desk, [&] { source::Get_Name_Of_Current_Procedure(services, commands, key); });
  }

  platform::WebPages& pages;
  frame::Settings settings;
  frame::Services services;
  platform::NoDesktop desktop;
  writers::Context writing;
  maintenance::Reports reports;
  maintenance::Callers callers;
  maintenance::IndentState indent;
  maintenance::MaintenanceTools maintaining{services, callers, indent};
  source::CodeWindowCommands commands;
  maintenance::CodeMaintenance codeMaintenance{maintaining, reports};
  writers::AutoCoderTools autoCoder{writing, commands};
  writers::ProcedureBuilder procedureBuilder{services};
  writers::PropertyBuilder propertyBuilder{services};
  ToolForms toolForms;
  frame::Connect connection;
};

const Suite::Parts::AtOnce* Suite::Parts::findAtOnce(std::string_view target) {
  // One line a command.
  static constexpr std::array kAtOnceActions{
      AtOnce{"AddModuleHeader", [](Parts& parts) { writers::AddModuleHeader(parts.services); }},
      AtOnce{"CloseInactiveWindows", [](Parts& parts) { frame::CloseInactiveWindows(parts.services); }},
      AtOnce{"ClearImmediateWindow", [](Parts& parts) { frame::ClearImmediateWindow(parts.services); }},
  };
  for (const AtOnce& command : kAtOnceActions)
    if (command.target == target) return &command;
  return nullptr;
}

const Suite::Parts::ShowForm* Suite::Parts::findShowForm(std::string_view target) {
  // One line a form, with what its constructor takes:
  //   ShowForm{"frmSearch", [](Parts& parts, const frame::CatalogueRow& row) {
  //     parts.toolForms.show<aids::frmSearch>(row, parts.services); }},
  static constexpr std::array kShowForms{
      ShowForm{
          "frmProcedureBuilder",
          [](Parts& parts, const frame::CatalogueRow&) { parts.procedureBuilder.Show_ProcedureBuilder(); }},
      ShowForm{
          "frmPropertyBuilder",
          [](Parts& parts, const frame::CatalogueRow&) { parts.propertyBuilder.Show_PropertyBuilder(); }},
      ShowForm{"frmAutoCoder",
               [](Parts& parts, const frame::CatalogueRow& row) {
                 parts.toolForms.show<writers::frmAutoCoder>(row, parts.autoCoder);
               }},
      ShowForm{
          "frmCodeMaintenance",
          [](Parts& parts, const frame::CatalogueRow&) { parts.codeMaintenance.Show_CodeMaintenance(); }},
      ShowForm{"frmCustomErrorHandlers",
               [](Parts& parts, const frame::CatalogueRow& row) {
                 parts.toolForms.show<writers::frmCustomErrorHandlers>(row, parts.services);
               }},
  };
  for (const ShowForm& form : kShowForms)
    if (form.target == target) return &form;
  return nullptr;
}

Suite::Suite(const Ports& ports) : parts_(std::make_unique<Parts>(ports)) {}
Suite::~Suite() = default;

frame::Services& Suite::services() { return parts_->services; }
frame::Settings& Suite::settings() { return parts_->settings; }
frame::Connect& Suite::connection() { return parts_->connection; }
const source::CodeWindowCommands& Suite::commands() const { return parts_->commands; }
const writers::Context& Suite::writing() const { return parts_->writing; }
const maintenance::MaintenanceTools& Suite::maintaining() const { return parts_->maintaining; }

void Suite::click(const frame::CatalogueRow& row) { parts_->click(row); }
bool Suite::available(const frame::CatalogueRow& row) const { return parts_->available(row); }
std::vector<MenuLine> Suite::menu() const {
  return commandMenu([this](const frame::CatalogueRow& row) { return available(row); });
}
void Suite::click(const MenuLine& line) {
  if (line.row != nullptr)
    parts_->click(*line.row);
  else if (line.handler == frame::kListMyCallersEntry.handler)
    parts_->callers.evtListMyCallers_Click();
}
std::string Suite::whyNot(const frame::CatalogueRow& row) const {
  return reasonAgainst(parts_->services, row.target);
}
std::string Suite::whyNot(const MenuLine& line) const {
  return reasonAgainst(parts_->services, line.row != nullptr ? line.row->target : line.handler);
}
std::string Suite::whyNot(const frame::CommandBarControl& control) const {
  if (const auto* row = parts_->connection.rowOf(control)) return whyNot(*row);
  return reasonAgainst(parts_->services, parts_->connection.windowMenus().actionOf(control));
}
void Suite::about() { parts_->about(); }
void Suite::dispatch(std::string_view key) { parts_->dispatch(key); }

}  // namespace kolvane::suite
