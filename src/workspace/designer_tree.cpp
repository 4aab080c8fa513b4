#include "workspace/designer_tree.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "workspace/component_source.h"

namespace kolvane::workspace {
namespace {

using Kind = DesignerEntry::Kind;

constexpr std::size_t kNameWidth = 16;
constexpr std::string_view kLevel = "   ";

void readProperty(DesignerEntry& entry) {
  const Assignment property = assignmentOf(entry.line.text());
  entry.kind = property.name.empty() ? Kind::kOther : Kind::kProperty;
  entry.name = property.name;
  entry.value = property.value;
}

bool isOneOf(const DesignerEntry& entry, Kind a, Kind b) { return entry.kind == a || entry.kind == b; }

bool isNamed(const DesignerEntry& entry, std::string_view name) {
  return isOneOf(entry, Kind::kProperty, Kind::kGroup) && base::equalNoCase(entry.name, name);
}

std::string_view indentOf(std::string_view line) {
  return line.substr(0, line.size() - trimLeft(line).size());
}

// Where a new property goes. A group that stands last against the alphabet (a form's font) stays last.
std::size_t placeFor(const std::vector<DesignerEntry>& entries, std::string_view property) {
  std::size_t behindLast = 0;
  std::string_view nameBefore;
  std::size_t trailingGroup = entries.size();
  for (std::size_t i = 0; i < entries.size() && entries[i].kind != Kind::kObject; ++i) {
    if (!isOneOf(entries[i], Kind::kProperty, Kind::kGroup)) continue;
    if (base::LessNoCase()(property, entries[i].name)) return i;
    const bool outOfOrder = base::LessNoCase()(entries[i].name, nameBefore);
    trailingGroup = entries[i].kind == Kind::kGroup && outOfOrder ? i : entries.size();
    nameBefore = entries[i].name;
    behindLast = i + 1;
  }
  return std::min(behindLast, trailingGroup);
}

}  // namespace

// ---- nodes

DesignerNode::~DesignerNode() = default;

const DesignerEntry* DesignerNode::find(std::string_view property) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const DesignerEntry& entry) { return isNamed(entry, property); });
  return found == entries_.end() ? nullptr : &*found;
}

std::string_view DesignerNode::value(std::string_view property) const {
  const DesignerEntry* entry = find(property);
  return entry == nullptr ? std::string_view() : entry->value;
}

DesignerNode* DesignerNode::group(std::string_view name) const {
  for (const DesignerEntry& entry : entries_)
    if (entry.kind == Kind::kGroup && base::equalNoCase(entry.name, name)) return entry.child.get();
  return nullptr;
}

std::vector<DesignerNode*> DesignerNode::children() const {
  std::vector<DesignerNode*> objects;
  for (const DesignerEntry& entry : entries_)
    if (entry.kind == Kind::kObject) objects.push_back(entry.child.get());
  return objects;
}

// ---- reading

DesignerTree::DesignerTree(std::string_view bytes) : bytes_(bytes) {}

DesignerTree::DesignerTree(std::string_view bytes, std::string_view lineEnd)
    : bytes_(bytes), lineEnd_(lineEnd) {
  parse(bytes);
}

DesignerTree::~DesignerTree() = default;

void DesignerTree::parse(std::string_view bytes) {
  LineReader reader(bytes);
  std::string_view whole;
  std::unique_ptr<DesignerNode> root;
  DesignerNode* open = nullptr;
  bool closed = false;
  while (reader.next(whole)) {
    const std::string_view text = withoutLineEnd(whole);
    const Bracket bracket = bracketOf(text);
    if (bracket == Bracket::kBegin || bracket == Bracket::kBeginGroup) {
      std::unique_ptr<DesignerNode> node(new DesignerNode);
      node->group_ = bracket == Bracket::kBeginGroup;
      node->begin_ = SourceLine(whole);
      node->parent_ = open;
      node->depth_ = open == nullptr ? 1 : open->depth_ + 1;
      if (closed || node->depth_ > kMaxNesting || (open != nullptr && open->group_ && !node->group_)) return;
      std::string_view words = text;
      takeWord(words);
      if (!node->group_) node->className_ = takeWord(words);
      node->name_ = takeWord(words);
      DesignerNode* const opened = node.get();
      if (open == nullptr) {
        root = std::move(node);
      } else {
        DesignerEntry entry;
        entry.kind = opened->group_ ? Kind::kGroup : Kind::kObject;
        if (opened->group_) entry.name = opened->name_;
        entry.child = std::move(node);
        open->entries_.push_back(std::move(entry));
      }
      open = opened;
    } else if (open == nullptr) {
      return;
    } else if (bracket == Bracket::kNone) {
      DesignerEntry entry;
      entry.line = SourceLine(whole);
      readProperty(entry);
      open->entries_.push_back(std::move(entry));
    } else {
      if (open->group_ != (bracket == Bracket::kEndGroup)) return;
      open->end_ = SourceLine(whole);
      open = open->parent_;
      closed = open == nullptr;
    }
  }
  if (closed) root_ = std::move(root);
}

