#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QToolTip>

#include "on_screen.h"

namespace kolvane::test {
namespace {

class TextForm final : public forms::Form {
 public:
  explicit TextForm(forms::Desk& desk) : Form(desk, "frmText", "Text") { txtLines.setMultiLine(true); }

  forms::Label lblName{*this, "lblName", "&Name && title:"};
  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtLines{*this, "txtLines"};
  forms::RichTextBox rtfCode{*this, "rtfCode"};
  forms::KeyBox kbxKey{*this, "kbxKey"};
  forms::Layout layout() const override {
    using namespace forms;
    return column(lblName, txtName, row("&Lines:", txtLines), rtfCode, row("&Key:", kbxKey));
  }
};

class TextViews : public OnScreen {
 protected:
  TextForm form{desk};

  void SetUp() override {
    form.txtName.onChange = log("change");
    form.txtLines.onChange = log("change");
    show(form);
  }
};

TEST_F(TextViews, LabelShowsItsCaptionAndLeadsOn) {
  auto* const label = windowOf(form)->findChild<QLabel*>("lblName");
  ASSERT_TRUE(label);
  EXPECT_EQ(label->text(), "&Name && title:");
  EXPECT_EQ(label->buddy(), shown<QLineEdit>(form.txtName));
  form.lblName.setCaption("Fish && chips");
  settle();
  EXPECT_EQ(label->text(), "Fish & chips");  // nothing to lead to
}

TEST_F(TextViews, TypedTextComesToTheControlAndBack) {
  auto* const edit = shown<QLineEdit>(form.txtName);
  type(edit, "Zoë");
  EXPECT_EQ(form.txtName.text(), "Zo\xEB");
  EXPECT_EQ(form.txtName.selStart(), 3);
  EXPECT_THAT(taken(), ElementsAre("change", "change", "change"));
  press(edit, Qt::Key_Backspace);
  EXPECT_EQ(form.txtName.text(), "Zo");
  form.txtName.setText("caf\xE9");
  settle();
  EXPECT_EQ(edit->text(), QString::fromUtf8("café"));
}

TEST_F(TextViews, KeysAreAskedBeforeTheEditorHasThem) {
  form.onKeyDown = [this](int& key, int) { note("form " + std::to_string(key)); };
  form.txtName.onKeyDown = [this](int& key, int) {
    note("down " + std::to_string(key));
    if (key == 'X') key = 0;
    if (key == forms::keys::kDelete) key = forms::keys::kBack;
  };
  form.txtName.onKeyPress = [this](int& character) {
    note("press " + std::to_string(character));
    if (character == 'b') character = 'B';
    if (character == 'c') character = 0;
  };
  form.txtName.onKeyUp = [this](int& key, int) { note("up " + std::to_string(key)); };
  auto* const edit = shown<QLineEdit>(form.txtName);
  type(edit, "a");
  EXPECT_THAT(taken(), ElementsAre("form 65", "down 65", "press 97", "change", "up 65"));
  type(edit, "bcx");
  EXPECT_EQ(form.txtName.text(), "aB");
  EXPECT_EQ(edit->text(), "aB");
  taken();
  press(edit, Qt::Key_Left);
  EXPECT_THAT(taken(), ElementsAre("form 37", "down 37", "up 37"));
  press(edit, Qt::Key_Delete);  // goes as Backspace
  EXPECT_EQ(form.txtName.text(), "B");
}

TEST_F(TextViews, WhatTheCodePageLacksIsRefusedInSight) {
  auto* const edit = shown<QLineEdit>(form.txtName);
  type(edit, "a");
  type(edit, "Ω");
  EXPECT_EQ(edit->text(), "a");
  EXPECT_THAT(QToolTip::text().toStdString(), testing::HasSubstr("1252"));
  QApplication::clipboard()->setText(QString::fromUtf8("b€Ω"));
  edit->paste();
  settle();
  EXPECT_EQ(edit->text(), "a");
  EXPECT_EQ(form.txtName.text(), "a");
  QApplication::clipboard()->setText(QString::fromUtf8("b€"));
  edit->paste();
  EXPECT_EQ(form.txtName.text(), "ab\x80");
}

TEST_F(TextViews, PastedCharactersGoThroughKeyPress) {
  form.txtName.onKeyPress = [](int& character) {
    if (character < '0' || character > '9') character = 0;
  };
  auto* const edit = shown<QLineEdit>(form.txtName);
  QApplication::clipboard()->setText("1a2b");
  press(edit, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form.txtName.text(), "12");
  EXPECT_EQ(edit->text(), "12");
  EXPECT_EQ(edit->cursorPosition(), 2);
}

TEST_F(TextViews, StateOfATextBox) {
  auto* const edit = shown<QLineEdit>(form.txtName);
  form.txtName.setPassword(true);
  form.txtName.setMaxLength(3);
  form.txtName.setTooltip("Who you are");
  settle();
  EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
  EXPECT_EQ(edit->toolTip(), "Who you are");
  type(edit, "abcdef");
  EXPECT_EQ(form.txtName.text(), "abc");
  form.txtName.setSelection(1, 2);
  settle();
  EXPECT_EQ(edit->selectedText(), "bc");
  edit->setSelection(0, 2);
  EXPECT_EQ(form.txtName.selText(), "ab");
  form.txtName.setLocked(true);
  settle();
  type(edit, "z");
  EXPECT_EQ(form.txtName.text(), "abc");
  form.txtName.setEnabled(false);
  settle();
  EXPECT_FALSE(edit->isEnabled());
  EXPECT_FALSE(edit->hasFocus());
}

TEST_F(TextViews, LinesArePartedByCrLfInTheControl) {
  auto* const edit = shown<QPlainTextEdit>(form.txtLines);
  edit->setFocus();
  type(edit, "one");
  press(edit, Qt::Key_Return);
  type(edit, "two");
  EXPECT_EQ(form.txtLines.text(), "one\r\ntwo");
  EXPECT_EQ(form.txtLines.selStart(), 8);
  form.txtLines.setSelection(5, 3);
  settle();
  EXPECT_EQ(edit->textCursor().selectedText(), "two");
  form.txtLines.setText("a\r\nb\r\n");
  settle();
  EXPECT_EQ(edit->toPlainText(), "a\nb\n");
  form.txtLines.setMaxLength(8);
  settle();
  QApplication::clipboard()->setText("123456");
  edit->moveCursor(QTextCursor::Start);
  edit->paste();
  EXPECT_EQ(form.txtLines.text(), "12a\r\nb\r\n");
}

TEST_F(TextViews, TextBoxBecomesOneOfSeveralLines) {
  shown<QLineEdit>(form.txtName);
  form.txtName.setText("a\r\nb");
  form.txtName.setMultiLine(true);
  EXPECT_EQ(shown<QPlainTextEdit>(form.txtName)->toPlainText(), "a\nb");
}

TEST_F(TextViews, CodeEditorKeepsItsColumns) {
  auto* const edit = shown<QPlainTextEdit>(form.rtfCode);
  EXPECT_EQ(edit->lineWrapMode(), QPlainTextEdit::NoWrap);
  form.rtfCode.setText("Sub Main()\r\nEnd Sub");
  settle();
  EXPECT_EQ(edit->document()->blockCount(), 2);
}

TEST_F(TextViews, KeyBoxCapturesKeys) {
  form.kbxKey.onChange = log("key");
  auto* const box = shown<QLineEdit>(form.kbxKey);
  form.kbxKey.setFocus();
  settle();
  EXPECT_EQ(box->text(), "None");
  press(box, Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(form.kbxKey.key(), 116);
  EXPECT_EQ(form.kbxKey.modifier(), forms::keys::kCtrl + forms::keys::kShift);
  EXPECT_EQ(box->text(), "Shift + Ctrl + F5");
  press(box, Qt::Key_L, Qt::AltModifier);  // although another control has this access key
  EXPECT_EQ(form.kbxKey.key(), 'L');
  press(box, Qt::Key_Delete);
  EXPECT_EQ(box->text(), "None");
  EXPECT_THAT(taken(), ElementsAre("key", "key", "key"));
}

}  // namespace
}  // namespace kolvane::test
