// The kinds of control, in one table.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kolvane::forms {

enum class Kind {
  kLabel,
  kTextBox,
  kRichTextBox,
  kCheckBox,
  kOptionButton,
  kCommandButton,
  kComboBox,
  kImageCombo,
  kListBox,
  kListView,
  kTreeView,
  kFrame,
  kTabs,
  kGrid,
  kProgressBar,
  kStatusBar,
  kMenu,
  kPicture,
  kKeyBox,
  kDriveList,
  kFolderList,
  kFileList,
  kTimer,
};

struct KindRow {
  Kind kind;
  std::string_view name;  // the class's name; automation and dumps use it
  bool focusable;         // can have the focus
  bool placed;            // has a place in the form's layout
  bool captioned;         // shows its caption, in which "&" marks an access key
};

inline constexpr std::array<KindRow, 23> kKinds{{
    {Kind::kLabel, "Label", false, true, true},
    {Kind::kTextBox, "TextBox", true, true, false},
    {Kind::kRichTextBox, "RichTextBox", true, true, false},
    {Kind::kCheckBox, "CheckBox", true, true, true},
    {Kind::kOptionButton, "OptionButton", true, true, true},
    {Kind::kCommandButton, "CommandButton", true, true, true},
    {Kind::kComboBox, "ComboBox", true, true, false},
    {Kind::kImageCombo, "ImageCombo", true, true, false},
    {Kind::kListBox, "ListBox", true, true, false},
    {Kind::kListView, "ListView", true, true, false},
    {Kind::kTreeView, "TreeView", true, true, false},
    {Kind::kFrame, "Frame", false, true, true},
    {Kind::kTabs, "Tabs", true, true, false},
    {Kind::kGrid, "Grid", true, true, false},
    {Kind::kProgressBar, "ProgressBar", false, true, false},
    {Kind::kStatusBar, "StatusBar", false, true, false},
    {Kind::kMenu, "Menu", false, false, true},
    {Kind::kPicture, "Picture", false, true, false},
    {Kind::kKeyBox, "KeyBox", true, true, false},
    {Kind::kDriveList, "DriveList", true, true, false},
    {Kind::kFolderList, "FolderList", true, true, false},
    {Kind::kFileList, "FileList", true, true, false},
    {Kind::kTimer, "Timer", false, false, false},
}};

constexpr const KindRow& kindRow(Kind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

static_assert(
    [] {
      for (std::size_t i = 0; i < kKinds.size(); ++i)
        if (kKinds[i].kind != static_cast<Kind>(i)) return false;
      return true;
    }(),
    "the table's rows stand in the order of the enumeration");

}  // namespace kolvane::forms
