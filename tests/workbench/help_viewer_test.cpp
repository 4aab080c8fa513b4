// The window of the help pages, over the pages themselves.
#include "workbench/help_viewer.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QWindow>

#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

class HelpViewerTest : public testing::Test {
 protected:
  HelpViewerTest() { application(); }

  QString shown() { return viewer().page().source().fileName(); }
  void press(const char* action) {
    for (QAction* each : viewer().findChild<QToolBar*>()->actions())
      if (each->text() == action) each->trigger();
  }
  HelpViewer& viewer() {
    if (!viewer_) viewer_ = std::make_unique<HelpViewer>(KOLVANE_SOURCE_DIR "/data");
    return *viewer_;
  }

 private:
  std::unique_ptr<HelpViewer> viewer_;
};

TEST_F(HelpViewerTest, topicsOpenTheirPagesAndBackAndForwardGoBetweenThem) {
  viewer().open("");
  EXPECT_EQ(shown(), "index.html");
  viewer().open("autocoder.HTML");
  EXPECT_EQ(shown(), "AutoCoder.html");
  EXPECT_EQ(viewer().windowTitle(), "Auto Coder - KolvaneLite Help");
  press("Back");
  EXPECT_EQ(shown(), "index.html");
  press("Forward");
  EXPECT_EQ(shown(), "AutoCoder.html");
  press("Contents");
  EXPECT_EQ(shown(), "index.html");
}

TEST_F(HelpViewerTest, aTopicMayNameAPlaceOnItsPage) {
  viewer().resize(600, 300);
  viewer().open("ErrorHandlers.html#blank");
  QApplication::processEvents();
  EXPECT_GT(viewer().page().verticalScrollBar()->value(), 0);
}

TEST_F(HelpViewerTest, whatIsMissingIsSaid) {
  viewer().open("Nowhere.html");
  EXPECT_EQ(viewer().page().toPlainText(), "There is no help page \"Nowhere.html\".\nContents");
  HelpViewer empty("/nowhere");
  empty.open("AutoCoder.html");
  EXPECT_EQ(empty.page().toPlainText(),
            "The help pages are missing. They belong into the folder /nowhere/Help.");
}

TEST_F(HelpViewerTest, theSearchGoesOverAllPagesAndRoundTheEnd) {
  const QTemporaryDir home;
  QDir(home.path()).mkdir("Help");
  const auto page = [&](const char* name, const QByteArray& text) {
    QFile file(home.path() + "/Help/" + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<html><body><p>" + text + "</p></body></html>");
  };
  page("First.html", "The cat and the CAT.");
  page("index.html", "A dog.");
  page("Second.Html", "One c<b>at</b>.");
  HelpViewer viewer(home.path().toStdString());
  viewer.open("");
  viewer.searched().setText("bird");
  EXPECT_FALSE(viewer.findNext());
  EXPECT_EQ(viewer.page().source().fileName(), "index.html");
  viewer.searched().setText("cat");
  std::vector<std::string> found;
  const auto match = [&] {
    const QTextCursor cursor = viewer.page().textCursor();
    return viewer.page().source().fileName().toStdString() + " " + std::to_string(cursor.selectionStart());
  };
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(viewer.findNext());
    found.push_back(match());
  }
  EXPECT_THAT(found, testing::ElementsAre("Second.Html 4", "First.html 4", "First.html 16", "Second.Html 4"));
  EXPECT_TRUE(viewer.findPrevious());
  EXPECT_EQ(match(), "First.html 16");
  EXPECT_EQ(viewer.page().extraSelections().size(), 2);
}

// A modal form blocks all windows that are not its own.
TEST_F(HelpViewerTest, itCanBeUsedWhileAModalFormIsOpen) {
  viewer().open("");
  QDialog dialog;
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.show();
  const auto clicked = [&] {
    viewer().searched().clear();
    QTest::keyClick(viewer().windowHandle(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(viewer().windowHandle(), Qt::Key_X);
    QApplication::processEvents();
    return viewer().searched().text() == "x";
  };
  EXPECT_FALSE(clicked());
  viewer().open("About.html");
  EXPECT_TRUE(clicked());
  dialog.hide();
  viewer().open("");
  EXPECT_TRUE(clicked());
}

}  // namespace
}  // namespace kolvane::workbench
