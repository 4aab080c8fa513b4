// Rows of a control as a model of the window system's views. It copies nothing: the views ask for what they show.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

namespace kolvane::qt {

class RowsModel final : public QAbstractTableModel {
 public:
  // False once the control has gone; then nothing else is asked.
  std::function<bool()> alive;
  // What a cell shows in a role; asked for rows and columns that are there.
  std::function<QVariant(int row, int column, int role)> cell;
  std::function<QVariant(int section, Qt::Orientation orientation, int role)> header;
  // Whether cells have a box to tick, and what follows when the user does.
  std::function<bool(int row, int column)> tickable;
  std::function<void(int row, bool ticked)> tick;
  std::function<bool(int row, int column)> selectable;

  using QAbstractTableModel::QAbstractTableModel;

  // Tells the views that the control has now so many rows and columns, and that all may differ. Where they are
  // scrolled to stays. `cell` is not asked for rows that went before this was called.
  void sync(int rows, int columns);

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns_; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace kolvane::qt
