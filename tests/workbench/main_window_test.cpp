// The window as a user works in it: projects, files, commands of the suite, searching.
#include <QInputDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <set>

#include "qt/qt_desk.h"
#include "workbench/command_table.h"
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MainWindowTest : public WorkbenchTest {
 protected:
  std::string tree() {
    std::string text;
    for (QTreeWidgetItemIterator it(&window_->projectTree()); *it != nullptr; ++it) {
      for (const QTreeWidgetItem* above = (*it)->parent(); above != nullptr; above = above->parent())
        text += "  ";
      text += (*it)->text(0).toStdString() + "\n";
    }
    return text;
  }
  QMenu* popup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  static std::vector<std::string> captionsOf(QMenu& menu) {
    std::vector<std::string> captions;
    for (const QAction* action : menu.actions())
      if (!action->isSeparator()) captions.push_back(action->text().toStdString());
    return captions;
  }
  // On any toolbar, by its tip.
  void pressButton(const QString& tip) {
    for (const QToolBar* bar : window_->findChildren<QToolBar*>())
      for (QAction* each : bar->actions())
        if (each->toolTip() == tip) {
          each->trigger();
          QTest::qWait(20);
          return;
        }
    ADD_FAILURE() << "no button " << tip.toStdString();
  }
  QMenu* menu(const QString& title) {
    for (QAction* action : window_->menuBar()->actions())
      if (action->menu() != nullptr && action->text().remove('&') == title) {
        Q_EMIT action->menu()->aboutToShow();
        return action->menu();
      }
    return nullptr;
  }
};

TEST_F(MainWindowTest, TheTreeShowsKindsAndMarks) {
  files_->setAttributes("/p/frmMain.frm", platform::kAttributeReadOnly);
  start();
  EXPECT_EQ(tree(),
            "Demo (Demo.vbp)\n  Forms\n    frmMain (frmMain.frm) [read-only]\n  Modules\n    modMain "
            "(modMain.bas)\n");
  component("modMain")->CodeModule()->InsertLines(1, "' x");
  session_->host().addComponent(session_->host().projects().front(), frame::ComponentType::kClassModule);
  window_->sync();
  EXPECT_EQ(tree(),
            "Demo (Demo.vbp) *\n  Forms\n    frmMain (frmMain.frm) [read-only]\n  Modules\n    modMain "
            "(modMain.bas) *\n  Class Modules\n    Class1 (Class1) *\n");
  component("modMain")->setName("modFirst");
  window_->sync();
  EXPECT_THAT(tree(), HasSubstr("modFirst (modMain.bas) *"));
}

TEST_F(MainWindowTest, SavingWritesAndTheMarkGoes) {
  start();
  CodeEditor& editor = openCode();
  editor.select({2, 1, 2, 1});
  type(editor, "' hi");
  window_->sync();
  EXPECT_EQ(window_->documents().tabText(0), "modMain (Code) *");
  choose("Save modMain");
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("Option Explicit\r\n' hi\r\nPublic"));
  EXPECT_EQ(window_->documents().tabText(0), "modMain (Code)");
  EXPECT_THAT(told(), IsEmpty());
}

TEST_F(MainWindowTest, ClosingAsksAboutWhatIsUnsaved) {
  start();
  component("modMain")->CodeModule()->InsertLines(1, "' x");
  desk_.answer("Cancel");
  EXPECT_FALSE(window_->close());
  EXPECT_THAT(told(), ElementsAre(HasSubstr("modMain.bas")));
  EXPECT_THAT(read("/p/modMain.bas"), Not(HasSubstr("' x")));
  desk_.answer("Yes");
  EXPECT_TRUE(window_->close());
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' x"));
}

TEST_F(MainWindowTest, AProjectThatIsMissingIsTold) {
  start();
  EXPECT_FALSE(window_->files().open("/p/Missing.vbp"));
  EXPECT_THAT(told(), ElementsAre(HasSubstr("/p/Missing.vbp")));
}