void DesignerTree::index() const {
  if (indexed_) return;
  objects_.clear();
  byName_.clear();
  std::vector<std::pair<const DesignerNode*, std::size_t>> stack;
  if (root_ != nullptr) stack.emplace_back(root_.get(), 0);
  while (!stack.empty()) {
    auto& [node, next] = stack.back();
    while (next < node->entries_.size() && node->entries_[next].kind != Kind::kObject) ++next;
    if (next == node->entries_.size()) {
      stack.pop_back();
      continue;
    }
    DesignerNode* const object = node->entries_[next++].child.get();
    objects_.push_back(object);
    byName_[object->name_].push_back(object);
    stack.emplace_back(object, 0);
  }
  indexed_ = true;
}

const std::vector<DesignerNode*>& DesignerTree::objects() const {
  index();
  return objects_;
}

const std::vector<DesignerNode*>& DesignerTree::objectsNamed(std::string_view name) const {
  static const std::vector<DesignerNode*> kNone;
  index();
  const auto found = byName_.find(name);
  return found == byName_.end() ? kNone : found->second;
}

void DesignerTree::appendBytes(std::string& out) const {
  if (root_ == nullptr || !edited()) {
    out.append(bytes_);
    return;
  }
  std::vector<std::pair<const DesignerNode*, std::size_t>> stack{{root_.get(), 0}};
  out.append(root_->begin_.whole());
  while (!stack.empty()) {
    auto& [node, next] = stack.back();
    if (next == node->entries_.size()) {
      out.append(node->end_.whole());
      stack.pop_back();
      continue;
    }
    const DesignerEntry& entry = node->entries_[next++];
    out.append(entry.child != nullptr ? entry.child->begin_.whole() : entry.line.whole());
    if (entry.child != nullptr) stack.emplace_back(entry.child.get(), 0);
  }
}

// ---- editing

void DesignerTree::touch(bool objectsChanged) {
  ++edits_;
  if (objectsChanged) indexed_ = false;
}

std::string DesignerTree::indentInside(const DesignerNode& node) const {
  for (const DesignerEntry& entry : node.entries_)
    if (entry.kind != Kind::kOther)
      return std::string(indentOf(entry.child != nullptr ? entry.child->begin_.text() : entry.line.text()));
  return std::string(indentOf(node.begin_.text())).append(kLevel);
}

std::string DesignerTree::propertyLine(const DesignerNode& node, std::string_view property,
                                       std::string_view value) const {
  std::string line = indentInside(node);
  line.append(property);
  if (property.size() < kNameWidth) line.append(kNameWidth - property.size(), ' ');
  return line.append("=").append(kLevel).append(value);
}

DesignerEntry& DesignerTree::insert(DesignerNode& node, std::size_t at, DesignerEntry entry) {
  const auto place = node.entries_.begin() + static_cast<std::ptrdiff_t>(at);
  return *node.entries_.insert(place, std::move(entry));
}

void DesignerTree::setValue(DesignerNode& node, std::string_view property, std::string_view value) {
  for (DesignerEntry& entry : node.entries_) {
    if (entry.kind != Kind::kProperty || !base::equalNoCase(entry.name, property)) continue;
    if (entry.value == value) return;
    const std::string_view text = entry.line.text();
    const auto before = static_cast<std::size_t>(entry.value.data() - text.data());
    entry.line.setText(std::string(text.substr(0, before)).append(value));
    readProperty(entry);
    touch(false);
    return;
  }
  DesignerEntry entry;
  entry.line = SourceLine(propertyLine(node, property, value), lineEnd_);
  readProperty(entry);
  insert(node, placeFor(node.entries_, property), std::move(entry));
  touch(false);
}

