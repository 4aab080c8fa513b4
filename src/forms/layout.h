// Where the controls of a form stand, as a value: rows, columns, frames and pages instead of coordinates.
//
//   return column(row("&Name:", txtName),
//                 row("&Scope:", cboScope),
//                 group(fraOptions, chkHeader, chkClasses),
//                 grow(lvwResults),
//                 buttons(cmdApply, cmdOK, cmdCancel),
//                 unplaced(cmdPrint));
//
// A text labels the control directly behind it in the same list, unless that has a caption of its own: its
// access key leads there, and the desk lines up the labels of neighbouring rows. Every control has its place
// exactly once (layoutFaults() tells), but for menus and timers, which have none. What lies in a frame or on
// a page belongs to it: it can be used only while the frame is enabled and visible and the page is shown, and
// the option buttons in it form a group.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

struct Layout {
  enum class Type {
    kControl,
    kText,
    kRow,      // side by side
    kColumn,   // one below the other
    kGrid,     // `number` columns, filled row by row
    kGroup,    // in the frame `control`, one below the other
    kTabs,     // pages of the tabs `control`
    kPage,     // one of them
    kStack,    // over each other, the last one on top
    kButtons,  // the form's buttons, lined up at its edge
    kStretch,  // empty space that takes what is left over
    kSpace,    // empty space of `number` twips
    kUnplaced  // controls that have no place: people never see them
  };

  Type type = Type::kColumn;
  std::string text;
  const Control* control = nullptr;
  int number = 0;
  int weight = 0;  // share of the space that is left over; 0: as much as needed
  std::vector<Layout> children;

  Layout() = default;
  Layout(const Control& item) : type(Type::kControl), control(&item) {}  // NOLINT: meant to convert
  Layout(std::string_view label) : type(Type::kText), text(label) {}     // NOLINT
  Layout(const char* label) : type(Type::kText), text(label) {}          // NOLINT
  Layout(Type kind, std::vector<Layout> items, const Control* of = nullptr, int count = 0)
      : type(kind), control(of), number(count), children(std::move(items)) {}
};

template <class... Items>
Layout row(const Items&... items) {
  return Layout(Layout::Type::kRow, {Layout(items)...});
}
template <class... Items>
Layout column(const Items&... items) {
  return Layout(Layout::Type::kColumn, {Layout(items)...});
}
// `columns` cells a row; an empty text leaves a cell empty.
template <class... Items>
Layout grid(int columns, const Items&... items) {
  return Layout(Layout::Type::kGrid, {Layout(items)...}, nullptr, columns);
}
template <class... Items>
Layout group(const Control& frame, const Items&... items) {
  return Layout(Layout::Type::kGroup, {Layout(items)...}, &frame);
}
template <class... Items>
Layout page(const Items&... items) {
  return Layout(Layout::Type::kPage, {Layout(items)...});
}
// As many pages as the control has.
template <class... Pages>
Layout tabs(const Control& control, const Pages&... pages) {
  return Layout(Layout::Type::kTabs, {Layout(pages)...}, &control);
}
template <class... Items>
Layout stack(const Items&... items) {
  return Layout(Layout::Type::kStack, {Layout(items)...});
}
template <class... Items>
Layout buttons(const Items&... items) {
  return Layout(Layout::Type::kButtons, {Layout(items)...});
}
template <class... Items>
Layout unplaced(const Items&... items) {
  return Layout(Layout::Type::kUnplaced, {Layout(items)...});
}
inline Layout stretch() { return Layout(Layout::Type::kStretch, {}); }
inline Layout space(int twips) { return Layout(Layout::Type::kSpace, {}, nullptr, twips); }
inline Layout grow(Layout item, int weight = 1) {
  item.weight = weight;
  return item;
}

// Where one control stands.
struct Place {
  const Control* container = nullptr;  // Frame or Tabs; nullptr: the form itself
  int page = -1;                       // of the Tabs
  bool unplaced = false;
  std::string label;  // text in front of it
};

// The control that the text at `index` of a list labels; nullptr for anything else. Of a stack: the top one.
const Control* labelledBy(const Layout& list, std::size_t index);

// Every control of the layout with its place, in layout order.
std::vector<std::pair<const Control*, Place>> places(const Layout& layout);

// What is wrong with a form's layout, one sentence a fault: a control that is missing or stands twice, one of
// another form, a group that is no frame, pages that do not fit the tabs, a text that labels nothing and
// looks like a label.
std::vector<std::string> layoutFaults(const Form& form);

}  // namespace kolvane::forms
