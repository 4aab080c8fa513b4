#include "qt/item_view.h"

#include <QItemSelectionModel>
#include <algorithm>

namespace kolvane::qt {

ItemView::ItemView(FormWindow& window, forms::Control& control, QWidget* widget, QAbstractItemView* items)
    : ControlView(window, control, widget), items_(items), model_(new RowsModel(items)) {
  model_->alive = [this] { return this->window().alive(); };
  items_->setModel(model_);
  items_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  items_->setTabKeyNavigation(false);
  connect(items_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { selectionMoved(); });
  connect(items_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { selectionMoved(); });
  connect(items_, &QAbstractItemView::clicked, this, [this](const QModelIndex& at) {
    if (std::exchange(clicked_, true) || second_ || std::exchange(ticked_, false)) return;
    clicked(at, modifiers_);
  });
  connect(items_, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& at) {
    second_ = true;
    doubleClicked(at);
  });
}

bool ItemView::takesKey(int key, int shift) const {
  return !isFormKey(key, shift) && key != forms::keys::kEnter;
}

bool ItemView::takeCharacter(QChar character, bool changed) {
  if (!changed) return false;
  items_->keyboardSearch(QString(character));
  return true;
}

void ItemView::pressed(Qt::KeyboardModifiers modifiers) {
  modifiers_ = modifiers;
  pressed_ = true;
  clicked_ = second_ = ticked_ = false;
}

void ItemView::released() {
  if (!pressed_) return;
  // Behind the view's own handling: a click is told first, a drag is what remains.
  QMetaObject::invokeMethod(
      this,
      [this] {
        pressed_ = false;
        if (!window().alive()) return;
        if (!clicked_ && !second_ && !std::exchange(ticked_, false)) chosen();
        if (window().alive()) window().controlChanged(this->control(), forms::Aspect::kSelection);
      },
      Qt::QueuedConnection);
}

// Selected by something else than keys and mouse: a screen reader.
void ItemView::selectionMoved() {
  if (refreshing() || pressed_ || !window().alive()) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (window().alive() && !pressed_) chosen();
      },
      Qt::QueuedConnection);
}

void ItemView::keyHandled() { chosen(); }

std::vector<int> ItemView::selectedRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : items_->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void ItemView::showSelectedRows(const std::vector<int>& rows, int current) {
  if (pressed_) return;  // it is shown when the button goes up
  QItemSelectionModel& selection = *items_->selectionModel();
  if (selectedRows() != rows) {
    QItemSelection wanted;
    const int last = std::max(0, model_->columnCount() - 1);
    for (std::size_t i = 0; i < rows.size();) {  // runs as one range
      std::size_t end = i + 1;
      while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
      wanted.select(model_->index(rows[i], 0), model_->index(rows[end - 1], last));
      i = end;
    }
    selection.select(wanted, QItemSelectionModel::ClearAndSelect);
  }
  const QModelIndex now = selection.currentIndex();
  if (now.row() == current && now.isValid() == (current >= 0)) return;
  const QModelIndex next = current < 0 ? QModelIndex() : model_->index(current, 0);
  selection.setCurrentIndex(next, QItemSelectionModel::NoUpdate);
  if (next.isValid()) items_->scrollTo(next);
}

}  // namespace kolvane::qt
