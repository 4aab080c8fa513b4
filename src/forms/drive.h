// Forms by name: what the automation interface asks for, done as in user.h. Names that aren't there raise 5
// with a sentence that says so.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/desk.h"
#include "forms/form.h"

namespace kolvane::forms::drive {

// A row's number, as the control counts its rows, or a key: of a list view's row, of a tree's node. A node
// without a key is known by its full path ("Project\Form").
using RowOrKey = std::variant<int, std::string>;

struct Tick {
  RowOrKey where = 0;
  bool value = true;
};

// Exactly one is set; else 5.
struct Setting {
  std::optional<std::string> text = {};
  std::optional<double> value = {};
  std::optional<int> index = {};
  std::optional<std::string> item = {};
  std::vector<RowOrKey> select = {};  // several where the list allows it
  std::optional<Tick> check = {};
  std::optional<int> tab = {};
};

// The open form of that name.
Form& openForm(Desk& desk, std::string_view name);

// False: as in user.h.
bool set(Form& form, std::string_view control, const Setting& setting);
bool click(Form& form, std::string_view control, const Spot& spot = {});
bool doubleClick(Form& form, std::string_view control, const Spot& spot = {});
bool key(Form& form, std::optional<std::string_view> control, int code, int shift = 0);
bool focus(Form& form, std::string_view control);
bool close(Form& form);

}  // namespace kolvane::forms::drive
