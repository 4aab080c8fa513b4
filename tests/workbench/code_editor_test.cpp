// A code window and its module: what is typed in the one stands in the other.
#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CodeEditorTest : public WorkbenchTest {
 protected:
  CodeEditor& editor() { return window_->documents().currentCode()->editor(); }
  void put(int line, int column) { editor().select({line, column, line, column}); }
  void expectInStep() { EXPECT_EQ(textOf(editor()), codeOf()); }
};

TEST_F(CodeEditorTest, ShowsTheModuleWithoutItsHeader) {
  start();
  openCode();
  EXPECT_EQ(textOf(editor()) + "\r\n", code_);
  EXPECT_FALSE(component("modMain")->isDirty());
  EXPECT_EQ(window_->documents().tabText(0), "modMain (Code)");
}

TEST_F(CodeEditorTest, TypingReachesTheModuleAtOnceAndOnlyTheLineThatWasTypedIn) {
  start();
  openCode();
  put(4, 18);
  type(editor(), "9");
  EXPECT_EQ(component("modMain")->CodeModule()->Lines(4, 1), "    Debug.Print 19");
  EXPECT_TRUE(component("modMain")->isDirty());
  session_->host().save(component("modMain"));
  std::string wanted = "Attribute VB_Name = \"modMain\"\r\n" + code_;
  wanted.replace(wanted.find("Print 1"), 7, "Print 19");
  EXPECT_EQ(read("/p/modMain.bas"), wanted);
}

// Each edit below is made by hand in a fresh module; the module must hold what the editor shows.
TEST_F(CodeEditorTest, EveryKindOfEditKeepsBothInStep) {
  start();
  openCode();
  put(3, 18);
  press(editor(), Qt::Key_Return);  // a line's end
  expectInStep();
  put(3, 1);
  press(editor(), Qt::Key_Return);  // a line's start
  expectInStep();
  put(5, 10);
  press(editor(), Qt::Key_Return);  // inside a line
  expectInStep();
  press(editor(), Qt::Key_Backspace);
  press(editor(), Qt::Key_Backspace);  // joins two lines
  expectInStep();
  editor().select({2, 1, 4, 1});  // whole lines
  press(editor(), Qt::Key_Delete);
  expectInStep();
  editor().select({1, 4, 3, 5});  // parts of lines
  press(editor(), Qt::Key_Delete);
  expectInStep();
  editor().selectAll();
  press(editor(), Qt::Key_Delete);
  expectInStep();
  type(editor(), "x = 1");
  expectInStep();
  editor().insert("a\nb\n\n");
  expectInStep();
  while (editor().isUndoAvailable()) editor().undo();
  expectInStep();
  EXPECT_EQ(codeOf() + "\r\n", code_);
  while (editor().isRedoAvailable()) editor().redo();
  expectInStep();
}

TEST_F(CodeEditorTest, KeywordsGetTheirCaseWhenTheCursorLeavesTheLine) {
  start();
  openCode();
  put(2, 1);
  type(editor(), "dim x as long");
  EXPECT_EQ(editor().text(1).toStdString(), "dim x as long\n");
  press(editor(), Qt::Key_Down);
  EXPECT_EQ(editor().text(1).toStdString(), "Dim x As Long\n");
  // Undo takes the typing back as if the case had never changed, and redo brings it again.
  while (editor().isUndoAvailable()) editor().undo();
  EXPECT_EQ(codeOf() + "\r\n", code_);
  expectInStep();
  while (editor().isRedoAvailable()) editor().redo();
  press(editor(), Qt::Key_Down);
  EXPECT_EQ(component("modMain")->CodeModule()->Lines(2, 1), "Dim x As Long");
  expectInStep();
}

TEST_F(CodeEditorTest, WhatAToolDoesComesBackAsOneStepOfUndo) {
  start();
  openCode();
  window_->run([&] {
    const auto module = component("modMain")->CodeModule();
    module->InsertLines(3, "' first");
    module->InsertLines(8, "' second");
    module->ReplaceLine(1, "Option Compare Text");
    component("modMain")->pane()->SetSelection({3, 1, 3, 8});
  });
  expectInStep();
  EXPECT_THAT(textOf(editor()), HasSubstr("' first\r\nPublic Sub Main()"));
  EXPECT_EQ(editor().selection(), (frame::TextRange{3, 1, 3, 8}));
  editor().undo();
  EXPECT_EQ(textOf(editor()) + "\r\n", code_);
  expectInStep();
  EXPECT_FALSE(editor().isUndoAvailable());
  editor().redo();
  EXPECT_THAT(codeOf(), HasSubstr("' second"));
  expectInStep();
}

