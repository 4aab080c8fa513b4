// What the suite puts into the context menus of the code window and of the controls window while it is
// connected. The entries stand in context_menus.h; what a click does is handed in.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/signal.h"
#include "frame/context_menus.h"
#include "frame/pictures.h"
#include "frame/services.h"

namespace kolvane::frame {

// Empty functions stand for what is not there: an entry whose click is empty does nothing.
struct WindowMenuBindings {
  // Whether an entry is put into a menu at all, by its key for the dispatcher or else its handler's name; without it
  // every entry is.
  std::function<bool(std::string_view action)> has = nullptr;
  // The dispatcher of the code window's commands.
  std::function<void(std::string_view key)> dispatch = nullptr;
  // Whether the procedure whose lines hold the line has an error handler.
  std::function<bool(CodeModule& module, int line)> handlerExists = nullptr;
  // The names of the custom error handlers.
  std::function<std::vector<std::string>()> customErrors = nullptr;
  std::function<void(const std::string& name)> createCustomError = nullptr;
  // Clicks by their handler's name, such as "evtListMyCallers_Click".
  std::map<std::string, std::function<void()>, std::less<>> clicks = {};
};

// A menu that the host does not have is passed over: its entries are left out.
class WindowMenus {
 public:
  // Both must outlive the object.
  WindowMenus(Services& services, const WindowMenuBindings& bindings)
      : services_(services), bindings_(bindings) {}
  ~WindowMenus() { remove(); }
  WindowMenus(const WindowMenus&) = delete;
  WindowMenus& operator=(const WindowMenus&) = delete;

  // Of the pictures from now on.
  void setVariant(PictureVariant variant) { variant_ = variant; }

  // Controls window. The first two by their entry of the table, each only when its setting asks for it.
  void AddToControlWindowMenu(const MenuEntry& entry, std::string_view key, bool& group);
  void AddTabOrderToControlsWindowMenu(bool& group);
  // These follow the selection: who adds one takes it away again by removeEntry. One that is there already is
  // replaced. `name`: the control to copy, or the one that was copied.
  void AddSwapControlsToControlsWindowMenu();
  void AddSelectedControlsToControlsWindowMenu();
  void AddCopyControlCodeToControlsWindowMenu(const std::string& name);
  void AddPasteControlCodeToControlsWindowMenu(const std::string& name);
  bool hasEntry(const MenuEntry& entry) const;
  void removeEntry(const MenuEntry& entry);

  // Code window. Each tests its setting, and spends the group line when it adds something.
  void Put_List_My_Callers_Into_IDE(bool& group);
  void Put_Current_Procedure_Recoder_Into_IDE(bool& group);
  void Put_Enhanced_Clipboard_Into_IDE(bool& group);

  // Takes all entries off the bars; errors of the host are passed over.
  void remove();

  // What a click on a control of these menus leads to: a key for the dispatcher, or a handler's name. Empty for a popup
  // and for what is not of these menus.
  std::string_view actionOf(const CommandBarControl& control) const;

 private:
  using ControlPointer = std::shared_ptr<CommandBarControl>;

  // A control directly on a bar, with the clicks on it and on what stands below it.
  struct Top {
    ControlPointer control;
    std::string_view handler = {};  // of a single entry
    std::vector<base::Subscription> clicks = {};
    std::vector<std::pair<const CommandBarControl*, std::string_view>> actions = {};
  };

  ControlPointer addTop(int barIndex, ControlKind kind, std::string_view caption, bool& group);
  ControlPointer addBelow(CommandBarControl& popup, ControlKind kind, std::string_view caption);
  void addEntry(int barIndex, const MenuEntry& entry, bool& group, const std::string& caption);
  void addForSelection(const MenuEntry& entry, const std::string& caption);
  void giveFace(CommandBarControl& control, std::string_view pictureKey);
  // To the control added to a bar last, or to one below it.
  void onClick(const ControlPointer& control, std::string_view action, std::function<void()> work);
  void onHandler(const ControlPointer& control, std::string_view handler);

  void AddProcRecoderToCodeMenu(bool& group);
  void addCustomErrors(CommandBarControl& parent, const PopupItem& item,
                       const std::vector<std::string>& names);
  void clickItem(const PopupItem& item);
  std::vector<std::string> customErrors() const;
  bool has(std::string_view action) const { return !bindings_.has || bindings_.has(action); }
  // Whether an item is in this suite: a popup when any of its items is.
  bool isThere(std::size_t index) const;
  bool isShown(std::size_t index, bool hasCustomErrors) const;

  Services& services_;
  const WindowMenuBindings& bindings_;
  PictureVariant variant_ = PictureVariant::k2000;
  std::vector<Top> top_;
};

}  // namespace kolvane::frame
