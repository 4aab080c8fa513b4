#include "forms/grid.h"

#include <algorithm>

#include "base/error.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/list_keys.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

namespace {

std::string cellName(int row, int column) {
  return "row " + std::to_string(row) + ", column " + std::to_string(column);
}

}  // namespace

Grid::Grid(Form& form, std::string_view name, int rows, int columns, int fixedRows, int fixedColumns)
    : Control(form, Kind::kGrid, name), fixedRows_(fixedRows), fixedColumns_(fixedColumns) {
  setColumns(columns);
  setRows(rows);
}

void Grid::requireCell(int row, int column) const {
  if (row < 0 || row >= rows() || column < 0 || column >= columns())
    throw base::Error(base::errors::kSubscript, name() + " has no " + cellName(row, column) + ".");
}

void Grid::requireColumn(int column) const {
  if (column < 0 || column >= columns())
    throw base::Error(base::errors::kSubscript, name() + " has no column " + std::to_string(column) + ".");
}

// Brings the current cell and the range into the grid.
void Grid::settle() {
  const auto into = [](int value, int first, int count) {
    return count <= first ? 0 : std::clamp(value, first, count - 1);
  };
  const bool any = rows() > fixedRows_ && columns() > fixedColumns_;
  row_ = any ? into(row_, fixedRows_, rows()) : 0;
  lastRow_ = any ? into(lastRow_, fixedRows_, rows()) : 0;
  column_ = any ? into(column_, fixedColumns_, columns()) : 0;
  lastColumn_ = any ? into(lastColumn_, fixedColumns_, columns()) : 0;
}

void Grid::setRows(int rows) {
  if (rows < fixedRows_ || rows < 0)
    throw base::Error(errors::kInvalidPropertyValue, name() + " has " + std::to_string(fixedRows_) +
                                                         " fixed rows; it can't have fewer rows.");
  cells_.resize(static_cast<std::size_t>(rows), std::vector<std::string>(widths_.size()));
  colours_.erase(colours_.lower_bound({rows, 0}), colours_.end());
  settle();
  touched(Aspect::kContent);
}

void Grid::setColumns(int columns) {
  if (columns < fixedColumns_ || columns < 0)
    throw base::Error(errors::kInvalidPropertyValue, name() + " has " + std::to_string(fixedColumns_) +
                                                         " fixed columns; it can't have fewer.");
  const auto count = static_cast<std::size_t>(columns);
  widths_.resize(count, -1);
  merged_.resize(count, false);
  for (auto& row : cells_) row.resize(count);
  std::erase_if(colours_, [&](const auto& entry) { return entry.first.second >= columns; });
  settle();
  touched(Aspect::kContent);
}

