// Grid: cells of text, the first rows fixed as headers.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

// Rows and columns count from 0, fixed ones included, so that row 1 is the first one under a header row. A
// number out of range raises 9.
class Grid final : public Control {
 public:
  using Colour = std::uint32_t;  // red + 256 * green + 65536 * blue
  static constexpr Colour colour(int red, int green, int blue) {
    return static_cast<Colour>(red + 256 * green + 65536 * blue);
  }

  Grid(Form& form, std::string_view name, int rows = 2, int columns = 2, int fixedRows = 1,
       int fixedColumns = 0);

  int rows() const { return static_cast<int>(cells_.size()); }
  // Not below the number of fixed rows (380). New cells are empty; the current cell is brought into the grid.
  void setRows(int rows);
  int columns() const { return static_cast<int>(widths_.size()); }
  void setColumns(int columns);
  int fixedRows() const { return fixedRows_; }
  int fixedColumns() const { return fixedColumns_; }

  const std::string& cell(int row, int column) const;
  void setCell(int row, int column, std::string_view text);
  // One row of texts parted by tabs, in front of row `row` or at the end; surplus texts are dropped.
  void addItem(std::string_view texts, int row = -1);
  void removeItem(int row);  // a fixed row raises 380
  // Empties every cell, takes away all colours; size and widths stay.
  void clear();

  // The current cell; raises SelChange and RowColChange when it differs. Fixed cells can't be current (380);
  // a grid without other rows has no current cell: row 0, column 0.
  int row() const { return row_; }
  int column() const { return column_; }
  void select(int row, int column) { select(row, column, row, column); }
  void select(int row, int column, int lastRow, int lastColumn);
  void setRow(int row) { select(row, column_); }
  bool selectsSeveral() const override { return true; }
  int lastRow() const { return lastRow_; }  // other corner of the selected range
  int lastColumn() const { return lastColumn_; }
  // Where the last click was, header included.
  int clickedRow() const { return clickedRow_; }
  int clickedColumn() const { return clickedColumn_; }

  int columnWidth(int column) const;  // twips; -1: as the contents need; 0: hidden
  void setColumnWidth(int column, int twips);
  // Equal neighbours of the column show as one cell.
  bool mergedColumn(int column) const;
  void setMergedColumn(int column, bool merged);
  std::optional<Colour> cellColour(int row, int column) const;
  void setCellColour(int row, int column, std::optional<Colour> colour);

  Handler onRowColChange;
  Handler onSelChange;

 protected:
  void describe(ControlState& state) const override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  Deed takeIndex(int index) override;
  Deed takeClick(const Spot& spot) override;
  Deed takeDoubleClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;

 private:
  void requireCell(int row, int column) const;
  void requireColumn(int column) const;
  void settle();

  std::vector<std::vector<std::string>> cells_;
  std::vector<int> widths_;
  std::vector<bool> merged_;
  std::map<std::pair<int, int>, Colour> colours_;
  int fixedRows_;
  int fixedColumns_;
  int row_ = 0;
  int column_ = 0;
  int lastRow_ = 0;
  int lastColumn_ = 0;
  int clickedRow_ = 0;
  int clickedColumn_ = 0;
};

}  // namespace kolvane::forms
