#include "workspace/designer_properties.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/error.h"
#include "workspace/designer_geometry.h"
#include "workspace/designer_values.h"

namespace kolvane::workspace {
namespace {

using frame::ObjectValue;
using frame::Property;
using frame::Value;
using Kind = DesignerEntry::Kind;

constexpr std::string_view kBold = "Bold";
constexpr std::string_view kWeight = "Weight";
constexpr long kBoldWeight = 700;
constexpr long kRegularWeight = 400;
constexpr long kBoldFrom = 551;
constexpr std::array<std::string_view, 4> kClientArea{"ClientHeight", "ClientLeft", "ClientTop",
                                                      "ClientWidth"};

// A property together with its own spelling, which outlives the line that it may come from.
struct Found {
  std::string name;
  PropertyInfo info;
  bool inTables = false;

  Found(const PropertyInfo& row, bool known) : name(row.name), info(row), inTables(known) {
    info.name = name;
  }
  Found(const Found& other) : Found(other.info, other.inTables) {}
  Found& operator=(const Found&) = delete;
};

bool isClientArea(std::string_view name) {
  return std::any_of(kClientArea.begin(), kClientArea.end(),
                     [&](std::string_view each) { return base::equalNoCase(each, name); });
}

bool isFont(std::string_view group) { return base::equalNoCase(group, "Font"); }

PropertyInfo inferred(const DesignerEntry& entry) {
  if (entry.kind == Kind::kProperty) return {entry.name, inferredType(entry.value)};
  return {entry.name, isFont(entry.name) ? PropertyType::kFont : PropertyType::kGroup};
}

// What an object of another library has from its form; a designer of another library has its name alone.
std::span<const PropertyInfo> foreignRows(const DesignerNode& node) {
  return node.parent() != nullptr ? foreignProperties() : findClass("Module")->properties;
}

// A control of another library that can be seen has its form's properties too, except where only a line
// tells.
bool offersForeign(const DesignerNode& node, const PropertyInfo& row) {
  return node.parent() != nullptr && Designer::hasTabIndex(node) && !row.alwaysWritten;
}

std::optional<Found> find(const DesignerNode& node, std::string_view name) {
  const DesignerEntry* entry = node.find(name);
  if (const ClassInfo* info = findClass(node.className())) {
    if (const PropertyInfo* row = findProperty(*info, name)) return Found(*row, true);
  } else {
    if (const PropertyInfo* row = findProperty(foreignRows(node), name)) return Found(*row, true);
    const PropertyInfo* row = findProperty(foreignVisibleProperties(), name);
    if (row != nullptr && (entry != nullptr || offersForeign(node, *row))) return Found(*row, true);
  }
  if (entry == nullptr) return std::nullopt;
  return Found(inferred(*entry), false);
}

Found require(const DesignerNode& node, std::string_view name) {
  if (auto found = find(node, name)) return *found;
  throw base::Error(base::errors::kUnknownProperty);
}

std::vector<std::string> namesOf(const DesignerNode& node) {
  std::vector<std::string> names;
  const auto add = [&](std::string_view name) { names.emplace_back(name); };
  if (const ClassInfo* info = findClass(node.className())) {
    for (const PropertyInfo& row : info->properties) add(row.name);
  } else {
    for (const PropertyInfo& row : foreignRows(node)) add(row.name);
    for (const PropertyInfo& row : foreignVisibleProperties())
      if (offersForeign(node, row)) add(row.name);
  }
  for (const DesignerEntry& entry : node.entries())
    if (!entry.name.empty()) add(entry.name);
  // The tables' spelling comes first among equals.
  std::stable_sort(names.begin(), names.end(), base::LessNoCase());
  const auto same = [](const std::string& a, const std::string& b) { return base::equalNoCase(a, b); };
  names.erase(std::unique(names.begin(), names.end(), same), names.end());
  return names;
}

// ---- groups: fonts and what other libraries keep

// The parts of a group, in file order; a font has all of its parts always.
std::vector<std::string> partNames(const DesignerNode* group, bool font) {
  std::vector<std::string> names;
  if (font)
    for (const PropertyInfo& part : fontParts()) names.emplace_back(part.name);
  if (group == nullptr) return names;
  for (const DesignerEntry& entry : group->entries()) {
    const auto same = [&](const std::string& name) { return base::equalNoCase(name, entry.name); };
    if (!entry.name.empty() && std::none_of(names.begin(), names.end(), same)) names.emplace_back(entry.name);
  }
  return names;
}

std::optional<Found> findPart(const DesignerNode* group, bool font, std::string_view name) {
  if (font) {
    for (const PropertyInfo& part : fontParts())
      if (base::equalNoCase(part.name, name)) return Found(part, true);
    if (base::equalNoCase(name, kBold)) return Found({kBold, PropertyType::kBoolean}, true);
  }
  const DesignerEntry* entry = group == nullptr ? nullptr : group->find(name);
  return entry == nullptr ? std::nullopt : std::optional<Found>(Found(inferred(*entry), false));
}

ObjectValue groupValue(const DesignerNode* group, std::string_view name);

Value partValue(const DesignerNode* group, const Found& part) {
  if (part.name == kBold && part.inTables) {
    const std::string_view weight = group == nullptr ? std::string_view() : group->value(kWeight);
    return base::toLong(weight, kRegularWeight) >= kBoldFrom;
  }
  const DesignerEntry* entry = group == nullptr ? nullptr : group->find(part.name);
  if (entry == nullptr) return defaultOf(part.info);
  if (entry->child != nullptr) return groupValue(entry->child.get(), entry->name);
  return valueOf(part.info, entry->value);
}

// A font's text is its name, as the language itself reads a font; other groups have none.
ObjectValue groupValue(const DesignerNode* group, std::string_view name) {
  const bool font = isFont(name);
  ObjectValue value{std::string(name), {}, {}};
  for (const std::string& each : partNames(group, font)) {
    const std::optional<Found> part = findPart(group, font, each);
    const Value inside = partValue(group, *part);
    // Groups in groups are reached through Object() alone.
    value.parts.emplace_back(part->name, std::holds_alternative<ObjectValue>(inside)
                                             ? std::get<ObjectValue>(inside).text
                                             : frame::toText(inside));
  }
  if (font) value.text = value.parts.front().second;
  return value;
}

// Walks down from an object to the group of a path, which may not be in the file yet.
DesignerNode* groupAt(const DesignerNode& object, const std::vector<std::string>& path) {
  DesignerNode* group = nullptr;
  for (const std::string& name : path) {
    group = (group == nullptr ? object : *group).group(name);
    if (group == nullptr) return nullptr;
  }
  return group;
}

DesignerNode& ensureGroup(DesignerTree& tree, DesignerNode& object, const std::vector<std::string>& path) {
  if (DesignerNode* group = groupAt(object, path)) return *group;
  // Only a font is offered without being in the file.
  DesignerNode& font = tree.addGroup(object, path.front());
  for (const PropertyInfo& part : fontParts())
    tree.appendValue(font, part.name, fileText(part, defaultOf(part)));
  return font;
}

void writePart(DesignerTree& tree, DesignerNode& group, const PropertyInfo& part, const Value& value) {
  if (group.find(part.name) != nullptr)
    tree.setValue(group, part.name, fileText(part, value));
  else
    tree.appendValue(group, part.name, fileText(part, value));
}

// True when it has changed something.
bool setPart(Designer& designer, DesignerNode& object, const std::vector<std::string>& path,
             const Found& part, const Value& value) {
  DesignerNode* const group = groupAt(object, path);
  const Value old = partValue(group, part);
  if (old == value) return false;
  const Value wanted = converted(part.info, value);
  if (sameValue(part.info, old, wanted)) return false;
  if (std::holds_alternative<ObjectValue>(wanted)) throw base::Error(base::errors::kTypeMismatch);
  DesignerTree& tree = designer.tree();
  DesignerNode& target = ensureGroup(tree, object, path);
  if (part.name == kBold && part.inTables) {
    writePart(tree, target, findPart(group, true, kWeight)->info,
              std::get<bool>(wanted) ? kBoldWeight : kRegularWeight);
  } else {
    writePart(tree, target, part.info, wanted);
  }
  return true;
}

bool setFont(Designer& designer, DesignerNode& object, const std::string& name, const Value& value) {
  const std::vector<std::string> path{name};
  const auto set = [&](std::string_view part, const std::string& text) {
    const std::optional<Found> found = findPart(groupAt(object, path), true, part);
    if (!found) throw base::Error(base::errors::kUnknownProperty);
    return setPart(designer, object, path, *found, text);
  };
  if (const std::string* text = std::get_if<std::string>(&value)) return set("Name", *text);
  const ObjectValue* font = std::get_if<ObjectValue>(&value);
  if (font == nullptr || !isFont(font->kind)) throw base::Error(base::errors::kTypeMismatch);
  // All parts are checked before the first is written.
  for (const auto& [part, text] : font->parts) {
    const std::optional<Found> found = findPart(groupAt(object, path), true, part);
    if (!found) throw base::Error(base::errors::kUnknownProperty);
    converted(found->info, text);
  }
  bool changed = false;
  for (const auto& [part, text] : font->parts) changed = set(part, text) || changed;
  return changed;
}

// ---- plain properties

Value get(Designer& designer, const DesignerNode& node, const Found& property) {
  const PropertyInfo& info = property.info;
  if (property.inTables && info.name == "Name") {
    if (node.parent() != nullptr) return std::string(node.name());
    return designer.header().attribute("VB_Name").value_or(std::string(node.name()));
  }
  const DesignerEntry* entry = node.find(info.name);
  if (entry == nullptr) {
    if (info.type == PropertyType::kFont) return groupValue(nullptr, info.name);
    if (const auto reckoned = reckonedGeometry(node, info.name)) return *reckoned;
    return defaultOf(info);
  }
  if (entry->child != nullptr) return groupValue(entry->child.get(), entry->name);
  return valueOf(info, entry->value);
}

bool isDefault(const Found& property, const Value& value) {
  if (!property.inTables) return false;
  if (const ObjectValue* object = std::get_if<ObjectValue>(&value)) return object->text.empty();
  return sameValue(property.info, value, defaultOf(property.info));
}

void write(DesignerTree& tree, DesignerNode& node, const Found& property, const Value& value) {
  const bool object = std::holds_alternative<ObjectValue>(value);
  const bool always = property.info.alwaysWritten || writtenWhenFlat(node, property.info);
  if (object || (isDefault(property, value) && !always))
    tree.erase(node, property.name);
  else
    tree.setValue(node, property.name, fileText(property.info, value));
}

bool setPlain(Designer& designer, DesignerNode& node, const Found& property, const Value& value) {
  const Value old = get(designer, node, property);
  if (old == value) return false;
  // A text in the place of an object stands for the object that it came from.
  const ObjectValue* oldObject = std::get_if<ObjectValue>(&old);
  const std::string* text = std::get_if<std::string>(&value);
  if (oldObject != nullptr && text != nullptr && oldObject->text == *text) return false;
  if (property.info.type == PropertyType::kGroup) throw base::Error(base::errors::kTypeMismatch);
  const Value wanted = converted(property.info, value);
  if (sameValue(property.info, old, wanted)) return false;
  DesignerTree& tree = designer.tree();
  if (!reckonedGeometry(node, property.name)) write(tree, node, property, wanted);
  followChange(tree, node, property.info, old, wanted);
  return true;
}

void set(Designer& designer, DesignerNode& node, const Found& property, const Value& value) {
  const bool root = node.parent() == nullptr;
  if (root && isClientArea(property.name)) throw base::Error(base::errors::kReadOnlyProperty);
  designer.requireEditable();
  const bool common = property.inTables && (!root || property.name == "Name");
  if (common && property.name == "Name") {
    const Value name = converted(property.info, value);
    return designer.setName(node, std::get<std::string>(name));
  }
  if (common && (property.name == "Index" || property.name == "TabIndex")) {
    const Value number = converted(property.info, value);
    return property.name == "Index" ? designer.setIndex(node, std::get<long>(number))
                                    : designer.setTabIndex(node, std::get<long>(number));
  }
  const bool changed = property.info.type == PropertyType::kFont
                           ? setFont(designer, node, property.name, value)
                           : setPlain(designer, node, property, value);
  if (changed) designer.tellEdited();
}

// ---- the objects that are handed out

// Items by index out of a list of names. An unknown name raises 438, an unknown index 9.
class NamedProperties : public frame::Properties {
 public:
  int Count() override { return static_cast<int>(current().size()); }
  std::shared_ptr<Property> Item(int index) override {
    const std::vector<std::string>& names = current();
    if (index < 1 || static_cast<std::size_t>(index) > names.size())
      throw base::Error(base::errors::kSubscript);
    return Item(std::string_view(names[static_cast<std::size_t>(index) - 1]));
  }
  using frame::Properties::Item;

