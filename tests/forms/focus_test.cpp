// Focus, tab order, validation, keys: a small dialog used by hand.
#include "forms/drive.h"
#include "support.h"

namespace kolvane::forms {
namespace {

struct Focus : testing::Test {
  ScriptedDesk desk;
  frmSmall form{desk};
  EventLog log;

  Focus() {
    log.watchAll(form);
    form.show();
  }
};

TEST_F(Focus, startsAtTheFirstControlAndMovesBeforeTheGesture) {
  EXPECT_EQ(log.take(), "txtName.GotFocus");
  EXPECT_TRUE(user::setText(form.txtName, "Total"));
  EXPECT_EQ(log.take(), "txtName.Change");
  EXPECT_TRUE(user::selectItem(form.cboScope, "Public"));
  EXPECT_EQ(log.take(), "txtName.Validate txtName.LostFocus cboScope.GotFocus cboScope.Click");
  EXPECT_TRUE(user::click(form.cmdOK));
  EXPECT_EQ(log.take(), "cboScope.Validate cboScope.LostFocus cmdOK.GotFocus cmdOK.Click");
}

TEST_F(Focus, staysWhenValidateRefuses) {
  form.txtName.onValidate = [&](bool& cancel) { cancel = form.txtName.text().empty(); };
  log.take();
  EXPECT_FALSE(user::click(form.cmdOK));
  EXPECT_EQ(log.take(), "");
  EXPECT_EQ(form.focus(), &form.txtName);
  form.cmdCancel.setCausesValidation(false);
  EXPECT_TRUE(user::click(form.cmdCancel));
  EXPECT_EQ(log.take(), "txtName.LostFocus cmdCancel.GotFocus cmdCancel.Click");
}

TEST_F(Focus, leavesAControlThatCanNotHaveItAnyMore) {
  form.cmdOK.onClick = [&] {
    form.cmdOK.setEnabled(false);
    log.add("cmdOK.Click");
  };
  user::click(form.cmdOK);
  EXPECT_EQ(log.take(),
            "txtName.GotFocus txtName.Validate txtName.LostFocus cmdOK.GotFocus cmdOK.Click "
            "cmdOK.LostFocus cmdCancel.GotFocus");
}

TEST_F(Focus, canBeSentOnByAHandler) {
  form.cboScope.onGotFocus = [&] { form.chkHeader.setFocus(); };
  EXPECT_FALSE(user::selectIndex(form.cboScope, 1));
  EXPECT_EQ(form.focus(), &form.chkHeader);
  EXPECT_EQ(form.cboScope.listIndex(), -1);
  form.chkHeader.onLostFocus = [&] { form.txtName.setFocus(); };
  EXPECT_FALSE(user::click(form.cmdOK));
  EXPECT_EQ(form.focus(), &form.txtName);
}

TEST_F(Focus, followsTheTabOrder) {
  const auto walk = [&](int shift) {
    std::string names;
    for (int i = 0; i < 5; ++i) {
      user::key(form, keys::kTab, shift);
      names += form.focus()->name() + " ";
    }
    return names;
  };
  EXPECT_EQ(walk(0), "cboScope chkHeader cmdOK cmdCancel txtName ");
  form.chkHeader.setTabIndex(0);
  form.cboScope.setTabStop(false);
  EXPECT_EQ(walk(keys::kShift), "chkHeader cmdCancel cmdOK txtName chkHeader ");
  form.cmdOK.onGotFocus = [&] { EXPECT_EQ(form.focusCause(), FocusCause::kTab); };
  walk(0);
}

TEST_F(Focus, refusesWhatNoUserCouldDo) {
  log.take();
  const auto typed = [&] { return refusal([&] { user::setText(form.txtName, "x"); }); };
  form.txtName.setEnabled(false);
  EXPECT_EQ(typed(), "5: txtName of frmSmall is disabled.");
  form.txtName.setEnabled(true);
  form.txtName.setVisible(false);
  EXPECT_EQ(typed(), "5: txtName of frmSmall is hidden.");
  form.txtName.setVisible(true);
  form.txtName.setLocked(true);
  EXPECT_EQ(typed(), "5: txtName of frmSmall (TextBox) is locked.");
  form.txtName.setLocked(false);
  EXPECT_EQ(refusal([&] { user::setText(form.txtName, "two\r\nlines"); }),
            "5: txtName of frmSmall (TextBox) takes one line only.");
  EXPECT_EQ(refusal([&] { user::setText(form.cmdOK, "x"); }),
            "5: cmdOK of frmSmall (CommandButton) takes no text.");
  EXPECT_EQ(refusal([&] { user::selectItem(form.cboScope, "Friend"); }),
            "5: cboScope of frmSmall (ComboBox) has no item \"Friend\".");
  EXPECT_EQ(refusal([&] { drive::click(form, "cmdOkay"); }), "5: frmSmall has no control named cmdOkay.");
  frmSmall other(desk, "frmOther");
  other.show();
  desk.runModal = [&](Form&) { EXPECT_EQ(typed(), "5: frmSmall waits until frmModal is closed."); };
  frmSmall modal(desk, "frmModal");
  modal.showModal();
  form.unload();
  EXPECT_EQ(typed(), "5: frmSmall is not open.");
}

TEST_F(Focus, ofARefusedGestureDoesNotMove) {
  log.take();
  EXPECT_NE(refusal([&] { user::selectIndex(form.cboScope, 7); }), "done");
  EXPECT_NE(refusal([&] { user::setValue(form.cmdOK, 1); }), "done");
  EXPECT_EQ(log.take(), "");
}

TEST_F(Focus, keysReachFormControlAndButtons) {
  form.onKeyDown = [&](int& key, int) { log.add("form.KeyDown" + std::to_string(key)); };
  form.txtName.onKeyDown = [&](int& key, int) { log.add("KeyDown" + std::to_string(key)); };
  form.txtName.onKeyUp = [&](int& key, int) { log.add("KeyUp" + std::to_string(key)); };
  log.take();
  user::key(form, 'A', keys::kShift);
  EXPECT_EQ(log.take(), "form.KeyDown65 KeyDown65 txtName.Change KeyUp65");
  EXPECT_EQ(form.txtName.text(), "A");
  form.onKeyDown = nullptr;
  user::key(form, keys::kEnter);
  EXPECT_EQ(log.take(), "KeyDown13 cmdOK.Click KeyUp13");
  form.cmdOK.setEnabled(false);
  form.txtName.onKeyPress = [&](int& character) { log.add("KeyPress" + std::to_string(character)); };
  user::key(form, keys::kEnter);
  EXPECT_EQ(log.take(), "KeyDown13 KeyPress13 KeyUp13");
  user::key(form, keys::kEscape);
  EXPECT_EQ(log.take(), "KeyDown27 cmdCancel.Click KeyUp27");
  form.txtName.onKeyDown = [](int& key, int) { key = 0; };
  user::key(form, keys::kTab);
  EXPECT_EQ(form.focus(), &form.txtName);
}

TEST_F(Focus, accessKeysActAndShortcutsClickMenus) {
  user::key(form, 'S', keys::kAlt);
  EXPECT_EQ(form.focus(), &form.cboScope);
  user::key(form, 'H', keys::kAlt);
  EXPECT_TRUE(form.chkHeader.checked());
  Menu mnuFile(form, "mnuFile", "&File");
  Menu mnuSave(mnuFile, "mnuSave", "&Save");
  mnuSave.setShortcut('S', keys::kCtrl);
  log.watch(mnuSave);
  log.take();
  user::key(form, 'S', keys::kCtrl);
  EXPECT_EQ(log.take(), "mnuSave.Click");
  mnuFile.setEnabled(false);
  user::key(form, 'S', keys::kCtrl);
  EXPECT_EQ(log.take(), "");
  EXPECT_EQ(refusal([&] { user::click(mnuSave); }), "5: mnuFile of frmSmall is disabled.");
}

// As a renderer does whose editor types by itself.
TEST_F(Focus, nativeEditorsAskForEachKeyAndTellTheirText) {
  form.txtName.onKeyDown = [](int& key, int) { key = key == keys::kDelete ? 0 : key; };
  form.txtName.onKeyPress = [](int& character) { character = character == 'q' ? 0 : character - 32; };
  EXPECT_EQ(user::keyDown(form.txtName, keys::kDelete, 0), 0);
  EXPECT_EQ(user::keyDown(form.txtName, 'Q', 0), 'Q');
  EXPECT_EQ(user::keyPress(form.txtName, 'q'), 0);
  EXPECT_EQ(user::keyPress(form.txtName, 'a'), 'A');
  log.take();
  EXPECT_TRUE(user::edited(form.txtName, "A", 1));
  EXPECT_EQ(log.take(), "txtName.Change");
  EXPECT_EQ(form.txtName.selStart(), 1);
  EXPECT_NE(refusal([&] { user::edited(form.cboScope, "Friend", 0); }), "done");
}

TEST_F(Focus, helpKeyOpensTheTopic) {
  user::key(form, keys::kF1);
  EXPECT_TRUE(desk.takeLog().empty());
  form.setHelpTopic("Small.html");
  user::key(form, keys::kF1);
  EXPECT_EQ(desk.takeLog(), (std::vector<BoxRecord>{{"help", "Small.html", "", 0, ""}}));
}

}  // namespace
}  // namespace kolvane::forms
