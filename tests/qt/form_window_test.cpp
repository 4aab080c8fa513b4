#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

#include "forms/error_form.h"
#include "forms/user.h"
#include "on_screen.h"

namespace kolvane::test {
namespace {

class MainForm final : public forms::Form {
 public:
  explicit MainForm(forms::Desk& desk) : Form(desk, "frmMain", "Main") {
    mnuSave.setShortcut('S', forms::keys::kCtrl);
    cmdOK.setDefault(true);
    cmdClose.setCancel(true);
    setHelpTopic("Main.Html");
  }

  forms::Menu mnuFile{*this, "mnuFile", "&File"};
  forms::Menu mnuSave{mnuFile, "mnuSave", "&Save"};
  forms::Menu mnuLine{mnuFile, "mnuLine", "-"};
  forms::Menu mnuMore{mnuFile, "mnuMore", "&More"};
  forms::Menu mnuDeep{mnuMore, "mnuDeep", "&Deep"};
  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtTitle{*this, "txtTitle"};
  forms::Tabs tabPages{*this, "tabPages", {"&One", "&Two"}};
  forms::CheckBox chkFirst{*this, "chkFirst", "F&irst"};
  forms::CheckBox chkSecond{*this, "chkSecond", "Se&cond"};
  forms::Frame fraMore{*this, "fraMore", "Mor&e"};
  forms::TextBox txtMore{*this, "txtMore"};
  forms::ProgressBar prgDone{*this, "prgDone"};
  forms::StatusBar StatusBar1{*this, "StatusBar1"};
  forms::ListBox lstNames{*this, "lstNames"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdClose{*this, "cmdClose", "Close"};
  forms::CommandButton cmdNever{*this, "cmdNever", "Never"};
  forms::Timer tmrTick{*this, "tmrTick"};
  bool swapped = false;
  forms::Layout layout() const override {
    using namespace forms;
    const Layout names = swapped ? row("&Title:", txtTitle) : row("&Name:", txtName);
    const Layout titles = swapped ? row("&Name:", txtName) : row("Long t&itle:", txtTitle);
    return column(names, titles, tabs(tabPages, page(chkFirst), page(chkSecond)), group(fraMore, txtMore),
                  prgDone, grow(lstNames), buttons(cmdOK, cmdClose), StatusBar1, unplaced(cmdNever));
  }
};

class FormWindows : public OnScreen {
 protected:
  MainForm form{desk};
};

TEST_F(FormWindows, FocusFollowsTabAndMouseAndTheForm) {
  form.txtName.onGotFocus = log("name");
  form.txtName.onLostFocus = log("name left");
  form.txtTitle.onGotFocus = log("title");
  form.show();
  EXPECT_THAT(taken(), ElementsAre("name"));
  EXPECT_TRUE(shown<QLineEdit>(form.txtName)->hasFocus());
  press(form, Qt::Key_Tab);
  EXPECT_TRUE(shown<QLineEdit>(form.txtTitle)->hasFocus());
  press(form, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_THAT(taken(), ElementsAre("name left", "title", "name"));
  click(form.txtMore);
  EXPECT_EQ(form.focus(), &form.txtMore);
  form.txtTitle.setFocus();
  EXPECT_TRUE(shown<QLineEdit>(form.txtTitle)->hasFocus());
  form.txtTitle.setEnabled(false);  // the focus goes on
  settle();
  EXPECT_EQ(form.focus(), &form.tabPages);
  EXPECT_TRUE(shown<QTabBar>(form.tabPages)->hasFocus());
}

TEST_F(FormWindows, WhatDoesNotValidateKeepsTheFocus) {
  int asked = 0;
  form.txtName.onValidate = [&](bool& cancel) {
    ++asked;
    cancel = true;
  };
  form.cmdClose.setCausesValidation(false);
  form.chkFirst.onClick = log("ticked");
  form.cmdClose.onClick = log("close");
  show(form);
  click(form.chkFirst);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(shown<QLineEdit>(form.txtName)->hasFocus());
  press(form, Qt::Key_Tab);
  EXPECT_EQ(asked, 2);
  EXPECT_FALSE(form.chkFirst.checked());
  click(form.cmdClose);
  EXPECT_THAT(taken(), ElementsAre("close"));
}

TEST_F(FormWindows, EscapeClicksTheCloseButtonOfAFormThatHasNoCancelButton) {
  form.cmdClose.setCancel(false);
  form.cmdClose.onClick = log("close");
  show(form);
  press(form, Qt::Key_Escape);
  EXPECT_THAT(taken(), ElementsAre("close"));
  form.cmdClose.setEnabled(false);
  press(form, Qt::Key_Escape);
  EXPECT_THAT(taken(), IsEmpty());
  // For programs that drive it the form is what it was.
  form.cmdClose.setEnabled(true);
  forms::user::key(form, forms::keys::kEscape);
  EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(FormWindows, KeysOfTheForm) {
  form.cmdOK.onClick = log("ok");
  form.cmdClose.onClick = log("close");
  form.mnuSave.onClick = log("save");
  form.onKeyDown = [this](int& key, int shift) { note("down " + std::to_string(key + 1000 * shift)); };
  form.onKeyUp = [this](int& key, int) { note("up " + std::to_string(key)); };
  show(form);
  press(form, Qt::Key_Return);
  EXPECT_THAT(taken(), ElementsAre("down 13", "ok", "up 13"));
  press(form, Qt::Key_Escape);
  EXPECT_TRUE(form.visible());
  EXPECT_THAT(taken(), ElementsAre("down 27", "close", "up 27"));
  press(form, Qt::Key_F1);
  EXPECT_THAT(taken(), ElementsAre("down 112", "help Main.Html", "up 112"));
  press(form, Qt::Key_S, Qt::ControlModifier);
  EXPECT_THAT(taken(), ElementsAre("down 2083", "save", "up 83"));
  press(form, Qt::Key_E, Qt::AltModifier);  // the frame's
  EXPECT_EQ(form.focus(), &form.txtMore);
  press(form, Qt::Key_N, Qt::AltModifier);  // a label's
  EXPECT_EQ(form.focus(), &form.txtName);
  press(form, Qt::Key_T, Qt::AltModifier);  // a page's
  EXPECT_EQ(form.tabPages.tab(), 1);
  EXPECT_EQ(form.txtName.text(), "");
}

TEST_F(FormWindows, Menus) {
  form.mnuSave.onClick = log("save");
  form.mnuDeep.onClick = log("deep");
  show(form);
  auto* const bar = windowOf(form)->findChild<QMenuBar*>();
  ASSERT_TRUE(bar);
  QMenu* const file = bar->actions().at(0)->menu();
  EXPECT_EQ(file->title(), "&File");
  ASSERT_EQ(file->actions().size(), 3);
  EXPECT_EQ(file->actions().at(0)->text(), "&Save\tCtrl+S");
  EXPECT_TRUE(file->actions().at(1)->isSeparator());
  file->actions().at(0)->trigger();
  file->actions().at(2)->menu()->actions().at(0)->trigger();
  EXPECT_THAT(taken(), ElementsAre("save", "deep"));
  form.mnuSave.setChecked(true);
  form.mnuMore.setEnabled(false);
  form.mnuLine.setVisible(false);
  form.mnuSave.setCaption("&Keep");
  settle();
  EXPECT_TRUE(file->actions().at(0)->isChecked());
  EXPECT_EQ(file->actions().at(0)->text(), "&Keep\tCtrl+S");
  EXPECT_FALSE(file->actions().at(1)->isVisible());
  EXPECT_FALSE(file->actions().at(2)->isEnabled());
}

TEST_F(FormWindows, FramesPagesAndIndicators) {
  form.tabPages.onTabClick = [this](int previous) { note("from " + std::to_string(previous)); };
  show(form);
  auto* const bar = shown<QTabBar>(form.tabPages);
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
  settle();
  EXPECT_EQ(form.tabPages.tab(), 1);
  EXPECT_TRUE(shown<QWidget>(form.chkSecond)->isVisible());
  EXPECT_FALSE(shown<QWidget>(form.chkFirst)->isVisible());
  press(bar, Qt::Key_Left);
  EXPECT_EQ(form.tabPages.tab(), 0);
  EXPECT_THAT(taken(), ElementsAre("from 0", "from 1"));
  form.tabPages.setTab(1);
  form.tabPages.setPageCaption(0, "&Zero");
  form.fraMore.setEnabled(false);
  form.prgDone.setRange(0, 50);
  form.prgDone.setValue(25);
  form.StatusBar1.setText(1, "Ready");
  form.StatusBar1.addPanel("n", "3 rows");
  settle();
  EXPECT_EQ(bar->currentIndex(), 1);
  EXPECT_EQ(bar->tabText(0), "&Zero");
  EXPECT_FALSE(shown<QLineEdit>(form.txtMore)->isEnabled());
  EXPECT_EQ(shown<QProgressBar>(form.prgDone)->value() * 2, shown<QProgressBar>(form.prgDone)->maximum());
  std::vector<std::string> panels;
  for (const QLabel* label : shown<QFrame>(form.StatusBar1)->findChildren<QLabel*>())
    panels.push_back(label->text().toStdString());
  EXPECT_THAT(panels, ElementsAre("Ready", "3 rows"));
  EXPECT_FALSE(desk.widget(form.cmdNever));
}

TEST_F(FormWindows, ResizingKeepsListsLargeAndButtonsInPlace) {
  show(form);
  QWidget* const window = windowOf(form);
  const QWidget* const list = shown<QWidget>(form.lstNames);
  const QWidget* const button = shown<QWidget>(form.cmdClose);
  const auto corner = [&] {
    return button->mapTo(window, QPoint(button->width(), button->height())) -
           QPoint(window->width(), window->height());
  };
  const int height = list->height();
  const QPoint before = corner();
  const QSize size = button->size();
  window->resize(window->width() + 150, window->height() + 200);
  settle();
  EXPECT_EQ(list->height(), height + 200);
  EXPECT_EQ(corner(), before);
  EXPECT_EQ(button->size(), size);
  // Labels of neighbouring rows line up.
  EXPECT_EQ(shown<QWidget>(form.txtName)->geometry().left(),
            shown<QWidget>(form.txtTitle)->geometry().left());
}

TEST_F(FormWindows, LayoutThatFollowsTheState) {
  show(form);
  const QPointer<QWidget> before = shown<QLineEdit>(form.txtName);
  form.swapped = true;
  form.relayout();
  QWidget* const after = shown<QLineEdit>(form.txtName);
  EXPECT_NE(after, before);
  EXPECT_GT(after->y(), shown<QLineEdit>(form.txtTitle)->y());
  EXPECT_TRUE(after->hasFocus());
  EXPECT_EQ(after->accessibleName(), "Name");
}

TEST_F(FormWindows, PlacementComesFromTheFormAndGoesBack) {
  form.onResize = log("resize");
  form.setPlacement({1500, 750, 9000, 9000});
  form.show();
  EXPECT_THAT(taken(), ElementsAre("resize"));
  QWidget* const window = windowOf(form);
  EXPECT_EQ(window->geometry().size(), QSize(600, 600));
  EXPECT_EQ(window->pos(), QPoint(100, 50));
  window->resize(640, 660);
  window->move(120, 40);
  settle();
  EXPECT_EQ(form.placement(), (forms::Placement{1800, 600, 9600, 9900}));
  EXPECT_THAT(taken(), ElementsAre("resize"));
  form.setPlacement({1500, 750, 9000, 9000});
  settle();
  EXPECT_EQ(window->size(), QSize(600, 600));
  form.setCaption("Other");
  form.setWindowState(forms::WindowState::kMaximized);
  settle();
  EXPECT_EQ(window->windowTitle(), "Other");
  EXPECT_TRUE(window->isMaximized());
}

TEST_F(FormWindows, FrameOfTheWindow) {
  form.setIcon("Search");
  form.setMinimumSize(12000, 12000);
  show(form);
  QWidget* const window = windowOf(form);
  EXPECT_FALSE(window->windowIcon().isNull());
  EXPECT_EQ(window->minimumSize(), QSize(800, 800));
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  form.setTopMost(true);
  form.setFixedSize(true);
  settle();
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_FALSE(window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_EQ(window->minimumSize(), window->maximumSize());
  EXPECT_TRUE(shown<QLineEdit>(form.txtName)->hasFocus());
}

TEST_F(FormWindows, WhatWasNeverStoredIsNoPlacement) {
  form.setPlacement({500, 500, 3000, 3000});  // as the settings give it
  show(form);
  EXPECT_GE(windowOf(form)->height(), windowOf(form)->sizeHint().height());
  EXPECT_EQ(form.placement(), (forms::Placement{500, 500, 3000, 3000}));
}

TEST_F(FormWindows, PlaceOutsideOfEveryScreenIsNotKept) {
  form.setPlacement({1500000, 1500000, 9000, 9000});
  show(form);
  EXPECT_TRUE(windowOf(form)->screen()->geometry().contains(windowOf(form)->geometry().center()));
}

TEST_F(FormWindows, CloseButtonAsksTheForm) {
  bool refuse = true;
  form.onQueryUnload = [&](bool& cancel, forms::UnloadMode mode) {
    note(mode == forms::UnloadMode::kCloseButton ? "close button" : "other");
    cancel = refuse;
  };
  show(form);
  windowOf(form)->close();
  settle();
  EXPECT_TRUE(form.visible());
  EXPECT_TRUE(windowOf(form)->isVisible());
  refuse = false;
  windowOf(form)->close();
  EXPECT_THAT(taken(), ElementsAre("close button", "close button"));
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(windowOf(form));
  form.show();  // again, with a window of its own
  settle();
  EXPECT_TRUE(windowOf(form)->isVisible());
}

TEST_F(FormWindows, TimersTickWhileTheFormIsShown) {
  form.tmrTick.setInterval(60);
  form.tmrTick.onTimer = log("tick");
  form.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !events.empty(); }, 3000));
}

TEST_F(FormWindows, LoopsShowProgressWhenTheyLetEventsBeHandled) {
  show(form);
  const auto* const bar = shown<QProgressBar>(form.prgDone);
  form.cmdOK.onClick = [&] {
    form.prgDone.setValue(50);
    const bool told = QTest::qWaitFor([&] {
      desk.doEvents();
      return bar->value() * 2 == bar->maximum();
    });
    note(told ? "half" : "never");
  };
  click(form.cmdOK);
  EXPECT_THAT(taken(), ElementsAre("half"));
}

class SmallForm final : public forms::Form {
 public:
  SmallForm(forms::Desk& desk, std::string_view name) : Form(desk, name, name) {}

