// TreeView.
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>

#include "forms/tree_view.h"
#include "forms/user.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

using forms::TreeNode;

class TreeWidget final : public QTreeWidget {
 public:
  QSize sizeHint() const override {
    constexpr int kWidth = 260;
    constexpr int kRows = 12;
    return {kWidth, kRows * (fontMetrics().height() + 5)};
  }
};

class TreeViewView final : public ControlView {
 public:
  TreeViewView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new TreeWidget),
        tree_(static_cast<forms::TreeView&>(control)),
        widget_(static_cast<TreeWidget*>(widget())) {
    widget_->setHeaderHidden(true);
    widget_->setUniformRowHeights(true);
    widget_->setExpandsOnDoubleClick(false);  // the control does it
    connect(widget_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
      if (!std::exchange(ticked_, false) && !std::exchange(second_, false))
        aimAt(item, [this](const forms::Spot& spot) { forms::user::click(tree_, spot); });
    });
    connect(widget_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
      second_ = true;
      aimAt(item, [this](const forms::Spot& spot) { forms::user::doubleClick(tree_, spot); });
    });
    connect(widget_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { expand(item, true); });
    connect(widget_, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { expand(item, false); });
    connect(widget_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { tick(item); });
  }

  std::vector<QWidget*> mouseWidgets() const override { return {widget_->viewport()}; }
  bool growsDown() const override { return true; }
  bool takesKey(int key, int shift) const override {
    return !isFormKey(key, shift) && key != forms::keys::kEnter;
  }
  bool takeCharacter(QChar character, bool changed) override {
    if (changed) widget_->keyboardSearch(QString(character));
    return changed;
  }
  void keyHandled() override {
    const TreeNode* const node = nodeOf(widget_->currentItem());
    if (node && node != tree_.selectedNode())
      aimAt(widget_->currentItem(), [this](const forms::Spot& spot) { forms::user::select(tree_, spot); });
  }
  void pressed(Qt::KeyboardModifiers) override { second_ = ticked_ = false; }

 protected:
  void showContent() override { sync(widget_->invisibleRootItem(), tree_.roots()); }
  void showSelection() override {
    sync(widget_->invisibleRootItem(), tree_.roots());  // ticks
    QTreeWidgetItem* const item = itemOf(tree_.selectedNode());
    if (item == widget_->currentItem()) return;
    widget_->setCurrentItem(item);
    if (item) widget_->scrollToItem(item);
  }

 private:
  void sync(QTreeWidgetItem* parent, const TreeNode::List& nodes) {
    const auto count = static_cast<int>(nodes.size());
    while (parent->childCount() > count) delete parent->takeChild(parent->childCount() - 1);
    QList<QTreeWidgetItem*> fresh;
    for (int i = parent->childCount(); i < count; ++i) fresh << new QTreeWidgetItem;
    if (!fresh.isEmpty()) parent->addChildren(fresh);
    for (int i = 0; i < count; ++i) {
      const TreeNode& node = *nodes[static_cast<std::size_t>(i)];
      QTreeWidgetItem* const item = parent->child(i);
      const QString shown = text(node.text());
      if (item->text(0) != shown) item->setText(0, shown);
      if (!node.image().empty()) item->setIcon(0, window().icon(node.image()));
      if (tree_.checkBoxes())
        item->setCheckState(0, node.checked() ? Qt::Checked : Qt::Unchecked);
      else if (item->data(0, Qt::CheckStateRole).isValid())
        item->setData(0, Qt::CheckStateRole, QVariant());
      sync(item, node.children());
      if (item->isExpanded() != node.expanded()) item->setExpanded(node.expanded());
    }
  }

  // The node in the same place, nullptr when there is none any more.
  TreeNode* nodeOf(QTreeWidgetItem* item) const {
    if (!item) return nullptr;
    const TreeNode::List* nodes = &tree_.roots();
    int index = widget_->indexOfTopLevelItem(item);
    if (QTreeWidgetItem* const parent = item->parent()) {
      const TreeNode* const node = nodeOf(parent);
      if (!node) return nullptr;
      nodes = &node->children();
      index = parent->indexOfChild(item);
    }
    return index < static_cast<int>(nodes->size()) ? (*nodes)[static_cast<std::size_t>(index)].get()
                                                   : nullptr;
  }

  QTreeWidgetItem* itemOf(const TreeNode* node) const {
    if (!node) return nullptr;
    const TreeNode::List& nodes = node->parent() ? node->parent()->children() : tree_.roots();
    QTreeWidgetItem* const parent = node->parent() ? itemOf(node->parent()) : widget_->invisibleRootItem();
    if (!parent) return nullptr;
    const auto at =
        std::find_if(nodes.begin(), nodes.end(), [&](const auto& other) { return other.get() == node; });
    return parent->child(static_cast<int>(at - nodes.begin()));
  }

  void aimAt(QTreeWidgetItem* item, const std::function<void(const forms::Spot&)>& gesture) {
    const TreeNode* const node = nodeOf(item);
    if (!node) return;
    const forms::Spot spot{.node = node->key().empty() ? node->fullPath() : node->key()};
    act([&] { gesture(spot); });
  }

  void expand(QTreeWidgetItem* item, bool expanded) {
    if (refreshing()) return;
    if (TreeNode* const node = nodeOf(item)) act([&] { node->setExpanded(expanded); });
  }

  void tick(QTreeWidgetItem* item) {
    const TreeNode* const node = refreshing() || !tree_.checkBoxes() ? nullptr : nodeOf(item);
    const bool value = item->checkState(0) == Qt::Checked;
    if (!node || node->checked() == value) return;
    ticked_ = true;
    aimAt(item, [&](const forms::Spot& spot) { forms::user::check(tree_, spot, value); });
  }

  forms::TreeView& tree_;
  TreeWidget* widget_;
  bool second_ = false;  // press of a double click
  bool ticked_ = false;
};

}  // namespace

ControlView* makeTreeViewView(FormWindow& window, forms::Control& control) {
  return new TreeViewView(window, control);
}

}  // namespace kolvane::qt
