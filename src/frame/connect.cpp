#include "frame/connect.h"

#include <array>
#include <optional>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "forms/error_form.h"
#include "frame/default_settings.h"

namespace kolvane::frame {
namespace {

using ControlPointer = std::shared_ptr<CommandBarControl>;

constexpr std::string_view kPreserveClipboard = "srtg322aeRrgf";
constexpr std::string_view kUseOwnToolbar = "CmTUs155";
constexpr std::string_view kUseOwnMenu = "CMergu161";
constexpr std::string_view kOwnMenuPlace = "CuMLon162";
constexpr std::string_view kMenuSeparator = "BGr9";
constexpr std::string_view kToolbarSeparator = "y234wazappppff";
constexpr std::string_view kModulesMaximized = "VMM18";
constexpr std::string_view kRenameComponents = "RComWA15";
constexpr std::string_view kModuleHeaders = "ouloi45lwefwd";
constexpr std::string_view kFormPrefix = "e267m";
constexpr std::string_view kRemoveCompilerFiles = "ReCFonCl16";
constexpr std::string_view kClearVbw = "dvdfg348sdfgsdg";
constexpr std::string_view kHostPath = "SOFTWARE\\Microsoft\\Visual Basic\\6.0";

// The toolbar's place: how it is read from and written to the bar.
struct BarPlace {
  std::string_view key;
  int (CommandBar::*get)();
  void (CommandBar::*set)(int);
};
constexpr std::array<BarPlace, 4> kToolbarPlace{{
    {"ComTorPon156", &CommandBar::Position, &CommandBar::setPosition},
    {"CuToRwI157", &CommandBar::RowIndex, &CommandBar::setRowIndex},
    {"CuTlrft158", &CommandBar::Left, &CommandBar::setLeft},
    {"CTorp159", &CommandBar::Top, &CommandBar::setTop},
}};

std::string version() { return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor); }

std::string addInDescription() {
  const std::string gap = "\r\n\r\n";
  return "KolvaneLite V" + version() +
         " is an integrated and highly configurable Add-in suite for MS Visual Basic 6." + gap +
         "Its main purpose is to remove the repetitive elements to programming in VB allowing you to focus "
         "on more "
         "important tasks. " +
         gap + "The suite comprises a total of 36 main add-ins with many other functions available." + gap +
         "Please visit " + std::string(kProductAddress) + " for more information.";
}

// One statement of the connection: what error 5 and 339 interrupt goes on behind it.
template <typename Work>
void statement(Work&& work) {
  try {
    work();
  } catch (const base::Error& error) {
    constexpr long kFileIsMissing = 339;
    if (error.number() != base::errors::kInvalidCall && error.number() != kFileIsMissing) throw;
  }
}

// One statement of a procedure that resumes at the next, whatever happens.
template <typename Work>
void resumeNext(Work&& work) {
  try {
    work();
  } catch (const base::Error&) {
  }
}

std::string withExtension(const std::string& path, std::string_view extension) {
  const std::size_t dot = path.rfind('.');
  const std::size_t slash = path.rfind('\\');
  const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return path.substr(0, hasExtension ? dot : path.size()) + std::string(extension);
}

}  // namespace

struct Connect::Parts {
  // What one row of the catalogue has in the host while the suite is connected.
  struct RowControls {
    ControlPointer menuItem;
    ControlPointer toolbarButton;
    base::Subscription menuClick;
    base::Subscription toolbarClick;
  };

  Parts(Services& services_, Bindings bindings_) : services(services_), bindings(std::move(bindings_)) {}

  Settings& settings() { return services.settings; }

  void createToolbar();
  void createMenu();
  void menuPass();
  void toolbarPass();
  template <typename Show>
  void pass(std::string_view section, std::string_view prefix, bool& group, Show&& show);
  ControlPointer putIntoMenu(const CatalogueRow& row, bool& group);
  ControlPointer putOntoToolbar(const CatalogueRow& row, bool& group);
  void putDirtyIndicator(bool& group);
  void putFace(const CatalogueRow& row, CommandBarControl& control);
  CommandBarClick clickOn(const CatalogueRow& row);
  void writeMaximized();

