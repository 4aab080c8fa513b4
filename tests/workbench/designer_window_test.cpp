// A designer under the mouse and the keys: what is dragged on the screen stands in the file.
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class DesignerWindowTest : public WorkbenchTest {
 protected:
  void open() {
    start();
    session_->host().activate(component("frmMain"));
    window_->sync();
    designer_ = window_->documents().currentDesigner();
    ASSERT_NE(designer_, nullptr);
  }
  std::vector<std::string> selection() {
    std::vector<std::string> names;
    for (const auto& control : component("frmMain")->Designer()->SelectedVBControls()->items())
      names.push_back(frame::toText(control->Properties()->Item("Name")->value()));
    return names;
  }
  std::string property(const char* control, const char* name) {
    return frame::toText(
        component("frmMain")->Designer()->VBControls()->Item(control)->Properties()->Item(name)->value());
  }
  QPoint middle(const char* control) { return designer_->placeOf(control).center().toPoint(); }
  void click(QPoint place, Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(&designer_->surface(), Qt::LeftButton, held, place);
    window_->sync();
  }
  void drag(QPoint from, QPoint to) {
    QWidget& surface = designer_->surface();
    QTest::mousePress(&surface, Qt::LeftButton, {}, from);
    QTest::mouseMove(&surface, (from + to) / 2);
    QTest::mouseMove(&surface, to);
    QTest::mouseRelease(&surface, Qt::LeftButton, {}, to);
    window_->sync();
  }
  QColor at(const char* control, QPoint away) {
    const QPoint corner = designer_->placeOf(control).topLeft().toPoint();
    return designer_->surface().grab().toImage().pixelColor(corner + away);
  }

  DesignerWindow* designer_ = nullptr;
};

TEST_F(DesignerWindowTest, ShowsControlsWhereTheFileHasThem) {
  open();
  EXPECT_EQ(designer_->placeOf("").size(), QSizeF(312, 213));
  const QRectF button = designer_->placeOf("cmdOK");
  EXPECT_EQ(button.topLeft() - designer_->placeOf("").topLeft(), QPointF(80, 40));
  EXPECT_EQ(button.size(), QSizeF(81, 33));
  // A text box is white inside, and takes the colour that it gets.
  EXPECT_EQ(at("txtName", {100, 8}), QColor(Qt::white));
  component("frmMain")
      ->Designer()
      ->VBControls()
      ->Item("txtName")
      ->Properties()
      ->Item("BackColor")
      ->setValue(0xFFL);
  window_->sync();
  EXPECT_EQ(at("txtName", {100, 8}), QColor(0xFF, 0, 0));
}

TEST_F(DesignerWindowTest, SelectsExtendsAndDrawsARubberBandInOrder) {
  open();
  click(middle("txtName"));
  EXPECT_THAT(selection(), ElementsAre("txtName"));
  click(middle("cmdOK"), Qt::ControlModifier);
  EXPECT_THAT(selection(), ElementsAre("txtName", "cmdOK"));
  click(middle("txtName"), Qt::ControlModifier);
  EXPECT_THAT(selection(), ElementsAre("cmdOK"));
  const QPoint corner = designer_->placeOf("").topLeft().toPoint();
  click(corner + QPoint(300, 200));
  EXPECT_THAT(selection(), ElementsAre());
  drag(corner + QPoint(250, 150), corner + QPoint(5, 5));
  EXPECT_EQ(selection().size(), 2U);
}

TEST_F(DesignerWindowTest, MovesAndSizesOnTheGridAndWritesOnlyThat) {
  open();
  const std::string before = read("/p/frmMain.frm");
  drag(middle("cmdOK"), middle("cmdOK") + QPoint(17, -9));
  EXPECT_EQ(property("cmdOK", "Left"), "1440");
  EXPECT_EQ(property("cmdOK", "Top"), "480");
  const QRectF place = designer_->placeOf("cmdOK");
  drag((place.bottomRight() + QPointF(2, 2)).toPoint(), (place.bottomRight() + QPointF(18, 2)).toPoint());
  EXPECT_EQ(property("cmdOK", "Width"), "1440");
  session_->host().save(component("frmMain"));
  std::string wanted = before;
  const auto change = [&](const std::string& from, const std::string& to) {
    wanted.replace(wanted.find(from), from.size(), to);
  };
  change("Left            =   1200", "Left            =   1440");
  change("Top             =   600", "Top             =   480");
  change("Width           =   1215", "Width           =   1440");
  change("Height          =   495", "Height          =   " + property("cmdOK", "Height"));
  EXPECT_EQ(read("/p/frmMain.frm"), wanted);
}

TEST_F(DesignerWindowTest, KeysMoveSizeAndDelete) {
  open();
  click(middle("cmdOK"));
  press(designer_->surface(), Qt::Key_Right);
  EXPECT_EQ(property("cmdOK", "Left"), "1320");
  press(designer_->surface(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(property("cmdOK", "Height"), "615");
  press(designer_->surface(), Qt::Key_Delete);
  EXPECT_EQ(component("frmMain")->Designer()->VBControls()->Count(), 1);
  press(designer_->surface(), Qt::Key_Tab);
  EXPECT_THAT(selection(), ElementsAre("txtName"));
}

TEST_F(DesignerWindowTest, ADrawnRectangleBecomesAControlOfTheTool) {
  open();
  const QPoint corner = designer_->placeOf("").topLeft().toPoint();
  designer_->setTool("VB.Frame");
  drag(corner + QPoint(80, 96), corner + QPoint(240, 192));
  EXPECT_THAT(selection(), ElementsAre("Frame1"));
  EXPECT_EQ(property("Frame1", "Left"), "1200");
  EXPECT_EQ(property("Frame1", "Width"), "2400");
  // Inside a container a control belongs to it.
  designer_->setTool("VB.CheckBox");
  drag(corner + QPoint(104, 128), corner + QPoint(184, 152));
  EXPECT_EQ(property("Check1", "Left"), "360");
  const auto check = component("frmMain")->Designer()->VBControls()->Item("Check1");
  EXPECT_EQ(frame::toText(check->Container()->Properties()->Item("Name")->value()), "Frame1");
}

TEST_F(DesignerWindowTest, OrdersControlsAsTheFileDoes) {
  open();
  const auto order = [&] {
    const std::string bytes = component("frmMain")->bytes();
    return bytes.find("cmdOK") < bytes.find("txtName") ? "cmdOK txtName" : "txtName cmdOK";
  };
  const std::string before = component("frmMain")->bytes();
  click(middle("txtName"));
  choose("Bring to Front");
  EXPECT_EQ(order(), std::string("txtName cmdOK"));
  choose("Bring to Front");
  choose("Send to Back");
  EXPECT_EQ(component("frmMain")->bytes(), before);
}

TEST_F(DesignerWindowTest, ADoubleClickOpensTheHandler) {
  open();
  QTest::mouseDClick(&designer_->surface(), Qt::LeftButton, {}, middle("txtName"));
  ASSERT_NE(window_->documents().currentCode(), nullptr);
  EXPECT_THAT(codeOf("frmMain"), HasSubstr("Private Sub txtName_Change()"));
}

TEST_F(DesignerWindowTest, AReadOnlyFormStaysAsItIs) {
  files_->setAttributes("/p/frmMain.frm", platform::kAttributeReadOnly);
  open();
  drag(middle("cmdOK"), middle("cmdOK") + QPoint(40, 40));
  EXPECT_EQ(property("cmdOK", "Left"), "1200");
  EXPECT_THAT(told(), ElementsAre(HasSubstr("read-only")));
}

}  // namespace
}  // namespace kolvane::workbench
