// ListView: rows with sub-items under column headers.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

class ListView;

// A row. Lives until it is removed or the list is cleared.
class ListItem {
 public:
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;

  int row() const;  // from 1; costs a search
  const std::string& key() const { return key_; }
  const std::string& text() const { return cell(0); }
  void setText(std::string_view text) { setCell(0, text); }
  // Column 0 is the text, 1 the first sub-item. A column that was never set is empty. Below 0: error 9.
  const std::string& cell(int column) const;
  void setCell(int column, std::string_view text);
  bool checked() const { return checked_; }
  void setChecked(bool checked);  // without an event
  bool selected() const { return selected_; }
  const std::string& tag() const { return tag_; }
  void setTag(std::string_view tag) { tag_ = tag; }
  const std::string& icon() const { return icon_; }
  void setIcon(std::string_view key);

 private:
  friend class ListView;
  explicit ListItem(ListView& owner) : owner_(owner) {}

  ListView& owner_;
  std::string key_;
  std::vector<std::string> cells_;
  std::string tag_;
  std::string icon_;
  bool checked_ = false;
  bool selected_ = false;
};

// Rows count from 1, columns from 0. A row number or key that isn't there raises 35601, a column number 9.
// The first row that comes into an empty list becomes the selected one.
class ListView final : public Control {
 public:
  struct Column {
    std::string caption;
    int width = 0;  // twips; 0: as the contents need
    bool hidden = false;
  };
  enum class Order { kAscending, kDescending };

  ListView(Form& form, std::string_view name, std::initializer_list<std::string_view> columns = {});

  const std::vector<Column>& columns() const { return columns_; }
  void addColumn(std::string_view caption, int width = 0);
  void setColumn(int column, const Column& value);
  void clearColumns();

  // Behind the others, or where it belongs when the list is sorted. A key that is taken raises 35602; an
  // empty one is no key.
  ListItem& add(std::string_view text, std::string_view key = {}, std::string_view icon = {});
  // The row gets the number `row`; count() + 1 adds at the end.
  ListItem& insert(int row, std::string_view text, std::string_view key = {}, std::string_view icon = {});
  void remove(int row);
  void clear();
  int count() const { return static_cast<int>(rows_.size()); }
  bool empty() const { return rows_.empty(); }
  ListItem& item(int row);
  const ListItem& item(int row) const;
  ListItem& item(std::string_view key);
  ListItem* find(std::string_view key);                       // nullptr without one
  ListItem* findText(std::string_view text, int column = 0);  // the first with exactly this text, or nullptr
  // Exchanges two rows with all that they hold.
  void swapRows(int first, int second);

  // The row that has the focus, nullptr in an empty list or when there is none.
  ListItem* selectedItem() { return current_; }
  const ListItem* selectedItem() const { return current_; }
  int selectedRow() const { return current_ ? current_->row() : 0; }
  // Makes it the only selected row; nullptr selects none.
  void select(ListItem* item);
  // Adds to or takes from the selection; for lists that allow several.
  void setSelected(ListItem& item, bool selected);
  std::vector<ListItem*> selectedItems();
  std::vector<ListItem*> checkedItems();

  bool checkBoxes() const { return checkBoxes_; }
  void setCheckBoxes(bool boxes);
  bool multiSelect() const { return multiSelect_; }
  void setMultiSelect(bool multi) { multiSelect_ = multi; }
  bool selectsSeveral() const override { return multiSelect_; }

  // Sorted by a column's text without regard to case; equal rows keep their order. Rows added later go where
  // they belong; a changed text moves its row at the next sort.
  void sort(int column, Order order = Order::kAscending);
  void setSorted(bool sorted);
  bool sorted() const { return sorted_; }
  int sortColumn() const { return sortColumn_; }
  Order sortOrder() const { return sortOrder_; }

  std::function<void(ListItem& item)> onItemClick;
  std::function<void(ListItem& item)> onItemCheck;
  std::function<void(int column)> onColumnClick;

 protected:
  void describe(ControlState& state) const override;
  Deed takeIndex(int index) override;
  Deed takeItem(std::string_view text) override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  Deed takeCheck(const Spot& spot, bool value) override;
  Deed takeClick(const Spot& spot) override;
  Deed takeDoubleClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;
  void takeCharacter(int character) override;

 private:
  friend class ListItem;

  void requireRow(int row, int last) const;
  bool before(const ListItem& a, const ListItem& b) const;
  // The row of the spot, which must be there; of an empty one the current row or nullptr.
  ListItem* aimedAt(const Spot& spot);
  void choose(const Spot& spot, bool extend);
  void tick(const Spot& spot, bool value);
  ListItem& put(std::size_t position, std::string_view text, std::string_view key, std::string_view icon);

  std::vector<Column> columns_;
  std::vector<std::unique_ptr<ListItem>> rows_;
  std::unordered_map<std::string, ListItem*> byKey_;
  ListItem* current_ = nullptr;
  bool checkBoxes_ = false;
  bool multiSelect_ = false;
  bool sorted_ = false;
  int sortColumn_ = 0;
  Order sortOrder_ = Order::kAscending;
};

}  // namespace kolvane::forms
