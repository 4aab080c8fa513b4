// TreeView: nodes with keys.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

class TreeView;

// Lives until it or one of its parents is removed, or the tree is cleared.
class TreeNode {
 public:
  using List = std::vector<std::unique_ptr<TreeNode>>;

  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;

  const std::string& key() const { return key_; }
  const std::string& text() const { return text_; }
  void setText(std::string_view text);
  const std::string& tag() const { return tag_; }
  void setTag(std::string_view tag) { tag_ = tag; }
  const std::string& image() const { return image_; }
  void setImage(std::string_view key);
  bool checked() const { return checked_; }
  void setChecked(bool checked);  // without an event
  bool expanded() const { return expanded_; }
  void setExpanded(bool expanded);  // raises Expand or Collapse when it differs and there are children

  TreeNode* parent() const { return parent_; }
  const List& children() const { return children_; }
  TreeNode* child() const { return children_.empty() ? nullptr : children_.front().get(); }
  TreeNode* next() const;  // siblings, nullptr at the ends; cost: the number of siblings
  TreeNode* previous() const;
  // The texts from the root to here, with "\" between them.
  std::string fullPath() const;

 private:
  friend class TreeView;
  explicit TreeNode(TreeView& owner) : owner_(owner) {}

  TreeView& owner_;
  TreeNode* parent_ = nullptr;
  List children_;
  std::string key_;
  std::string text_;
  std::string tag_;
  std::string image_;
  bool checked_ = false;
  bool expanded_ = false;
};

class TreeView final : public Control {
 public:
  enum class Side { kBefore, kAfter };

  TreeView(Form& form, std::string_view name);

  // A key that is taken raises 35602; an empty one is no key.
  TreeNode& addRoot(std::string_view key, std::string_view text, std::string_view image = {});
  TreeNode& add(TreeNode& parent, std::string_view key, std::string_view text, std::string_view image = {});
  TreeNode& addBeside(TreeNode& sibling, Side side, std::string_view key, std::string_view text,
                      std::string_view image = {});
  // With all below it. The selection goes to nothing when it was there.
  void remove(TreeNode& node);
  void clear();

  const TreeNode::List& roots() const { return roots_; }
  // All nodes, each before its children.
  std::vector<TreeNode*> nodes() const;
  int count() const { return count_; }
  TreeNode* find(std::string_view key) const;  // nullptr without one
  TreeNode& node(std::string_view key) const;  // raises 35601 without one
  // Children of `parent`, or the roots, by text; equal ones keep their order.
  void sortChildren(TreeNode* parent);

  TreeNode* selectedNode() const { return selected_; }
  void select(TreeNode* node);  // without an event
  bool checkBoxes() const { return checkBoxes_; }
  void setCheckBoxes(bool boxes);

  std::function<void(TreeNode& node)> onNodeClick;
  std::function<void(TreeNode& node)> onNodeCheck;
  std::function<void(TreeNode& node)> onExpand;
  std::function<void(TreeNode& node)> onCollapse;

 protected:
  void describe(ControlState& state) const override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  Deed takeItem(std::string_view text) override;
  Deed takeCheck(const Spot& spot, bool value) override;
  Deed takeClick(const Spot& spot) override;
  Deed takeDoubleClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;

 private:
  friend class TreeNode;

  TreeNode& put(TreeNode* parent, std::size_t position, std::string_view key, std::string_view text,
                std::string_view image);
  void forget(const TreeNode& node);
  TreeNode* aimedAt(const Spot& spot) const;
  std::vector<TreeNode*> shownNodes() const;
  TreeNode::List& siblings(const TreeNode& node);
  void choose(TreeNode& node);
  void tick(TreeNode& node, bool value);

  TreeNode::List roots_;
  std::unordered_map<std::string, TreeNode*> byKey_;
  TreeNode* selected_ = nullptr;
  int count_ = 0;
  bool checkBoxes_ = false;
};

}  // namespace kolvane::forms
