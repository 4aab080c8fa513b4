// The window around the code: what its boxes ask, what its menus grey and why, and how it fits the screen.
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <QToolTip>

#include "forms/message_box.h"
#include "qt/qt_desk.h"
#include "workbench/command_table.h"
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class WindowFrameTest : public WorkbenchTest {
 protected:
  QMenu* popup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  // With Alt and its access key, as a user opens it.
  QMenu* openMenu(Qt::Key key) {
    window_->sync();
    press(*window_, key, Qt::AltModifier);
    EXPECT_NE(popup(), nullptr);
    return popup();
  }
  QMenu* openCodeMenu(CodeEditor& editor) {
    press(editor, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_NE(popup(), nullptr);
    return popup();
  }
  void closeMenus() {
    while (popup() != nullptr) press(*popup(), Qt::Key_Escape);
  }
  // Below the menu, at any depth.
  static QAction* entry(QMenu& menu, const QString& caption) {
    for (QAction* each : menu.actions()) {
      if (each->text().remove('&') == caption) return each;
      if (each->menu() != nullptr)
        if (QAction* below = entry(*each->menu(), caption)) return below;
    }
    return nullptr;
  }
  // What a pointer that rests on the entry is shown.
  static std::string tipAt(QMenu& menu, QAction* action) {
    QToolTip::hideText();
    const QPoint at = menu.actionGeometry(action).center();
    QHelpEvent rests(QEvent::ToolTip, at, menu.mapToGlobal(at));
    QApplication::sendEvent(&menu, &rests);
    return QToolTip::text().toStdString();
  }
  // Each entry that is grey, with the menus above it.
  static void eachGrey(QMenu& menu, const QString& path,
                       const std::function<void(const QString&, QAction&)>& look) {
    EXPECT_TRUE(menu.toolTipsVisible()) << path.toStdString();
    for (QAction* each : menu.actions()) {
      if (each->isSeparator()) continue;
      const QString name = path + " > " + each->text();
      if (each->menu() != nullptr)
        eachGrey(*each->menu(), name, look);
      else if (!each->isEnabled())
        look(name, *each);
    }
  }
};

TEST_F(WindowFrameTest, WhatIsGreySaysWhyInEveryMenuAndOnEveryToolbar) {
  session_ = std::make_unique<Session>(environment_);
  window_ = std::make_unique<MainWindow>(*session_);
  window_->show();
  activate();
  window_->start();
  const auto lookEverywhere = [&] {
    int grey = 0;
    window_->sync();
    for (QAction* top : window_->menuBar()->actions()) {
      Q_EMIT top->menu()->aboutToShow();
      eachGrey(*top->menu(), top->text(), [&](const QString& name, QAction& action) {
        ++grey;
        EXPECT_THAT(action.toolTip().toStdString(), AnyOf(EndsWith("."), EndsWith("!")))
            << name.toStdString();
        EXPECT_FALSE(action.statusTip().isEmpty()) << name.toStdString();
      });
    }
    for (const QToolBar* bar : window_->findChildren<QToolBar*>())
      for (const QAction* each : bar->actions())
        if (!each->isSeparator() && !each->isEnabled()) {
          EXPECT_THAT(each->toolTip().toStdString(), HasSubstr(".")) << each->text().toStdString();
        }
    return grey;
  };
  EXPECT_GT(lookEverywhere(), 30);  // nothing is open
  ASSERT_TRUE(window_->files().open("/p/Demo.vbp"));
  EXPECT_GT(lookEverywhere(), 10);
  openCode();
  EXPECT_GT(lookEverywhere(), 5);
  session_->host().activate(component("frmMain"));
  EXPECT_GT(lookEverywhere(), 10);
}

TEST_F(WindowFrameTest, APointerOnAGreyEntryIsToldTheReason) {
  start(true);
  QMenu* edit = openMenu(Qt::Key_E);
  EXPECT_EQ(tipAt(*edit, entry(*edit, "Undo")), "Undo\nThere is nothing to undo.");
  EXPECT_EQ(tipAt(*edit, entry(*edit, "Go to Line...")), "No code window is in front.");
  closeMenus();
  openCode();
  edit = openMenu(Qt::Key_E);
  EXPECT_EQ(tipAt(*edit, entry(*edit, "Undo")), "Undo\nThere is nothing to undo.");
  EXPECT_TRUE(entry(*edit, "Go to Line...")->isEnabled());
  closeMenus();
}

TEST_F(WindowFrameTest, MiscIsInTheCodeMenuAndItsCommandsFollowTheSelection) {
  start(true);
  CodeEditor& editor = openCode();
  editor.select({8, 5, 8, 5});
  QMenu* menu = openCodeMenu(editor);
  QAction* sort = entry(*menu, "Sort Lines");
  ASSERT_NE(sort, nullptr);
  EXPECT_FALSE(sort->isEnabled());
  EXPECT_EQ(sort->toolTip(), "Select more than one line.");
  EXPECT_TRUE(entry(*menu, "Split Line")->isEnabled());
  closeMenus();

  editor.select({3, 1, 4, 20});
  const std::string before = textOf(editor);
  menu = openCodeMenu(editor);
  ASSERT_TRUE(entry(*menu, "Add Line Numbers")->isEnabled());
  for (const Qt::Key key : {Qt::Key_O, Qt::Key_I, Qt::Key_N}) press(*popup(), key);
  QTest::qWait(50);
  EXPECT_NE(textOf(editor), before);
  EXPECT_THAT(told(), IsEmpty());
}

// What the user has switched off stays off.
TEST_F(WindowFrameTest, MiscStaysAwayWhenItIsSwitchedOff) {
  start(true);
  window_->close();
  window_.reset();
  for (const frame::PopupItem& item : frame::kProcRecoderPopup)
    if (item.handler.find("Line") != std::string_view::npos && !item.option.empty())
      session_->suite().settings().saveOption(item.option, "False");
  session_.reset();
  start(true);
  CodeEditor& editor = openCode();
  QMenu* menu = openCodeMenu(editor);
  EXPECT_EQ(entry(*menu, "Sort Lines"), nullptr);
  EXPECT_NE(entry(*menu, "Auto With"), nullptr);
  closeMenus();
  menu = openMenu(Qt::Key_T);
  EXPECT_NE(entry(*menu, "Sort Lines"), nullptr);
  closeMenus();
}

// The host's own controls stay as they are: other programs read them.
TEST_F(WindowFrameTest, TheHostsControlsAreNotGreyed) {
  start(true);
  window_->sync();
  const auto popup =
      session_->host().CommandBars()->Item(frame::kCodeWindowMenuIndex)->Controls()->Item("Proc. Re-Coder");
  for (const auto& below : popup->Controls()->items()) EXPECT_TRUE(below->Enabled()) << below->Caption();
}

TEST_F(WindowFrameTest, AToolbarButtonIsGreyWithItsNameAndTheReason) {
  start(true);
  const auto button = [&]() -> QAction* {
    for (const QToolBar* bar : window_->findChildren<QToolBar*>())
      for (QAction* each : bar->actions())
        if (each->toolTip().startsWith("Close Inactive Windows")) return each;
    return nullptr;
  };
  window_->sync();
  ASSERT_NE(button(), nullptr);
  EXPECT_FALSE(button()->isEnabled());
  EXPECT_EQ(button()->toolTip(), "Close Inactive Windows\nNo other window is open.");
  openCode("modMain");
  openCode("frmMain");
  window_->sync();
  EXPECT_TRUE(button()->isEnabled());
  EXPECT_EQ(button()->toolTip(), "Close Inactive Windows");
}

TEST_F(WindowFrameTest, WhatIsOpenedFromTheTreeTakesTheKeys) {
  start(true);
  ProjectTree& tree = window_->projectTree();
  const auto choose = [&](const QString& name) {
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
      if ((*it)->text(0).startsWith(name)) tree.setCurrentItem(*it);
    tree.setFocus();
  };
  choose("modMain");
  press(tree, Qt::Key_Return);
  CodeWindow* code = window_->documents().currentCode();
  ASSERT_NE(code, nullptr);
  ASSERT_EQ(QApplication::focusWidget(), &code->editor());
  type(*QApplication::focusWidget(), "'");
  EXPECT_THAT(codeOf(), testing::StartsWith("'Option"));
  choose("frmMain");
  press(tree, Qt::Key_F7);
  ASSERT_EQ(window_->documents().currentCode()->editor().component(), component("frmMain"));
  EXPECT_EQ(QApplication::focusWidget(), &window_->documents().currentCode()->editor());
}

// ---- care

TEST_F(WindowFrameTest, CarefulIsTickedAndHoldsAtOnceAndForLaterRuns) {
  start(true);
  EXPECT_TRUE(session_->suite().services().care.isCareful());
  QMenu* tools = openMenu(Qt::Key_T);
  QAction* careful = entry(*tools, "Careful");
  ASSERT_NE(careful, nullptr);
  EXPECT_TRUE(careful->isChecked());
  EXPECT_THAT(careful->statusTip().toStdString(), HasSubstr("lose no comment"));
  press(*popup(), Qt::Key_F);
  EXPECT_FALSE(session_->suite().services().care.isCareful());
  EXPECT_FALSE(action("Careful")->isChecked());
  window_.reset();
  session_.reset();
  start(true);
  EXPECT_FALSE(session_->suite().services().care.isCareful());
  openMenu(Qt::Key_T);
  press(*popup(), Qt::Key_F);
  EXPECT_TRUE(session_->suite().services().care.isCareful());
  EXPECT_TRUE(frame::storedCare(session_->suite().settings()).isCareful());
}

// ---- boxes

// Real boxes, answered by keys.
class WindowBoxesTest : public WindowFrameTest {
 protected:
  ~WindowBoxesTest() override {
    window_.reset();
    session_.reset();
  }
  void open(const char* project = "/p/Demo.vbp") {
    session_ = std::make_unique<Session>(shown_);
    window_ = std::make_unique<MainWindow>(*session_);
    screen_.setMainWindow(window_.get());
    window_->show();
    activate();
    ASSERT_TRUE(window_->files().open(project));
    window_->sync();
  }
  static constexpr Qt::Key kMouseOnYes = Qt::Key_unknown;
  // What `work` asks is looked at and answered with the key; the texts that were asked.
  std::vector<std::string> answered(Qt::Key key, const std::function<void()>& work,
                                    const std::function<void(QMessageBox&)>& look = {}) {
    std::vector<std::string> asked;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      asked.push_back(box->text().toStdString());
      if (look) look(*box);
      if (key == kMouseOnYes)
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
      else
        QTest::keyClick(box, key);
    });
    watch.start(10);
    work();
    return asked;
  }
  void dirty() { component("modMain")->CodeModule()->InsertLines(1, "' mine"); }

  qt::QtDesk screen_{{base::CodePage::get(base::CodePage::kDefault)}};
  Environment shown_{*files_, clock_,     user_,
                     store_,  clipboard_, keystrokes_,
                     pages_,  screen_,    base::CodePage::get(base::CodePage::kDefault),
                     {}};
};

