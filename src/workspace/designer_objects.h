// What the objects of one designer share. Only for the designer_*.cpp files.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workspace/class_tables.h"
#include "workspace/designer_host.h"
#include "workspace/designer_tree.h"

namespace kolvane::workspace {

class ControlObject;
class FormObject;

class Designer : public std::enable_shared_from_this<Designer> {
 public:
  Designer(ComponentHeader& header, DesignerCallbacks callbacks,
           std::function<std::shared_ptr<frame::VBComponent>()> parent);

  // From now on every call raises 91.
  void close() { header_ = nullptr; }
  // False also for one that was closed by somebody whom it has just told something: nobody is told more then.
  bool isOpen() const { return header_ != nullptr; }
  ComponentHeader& header() const;
  // Raises 321 when the header could not be understood.
  DesignerTree& tree() const;
  const DesignerCallbacks& callbacks() const { return callbacks_; }
  std::shared_ptr<frame::VBComponent> parent() const;
  std::shared_ptr<FormObject> form();

  void requireEditable() const;
  void tellEdited() const;

  // The one object of a node while anybody holds it. The root's is no control; it only carries properties.
  std::shared_ptr<ControlObject> objectOf(DesignerNode& node);

  // ---- names, indexes, order ----
  static long indexOf(const DesignerNode& node);
  static bool hasTabIndex(const DesignerNode& node);
  // These check, write and tell; a value that is there already changes nothing.
  void setName(DesignerNode& node, std::string_view name);
  void setIndex(DesignerNode& node, long index);
  void setTabIndex(DesignerNode& node, long tabIndex);

  // ---- controls ----
  std::shared_ptr<ControlObject> add(std::string_view progId, DesignerNode& container, std::string_view name);
  void remove(const std::shared_ptr<ControlObject>& control);
  // Over all others of its container, or below them.
  void reorder(const std::shared_ptr<frame::VBControl>& control, bool toFront);

  // ---- selection, in the order in which the controls joined it ----
  const std::vector<DesignerNode*>& selection() const { return selection_; }
  bool isSelected(const DesignerNode& node) const;
  void select(DesignerNode& node, bool selected);

 private:
  std::vector<DesignerNode*> tabOrder() const;
  void writeTabOrder(const std::vector<DesignerNode*>& order);
  void requireFreeName(const DesignerNode& node, std::string_view name) const;
  std::string freeName(std::string_view stem) const;
  void requireRoom(const DesignerNode& container, std::string_view progId) const;
  void writeNewProperties(DesignerNode& node, const ClassInfo* info);
  void addLibrary(std::string_view progId);

  ComponentHeader* header_;
  DesignerCallbacks callbacks_;
  std::function<std::shared_ptr<frame::VBComponent>()> parent_;
  std::weak_ptr<FormObject> form_;
  std::unordered_map<const DesignerNode*, std::weak_ptr<ControlObject>> objects_;
  std::vector<DesignerNode*> selection_;
};

class FormObject final : public frame::VBForm {
 public:
  explicit FormObject(std::shared_ptr<Designer> designer) : designer_(std::move(designer)) {}
  std::shared_ptr<frame::VBControls> VBControls() override;
  std::shared_ptr<frame::Collection<frame::VBControl>> ContainedVBControls() override;
  std::shared_ptr<frame::Collection<frame::VBControl>> SelectedVBControls() override;
  std::shared_ptr<frame::VBComponent> Parent() override { return designer_->parent(); }

 private:
  std::shared_ptr<Designer> designer_;
};

class ControlObject final : public frame::VBControl, public std::enable_shared_from_this<ControlObject> {
 public:
  ControlObject(std::shared_ptr<Designer> designer, DesignerNode& node)
      : designer_(std::move(designer)), node_(&node) {}

  Designer& designer() const { return *designer_; }
  // Raises 91 once the control was removed or its form closed.
  DesignerNode& node() const;
  bool isGone() const { return node_ == nullptr; }
  void forget() { node_ = nullptr; }

  std::string ClassName() override;
  std::string ProgId() override;
  int ControlType() override;
  std::shared_ptr<frame::Properties> Properties() override;
  bool InSelection() override;
  void setInSelection(bool selected) override;
  std::shared_ptr<frame::VBControl> Container() override;
  std::shared_ptr<frame::Collection<frame::VBControl>> ContainedVBControls() override;
  std::shared_ptr<frame::VBForm> Parent() override;

 private:
  std::shared_ptr<Designer> designer_;
  DesignerNode* node_;
};

}  // namespace kolvane::workspace
