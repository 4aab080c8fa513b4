// The life of forms: showing, modal nesting, unloading, what keeps them alive.
#include "forms/drive.h"
#include "forms/error_form.h"
#include "support.h"

namespace kolvane::forms {
namespace {

void watchLife(Form& form, EventLog& log) {
  const std::string name = form.name();
  form.onLoad = [&log, name] { log.add(name + ".Load"); };
  form.onResize = [&log, name] { log.add(name + ".Resize"); };
  form.onActivate = [&log, name] { log.add(name + ".Activate"); };
  form.onDeactivate = [&log, name] { log.add(name + ".Deactivate"); };
  form.onQueryUnload = [&log, name](bool&, UnloadMode) { log.add(name + ".QueryUnload"); };
  form.onUnload = [&log, name](bool&) { log.add(name + ".Unload"); };
}

struct Life : testing::Test {
  ScriptedDesk desk;
  EventLog log;
};

TEST_F(Life, goesFromLoadToUnload) {
  frmSmall form(desk);
  watchLife(form, log);
  log.watch(form.txtName);
  form.show();
  EXPECT_EQ(log.take(), "frmSmall.Load frmSmall.Resize frmSmall.Activate txtName.GotFocus");
  form.setPlacement({500, 500, 3000, 3000});
  form.setPlacement({600, 500, 3000, 3000});
  EXPECT_EQ(log.take(), "frmSmall.Resize");
  form.hide();
  form.show();
  EXPECT_EQ(log.take(), "frmSmall.Resize frmSmall.Activate txtName.GotFocus");
  EXPECT_TRUE(user::close(form));
  EXPECT_EQ(log.take(), "frmSmall.QueryUnload frmSmall.Unload");
  EXPECT_FALSE(form.loaded());
  EXPECT_TRUE(desk.openForms().empty());
}

TEST_F(Life, aRefusalKeepsTheFormOpenButNotAtTheEnd) {
  frmSmall form(desk);
  UnloadMode asked = UnloadMode::kEnd;
  form.onQueryUnload = [&](bool& cancel, UnloadMode mode) {
    asked = mode;
    cancel = true;
  };
  form.show();
  EXPECT_FALSE(user::close(form));
  EXPECT_EQ(asked, UnloadMode::kCloseButton);
  EXPECT_FALSE(form.unload());
  form.onQueryUnload = nullptr;
  form.onUnload = [](bool& cancel) { cancel = true; };
  EXPECT_FALSE(form.unload());
  EXPECT_TRUE(form.visible());
  EXPECT_TRUE(form.unload(UnloadMode::kEnd));
  EXPECT_FALSE(form.visible());
}

TEST_F(Life, aFormUnloadedAsItLoadsIsNotShown) {
  frmSmall form(desk);
  form.onLoad = [&] { form.unload(); };
  form.show();
  EXPECT_FALSE(form.visible());
  form.onLoad = [] { throw base::Error(base::errors::kFileNotFound); };
  EXPECT_EQ(refusal([&] { form.show(); }), "53: File not found");
  EXPECT_FALSE(form.loaded());
}

TEST_F(Life, modalFormsNestAndBlockWhatLiesBelow) {
  frmSmall base(desk, "frmBase"), first(desk, "frmFirst"), second(desk, "frmSecond"), tool(desk, "frmTool");
  watchLife(base, log);
  base.show();
  log.take();
  desk.runModal = [&](Form& form) {
    log.add("[" + form.name());
    if (&form == &first) {
      drive::click(first, "cmdOK");
      EXPECT_EQ(desk.openForms().active(), &first);
      tool.show();  // beside it, above it: can be used
      EXPECT_TRUE(user::setText(tool.txtName, "x"));
      user::setText(first.txtName, "y");
      EXPECT_NE(refusal([&] { user::close(base); }), "done");
      drive::click(first, "cmdCancel");
    } else {
      EXPECT_EQ(desk.openForms().blocker(first), &second);
      drive::close(second);
    }
    log.add(form.name() + "]");
  };
  first.cmdOK.onClick = [&] {
    second.showModal();
    log.add("second-done");
  };
  first.cmdCancel.onClick = [&] { first.hide(); };
  base.cmdOK.onClick = [&] {
    first.showModal();
    log.add("first-done " + first.txtName.text());
  };
  drive::click(base, "cmdOK");
  EXPECT_EQ(log.take(),
            "frmBase.Deactivate [frmFirst [frmSecond frmSecond] second-done frmFirst] first-done y");
  EXPECT_EQ(desk.openForms().active(), &tool);
  EXPECT_TRUE(tool.close());
  EXPECT_EQ(log.take(), "frmBase.Activate");
  EXPECT_EQ(refusal([&] { base.showModal(); }),
            "400: frmBase is already displayed; it can't be shown modally.");
}

TEST_F(Life, errorsInAModalLoopTakeTheFormDown) {
  frmSmall form(desk);
  desk.runModal = [](Form&) { throw base::Error(base::errors::kInternal); };
  EXPECT_EQ(refusal([&] { form.showModal(); }), "51: Internal error");
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(desk.openForms().empty());
}

class frmCounted final : public Form {
 public:
  frmCounted(Desk& desk, int& alive) : Form(desk, "frmCounted", "Counted"), alive_(alive) { ++alive_; }
  ~frmCounted() override { --alive_; }
  TextBox txtName{*this, "txtName"};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};