 protected:
  virtual std::vector<std::string> names() = 0;
  // Grows when the names may have changed. Raises 91 when their object has gone.
  virtual std::uint64_t version() = 0;

 private:
  // Kept until something changes, so that going through all of them sorts once.
  const std::vector<std::string>& current() {
    if (const std::uint64_t now = version(); names_.empty() || now != version_) {
      names_ = names();
      version_ = now;
    }
    return names_;
  }

  std::vector<std::string> names_;
  std::uint64_t version_ = 0;
};

std::uint64_t treeVersion(const ControlObject& object) {
  object.node();
  return object.designer().tree().edits();
}

std::shared_ptr<frame::Properties> partsOf(std::shared_ptr<ControlObject> object,
                                           std::vector<std::string> path);

class PartProperty final : public Property {
 public:
  PartProperty(std::shared_ptr<ControlObject> object, std::vector<std::string> path, std::string name)
      : object_(std::move(object)), path_(std::move(path)), name_(std::move(name)) {}

  std::string Name() override { return found().name; }
  Value value() override { return partValue(groupAt(object_->node(), path_), found()); }
  void setValue(const Value& value) override {
    const Found part = found();
    object_->designer().requireEditable();
    if (setPart(object_->designer(), object_->node(), path_, part, value)) object_->designer().tellEdited();
  }
  std::shared_ptr<frame::Collection<Property>> Object() override {
    const DesignerNode* group = groupAt(object_->node(), path_);
    if (group == nullptr || group->group(name_) == nullptr) return nullptr;
    std::vector<std::string> inner = path_;
    inner.push_back(name_);
    return partsOf(object_, std::move(inner));
  }