  void applyNewProjectDefaults();
  void renameFirstForm(VBComponent& component);
  void deleteCompilerFiles(VBProject& project);
  void emptyVbw(VBProject& project);
  void saveToolbarPlace();
  void removeRow(const CatalogueRow& row);

  Services& services;
  Bindings bindings;
  ConnectState state = ConnectState::kCreated;
  bool startupComplete = false;
  std::string description;
  std::string toolbarIndex;
  std::optional<std::string> savedClipboardText;
  std::shared_ptr<CommandBar> cbrKolvane;
  ControlPointer mnuKolvane;
  bool useOwnMenu = false;
  std::array<RowControls, kCatalogue.size()> rows;
  ControlPointer dirtyIndicator;
};

Connect::Connect(Services& services, Bindings bindings)
    : parts_(std::make_unique<Parts>(services, std::move(bindings))) {}
Connect::~Connect() = default;

ConnectState Connect::state() const { return parts_->state; }
const std::string& Connect::description() const { return parts_->description; }
const std::string& Connect::ToolbarIndex() const { return parts_->toolbarIndex; }
bool Connect::StartupComplete() const { return parts_->startupComplete; }

ControlPointer Connect::menuItem(const CatalogueRow& row) const {
  return parts_->rows[static_cast<std::size_t>(&row - kCatalogue.data())].menuItem;
}

ControlPointer Connect::toolbarButton(const CatalogueRow& row) const {
  return parts_->rows[static_cast<std::size_t>(&row - kCatalogue.data())].toolbarButton;
}

// ---- connecting

void Connect::AddinInstance_Initialize() {
  auto& parts = *parts_;
  resumeNext([&] {
    if (parts.settings().number(kPreserveClipboard) == 1)
      parts.savedClipboardText = parts.services.clipboard.text();
  });
  parts.state = ConnectState::kInitialized;
}

void Connect::AddinInstance_OnConnection() {
  auto& parts = *parts_;
  parts.startupComplete = false;
  try {
    parts.description = addInDescription();
    statement([&] { ApplyDefaultSettings(parts.settings(), parts.services.user); });
    statement([&] { parts.createToolbar(); });
    statement([&] { parts.createMenu(); });
    parts.menuPass();
    parts.toolbarPass();
    if (parts.cbrKolvane) statement([&] { parts.cbrKolvane->setVisible(true); });
    statement([&] { parts.writeMaximized(); });
  } catch (const base::Error&) {
    // The rest of the steps is left out: the suite stays connected as far as it came.
  }
  parts.state = ConnectState::kConnected;
}

void Connect::Parts::createToolbar() {
  cbrKolvane.reset();
  toolbarIndex = std::to_string(kStandardToolbarIndex);
  if (settings().number(kUseOwnToolbar) != 1) return;
  cbrKolvane = services.vbe.CommandBars()->Add("KolvaneLite V" + version() + " Toolbar");
  for (const BarPlace& place : kToolbarPlace)
    ((*cbrKolvane).*place.set)(static_cast<int>(settings().number(place.key)));
  toolbarIndex = std::to_string(cbrKolvane->Index());
}

void Connect::Parts::createMenu() {
  mnuKolvane.reset();
  useOwnMenu = settings().number(kUseOwnMenu) == 1;
  if (!useOwnMenu) return;
  mnuKolvane = services.vbe.CommandBars()->ActiveMenuBar()->Controls()->Add(
      ControlKind::kPopup, 1, {}, static_cast<int>(settings().number(kOwnMenuPlace)), true);
  mnuKolvane->setCaption("Kolvan&e V" + version());
}

// Goes through a stored order table: `show` for each known row that is switched on, the group line for a
// separator. What the table names and nobody knows is passed over.
template <typename Show>
void Connect::Parts::pass(std::string_view section, std::string_view prefix, bool& group, Show&& show) {
  for (const auto& [number, value] : settings().GetAllSettings(section)) {
    std::string_view key = value;
    if (key.starts_with(prefix)) key.remove_prefix(prefix.size());
    if (key == kSeparatorKey) {
      group = true;
    } else if (settings().flag(std::string(prefix) + std::string(key))) {
      statement([&] { show(key); });
    }
  }
}

