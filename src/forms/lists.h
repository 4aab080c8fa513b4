// Controls over a list of texts: ListBox, ComboBox, ImageCombo. Indexes count from 0; -1 is none. An index
// out of range raises 380.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

// The list itself.
class ListControl : public Control {
 public:
  int listCount() const { return static_cast<int>(items_.size()); }
  const std::string& list(int index) const { return at(index).text; }
  void setList(int index, std::string_view text);
  long itemData(int index) const { return at(index).data; }
  void setItemData(int index, long data);
  // The first item with exactly this text, or -1.
  int indexOf(std::string_view text) const;
  std::vector<std::string> items() const;

  // Behind the others, or where it belongs when the list is sorted; in front of item `index` when that is
  // given. The selected item stays selected.
  void addItem(std::string_view text, int index = -1);
  void addItems(const std::vector<std::string>& texts);
  void addItems(std::initializer_list<std::string_view> texts);
  // Index of the item added last; -1 after a removal.
  int newIndex() const { return newIndex_; }
  // Without an event, also when the selected item goes; then none is selected.
  void removeItem(int index);
  void clear();
  // Text order without regard to case. Items that are there already are sorted too.
  bool sorted() const { return sorted_; }
  void setSorted(bool sorted);

  int listIndex() const { return listIndex_; }
  void setListIndex(int index);

 protected:
  struct Item {
    std::string text;
    long data = 0;
    bool selected = false;
  };

  using Control::Control;
  void describe(ControlState& state) const override;
  Deed takeIndex(int index) override;
  Deed takeItem(std::string_view text) override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  Deed takeClick(const Spot& spot) override;
  Deed takeDoubleClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;
  void takeCharacter(int character) override;  // selects the next item that begins with it

  // What follows when the index has changed, in code or by hand.
  virtual void indexChanged() { raise(onClick); }
  // The items or the index changed without an event.
  virtual void listChanged() {}
  // Selects as a user does.
  void choose(int index);
  const Item& at(int index) const;
  Item& at(int index) { return const_cast<Item&>(std::as_const(*this).at(index)); }

  std::vector<Item> items_;
  int listIndex_ = -1;

 private:
  int newIndex_ = -1;
  bool sorted_ = false;
};

class ListBox final : public ListControl {
 public:
  ListBox(Form& form, std::string_view name);

  bool multiSelect() const { return multiSelect_; }
  void setMultiSelect(bool multi) { multiSelect_ = multi; }
  bool selectsSeveral() const override { return multiSelect_; }
  // Every item has a check box; selected() tells whether it is ticked.
  bool checkBoxes() const { return checkBoxes_; }
  void setCheckBoxes(bool boxes);

  bool selected(int index) const;
  // Ticks or selects; in a list of one selection it is setListIndex.
  void setSelected(int index, bool selected);
  int selCount() const;

  std::function<void(int index)> onItemCheck;

 protected:
  void describe(ControlState& state) const override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  Deed takeCheck(const Spot& spot, bool value) override;
  bool takeKey(int key, int shift) override;

 private:
  bool multiSelect_ = false;
  bool checkBoxes_ = false;
};

// A text field with a list, or (kDropdownList) a choice from the list only.
class ComboBox final : public ListControl {
 public:
  enum class Style { kDropdownCombo, kDropdownList };
  static constexpr Style kDropdownCombo = Style::kDropdownCombo;
  static constexpr Style kDropdownList = Style::kDropdownList;

  ComboBox(Form& form, std::string_view name, Style style = kDropdownCombo,
           std::initializer_list<std::string_view> items = {});

  Style style() const { return style_; }
  bool locked() const { return locked_; }
  void setLocked(bool locked);
  const std::string& text() const { return text_; }
  // A combo takes any text; the index becomes that of the item with this text, or -1, and Change is raised
  // when the text differs. A list selects the item with this text (Click); without one it raises 383.
  void setText(std::string_view text);

 protected:
  void describe(ControlState& state) const override;
  Deed takeText(std::string_view text) override;
  Deed takeIndex(int index) override;
  bool takeKey(int key, int shift) override;
  void takeCharacter(int character) override;
  void takeEdited(std::string_view text, int caret) override;
  void indexChanged() override;
  void listChanged() override;

 private:
  void edit(std::string text);

  Style style_;
  std::string text_;
  bool locked_ = false;
};

// A combo whose items have keys, pictures and indentation. Only a user's choice raises Click.
class ImageCombo final : public Control {
 public:
  struct Item {
    std::string key;
    std::string text;
    std::string picture;
    int indentation = 0;
    std::string tag;
  };

  ImageCombo(Form& form, std::string_view name);

  // A key that is taken raises 35602; an empty one is no key.
  void add(std::string_view key, std::string_view text, std::string_view picture = {}, int indentation = 0);
  void clear();
  void remove(int index);
  void sort();  // by text, without regard to case
  int count() const { return static_cast<int>(items_.size()); }
  const Item& item(int index) const;
  const Item& item(std::string_view key) const { return item(requireKey(key)); }
  int indexOfKey(std::string_view key) const;    // -1 without one
  int indexOfText(std::string_view text) const;  // likewise
  void setTag(int index, std::string_view tag);
  using Control::setTag;

  int listIndex() const { return listIndex_; }
  void setListIndex(int index);
  void selectKey(std::string_view key) { setListIndex(requireKey(key)); }
  // Raises 91 when nothing is selected.
  const Item& selectedItem() const;
  const std::string& text() const { return text_; }
  // Any text; selects the item with exactly this one, or none. Change is raised when the text differs.
  void setText(std::string_view text);
  bool locked() const { return locked_; }
  void setLocked(bool locked);

 protected:
  void describe(ControlState& state) const override;
  Deed takeText(std::string_view text) override;
  Deed takeIndex(int index) override;
  Deed takeItem(std::string_view text) override;
  Deed takeSelection(const Spot& spot, bool extend) override;
  bool takeKey(int key, int shift) override;
  void takeCharacter(int character) override;
  void takeEdited(std::string_view text, int) override { setText(text); }

 private:
  int requireKey(std::string_view key) const;
  void choose(int index);

  std::vector<Item> items_;
  int listIndex_ = -1;
  std::string text_;
  bool locked_ = false;
};

}  // namespace kolvane::forms
