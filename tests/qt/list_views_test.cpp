#include <QHeaderView>
#include <QListView>
#include <QTableView>
#include <QTreeView>
#include <QTreeWidget>

#include "base/error.h"
#include "on_screen.h"

namespace kolvane::test {
namespace {

class Folders final : public forms::FolderSource {
 public:
  std::vector<std::string> drives() override { return {"c:"}; }
  std::vector<std::string> folders(const std::string& path) override {
    if (path == "C:\\") return {"Code", "Docs"};
    return path == "C:\\Code" ? std::vector<std::string>{"Old"} : std::vector<std::string>{};
  }
  std::vector<std::string> files(const std::string&) override { return {"a.bas", "b.cls"}; }
};

class ListForm final : public forms::Form {
 public:
  ListForm(forms::Desk& desk, forms::FolderSource& source)
      : Form(desk, "frmLists", "Lists"),
        dirFolder(*this, "dirFolder", source),
        filFiles(*this, "filFiles", source) {
    lstNames.addItems({"Ann", "Bea", "Cid", "Ben"});
    lstMany.addItems({"one", "two", "three", "four"});
    lstMany.setMultiSelect(true);
    lstTicks.addItems({"red", "green"});
    lstTicks.setCheckBoxes(true);
  }

  forms::ListBox lstNames{*this, "lstNames"};
  forms::ListBox lstMany{*this, "lstMany"};
  forms::ListBox lstTicks{*this, "lstTicks"};
  forms::FolderList dirFolder;
  forms::FileList filFiles;
  forms::Layout layout() const override {
    using namespace forms;
    return column(row(lstNames, lstMany), lstTicks, row(dirFolder, filFiles));
  }
};

class ListViews : public OnScreen {
 protected:
  Folders folders;
  ListForm form{desk, folders};
};

TEST_F(ListViews, ListBox) {
  form.lstNames.onClick = log("click");
  form.lstNames.onDblClick = log("double");
  show(form);
  auto* const list = shown<QListView>(form.lstNames);
  EXPECT_THAT(columnOf(*list, 0), ElementsAre("Ann", "Bea", "Cid", "Ben"));
  clickCell(form.lstNames, 2);
  EXPECT_EQ(form.lstNames.listIndex(), 2);
  EXPECT_THAT(taken(), ElementsAre("click"));
  doubleClickCell(form.lstNames, 1);
  EXPECT_THAT(taken(), ElementsAre("click", "double"));
  press(list, Qt::Key_Home);
  EXPECT_EQ(form.lstNames.listIndex(), 0);
  type(list, "ben");
  EXPECT_EQ(form.lstNames.listIndex(), 3);
  taken();
  form.lstNames.removeItem(0);
  form.lstNames.setListIndex(0);
  settle();
  EXPECT_THAT(columnOf(*list, 0), ElementsAre("Bea", "Cid", "Ben"));
  EXPECT_THAT(selectedRows(*list), ElementsAre(0));
}

TEST_F(ListViews, ListBoxOfSeveralSelections) {
  show(form);
  auto* const list = shown<QListView>(form.lstMany);
  clickCell(form.lstMany, 0);
  clickCell(form.lstMany, 2, 0, Qt::ControlModifier);
  EXPECT_EQ(form.lstMany.selCount(), 2);
  EXPECT_TRUE(form.lstMany.selected(2));
  clickCell(form.lstMany, 0, 0, Qt::ControlModifier);
  EXPECT_FALSE(form.lstMany.selected(0));
  press(list, Qt::Key_Home);
  press(list, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(form.lstMany.selCount(), 4);
  form.lstMany.setSelected(1, false);
  settle();
  EXPECT_THAT(selectedRows(*list), ElementsAre(0, 2, 3));
}

TEST_F(ListViews, CheckList) {
  form.lstTicks.onItemCheck = [this](int index) { note("check " + std::to_string(index)); };
  show(form);
  auto* const list = shown<QListView>(form.lstTicks);
  tickCell(form.lstTicks, 1);
  EXPECT_TRUE(form.lstTicks.selected(1));
  press(list, Qt::Key_Space);
  EXPECT_FALSE(form.lstTicks.selected(1));
  EXPECT_THAT(taken(), ElementsAre("check 1", "check 1"));
  form.lstTicks.setSelected(0, true);
  settle();
  EXPECT_EQ(list->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_F(ListViews, FolderAndFileLists) {
  form.dirFolder.onChange = log("folder");
  form.filFiles.onClick = log("file");
  show(form);
  form.dirFolder.setPath("C:\\");
  form.filFiles.setPath("C:\\");
  settle();
  events.clear();
  auto* const list = shown<QListView>(form.dirFolder);
  EXPECT_THAT(columnOf(*list, 0), ElementsAre("Code", "Docs"));
  doubleClickCell(form.dirFolder, 0);
  EXPECT_EQ(form.dirFolder.path(), "C:\\Code");
  EXPECT_THAT(columnOf(*list, 0), ElementsAre("..", "Old"));
  press(list, Qt::Key_Home);
  press(list, Qt::Key_Return);
  EXPECT_EQ(form.dirFolder.path(), "C:\\");
  EXPECT_THAT(taken(), ElementsAre("folder", "folder"));
  clickCell(form.filFiles, 1);
  EXPECT_EQ(form.filFiles.fileName(), "b.cls");
  EXPECT_THAT(taken(), ElementsAre("file"));
}

// ListView, TreeView, Grid

class TableForm final : public forms::Form {
 public:
  explicit TableForm(forms::Desk& desk) : Form(desk, "frmTables", "Tables") {
    for (const auto* name : {"beta", "alpha", "gamma"}) lvwNames.add(name, name).setCell(1, "x");
    lvwNames.setCheckBoxes(true);
    forms::TreeNode& root = tvwProject.addRoot("P", "Project1", "Search");
    tvwProject.add(root, "F", "Form1");
    tvwProject.add(root, "", "Module1");
    tvwProject.setCheckBoxes(true);
    grdResults.setCell(0, 0, "Module");
    grdResults.setCell(0, 1, "Line");
    grdResults.setMergedColumn(0, true);
    for (const auto* line : {"modA\t1", "modA\t7", "modB\t2"}) grdResults.addItem(line);
    grdResults.removeItem(1);
  }

  forms::ListView lvwNames{*this, "lvwNames", {"Name", "Other"}};
  forms::TreeView tvwProject{*this, "tvwProject"};
  forms::Grid grdResults{*this, "grdResults"};
  forms::Layout layout() const override {
    using namespace forms;
    return column(lvwNames, tvwProject, grow(grdResults));
  }
};

class TableViews : public OnScreen {
 protected:
  TableForm form{desk};
};

TEST_F(TableViews, ListView) {
  form.lvwNames.onItemClick = [this](forms::ListItem& item) { note("item " + item.text()); };
  form.lvwNames.onItemCheck = [this](forms::ListItem& item) { note("check " + item.text()); };
  form.lvwNames.onClick = log("click");
  form.lvwNames.onDblClick = log("double");
  form.lvwNames.onColumnClick = [this](int column) {
    note("column " + std::to_string(column));
    form.lvwNames.sort(column);
  };
  show(form);
  auto* const tree = shown<QTreeView>(form.lvwNames);
  clickCell(form.lvwNames, 1, 1);
  EXPECT_EQ(form.lvwNames.selectedRow(), 2);
  EXPECT_THAT(taken(), ElementsAre("item alpha", "click"));
  press(tree, Qt::Key_Down);
  EXPECT_THAT(taken(), ElementsAre("item gamma"));
  tickCell(form.lvwNames, 0);
  EXPECT_TRUE(form.lvwNames.item(1).checked());
  EXPECT_THAT(selectedRows(*tree), ElementsAre(2));  // ticking selects nothing
  EXPECT_THAT(taken(), ElementsAre("check beta"));
  doubleClickCell(form.lvwNames, 0);
  EXPECT_THAT(taken(), ElementsAre("item beta", "click", "double"));
  QTest::mouseClick(tree->header()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
  settle();
  EXPECT_THAT(columnOf(*tree, 0), ElementsAre("alpha", "beta", "gamma"));
  EXPECT_THAT(taken(), ElementsAre("column 0"));
  EXPECT_TRUE(tree->header()->isSortIndicatorShown());
  EXPECT_THAT(selectedRows(*tree), ElementsAre(1));  // the row went with its item
  form.lvwNames.setColumn(1, {"Hidden", 0, true});
  form.lvwNames.remove(1);
  settle();
  EXPECT_TRUE(tree->isColumnHidden(1));
  EXPECT_THAT(columnOf(*tree, 0), ElementsAre("beta", "gamma"));
}

TEST_F(TableViews, ListViewOfSeveralSelections) {
  form.lvwNames.setMultiSelect(true);
  form.lvwNames.onItemClick = [this](forms::ListItem& item) { note("item " + item.text()); };
  show(form);
  clickCell(form.lvwNames, 0, 1);
  clickCell(form.lvwNames, 2, 1, Qt::ShiftModifier);
  EXPECT_EQ(form.lvwNames.selectedItems().size(), 3u);
  EXPECT_THAT(taken(), ElementsAre("item beta", "item gamma"));
  clickCell(form.lvwNames, 1, 1, Qt::ControlModifier);
  EXPECT_EQ(form.lvwNames.selectedItems().size(), 2u);
}

TEST_F(TableViews, TreeView) {
  form.tvwProject.onNodeClick = [this](forms::TreeNode& node) { note("node " + node.text()); };
  form.tvwProject.onNodeCheck = [this](forms::TreeNode& node) { note("check " + node.text()); };
  form.tvwProject.onExpand = [this](forms::TreeNode& node) { note("expand " + node.text()); };
  show(form);
  auto* const tree = shown<QTreeWidget>(form.tvwProject);
  clickCell(form.tvwProject, 0);
  EXPECT_THAT(taken(), ElementsAre("node Project1"));
  press(tree, Qt::Key_Right);
  EXPECT_TRUE(form.tvwProject.node("P").expanded());
  EXPECT_THAT(taken(), ElementsAre("expand Project1"));
  press(tree, Qt::Key_Down);
  press(tree, Qt::Key_Down);  // a node without a key
  EXPECT_EQ(form.tvwProject.selectedNode()->text(), "Module1");
  press(tree, Qt::Key_Space);
  EXPECT_TRUE(form.tvwProject.selectedNode()->checked());
  EXPECT_THAT(taken(), ElementsAre("node Form1", "node Module1", "check Module1"));
  form.tvwProject.remove(form.tvwProject.node("F"));
  form.tvwProject.node("P").setChecked(true);
  form.tvwProject.select(form.tvwProject.find("P"));
  settle();
  ASSERT_EQ(tree->topLevelItem(0)->childCount(), 1);
  EXPECT_EQ(tree->topLevelItem(0)->child(0)->text(0), "Module1");
  EXPECT_EQ(tree->topLevelItem(0)->checkState(0), Qt::Checked);
  EXPECT_EQ(tree->currentItem(), tree->topLevelItem(0));
  form.tvwProject.clear();
  settle();
  EXPECT_EQ(tree->topLevelItemCount(), 0);
}

TEST_F(TableViews, Grid) {
  form.grdResults.onClick = [this] {
    note("click " + std::to_string(form.grdResults.clickedRow()) + "," +
         std::to_string(form.grdResults.clickedColumn()));
  };
  form.grdResults.onRowColChange = log("moved");
  form.grdResults.onDblClick = log("double");
  show(form);
  auto* const table = shown<QTableView>(form.grdResults);
  EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal).toString(), "Line");
  EXPECT_THAT(columnOf(*table, 1), ElementsAre("1", "7", "2"));
  EXPECT_EQ(table->rowSpan(0, 0), 2);  // both of modA
  EXPECT_EQ(table->rowSpan(2, 0), 1);
  clickCell(form.grdResults, 1, 1);
  EXPECT_EQ(form.grdResults.row(), 2);
  EXPECT_THAT(taken(), ElementsAre("moved", "click 2,1"));
  press(table, Qt::Key_Down);
  EXPECT_EQ(form.grdResults.row(), 3);
  press(table, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(form.grdResults.row(), 3);
  EXPECT_EQ(form.grdResults.lastRow(), 2);
  EXPECT_THAT(taken(), ElementsAre("moved"));
  QTest::mouseClick(table->horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 8));
  EXPECT_THAT(taken(), ElementsAre("click 0,0"));
  doubleClickCell(form.grdResults, 0, 1);
  EXPECT_THAT(taken(), ElementsAre("moved", "click 1,1", "double"));
  form.grdResults.setCellColour(3, 1, forms::Grid::colour(255, 0, 0));
  form.grdResults.select(3, 0);
  settle();
  EXPECT_EQ(table->model()->index(2, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 0));
  EXPECT_EQ(table->currentIndex(), table->model()->index(2, 0));
}

TEST_F(TableViews, RowsThatComeAndGoLeaveTheListWhereItIsScrolledTo) {
  show(form);
  auto* const tree = shown<QTreeView>(form.lvwNames);
  for (int i = 0; i < 5000; ++i) form.lvwNames.add("row " + std::to_string(i));
  settle();
  EXPECT_EQ(tree->model()->rowCount(), 5003);
  tree->scrollTo(tree->model()->index(2500, 0), QAbstractItemView::PositionAtTop);
  const QModelIndex top = tree->indexAt(QPoint(4, 4));
  form.lvwNames.add("one more");
  form.lvwNames.item(3).setCell(1, "y");
  settle();
  EXPECT_EQ(tree->indexAt(QPoint(4, 4)), top);
  form.lvwNames.clear();
  settle();
  EXPECT_EQ(tree->model()->rowCount(), 0);
}

}  // namespace
}  // namespace kolvane::test