void Connect::Parts::menuPass() {
  bool group = settings().flag(kMenuSeparator);
  pass(kMenuOrderSection, kInMenuPrefix, group, [&](std::string_view key) {
    const CatalogueRow* row = findCatalogueRow(key);
    if (row == nullptr) return;
    RowControls& controls = rows[static_cast<std::size_t>(row - kCatalogue.data())];
    controls.menuItem = putIntoMenu(*row, group);
    controls.menuClick = services.vbe.Events()->CommandBarEvents(controls.menuItem, clickOn(*row));
  });
}

void Connect::Parts::toolbarPass() {
  bool group = settings().flag(kToolbarSeparator);
  pass(kToolbarOrderSection, kOnToolbarPrefix, group, [&](std::string_view key) {
    if (key == kDirtyIndicator.key) return putDirtyIndicator(group);
    const CatalogueRow* row = findCatalogueRow(key);
    if (row == nullptr) return;
    RowControls& controls = rows[static_cast<std::size_t>(row - kCatalogue.data())];
    controls.toolbarButton = putOntoToolbar(*row, group);
    controls.toolbarClick = services.vbe.Events()->CommandBarEvents(controls.toolbarButton, clickOn(*row));
  });
}

ControlPointer Connect::Parts::putIntoMenu(const CatalogueRow& row, bool& group) {
  ControlPointer control;
  if (mnuKolvane) {
    control = mnuKolvane->Controls()->Add(ControlKind::kButton, 2);
  } else {
    control = services.vbe.CommandBars()->Item("Add-Ins")->Controls()->Add();
    if (std::exchange(group, false)) control->setBeginGroup(true);
  }
  control->setCaption(row.menuCaption);
  putFace(row, *control);
  return control;
}

ControlPointer Connect::Parts::putOntoToolbar(const CatalogueRow& row, bool& group) {
  const auto bar = services.vbe.CommandBars()->Item(static_cast<int>(base::toLong(toolbarIndex)));
  const ControlPointer control = bar->Controls()->Add();
  control->setTooltipText(row.toolbarTip);
  control->setBeginGroup(std::exchange(group, false));
  putFace(row, *control);
  return control;
}

void Connect::Parts::putDirtyIndicator(bool& group) {
  dirtyIndicator = putOntoToolbar(kDirtyIndicator, group);
}

void Connect::Parts::putFace(const CatalogueRow& row, CommandBarControl& control) {
  services.clipboard.clear();
  services.clipboard.setPicture(std::string(row.pictureKey));
  control.PasteFace();
}

CommandBarClick Connect::Parts::clickOn(const CatalogueRow& row) {
  return [this, &row](const ControlPointer&, bool&, bool&) {
    if (bindings.click) bindings.click(row);
  };
}

void Connect::Parts::writeMaximized() {
  const bool maximized = settings().number(kModulesMaximized) != 0;
  settings().WriteRegistryValue(RegistryRoot::kCurrentUser, kHostPath, "MDIMaximized", 1,
                                maximized ? "1" : "0");
}

void Connect::AddinInstance_OnStartupComplete() {
  auto& parts = *parts_;
  forms::showErrors(parts.services.desk, "Connect", "AddinInstance_OnStartupComplete", [&] {
    parts.applyNewProjectDefaults();
    if (parts.settings().number(kPreserveClipboard) == 1) {
      parts.services.clipboard.clear();
      if (parts.savedClipboardText) parts.services.clipboard.setText(*parts.savedClipboardText);
    }
  });
  parts.startupComplete = true;
  parts.state = ConnectState::kRunning;
}

void Connect::Parts::applyNewProjectDefaults() {
  const base::ErrorScope scope{"Connect", "ApplyNewProjectDefaults"};
  const auto project = services.vbe.ActiveVBProject();
  if (!project || project->VBComponents()->Count() == 0 || !bindings.isProjectNew || !bindings.isProjectNew())
    return;
  const auto component = project->VBComponents()->Item(1);
  if (settings().number(kRenameComponents) != 0 && component->Name() == "Form1") renameFirstForm(*component);
  if (settings().number(kModuleHeaders) != 1 || !bindings.moduleHeaderText) return;
  const std::string header = bindings.moduleHeaderText(component->Type());
  const auto module = component->CodeModule();
  if (module && !base::trim(header).empty()) module->InsertLines(1, header);
}

