#include "forms/tree_view.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/list_keys.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

namespace {

std::ptrdiff_t positionOf(const TreeNode& node, const TreeNode::List& list) {
  return std::find_if(list.begin(), list.end(), [&](const auto& other) { return other.get() == &node; }) -
         list.begin();
}

void collect(const TreeNode::List& list, bool expandedOnly, std::vector<TreeNode*>& into) {
  for (const auto& node : list) {
    into.push_back(node.get());
    if (!expandedOnly || node->expanded()) collect(node->children(), expandedOnly, into);
  }
}

}  // namespace

// TreeNode

void TreeNode::setText(std::string_view text) {
  text_ = text;
  owner_.touched(Aspect::kContent);
}

void TreeNode::setImage(std::string_view key) {
  image_ = key;
  owner_.touched(Aspect::kContent);
}

void TreeNode::setChecked(bool checked) {
  checked_ = checked;
  owner_.touched(Aspect::kSelection);
}

void TreeNode::setExpanded(bool expanded) {
  if (expanded_ == expanded) return;
  expanded_ = expanded;
  if (children_.empty()) return;
  TreeView& owner = owner_;
  owner.touched(Aspect::kContent);
  owner.raise(expanded ? owner.onExpand : owner.onCollapse, *this);
}

TreeNode* TreeNode::next() const {
  const List& list = owner_.siblings(*this);
  const auto position = static_cast<std::size_t>(positionOf(*this, list)) + 1;
  return position < list.size() ? list[position].get() : nullptr;
}

TreeNode* TreeNode::previous() const {
  const List& list = owner_.siblings(*this);
  const auto position = static_cast<std::size_t>(positionOf(*this, list));
  return position > 0 ? list[position - 1].get() : nullptr;
}

std::string TreeNode::fullPath() const { return parent_ ? parent_->fullPath() + "\\" + text_ : text_; }

// TreeView

TreeView::TreeView(Form& form, std::string_view name) : Control(form, Kind::kTreeView, name) {}

TreeNode::List& TreeView::siblings(const TreeNode& node) {
  return node.parent_ ? node.parent_->children_ : roots_;
}

TreeNode& TreeView::put(TreeNode* parent, std::size_t position, std::string_view key, std::string_view text,
                        std::string_view image) {
  std::unique_ptr<TreeNode> owned(new TreeNode(*this));
  TreeNode& node = *owned;
  node.parent_ = parent;
  node.key_ = key;
  node.text_ = text;
  node.image_ = image;
  if (!key.empty() && !byKey_.emplace(node.key_, &node).second)
    throw base::Error(errors::kKeyNotUnique, name() + " has a node with the key " + node.key_ + " already.");
  TreeNode::List& list = parent ? parent->children_ : roots_;
  list.insert(list.begin() + static_cast<std::ptrdiff_t>(position), std::move(owned));
  ++count_;
  touched(Aspect::kContent);
  return node;
}

TreeNode& TreeView::addRoot(std::string_view key, std::string_view text, std::string_view image) {
  return put(nullptr, roots_.size(), key, text, image);
}

TreeNode& TreeView::add(TreeNode& parent, std::string_view key, std::string_view text,
                        std::string_view image) {
  return put(&parent, parent.children_.size(), key, text, image);
}

TreeNode& TreeView::addBeside(TreeNode& sibling, Side side, std::string_view key, std::string_view text,
                              std::string_view image) {
  const auto position = static_cast<std::size_t>(positionOf(sibling, siblings(sibling)));
  return put(sibling.parent_, side == Side::kBefore ? position : position + 1, key, text, image);
}

void TreeView::forget(const TreeNode& node) {
  for (const auto& child : node.children_) forget(*child);
  if (!node.key_.empty()) byKey_.erase(node.key_);
  if (selected_ == &node) selected_ = nullptr;
  --count_;
}

void TreeView::remove(TreeNode& node) {
  forget(node);
  TreeNode::List& list = siblings(node);
  list.erase(list.begin() + positionOf(node, list));
  touched(Aspect::kContent);
}

void TreeView::clear() {
  selected_ = nullptr;
  byKey_.clear();
  roots_.clear();
  count_ = 0;
  touched(Aspect::kContent);
}

std::vector<TreeNode*> TreeView::nodes() const {
  std::vector<TreeNode*> all;
  collect(roots_, false, all);
  return all;
}

std::vector<TreeNode*> TreeView::shownNodes() const {
  std::vector<TreeNode*> shown;
  collect(roots_, true, shown);
  return shown;
}

