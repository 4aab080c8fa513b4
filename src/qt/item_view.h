// What lists, list views and grids have in common: rows of a model in one of the window system's views, and how the
// user's selecting and clicking becomes the control's.
#pragma once

#include <QAbstractItemView>
#include <vector>

#include "qt/control_view.h"
#include "qt/rows_model.h"

namespace kolvane::qt {

// With the mouse a row is chosen when the button goes up on it, with the keyboard at once.
class ItemView : public ControlView {
 public:
  std::vector<QWidget*> mouseWidgets() const override { return {items_->viewport()}; }
  QWidget* focusWidget() const override { return items_; }
  bool takesKey(int key, int shift) const override;
  bool takeCharacter(QChar character, bool changed) override;
  void pressed(Qt::KeyboardModifiers modifiers) override;
  void released() override;
  void keyHandled() override;
  bool growsDown() const override { return true; }

 protected:
  // `widget` is the view itself or holds it.
  ItemView(FormWindow& window, forms::Control& control, QWidget* widget, QAbstractItemView* items);

  RowsModel& model() { return *model_; }
  const RowsModel& model() const { return *model_; }

  // The user chose by the keyboard, or by dragging the mouse; what is chosen is the view's selection.
  // Nothing happens where the control says the same already.
  virtual void chosen() = 0;
  // The mouse was clicked on a cell, once.
  virtual void clicked(const QModelIndex& at, Qt::KeyboardModifiers modifiers) = 0;
  virtual void doubleClicked(const QModelIndex& at) = 0;
  // The user ticks the row.
  void ticked() { ticked_ = true; }

  std::vector<int> selectedRows() const;
  // Selects these rows in the view and makes `current` its current one (-1: none).
  void showSelectedRows(const std::vector<int>& rows, int current);

 private:
  void selectionMoved();

  QAbstractItemView* items_;
  RowsModel* model_;
  Qt::KeyboardModifiers modifiers_;
  bool pressed_ = false;  // the mouse is down
  bool clicked_ = false;  // and what followed has been told
  bool second_ = false;   // it is the second press of a double click
  bool ticked_ = false;   // it hit a box
};

}  // namespace kolvane::qt
