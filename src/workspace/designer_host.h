// The host's view of one component's objects: the form with its controls and their properties, and the
// component's own properties, over the header of the component's file.
//
// Every change is written into the header at once, in the layout that the IDE has; saving is the owner's. A
// property whose value becomes the default loses its line, as in the IDE, unless the IDE always writes it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "frame/host.h"
#include "workspace/component_source.h"

namespace kolvane::workspace {

class Designer;

// What the owner wants to know and to decide. Each may be empty.
struct DesignerCallbacks {
  // Raises 40198 when the component cannot be edited. Called before every change.
  std::function<void()> canEdit;
  // Called after every change of the header; before the event that tells of the change, save controlRemoved.
  std::function<void()> edited;
  // Gives the component another name, with all that hangs on it: checks, ComponentHeader::rename, events.
  std::function<void(std::string_view name)> rename;
  // What stands behind "Object = " for a control of another library (`"{guid}#2.0#0"; "file.ocx"`), or ""
  // when it is not known. Asked when no control of the library is on the form.
  std::function<std::string(std::string_view progId)> objectLine;

  std::function<void(const std::shared_ptr<frame::VBControl>&)> controlAdded;
  // While the control and what it holds can still be read; also for every control inside a removed one.
  std::function<void(const std::shared_ptr<frame::VBControl>&)> controlRemoved;
  // `oldIndex` is -1 outside control arrays. Also called when only the index has changed.
  std::function<void(const std::shared_ptr<frame::VBControl>&, const std::string& oldName, int oldIndex)>
      controlRenamed;
  std::function<void(const std::shared_ptr<frame::VBControl>&, bool added)> selectionChanged;
};

class DesignerHost {
 public:
  // `header` must stay where it is while the host lives. `parent` gives the component; nothing while it has
  // none.
  DesignerHost(ComponentHeader& header, DesignerCallbacks callbacks,
               std::function<std::shared_ptr<frame::VBComponent>()> parent);
  // Everything that was handed out raises 91 from now on.
  ~DesignerHost();
  DesignerHost(const DesignerHost&) = delete;
  DesignerHost& operator=(const DesignerHost&) = delete;

  // The designer; nothing for a module or class. The form of an opaque header has no controls and takes none
  // (321).
  std::shared_ptr<frame::VBForm> form();

  // The component's own properties: those of a designer's root object, a class's settings, a module's name.
  // Left, Top, Width and Height of a form are reckoned from its client area and a classic window frame where
  // the file does not hold them; setting one moves or sizes the client area.
  std::shared_ptr<frame::Properties> properties();

  // Puts a control over all others of its container, or below them. In the file the first one is on top.
  void bringToFront(const std::shared_ptr<frame::VBControl>& control);
  void sendToBack(const std::shared_ptr<frame::VBControl>& control);

 private:
  std::shared_ptr<Designer> designer_;
};

}  // namespace kolvane::workspace
