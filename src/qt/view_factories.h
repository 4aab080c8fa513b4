// The makers of views, one for each kind that has a place; the table that joins them with kinds is in
// view_table.cpp.
#pragma once

#include "qt/control_view.h"

namespace kolvane::qt {

ControlView* makeLabelView(FormWindow& window, forms::Control& control);
ControlView* makeTextView(FormWindow& window, forms::Control& control);  // TextBox, RichTextBox
ControlView* makeKeyBoxView(FormWindow& window, forms::Control& control);

ControlView* makeCommandButtonView(FormWindow& window, forms::Control& control);
ControlView* makeCheckBoxView(FormWindow& window, forms::Control& control);
ControlView* makeOptionButtonView(FormWindow& window, forms::Control& control);
ControlView* makePictureView(FormWindow& window, forms::Control& control);

ControlView* makeComboBoxView(FormWindow& window, forms::Control& control);
ControlView* makeImageComboView(FormWindow& window, forms::Control& control);
ControlView* makeDriveListView(FormWindow& window, forms::Control& control);

ControlView* makeListBoxView(FormWindow& window, forms::Control& control);
ControlView* makeFolderListView(FormWindow& window, forms::Control& control);
ControlView* makeFileListView(FormWindow& window, forms::Control& control);
ControlView* makeListViewView(FormWindow& window, forms::Control& control);
ControlView* makeTreeViewView(FormWindow& window, forms::Control& control);
ControlView* makeGridView(FormWindow& window, forms::Control& control);

ControlView* makeFrameView(FormWindow& window, forms::Control& control);
ControlView* makeTabsView(FormWindow& window, forms::Control& control);
ControlView* makeProgressBarView(FormWindow& window, forms::Control& control);
ControlView* makeStatusBarView(FormWindow& window, forms::Control& control);

}  // namespace kolvane::qt
