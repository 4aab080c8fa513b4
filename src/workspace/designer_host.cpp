#include "workspace/designer_host.h"

#include <charconv>

#include "base/error.h"
#include "base/text.h"
#include "workspace/designer_objects.h"
#include "workspace/designer_properties.h"

namespace kolvane::workspace {
namespace {

using frame::VBControl;
using Nodes = std::vector<DesignerNode*>;

// "txtName(2)" as the name and the index of one element.
struct ControlKey {
  std::string_view name;
  std::optional<long> index;
};

ControlKey keyOf(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos || !text.ends_with(')')) return {text, std::nullopt};
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  long index = 0;
  const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (status != std::errc() || end != digits.data() + digits.size()) return {text, std::nullopt};
  return {base::trim(text.substr(0, open)), index};
}

DesignerNode* findIn(const Nodes& nodes, const ControlKey& key) {
  for (DesignerNode* node : nodes)
    if (base::equalNoCase(node->name(), key.name) && (!key.index || Designer::indexOf(*node) == *key.index))
      return node;
  return nullptr;
}

// A list of controls that is looked up anew on every call.
template <typename Interface>
class ControlList : public Interface {
 public:
  explicit ControlList(std::shared_ptr<Designer> designer) : designer_(std::move(designer)) {}

  int Count() override { return static_cast<int>(nodes().size()); }

  std::shared_ptr<VBControl> Item(int index) override {
    const Nodes& all = nodes();
    if (index < 1 || static_cast<std::size_t>(index) > all.size())
      throw base::Error(base::errors::kSubscript);
    return designer_->objectOf(*all[static_cast<std::size_t>(index) - 1]);
  }

  std::shared_ptr<VBControl> Item(std::string_view name) override {
    const ControlKey key = keyOf(name);
    DesignerNode* const node = findIn(candidates(key.name), key);
    if (node == nullptr) throw base::Error(base::errors::kSubscript);
    return designer_->objectOf(*node);
  }

 protected:
  virtual const Nodes& nodes() = 0;
  // At least the controls of the name.
  virtual const Nodes& candidates(std::string_view) { return nodes(); }
  Designer& designer() const { return *designer_; }

 private:
  std::shared_ptr<Designer> designer_;
};

std::shared_ptr<ControlObject> ownControl(Designer& designer, const std::shared_ptr<VBControl>& control) {
  if (control == nullptr) throw base::Error(base::errors::kObjectNotSet);
  auto own = std::dynamic_pointer_cast<ControlObject>(control);
  if (own == nullptr || &own->designer() != &designer) throw base::Error(base::errors::kInvalidCall);
  own->node();
  return own;
}

class AllControls final : public ControlList<frame::VBControls> {
 public:
  using ControlList::ControlList;

  std::shared_ptr<VBControl> Add(std::string_view progId, std::shared_ptr<VBControl> container,
                                 std::string_view name) override {
    DesignerNode* const root = designer().tree().root();
    DesignerNode& holder = container == nullptr ? *root : ownControl(designer(), container)->node();
    return designer().add(progId, holder, name);
  }

  void Remove(const std::shared_ptr<VBControl>& control) override {
    designer().remove(ownControl(designer(), control));
  }

 private:
  const Nodes& nodes() override {
    static const Nodes kNone;
    return designer().header().opaque() ? kNone : designer().tree().objects();
  }
  const Nodes& candidates(std::string_view name) override {
    return nodes().empty() ? nodes() : designer().tree().objectsNamed(name);
  }
};

class ContainedControls final : public ControlList<frame::Collection<VBControl>> {
 public:
  // Without a container: those directly on the form.
  ContainedControls(std::shared_ptr<Designer> designer, std::shared_ptr<ControlObject> container)
      : ControlList(std::move(designer)), container_(std::move(container)) {}

 private:
  const Nodes& nodes() override {
    if (container_ == nullptr && designer().header().opaque()) return children_;
    const DesignerNode& node = container_ != nullptr ? container_->node() : *designer().tree().root();
    if (const std::uint64_t edits = designer().tree().edits(); !read_ || edits != edits_) {
      children_ = node.children();
      edits_ = edits;
      read_ = true;
    }
    return children_;
  }

  std::shared_ptr<ControlObject> container_;
  Nodes children_;
  std::uint64_t edits_ = 0;
  bool read_ = false;
};

class SelectedControls final : public ControlList<frame::Collection<VBControl>> {
 public:
  using ControlList::ControlList;

 private:
  const Nodes& nodes() override {
    designer().header();
    return designer().selection();
  }
};

}  // namespace

// ---- form

std::shared_ptr<frame::VBControls> FormObject::VBControls() {
  designer_->header();
  return std::make_shared<AllControls>(designer_);
}

std::shared_ptr<frame::Collection<frame::VBControl>> FormObject::ContainedVBControls() {
  designer_->header();
  return std::make_shared<ContainedControls>(designer_, nullptr);
}

std::shared_ptr<frame::Collection<frame::VBControl>> FormObject::SelectedVBControls() {
  designer_->header();
  return std::make_shared<SelectedControls>(designer_);
}

// ---- control

DesignerNode& ControlObject::node() const {
  designer_->header();
  if (node_ == nullptr) throw base::Error(base::errors::kObjectNotSet);
  return *node_;
}

std::string ControlObject::ClassName() {
  const std::string_view progId = node().className();
  return std::string(progId.substr(progId.rfind('.') + 1));
}

std::string ControlObject::ProgId() { return std::string(node().className()); }

int ControlObject::ControlType() {
  constexpr int kStandard = 2;
  constexpr int kContainer = 3;
  if (const ClassInfo* info = findClass(node().className())) return info->controlType;
  return node().children().empty() ? kStandard : kContainer;
}

std::shared_ptr<frame::Properties> ControlObject::Properties() {
  node();
  return propertiesOf(shared_from_this());
}

bool ControlObject::InSelection() { return designer_->isSelected(node()); }

void ControlObject::setInSelection(bool selected) { designer_->select(node(), selected); }

std::shared_ptr<frame::VBControl> ControlObject::Container() {
  DesignerNode* const container = node().parent();
  if (container == nullptr || container->parent() == nullptr) return nullptr;
  return designer_->objectOf(*container);
}

std::shared_ptr<frame::Collection<frame::VBControl>> ControlObject::ContainedVBControls() {
  node();
  return std::make_shared<ContainedControls>(designer_, shared_from_this());
}

std::shared_ptr<frame::VBForm> ControlObject::Parent() {
  node();
  return designer_->form();
}

// ---- host

DesignerHost::DesignerHost(ComponentHeader& header, DesignerCallbacks callbacks,
                           std::function<std::shared_ptr<frame::VBComponent>()> parent)
    : designer_(std::make_shared<Designer>(header, std::move(callbacks), std::move(parent))) {}

DesignerHost::~DesignerHost() { designer_->close(); }

std::shared_ptr<frame::VBForm> DesignerHost::form() {
  if (designer_->header().designer() == nullptr) return nullptr;
  return designer_->form();
}

void DesignerHost::bringToFront(const std::shared_ptr<frame::VBControl>& control) {
  designer_->reorder(control, true);
}

void DesignerHost::sendToBack(const std::shared_ptr<frame::VBControl>& control) {
  designer_->reorder(control, false);
}

std::shared_ptr<frame::Properties> DesignerHost::properties() {
  DesignerTree* const tree = designer_->header().designer();
  if (tree == nullptr || tree->root() == nullptr) return modulePropertiesOf(designer_);
  return propertiesOf(designer_->objectOf(*tree->root()));
}

}  // namespace kolvane::workspace
