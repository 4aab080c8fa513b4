#include "forms/lists.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/list_keys.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

namespace {

void requireIndex(const Control& control, int index, int first, int count) {
  if (index >= first && index < count) return;
  throw base::Error(errors::kInvalidPropertyValue,
                    "The list of " + control.name() + " has no index " + std::to_string(index) + ".");
}

}  // namespace

// ListControl

const ListControl::Item& ListControl::at(int index) const {
  requireIndex(*this, index, 0, listCount());
  return items_[static_cast<std::size_t>(index)];
}

void ListControl::setList(int index, std::string_view text) {
  at(index).text = text;
  touched(Aspect::kContent);
  listChanged();
}

void ListControl::setItemData(int index, long data) { at(index).data = data; }

int ListControl::indexOf(std::string_view text) const {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.text == text; });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::vector<std::string> ListControl::items() const {
  std::vector<std::string> texts;
  texts.reserve(items_.size());
  for (const Item& item : items_) texts.push_back(item.text);
  return texts;
}

void ListControl::addItem(std::string_view text, int index) {
  auto position = items_.end();
  if (index >= 0) {
    requireIndex(*this, index, 0, listCount() + 1);
    position = items_.begin() + index;
  } else if (sorted_) {
    position = std::upper_bound(
        items_.begin(), items_.end(), text,
        [](std::string_view value, const Item& item) { return base::LessNoCase()(value, item.text); });
  }
  newIndex_ = static_cast<int>(position - items_.begin());
  items_.insert(position, Item{std::string(text), 0, false});
  if (newIndex_ <= listIndex_) ++listIndex_;
  touched(Aspect::kContent);
}

void ListControl::addItems(const std::vector<std::string>& texts) {
  for (const auto& text : texts) addItem(text);
}

void ListControl::addItems(std::initializer_list<std::string_view> texts) {
  for (const auto text : texts) addItem(text);
}

void ListControl::removeItem(int index) {
  requireIndex(*this, index, 0, listCount());
  items_.erase(items_.begin() + index);
  newIndex_ = -1;
  if (listIndex_ == index)
    listIndex_ = -1;
  else if (listIndex_ > index)
    --listIndex_;
  touched(Aspect::kContent);
  listChanged();
}

void ListControl::clear() {
  items_.clear();
  listIndex_ = -1;
  newIndex_ = -1;
  touched(Aspect::kContent);
  listChanged();
}

void ListControl::setSorted(bool sorted) {
  sorted_ = sorted;
  if (!sorted || items_.empty()) return;
  std::vector<std::size_t> order(items_.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return base::LessNoCase()(items_[a].text, items_[b].text);
  });
  std::vector<Item> next;
  next.reserve(items_.size());
  int index = -1;
  for (const std::size_t from : order) {
    if (static_cast<int>(from) == listIndex_) index = static_cast<int>(next.size());
    next.push_back(std::move(items_[from]));
  }
  items_ = std::move(next);
  listIndex_ = index;
  touched(Aspect::kContent);
}

void ListControl::setListIndex(int index) {
  requireIndex(*this, index, -1, listCount());
  if (listIndex_ == index) return;
  listIndex_ = index;
  touched(Aspect::kSelection);
  indexChanged();
}

void ListControl::describe(ControlState& state) const {
  state.items = items();
  state.listIndex = listIndex_;
}

// A user's choice raises the event also when the item was chosen before.
void ListControl::choose(int index) {
  requireIndex(*this, index, 0, listCount());
  listIndex_ = index;
  touched(Aspect::kSelection);
  indexChanged();
}

Deed ListControl::takeIndex(int index) {
  if (index < 0 || index >= listCount()) refuse("has no index " + std::to_string(index));
  return [this, index] { choose(index); };
}

Deed ListControl::takeItem(std::string_view text) {
  const int index = indexOf(text);
  if (index < 0) refuse("has no item \"" + std::string(text) + "\"");
  return takeIndex(index);
}

Deed ListControl::takeSelection(const Spot& spot, bool) {
  if (!spot.row) refuse("is selected by row");
  return takeIndex(*spot.row);
}

Deed ListControl::takeClick(const Spot& spot) {
  if (spot.column || spot.node) refuse("has rows only");
  if (spot.row) return takeSelection(spot, false);
  return [this] { raise(onClick); };
}

Deed ListControl::takeDoubleClick(const Spot& spot) {
  const Deed select = spot.row && *spot.row != listIndex_ ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible()) raise(onDblClick);
  };
}

bool ListControl::takeKey(int key, int shift) {
  const auto next = rowForKey(key, shift, listIndex_, 0, listCount() - 1);
  if (next && *next != listIndex_) choose(*next);
  return next.has_value();
}

void ListControl::takeCharacter(int character) {
  const int next = nextByLetter(character, listIndex_, listCount(),
                                [this](int index) -> std::string_view { return list(index); });
  if (next >= 0 && next != listIndex_) choose(next);
}

// ListBox

