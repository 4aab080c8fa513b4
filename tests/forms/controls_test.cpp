// The kinds of control: what they hold, which events their changes raise, what gestures do to them.
#include "everything.h"
#include "forms/drive.h"

namespace kolvane::forms {
namespace {

struct Controls : testing::Test {
  ScriptedDesk desk;
  frmEverything form{desk};
  EventLog log;

  Controls() {
    form.show();
    log.watchAll(form);
  }
};

TEST_F(Controls, textIsFilteredCutAndEditedAtTheCaret) {
  TextBox& box = form.txtName;
  box.onKeyPress = [](int& character) {
    if (character < '0' || character > '9') character = 0;
  };
  box.setMaxLength(4);
  user::setText(box, "-12a3.45");
  EXPECT_EQ(box.text(), "1234");
  EXPECT_EQ(log.take(), "txtName.Change");
  user::setText(box, "1234x");
  EXPECT_EQ(log.take(), "");
  box.onKeyPress = nullptr;
  box.setMaxLength(0);
  box.setSelection(1, 2);
  EXPECT_EQ(box.selText(), "23");
  box.setSelText("<>");
  EXPECT_EQ(box.text(), "1<>4");
  user::type(box, "\b\b+");
  EXPECT_EQ(box.text(), "1+4");
  EXPECT_EQ(box.selStart(), 2);
  for (const int key : {keys::kHome, keys::kDelete, keys::kRight}) user::key(form, key);
  EXPECT_EQ(box.text(), "+4");
  EXPECT_EQ(box.selStart(), 1);
  user::key(form, 'A', keys::kCtrl);
  user::type(box, "z");
  EXPECT_EQ(box.text(), "z");
}

TEST_F(Controls, severalLinesArePartedByCrLf) {
  form.txtCode.setLocked(false);
  user::setText(form.txtCode, "a\nb\r\nc");
  EXPECT_EQ(form.txtCode.text(), "a\r\nb\r\nc");
  user::key(form, keys::kEnter);
  user::type(form.txtCode, "d\b\b");
  EXPECT_EQ(form.txtCode.text(), "a\r\nb\r\nc");
  form.txtCode.onKeyDown = [&](int& key, int shift) {
    if (key != keys::kTab || shift != 0) return;
    key = 0;
    form.txtCode.setSelText("    ");
  };
  user::key(form, keys::kTab);
  EXPECT_EQ(form.txtCode.text(), "a\r\nb\r\nc    ");
}

TEST_F(Controls, codeRaisesTheEventsOfItsChanges) {
  form.txtName.setText("x");
  form.txtName.setText("x");
  form.chkHeader.setChecked(false);
  form.chkHeader.setChecked(false);
  form.optPrivate.setValue(true);
  form.cboScope.setListIndex(0);
  form.cboScope.setListIndex(0);
  form.cboScope.setText("Friend");
  form.lstNames.setListIndex(2);
  form.imgcboIcon.setListIndex(0);
  form.lvwRows.select(&form.lvwRows.item(2));
  form.hotKey.set(0, 0);
  EXPECT_EQ(log.take(),
            "txtName.Change chkHeader.Click optPrivate.Click cboScope.Click cboScope.Change lstNames.Click "
            "txtHotKey.Change");
  EXPECT_FALSE(form.optPublic.value());
  EXPECT_EQ(form.cboScope.listIndex(), -1);
  form.cboScope.setText("Public");
  EXPECT_EQ(form.cboScope.listIndex(), 1);
}

TEST_F(Controls, optionButtonsOfOneFrameExcludeEachOther) {
  user::click(form.optPrivate);
  EXPECT_TRUE(form.optPrivate.value());
  EXPECT_FALSE(form.optPublic.value());
  EXPECT_EQ(refusal([&] { user::setValue(form.optPrivate, 0); }),
            "5: optPrivate of frmEverything (OptionButton) is cleared by choosing another one.");
  form.fraScope.setEnabled(false);
  EXPECT_EQ(refusal([&] { user::click(form.optPublic); }),
            "5: optPublic of frmEverything lies in fraScope, which is disabled.");
}

TEST_F(Controls, checkBoxesToggle) {
  form.chkHeader.setValue(Check::kGrayed);
  user::click(form.chkHeader);
  EXPECT_EQ(form.chkHeader.value(), Check::kUnchecked);
  user::key(form, keys::kSpace);
  EXPECT_EQ(form.chkHeader.value(), Check::kChecked);
  log.take();
  user::setValue(form.chkHeader, 1);
  EXPECT_EQ(log.take(), "");
}

TEST_F(Controls, combosTakeTextOrOnlyItems) {
  user::setText(form.cboScope, "Friend");
  EXPECT_EQ(form.cboScope.text(), "Friend");
  user::selectItem(form.cboScope, "Private");
  log.take();
  user::selectIndex(form.cboScope, 0);  // choosing the same again is a click too
  EXPECT_EQ(log.take(), "cboScope.Click");
  frmSmall small(desk);
  small.show();
  ComboBox& list = small.cboScope;
  EXPECT_EQ(refusal([&] { user::setText(list, "Private"); }),
            "5: cboScope of frmSmall (ComboBox) takes only the items of its list.");
  EXPECT_EQ(refusal([&] { list.setText("Friend"); }),
            "383: cboScope takes only the items of its list; \"Friend\" is none.");
  list.setText("Public");
  EXPECT_EQ(list.listIndex(), 1);
  list.addItem("Friend", 0);
  EXPECT_EQ(list.listIndex(), 2);
  EXPECT_EQ(list.text(), "Public");
  list.removeItem(2);
  EXPECT_EQ(list.listIndex(), -1);
  EXPECT_EQ(list.text(), "");
  user::type(list, "p");
  EXPECT_EQ(list.text(), "Private");
  user::key(small, keys::kUp);
  EXPECT_EQ(list.text(), "Friend");
}

TEST_F(Controls, typingCanBeSwallowedInAnImageCombo) {
  form.imgcboIcon.onKeyPress = [](int& character) { character = 0; };
  user::type(form.imgcboIcon, "abc");
  EXPECT_EQ(form.imgcboIcon.text(), "Question");
  drive::set(form, "imgcboIcon", {.item = "X16"});  // an item without text goes by its key
  EXPECT_EQ(form.imgcboIcon.selectedItem().picture, "Critical");
  EXPECT_EQ(refusal([&] { form.imgcboIcon.add("X16", "again"); }),
            "35602: imgcboIcon has an item with the key X16 already.");
}

TEST_F(Controls, listBoxesSortTickAndSelectSeveral) {
  form.lstNames.addItem("Bravo");
  EXPECT_EQ(form.lstNames.newIndex(), 2);
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"alpha", "beta", "Bravo", "Gamma"}));
  EXPECT_EQ(form.lstNames.list(form.lstNames.listIndex()), "beta");
  std::string ticked;
  form.lstTicks.onItemCheck = [&](int index) { ticked += std::to_string(index); };
  drive::set(form, "lstTicks", {.check = drive::Tick{0, true}});
  user::key(form, keys::kSpace);
  EXPECT_EQ(ticked, "00");
  EXPECT_EQ(form.lstTicks.selCount(), 1);
  ListBox lstMany(form, "lstMany");
  form.relayout();
  lstMany.setMultiSelect(true);
  lstMany.addItems({"a", "b", "c"});
  drive::set(form, "lstMany", {.select = {0, 2}});
  EXPECT_TRUE(lstMany.selected(0) && !lstMany.selected(1) && lstMany.selected(2));
  EXPECT_EQ(refusal([&] {
              drive::set(form, "lstNames", {.select = {0, 2}});
            }),
            "5: lstNames of frmEverything (ListBox) selects one row at a time.");
  EXPECT_NE(refusal([&] { drive::set(form, "lstMany", {.select = {1, 9}}); }), "done");
  EXPECT_FALSE(lstMany.selected(1));
  EXPECT_EQ(refusal([&] { form.lstNames.list(9); }), "380: The list of lstNames has no index 9.");
}

