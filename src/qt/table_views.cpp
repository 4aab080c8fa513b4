// ListView, Grid.
#include <QHeaderView>
#include <QTableView>
#include <QTreeView>
#include <algorithm>

#include "forms/grid.h"
#include "forms/list_view.h"
#include "forms/user.h"
#include "qt/item_view.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

constexpr int kLeastRows = 4;
constexpr int kMostRows = 14;
constexpr int kLeastWidth = 220;
constexpr int kMostWidth = 560;

// As large as its contents at first, within limits; afterwards the window decides.
template <class Base>
class Sized : public Base {
 public:
  QSize sizeHint() const override {
    if (hint_.isValid()) return hint_;
    const int rows = std::clamp(this->model()->rowCount(), kLeastRows, kMostRows);
    const int margin = 2 * this->frameWidth();
    const int width = std::clamp(contents_ + kRoom, kLeastWidth, kMostWidth);
    const QSize now(width + margin, headerHeight() + rows * rowHeight() + margin);
    return this->isVisible() ? hint_ = now : now;
  }
  QSize minimumSizeHint() const override {
    return {kLeastWidth / 2, headerHeight() + (kLeastRows - 1) * rowHeight() + 2 * this->frameWidth()};
  }
  int rowHeight() const { return this->fontMetrics().height() + 7; }
  // As wide as all columns together.
  void setContentsWidth(int width) {
    contents_ = width;
    this->updateGeometry();
  }

 private:
  static constexpr int kRoom = 32;  // for the frame and a scroll bar

  int headerHeight() const { return this->header_() ? this->header_()->sizeHint().height() : 0; }

  mutable QSize hint_;
  int contents_ = 0;
};

class RowsTree : public QTreeView {
 public:
  QHeaderView* header_() const { return header(); }
};

class CellsTable : public QTableView {
 public:
  QHeaderView* header_() const { return horizontalHeader(); }
};

int pixels(int twips) { return twips / kTwipsAPixel; }

// A width of the control's own, or as the contents need. Gives it.
int fitColumn(QHeaderView& header, QAbstractItemView& view, int column, int twips) {
  constexpr int kRoom = 12;
  constexpr int kWidest = 420;
  const int contents = std::max(view.sizeHintForColumn(column), header.sectionSizeHint(column)) + kRoom;
  const int width = twips > 0 ? pixels(twips) : std::min(contents, kWidest);
  header.resizeSection(column, width);
  return header.isSectionHidden(column) ? 0 : width;
}

// ListView: whole rows under headers.

class ListViewView final : public ItemView {
 public:
  ListViewView(FormWindow& window, forms::Control& control)
      : ListViewView(window, control, new Sized<RowsTree>) {}

 protected:
  void showState() override {
    tree_->setSelectionMode(list_.multiSelect() ? QAbstractItemView::ExtendedSelection
                                                : QAbstractItemView::SingleSelection);
  }
  void showContent() override {
    const int columns = std::max<int>(1, static_cast<int>(list_.columns().size()));
    model().sync(list_.count(), columns);
    QHeaderView& header = *tree_->header();
    header.setVisible(!list_.columns().empty());
    for (int i = 0; i < static_cast<int>(list_.columns().size()); ++i) {
      const auto& column = list_.columns()[static_cast<std::size_t>(i)];
      header.setSectionHidden(i, column.hidden);
    }
    header.setSortIndicatorShown(list_.sorted());
    if (list_.sorted())
      header.setSortIndicator(list_.sortColumn(), list_.sortOrder() == forms::ListView::Order::kAscending
                                                      ? Qt::AscendingOrder
                                                      : Qt::DescendingOrder);
    fitColumns();
  }
  void showSelection() override {
    model().sync(list_.count(), model().columnCount());  // ticks
    showSelectedRows(marked(), list_.selectedRow() - 1);
  }

  void chosen() override {
    const auto rows = selectedRows();
    const int current = tree_->currentIndex().row();
    if (rows == marked()) return;
    act([&] {
      if (rows.size() == 1) {
        forms::user::select(this->control(), forms::Spot{.row = rows.front() + 1});
        return;
      }
      for (const int row : marked())
        if (!std::binary_search(rows.begin(), rows.end(), row)) list_.setSelected(list_.item(row + 1), false);
      for (const int row : rows)
        if (row != current) list_.setSelected(list_.item(row + 1), true);
      // One event for what the user did, however many rows it took in.
      if (std::binary_search(rows.begin(), rows.end(), current))
        forms::user::select(this->control(), forms::Spot{.row = current + 1}, true);
    });
  }
  void clicked(const QModelIndex& at, Qt::KeyboardModifiers modifiers) override {
    if (list_.multiSelect() && modifiers != Qt::NoModifier) return chosen();
    act([&] { forms::user::click(this->control(), {.row = at.row() + 1}); });
  }
  void doubleClicked(const QModelIndex& at) override {
    act([&] { forms::user::doubleClick(this->control(), {.row = at.row() + 1}); });
  }

