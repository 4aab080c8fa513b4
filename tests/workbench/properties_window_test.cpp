// The properties window: what it shows of components and controls, and what an entry does to the file.
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class PropertiesWindowTest : public WorkbenchTest {
 protected:
  void open() {
    start();
    session_->host().activate(component("frmMain"));
    window_->sync();
  }
  void select(std::initializer_list<const char*> names) {
    const auto controls = component("frmMain")->Designer()->VBControls();
    for (const auto& control : controls->items()) control->setInSelection(false);
    for (const char* name : names) controls->Item(name)->setInSelection(true);
    window_->sync();
  }
  std::string value(const char* property) { return window_->properties().value(property).toStdString(); }
  void enter(const char* property, const char* text) {
    window_->properties().enter(property, text);
    window_->sync();
  }
};

TEST_F(PropertiesWindowTest, ShowsTheFormThenTheSelectedControl) {
  open();
  EXPECT_EQ(value("Name"), "frmMain");
  EXPECT_EQ(value("BorderStyle"), "2 - Sizable");
  EXPECT_EQ(value("BackColor"), "&H8000000F&");
  EXPECT_EQ(window_->properties().table().item(0, 0)->text(), "(Name)");
  select({"cmdOK"});
  EXPECT_EQ(value("Caption"), "&OK");
  EXPECT_EQ(value("Font"), "MS Sans Serif");
  EXPECT_EQ(value("Picture"), "(None)");
  EXPECT_EQ(value("Enabled"), "True");
  EXPECT_EQ(window_->properties().objects().currentText(), "cmdOK  CommandButton");
}

TEST_F(PropertiesWindowTest, AnEntryIsWrittenAndOneThatIsWrongIsTold) {
  open();
  select({"txtName"});
  enter("BorderStyle", "0 - None");
  enter("MaxLength", "20");
  enter("Locked", "True");
  EXPECT_EQ(value("BorderStyle"), "0 - None");
  enter("MaxLength", "many");
  EXPECT_EQ(told().size(), 1U);
  EXPECT_EQ(value("MaxLength"), "20");
  enter("Name", "txtFull");
  EXPECT_EQ(value("Name"), "txtFull");
  session_->host().save(component("frmMain"));
  const std::string file = read("/p/frmMain.frm");
  EXPECT_THAT(file, HasSubstr("Begin VB.TextBox txtFull "));
  EXPECT_THAT(file, HasSubstr("MaxLength       =   20\r\n"));
  EXPECT_THAT(file, HasSubstr("BorderStyle     =   0  'None\r\n"));
}

TEST_F(PropertiesWindowTest, OfSeveralControlsWhatTheyShare) {
  open();
  select({"cmdOK", "txtName"});
  EXPECT_EQ(window_->properties().table().findItems("(Name)", Qt::MatchExactly).size(), 0);
  EXPECT_EQ(window_->properties().table().findItems("Caption", Qt::MatchExactly).size(), 0);
  EXPECT_EQ(value("Left"), "");
  enter("Left", "600");
  EXPECT_EQ(value("Left"), "600");
  const auto controls = component("frmMain")->Designer()->VBControls();
  EXPECT_EQ(frame::toText(controls->Item("cmdOK")->Properties()->Item("Left")->value()), "600");
}

TEST_F(PropertiesWindowTest, RenamingAModuleShowsEverywhere) {
  start();
  openCode("modMain");
  enter("Name", "modStart");
  EXPECT_EQ(component("modStart")->name(), "modStart");
  EXPECT_EQ(window_->documents().tabText(0), "modStart (Code) *");
}

}  // namespace
}  // namespace kolvane::workbench
