// Names, order, adding and removing: what concerns a designer's controls together.
#include <algorithm>
#include <limits>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "workspace/designer_geometry.h"
#include "workspace/designer_objects.h"
#include "workspace/designer_values.h"

namespace kolvane::workspace {
namespace {

constexpr std::size_t kLongestName = 40;
constexpr std::string_view kMenuClass = "VB.Menu";

// Classes that an MDI form holds although they have no place of their own on it.
constexpr std::string_view kAlignedClasses[] = {"PictureBox", "Data", "Timer"};

void requireLegalName(std::string_view name) {
  const bool legal = !name.empty() && name.size() <= kLongestName && !base::isDigit(name.front()) &&
                     name.front() != '_' && std::all_of(name.begin(), name.end(), base::isWordCharacter);
  if (!legal) throw base::Error(base::errors::kNotALegalName);
}

long tabIndexOf(const DesignerNode& node) { return base::toLong(node.value("TabIndex")); }

std::string_view libraryOf(std::string_view progId) { return progId.substr(0, progId.rfind('.')); }

// The object and all that it holds, innermost and last first.
std::vector<DesignerNode*> fromTheEnd(const DesignerTree& tree, DesignerNode& node) {
  std::vector<DesignerNode*> inside;
  for (DesignerNode* each : tree.objects())
    for (const DesignerNode* up = each; up != nullptr; up = up->parent())
      if (up == &node) inside.push_back(each);
  std::reverse(inside.begin(), inside.end());
  return inside;
}

}  // namespace

Designer::Designer(ComponentHeader& header, DesignerCallbacks callbacks,
                   std::function<std::shared_ptr<frame::VBComponent>()> parent)
    : header_(&header), callbacks_(std::move(callbacks)), parent_(std::move(parent)) {}

ComponentHeader& Designer::header() const {
  if (header_ == nullptr) throw base::Error(base::errors::kObjectNotSet);
  return *header_;
}

DesignerTree& Designer::tree() const {
  DesignerTree* const tree = header().designer();
  if (tree == nullptr || tree->root() == nullptr)
    throw base::Error(base::errors::kInvalidFormat, "The form's description in its file has a fault");
  return *tree;
}

std::shared_ptr<frame::VBComponent> Designer::parent() const {
  header();
  return parent_ ? parent_() : nullptr;
}

std::shared_ptr<FormObject> Designer::form() {
  auto form = form_.lock();
  if (form == nullptr) form_ = form = std::make_shared<FormObject>(shared_from_this());
  return form;
}

void Designer::requireEditable() const {
  header();
  if (callbacks_.canEdit) callbacks_.canEdit();
}

void Designer::tellEdited() const {
  if (callbacks_.edited) callbacks_.edited();
}

std::shared_ptr<ControlObject> Designer::objectOf(DesignerNode& node) {
  std::weak_ptr<ControlObject>& known = objects_[&node];
  auto object = known.lock();
  if (object == nullptr) known = object = std::make_shared<ControlObject>(shared_from_this(), node);
  return object;
}

// ---- names, indexes, order

long Designer::indexOf(const DesignerNode& node) { return base::toLong(node.value("Index"), -1); }

bool Designer::hasTabIndex(const DesignerNode& node) {
  const ClassInfo* info = findClass(node.className());
  return info != nullptr ? findProperty(*info, "TabIndex") != nullptr : node.find("TabIndex") != nullptr;
}

void Designer::requireFreeName(const DesignerNode& node, std::string_view name) const {
  for (const DesignerNode* other : tree().objectsNamed(name)) {
    if (other == &node) continue;
    // Elements of one control array share their name; nothing else does.
    const long index = indexOf(node);
    const bool sameArray = base::equalNoCase(other->className(), node.className()) && index >= 0 &&
                           indexOf(*other) >= 0 && indexOf(*other) != index;
    if (!sameArray) throw base::Error(base::errors::kNameConflict);
  }
}

void Designer::setName(DesignerNode& node, std::string_view name) {
  if (node.name() == name) return;
  if (node.parent() == nullptr) {
    if (!callbacks_.rename) throw base::Error(base::errors::kReadOnlyProperty);
    return callbacks_.rename(name);
  }
  requireLegalName(name);
  requireFreeName(node, name);
  // Taken now: whoever is told may remove the control.
  const std::string oldName(node.name());
  const auto index = static_cast<int>(indexOf(node));
  const auto control = objectOf(node);
  tree().rename(node, name);
  tellEdited();
  if (isOpen() && callbacks_.controlRenamed) callbacks_.controlRenamed(control, oldName, index);
}

void Designer::setIndex(DesignerNode& node, long index) {
  const long oldIndex = indexOf(node);
  if (index == oldIndex) return;
  if (index < -1) throw base::Error(errors::kInvalidPropertyValue, "Invalid property value");
  for (const DesignerNode* other : tree().objectsNamed(node.name())) {
    if (other == &node) continue;
    if (index < 0) throw base::Error(base::errors::kNameConflict);
    if (indexOf(*other) == index) throw base::Error(errors::kAlreadyLoaded, "Object already loaded");
  }
  const std::string name(node.name());
  const auto control = objectOf(node);
  if (index < 0)
    tree().erase(node, "Index");
  else
    tree().setValue(node, "Index", std::to_string(index));
  tellEdited();
  if (isOpen() && callbacks_.controlRenamed)
    callbacks_.controlRenamed(control, name, static_cast<int>(oldIndex));
}

std::vector<DesignerNode*> Designer::tabOrder() const {
  std::vector<std::pair<long, DesignerNode*>> keyed;
  for (DesignerNode* node : tree().objects())
    if (hasTabIndex(*node)) keyed.emplace_back(tabIndexOf(*node), node);
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<DesignerNode*> order;
  order.reserve(keyed.size());
  for (const auto& [index, node] : keyed) order.push_back(node);
  return order;
}

void Designer::writeTabOrder(const std::vector<DesignerNode*>& order) {
  for (std::size_t i = 0; i < order.size(); ++i)
    if (order[i]->find("TabIndex") == nullptr || tabIndexOf(*order[i]) != static_cast<long>(i))
      tree().setValue(*order[i], "TabIndex", std::to_string(i));
}

void Designer::setTabIndex(DesignerNode& node, long tabIndex) {
  if (tabIndexOf(node) == tabIndex) return;
  if (tabIndex < 0) throw base::Error(errors::kInvalidPropertyValue, "Invalid property value");
  std::vector<DesignerNode*> order = tabOrder();
  std::erase(order, &node);
  const std::size_t place = std::min(static_cast<std::size_t>(tabIndex), order.size());
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), &node);
  const std::uint64_t edits = tree().edits();
  writeTabOrder(order);
  if (tree().edits() != edits) tellEdited();
}