  forms::TextBox txtText{*this, "txtText"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
};

TEST_F(FormWindows, ModalFormsNestAndBlock) {
  SmallForm outer(desk, "frmOuter");
  SmallForm inner(desk, "frmInner");
  SmallForm beside(desk, "frmBeside");
  inner.cmdOK.onClick = [&] {
    note("inner ok");
    inner.hide();
  };
  outer.cmdOK.onClick = [&] {
    inner.showModal();
    note("back in outer");
    outer.unload();
  };
  show(form);
  once([&] { return outer.visible(); },
       [&] {
         EXPECT_TRUE(windowOf(outer)->isModal());
         beside.show();  // shown later: can be used
         settle();
         click(form.cmdOK);
         EXPECT_EQ(desk.openForms().active(), &beside);
         type(shown<QWidget>(beside.txtText), "x");
         EXPECT_EQ(beside.txtText.text(), "x");
         once([&] { return inner.visible(); }, [&] { click(inner.cmdOK); });
         click(outer.cmdOK);
       });
  outer.showModal();
  EXPECT_THAT(taken(), ElementsAre("inner ok", "back in outer"));
  EXPECT_FALSE(outer.loaded());
  EXPECT_TRUE(inner.loaded());
}

TEST_F(FormWindows, FormsComeToTheFront) {
  SmallForm other(desk, "frmOther");
  show(form);
  show(other);
  form.onActivate = log("main");
  other.onActivate = log("other");
  form.show();
  EXPECT_THAT(taken(), ElementsAre("main"));
  EXPECT_TRUE(windowOf(form)->isActiveWindow());
  windowOf(other)->activateWindow();
  EXPECT_THAT(taken(), ElementsAre("other"));
  EXPECT_EQ(desk.openForms().active(), &other);
}

TEST_F(FormWindows, FormThatUnloadsInItsOwnHandler) {
  auto owned = std::make_shared<SmallForm>(desk, "frmOwned");
  owned->cmdOK.onClick = [&owned] {
    forms::Form* const self = owned.get();
    owned.reset();
    self->unload();
    QCoreApplication::processEvents();
  };
  owned->show();
  settle();
  const QPointer<QWidget> window = windowOf(*owned);
  click(owned->cmdOK);
  settle();
  EXPECT_FALSE(owned);
  EXPECT_TRUE(desk.openForms().empty());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(window);
}

TEST_F(FormWindows, ErrorOfAHandlerIsShownAndEndsThere) {
  form.cmdOK.onClick = [] { throw base::Error(13, "Type mismatch"); };
  show(form);
  std::string told;
  whenAsked([&](QWidget*) {
    forms::Form* const error = desk.openForms().active();
    ASSERT_EQ(error->name(), "frmVBError");
    told = static_cast<forms::TextBox&>(error->control("txtErrorNo")).text() + " " +
           static_cast<forms::TextBox&>(error->control("txtSource")).text();
    click(error->control("cmdClose"));
  });
  click(form.cmdOK);
  EXPECT_THAT(told, testing::StartsWith("13 "));
  EXPECT_THAT(told, testing::HasSubstr(".frmMain.cmdOK"));
}

}  // namespace
}  // namespace kolvane::test
