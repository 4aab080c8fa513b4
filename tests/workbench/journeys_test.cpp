// Whole ways through the window with the suite's real dialogs, by the hands of a user.
#include <QMenuBar>

#include "forms/list_view.h"
#include "forms/open_forms.h"
#include "forms/user.h"
#include "qt/qt_desk.h"
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::HasSubstr;

class JourneyTest : public WorkbenchTest {
 protected:
  void open() {
    session_ = std::make_unique<Session>(shown_);
    window_ = std::make_unique<MainWindow>(*session_);
    screen_.setMainWindow(window_.get());
    window_->show();
    activate();
    ASSERT_TRUE(window_->files().open("/p/Demo.vbp"));
    window_->start();
  }
  ~JourneyTest() override {
    window_.reset();
    session_.reset();
  }

  void chooseAddIn(const QString& caption) {
    for (QAction* top : window_->menuBar()->actions()) {
      if (top->menu() == nullptr || top->text().remove('&') != "Add-Ins") continue;
      Q_EMIT top->menu()->aboutToShow();
      for (QAction* each : top->menu()->actions())
        if (each->text().remove('&') == caption) return each->trigger();
    }
    ADD_FAILURE() << "no entry " << caption.toStdString();
  }
  // Waits until a form of that name is shown.
  forms::Form& form(std::string_view name) {
    for (int i = 0; i < 200; ++i) {
      forms::Form* open = screen_.openForms().find(name);
      if (open != nullptr && screen_.window(*open) != nullptr) return *open;
      QTest::qWait(10);
    }
    throw std::runtime_error(std::string(name) + " is not shown");
  }
  QWidget& widget(forms::Form& form, std::string_view control) {
    screen_.refresh();
    return *screen_.widget(form.control(control));
  }
  void settle() {
    QTest::qWait(60);
    window_->sync();
  }

  qt::QtDesk screen_{{base::CodePage::get(base::CodePage::kDefault)}};
  Environment shown_{*files_, clock_,     user_,
                     store_,  clipboard_, keystrokes_,
                     pages_,  screen_,    base::CodePage::get(base::CodePage::kDefault),
                     {}};
};

TEST_F(JourneyTest, AProcedureIsBuiltAndTakenBackInOneStep) {
  open();
  CodeEditor& editor = openCode();
  const std::string before = textOf(editor);
  chooseAddIn("Procedure Builder");
  forms::Form& builder = form("frmProcedureBuilder");
  type(widget(builder, "txtName"), "post all");
  QTest::mouseClick(&widget(builder, "txtParaName1"), Qt::LeftButton);
  type(widget(builder, "txtParaName1"), "path");
  press(widget(builder, "txtParaName1"), Qt::Key_Return);
  settle();
  EXPECT_EQ(screen_.openForms().find("frmProcedureBuilder"), nullptr);
  EXPECT_THAT(textOf(editor), HasSubstr("Private Sub Post_All(ByVal strPath As String)\r\n"));
  EXPECT_EQ(textOf(editor), codeOf());
  editor.undo();
  EXPECT_EQ(textOf(editor), before);
  EXPECT_EQ(codeOf(), before);
}

TEST_F(JourneyTest, CodeMaintenanceRunsAndALineOfItsReportIsOpened) {
  write("/p/modMain.bas",
        "Attribute VB_Name = \"modMain\"\r\nOption Explicit\r\n\r\nPublic Sub Main()\r\n"
        "Dim intUnused As Integer\r\nBeep\r\nEnd Sub\r\n");
  open();
  openCode("frmMain");
  chooseAddIn("Code Maintenance");
  forms::Form& maintenance = form("frmCodeMaintenance");
  forms::user::selectItem(maintenance.control("cboType"), "Project");
  auto& options = static_cast<forms::ListView&>(maintenance.control("lvwOptions"));
  for (int row = 1; row <= options.count(); ++row) {
    const std::string& text = options.item(row).text();
    const bool wanted = text.starts_with("Indent") || text.find("Unused Variables") != std::string::npos;
    forms::user::check(options, {row, 0, {}}, wanted);
  }
  QTest::mouseClick(&widget(maintenance, "cmdOK"), Qt::LeftButton);
  forms::Form& report = form("frmReport");
  forms::user::select(report.control("grdResults"), {1, 0, {}});
  QTest::mouseClick(&widget(report, "cmdCodeClose"), Qt::LeftButton);
  settle();
  CodeEditor& editor = window_->documents().currentCode()->editor();
  EXPECT_EQ(editor.component(), component("modMain"));
  EXPECT_EQ(editor.cursorLine(), 3);  // the procedure of the finding
  EXPECT_THAT(textOf(editor), HasSubstr("    Beep\r\n"));
  EXPECT_EQ(textOf(editor), codeOf());
}

}  // namespace
}  // namespace kolvane::workbench
