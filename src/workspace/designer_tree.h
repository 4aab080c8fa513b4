// The objects of a designer as its file describes them: a tree of objects, property lines and property groups
// over the file's own bytes. What is not edited is written back byte for byte; an edit rewrites the lines
// that it means, in the layout of the lines around them.
//
// The tree knows nothing of classes and defaults: it holds names and value texts as the file spells them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "workspace/header_lines.h"

namespace kolvane::workspace {

class DesignerNode;

// One line of an object or group, or a whole object or group inside it, in file order.
struct DesignerEntry {
  enum class Kind { kProperty, kGroup, kObject, kOther };
  Kind kind = Kind::kOther;
  SourceLine line;         // of a property or an unknown line; empty for groups and objects
  std::string_view name;   // of a property or group; empty otherwise
  std::string_view value;  // of a property: the text behind "=", with the comment behind it
  std::unique_ptr<DesignerNode> child;
};

// An object (`Begin Class Name` … `End`) or a group of properties (`BeginProperty Name` … `EndProperty`).
class DesignerNode {
 public:
  ~DesignerNode();

  bool isGroup() const { return group_; }
  std::string_view className() const { return className_; }  // "VB.TextBox", "{guid}"; empty for a group
  std::string_view name() const { return name_; }
  DesignerNode* parent() const { return parent_; }
  int depth() const { return depth_; }  // 1 for the root

  const std::vector<DesignerEntry>& entries() const { return entries_; }
  // The first property or group of the name, which compares without case; null when there is none.
  const DesignerEntry* find(std::string_view property) const;
  // The text behind "=" of the first property of the name; empty when there is none.
  std::string_view value(std::string_view property) const;
  // The group of the name, or null.
  DesignerNode* group(std::string_view name) const;
  // The objects directly inside this one, in file order.
  std::vector<DesignerNode*> children() const;

 private:
  friend class DesignerTree;
  DesignerNode() = default;

  bool group_ = false;
  int depth_ = 1;
  DesignerNode* parent_ = nullptr;
  SourceLine begin_;
  SourceLine end_;
  std::string_view className_;
  std::string_view name_;
  std::vector<DesignerEntry> entries_;
};

class DesignerTree {
 public:
  // A tree without any object, of bytes that cannot be trusted; there is nothing in it to edit.
  explicit DesignerTree(std::string_view bytes);
  // `bytes` holds one object from its Begin to its End, correctly nested and at most kMaxNesting deep; it
  // must outlive the tree. Anything else gives the tree without objects. New lines end as `lineEnd` says.
  DesignerTree(std::string_view bytes, std::string_view lineEnd);
  ~DesignerTree();

  DesignerNode* root() const { return root_.get(); }
  // All objects below the root, of all levels, in file order. Valid until an object comes or goes.
  const std::vector<DesignerNode*>& objects() const;
  // The objects of a name in file order; names compare without case.
  const std::vector<DesignerNode*>& objectsNamed(std::string_view name) const;

  // Rewrites the value of the first property of the name, or adds the property where the alphabet has it.
  // `value` is the text behind "=", comment included.
  void setValue(DesignerNode& node, std::string_view property, std::string_view value);
  // Takes the first line of the property away; nothing happens when there is none.
  void erase(DesignerNode& node, std::string_view property);
  // Adds an empty group where the alphabet has it.
  DesignerNode& addGroup(DesignerNode& node, std::string_view name);
  // Adds a line at the end of a group, whatever the alphabet says.
  void appendValue(DesignerNode& group, std::string_view property, std::string_view value);
  void rename(DesignerNode& node, std::string_view name);
  // Adds an object behind the properties, in front of all objects that the parent holds or behind them. An
  // object that would nest deeper than a file's may raises 321.
  enum class Place { kFirst, kLast };
  DesignerNode& addObject(DesignerNode& parent, std::string_view className, std::string_view name,
                          Place place);
  // Puts an object in front of another one of the same parent, or behind all of them. Not for the root.
  void moveObject(DesignerNode& node, const DesignerNode* before);
  // Takes an object out with all that it holds. Not for the root.
  void remove(DesignerNode& node);

  void appendBytes(std::string& out) const;
  // True once a byte was changed.
  bool edited() const { return edits_ > 0; }
  // Grows with every edit; equal numbers mean an equal tree.
  std::uint64_t edits() const { return edits_; }

 private:
  void parse(std::string_view bytes);
  void touch(bool objectsChanged);
  void index() const;
  std::string indentInside(const DesignerNode& node) const;
  std::string propertyLine(const DesignerNode& node, std::string_view property, std::string_view value) const;
  DesignerEntry& insert(DesignerNode& node, std::size_t at, DesignerEntry entry);

  std::string_view bytes_;
  std::string lineEnd_;
  std::unique_ptr<DesignerNode> root_;
  std::uint64_t edits_ = 0;
  mutable bool indexed_ = false;
  mutable std::vector<DesignerNode*> objects_;
  mutable std::map<std::string_view, std::vector<DesignerNode*>, base::LessNoCase> byName_;
};

}  // namespace kolvane::workspace
