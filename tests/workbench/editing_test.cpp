// Writing code as a user's hands do it: by keys, clicks and selections, with nothing but events.
#include <QPushButton>
#include <QTreeWidget>

#include "workbench_fixture.h"

namespace kolvane::workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class EditingTest : public WorkbenchTest {
 protected:
  CodeEditor& editor() { return window_->documents().currentCode()->editor(); }
  void openModule(const std::string& code) {
    code_ = code;
    write("/p/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n" + code);
    start();
    openCode();
  }
  void put(int line, int column) { editor().select({line, column, line, column}); }
  // A shortcut, as the window stands when it waits for the next key.
  void shortcut(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    window_->sync();
    press(widget, key, held);
    window_->sync();
  }
  void undo() { shortcut(editor(), Qt::Key_Z, Qt::ControlModifier); }
  void redo() { shortcut(editor(), Qt::Key_Y, Qt::ControlModifier); }
  void undoAll() {
    for (int i = 0; i < 30 && editor().isUndoAvailable(); ++i) undo();
  }
  QPoint pointOf(int line, int column) {
    const long position =
        editor().SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line - 1) + column - 1;
    const auto at = [&](unsigned message) {
      return static_cast<int>(editor().SendScintilla(message, 0UL, position));
    };
    return {at(QsciScintillaBase::SCI_POINTXFROMPOSITION) + 1,
            at(QsciScintillaBase::SCI_POINTYFROMPOSITION) + 3};
  }
  bool codeHasFocus(std::string_view name) {
    CodeWindow* code = window_->documents().currentCode();
    return code != nullptr && code->editor().component() == component(name) &&
           QApplication::focusWidget() == &code->editor();
  }
  // A line with its keywords in «» and its comment in {}.
  std::string colours(int line) {
    editor().SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
    const long start = editor().SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line - 1);
    const std::string text = editor().text(line - 1).remove('\n').toStdString();
    const QsciLexer& lexer = *editor().lexer();
    std::string marked;
    QString before = "Default";
    for (std::size_t i = 0; i <= text.size(); ++i) {
      const long style =
          editor().SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, start + static_cast<long>(i));
      const QString now = i < text.size() ? lexer.description(static_cast<int>(style)) : "Default";
      if (now != before) {
        if (before == "Keyword") marked += "»";
        if (before == "Comment") marked += "}";
        if (now == "Keyword") marked += "«";
        if (now == "Comment") marked += "{";
      }
      before = now;
      if (i < text.size()) marked += text[i];
    }
    return marked;
  }
};

// ---- typing

TEST_F(EditingTest, AStepOfUndoIsAWordOrALine) {
  openModule("Sub A()\r\n\r\nEnd Sub\r\n");
  put(2, 1);
  type(editor(), "    Total = Count + 1");
  press(editor(), Qt::Key_Return);
  type(editor(), "Beep");
  std::vector<std::string> steps;
  for (int i = 0; i < 9 && editor().isUndoAvailable(); ++i) {
    steps.push_back(editor().text(1).trimmed().toStdString() + "|" +
                    editor().text(2).trimmed().toStdString());
    undo();
  }
  EXPECT_THAT(steps, ElementsAre("Total = Count + 1|Beep", "Total = Count + 1|", "Total = Count + 1|End Sub",
                                 "Total = Count +|End Sub", "Total = Count|End Sub", "Total =|End Sub",
                                 "Total|End Sub", "|End Sub"));
  EXPECT_EQ(codeOf() + "\r\n", code_);
}

TEST_F(EditingTest, EnterKeepsTheIndentAndTabAndBackspaceMoveIt) {
  openModule("Sub A()\r\n    Beep\r\nEnd Sub\r\n");
  put(2, 9);
  press(editor(), Qt::Key_Return);
  press(editor(), Qt::Key_Tab);
  type(editor(), "x = 1");
  EXPECT_EQ(component("modMain")->code().line(3), "        x = 1");
  press(editor(), Qt::Key_Return);
  press(editor(), Qt::Key_Backspace);
  type(editor(), "y = 1");
  EXPECT_EQ(component("modMain")->code().line(4), "    y = 1");
  EXPECT_EQ(textOf(editor()), codeOf());
}

