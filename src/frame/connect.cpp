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
constexpr std::string_view kContextMenuGroup = "greiwuh43hferwc3dsf";
constexpr std::string_view kClipboardRing = "skghsfd331fghndfshd";
constexpr std::string_view kControlCoder = "SCCo128";
constexpr std::string_view kControlDefaulter = "SCoDr133";
constexpr std::string_view kTimerForm = "frmTimerForm";
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

// The order in which the tools' forms go at the disconnection.
constexpr std::array<std::string_view, 28> kFormsInOrder{"frmProcedureBuilder",
                                                         "frmPropertyBuilder",
                                                         "frmAutoCoder",
                                                         "frmCodeMaintenance",
                                                         "frmTemplateCoder",
                                                         "frmDBScripter",
                                                         "frmCustomErrorHandlers",
                                                         "frmStringsWriter",
                                                         "frmMassPropertyUpdater",
                                                         "frmSQLFormatter",
                                                         "frmStandardsMonitor",
                                                         "frmDBClassGenerator",
                                                         "frmSearch",
                                                         "frmTabController",
                                                         "frmMsgboxBuilder",
                                                         "frmClipboardRing",
                                                         kTimerForm,
                                                         "frmMenuCopier",
                                                         "frmAutoAccessKeys",
                                                         "frmProjectBackupSetup",
                                                         "frmGetLatestVersions",
                                                         "frmMultiCheckIn",
                                                         "frmMSSourceSafeOptions",
                                                         "frmGeneralOptions",
                                                         "frmControlDefaulter",
                                                         "frmAutoDocumentor",
                                                         "frmControlCoder",
                                                         "frmStats"};

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

// A bar by its number or name; nothing when the host has none.
template <typename Which>
std::shared_ptr<CommandBar> findBar(VBE& vbe, Which which) {
  try {
    return vbe.CommandBars()->Item(which);
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kSubscript) throw;
    return nullptr;
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

  Parts(Services& services_, Bindings bindings_)
      : services(services_), bindings(std::move(bindings_)), windowMenus(services, bindings.menus) {}

  Settings& settings() { return services.settings; }

  void createToolbar();
  void createMenu();
  const CatalogueRow* findRow(std::string_view key) const;
  void menuPass();
  void toolbarPass();
  template <typename Show>
  void pass(std::string_view section, std::string_view prefix, bool& group, Show&& show);
  ControlPointer putIntoMenu(const CatalogueRow& row, bool& group);
  ControlPointer putOntoToolbar(const CatalogueRow& row, bool& group);
  void putDirtyIndicator(bool& group);
  void putFace(const CatalogueRow& row, CommandBarControl& control);
  CommandBarClick clickOn(const CatalogueRow& row);
  void useRing(const CatalogueRow& row);
  bool isWanted(std::string_view key);
  void hookControls(std::string_view key, const MenuEntry& entry, bool& group);
  void contextMenus();
  void writeMaximized();
  void setUpTimer();

  void applyNewProjectDefaults();
  void renameFirstForm(VBComponent& component);
  void deleteCompilerFiles(VBProject& project);
  void emptyVbw(VBProject& project);
  void saveToolbarPlace();
  void removeTimer();
  void removeRow(RowControls& controls);
  void removeForm(std::string_view form);

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
  WindowMenus windowMenus;
  std::shared_ptr<frmTimerForm> timerForm;
  PictureVariant pictures = PictureVariant::k2000;
  base::Subscription evtProjectsHook, evtComponentsHook, evtControlHook, evtControlCoderHook,
      evtSelectedControlsHook, objVBBuildEvents;
};

Connect::Connect(Services& services, Bindings bindings)
    : parts_(std::make_unique<Parts>(services, std::move(bindings))) {}
Connect::~Connect() = default;

ConnectState Connect::state() const { return parts_->state; }
frmTimerForm* Connect::timerForm() const { return parts_->timerForm.get(); }
WindowMenus& Connect::windowMenus() { return parts_->windowMenus; }
const WindowMenus& Connect::windowMenus() const { return parts_->windowMenus; }
const std::string& Connect::description() const { return parts_->description; }
const std::string& Connect::ToolbarIndex() const { return parts_->toolbarIndex; }
bool Connect::StartupComplete() const { return parts_->startupComplete; }

ControlPointer Connect::menuItem(const CatalogueRow& row) const {
  return parts_->rows[static_cast<std::size_t>(&row - kCatalogue.data())].menuItem;
}

ControlPointer Connect::toolbarButton(const CatalogueRow& row) const {
  return parts_->rows[static_cast<std::size_t>(&row - kCatalogue.data())].toolbarButton;
}