TEST_F(Controls, listViewsSortByTheColumnThatIsClicked) {
  ListView& list = form.lvwRows;
  list.onColumnClick = [&](int column) {
    const bool again =
        list.sorted() && list.sortColumn() == column && list.sortOrder() == ListView::Order::kAscending;
    list.sort(column, again ? ListView::Order::kDescending : ListView::Order::kAscending);
  };
  list.item("B").setCell(1, "07");
  const auto order = [&] {
    std::string text;
    for (int row = 1; row <= list.count(); ++row) text += list.item(row).text() + " ";
    return text;
  };
  drive::click(form, "lvwRows", {.column = 1});
  EXPECT_EQ(order(), "modB modA ");
  list.add("modC").setCell(1, "10");
  list.setSorted(true);
  EXPECT_EQ(order(), "modB modC modA ");
  drive::click(form, "lvwRows", {.column = 1});
  EXPECT_EQ(order(), "modA modC modB ");
  EXPECT_EQ(list.selectedItem()->text(), "modA");
  EXPECT_NE(refusal([&] { drive::click(form, "lvwRows", {.column = 2}); }), "done");
}

TEST_F(Controls, listViewsTellClicksTicksAndSelections) {
  ListView& list = form.lvwRows;
  list.onItemClick = [&](ListItem& item) { log.add("ItemClick:" + item.text()); };
  list.onItemCheck = [&](ListItem& item) { log.add("ItemCheck:" + item.text()); };
  user::focus(list);
  log.take();
  drive::click(form, "lvwRows", {.row = 2});
  drive::set(form, "lvwRows", {.check = drive::Tick{"A", true}});
  drive::set(form, "lvwRows", {.check = drive::Tick{"A", true}});
  drive::doubleClick(form, "lvwRows", {.row = 1});
  user::key(form, keys::kDown);
  EXPECT_EQ(log.take(),
            "ItemClick:modB lvwRows.Click ItemCheck:modA ItemClick:modA lvwRows.DblClick ItemClick:modB");
  EXPECT_EQ(list.checkedItems().size(), 2u);
  list.swapRows(1, 2);
  EXPECT_EQ(list.selectedRow(), 1);
  list.remove(1);
  EXPECT_EQ(list.selectedItem()->text(), "modA");
  list.clear();
  EXPECT_EQ(list.selectedItem(), nullptr);
  const ListItem& added = list.add("new");
  EXPECT_EQ(list.selectedItem(), &added);
  EXPECT_EQ(refusal([&] { list.item(2); }), "35601: lvwRows has no row 2.");
}