 private:
  ListViewView(FormWindow& window, forms::Control& control, Sized<RowsTree>* tree)
      : ItemView(window, control, tree, tree), list_(static_cast<forms::ListView&>(control)), tree_(tree) {
    tree_->setRootIsDecorated(false);
    tree_->setUniformRowHeights(true);
    tree_->setAllColumnsShowFocus(true);
    tree_->setItemsExpandable(false);
    tree_->header()->setSectionsClickable(true);
    tree_->header()->setSectionsMovable(false);
    tree_->header()->setHighlightSections(false);
    connect(tree_->header(), &QHeaderView::sectionClicked, this,
            [this](int column) { act([&] { forms::user::click(this->control(), {.column = column}); }); });
    model().cell = [this](int row, int column, int role) { return cell(row, column, role); };
    model().header = [this](int section, Qt::Orientation, int role) -> QVariant {
      const auto at = static_cast<std::size_t>(section);
      if (role != Qt::DisplayRole || at >= list_.columns().size()) return {};
      return text(list_.columns()[at].caption);
    };
    model().tickable = [this](int, int column) { return list_.checkBoxes() && column == 0; };
    model().tick = [this](int row, bool value) {
      ticked();
      act([&] { forms::user::check(this->control(), {.row = row + 1}, value); });
    };
  }

  QVariant cell(int row, int column, int role) const {
    if (row >= list_.count()) return {};
    const forms::ListItem& item = list_.item(row + 1);
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return text(item.cell(column));
    if (column == 0 && role == Qt::CheckStateRole && list_.checkBoxes())
      return item.checked() ? Qt::Checked : Qt::Unchecked;
    if (column == 0 && role == Qt::DecorationRole && !item.icon().empty()) return window().icon(item.icon());
    return {};
  }

  // Widths are set when the columns' own or the first rows come, not again under the user's eyes.
  void fitColumns() {
    std::vector<int> wanted;
    for (const auto& column : list_.columns()) wanted.push_back(column.width);
    const bool filled = list_.count() > 0;
    if (wanted == widths_ && filled_ == filled) return;
    widths_ = wanted;
    filled_ = filled;
    int width = 0;
    for (int i = 0; i < static_cast<int>(wanted.size()); ++i)
      width += fitColumn(*tree_->header(), *tree_, i, wanted[static_cast<std::size_t>(i)]);
    tree_->setContentsWidth(width);
  }

  std::vector<int> marked() const {
    std::vector<int> rows;
    for (int row = 0; row < list_.count(); ++row)
      if (list_.item(row + 1).selected()) rows.push_back(row);
    return rows;
  }

  forms::ListView& list_;
  Sized<RowsTree>* tree_;
  std::vector<int> widths_;
  bool filled_ = false;
};

// Grid: the first fixed row is the header; further fixed rows, and fixed columns, look like it.

class GridView final : public ItemView {
 public:
  GridView(FormWindow& window, forms::Control& control) : GridView(window, control, new Sized<CellsTable>) {}

 protected:
  void showContent() override {
    model().sync(grid_.rows() - headers(), grid_.columns());
    table_->horizontalHeader()->setVisible(headers() > 0);
    fitColumns();
    mergeCells();
  }
  void showSelection() override {
    if (!hasCells()) return;
    const QModelIndex first = at(grid_.row(), grid_.column());
    const QModelIndex last = at(grid_.lastRow(), grid_.lastColumn());
    QItemSelectionModel& selection = *table_->selectionModel();
    const QItemSelection wanted(
        model().index(std::min(first.row(), last.row()), std::min(first.column(), last.column())),
        model().index(std::max(first.row(), last.row()), std::max(first.column(), last.column())));
    if (selection.selection() != wanted) selection.select(wanted, QItemSelectionModel::ClearAndSelect);
    const QModelIndex current = last;
    if (selection.currentIndex() == current) return;
    selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    table_->scrollTo(current);
  }

  void chosen() override {
    const QItemSelection selection = table_->selectionModel()->selection();
    const QModelIndex current = table_->currentIndex();
    if (selection.isEmpty() || !current.isValid()) return;
    const QItemSelectionRange range = selection.constFirst();
    const int row = current.row() + headers();
    const int column = current.column();
    const bool one = range.width() == 1 && range.height() == 1;
    // The anchor of a range is the corner opposite the current cell.
    const int anchorRow = (one || current.row() == range.top() ? range.bottom() : range.top()) + headers();
    const int anchorColumn = one || current.column() == range.left() ? range.right() : range.left();
    if (anchorRow == grid_.row() && anchorColumn == grid_.column() && row == grid_.lastRow() &&
        column == grid_.lastColumn())
      return;
    act([&] {
      if (one || anchorRow != grid_.row() || anchorColumn != grid_.column())
        forms::user::select(this->control(), forms::Spot{.row = anchorRow, .column = anchorColumn});
      if (!one && window().alive())
        forms::user::select(this->control(), forms::Spot{.row = row, .column = column}, true);
    });
  }
  void clicked(const QModelIndex& index, Qt::KeyboardModifiers modifiers) override {
    if (modifiers.testFlag(Qt::ShiftModifier)) return chosen();
    act([&] {
      forms::user::click(this->control(), {.row = index.row() + headers(), .column = index.column()});
    });
  }
  void doubleClicked(const QModelIndex&) override {
    // The first click has made it the current cell, and has been told.
    act([&] { forms::user::doubleClick(this->control()); });
  }

