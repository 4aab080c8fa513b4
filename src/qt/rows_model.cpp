#include "qt/rows_model.h"

namespace kolvane::qt {

void RowsModel::sync(int rows, int columns) {
  if (columns != columns_) {
    beginResetModel();
    rows_ = rows;
    columns_ = columns;
    endResetModel();
    return;
  }
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (columns_ == 0) return;
  if (rows_ > 0) Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !alive() || !cell) return {};
  return cell(index.row(), index.column(), role);
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return header && alive() ? header(section, orientation, role) : QVariant();
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (!alive()) return flags;
  if (!selectable || selectable(index.row(), index.column())) flags |= Qt::ItemIsSelectable;
  if (tickable && tickable(index.row(), index.column())) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool RowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !tick || !alive()) return false;
  tick(index.row(), value.toInt() == Qt::Checked);
  return true;
}

}  // namespace kolvane::qt