  // Raises 438 when the group has no such part.
  Found found() const {
    const bool font = isFont(path_.back());
    if (auto part = findPart(groupAt(object_->node(), path_), font, name_)) return *part;
    throw base::Error(base::errors::kUnknownProperty);
  }

 private:
  std::shared_ptr<ControlObject> object_;
  std::vector<std::string> path_;
  std::string name_;
};

class GroupParts final : public NamedProperties {
 public:
  GroupParts(std::shared_ptr<ControlObject> object, std::vector<std::string> path)
      : object_(std::move(object)), path_(std::move(path)) {}

  using NamedProperties::Item;
  std::shared_ptr<Property> Item(std::string_view name) override {
    auto part = std::make_shared<PartProperty>(object_, path_, std::string(name));
    part->found();
    return part;
  }

 private:
  std::vector<std::string> names() override {
    return partNames(groupAt(object_->node(), path_), isFont(path_.back()));
  }
  std::uint64_t version() override { return treeVersion(*object_); }

  std::shared_ptr<ControlObject> object_;
  std::vector<std::string> path_;
};

std::shared_ptr<frame::Properties> partsOf(std::shared_ptr<ControlObject> object,
                                           std::vector<std::string> path) {
  return std::make_shared<GroupParts>(std::move(object), std::move(path));
}

class ObjectProperty final : public Property {
 public:
  ObjectProperty(std::shared_ptr<ControlObject> object, std::string name)
      : object_(std::move(object)), name_(std::move(name)) {}