TEST_F(EditingTest, TabOnABlankLineGoesOnFromItsIndent) {
  openModule("Sub A()\r\n    \r\n\r\nEnd Sub\r\n");
  for (const int column : {5, 1}) {
    put(2, column);
    press(editor(), Qt::Key_Tab);
    EXPECT_EQ(component("modMain")->code().line(2), "        ");
    EXPECT_EQ(editor().selection(), (frame::TextRange{2, 9, 2, 9}));
    undo();
    EXPECT_EQ(component("modMain")->code().line(2), "    ");
  }
  put(3, 1);
  press(editor(), Qt::Key_Tab);
  press(editor(), Qt::Key_Tab);
  press(editor(), Qt::Key_Backtab, Qt::ShiftModifier);
  type(editor(), "Beep");
  EXPECT_EQ(component("modMain")->code().line(3), "    Beep");
}

// Whatever was typed, cased and joined in between: the file's own bytes are there again.
TEST_F(EditingTest, TheStarGoesWhenEverythingIsUndone) {
  openModule("option explicit\nsub A()\r\n  dim x as long\r\nend sub");
  const std::string before = component("modMain")->bytes();
  put(3, 16);
  type(editor(), " ' note");
  press(editor(), Qt::Key_Down);
  put(1, 16);
  press(editor(), Qt::Key_Delete);
  put(2, 1);
  editor().selectAll();
  press(editor(), Qt::Key_Delete);
  window_->sync();
  EXPECT_EQ(window_->documents().tabText(0), "modMain (Code) *");
  undoAll();
  QTest::qWait(20);
  EXPECT_EQ(window_->documents().tabText(0), "modMain (Code)");
  EXPECT_EQ(component("modMain")->bytes(), before);
  EXPECT_EQ(textOf(editor()), codeOf());
  redo();
  EXPECT_TRUE(component("modMain")->isDirty());
}