ListBox::ListBox(Form& form, std::string_view name) : ListControl(form, Kind::kListBox, name) {}

void ListBox::setCheckBoxes(bool boxes) {
  checkBoxes_ = boxes;
  touched(Aspect::kState);
}

bool ListBox::selected(int index) const {
  const Item& item = at(index);
  return multiSelect_ || checkBoxes_ ? item.selected : index == listIndex();
}

void ListBox::setSelected(int index, bool selected) {
  Item& item = at(index);
  if (!multiSelect_ && !checkBoxes_) {
    if (selected)
      setListIndex(index);
    else if (index == listIndex())
      setListIndex(-1);
    return;
  }
  if (item.selected == selected) return;
  item.selected = selected;
  touched(Aspect::kSelection);
  if (checkBoxes_)
    raise(onItemCheck, index);
  else
    raise(onClick);
}

int ListBox::selCount() const {
  if (!multiSelect_ && !checkBoxes_) return listIndex() < 0 ? 0 : 1;
  return static_cast<int>(
      std::count_if(items_.begin(), items_.end(), [](const Item& item) { return item.selected; }));
}

Deed ListBox::takeSelection(const Spot& spot, bool extend) {
  const Deed choose = ListControl::takeSelection(spot, extend);
  if (!multiSelect_) return choose;
  return [this, choose, extend, index = *spot.row] {
    if (!extend)
      for (Item& item : items_) item.selected = false;
    at(index).selected = true;
    choose();
  };
}

Deed ListBox::takeCheck(const Spot& spot, bool value) {
  if (!checkBoxes_) refuse("has no check boxes");
  if (!spot.row) refuse("is ticked by row");
  const int index = *spot.row;
  if (index < 0 || index >= listCount()) refuse("has no index " + std::to_string(index));
  return [this, index, value] {
    at(index);
    listIndex_ = index;
    setSelected(index, value);
  };
}

bool ListBox::takeKey(int key, int shift) {
  if (key == keys::kSpace && checkBoxes_ && listIndex() >= 0) {
    setSelected(listIndex(), !selected(listIndex()));
    return true;
  }
  return ListControl::takeKey(key, shift);
}

void ListBox::describe(ControlState& state) const {
  ListControl::describe(state);
  state.checkBoxes = checkBoxes_;
  std::vector<int> marked;
  for (int i = 0; i < listCount(); ++i)
    if (selected(i)) marked.push_back(i);
  (checkBoxes_ ? state.checked : state.selected) = std::move(marked);
}

// ComboBox

ComboBox::ComboBox(Form& form, std::string_view name, Style style,
                   std::initializer_list<std::string_view> items)
    : ListControl(form, Kind::kComboBox, name), style_(style) {
  addItems(items);
}

void ComboBox::setLocked(bool locked) {
  locked_ = locked;
  touched(Aspect::kState);
}

void ComboBox::setText(std::string_view text) {
  if (style_ == Style::kDropdownCombo) return edit(std::string(text));
  const int index = indexOf(text);
  if (index < 0)
    throw base::Error(base::errors::kReadOnlyProperty,
                      name() + " takes only the items of its list; \"" + std::string(text) + "\" is none.");
  setListIndex(index);
}

void ComboBox::edit(std::string text) {
  listIndex_ = indexOf(text);
  const bool differs = text_ != text;
  text_ = std::move(text);
  touched(Aspect::kContent);
  if (differs) raise(onChange);
}

void ComboBox::indexChanged() {
  text_ = listIndex_ < 0 ? std::string() : list(listIndex_);
  raise(onClick);
}

void ComboBox::listChanged() {
  if (listIndex_ >= 0)
    text_ = list(listIndex_);
  else if (style_ == Style::kDropdownList || listCount() == 0)
    text_.clear();
}

Deed ComboBox::takeText(std::string_view text) {
  if (style_ == Style::kDropdownList) refuse("takes only the items of its list");
  if (locked_) refuse("is locked");
  if (text.find_first_of("\r\n") != std::string_view::npos) refuse("takes one line only");
  return [this, typed = std::string(text)] {
    if (auto kept = filteredLine(typed)) edit(std::move(*kept));
  };
}

void ComboBox::takeEdited(std::string_view text, int) {
  if (style_ == Style::kDropdownList) refuse("takes only the items of its list");
  edit(std::string(text));
}

Deed ComboBox::takeIndex(int index) {
  if (locked_) refuse("is locked");
  return ListControl::takeIndex(index);
}

bool ComboBox::takeKey(int key, int shift) {
  const bool vertical = key != keys::kHome && key != keys::kEnd;  // these move the caret of the text
  if (locked_ || (style_ == Style::kDropdownCombo && !vertical)) return false;
  return ListControl::takeKey(key, shift);
}

void ComboBox::takeCharacter(int character) {
  if (locked_) return;
  if (style_ == Style::kDropdownList) return ListControl::takeCharacter(character);
  std::string next = text_;
  if (character == keys::kBack) {
    if (next.empty()) return;
    next.pop_back();
  } else if (character >= keys::kSpace) {
    next += static_cast<char>(character);
  }
  edit(std::move(next));
}

