// The background timer: the dirty indicator, the clipboard ring's feed, the shelf for a control's code.
#include <gmock/gmock.h>

#include "suite_fixture.h"

namespace kolvane::suite {
namespace {

using testing::ElementsAre;

class TimerTest : public SuiteTest {
 protected:
  void start(bool dirty, bool ring) {
    if (!dirty) settings_.DeleteSetting(frame::kToolbarOrderSection);
    set("nM164skghsfd331fghndfshd", ring ? "True" : "False");
    connect();
  }

  frame::frmTimerForm& timer() { return *suite_.connection().timerForm(); }
  // As long as one interval takes.
  void tick() { timer().advance(1500); }

  void copy(const std::string& text) {
    clipboard_.clear();
    clipboard_.setText(text);
    tick();
  }

  // The entries, the newest first, as far as there are any.
  std::vector<std::string> ring() {
    const auto& items = timer().ClipboardRingItems();
    std::vector<std::string> texts(items.begin() + 1, items.end());
    while (!texts.empty() && texts.back().empty()) texts.pop_back();
    return texts;
  }

  std::string face() {
    return workspace_->CommandBars()
        ->Item(frame::kStandardToolbarIndex)
        ->Controls()
        ->Item("Dirty Project")
        ->Face();
  }
};

TEST_F(TimerTest, theIndicatorFollowsTheActiveProjectAndTakesTheClipboardOnlyAtAChange) {
  files_.replace("/p/A.vbp", "Type=Exe\r\nModule=Module1; Module1.bas\r\nName=\"A\"\r\n");
  files_.replace("/p/Module1.bas", "Attribute VB_Name = \"Module1\"\r\nSub A()\r\nEnd Sub\r\n");
  files_.replace("/p/B.vbp", "Type=Exe\r\nName=\"B\"\r\n");
  workspace_->open("/p/A.vbp");
  workspace_->open("/p/B.vbp");
  const auto a = workspace_->VBProjects()->Item("A");
  const auto b = workspace_->VBProjects()->Item("B");
  workspace_->setActiveVBProject(a);
  start(true, false);
  EXPECT_EQ(face(), "Dirty Project");
  clipboard_.clear();
  clipboard_.setText("mine");
  tick();
  EXPECT_EQ(face(), "Dirty Project");
  EXPECT_EQ(clipboard_.text(), "mine");

  a->VBComponents()->Item(1)->CodeModule()->InsertLines(1, "' x");
  timer().advance(1499);
  EXPECT_EQ(face(), "Dirty Project");
  timer().advance(1);
  EXPECT_EQ(face(), "Image2000DirtyPictureDirty");
  EXPECT_EQ(clipboard_.picture(), "Image2000DirtyPictureDirty");
  clipboard_.clear();
  tick();
  EXPECT_EQ(clipboard_.picture(), std::nullopt);

  workspace_->setActiveVBProject(b);
  tick();
  EXPECT_EQ(face(), "Image2000DirtyPictureNotDirty");
}

TEST_F(TimerTest, withoutAnActiveProjectTheIndicatorKeepsItsFace) {
  start(true, true);
  copy("text");
  EXPECT_EQ(face(), "Dirty Project");
  EXPECT_THAT(ring(), ElementsAre("text"));
  workspace_->addComponent(workspace_->newProject(), frame::ComponentType::kStdModule);
  tick();
  const std::string shown = face();
  EXPECT_EQ(shown, "Image2000DirtyPictureDirty");
  workspace_->VBProjects()->Remove(workspace_->ActiveVBProject());
  tick();
  EXPECT_EQ(face(), shown);
}

TEST_F(TimerTest, theRingTakesNewTextsAndNothingElse) {
  start(false, true);
  for (const char* text : {"a", "a", "b", "a", " \r\n ", "", " \t"}) copy(text);
  EXPECT_THAT(ring(), ElementsAre("a", "b", "a"));
  clipboard_.setText("c");
  clipboard_.setPicture("Search");
  tick();
  EXPECT_THAT(ring(), ElementsAre("a", "b", "a"));
  clipboard_.clear();
  clipboard_.setText("x");
  clipboard_.clear();
  clipboard_.setText("y\xE2\x82\xAC");
  tick();
  EXPECT_THAT(ring(), ElementsAre("y\xE2\x82\xAC", "a", "b", "a"));
}

TEST_F(TimerTest, theRingHoldsFifteen) {
  start(false, true);
  for (int i = 1; i <= 16; ++i) copy("text " + std::to_string(i));
  const auto texts = ring();
  ASSERT_EQ(texts.size(), 15u);
  EXPECT_EQ(texts.front(), "text 16");
  EXPECT_EQ(texts.back(), "text 2");
  EXPECT_EQ(timer().ClipboardRingItems()[0], "");
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(suite_.connection().timerForm(), nullptr);
  connect();
  EXPECT_TRUE(ring().empty());
}

TEST_F(TimerTest, nothingIsFedThatIsNotInUse) {
  start(false, false);
  workspace_->newProject();
  copy("text");
  EXPECT_TRUE(ring().empty());
  EXPECT_EQ(timer().UsingDirtyProject, "False");
  EXPECT_FALSE(timer().UsingClipboardRing);
  EXPECT_TRUE(desk_.takeUnattended().empty());
  EXPECT_TRUE(desk_.openForms().empty());
}

TEST_F(TimerTest, theToolbarsRowPutsTheRingToUseToo) {
  set("b165skghsfd331fghndfshd", "True");
  connect();
  EXPECT_TRUE(timer().UsingClipboardRing);
}

TEST_F(TimerTest, theShelfHoldsTheCodeOfOneControl) {
  set("ol168SAD93", "False");
  connect();
  timer().UpdateCopyControlCode("cmdOK", "code", "CommandButton");
  EXPECT_FALSE(timer().CodeForClassAvailable("CommandButton"));
  suite_.connection().AddinInstance_OnDisconnection();
  set("ol168SAD93", "True");
  connect();
  timer().UpdateCopyControlCode("cmdOK", "code", "CommandButton");
  EXPECT_TRUE(timer().CodeForClassAvailable("CommandButton"));
  EXPECT_FALSE(timer().CodeForClassAvailable("commandbutton"));
  EXPECT_EQ(timer().GetControlCodeForClass("CommandButton"), "code");
  EXPECT_EQ(timer().GetCopyControlNameOfClass("CommandButton"), "cmdOK");
  EXPECT_EQ(timer().GetControlCodeForClass("TextBox"), "");
  timer().UpdateCopyControlCode("txtName", "other", "TextBox");
  EXPECT_FALSE(timer().CodeForClassAvailable("CommandButton"));
  EXPECT_EQ(timer().GetCopyControlNameOfClass("TextBox"), "txtName");
}

}  // namespace
}  // namespace kolvane::suite
