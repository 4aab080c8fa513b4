// Unsaved edits across a program that ends without being closed.
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RecoveryTest : public WorkbenchTest {
 protected:
  RecoveryTest() { environment_.stateFolder = folder_.path(); }
  ~RecoveryTest() override { crash(); }
  // As a kill does: nothing is closed, nobody is asked.
  void crash() {
    window_.reset();
    session_.reset();
  }
  void startAgain(const char* answer) {
    session_ = std::make_unique<Session>(environment_);
    window_ = std::make_unique<MainWindow>(*session_);
    desk_.answer(answer);
    window_->offerRecovery();
  }
  QStringList runs() {
    return QDir(folder_.path() + "/recovery").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  }

  QTemporaryDir folder_;
};

TEST_F(RecoveryTest, EditsOfCodeAndDesignerComeBackUnsaved) {
  start();
  const std::string before = read("/p/modMain.bas");
  CodeEditor& editor = openCode();
  editor.select({2, 1, 2, 1});
  type(editor, "' caf");
  component("frmMain")->Designer()->VBControls()->Item("cmdOK")->Properties()->Item("Left")->setValue(15L);
  const std::string form = component("frmMain")->bytes();
  EXPECT_TRUE(window_->recovery().keep());
  type(editor, "e");
  EXPECT_TRUE(window_->recovery().keep());
  const std::string module = component("modMain")->bytes();
  crash();
  EXPECT_EQ(read("/p/modMain.bas"), before);

  startAgain("Yes");
  EXPECT_THAT(told(), ElementsAre(AllOf(HasSubstr("/p/modMain.bas"), HasSubstr("/p/frmMain.frm"))));
  EXPECT_EQ(component("modMain")->bytes(), module);
  EXPECT_EQ(component("frmMain")->bytes(), form);
  EXPECT_TRUE(component("modMain")->isDirty());
  EXPECT_EQ(read("/p/modMain.bas"), before);
  session_->host().saveAll();
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' cafe\r\n"));
  EXPECT_TRUE(window_->close());
  EXPECT_THAT(runs(), IsEmpty());
}

TEST_F(RecoveryTest, AFileThatAnotherProgramHasChangedMeanwhileIsToldOf) {
  start();
  for (const char* name : {"modMain", "frmMain"}) component(name)->CodeModule()->InsertLines(1, "' mine");
  EXPECT_TRUE(window_->recovery().keep());
  crash();
  write("/p/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n' theirs\r\n");
  write("/p/frmMain.frm", read("/p/frmMain.frm"));  // the same again
  startAgain("Yes");
  const auto texts = told();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_THAT(texts[1],
              AllOf(HasSubstr("/p/modMain.bas"), Not(HasSubstr("frmMain")), HasSubstr("writes over")));
  EXPECT_THAT(codeOf(), HasSubstr("' mine"));
}

TEST_F(RecoveryTest, AComponentThatWasNeverSavedComesBackToo) {
  start();
  session_->host().addComponent(session_->host().projects().front(), frame::ComponentType::kClassModule,
                                "clsNew", "Public Rate As Double\r\n");
  EXPECT_TRUE(window_->recovery().keep());
  crash();
  startAgain("Yes");
  ASSERT_NE(component("clsNew"), nullptr);
  EXPECT_EQ(codeOf("clsNew"), "Public Rate As Double");
}

TEST_F(RecoveryTest, ARefusalDropsThemAndASaveLeavesNothing) {
  start();
  component("modMain")->CodeModule()->InsertLines(1, "' x");
  EXPECT_TRUE(window_->recovery().keep());
  EXPECT_EQ(runs().size(), 1);
  crash();
  startAgain("No");
  EXPECT_THAT(runs(), IsEmpty());
  EXPECT_TRUE(session_->host().projects().empty());
  ASSERT_TRUE(window_->files().open("/p/Demo.vbp"));
  component("modMain")->CodeModule()->InsertLines(1, "' y");
  EXPECT_TRUE(window_->recovery().keep());
  session_->host().saveAll();
  EXPECT_TRUE(window_->recovery().keep());
  crash();
  told();
  startAgain("Yes");
  EXPECT_THAT(told(), IsEmpty());
}

// The typist of the test below, in a program of its own: types until it is killed, and says how far it is.
TEST_F(RecoveryTest, TypistOfTheTestBelow) {
  if (!qEnvironmentVariableIsSet("KOLVANE_TYPIST")) GTEST_SKIP() << "runs only as the other test's program";
  environment_.stateFolder = qEnvironmentVariable("KOLVANE_TYPIST");
  start();
  window_->start();
  CodeEditor& editor = openCode();
  editor.select({2, 1, 2, 1});
  type(editor, "' ");
  for (int typed = 1;; ++typed) {
    type(editor, "x");
    std::printf("typed %d\n", typed);
    std::fflush(stdout);
    QTest::qWait(5);
  }
}

TEST_F(RecoveryTest, AKillLosesAtMostTheLastTwoSecondsOfTyping) {
  QProcess typist;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("KOLVANE_TYPIST", folder_.path());
  typist.setProcessEnvironment(environment);
  typist.start(QApplication::applicationFilePath(), {"--gtest_filter=RecoveryTest.TypistOfTheTestBelow"});
  // How many keys there were at each moment.
  std::vector<std::pair<qint64, int>> typed;
  QElapsedTimer time;
  time.start();
  while (time.elapsed() < 3500) {
    typist.waitForReadyRead(50);
    while (typist.canReadLine()) {
      const QString line = typist.readLine();
      if (line.startsWith("typed ")) typed.emplace_back(time.elapsed(), line.mid(6).toInt());
    }
  }
  const qint64 killed = time.elapsed();
  typist.kill();
  typist.waitForFinished();
  ASSERT_FALSE(typed.empty());
  int safe = 0;
  for (const auto& [moment, keys] : typed)
    if (moment <= killed - 2000) safe = keys;
  ASSERT_GT(safe, 0);
  startAgain("Yes");
  const std::string line = component("modMain")->CodeModule()->Lines(2, 1);
  EXPECT_GE(static_cast<int>(line.size()) - 2, safe);
}

TEST_F(RecoveryTest, ARunThatLivesIsLeftAlone) {
  start();
  component("modMain")->CodeModule()->InsertLines(1, "' x");
  EXPECT_TRUE(window_->recovery().keep());
  Session other(environment_);
  Recovery second(other, environment_.stateFolder);
  EXPECT_TRUE(second.abandoned().empty());
}

}  // namespace
}  // namespace kolvane::workbench