void ComboBox::describe(ControlState& state) const {
  ListControl::describe(state);
  state.text = text_;
  state.locked = locked_;
}

// ImageCombo

ImageCombo::ImageCombo(Form& form, std::string_view name) : Control(form, Kind::kImageCombo, name) {}

void ImageCombo::add(std::string_view key, std::string_view text, std::string_view picture, int indentation) {
  if (!key.empty() && indexOfKey(key) >= 0)
    throw base::Error(errors::kKeyNotUnique,
                      name() + " has an item with the key " + std::string(key) + " already.");
  items_.push_back({std::string(key), std::string(text), std::string(picture), indentation, {}});
  touched(Aspect::kContent);
}

void ImageCombo::clear() {
  items_.clear();
  listIndex_ = -1;
  text_.clear();
  touched(Aspect::kContent);
}

void ImageCombo::remove(int index) {
  requireIndex(*this, index, 0, count());
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
    text_.clear();
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  touched(Aspect::kContent);
}

void ImageCombo::sort() {
  std::stable_sort(items_.begin(), items_.end(),
                   [](const Item& a, const Item& b) { return base::LessNoCase()(a.text, b.text); });
  if (listIndex_ >= 0) listIndex_ = indexOfText(text_);
  touched(Aspect::kContent);
}

const ImageCombo::Item& ImageCombo::item(int index) const {
  requireIndex(*this, index, 0, count());
  return items_[static_cast<std::size_t>(index)];
}

int ImageCombo::indexOfKey(std::string_view key) const {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.key == key; });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

int ImageCombo::indexOfText(std::string_view text) const {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.text == text; });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

int ImageCombo::requireKey(std::string_view key) const {
  const int index = key.empty() ? -1 : indexOfKey(key);
  if (index < 0)
    throw base::Error(errors::kElementNotFound,
                      name() + " has no item with the key \"" + std::string(key) + "\".");
  return index;
}

void ImageCombo::setTag(int index, std::string_view tag) {
  requireIndex(*this, index, 0, count());
  items_[static_cast<std::size_t>(index)].tag = tag;
}

void ImageCombo::setListIndex(int index) {
  requireIndex(*this, index, -1, count());
  listIndex_ = index;
  text_ = index < 0 ? std::string() : item(index).text;
  touched(Aspect::kSelection);
}

const ImageCombo::Item& ImageCombo::selectedItem() const {
  if (listIndex_ < 0) throw base::Error(base::errors::kObjectNotSet, name() + " has no selected item.");
  return item(listIndex_);
}

void ImageCombo::setText(std::string_view text) {
  const bool differs = text_ != text;
  listIndex_ = indexOfText(text);
  text_ = text;
  touched(Aspect::kContent);
  if (differs) raise(onChange);
}

void ImageCombo::setLocked(bool locked) {
  locked_ = locked;
  touched(Aspect::kState);
}

Deed ImageCombo::takeText(std::string_view text) {
  if (locked_) refuse("is locked");
  if (text.find_first_of("\r\n") != std::string_view::npos) refuse("takes one line only");
  return [this, typed = std::string(text)] {
    if (const auto kept = filteredLine(typed)) setText(*kept);
  };
}

void ImageCombo::choose(int index) {
  setListIndex(index);
  raise(onClick);
}

Deed ImageCombo::takeIndex(int index) {
  if (index < 0 || index >= count()) refuse("has no index " + std::to_string(index));
  return [this, index] { choose(index); };
}

Deed ImageCombo::takeItem(std::string_view text) {
  const int byText = indexOfText(text);
  const int index = byText >= 0 ? byText : indexOfKey(text);  // items that are pictures have keys only
  if (index < 0) refuse("has no item \"" + std::string(text) + "\"");
  return takeIndex(index);
}

Deed ImageCombo::takeSelection(const Spot& spot, bool) {
  if (spot.node) return takeIndex(requireKey(*spot.node));
  if (!spot.row) refuse("is selected by index or key");
  return takeIndex(*spot.row);
}

bool ImageCombo::takeKey(int key, int shift) {
  if (locked_) return false;
  const auto next = rowForKey(key, shift, listIndex_, 0, count() - 1);
  if (next && *next != listIndex_) choose(*next);
  return next.has_value();
}

void ImageCombo::takeCharacter(int character) {
  if (locked_) return;
  std::string next = text_;
  if (character == keys::kBack) {
    if (next.empty()) return;
    next.pop_back();
  } else if (character >= keys::kSpace) {
    next += static_cast<char>(character);
  }
  setText(next);
}

void ImageCombo::describe(ControlState& state) const {
  state.text = text_;
  state.listIndex = listIndex_;
  state.locked = locked_;
  state.items.emplace();
  state.keys.emplace();
  for (const Item& item : items_) {
    state.items->push_back(item.text);
    state.keys->push_back(item.key);
  }
}

}  // namespace kolvane::forms