// ---- adding

std::string Designer::freeName(std::string_view stem) const {
  for (int number = 1;; ++number) {
    std::string name = std::string(stem) + std::to_string(number);
    if (tree().objectsNamed(name).empty()) return name;
  }
}

void Designer::requireRoom(const DesignerNode& container, std::string_view progId) const {
  const ClassInfo* info = findClass(progId);
  const ClassInfo* holder = findClass(container.className());
  const std::size_t dot = progId.rfind('.');
  const bool named = dot != std::string_view::npos && dot > 0 && dot + 1 < progId.size() &&
                     progId.find_first_of(" \t\r\n") == std::string_view::npos;
  const bool known = info != nullptr ? !info->isRoot : named && !base::startsWithNoCase(progId, "VB.");
  const bool menu = info != nullptr && info->name == "Menu";
  // A container of another library may hold what it likes, save menus.
  bool fits = holder == nullptr && !menu;
  if (holder != nullptr) switch (holder->holds) {
      case Holds::kNothing:
        break;
      case Holds::kMenus:
        fits = menu;
        break;
      case Holds::kControls:
        fits = !menu;
        break;
      case Holds::kControlsMenus:
        fits = true;
        break;
      case Holds::kAlignedAndMenus:
        fits = menu || info == nullptr ||
               std::find(std::begin(kAlignedClasses), std::end(kAlignedClasses), info->name) !=
                   std::end(kAlignedClasses);
        break;
    }
  if (!known || !fits)
    throw base::Error(base::errors::kInvalidCall, "A " + std::string(progId) + " cannot be placed on " +
                                                      std::string(container.className()));
}

void Designer::addLibrary(std::string_view progId) {
  if (findClass(progId) != nullptr || !callbacks_.objectLine) return;
  for (const DesignerNode* node : tree().objects())
    if (base::equalNoCase(libraryOf(node->className()), libraryOf(progId))) return;
  const std::string line = callbacks_.objectLine(progId);
  if (!line.empty()) header().addObjectLine(line);
}