  std::string Name() override { return require(object_->node(), name_).name; }
  Value value() override {
    const DesignerNode& node = object_->node();
    return get(object_->designer(), node, require(node, name_));
  }
  void setValue(const Value& value) override {
    DesignerNode& node = object_->node();
    set(object_->designer(), node, require(node, name_), value);
  }
  std::shared_ptr<frame::Collection<Property>> Object() override {
    const DesignerNode& node = object_->node();
    const Found property = require(node, name_);
    if (property.info.type != PropertyType::kFont && node.group(name_) == nullptr) return nullptr;
    return partsOf(object_, {property.name});
  }

 private:
  std::shared_ptr<ControlObject> object_;
  std::string name_;
};

class ObjectProperties final : public NamedProperties {
 public:
  explicit ObjectProperties(std::shared_ptr<ControlObject> object) : object_(std::move(object)) {}

  using NamedProperties::Item;
  std::shared_ptr<Property> Item(std::string_view name) override {
    return std::make_shared<ObjectProperty>(object_, require(object_->node(), name).name);
  }

 private:
  std::vector<std::string> names() override { return namesOf(object_->node()); }
  std::uint64_t version() override { return treeVersion(*object_); }

  std::shared_ptr<ControlObject> object_;
};

// ---- modules and classes

// Instancing as the four marks of a class's file say it, by its number less 1.
struct Instancing {
  bool multiUse, global, creatable, exposed;
};
constexpr std::array<Instancing, 6> kInstancing{{{true, false, true, false},
                                                 {true, false, false, true},
                                                 {false, false, true, true},
                                                 {false, true, true, true},
                                                 {true, false, true, true},
                                                 {true, true, true, true}}};
constexpr std::array<std::string_view, 3> kMarks{"VB_GlobalNameSpace", "VB_Creatable", "VB_Exposed"};

bool mark(const ComponentHeader& header, std::string_view name) {
  return base::toBool(header.attribute(name).value_or("False"));
}

long instancingOf(const ComponentHeader& header) {
  const bool multiUse = header.classSetting("MultiUse").value_or(-1) != 0;
  if (!mark(header, "VB_Exposed")) return 1;
  if (!mark(header, "VB_Creatable")) return 2;
  const bool global = mark(header, "VB_GlobalNameSpace");
  return multiUse ? (global ? 6 : 5) : (global ? 4 : 3);
}

void setInstancing(ComponentHeader& header, long instancing) {
  if (instancing < 1 || instancing > static_cast<long>(kInstancing.size()))
    throw base::Error(errors::kInvalidPropertyValue, "Invalid property value");
  const Instancing& marks = kInstancing[static_cast<std::size_t>(instancing) - 1];
  header.setClassSetting("MultiUse", marks.multiUse ? -1 : 0, base::boolText(marks.multiUse));
  const std::array<bool, 3> values{marks.global, marks.creatable, marks.exposed};
  for (std::size_t i = 0; i < kMarks.size(); ++i)
    header.setAttribute(kMarks[i], base::boolText(values[i]), false);
}

class ModuleProperty final : public Property {
 public:
  ModuleProperty(std::shared_ptr<Designer> designer, const PropertyInfo& info)
      : designer_(std::move(designer)), info_(info) {}