const std::string& Grid::cell(int row, int column) const {
  requireCell(row, column);
  return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Grid::setCell(int row, int column, std::string_view text) {
  requireCell(row, column);
  cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
  touched(Aspect::kContent);
}

void Grid::addItem(std::string_view texts, int row) {
  if (row != -1 && (row < fixedRows_ || row > rows())) requireCell(row, 0);
  std::vector<std::string> line;
  line.reserve(widths_.size());
  while (line.size() < widths_.size()) {
    const auto tab = texts.find('\t');
    line.emplace_back(texts.substr(0, tab));
    texts = tab == std::string_view::npos ? std::string_view() : texts.substr(tab + 1);
  }
  if (row < 0 || row >= rows()) {
    cells_.push_back(std::move(line));
  } else {
    cells_.insert(cells_.begin() + row, std::move(line));
    std::map<std::pair<int, int>, Colour> moved;
    for (const auto& [at, value] : colours_)
      moved[{at.first >= row ? at.first + 1 : at.first, at.second}] = value;
    colours_ = std::move(moved);
  }
  settle();
  touched(Aspect::kContent);
}

void Grid::removeItem(int row) {
  requireCell(row, 0);
  if (row < fixedRows_)
    throw base::Error(errors::kInvalidPropertyValue,
                      name() + " keeps its fixed row " + std::to_string(row) + ".");
  cells_.erase(cells_.begin() + row);
  std::map<std::pair<int, int>, Colour> moved;
  for (const auto& [at, value] : colours_)
    if (at.first != row) moved[{at.first > row ? at.first - 1 : at.first, at.second}] = value;
  colours_ = std::move(moved);
  settle();
  touched(Aspect::kContent);
}

void Grid::clear() {
  for (auto& row : cells_)
    for (auto& text : row) text.clear();
  colours_.clear();
  touched(Aspect::kContent);
}

void Grid::select(int row, int column, int lastRow, int lastColumn) {
  requireCell(row, column);
  requireCell(lastRow, lastColumn);
  if (row < fixedRows_ || column < fixedColumns_ || lastRow < fixedRows_ || lastColumn < fixedColumns_)
    throw base::Error(errors::kInvalidPropertyValue,
                      name() + " can't select the fixed " + cellName(row, column) + ".");
  const bool moves = row != row_ || column != column_;
  const bool differs = moves || lastRow != lastRow_ || lastColumn != lastColumn_;
  row_ = row;
  column_ = column;
  lastRow_ = lastRow;
  lastColumn_ = lastColumn;
  if (!differs) return;
  touched(Aspect::kSelection);
  dispatch([&] {
    raise(onSelChange);
    if (moves) raise(onRowColChange);
  });
}

int Grid::columnWidth(int column) const {
  requireColumn(column);
  return widths_[static_cast<std::size_t>(column)];
}

void Grid::setColumnWidth(int column, int twips) {
  requireColumn(column);
  widths_[static_cast<std::size_t>(column)] = twips;
  touched(Aspect::kState);
}

bool Grid::mergedColumn(int column) const {
  requireColumn(column);
  return merged_[static_cast<std::size_t>(column)];
}

void Grid::setMergedColumn(int column, bool merged) {
  requireColumn(column);
  merged_[static_cast<std::size_t>(column)] = merged;
  touched(Aspect::kState);
}

std::optional<Grid::Colour> Grid::cellColour(int row, int column) const {
  requireCell(row, column);
  const auto found = colours_.find({row, column});
  return found == colours_.end() ? std::nullopt : std::optional(found->second);
}

void Grid::setCellColour(int row, int column, std::optional<Colour> colour) {
  requireCell(row, column);
  if (colour)
    colours_[{row, column}] = *colour;
  else
    colours_.erase({row, column});
  touched(Aspect::kState);
}

// Gestures

Deed Grid::takeSelection(const Spot& spot, bool extend) {
  if (!spot.row) refuse("is selected by row");
  const int row = *spot.row;
  const int column = spot.column.value_or(std::max(column_, fixedColumns_));
  requireCell(row, column);
  if (row < fixedRows_ || column < fixedColumns_) refuse("can't select the fixed " + cellName(row, column));
  return [this, row, column, extend] {
    if (extend)
      select(row_, column_, row, column);
    else
      select(row, column);
  };
}

Deed Grid::takeIndex(int index) { return takeSelection(Spot{.row = index}, false); }

Deed Grid::takeClick(const Spot& spot) {
  if (spot.node) refuse("has rows, no nodes");
  const int row = spot.row.value_or(spot.column ? 0 : row_);
  const int column = spot.column.value_or(column_);
  requireCell(row, column);
  return [this, row, column] {
    clickedRow_ = row;
    clickedColumn_ = column;
    if (row >= fixedRows_ && column >= fixedColumns_) select(row, column);
    if (form().visible()) raise(onClick);
  };
}

Deed Grid::takeDoubleClick(const Spot& spot) {
  const Deed click = spot.row || spot.column ? takeClick(spot) : Deed();
  return [this, click] {
    if (click) click();
    if (form().visible()) raise(onDblClick);
  };
}

bool Grid::takeKey(int key, int shift) {
  if (rows() <= fixedRows_ || columns() <= fixedColumns_ || shift != 0) return false;
  if (key == keys::kLeft || key == keys::kRight) {
    const int step = key == keys::kLeft ? -1 : 1;
    select(row_, std::clamp(column_ + step, fixedColumns_, columns() - 1));
    return true;
  }
  const auto next = rowForKey(key, shift, row_, fixedRows_, rows() - 1);
  if (next) select(*next, column_);
  return next.has_value();
}

void Grid::describe(ControlState& state) const {
  state.rows = cells_;
  state.row = row_;
  state.column = column_;
  state.fixedRows = fixedRows_;
  state.selected.emplace();
  if (rows() <= fixedRows_) return;
  for (int row = std::min(row_, lastRow_); row <= std::max(row_, lastRow_); ++row)
    state.selected->push_back(row);
}

}  // namespace kolvane::forms