TEST_F(Controls, treesKeepKeysOrderAndSelection) {
  TreeView& tree = form.treParts;
  form.tabLists.setTab(1);
  tree.onNodeClick = [&](TreeNode& node) { log.add("NodeClick:" + node.fullPath()); };
  tree.onNodeCheck = [&](TreeNode& node) { log.add("NodeCheck:" + node.key()); };
  tree.onCollapse = [&](TreeNode& node) { log.add("Collapse:" + node.key()); };
  user::focus(tree);
  log.take();
  drive::set(form, "treParts", {.select = {"Ledger\\Modules\\modPosting"}});
  drive::set(form, "treParts", {.check = drive::Tick{"M1", true}});
  user::key(form, keys::kLeft);
  user::key(form, keys::kLeft);
  user::key(form, keys::kLeft);
  EXPECT_EQ(log.take(),
            "NodeClick:Ledger\\Modules\\modPosting NodeCheck:M1 NodeClick:Ledger\\Modules NodeClick:Ledger "
            "Collapse:P");
  tree.addBeside(tree.node("F"), TreeView::Side::kBefore, "A", "about");
  TreeNode& root = tree.node("P");
  EXPECT_EQ(tree.node("F").previous(), tree.find("A"));
  EXPECT_EQ(tree.node("M").next(), nullptr);
  tree.add(root, "", "Aardvark");
  tree.sortChildren(&root);
  std::string texts;
  for (const TreeNode* node : tree.nodes()) texts += node->text() + " ";
  EXPECT_EQ(texts, "Ledger Aardvark about frmMain Modules modPosting ");
  tree.select(tree.find("M1"));
  tree.remove(tree.node("M"));
  EXPECT_EQ(tree.selectedNode(), nullptr);
  EXPECT_EQ(tree.find("M1"), nullptr);
  EXPECT_EQ(tree.count(), 4);
  EXPECT_EQ(refusal([&] { tree.add(root, "A", "twice"); }),
            "35602: treParts has a node with the key A already.");
}

TEST_F(Controls, gridsSelectCellsAndMoveTheirRows) {
  Grid& grid = form.grdLines;
  form.tabLists.setTab(1);
  grid.onRowColChange = [&] { log.add("RowColChange:" + std::to_string(grid.row())); };
  user::focus(grid);
  log.take();
  drive::click(form, "grdLines", {.row = 1, .column = 1});
  drive::click(form, "grdLines", {.row = 0, .column = 1});
  EXPECT_EQ(grid.clickedRow(), 0);
  EXPECT_EQ(log.take(), "RowColChange:1 grdLines.Click grdLines.Click");
  grid.setCellColour(2, 0, Grid::colour(255, 40, 23));
  grid.addItem("15\tnew", 2);
  EXPECT_EQ(grid.cellColour(3, 0), Grid::colour(255, 40, 23));
  grid.removeItem(1);
  EXPECT_EQ(grid.cell(1, 1), "new");
  EXPECT_EQ(grid.row(), 1);
  user::key(form, keys::kDown);
  EXPECT_EQ(grid.row(), 2);
  grid.setRows(1);
  EXPECT_EQ(grid.row(), 0);
  EXPECT_EQ(refusal([&] { grid.removeItem(0); }), "380: grdLines keeps its fixed row 0.");
  EXPECT_EQ(refusal([&] { grid.cell(1, 0); }), "9: grdLines has no row 1, column 0.");
}

