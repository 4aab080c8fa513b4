// Projects as a user handles them: new, saved, opened again, with what the window remembers.
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ProjectsTest : public WorkbenchTest {
 protected:
  ProjectsTest() { environment_.stateFolder = folder_.path(); }
  ~ProjectsTest() override {
    window_.reset();
    session_.reset();
  }
  std::vector<std::string> captionsOf(const char* title) {
    std::vector<std::string> captions;
    for (QAction* top : window_->menuBar()->actions()) {
      if (top->menu() == nullptr || top->text().remove('&') != title) continue;
      Q_EMIT top->menu()->aboutToShow();
      for (QAction* each : top->menu()->actions()) captions.push_back(each->text().toStdString());
    }
    return captions;
  }

  QTemporaryDir folder_;
};

TEST_F(ProjectsTest, ANewProjectIsSavedUnderItsNameWithItsComponents) {
  start();
  choose("New Standard EXE");
  EXPECT_THAT(told(), IsEmpty());
  ASSERT_EQ(session_->host().projects().size(), 1U);
  choose("Add Module");
  openCode("Module1").insert("Public Sub Hello()\nEnd Sub\n");
  desk_.answer("\\q\\Fresh.vbp");
  choose("Save Project");
  EXPECT_THAT(read("/q/Fresh.vbp"), HasSubstr("Module=Module1; Module1.bas\r\n"));
  EXPECT_THAT(read("/q/Module1.bas"), HasSubstr("Public Sub Hello()\r\nEnd Sub"));
  EXPECT_FALSE(session_->host().projects().front()->IsDirty());
  EXPECT_TRUE(window_->close());
}

TEST_F(ProjectsTest, RecentProjectsOutliveTheProgram) {
  start();
  write("/p/Other.vbp", "Type=Exe\r\nModule=modMain; modMain.bas\r\nName=\"Other\"\r\n");
  ASSERT_TRUE(window_->files().open("/p/Other.vbp"));
  ASSERT_TRUE(window_->close());
  window_ = nullptr;
  session_ = std::make_unique<Session>(environment_);
  window_ = std::make_unique<MainWindow>(*session_);
  window_->sync();
  EXPECT_THAT(window_->files().recent(), ElementsAre(QString("/p/Other.vbp"), QString("/p/Demo.vbp")));
  EXPECT_THAT(captionsOf("File"), testing::Contains("&2 /p/Demo.vbp"));
  EXPECT_TRUE(window_->files().openRecent(1));
  EXPECT_EQ(session_->host().projects().front()->name(), "Demo");
}

TEST_F(ProjectsTest, APaneThatWasClosedStaysClosedInTheNextRun) {
  start();
  const auto pane = [this](const char* name) { return window_->findChild<QDockWidget*>(name); };
  ASSERT_TRUE(pane("Immediate")->isVisible());
  pane("Immediate")->close();
  ASSERT_TRUE(window_->close());
  window_ = nullptr;
  session_ = std::make_unique<Session>(environment_);
  window_ = std::make_unique<MainWindow>(*session_);
  window_->show();
  QApplication::processEvents();
  EXPECT_FALSE(pane("Immediate")->isVisible());
  EXPECT_TRUE(pane("Project")->isVisible());
}

TEST_F(ProjectsTest, TheWindowsMenuListsTheTabsAndSwitches) {
  start();
  openCode("modMain");
  openCode("frmMain");
  EXPECT_THAT(captionsOf("Window"), testing::IsSupersetOf({"&1 modMain (Code)", "&2 frmMain (Code)"}));
  choose("Next");
  EXPECT_EQ(session_->host().ActiveCodePane()->CodeModule()->Name(), "modMain");
  choose("Close");
  EXPECT_THAT(window_->documents().captions(), ElementsAre(QString("frmMain (Code)")));
}

TEST_F(ProjectsTest, RevertAsksAndReadsTheFileAgain) {
  start();
  CodeEditor& editor = openCode();
  editor.select({2, 1, 2, 1});
  type(editor, "' gone");
  desk_.answer("No");
  choose("Revert modMain");
  EXPECT_THAT(codeOf(), HasSubstr("' gone"));
  desk_.answer("Yes");
  choose("Revert modMain");
  EXPECT_EQ(codeOf() + "\r\n", code_);
  EXPECT_EQ(textOf(editor), codeOf());
  EXPECT_FALSE(component("modMain")->isDirty());
}

TEST_F(ProjectsTest, WhatHasGoneOrHasOtherNamesIsWrittenOnlyIfTheUserSaysSo) {
  start();
  component("modMain")->CodeModule()->InsertLines(1, "' mine");
  dynamic_cast<platform::MemoryFiles&>(*files_).setNameCount("/p/modMain.bas", 2);
  desk_.answer("No");
  choose("Save All");
  EXPECT_THAT(told(), ElementsAre(AllOf(HasSubstr("hard links"), HasSubstr("\n\nmodMain.bas\n\n"))));
  EXPECT_THAT(read("/p/modMain.bas"), Not(HasSubstr("' mine")));
  desk_.answer("Yes");
  choose("Save All");
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' mine"));

  component("modMain")->CodeModule()->InsertLines(1, "' again");
  files_->remove("/p/modMain.bas");
  told();
  desk_.answer("No");
  choose("Save All");
  EXPECT_THAT(told(), ElementsAre(HasSubstr("deleted or moved")));
  EXPECT_EQ(files_->stamp("/p/modMain.bas"), std::nullopt);
  desk_.answer("Yes");
  choose("Save All");
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' again"));
}

TEST_F(ProjectsTest, RemovingAComponentOffersToSaveIt) {
  start();
  openCode();
  component("modMain")->CodeModule()->InsertLines(1, "' kept");
  desk_.answer("Yes");
  choose("Remove modMain");
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' kept"));
  EXPECT_EQ(window_->documents().count(), 0);
  EXPECT_EQ(component("modMain"), nullptr);
}

}  // namespace
}  // namespace kolvane::workbench
