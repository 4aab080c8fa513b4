// The example project, every window of it. With KOLVANE_SHOTS naming a folder the windows are left there as pictures.
#include <QDir>
#include <algorithm>

#include "adapters/system/posix_files.h"
#include "workbench/form_picture.h"
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::IsEmpty;

class LedgerTest : public WorkbenchTest {
 protected:
  void open() {
    session_ = std::make_unique<Session>(disk_);
    window_ = std::make_unique<MainWindow>(*session_);
    window_->show();
    activate();
    ASSERT_TRUE(window_->files().open(KOLVANE_SOURCE_DIR "/examples/Ledger/Ledger.vbp"));
    window_->start();
  }
  void shoot(const QString& name) {
    const QString folder = qEnvironmentVariable("KOLVANE_SHOTS");
    if (folder.isEmpty()) return;
    QApplication::processEvents();
    window_->sync();
    window_->grab().save(folder + "/" + name + ".png");
  }
  ~LedgerTest() override {
    window_.reset();
    session_.reset();
  }

  std::unique_ptr<platform::Files> real_ = adapters::makePosixFiles();
  Environment disk_{*real_,
                    clock_,
                    user_,
                    store_,
                    clipboard_,
                    keystrokes_,
                    pages_,
                    desk_,
                    base::CodePage::get(base::CodePage::kDefault),
                    KOLVANE_SOURCE_DIR "/data"};
};

TEST_F(LedgerTest, AHeaderIsWrittenFromThePopupByKeysAndTakenBackInOneStep) {
  open();
  const auto component = session_->host().projects().front()->find("modPosting");
  session_->host().openCode(component);
  window_->sync();
  CodeEditor& editor = window_->documents().currentCode()->editor();
  editor.setFocus();
  editor.select({11, 5, 11, 5});
  const std::string before = textOf(editor);
  ASSERT_EQ(before.find("'*  Name         : EntryBalances"), std::string::npos);
  press(editor, Qt::Key_Menu);
  for (const Qt::Key key : {Qt::Key_O, Qt::Key_H}) {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(*QApplication::activePopupWidget(), key);
  }
  QTest::qWait(50);
  EXPECT_NE(textOf(editor).find("'*  Name         : EntryBalances\r\n"), std::string::npos);
  EXPECT_EQ(editor.cursorLine(), 20);  // still at its statement
  EXPECT_TRUE(component->isDirty());
  editor.undo();
  EXPECT_EQ(textOf(editor), before);
  EXPECT_FALSE(editor.isUndoAvailable());
}

TEST_F(LedgerTest, EveryComponentShowsAndNothingBecomesDirty) {
  open();
  const auto project = session_->host().projects().front();
  for (const auto& component : project->components()) {
    if (!component->hasSource()) continue;
    session_->host().openCode(component);
    window_->sync();
    CodeEditor& editor = window_->documents().currentCode()->editor();
    const auto module = component->CodeModule();
    EXPECT_EQ(editor.text().replace("\n", "\r\n"),
              QString::fromStdString(session_->codePage().toUtf8(module->Lines(1, module->CountOfLines()))))
        << component->name();
    session_->host().activate(component);
    window_->sync();
    DesignerWindow* designer = window_->documents().currentDesigner();
    EXPECT_EQ(designer != nullptr, workspace::traitsOf(component->type()).hasDesigner) << component->name();
    if (designer == nullptr) continue;
    const auto controls = component->Designer()->VBControls();
    for (const auto& control : controls->items())
      if (control->ClassName() != "Menu") {
        control->setInSelection(true);
        break;
      }
    window_->sync();
    shoot(QString::fromStdString(component->name()));
  }
  // Texts, lists and pictures that stand in companion files are shown too.
  const FormPicture about(*project->find("frmAbout"), session_->codePage());
  std::string caption, text;
  bool hasPicture = false;
  for (const Shape& shape : about.shapes()) {
    if (shape.className == "Label" && shape.text("Caption").startsWith("Keep the ledger")) caption = "there";
    if (shape.className == "TextBox") text = shape.text("Text").left(20).toStdString();
    hasPicture = hasPicture || !shape.picture.isNull();
  }
  EXPECT_EQ(caption, "there");
  EXPECT_EQ(text, "Ledger, double-entry");
  EXPECT_TRUE(hasPicture);
  const FormPicture options(*project->find("frmOptions"), session_->codePage());
  EXPECT_TRUE(std::any_of(options.shapes().begin(), options.shapes().end(), [](const Shape& shape) {
    return shape.text("List") == "none\n1\n2 (usual)\n3\n4\n";
  }));
  EXPECT_FALSE(project->IsDirty());
  EXPECT_THAT(told(), IsEmpty());
  session_->host().openCode(project->find("modPosting"));
  window_->sync();
  window_->documents().currentCode()->editor().select({12, 1, 12, 1});
  shoot("code");
}

}  // namespace
}  // namespace kolvane::workbench
