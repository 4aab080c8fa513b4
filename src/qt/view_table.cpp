#include <array>

#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

using forms::Kind;

struct FactoryRow {
  Kind kind;
  ControlView* (*make)(FormWindow&, forms::Control&);  // nullptr: a kind that has no place
};

constexpr std::array<FactoryRow, forms::kKinds.size()> kFactories{{
    {Kind::kLabel, makeLabelView},
    {Kind::kTextBox, makeTextView},
    {Kind::kRichTextBox, makeTextView},
    {Kind::kCheckBox, makeCheckBoxView},
    {Kind::kOptionButton, makeOptionButtonView},
    {Kind::kCommandButton, makeCommandButtonView},
    {Kind::kComboBox, makeComboBoxView},
    {Kind::kImageCombo, makeImageComboView},
    {Kind::kListBox, makeListBoxView},
    {Kind::kListView, makeListViewView},
    {Kind::kTreeView, makeTreeViewView},
    {Kind::kFrame, makeFrameView},
    {Kind::kTabs, makeTabsView},
    {Kind::kGrid, makeGridView},
    {Kind::kProgressBar, makeProgressBarView},
    {Kind::kStatusBar, makeStatusBarView},
    {Kind::kMenu, nullptr},
    {Kind::kPicture, makePictureView},
    {Kind::kKeyBox, makeKeyBoxView},
    {Kind::kDriveList, makeDriveListView},
    {Kind::kFolderList, makeFolderListView},
    {Kind::kFileList, makeFileListView},
    {Kind::kTimer, nullptr},
}};

static_assert(
    [] {
      for (std::size_t i = 0; i < kFactories.size(); ++i)
        if (kFactories[i].kind != static_cast<Kind>(i)) return false;
      return true;
    }(),
    "every kind has its row, in the order of the enumeration");

}  // namespace

ControlView* makeView(FormWindow& window, forms::Control& control) {
  return kFactories[static_cast<std::size_t>(control.kind())].make(window, control);
}

}  // namespace kolvane::qt