TEST_F(MainWindowTest, TheSuitesCommandRunsFromThePopupByKeysAlone) {
  start(true);
  CodeEditor& editor = openCode();
  editor.select({8, 5, 8, 5});
  const std::string before = textOf(editor);
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), editor.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&editor, &asked);
  ASSERT_NE(popup(), nullptr);
  EXPECT_THAT(captionsOf(*popup()), Contains("Pr&oc. Re-Coder"));
  press(*popup(), Qt::Key_O);
  ASSERT_NE(popup(), nullptr);
  press(*popup(), Qt::Key_H);
  QTest::qWait(50);
  EXPECT_NE(textOf(editor), before);
  EXPECT_THAT(textOf(editor), HasSubstr("Total"));
  EXPECT_EQ(textOf(editor), codeOf());
  EXPECT_THAT(told(), IsEmpty());
  editor.undo();
  EXPECT_EQ(textOf(editor), before);
  EXPECT_EQ(codeOf(), before);
  EXPECT_FALSE(editor.isUndoAvailable());
}

TEST_F(MainWindowTest, TheCodeWindowsMenuOpensByKeys) {
  start(true);
  CodeEditor& editor = openCode();
  press(editor, Qt::Key_Menu);
  ASSERT_NE(popup(), nullptr);
  press(*popup(), Qt::Key_Escape);
  ASSERT_EQ(popup(), nullptr);
  press(editor, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(popup(), nullptr);
  press(*popup(), Qt::Key_Escape);
}

TEST_F(MainWindowTest, MenusAndToolbarsAreTheHostsBars) {
  start(true);
  EXPECT_THAT(captionsOf(*menu("Add-Ins")), Contains("Cod&e Maintenance"));
  const auto button = session_->host().CommandBars()->Item("Standard")->Controls()->Add();
  button->setTooltipText("Mine");
  const auto popup =
      session_->host().CommandBars()->ActiveMenuBar()->Controls()->Add(frame::ControlKind::kPopup);
  popup->setCaption("&Extra");
  const auto item = popup->Controls()->Add();
  item->setCaption("&Do it");
  int clicks = 0;
  const auto hook =
      session_->host().Events()->CommandBarEvents(item, [&](const auto&, bool&, bool&) { ++clicks; });
  window_->sync();
  ASSERT_NE(menu("Extra"), nullptr);
  menu("Extra")->actions().front()->trigger();
  QTest::qWait(20);
  EXPECT_EQ(clicks, 1);
  std::vector<std::string> tips;
  for (const QToolBar* bar : window_->findChildren<QToolBar*>())
    for (const QAction* each : bar->actions()) tips.push_back(each->toolTip().toStdString());
  EXPECT_THAT(tips, Contains("Mine"));
  item->setEnabled(false);
  EXPECT_FALSE(menu("Extra")->actions().front()->isEnabled());
  popup->Delete();
  window_->sync();
  EXPECT_EQ(menu("Extra"), nullptr);
}

TEST_F(MainWindowTest, ToolsHasEveryCommandOfThisVersionAndSaysWhyOneIsGrey) {
  start(true);
  CodeEditor& editor = openCode();
  const auto sortLines = [&]() -> QAction& {
    QMenu* misc = nullptr;
    for (QAction* each : menu("Tools")->actions())
      if (each->text() == "M&isc.") misc = each->menu();
    EXPECT_THAT(captionsOf(*misc), Contains("Au&to With"));
    return *misc->actions().at(1);
  };
  EXPECT_THAT(captionsOf(*menu("Tools")), Contains("Custom Error Handlers"));
  EXPECT_FALSE(sortLines().isEnabled());
  EXPECT_EQ(sortLines().toolTip(), "Select more than one line.");
  EXPECT_THAT(captionsOf(*menu("Add-Ins")), testing::Not(Contains("&Search")));
  editor.select({1, 1, 3, 1});
  const std::string before = textOf(editor);
  sortLines().trigger();
  QTest::qWait(20);
  EXPECT_NE(textOf(editor), before);
  EXPECT_THAT(told(), IsEmpty());
}

TEST_F(MainWindowTest, EveryCommandHasItsPlaceAndNoKeyTwice) {
  start();
  CodeEditor& editor = openCode();
  std::set<std::string> keys;
  for (const Command& command : commands()) {
    if (*command.key != '\0') {
      // The editor would take it before the menu gets it.
      const QKeySequence key(QString::fromLatin1(command.key));
      EXPECT_EQ(editor.standardCommands()->boundTo(key[0].toCombined()), nullptr) << command.key;
    }
    ASSERT_NE(menu(QString::fromLatin1(command.menu)), nullptr) << command.caption;
    const bool isNew = *command.key == '\0' || keys.insert(command.key).second;
    EXPECT_TRUE(isNew) << command.key;
  }
}

TEST_F(MainWindowTest, ClosingInactiveWindowsClosesTheirTabs) {
  start(true);
  openCode("modMain");
  openCode("frmMain");
  ASSERT_EQ(window_->documents().count(), 2);
  pressButton("Close Inactive Windows");
  EXPECT_THAT(window_->documents().captions(), ElementsAre(QString("frmMain (Code)")));
}

TEST_F(MainWindowTest, TheImmediateWindowIsClearedByKeystrokes) {
  start(true);
  window_->immediateWindow().setPlainText("? 1\n 1\n");
  pressButton("Clear Immediate Window");
  EXPECT_EQ(window_->immediateWindow().toPlainText(), "");
}

TEST_F(MainWindowTest, ADialogOfTheSuiteIsARealWindow) {
  qt::QtDesk desk({base::CodePage::get(base::CodePage::kDefault)});
  Environment real{*files_, clock_,     user_,
                   store_,  clipboard_, keystrokes_,
                   pages_,  desk,       base::CodePage::get(base::CodePage::kDefault),
                   {}};
  session_ = std::make_unique<Session>(real);
  window_ = std::make_unique<MainWindow>(*session_);
  desk.setMainWindow(window_.get());
  window_->show();
  activate();
  ASSERT_TRUE(window_->files().open("/p/Demo.vbp"));
  window_->start();
  openCode();
  QString title;
  int looks = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    for (QWidget* each : QApplication::topLevelWidgets())
      if (each->isVisible() && each->windowTitle().contains("Code Maintenance") && looks++ > 2) {
        title = each->windowTitle();
        each->close();
      }
  });
  watch.start(20);
  for (QAction* each : menu("Add-Ins")->actions())
    if (each->text().remove('&') == "Code Maintenance") each->trigger();
  for (int i = 0; i < 100 && title.isEmpty(); ++i) QTest::qWait(20);
  EXPECT_THAT(title.toStdString(), HasSubstr("Code Maintenance"));
  window_.reset();
  session_.reset();
}