void DesignerTree::appendValue(DesignerNode& group, std::string_view property, std::string_view value) {
  DesignerEntry entry;
  entry.line = SourceLine(propertyLine(group, property, value), lineEnd_);
  readProperty(entry);
  group.entries_.push_back(std::move(entry));
  touch(false);
}

void DesignerTree::erase(DesignerNode& node, std::string_view property) {
  const auto found =
      std::find_if(node.entries_.begin(), node.entries_.end(), [&](const DesignerEntry& entry) {
        return entry.kind == Kind::kProperty && base::equalNoCase(entry.name, property);
      });
  if (found == node.entries_.end()) return;
  node.entries_.erase(found);
  touch(false);
}

DesignerNode& DesignerTree::addGroup(DesignerNode& node, std::string_view name) {
  const std::string indent = indentInside(node);
  DesignerEntry entry;
  entry.kind = Kind::kGroup;
  entry.child.reset(new DesignerNode);
  DesignerNode& group = *entry.child;
  group.group_ = true;
  group.parent_ = &node;
  group.depth_ = node.depth_ + 1;
  group.begin_ = SourceLine(indent + "BeginProperty " + std::string(name) + " ", lineEnd_);
  group.end_ = SourceLine(indent + "EndProperty", lineEnd_);
  std::string_view words = group.begin_.text();
  takeWord(words);
  entry.name = group.name_ = takeWord(words);
  insert(node, placeFor(node.entries_, name), std::move(entry));
  touch(false);
  return group;
}

void DesignerTree::rename(DesignerNode& node, std::string_view name) {
  if (node.name_ == name) return;
  const std::string_view text = node.begin_.text();
  const bool unnamed = node.name_.empty();
  const std::size_t at =
      unnamed ? trimRight(text).size() : static_cast<std::size_t>(node.name_.data() - text.data());
  std::string renamed(text.substr(0, at));
  if (unnamed) renamed.append(" ");
  renamed.append(name).append(unnamed ? " " : text.substr(at + node.name_.size()));
  node.begin_.setText(renamed);
  std::string_view words = node.begin_.text();
  takeWord(words);
  node.className_ = takeWord(words);
  node.name_ = takeWord(words);
  touch(true);
}

DesignerNode& DesignerTree::addObject(DesignerNode& parent, std::string_view className, std::string_view name,
                                      Place place) {
  if (parent.depth_ >= kMaxNesting)
    throw base::Error(base::errors::kInvalidFormat, "Objects of a form cannot nest this deep");
  const std::string indent = indentInside(parent);
  DesignerEntry entry;
  entry.kind = Kind::kObject;
  entry.child.reset(new DesignerNode);
  DesignerNode& object = *entry.child;
  object.parent_ = &parent;
  object.depth_ = parent.depth_ + 1;
  object.begin_ =
      SourceLine(indent + "Begin " + std::string(className) + " " + std::string(name) + " ", lineEnd_);
  object.end_ = SourceLine(indent + "End", lineEnd_);
  std::string_view words = object.begin_.text();
  takeWord(words);
  object.className_ = takeWord(words);
  object.name_ = takeWord(words);
  std::size_t at = parent.entries_.size();
  if (place == Place::kFirst) {
    const auto first = std::find_if(parent.entries_.begin(), parent.entries_.end(),
                                    [](const DesignerEntry& each) { return each.kind == Kind::kObject; });
    at = static_cast<std::size_t>(first - parent.entries_.begin());
  }
  insert(parent, at, std::move(entry));
  touch(true);
  return object;
}

void DesignerTree::moveObject(DesignerNode& node, const DesignerNode* before) {
  if (&node == before) return;
  std::vector<DesignerEntry>& siblings = node.parent_->entries_;
  const auto find = [&](const DesignerNode* wanted) {
    return std::find_if(siblings.begin(), siblings.end(),
                        [&](const DesignerEntry& entry) { return entry.child.get() == wanted; });
  };
  const auto from = find(&node);
  const auto to = before != nullptr ? find(before) : siblings.end();
  if (from < to)
    std::rotate(from, from + 1, to);
  else
    std::rotate(to, from, from + 1);
  touch(true);
}

void DesignerTree::remove(DesignerNode& node) {
  std::vector<DesignerEntry>& siblings = node.parent_->entries_;
  std::erase_if(siblings, [&](const DesignerEntry& entry) { return entry.child.get() == &node; });
  touch(true);
}

}  // namespace kolvane::workspace