TEST_F(WindowBoxesTest, EnterLosesNothing) {
  open();
  const std::string theirs = "Attribute VB_Name = \"modMain\"\r\n' theirs\r\n";
  dirty();
  const auto revert = [&] { window_->files().revert(component("modMain")); };
  EXPECT_THAT(answered(Qt::Key_Return, revert), ElementsAre(HasSubstr("Drop all changes")));
  EXPECT_THAT(codeOf(), HasSubstr("' mine"));

  write("/p/modMain.bas", theirs);
  const auto save = [&] { window_->files().save(component("modMain")); };
  EXPECT_THAT(answered(Qt::Key_Return, save), testing::IsEmpty()) << "the bar above the code asks, no box";
  EXPECT_EQ(read("/p/modMain.bas"), theirs);
  window_->files().writeOver(component("modMain"));
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' mine"));

  dirty();
  EXPECT_THAT(answered(Qt::Key_Escape, [&] { window_->close(); }), ElementsAre(HasSubstr("Save changes")));
  EXPECT_TRUE(window_->isVisible());
  answered(Qt::Key_Return, [&] { window_->close(); });
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' mine\r\n' mine"));
}

TEST_F(WindowBoxesTest, TwoHundredFilesScrollAndTheQuestionStaysInSight) {
  std::string project = "Type=Exe\r\nName=\"Many\"\r\n";
  for (int i = 1; i <= 200; ++i) {
    const std::string name = "modOfTheLongName" + std::to_string(i);
    project += "Module=" + name + "; " + name + ".bas\r\n";
    write("/p/" + name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\n");
  }
  write("/p/Many.vbp", project);
  open("/p/Many.vbp");
  for (const auto& each : session_->host().projects().front()->components())
    each->CodeModule()->InsertLines(1, "' mine");
  const auto look = [&](QMessageBox& box) {
    const QSize room = box.screen()->availableGeometry().size();
    EXPECT_LE(box.frameGeometry().width(), room.width());
    EXPECT_LE(box.frameGeometry().height(), room.height());
    auto* list = box.findChild<QPlainTextEdit*>();
    ASSERT_NE(list, nullptr);
    EXPECT_THAT(list->toPlainText().toStdString(), HasSubstr("modOfTheLongName200.bas"));
    std::vector<std::string> labels;
    for (const QLabel* label : box.findChildren<QLabel*>())
      if (label->isVisible() && !label->text().isEmpty()) labels.push_back(label->text().toStdString());
    EXPECT_THAT(labels, Contains("Save changes to the following files?"));
    for (QAbstractButton* button : box.buttons())
      EXPECT_TRUE(box.rect().contains(button->geometry().translated(button->parentWidget()->pos())));
    EXPECT_EQ(box.focusWidget(), box.defaultButton());
  };
  EXPECT_EQ(answered(
                Qt::Key_Escape, [&] { window_->close(); }, look)
                .size(),
            1U);
  EXPECT_TRUE(window_->isVisible());
}

// ---- after a crash

TEST_F(WindowFrameTest, AfterARecoveryTheNextFileActionSpeaksOfItselfOnly) {
  const QTemporaryDir folder;
  environment_.stateFolder = folder.path();
  write("/p/Demo.vbp",
        "Type=Exe\r\nModule=modMain; modMain.bas\r\nModule=modGone; "
        "modGone.bas\r\nForm=frmMain.frm\r\nName=\"Demo\"\r\n");
  write("/p/Other.bas", "Attribute VB_Name = \"Other\"\r\n");
  start();
  EXPECT_THAT(told(), ElementsAre(HasSubstr("modGone.bas")));
  component("modMain")->CodeModule()->InsertLines(1, "' mine");
  EXPECT_TRUE(window_->recovery().keep());
  window_.reset();
  session_.reset();

  session_ = std::make_unique<Session>(environment_);
  window_ = std::make_unique<MainWindow>(*session_);
  desk_.answer("Yes");
  window_->offerRecovery();
  EXPECT_THAT(told(), ElementsAre(HasSubstr("modMain.bas"), HasSubstr("modGone.bas")));
  window_->files().checkOutside();
  EXPECT_TRUE(window_->files().save(component("modMain")));
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' mine"));
  window_->files().revert(component("frmMain"));
  EXPECT_TRUE(window_->files().open("/p/Other.bas"));
  EXPECT_TRUE(window_->files().saveAll());
  EXPECT_TRUE(window_->files().closeAll());
  EXPECT_THAT(told(), IsEmpty());
}

// ---- the screen

// Run by the test below in a program of its own, at its scale.
TEST_F(WindowFrameTest, FitsItsScreen) {
  start(true);
  window_->show();
  QApplication::processEvents();
  const QSize screen = window_->screen()->availableGeometry().size();
  for (const char* name : {"modMain", "frmMain"}) {
    openCode(name);
    session_->host().activate(component(name));
    window_->sync();
    QApplication::processEvents();
    EXPECT_LE(window_->width(), screen.width());
    EXPECT_LE(window_->height(), screen.height());
    EXPECT_LE(window_->minimumSizeHint().width(), screen.width());
    EXPECT_LE(window_->minimumSizeHint().height(), screen.height());
  }
}

// The screen of the tests has 800 pixels each way.
TEST_F(WindowFrameTest, FitsItsScreenAtTwiceTheScale) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_SCALE_FACTOR", "2");
  program.setProcessEnvironment(environment);
  program.setProcessChannelMode(QProcess::MergedChannels);
  program.start(QApplication::applicationFilePath(),
                {"--gtest_filter=WindowFrameTest.FitsItsScreen:WindowBoxesTest.Two*"});
  ASSERT_TRUE(program.waitForFinished(60000));
  EXPECT_EQ(program.exitCode(), 0) << program.readAll().toStdString();
}

}  // namespace
}  // namespace kolvane::workbench
