#include "forms/list_view.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/list_keys.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

// ListItem

int ListItem::row() const {
  const auto& rows = owner_.rows_;
  const auto self =
      std::find_if(rows.begin(), rows.end(), [this](const auto& item) { return item.get() == this; });
  return static_cast<int>(self - rows.begin()) + 1;
}

const std::string& ListItem::cell(int column) const {
  static const std::string kEmpty;
  if (column < 0) throw base::Error(base::errors::kSubscript);
  const auto at = static_cast<std::size_t>(column);
  return at < cells_.size() ? cells_[at] : kEmpty;
}

void ListItem::setCell(int column, std::string_view text) {
  if (column < 0) throw base::Error(base::errors::kSubscript);
  const auto at = static_cast<std::size_t>(column);
  if (at >= cells_.size()) cells_.resize(at + 1);
  cells_[at] = text;
  owner_.touched(Aspect::kContent);
}

void ListItem::setChecked(bool checked) {
  checked_ = checked;
  owner_.touched(Aspect::kSelection);
}

void ListItem::setIcon(std::string_view key) {
  icon_ = key;
  owner_.touched(Aspect::kContent);
}

// Columns

ListView::ListView(Form& form, std::string_view name, std::initializer_list<std::string_view> columns)
    : Control(form, Kind::kListView, name) {
  for (const auto caption : columns) columns_.push_back({std::string(caption), 0, false});
}

void ListView::addColumn(std::string_view caption, int width) {
  columns_.push_back({std::string(caption), width, false});
  touched(Aspect::kContent);
}

void ListView::setColumn(int column, const Column& value) {
  if (column < 0 || column >= static_cast<int>(columns_.size())) throw base::Error(base::errors::kSubscript);
  columns_[static_cast<std::size_t>(column)] = value;
  touched(Aspect::kContent);
}

void ListView::clearColumns() {
  columns_.clear();
  touched(Aspect::kContent);
}

// Rows

void ListView::requireRow(int row, int last) const {
  if (row >= 1 && row <= last) return;
  throw base::Error(errors::kElementNotFound, name() + " has no row " + std::to_string(row) + ".");
}

bool ListView::before(const ListItem& a, const ListItem& b) const {
  const bool down = sortOrder_ == Order::kDescending;
  return base::LessNoCase()((down ? b : a).cell(sortColumn_), (down ? a : b).cell(sortColumn_));
}

ListItem& ListView::put(std::size_t position, std::string_view text, std::string_view key,
                        std::string_view icon) {
  std::unique_ptr<ListItem> owned(new ListItem(*this));
  ListItem& item = *owned;
  item.key_ = key;
  item.cells_.emplace_back(text);
  item.icon_ = icon;
  if (!key.empty() && !byKey_.emplace(item.key_, &item).second)
    throw base::Error(errors::kKeyNotUnique, name() + " has a row with the key " + item.key_ + " already.");
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(position), std::move(owned));
  if (rows_.size() == 1) {
    current_ = &item;
    item.selected_ = true;
  }
  touched(Aspect::kContent);
  return item;
}

ListItem& ListView::add(std::string_view text, std::string_view key, std::string_view icon) {
  ListItem& item = put(rows_.size(), text, key, icon);
  if (sorted_ && rows_.size() > 1 && before(item, *rows_[rows_.size() - 2])) {
    const auto last = rows_.end() - 1;
    const auto place = std::upper_bound(rows_.begin(), last, *last,
                                        [this](const auto& a, const auto& b) { return before(*a, *b); });
    std::rotate(place, last, rows_.end());
  }
  return item;
}

ListItem& ListView::insert(int row, std::string_view text, std::string_view key, std::string_view icon) {
  requireRow(row, count() + 1);
  return put(static_cast<std::size_t>(row - 1), text, key, icon);
}

void ListView::remove(int row) {
  requireRow(row, count());
  const auto position = rows_.begin() + (row - 1);
  byKey_.erase((*position)->key_);
  const bool wasCurrent = position->get() == current_;
  rows_.erase(position);
  if (wasCurrent) {
    current_ = rows_.empty() ? nullptr : rows_[static_cast<std::size_t>(std::min(row, count()) - 1)].get();
    if (current_) current_->selected_ = true;
  }
  touched(Aspect::kContent);
}

void ListView::clear() {
  current_ = nullptr;
  byKey_.clear();
  rows_.clear();
  touched(Aspect::kContent);
}

ListItem& ListView::item(int row) {
  requireRow(row, count());
  return *rows_[static_cast<std::size_t>(row - 1)];
}

const ListItem& ListView::item(int row) const { return const_cast<ListView*>(this)->item(row); }

ListItem& ListView::item(std::string_view key) {
  if (ListItem* found = find(key)) return *found;
  throw base::Error(errors::kElementNotFound,
                    name() + " has no row with the key \"" + std::string(key) + "\".");
}

ListItem* ListView::find(std::string_view key) {
  const auto found = byKey_.find(std::string(key));
  return found == byKey_.end() ? nullptr : found->second;
}

ListItem* ListView::findText(std::string_view text, int column) {
  for (const auto& row : rows_)
    if (row->cell(column) == text) return row.get();
  return nullptr;
}