const CatalogueRow* Connect::rowOf(const CommandBarControl& control) const {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i)
    if (parts_->rows[i].menuItem.get() == &control || parts_->rows[i].toolbarButton.get() == &control)
      return &kCatalogue[i];
  return nullptr;
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
    parts.pictures =
        isNewFamily(DetectOSVersion(parts.bindings.system)) ? PictureVariant::k2000 : PictureVariant::k95;
    parts.windowMenus.setVariant(parts.pictures);
    statement([&] { ApplyDefaultSettings(parts.settings(), parts.services.user); });
    parts.timerForm = std::make_shared<frmTimerForm>(parts.services);
    parts.timerForm->load();
    statement([&] {
      parts.evtProjectsHook = parts.services.vbe.Events()->VBProjectsEvents(parts.bindings.hooks.projects);
    });
    statement([&] { parts.createToolbar(); });
    statement([&] { parts.createMenu(); });
    parts.menuPass();
    parts.toolbarPass();
    parts.contextMenus();
    if (parts.cbrKolvane) statement([&] { parts.cbrKolvane->setVisible(true); });
    statement([&] { parts.writeMaximized(); });
    parts.setUpTimer();
    if (parts.bindings.activateHotKeys) statement([&] { parts.bindings.activateHotKeys(); });
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

// Goes through a stored order table: `show` for each row that is switched on, the group line for a separator. What the
// table names and nobody knows is passed over, and so is what stands there already because the table names it twice.
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

// A row of the catalogue that this suite has.
const CatalogueRow* Connect::Parts::findRow(std::string_view key) const {
  const CatalogueRow* row = findCatalogueRow(key);
  return row != nullptr && (!bindings.has || bindings.has(*row)) ? row : nullptr;
}

void Connect::Parts::menuPass() {
  bool group = settings().flag(kMenuSeparator);
  pass(kMenuOrderSection, kInMenuPrefix, group, [&](std::string_view key) {
    const CatalogueRow* row = findRow(key);
    if (row == nullptr) return;
    RowControls& controls = rows[static_cast<std::size_t>(row - kCatalogue.data())];
    if (controls.menuItem) return;
    controls.menuItem = putIntoMenu(*row, group);
    useRing(*row);
    controls.menuClick = services.vbe.Events()->CommandBarEvents(controls.menuItem, clickOn(*row));
  });
}

void Connect::Parts::toolbarPass() {
  bool group = settings().flag(kToolbarSeparator);
  pass(kToolbarOrderSection, kOnToolbarPrefix, group, [&](std::string_view key) {
    if (key == kDirtyIndicator.key) return putDirtyIndicator(group);
    const CatalogueRow* row = findRow(key);
    if (row == nullptr) return;
    RowControls& controls = rows[static_cast<std::size_t>(row - kCatalogue.data())];
    if (controls.toolbarButton) return;
    controls.toolbarButton = putOntoToolbar(*row, group);
    useRing(*row);
    controls.toolbarClick = services.vbe.Events()->CommandBarEvents(controls.toolbarButton, clickOn(*row));
  });
}

ControlPointer Connect::Parts::putIntoMenu(const CatalogueRow& row, bool& group) {
  ControlPointer control;
  if (mnuKolvane) {
    control = mnuKolvane->Controls()->Add(ControlKind::kButton, 2);
  } else {
    const auto bar = findBar(services.vbe, std::string_view("Add-Ins"));
    if (!bar) return nullptr;
    control = bar->Controls()->Add();
    if (std::exchange(group, false)) control->setBeginGroup(true);
  }
  control->setCaption(row.menuCaption);
  putFace(row, *control);
  return control;
}

ControlPointer Connect::Parts::putOntoToolbar(const CatalogueRow& row, bool& group) {
  const auto bar = findBar(services.vbe, static_cast<int>(base::toLong(toolbarIndex)));
  if (!bar) return nullptr;
  const ControlPointer control = bar->Controls()->Add();
  control->setTooltipText(row.toolbarTip);
  control->setBeginGroup(std::exchange(group, false));
  putFace(row, *control);
  return control;
}

void Connect::Parts::putDirtyIndicator(bool& group) {
  if (dirtyIndicator) return;
  dirtyIndicator = putOntoToolbar(kDirtyIndicator, group);
  if (!dirtyIndicator) return;
  timerForm->UsingDirtyProject = "True";
}

void Connect::Parts::putFace(const CatalogueRow& row, CommandBarControl& control) {
  PutImageIntoClipboard(services.clipboard, row.pictureKey, pictures);
  statement([&] { control.PasteFace(); });
}

void Connect::Parts::useRing(const CatalogueRow& row) {
  if (row.key == kClipboardRing) timerForm->UsingClipboardRing = true;
}

// Entries outside the order tables are there unless their setting says "False".
bool Connect::Parts::isWanted(std::string_view key) { return settings().option(key) != "False"; }

