// The state of a form as a plain value, and as text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/kinds.h"

namespace kolvane::forms {

class Form;

struct NodeState {
  std::string key;
  std::string text;
  std::string image;
  bool expanded = false;
  bool checked = false;
  bool selected = false;
  std::vector<NodeState> children;
};

struct PanelState {
  std::string key;
  std::string text;
};

struct MenuState {
  std::string name;
  std::string caption;
  std::string shortcut;
  bool enabled = true;
  bool visible = true;
  bool checked = false;
  std::vector<MenuState> items;
};

// What is empty does not belong to the control's kind.
struct ControlState {
  std::string name;
  Kind kind = Kind::kLabel;
  std::string caption;  // the control's own, else the label in front of it
  bool enabled = true;  // the control's own settings
  bool visible = true;
  bool focus = false;
  bool locked = false;
  bool defaultButton = false;
  bool cancelButton = false;
  bool password = false;
  bool checkBoxes = false;
  std::string picture;

  std::optional<std::string> text;
  std::optional<double>
      value;  // 0 1 2 of a check box, 0 or 1 of an option button, of a bar, a timer's interval
  std::optional<std::vector<std::string>> items;
  std::optional<int> listIndex;
  std::optional<std::vector<std::string>> columns;            // captions of the headers
  std::optional<std::vector<std::vector<std::string>>> rows;  // of a grid with its fixed rows
  std::optional<std::vector<int>> checked;                    // rows or indexes, as the control counts them
  std::optional<std::vector<int>> selected;
  std::optional<std::vector<std::string>> keys;  // of the rows or items, empty where there is none
  std::optional<std::vector<NodeState>> nodes;
  std::optional<std::vector<PanelState>> panels;
  std::optional<int> tab;
  std::optional<std::vector<std::string>> pages;
  std::optional<double> min;
  std::optional<double> max;
  std::optional<int> row;  // current cell of a grid
  std::optional<int> column;
  int fixedRows = 0;
};

struct FormState {
  std::string name;
  std::string caption;
  bool loaded = false;
  bool visible = false;
  bool modal = false;
  std::string focus;                   // name of the control that has it
  std::string blockedBy;               // name of the modal form above it
  std::vector<ControlState> controls;  // all but the menus, in order of creation
  std::vector<MenuState> menus;
};

FormState snapshot(const Form& form);

// A form as text: its menus, then the controls in the order of the layout, one a line with its state, what it
// holds below it; frames and pages are told by indentation, pages that aren't shown by their caption only. In
// the code page of the form's texts; ends in a line feed.
std::string dump(const Form& form);

}  // namespace kolvane::forms