TEST_F(EditingTest, TheStarComesAndGoesAroundWhatWasSaved) {
  openModule("Sub A()\r\nEnd Sub\r\n");
  put(1, 8);
  type(editor(), " 'x");
  shortcut(editor(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(component("modMain")->isDirty());
  undo();
  EXPECT_TRUE(component("modMain")->isDirty());
  redo();
  QTest::qWait(20);
  EXPECT_FALSE(component("modMain")->isDirty());
}

// What a designer changed stays unsaved, whatever becomes of the code.
TEST_F(EditingTest, UndoingAllCodeDoesNotCallADesignersChangesSaved) {
  start();
  openCode("frmMain");
  component("frmMain")->Designer()->VBControls()->Item(1)->Properties()->Item("Caption")->setValue("Fine");
  put(1, 1);
  type(editor(), "'");
  undo();
  QTest::qWait(20);
  EXPECT_TRUE(component("frmMain")->isDirty());
}

// ---- clicks and selections

TEST_F(EditingTest, ARightClickMovesTheCursorUnlessItIsInTheSelection) {
  start();
  openCode();
  put(1, 1);
  const auto click = [&](int line, int column) {
    QTest::mouseClick(editor().viewport(), Qt::RightButton, {}, pointOf(line, column));
    return component("modMain")->pane()->GetSelection();
  };
  EXPECT_EQ(click(4, 7), (frame::TextRange{4, 7, 4, 7}));
  editor().select({7, 1, 8, 10});
  EXPECT_EQ(click(8, 3), (frame::TextRange{7, 1, 8, 10}));
  EXPECT_EQ(click(3, 2), (frame::TextRange{3, 2, 3, 2}));
}

TEST_F(EditingTest, ThePopupActsOnWhatWasClicked) {
  start(true);
  openCode();
  put(1, 1);
  const QPoint place = pointOf(8, 7);
  QTest::mouseClick(editor().viewport(), Qt::RightButton, {}, place);
  QContextMenuEvent asked(QContextMenuEvent::Mouse, place, editor().viewport()->mapToGlobal(place));
  QApplication::sendEvent(editor().viewport(), &asked);
  for (const Qt::Key key : {Qt::Key_O, Qt::Key_H}) {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(*QApplication::activePopupWidget(), key);
  }
  QTest::qWait(50);
  EXPECT_THAT(codeOf(), HasSubstr("'*  Name         : Total\r\n"));
}

TEST_F(EditingTest, ALineThatTheSelectionOnlyReachesIsNotCounted) {
  openModule("a\r\nbb\r\nccc\r\nd\r\n");
  put(2, 1);
  press(editor(), Qt::Key_Down, Qt::ShiftModifier);
  press(editor(), Qt::Key_Down, Qt::ShiftModifier);
  window_->sync();
  const auto& pane = component("modMain")->pane();
  EXPECT_EQ(pane->GetSelection(), (frame::TextRange{2, 1, 3, 4}));
  EXPECT_EQ(editor().selection(), (frame::TextRange{2, 1, 4, 1}));
  // As a command that writes into each selected line does it.
  window_->run([&] {
    const frame::TextRange range = pane->GetSelection();
    for (int line = range.startLine; line <= range.endLine; ++line)
      component("modMain")->CodeModule()->ReplaceLine(
          line, "'" + std::string(component("modMain")->code().line(line)));
  });
  EXPECT_EQ(codeOf(), "a\r\n'bb\r\n'ccc\r\nd");
  EXPECT_EQ(editor().selection(), (frame::TextRange{2, 1, 4, 1}));
  press(editor(), Qt::Key_Tab);
  EXPECT_EQ(codeOf(), "a\r\n    'bb\r\n    'ccc\r\nd");
}

TEST_F(EditingTest, CommentBlockTakesTheSelectedLinesAndNotTheNextOne) {
  start(true);
  openCode();
  put(3, 1);
  press(editor(), Qt::Key_Down, Qt::ShiftModifier);
  press(editor(), Qt::Key_Down, Qt::ShiftModifier);
  window_->sync();
  press(editor(), Qt::Key_Menu);
  for (const Qt::Key key : {Qt::Key_O, Qt::Key_C}) press(*QApplication::activePopupWidget(), key);
  for (QAction* each : QApplication::activePopupWidget()->actions())
    if (each->text().remove('&') == "Comment Block") each->trigger();
  QTest::qWait(50);
  EXPECT_THAT(codeOf(), HasSubstr("'Public Sub Main()\r\n'    Debug.Print 1\r\nEnd Sub\r\n"));
}

// ---- the focus

TEST_F(EditingTest, WhatOpensCodePutsTheFocusIntoIt) {
  start();
  ProjectTree& tree = window_->projectTree();
  const auto goTo = [&](std::string_view name) {
    tree.setFocus();
    QTreeWidgetItem* found = nullptr;
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
      if ((*it)->text(0).toStdString().starts_with(name)) found = *it;
    tree.setCurrentItem(found);
    QApplication::processEvents();
    return tree.visualItemRect(found).center();
  };
  const QPoint place = goTo("modMain");
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
  QApplication::processEvents();
  EXPECT_TRUE(codeHasFocus("modMain"));
  goTo("frmMain");
  shortcut(tree, Qt::Key_F7);
  EXPECT_TRUE(codeHasFocus("frmMain"));
  goTo("modMain");
  shortcut(tree, Qt::Key_Return);
  EXPECT_TRUE(codeHasFocus("modMain"));
  goTo("modMain");  // it is in front already
  shortcut(tree, Qt::Key_F7);
  EXPECT_TRUE(codeHasFocus("modMain"));
  tree.setFocus();
  choose("Add Class Module");
  EXPECT_TRUE(codeHasFocus("Class1"));
  tree.setFocus();
  window_->run([&] { component("modMain")->pane()->Show(); });
  EXPECT_TRUE(codeHasFocus("modMain"));
  shortcut(editor(), Qt::Key_F4, Qt::ControlModifier);
  EXPECT_TRUE(codeHasFocus("Class1"));
  window_->findDialog().target().setText("Unload");
  window_->findDialog().scope().setCurrentIndex(static_cast<int>(FindDialog::Scope::kProject));
  goTo("frmMain");
  shortcut(tree, Qt::Key_F3);
  EXPECT_TRUE(codeHasFocus("frmMain"));
}

TEST_F(EditingTest, ADoubleClickInTheDesignerOpensTheHandlerForTyping) {
  start();
  session_->host().activate(component("frmMain"));
  window_->sync();
  DesignerWindow& designer = *window_->documents().currentDesigner();
  const QPoint place = designer.placeOf("txtName").center().toPoint();
  QTest::mouseDClick(&designer.surface(), Qt::LeftButton, {}, place);
  QApplication::processEvents();
  EXPECT_TRUE(codeHasFocus("frmMain"));
  type(*QApplication::focusWidget(), "    Beep");
  EXPECT_THAT(codeOf("frmMain"), HasSubstr("txtName_Change()\r\n    Beep"));
}

// ---- colours and case

TEST_F(EditingTest, ColoursAreThoseOfTheWordsThatGetTheirCase) {
  openModule(
      "Option Explicit\r\nPrivate Type Entry\r\n    Name As String ' As is\r\n    Error As Long\r\nEnd "
      "Type\r\n"
      "#If Win32 Then\r\nDeclare Sub Sleep Lib \"k\" Alias \"Dim\" (ByVal n As Long)\r\n#End If\r\n"
      "Sub A() ' on _\r\n  and on\r\n    On Error GoTo Failed\r\n    Text = e.Name & \"If\" & e.Error\r\n"
      "    Open Path For Binary Access Read As #1\r\n    Call A(Step:=1): Rem Dim\r\n"
      "    Gr\xf6\xdf"
      "e = Me.Print _\r\n"
      "        + Line\r\nEnd Sub\r\n");
  EXPECT_EQ(colours(1), "«Option» «Explicit»");
  EXPECT_EQ(colours(3), "    Name «As» «String» {' As is}");
  EXPECT_EQ(colours(4), "    Error «As» «Long»");
  EXPECT_EQ(colours(6), "«#If» Win32 «Then»");
  EXPECT_EQ(colours(7), "«Declare» «Sub» Sleep «Lib» \"k\" «Alias» \"Dim\" («ByVal» n «As» «Long»)");
  EXPECT_EQ(colours(9), "«Sub» A() {' on _}");
  EXPECT_EQ(colours(10), "{  and on}");
  EXPECT_EQ(colours(11), "    «On» «Error» «GoTo» Failed");
  EXPECT_EQ(colours(12), "    Text = e.Name & \"If\" & e.Error");
  EXPECT_EQ(colours(13), "    «Open» Path «For» «Binary» «Access» «Read» «As» #1");
  EXPECT_EQ(colours(14), "    «Call» A(Step:=1): {Rem Dim}");
  EXPECT_EQ(colours(15), "    Größe = «Me».Print _");
  EXPECT_EQ(colours(16), "        + Line");
}

TEST_F(EditingTest, ColoursFollowTheTyping) {
  openModule("Sub A()\r\nb = 1\r\nc = 2\r\nEnd Sub\r\n");
  put(1, 8);
  type(editor(), " ' and _");
  EXPECT_EQ(colours(2), "{b = 1}");
  undo();
  undo();
  undo();
  EXPECT_EQ(colours(2), "b = 1");
  put(4, 1);
  editor().insert("Open As Long\n");
  EXPECT_EQ(colours(4), "«Open» «As» «Long»");
  put(1, 1);
  editor().insert("Type T\nOpen As Long\n");
  EXPECT_EQ(colours(2), "Open «As» «Long»");
}

TEST_F(EditingTest, KeywordsOfSomePlacesGetTheirCaseWhenTheLineIsLeft) {
  openModule("\r\nSub A()\r\n\r\nEnd Sub\r\n");
  put(1, 1);
  type(editor(), "option explicit");
  EXPECT_EQ(editor().text(0).trimmed().toStdString(), "option explicit");
  put(3, 1);
  type(editor(), "on error resume next");
  press(editor(), Qt::Key_Up);
  EXPECT_EQ(editor().text(0).trimmed().toStdString(), "Option Explicit");
  EXPECT_EQ(editor().text(2).trimmed().toStdString(), "On Error Resume Next");
  EXPECT_EQ(colours(3), "«On» «Error» «Resume» «Next»");
}

// ---- Replace All

class ReplaceAllTest : public EditingTest {
 protected:
  // Every module names the "Count" of modMain once more; modB and modC are not open.
  void open() {
    write("/p/Demo.vbp",
          "Type=Exe\r\nModule=modMain; modMain.bas\r\nModule=modB; modB.bas\r\nModule=modC; modC.bas\r\n"
          "Form=frmMain.frm\r\nName=\"Demo\"\r\n");
    for (const char* name : {"modB", "modC"})
      write(std::string("/p/") + name + ".bas",
            std::string("Attribute VB_Name = \"") + name + "\"\r\nsub B()\r\n  x = Count\r\nend sub\r\n");
    start();
    openCode();
  }
  int replaceAll(const char* what, const char* with) {
    FindDialog& find = window_->findDialog();
    find.present(true);
    find.target().setText(what);
    find.scope().setCurrentIndex(static_cast<int>(FindDialog::Scope::kProject));
    find.replacement().setText(with);
    const int count = find.replaceAll();
    find.hide();
    activate();
    return count;
  }
  std::string dirty() {
    std::string names;
    for (const auto& each : session_->host().projects().front()->components())
      if (each->isDirty()) names += (names.empty() ? "" : " ") + each->name();
    return names;
  }
};

TEST_F(ReplaceAllTest, IsOneUndoForAllModules) {
  open();
  const std::string before = codeOf("modB");
  EXPECT_EQ(replaceAll("Count", "Number"), 4);
  EXPECT_EQ(dirty(), "modMain modB modC");
  undo();
  QTest::qWait(20);
  EXPECT_EQ(codeOf() + "\r\n", code_);
  EXPECT_EQ(codeOf("modB"), before);
  EXPECT_EQ(dirty(), "");
  redo();
  EXPECT_THAT(codeOf("modC"), HasSubstr("x = Number"));
  EXPECT_THAT(codeOf(), HasSubstr("Total = Number * 2"));
  undo();
  QTest::qWait(20);
  EXPECT_EQ(dirty(), "");
}

TEST_F(ReplaceAllTest, IsUndoneFromAModuleThatWasOpenedAfterwards) {
  open();
  replaceAll("Count", "Number");
  replaceAll("Number", "Total");
  openCode("modB");
  EXPECT_EQ(codeOf("modB"), "sub B()\r\n  x = Total\r\nend sub");
  undo();
  undo();
  QTest::qWait(20);
  EXPECT_EQ(codeOf("modB"), "sub B()\r\n  x = Count\r\nend sub");
  EXPECT_EQ(codeOf() + "\r\n", code_);
  EXPECT_EQ(dirty(), "");
  EXPECT_EQ(textOf(editor()), codeOf("modB"));
}

TEST_F(ReplaceAllTest, IsUndoneInModulesThatWereClosedSince) {
  open();
  openCode("modB");
  replaceAll("Count", "Number");
  shortcut(editor(), Qt::Key_F4, Qt::ControlModifier);
  EXPECT_EQ(window_->documents().codeOf(*component("modB")), nullptr);
  undo();
  EXPECT_THAT(codeOf("modB"), HasSubstr("x = Count"));
  EXPECT_EQ(codeOf() + "\r\n", code_);
}

// What was written since is not taken back with it: there the replacement stays until that is undone.
TEST_F(ReplaceAllTest, LeavesAloneWhatWasChangedSince) {
  open();
  QString said;
  window_->documents().onRefused = [&](const QString& reason) { said = reason; };
  replaceAll("Count", "Number");
  component("modC")->CodeModule()->InsertLines(1, "' mine");
  openCode("modB");
  put(1, 8);
  type(editor(), " 'mine");
  openCode("modMain");
  undo();
  EXPECT_EQ(codeOf() + "\r\n", code_);
  EXPECT_EQ(codeOf("modB"), "Sub B() 'mine\r\n  x = Number\r\nend sub");
  EXPECT_THAT(codeOf("modC"), AllOf(StartsWith("' mine"), HasSubstr("x = Number")));
  EXPECT_THAT(said.toStdString(), AllOf(HasSubstr("modB"), HasSubstr("modC")));
  openCode("modB");
  undoAll();
  EXPECT_THAT(codeOf("modB"), HasSubstr("x = Count"));
}

TEST_F(ReplaceAllTest, NamesTheModulesThatCannotBeWritten) {
  open();
  files_->setAttributes("/p/modB.bas", platform::kAttributeReadOnly);
  EXPECT_EQ(replaceAll("Count", "Number"), 3);
  EXPECT_THAT(codeOf("modB"), HasSubstr("x = Count"));
  EXPECT_THAT(codeOf("modC"), HasSubstr("x = Number"));
  EXPECT_THAT(told(), IsEmpty());
}

// ---- files that other programs change

class DiskBarTest : public EditingTest {
 protected:
  const std::string theirs_ = "Attribute VB_Name = \"modMain\"\r\n' theirs\r\n";
  void writeTheirs() {
    write("/p/modMain.bas", theirs_);
    look();
  }
  void look() {
    window_->files().checkOutside();
    window_->sync();
    QApplication::processEvents();
  }
  std::vector<std::string> buttons() {
    window_->sync();
    QApplication::processEvents();
    std::vector<std::string> captions;
    for (const QPushButton* button : window_->diskBar().findChildren<QPushButton*>())
      if (button->isVisible()) captions.push_back(button->text().toStdString());
    return captions;
  }
  void click(const QString& caption) {
    for (QPushButton* button : window_->diskBar().findChildren<QPushButton*>())
      if (button->isVisible() && button->text() == caption) {
        QTest::mouseClick(button, Qt::LeftButton);
        QApplication::processEvents();
        return;
      }
    ADD_FAILURE() << "no button " << caption.toStdString();
  }
  void save() { shortcut(editor(), Qt::Key_S, Qt::ControlModifier); }
};

TEST_F(DiskBarTest, KeysGoOnIntoTheCodeAndNothingIsLost) {
  start();
  openCode();
  put(2, 1);
  type(editor(), "' mi");
  writeTheirs();
  EXPECT_THAT(buttons(), ElementsAre("Drop My Changes and Read It Again", "Keep My Changes"));
  for (const char* keys : {"ne", " y", "n "}) type(*QApplication::focusWidget(), keys);
  press(editor(), Qt::Key_Return);
  EXPECT_THAT(codeOf(), StartsWith("Option Explicit\r\n' mine yn \r\n"));
  save();
  EXPECT_EQ(read("/p/modMain.bas"), theirs_);
  EXPECT_THAT(buttons(),
              ElementsAre("Save Mine Over It", "Drop My Changes and Read It Again", "Keep My Changes"));
  click("Keep My Changes");
  EXPECT_THAT(buttons(), IsEmpty());
  EXPECT_EQ(read("/p/modMain.bas"), theirs_);
  save();
  click("Save Mine Over It");
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("Option Explicit\r\n' mine yn \r\n"));
  EXPECT_THAT(buttons(), IsEmpty());
  EXPECT_FALSE(component("modMain")->isDirty());
  EXPECT_THAT(told(), IsEmpty());
}

TEST_F(DiskBarTest, WhatIsReadAgainCanBeUndone) {
  start();
  openCode();
  put(2, 1);
  type(editor(), "' mine");
  writeTheirs();
  click("Drop My Changes and Read It Again");
  EXPECT_EQ(codeOf(), "' theirs");
  EXPECT_EQ(textOf(editor()), "' theirs");
  EXPECT_FALSE(component("modMain")->isDirty());
  EXPECT_TRUE(codeHasFocus("modMain"));
  undo();
  EXPECT_THAT(codeOf(), HasSubstr("' mine"));
  EXPECT_TRUE(component("modMain")->isDirty());
}

TEST_F(DiskBarTest, OneRowIsForAllFilesWithoutChanges) {
  start();
  openCode();
  std::string form = read("/p/frmMain.frm");
  write("/p/frmMain.frm", form + "' theirs\r\n");
  writeTheirs();
  EXPECT_THAT(buttons(), ElementsAre("Read Them Again", "Leave Them as They Are Here"));
  // What is typed in before the click is not dropped by it.
  put(2, 1);
  type(editor(), "' mine");
  EXPECT_THAT(buttons(), ElementsAre("Read It Again", "Leave It as It Is Here",
                                     "Drop My Changes and Read It Again", "Keep My Changes"));
  click("Read It Again");
  EXPECT_THAT(codeOf("frmMain"), EndsWith("' theirs"));
  EXPECT_THAT(codeOf(), HasSubstr("' mine"));
}

TEST_F(DiskBarTest, AFileThatHoldsWhatItHeldIsNoChange) {
  start();
  openCode();
  write("/p/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n" + code_);
  look();
  EXPECT_THAT(buttons(), IsEmpty());
  put(2, 1);
  type(editor(), "' mine");
  save();
  EXPECT_THAT(read("/p/modMain.bas"), HasSubstr("' mine"));
}

TEST_F(DiskBarTest, SavingAllWritesTheOthersAndExitWaits) {
  start();
  openCode();
  put(2, 1);
  type(editor(), "' mine");
  component("frmMain")->CodeModule()->InsertLines(1, "' also mine");
  write("/p/modMain.bas", theirs_);
  desk_.answer("Yes");
  EXPECT_FALSE(window_->close());
  QApplication::processEvents();
  EXPECT_THAT(told(), ElementsAre(HasSubstr("Save changes")));
  EXPECT_THAT(read("/p/frmMain.frm"), HasSubstr("' also mine"));
  EXPECT_EQ(read("/p/modMain.bas"), theirs_);
  EXPECT_THAT(buttons(), testing::Contains("Save Mine Over It"));
}

}  // namespace
}  // namespace kolvane::workbench