// The control hooks of a tool, and its entry in the controls window's menu.
void Connect::Parts::hookControls(std::string_view key, const MenuEntry& entry, bool& group) {
  if (!isWanted(key)) return;
  statement([&] {
    const auto events = services.vbe.Events();
    if (key == kControlCoder) {
      evtControlCoderHook = events->VBControlsEvents(nullptr, nullptr, bindings.hooks.controlCode);
    } else {
      evtControlHook = events->VBControlsEvents(nullptr, nullptr, bindings.hooks.controls);
      evtComponentsHook = events->VBComponentsEvents(nullptr, bindings.hooks.components);
    }
  });
  statement([&] { windowMenus.AddToControlWindowMenu(entry, key, group); });
}

void Connect::Parts::contextMenus() {
  const bool ownGroup = base::toBool(settings().option(kContextMenuGroup, "False"));
  bool group = ownGroup;
  hookControls(kControlCoder, kControlCoderEntry, group);
  hookControls(kControlDefaulter, kControlDefaulterEntry, group);
  statement([&] {
    evtSelectedControlsHook =
        services.vbe.Events()->SelectedVBControlsEvents(nullptr, nullptr, bindings.hooks.selectedControls);
  });
  if (isWanted(std::string(kControlMenuPrefix) + "SSTO152"))
    statement([&] { windowMenus.AddTabOrderToControlsWindowMenu(group); });
  group = ownGroup;
  if (isWanted("SLMCs147")) statement([&] { windowMenus.Put_List_My_Callers_Into_IDE(group); });
  if (isWanted("SCPR75")) statement([&] { windowMenus.Put_Current_Procedure_Recoder_Into_IDE(group); });
  if (isWanted("reYrgUdfg67JKAEWFdfadef"))
    statement([&] { windowMenus.Put_Enhanced_Clipboard_Into_IDE(group); });
}

void Connect::Parts::setUpTimer() {
  timerForm->UsingCopyControlCode = settings().flag(std::string(kControlMenuPrefix) + "SAD93");
  if (timerForm->UsingDirtyProject.empty()) timerForm->UsingDirtyProject = "False";
  forms::showErrors(services.desk, "frmTimerForm", "SetUpForm", [&] {
    timerForm->SetUpForm(toolbarIndex, dirtyIndicator ? std::to_string(dirtyIndicator->Index()) : "",
                         pictures);
  });
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

void Connect::IDTExtensibility_OnStartupComplete() {
  parts_->objVBBuildEvents = parts_->services.vbe.Events()->VBBuildEvents(parts_->bindings.hooks.build);
}

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
  for (const std::string_view form : kFormsInOrder) parts.removeForm(form);
  for (auto& row : parts.rows) parts.removeRow(row);
  parts.windowMenus.remove();
  if (parts.cbrKolvane) {
    resumeNext([&] { parts.saveToolbarPlace(); });
    resumeNext([&] { parts.cbrKolvane->Delete(); });
  }
  if (parts.mnuKolvane) resumeNext([&] { parts.mnuKolvane->Delete(); });
  parts.cbrKolvane.reset();
  parts.mnuKolvane.reset();
  if (parts.bindings.deactivateHotKeys) resumeNext([&] { parts.bindings.deactivateHotKeys(); });
  for (base::Subscription* hook :
       {&parts.evtProjectsHook, &parts.evtComponentsHook, &parts.evtControlHook, &parts.evtControlCoderHook,
        &parts.evtSelectedControlsHook, &parts.objVBBuildEvents})
    hook->reset();
  parts.startupComplete = false;
  parts.state = ConnectState::kDisconnected;
}

// The indicator goes with the form that keeps it up to date.
void Connect::Parts::removeTimer() {
  if (dirtyIndicator) resumeNext([&] { dirtyIndicator->Delete(); });
  dirtyIndicator.reset();
  if (timerForm) resumeNext([&] { timerForm->unload(forms::UnloadMode::kEnd); });
  timerForm.reset();
}

void Connect::Parts::removeRow(RowControls& controls) {
  controls.menuClick.reset();
  controls.toolbarClick.reset();
  for (const ControlPointer& control : {controls.menuItem, controls.toolbarButton})
    if (control) resumeNext([&] { control->Delete(); });
  controls = {};
}

void Connect::Parts::removeForm(std::string_view form) {
  if (form == kTimerForm) return removeTimer();
  for (std::size_t i = 0; i < kCatalogue.size(); ++i)
    if (kCatalogue[i].target == form) removeRow(rows[i]);
  if (bindings.unloadForm) resumeNext([&] { bindings.unloadForm(form); });
}

void Connect::Parts::saveToolbarPlace() {
  for (const BarPlace& place : kToolbarPlace)
    settings().SaveSetting(kOptions, place.key, std::to_string(((*cbrKolvane).*place.get)()));
}

}  // namespace kolvane::frame