void ListView::swapRows(int first, int second) {
  requireRow(first, count());
  requireRow(second, count());
  std::swap(rows_[static_cast<std::size_t>(first - 1)], rows_[static_cast<std::size_t>(second - 1)]);
  touched(Aspect::kContent);
}

// Selection and ticks

void ListView::select(ListItem* item) {
  for (const auto& row : rows_) row->selected_ = false;
  current_ = item;
  if (item) item->selected_ = true;
  touched(Aspect::kSelection);
}

void ListView::setSelected(ListItem& item, bool selected) {
  item.selected_ = selected;
  if (selected)
    current_ = &item;
  else if (current_ == &item)
    current_ = nullptr;
  touched(Aspect::kSelection);
}

std::vector<ListItem*> ListView::selectedItems() {
  std::vector<ListItem*> items;
  for (const auto& row : rows_)
    if (row->selected_) items.push_back(row.get());
  return items;
}

std::vector<ListItem*> ListView::checkedItems() {
  std::vector<ListItem*> items;
  for (const auto& row : rows_)
    if (row->checked_) items.push_back(row.get());
  return items;
}

void ListView::setCheckBoxes(bool boxes) {
  checkBoxes_ = boxes;
  touched(Aspect::kState);
}

// Order

void ListView::sort(int column, Order order) {
  sortColumn_ = column;
  sortOrder_ = order;
  setSorted(true);
}

void ListView::setSorted(bool sorted) {
  sorted_ = sorted;
  if (!sorted) return;
  std::stable_sort(rows_.begin(), rows_.end(),
                   [this](const auto& a, const auto& b) { return before(*a, *b); });
  touched(Aspect::kContent);
}

// Gestures

ListItem* ListView::aimedAt(const Spot& spot) {
  if (spot.node) return &item(*spot.node);
  if (spot.row) return &item(*spot.row);
  return current_;
}

void ListView::choose(const Spot& spot, bool extend) {
  ListItem& item = *aimedAt(spot);
  if (extend && multiSelect_)
    setSelected(item, true);
  else
    select(&item);
  raise(onItemClick, item);
}

void ListView::tick(const Spot& spot, bool value) {
  ListItem& item = *aimedAt(spot);
  if (item.checked_ == value) return;
  item.setChecked(value);
  raise(onItemCheck, item);
}

Deed ListView::takeSelection(const Spot& spot, bool extend) {
  if (!spot.row && !spot.node) refuse("is selected by row or key");
  aimedAt(spot);
  return [this, spot, extend] { choose(spot, extend); };
}

Deed ListView::takeIndex(int index) { return takeSelection(Spot{.row = index + 1}, false); }

Deed ListView::takeItem(std::string_view text) {
  ListItem* item = findText(text);
  if (!item) refuse("has no row \"" + std::string(text) + "\"");
  return takeSelection(Spot{.row = item->row()}, false);
}

Deed ListView::takeCheck(const Spot& spot, bool value) {
  if (!checkBoxes_) refuse("has no check boxes");
  if (!spot.row && !spot.node) refuse("is ticked by row or key");
  aimedAt(spot);
  return [this, spot, value] { tick(spot, value); };
}

Deed ListView::takeClick(const Spot& spot) {
  const bool header = spot.column && !spot.row && !spot.node;
  if (header) {
    const int column = *spot.column;
    if (column < 0 || column >= static_cast<int>(columns_.size()))
      refuse("has no column " + std::to_string(column));
    return [this, column] { raise(onColumnClick, column); };
  }
  const Deed select = spot.row || spot.node ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible()) raise(onClick);
  };
}

Deed ListView::takeDoubleClick(const Spot& spot) {
  const Deed select = aimedAt(spot) != current_ ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible()) raise(onDblClick);
  };
}

bool ListView::takeKey(int key, int shift) {
  if (key == keys::kSpace && shift == 0 && checkBoxes_ && current_) {
    tick({}, !current_->checked_);
    return true;
  }
  const int row = current_ ? current_->row() : 0;
  const auto next = rowForKey(key, shift, row, 1, count());
  if (next && *next != row) choose(Spot{.row = *next}, false);
  return next.has_value();
}

void ListView::takeCharacter(int character) {
  const int row = current_ ? current_->row() : 0;
  const int next = nextByLetter(character, row - 1, count(),
                                [this](int index) -> std::string_view { return item(index + 1).text(); });
  if (next >= 0 && next + 1 != row) choose(Spot{.row = next + 1}, false);
}

void ListView::describe(ControlState& state) const {
  state.checkBoxes = checkBoxes_;
  state.columns.emplace();
  std::size_t width = 1;
  for (const auto& column : columns_) state.columns->push_back(column.caption);
  width = std::max(width, columns_.size());
  state.rows.emplace();
  state.keys.emplace();
  state.selected.emplace();
  if (checkBoxes_) state.checked.emplace();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const ListItem& item = *rows_[i];
    auto& cells = state.rows->emplace_back(item.cells_);
    cells.resize(std::max(width, cells.size()));
    state.keys->push_back(item.key_);
    const int row = static_cast<int>(i) + 1;
    if (item.selected_) state.selected->push_back(row);
    if (checkBoxes_ && item.checked_) state.checked->push_back(row);
  }
}

}  // namespace kolvane::forms