 private:
  GridView(FormWindow& window, forms::Control& control, Sized<CellsTable>* table)
      : ItemView(window, control, table, table), grid_(static_cast<forms::Grid&>(control)), table_(table) {
    table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table_->setWordWrap(false);
    table_->setCornerButtonEnabled(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table->rowHeight());
    table_->verticalHeader()->setMinimumSectionSize(table->rowHeight());
    QHeaderView& header = *table_->horizontalHeader();
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setStretchLastSection(true);
    header.setSectionsClickable(true);
    // The view selects the column under a header by itself; here a click on it is the control's.
    header.disconnect(SIGNAL(sectionPressed(int)), table_);
    header.disconnect(SIGNAL(sectionEntered(int)), table_);
    connect(&header, &QHeaderView::sectionClicked, this, [this](int column) {
      act([&] { forms::user::click(this->control(), {.row = 0, .column = column}); });
    });
    model().cell = [this](int row, int column, int role) { return cell(row + headers(), column, role); };
    model().header = [this](int section, Qt::Orientation orientation, int role) -> QVariant {
      if (role != Qt::DisplayRole || orientation != Qt::Horizontal || headers() == 0) return {};
      return section < grid_.columns() ? text(grid_.cell(0, section)) : QString();
    };
    model().selectable = [this](int row, int column) { return !fixed(row + headers(), column); };
  }

  int headers() const { return grid_.fixedRows() > 0 ? 1 : 0; }
  bool hasCells() const { return grid_.rows() > grid_.fixedRows() && grid_.columns() > grid_.fixedColumns(); }
  bool fixed(int row, int column) const { return row < grid_.fixedRows() || column < grid_.fixedColumns(); }
  QModelIndex at(int row, int column) { return model().index(row - headers(), column); }

  QVariant cell(int row, int column, int role) const {
    if (row >= grid_.rows() || column >= grid_.columns()) return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return text(grid_.cell(row, column));
    if (role != Qt::BackgroundRole && role != Qt::ForegroundRole) return {};
    const auto colour = grid_.cellColour(row, column);
    if (!colour && !fixed(row, column)) return {};
    const QPalette& palette = table_->palette();
    if (!colour)
      return role == Qt::BackgroundRole ? palette.brush(QPalette::Button)
                                        : palette.brush(QPalette::ButtonText);
    const QColor ground(static_cast<int>(*colour & 0xFF), static_cast<int>((*colour >> 8) & 0xFF),
                        static_cast<int>((*colour >> 16) & 0xFF));
    constexpr int kMiddle = 140;
    if (role == Qt::BackgroundRole) return ground;
    return QColor(qGray(ground.rgb()) > kMiddle ? Qt::black : Qt::white);  // readable in any theme
  }

  void fitColumns() {
    std::vector<int> wanted;
    for (int i = 0; i < grid_.columns(); ++i) wanted.push_back(grid_.columnWidth(i));
    const bool filled = grid_.rows() > grid_.fixedRows();
    if (wanted == widths_ && filled_ == filled) return;
    widths_ = wanted;
    filled_ = filled;
    int width = 0;
    for (int i = 0; i < grid_.columns(); ++i) {
      const int own = wanted[static_cast<std::size_t>(i)];
      table_->setColumnHidden(i, own == 0);
      if (own != 0) width += fitColumn(*table_->horizontalHeader(), *table_, i, own);
    }
    table_->setContentsWidth(width);
  }

  // Runs of equal neighbours in merged columns.
  void mergeCells() {
    table_->clearSpans();
    for (int column = 0; column < grid_.columns(); ++column) {
      if (!grid_.mergedColumn(column)) continue;
      for (int row = headers(); row < grid_.rows();) {
        int end = row + 1;
        while (end < grid_.rows() && grid_.cell(end, column) == grid_.cell(row, column)) ++end;
        if (end - row > 1) table_->setSpan(row - headers(), column, end - row, 1);
        row = end;
      }
    }
  }

  forms::Grid& grid_;
  Sized<CellsTable>* table_;
  std::vector<int> widths_;
  bool filled_ = false;
};

}  // namespace

ControlView* makeListViewView(FormWindow& window, forms::Control& control) {
  return new ListViewView(window, control);
}
ControlView* makeGridView(FormWindow& window, forms::Control& control) {
  return new GridView(window, control);
}

}  // namespace kolvane::qt