  std::string Name() override {
    designer_->header();
    return std::string(info_.name);
  }

  Value value() override {
    const ComponentHeader& header = designer_->header();
    if (info_.name == "Name") return header.attribute("VB_Name").value_or("");
    if (info_.name == "Instancing") return instancingOf(header);
    return header.classSetting(info_.name).value_or(0);
  }

  void setValue(const Value& value) override {
    ComponentHeader& header = designer_->header();
    designer_->requireEditable();
    const Value wanted = converted(info_, value);
    if (wanted == this->value()) return;
    if (info_.name == "Name") {
      if (!designer_->callbacks().rename) throw base::Error(base::errors::kReadOnlyProperty);
      return designer_->callbacks().rename(std::get<std::string>(wanted));
    }
    const long number = std::get<long>(wanted);
    if (info_.name == "Instancing") {
      setInstancing(header, number);
    } else {
      const std::string_view name = valueName(info_, number);
      if (name.empty()) throw base::Error(errors::kInvalidPropertyValue, "Invalid property value");
      header.setClassSetting(info_.name, number, name);
    }
    designer_->tellEdited();
  }

  std::shared_ptr<frame::Collection<Property>> Object() override { return nullptr; }

 private:
  std::shared_ptr<Designer> designer_;
  const PropertyInfo& info_;  // a row of the class tables
};

class ModuleProperties final : public NamedProperties {
 public:
  explicit ModuleProperties(std::shared_ptr<Designer> designer) : designer_(std::move(designer)) {}

  using NamedProperties::Item;
  std::shared_ptr<Property> Item(std::string_view name) override {
    const PropertyInfo* row = findProperty(info(), name);
    if (row == nullptr) throw base::Error(base::errors::kUnknownProperty);
    return std::make_shared<ModuleProperty>(designer_, *row);
  }

 private:
  const ClassInfo& info() const {
    const ComponentHeader& header = designer_->header();
    const std::shared_ptr<frame::VBComponent> parent = designer_->parent();
    const bool isClass = parent != nullptr ? parent->Type() == frame::ComponentType::kClassModule
                                           : header.classSetting("MultiUse").has_value();
    return *findClass(isClass ? "Class" : "Module");
  }

  std::vector<std::string> names() override {
    std::vector<std::string> names;
    for (const PropertyInfo& row : info().properties) names.emplace_back(row.name);
    return names;
  }
  std::uint64_t version() override {
    designer_->header();
    return 0;
  }

  std::shared_ptr<Designer> designer_;
};

}  // namespace

std::shared_ptr<frame::Properties> propertiesOf(std::shared_ptr<ControlObject> object) {
  return std::make_shared<ObjectProperties>(std::move(object));
}

std::shared_ptr<frame::Properties> modulePropertiesOf(std::shared_ptr<Designer> designer) {
  return std::make_shared<ModuleProperties>(std::move(designer));
}

}  // namespace kolvane::workspace