void Designer::writeNewProperties(DesignerNode& node, const ClassInfo* info) {
  DesignerTree& tree = this->tree();
  if (info != nullptr && info->name == "Menu") return tree.setValue(node, "Caption", "\"\"");
  bool tabbed = hasTabIndex(node);
  if (info == nullptr) {
    // Seen at run time or not: as the others of the class, if there are any.
    tabbed = true;
    for (const DesignerNode* other : tree.objects())
      if (other != &node && base::equalNoCase(other->className(), node.className()))
        tabbed = hasTabIndex(*other);
  }
  if (tabbed) {
    const std::size_t others = tabOrder().size() - (hasTabIndex(node) ? 1 : 0);
    tree.setValue(node, "TabIndex", std::to_string(others));
  }
  placeNew(tree, node, info);
  if (info == nullptr) return;
  for (const std::string_view property : {"Caption", "Text"})
    if (const PropertyInfo* row = findProperty(*info, property))
      tree.setValue(node, property, fileText(*row, std::string(node.name())));
}

std::shared_ptr<ControlObject> Designer::add(std::string_view progId, DesignerNode& container,
                                             std::string_view name) {
  requireEditable();
  DesignerTree& tree = this->tree();
  requireRoom(container, progId);
  const ClassInfo* info = findClass(progId);
  const std::string className = info != nullptr ? "VB." + std::string(info->name) : std::string(progId);
  std::string wanted(name);
  if (wanted.empty()) {
    const std::string_view stem = info != nullptr ? info->nameStem : progId.substr(progId.rfind('.') + 1);
    if (stem.empty()) throw base::Error(base::errors::kNotALegalName);
    wanted = freeName(stem);
  }
  requireLegalName(wanted);
  if (!tree.objectsNamed(wanted).empty()) throw base::Error(base::errors::kNameConflict);
  addLibrary(className);
  // The newest control lies on top, which is first in the file; menus follow all controls in their order.
  const auto place = className == kMenuClass ? DesignerTree::Place::kLast : DesignerTree::Place::kFirst;
  DesignerNode& node = tree.addObject(container, className, wanted, place);
  writeNewProperties(node, info);
  auto control = objectOf(node);
  tellEdited();
  if (isOpen() && callbacks_.controlAdded) callbacks_.controlAdded(control);
  return control;
}

// ---- order

// Menus stay behind the controls.
void Designer::reorder(const std::shared_ptr<frame::VBControl>& control, bool toFront) {
  requireEditable();
  const auto object = std::dynamic_pointer_cast<ControlObject>(control);
  if (object == nullptr || object->node().parent() == nullptr) throw base::Error(base::errors::kInvalidCall);
  DesignerNode& node = object->node();
  const std::vector<DesignerNode*> siblings = node.parent()->children();
  const auto isMenu = [](const DesignerNode* each) {
    return base::equalNoCase(each->className(), kMenuClass);
  };
  const bool menusFollow = !isMenu(&node);
  auto place = siblings.begin();
  if (!toFront) place = menusFollow ? std::find_if(place, siblings.end(), isMenu) : siblings.end();
  const auto own = std::find(siblings.begin(), siblings.end(), &node);
  if (own == place || own + 1 == place) return;  // it stands there already
  tree().moveObject(node, place == siblings.end() ? nullptr : *place);
  tellEdited();
}

// ---- removing

void Designer::remove(const std::shared_ptr<ControlObject>& control) {
  requireEditable();
  if (control->node().parent() == nullptr) throw base::Error(base::errors::kInvalidCall);
  std::vector<std::shared_ptr<ControlObject>> leaving;
  for (DesignerNode* node : fromTheEnd(tree(), control->node())) leaving.push_back(objectOf(*node));
  // A handler may remove some of them itself, or close the form.
  const auto stays = [&](const ControlObject& each) { return isOpen() && !each.isGone(); };
  for (const auto& each : leaving) {
    if (stays(*each)) select(each->node(), false);
    if (stays(*each) && callbacks_.controlRemoved) callbacks_.controlRemoved(each);
  }
  if (!stays(*control)) return;
  DesignerNode& node = control->node();
  // Handlers may have added to it as well.
  for (DesignerNode* each : fromTheEnd(tree(), node)) {
    std::erase(selection_, each);
    if (const auto known = objects_.find(each); known != objects_.end()) {
      if (const auto object = known->second.lock()) object->forget();
      objects_.erase(known);
    }
  }
  tree().remove(node);
  writeTabOrder(tabOrder());
  tellEdited();
}

// ---- selection

bool Designer::isSelected(const DesignerNode& node) const {
  return std::find(selection_.begin(), selection_.end(), &node) != selection_.end();
}

void Designer::select(DesignerNode& node, bool selected) {
  if (isSelected(node) == selected) return;
  if (selected)
    selection_.push_back(&node);
  else
    std::erase(selection_, &node);
  if (callbacks_.selectionChanged) callbacks_.selectionChanged(objectOf(node), selected);
}

}  // namespace kolvane::workspace