TEST_F(CodeEditorTest, TheSelectionIsTheHostsInBothDirections) {
  write("/p/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n' caf\xe9 \x80 x\r\nb\r\n");
  start();
  openCode();
  editor().select({1, 8, 1, 9});
  EXPECT_EQ(editor().selectedText(), QString::fromUtf8("€"));
  press(editor(), Qt::Key_Right, Qt::ShiftModifier);
  QTest::qWait(20);
  EXPECT_EQ(component("modMain")->pane()->GetSelection(), (frame::TextRange{1, 8, 1, 10}));
  component("modMain")->pane()->SetSelection({2, 2, 2, 2});
  window_->sync();
  EXPECT_EQ(editor().selection(), (frame::TextRange{2, 2, 2, 2}));
}

TEST_F(CodeEditorTest, CodeCanBeReadOnADarkDesktop) {
  const QPalette usual = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
  start();
  openCode();
  const QsciLexer& lexer = *editor().lexer();
  for (int style = 0; style < 10; ++style)
    EXPECT_GT(lexer.color(style).lightness(), lexer.paper(style).lightness() + 100) << style;
  if (qEnvironmentVariableIsSet("KOLVANE_SHOTS"))
    window_->grab().save(qEnvironmentVariable("KOLVANE_SHOTS") + "/dark.png");
  QApplication::setPalette(usual);
}

// As on a screen, where the window is brought in step before the editor has painted what a key or a click did.
TEST_F(CodeEditorTest, ACursorThatTheUserMovedIsNotPulledBack) {
  start();
  openCode();
  put(2, 1);
  editor().pull();
  editor().SendScintilla(QsciScintillaBase::SCI_LINEDOWN);
  editor().pull();
  EXPECT_EQ(editor().selection(), (frame::TextRange{3, 1, 3, 1}));
  EXPECT_EQ(component("modMain")->pane()->GetSelection(), (frame::TextRange{3, 1, 3, 1}));
  editor().SendScintilla(QsciScintillaBase::SCI_LINEEND);
  editor().SendScintilla(QsciScintillaBase::SCI_ADDTEXT, 4UL, " 'x\n");
  editor().pull();
  EXPECT_EQ(editor().cursorLine(), 4);
  expectInStep();
  component("modMain")->pane()->SetSelection({1, 1, 1, 5});
  editor().pull();
  EXPECT_EQ(editor().selection(), (frame::TextRange{1, 1, 1, 5}));
}

TEST_F(CodeEditorTest, ACharacterThatTheCodePageLacksIsNotLetIn) {
  start();
  openCode();
  QString refused;
  editor().onRefused = [&](const QString& reason) { refused = reason; };
  put(2, 1);
  type(editor(), "x");
  editor().insert(QString::fromUtf8("→"));
  QTest::qWait(20);
  EXPECT_THAT(refused.toStdString(), HasSubstr("1252"));
  EXPECT_EQ(component("modMain")->CodeModule()->Lines(2, 1), "x");
  expectInStep();
  while (editor().isUndoAvailable()) editor().undo();
  EXPECT_EQ(codeOf() + "\r\n", code_);
}

TEST_F(CodeEditorTest, AReadOnlyModuleTakesNoKeys) {
  files_->setAttributes("/p/modMain.bas", platform::kAttributeReadOnly);
  start();
  openCode();
  put(2, 1);
  type(editor(), "x");
  EXPECT_EQ(codeOf() + "\r\n", code_);
  expectInStep();
}

TEST_F(CodeEditorTest, AttributeLinesThatAreTypedAreHiddenAsInAFile) {
  start();
  openCode();
  editor().select({4, 1, 4, 1});
  editor().insert("Attribute Main.VB_Description = \"Starts it\"\n");
  QTest::qWait(20);
  expectInStep();
}

TEST_F(CodeEditorTest, TheListsFollowTheCursorAndLeadIt) {
  start();
  CodeEditor& text = openCode("frmMain");
  CodeWindow& code = *window_->documents().currentCode();
  text.select({4, 1, 4, 1});
  EXPECT_EQ(code.objectList().currentText(), "cmdOK");
  EXPECT_EQ(code.procedureList().currentText(), "Click");
  text.select({1, 1, 1, 1});
  EXPECT_EQ(code.objectList().currentText(), "(General)");
  EXPECT_EQ(code.procedureList().currentText(), "(Declarations)");
  // An event without a handler gets one.
  code.objectList().showPopup();
  code.objectList().hidePopup();
  Q_EMIT code.objectList().activated(code.objectList().findText("txtName"));
  const int change = code.procedureList().findText("Change");
  ASSERT_GE(change, 0);
  Q_EMIT code.procedureList().activated(change);
  EXPECT_THAT(codeOf("frmMain"), HasSubstr("Private Sub txtName_Change()\r\n\r\nEnd Sub"));
  EXPECT_EQ(code.procedureList().currentText(), "Change");
  EXPECT_EQ(text.cursorLine(), 8);
}

}  // namespace
}  // namespace kolvane::workbench