void Connect::Parts::renameFirstForm(VBComponent& component) {
  component.Properties()->Item("Caption")->setValue(std::string());
  component.setName(settings().option(kFormPrefix, "frm") + "1");
}

void Connect::IDTExtensibility_OnConnection(ConnectMode mode) {
  if (mode != ConnectMode::kStartup) IDTExtensibility_OnStartupComplete();
}

// The build events are told to those who subscribe to them; there is nothing to keep for them here.
void Connect::IDTExtensibility_OnStartupComplete() {}

// ---- disconnecting

void Connect::AddinInstance_OnBeginShutdown() {
  auto& parts = *parts_;
  forms::showErrors(parts.services.desk, "Connect", "AddinInstance_OnBeginShutdown", [&] {
    for (const auto& project : parts.services.vbe.VBProjects()->items()) {
      if (parts.settings().flag(kRemoveCompilerFiles)) parts.deleteCompilerFiles(*project);
    }
    for (const auto& project : parts.services.vbe.VBProjects()->items()) {
      if (parts.settings().flag(kClearVbw)) parts.emptyVbw(*project);
    }
  });
  parts.state = ConnectState::kShuttingDown;
}

// Projects that were never compiled have none of these files.
void Connect::Parts::deleteCompilerFiles(VBProject& project) {
  const std::string program = project.BuildFileName();
  if (program.empty()) return;
  for (const std::string_view extension : {".exp", ".lib"}) {
    try {
      services.files.remove(withExtension(program, extension));
    } catch (const base::Error& error) {
      if (error.number() != base::errors::kFileNotFound && error.number() != base::errors::kPathNotFound)
        throw;
    }
  }
}

void Connect::Parts::emptyVbw(VBProject& project) {
  constexpr int kReadOnlyAndArchive = 33;
  const std::string file = project.FileName();
  if (file.size() < 4) return;
  const std::string vbw = file.substr(0, file.size() - 4) + ".vbw";
  const int attributes = services.files.attributes(vbw);
  if (attributes == kReadOnlyAndArchive || attributes == platform::kAttributeReadOnly) return;
  services.files.replace(vbw, "");
  services.files.setAttributes(vbw, kReadOnlyAndArchive);
}

void Connect::AddinInstance_OnDisconnection() {
  auto& parts = *parts_;
  if (parts.mnuKolvane) resumeNext([&] { parts.mnuKolvane->setVisible(false); });
  if (parts.cbrKolvane) resumeNext([&] { parts.cbrKolvane->setVisible(false); });
  for (const auto& row : parts.rows) {
    if (row.menuItem) resumeNext([&] { row.menuItem->setVisible(false); });
    if (row.toolbarButton) resumeNext([&] { row.toolbarButton->setVisible(false); });
  }
  for (const CatalogueRow& row : kCatalogue) parts.removeRow(row);
  if (parts.dirtyIndicator) resumeNext([&] { parts.dirtyIndicator->Delete(); });
  parts.dirtyIndicator.reset();
  if (parts.cbrKolvane) {
    resumeNext([&] { parts.saveToolbarPlace(); });
    resumeNext([&] { parts.cbrKolvane->Delete(); });
  }
  if (parts.mnuKolvane) resumeNext([&] { parts.mnuKolvane->Delete(); });
  parts.cbrKolvane.reset();
  parts.mnuKolvane.reset();
  parts.startupComplete = false;
  parts.state = ConnectState::kDisconnected;
}

void Connect::Parts::removeRow(const CatalogueRow& row) {
  RowControls& controls = rows[static_cast<std::size_t>(&row - kCatalogue.data())];
  controls.menuClick.reset();
  controls.toolbarClick.reset();
  for (const ControlPointer& control : {controls.menuItem, controls.toolbarButton})
    if (control) resumeNext([&] { control->Delete(); });
  controls = {};
  if (bindings.unloadForm) resumeNext([&] { bindings.unloadForm(row); });
}

void Connect::Parts::saveToolbarPlace() {
  for (const BarPlace& place : kToolbarPlace)
    settings().SaveSetting(kOptions, place.key, std::to_string(((*cbrKolvane).*place.get)()));
}

}  // namespace kolvane::frame
