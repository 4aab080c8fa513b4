// ListBox, FolderList, FileList.
#include <QListView>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/file_lists.h"
#include "forms/lists.h"
#include "forms/user.h"
#include "qt/item_view.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

constexpr int kLeastRows = 4;
constexpr int kMostRows = 14;
constexpr int kLeastWidth = 180;

// As high as its rows at first, within limits; afterwards the window decides.
class ListWidget final : public QListView {
 public:
  QSize sizeHint() const override {
    if (hint_.isValid()) return hint_;
    const int rows = std::clamp(model()->rowCount(), kLeastRows, kMostRows);
    const int width = std::clamp(sizeHintForColumn(0) + 40, kLeastWidth, 2 * kLeastWidth);
    const QSize now(width, rows * rowHeight() + 2 * frameWidth());
    return isVisible() ? hint_ = now : now;
  }
  QSize minimumSizeHint() const override {
    return {kLeastWidth / 2, kLeastRows * rowHeight() + 2 * frameWidth()};
  }

 private:
  int rowHeight() const { return std::max(sizeHintForRow(0), fontMetrics().height() + 4); }

  mutable QSize hint_;
};

class ListBoxView : public ItemView {
 public:
  ListBoxView(FormWindow& window, forms::Control& control, QWidget* widget, QListView* items)
      : ItemView(window, control, widget, items),
        list_(static_cast<forms::ListControl&>(control)),
        items_(items) {
    items_->setUniformItemSizes(true);
    model().cell = [this](int row, int, int role) { return cell(row, role); };
  }

 protected:
  forms::ListControl& list() { return list_; }
  const forms::ListControl& list() const { return list_; }
  QListView& items() { return *items_; }

  virtual QVariant cell(int row, int role) const {
    if (row >= list_.listCount()) return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return text(list_.list(row));
    return {};
  }
  void showContent() override {
    model().sync(list_.listCount(), 1);
    items_->updateGeometry();
  }
  void showSelection() override {
    const int index = list_.listIndex();
    showSelectedRows(index < 0 ? std::vector<int>() : std::vector{index}, index);
  }
  void chosen() override {
    const auto rows = selectedRows();
    if (rows.empty() || rows.front() == list_.listIndex()) return;
    act([&] { forms::user::selectIndex(this->control(), rows.front()); });
  }
  void clicked(const QModelIndex& at, Qt::KeyboardModifiers) override {
    act([&] { forms::user::click(this->control(), {.row = at.row()}); });
  }
  void doubleClicked(const QModelIndex& at) override {
    act([&] { forms::user::doubleClick(this->control(), {.row = at.row()}); });
  }

 private:
  forms::ListControl& list_;
  QListView* items_;
};

class PlainListView final : public ListBoxView {
 public:
  PlainListView(FormWindow& window, forms::Control& control)
      : PlainListView(window, control, new ListWidget) {}

 protected:
  QVariant cell(int row, int role) const override {
    if (role == Qt::CheckStateRole && box_.checkBoxes() && row < box_.listCount())
      return box_.selected(row) ? Qt::Checked : Qt::Unchecked;
    return ListBoxView::cell(row, role);
  }
  void showState() override {
    items().setSelectionMode(box_.multiSelect() ? QAbstractItemView::ExtendedSelection
                                                : QAbstractItemView::SingleSelection);
  }
  void showSelection() override {
    model().sync(box_.listCount(), 1);  // ticks
    if (!box_.multiSelect()) return ListBoxView::showSelection();
    showSelectedRows(marked(), box_.listIndex());
  }
  void chosen() override {
    if (!box_.multiSelect()) return ListBoxView::chosen();
    const auto rows = selectedRows();
    const auto before = marked();
    if (rows == before) return;
    if (rows.size() == 1) {
      act([&] { forms::user::select(this->control(), forms::Spot{.row = rows.front()}); });
      return;
    }
    act([&] {
      for (const int row : before)
        if (!std::binary_search(rows.begin(), rows.end(), row)) box_.setSelected(row, false);
      for (const int row : rows)
        if (!std::binary_search(before.begin(), before.end(), row))
          forms::user::select(this->control(), forms::Spot{.row = row}, true);
    });
  }
  void clicked(const QModelIndex& at, Qt::KeyboardModifiers modifiers) override {
    const bool extends = box_.multiSelect() && modifiers != Qt::NoModifier;
    if (extends) return chosen();
    ListBoxView::clicked(at, modifiers);
  }

 private:
  PlainListView(FormWindow& window, forms::Control& control, QListView* items)
      : ListBoxView(window, control, items, items), box_(static_cast<forms::ListBox&>(control)) {
    model().tickable = [this](int, int) { return box_.checkBoxes(); };
    model().tick = [this](int row, bool value) {
      ticked();
      act([&] { forms::user::check(this->control(), {.row = row}, value); });
    };
  }

  std::vector<int> marked() const {
    std::vector<int> rows;
    for (int i = 0; i < box_.listCount(); ++i)
      if (box_.selected(i)) rows.push_back(i);
    return rows;
  }

  forms::ListBox& box_;
};

// The folder's path stands above the list.
class FilesView final : public ListBoxView {
 public:
  FilesView(FormWindow& window, forms::Control& control)
      : FilesView(window, control, new QWidget, new QLabel, new ListWidget) {}

 protected:
  QVariant cell(int row, int role) const override {
    if (role == Qt::DecorationRole && row < list().listCount())
      return items_->style()->standardIcon(
          isFolders() ? list().list(row) == ".." ? QStyle::SP_FileDialogToParent : QStyle::SP_DirIcon
                      : QStyle::SP_FileIcon);
    return ListBoxView::cell(row, role);
  }
  void showContent() override {
    ListBoxView::showContent();
    if (!isFolders()) return;
    const QString path = text(static_cast<const forms::FolderList&>(control()).path());
    path_->setText(path_->fontMetrics().elidedText(path, Qt::ElideMiddle, 2 * kLeastWidth));
    path_->setToolTip(path);
  }

 private:
  FilesView(FormWindow& window, forms::Control& control, QWidget* widget, QLabel* path, QListView* items)
      : ListBoxView(window, control, widget, items), path_(path), items_(items) {
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins({});
    path_->setTextFormat(Qt::PlainText);
    path_->setVisible(isFolders());
    column->addWidget(path_);
    column->addWidget(items, 1);
  }

  bool isFolders() const { return control().kind() == forms::Kind::kFolderList; }

  QLabel* path_;
  QListView* items_;
};

}  // namespace

ControlView* makeListBoxView(FormWindow& window, forms::Control& control) {
  return new PlainListView(window, control);
}
ControlView* makeFolderListView(FormWindow& window, forms::Control& control) {
  return new FilesView(window, control);
}
ControlView* makeFileListView(FormWindow& window, forms::Control& control) {
  return new FilesView(window, control);
}

}  // namespace kolvane::qt