TEST_F(Controls, onAPageThatIsNotShownAreOutOfReach) {
  EXPECT_EQ(refusal([&] { user::focus(form.treParts); }),
            "5: treParts of frmEverything lies on page 1 of tabLists, which isn't shown.");
  user::focus(form.lstNames);
  int previous = -1;
  form.tabLists.onTabClick = [&](int page) { previous = page; };
  form.tabLists.setTab(1);
  EXPECT_EQ(previous, 0);
  EXPECT_EQ(form.focus(), &form.treParts);  // the list has gone from sight
  drive::set(form, "tabLists", {.tab = 0});
  EXPECT_EQ(form.tabLists.tab(), 0);
  EXPECT_EQ(refusal([&] { user::click(form.cmdPrint); }), "5: cmdPrint of frmEverything is hidden.");
  form.cmdPrint.setVisible(true);
  EXPECT_EQ(refusal([&] { user::click(form.cmdPrint); }), "5: cmdPrint of frmEverything is not shown.");
}

TEST_F(Controls, keyBoxesCaptureKeysWithModifiers) {
  KeyBox& box = form.hotKey;
  EXPECT_TRUE(drive::key(form, "txtHotKey", keys::kF1 + 5, keys::kAlt));
  EXPECT_EQ(box.text(), "Alt + F6");
  user::key(form, keys::kDelete);
  EXPECT_EQ(box.text(), "None");
  drive::set(form, "txtHotKey", {.value = 'W' + 256 * 6});
  EXPECT_EQ(box.text(), "Ctrl + Alt + W");
  user::key(form, keys::kTab);
  EXPECT_FALSE(box.hasFocus());
}

TEST_F(Controls, folderListsGoIntoFolders) {
  form.tabLists.setTab(2);
  form.Drive1.onChange = [&] { form.Dir1.setPath(form.Drive1.drive().substr(0, 2)); };
  form.Dir1.onChange = [&] { form.File1.setPath(form.Dir1.path()); };
  drive::doubleClick(form, "Dir1", {.row = 1});
  EXPECT_EQ(form.Dir1.path(), "C:\\Ledger\\Backup");
  EXPECT_EQ(form.File1.listCount(), 0);
  drive::doubleClick(form, "Dir1", {.row = 0});
  drive::doubleClick(form, "Dir1", {.row = 0});
  EXPECT_EQ(form.Dir1.items(), (std::vector<std::string>{"Ledger", "Temp"}));
  drive::set(form, "Drive1", {.index = 1});
  EXPECT_EQ(form.Dir1.path(), "d:\\");
  EXPECT_NE(refusal([&] { form.Dir1.setPath("C:\\Nowhere"); }), "done");
  EXPECT_EQ(form.Dir1.path(), "d:\\");
}

TEST_F(Controls, barsKeepToTheirRangeAndTimersTick) {
  form.prgDone.advance(100);
  EXPECT_EQ(form.prgDone.value(), 40);
  EXPECT_EQ(refusal([&] { form.StatusBar1.setText("Rows", "1"); }),
            "35601: StatusBar1 has no panel with the key \"Rows\".");
  int ticks = 0;
  form.tmrTimer.onTimer = [&] { ++ticks; };
  form.advance(1000);
  EXPECT_EQ(ticks, 0);
  form.advance(1000);
  form.advance(1000);
  EXPECT_EQ(ticks, 2);
  form.tmrTimer.setEnabled(false);
  form.tmrTimer.tick();
  EXPECT_EQ(ticks, 2);
}

TEST_F(Controls, ofAnArrayAreFoundByNameAndIndex) {
  drive::set(form, "TXTPARA(2)", {.text = "lngTotal"});
  EXPECT_EQ(form.txtPara[2].text(), "lngTotal");
  EXPECT_EQ(refusal([&] { form.txtPara[3]; }), "340: Control array element txtPara(3) doesn't exist.");
  EXPECT_EQ(refusal([&] { TextBox again(form, "txtname"); }),
            "5: frmEverything has two controls named txtname.");
  EXPECT_EQ(refusal([&] { drive::set(form, "txtName", {}); }),
            "5: One of text, value, index, item, select, check and tab is to be set; 0 are given.");
}

}  // namespace
}  // namespace kolvane::forms