 private:
  int& alive_;
};

TEST_F(Life, aSlotMakesOneFormAndLetsItGoAtUnload) {
  int alive = 0;
  FormSlot<frmCounted> slot(desk, alive);
  EXPECT_EQ(slot.existing(), nullptr);
  slot->txtName.setText("one");
  EXPECT_EQ(slot->txtName.text(), "one");
  slot->onUnload = [](bool& cancel) { cancel = true; };
  slot->load();
  EXPECT_FALSE(slot.unload());
  EXPECT_EQ(alive, 1);
  EXPECT_TRUE(slot.unload(UnloadMode::kEnd));
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(slot->txtName.text(), "");
}

TEST_F(Life, aFormOutlivesTheHandlerThatUnloadsIt) {
  int alive = 0;
  FormSlot<frmCounted> slot(desk, alive);
  std::string after;
  frmCounted& form = *slot;
  form.cmdClose.onClick = [&, raw = &form] {
    raw->unload();
    EXPECT_EQ(slot.existing(), nullptr);
    raw->txtName.setText("still here");
    after = raw->txtName.text();
  };
  form.show();
  EXPECT_TRUE(user::click(form.cmdClose));
  EXPECT_EQ(after, "still here");
  EXPECT_EQ(alive, 0);
  // The same through a change in code, and with a handler that replaces itself.
  slot->txtName.onChange = [&] {
    Form& self = *slot;
    slot->txtName.onChange = nullptr;
    self.unload();
  };
  slot->show();
  slot->txtName.setText("x");
  EXPECT_EQ(alive, 0);
}

TEST_F(Life, aModalFormOfASlotIsGoneWhenItReturns) {
  int alive = 0;
  FormSlot<frmCounted> slot(desk, alive);
  desk.runModal = [&](Form& form) { drive::close(form); };
  slot->showModal();
  EXPECT_EQ(alive, 0);
  desk.runModal = [&](Form& form) {
    drive::set(form, "txtName", {.text = "chosen"});
    form.hide();
  };
  slot->showModal();
  EXPECT_EQ(slot->txtName.text(), "chosen");  // hidden only
  EXPECT_TRUE(slot.unload());
}

TEST_F(Life, eventsOfDoEventsReachARunningHandler) {
  frmSmall form(desk);
  bool cancelled = false;
  int steps = 0;
  form.cmdCancel.onClick = [&] { cancelled = true; };
  form.cmdOK.onClick = [&] {
    while (!cancelled && steps < 100) {
      ++steps;
      desk.doEvents();
    }
  };
  desk.onDoEvents = [&] {
    if (steps == 3) drive::click(form, "cmdCancel");
  };
  form.show();
  drive::click(form, "cmdOK");
  EXPECT_EQ(steps, 3);
}

class frmEntry final : public Form {
 public:
  explicit frmEntry(Desk& desk) : Form(desk, "frmEntry", "Entry") {
    cmdFail.onClick = entry("cmdFail_Click", &frmEntry::cmdFail_Click);
    cmdBreak.onClick = entry("cmdBreak_Click", [] { throw std::runtime_error("disk gone"); });
    cmdFail.onKeyPress = entry("cmdFail_KeyPress", [](int& character) { character = 0; });
  }
  CommandButton cmdFail{*this, "cmdFail", "&Fail"};
  CommandButton cmdBreak{*this, "cmdBreak", "&Break"};

 private:
  void cmdFail_Click() {
    const base::ErrorScope scope("modGeneral", "GetPath");
    throw base::Error(base::errors::kPathNotFound);
  }
};

TEST_F(Life, errorsOfEntryPointsEndInTheErrorForm) {
  frmEntry form(desk);
  form.show();
  std::string shown;
  desk.runModal = [&](Form& error) {
    for (const auto* name : {"txtErrorNo", "txtSource", "txtDescription"})
      shown += dynamic_cast<TextBox&>(error.control(name)).text() + "\n";
    drive::click(error, "cmdClose");
  };
  EXPECT_TRUE(user::click(form.cmdFail));
  EXPECT_EQ(shown, "76\nKolvaneLite.modGeneral.GetPath.frmEntry.cmdFail_Click\nPath not found\n");
  shown.clear();
  user::click(form.cmdBreak);
  EXPECT_EQ(shown, "51\nKolvaneLite.frmEntry.cmdBreak_Click\ndisk gone\n");
  EXPECT_TRUE(form.visible());
}

class CountingView final : public FormView {
 public:
  void controlChanged(const Control& control, Aspect) override { changed += control.name() + " "; }
  void formChanged() override { changed += "form "; }
  void layoutChanged() override { changed += "layout "; }
  void focusMoved() override { changed += "focus "; }
  std::string changed;
};

TEST_F(Life, aViewHearsOfChanges) {
  frmSmall form(desk);
  CountingView view;
  form.setView(&view);
  form.show();
  form.setCaption("Other");
  form.cboScope.addItem("Friend");
  form.cmdOK.setEnabled(false);
  { Label lblNew(form, "lblNew", "New"); }
  EXPECT_EQ(view.changed, "focus form cboScope cmdOK layout layout ");
  form.setView(nullptr);
}

}  // namespace
}  // namespace kolvane::forms