TreeNode* TreeView::find(std::string_view key) const {
  const auto found = byKey_.find(std::string(key));
  return found == byKey_.end() ? nullptr : found->second;
}

TreeNode& TreeView::node(std::string_view key) const {
  if (TreeNode* found = find(key)) return *found;
  throw base::Error(errors::kElementNotFound,
                    name() + " has no node with the key \"" + std::string(key) + "\".");
}

void TreeView::sortChildren(TreeNode* parent) {
  TreeNode::List& list = parent ? parent->children_ : roots_;
  std::stable_sort(list.begin(), list.end(),
                   [](const auto& a, const auto& b) { return base::LessNoCase()(a->text(), b->text()); });
  touched(Aspect::kContent);
}

void TreeView::select(TreeNode* node) {
  selected_ = node;
  touched(Aspect::kSelection);
}

void TreeView::setCheckBoxes(bool boxes) {
  checkBoxes_ = boxes;
  touched(Aspect::kState);
}

// Gestures

TreeNode* TreeView::aimedAt(const Spot& spot) const {
  if (!spot.node) return selected_;
  if (TreeNode* found = find(*spot.node)) return found;
  for (TreeNode* candidate : nodes())
    if (candidate->fullPath() == *spot.node) return candidate;
  throw base::Error(errors::kElementNotFound, name() + " has no node \"" + *spot.node + "\".");
}

void TreeView::choose(TreeNode& node) {
  select(&node);
  raise(onNodeClick, node);
}

void TreeView::tick(TreeNode& node, bool value) {
  if (node.checked_ == value) return;
  node.setChecked(value);
  raise(onNodeCheck, node);
}

Deed TreeView::takeSelection(const Spot& spot, bool) {
  if (!spot.node) refuse("is selected by a node's key");
  aimedAt(spot);
  return [this, spot] { choose(*aimedAt(spot)); };
}

Deed TreeView::takeItem(std::string_view text) {
  for (TreeNode* candidate : nodes())
    if (candidate->text() == text) return takeSelection(Spot{.node = candidate->fullPath()}, false);
  refuse("has no node \"" + std::string(text) + "\"");
}

Deed TreeView::takeCheck(const Spot& spot, bool value) {
  if (!checkBoxes_) refuse("has no check boxes");
  if (!spot.node) refuse("is ticked by a node's key");
  aimedAt(spot);
  return [this, spot, value] { tick(*aimedAt(spot), value); };
}

Deed TreeView::takeClick(const Spot& spot) {
  if (spot.row || spot.column) refuse("has nodes, no rows");
  const Deed select = spot.node ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible()) raise(onClick);
  };
}

Deed TreeView::takeDoubleClick(const Spot& spot) {
  const Deed select = aimedAt(spot) != selected_ ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible() && selected_) selected_->setExpanded(!selected_->expanded());
    if (form().visible()) raise(onDblClick);
  };
}

bool TreeView::takeKey(int key, int shift) {
  if (shift == 0 && selected_) {
    TreeNode& node = *selected_;
    if (key == keys::kSpace && checkBoxes_) {
      tick(node, !node.checked_);
      return true;
    }
    if (key == keys::kRight) {
      if (!node.expanded() && node.child())
        node.setExpanded(true);
      else if (node.child())
        choose(*node.child());
      return true;
    }
    if (key == keys::kLeft) {
      if (node.expanded() && node.child())
        node.setExpanded(false);
      else if (node.parent())
        choose(*node.parent());
      return true;
    }
  }
  const auto shown = shownNodes();
  const auto self = std::find(shown.begin(), shown.end(), selected_);
  const int row = self == shown.end() ? -1 : static_cast<int>(self - shown.begin());
  const auto next = rowForKey(key, shift, row, 0, static_cast<int>(shown.size()) - 1);
  if (next && *next != row) choose(*shown[static_cast<std::size_t>(*next)]);
  return next.has_value();
}

void TreeView::describe(ControlState& state) const {
  state.checkBoxes = checkBoxes_;
  const auto describeList = [this](const auto& self, const TreeNode::List& list) -> std::vector<NodeState> {
    std::vector<NodeState> states;
    for (const auto& node : list) {
      NodeState one;
      one.key = node->key();
      one.text = node->text();
      one.image = node->image();
      one.expanded = node->expanded();
      one.checked = node->checked();
      one.selected = node.get() == selected_;
      one.children = self(self, node->children());
      states.push_back(std::move(one));
    }
    return states;
  };
  state.nodes = describeList(describeList, roots_);
}

}  // namespace kolvane::forms