TEST_F(MainWindowTest, FindsAndReplacesThroughTheProjectInOneStep) {
  start();
  CodeEditor& editor = openCode();
  FindDialog& find = window_->findDialog();
  find.present(true);
  find.target().setText("count");
  EXPECT_TRUE(find.findNext());
  EXPECT_EQ(editor.selection(), (frame::TextRange{7, 30, 7, 35}));
  EXPECT_TRUE(find.findPrevious());
  EXPECT_EQ(editor.selection(), (frame::TextRange{8, 13, 8, 18}));
  find.replacement().setText("CountOfAll");
  EXPECT_EQ(find.replaceAll(), 2);
  EXPECT_THAT(codeOf(), HasSubstr("    Total = CountOfAll * 2"));
  EXPECT_EQ(textOf(editor), codeOf());
  editor.undo();
  EXPECT_EQ(codeOf() + "\r\n", code_);
  find.scope().setCurrentIndex(static_cast<int>(FindDialog::Scope::kProject));
  find.target().setText("Unload");
  EXPECT_TRUE(find.findNext());
  EXPECT_EQ(window_->documents().currentComponent()->name(), "frmMain");
  find.target().setText("nowhere");
  EXPECT_FALSE(find.findNext());
}

}  // namespace
}  // namespace kolvane::workbench
