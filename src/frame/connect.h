// The one class that the host knows: it takes the suite through its life, from loading to unloading.
//
// The host calls the five AddinInstance_ entries in their order: initialise, connection, start-up complete,
// begin shut-down, disconnection. Connection writes missing defaults, hooks the host's events and puts a
// button on the host's bars for every row of the stored order tables that is switched on; disconnection takes
// all of it down again. The class has no logic of any tool: a click is handed to what the floors above have
// bound.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "frame/catalogue.h"
#include "frame/os_version.h"
#include "frame/services.h"
#include "frame/timer_form.h"
#include "frame/window_menus.h"

namespace kolvane::frame {

enum class ConnectState { kCreated, kInitialized, kConnected, kRunning, kShuttingDown, kDisconnected };

// How the plain extensibility interface says when it connects: 1 at start-up, 0 later in a session.
enum class ConnectMode : int { kAfterStartup = 0, kStartup = 1 };

// What the floors above do at the host's events; any handler may be empty.
struct HostHooks {
  VBProjectsHandlers projects = {};
  // These two while the Control Defaulter is available.
  VBComponentsHandlers components = {};
  VBControlsHandlers controls = {};
  // While the Control Coder is available.
  VBControlsHandlers controlCode = {};
  SelectedVBControlsHandlers selectedControls = {};
  VBBuildHandlers build = {};
};

class Connect {
 public:
  // What the floors above hand in. An empty function stands for a tool that is not there.
  struct Bindings {
    // Whether a row is put on the host's bars at all; without it every row is that its settings show.
    std::function<bool(const CatalogueRow&)> has = nullptr;
    // A click on the row's menu item or toolbar button.
    std::function<void(const CatalogueRow&)> click = nullptr;
    // Unloads a form by its name, if it is open, without asking.
    std::function<void(std::string_view form)> unloadForm = nullptr;
    // The active project is the host's untouched new one.
    std::function<bool()> isProjectNew = nullptr;
    // The module header of a component's type with its placeholders filled in; empty for none.
    std::function<std::string(ComponentType)> moduleHeaderText = nullptr;
    // What the entries of the context menus do.
    WindowMenuBindings menus = {};
    // What happens at the host's events while the suite is connected.
    HostHooks hooks = {};
    // Brings the hot keys to life as the connection's last step, and takes them down again.
    std::function<void()> activateHotKeys = nullptr;
    std::function<void()> deactivateHotKeys = nullptr;
    SystemVersion system = {};
  };

  // Services and bindings must outlive the object.
  Connect(Services& services, Bindings bindings);
  ~Connect();
  Connect(const Connect&) = delete;
  Connect& operator=(const Connect&) = delete;

  void AddinInstance_Initialize();
  // Error 5 and 339 are passed over where they come up; any other ends the connection half-way, without a
  // word.
  void AddinInstance_OnConnection();
  void AddinInstance_OnStartupComplete();
  // Deletes .exp and .lib files and empties .vbw files, as the options say.
  void AddinInstance_OnBeginShutdown();
  void AddinInstance_OnDisconnection();
  void IDTExtensibility_OnConnection(ConnectMode mode);
  void IDTExtensibility_OnStartupComplete();

  ConnectState state() const;
  // The add-in's description as the host shows it; empty before the connection.
  const std::string& description() const;
  // The bar that toolbar buttons go on, as text.
  const std::string& ToolbarIndex() const;
  bool StartupComplete() const;
  // The controls of a row while it is shown; nothing otherwise.
  std::shared_ptr<CommandBarControl> menuItem(const CatalogueRow& row) const;
  std::shared_ptr<CommandBarControl> toolbarButton(const CatalogueRow& row) const;
  // The row that a control is of; null for other controls.
  const CatalogueRow* rowOf(const CommandBarControl& control) const;
  // The background timer, from the connection to the disconnection; null otherwise.
  frmTimerForm* timerForm() const;
  // For the entries that come and go with the selection.
  WindowMenus& windowMenus();
  const WindowMenus& windowMenus() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kolvane::frame
