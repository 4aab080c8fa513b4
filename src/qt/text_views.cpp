// Label, TextBox, RichTextBox, KeyBox.
#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>

#include "forms/access_keys.h"
#include "forms/form.h"
#include "forms/text_controls.h"
#include "qt/editor_view.h"
#include "qt/text_convert.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

class LabelView final : public ControlView {
 public:
  LabelView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QLabel), label_(static_cast<QLabel*>(widget())) {
    label_->setTextFormat(Qt::PlainText);
    label_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

 protected:
  void showState() override {
    constexpr std::size_t kWrapFrom = 64;
    const std::string& caption = control().caption();
    const bool lines = caption.find('\n') != std::string::npos;
    label_->setWordWrap(!lines && caption.size() > kWrapFrom);
    QWidget* const next = forms::accessKey(caption) == 0 ? nullptr : behind();
    label_->setBuddy(next);
    label_->setText(window().lines(next ? caption : forms::plainCaption(caption)));
  }

 private:
  QWidget* behind() const {
    const auto& order = control().form().tabOrder();
    for (auto i = static_cast<std::size_t>(control().tabIndex()) + 1; i < order.size(); ++i)
      if (const ControlView* next = window().view(*order[i]);
          next && forms::kindRow(order[i]->kind()).focusable)
        return next->focusWidget();
    return nullptr;
  }

  QLabel* label_;
};

class LineEdit final : public QLineEdit {
 public:
  QSize sizeHint() const override {
    constexpr int kCharacters = 30;
    const int characters = std::min(maxLength(), kCharacters);
    const QSize usual = QLineEdit::sizeHint();
    return {std::max(usual.width(), characters * fontMetrics().averageCharWidth()), usual.height()};
  }
  // However narrow the window, a name can be read.
  QSize minimumSizeHint() const override {
    constexpr int kCharacters = 12;
    const int characters = std::min(maxLength(), kCharacters);
    const QSize usual = QLineEdit::minimumSizeHint();
    return {std::max(usual.width(), characters * fontMetrics().averageCharWidth()), usual.height()};
  }
};

// As high at first as a few lines, or as a small piece of code.
class LinesEdit final : public QPlainTextEdit {
 public:
  explicit LinesEdit(bool code) : lines_(code ? 12 : 5), characters_(code ? 70 : 50) {}
  QSize sizeHint() const override { return sized(lines_); }
  QSize minimumSizeHint() const override {
    constexpr int kLeastLines = 3;
    return {sized(kLeastLines).width() / 3, sized(kLeastLines).height()};
  }

 private:
  QSize sized(int lines) const {
    const int margin = 2 * frameWidth() + 8;
    return {characters_ * fontMetrics().averageCharWidth() + margin,
            lines * fontMetrics().lineSpacing() + margin};
  }

  int lines_;
  int characters_;
};

// TextBox of one line.
class LineView final : public EditorView {
 public:
  LineView(FormWindow& window, forms::Control& control)
      : EditorView(window, control, new LineEdit),
        box_(static_cast<forms::TextBox&>(control)),
        edit_(static_cast<QLineEdit*>(widget())) {
    connect(edit_, &QLineEdit::textEdited, this, [this] { edited(); });
    connect(edit_, &QLineEdit::selectionChanged, this, [this] { tellSelection(); });
    connect(edit_, &QLineEdit::cursorPositionChanged, this, [this] { tellSelection(); });
  }

 protected:
  QString shown() const override { return edit_->text(); }
  int caret() const override { return edit_->cursorPosition(); }
  void replacePart(int at, int removed, const QString& inserted) override {
    edit_->setSelection(at, removed);
    edit_->insert(inserted);
  }
  void insert(const QString& text) override { edit_->insert(text); }
  const std::string& bytes() const override { return box_.text(); }
  bool locked() const override { return box_.locked(); }

  void showState() override {
    if (box_.multiLine()) return window().layoutChanged();
    edit_->setReadOnly(box_.locked());
    edit_->setEchoMode(box_.password() ? QLineEdit::Password : QLineEdit::Normal);
    // A text that is longer already stays.
    const int length = std::max(box_.maxLength(), static_cast<int>(box_.text().size()));
    edit_->setMaxLength(box_.maxLength() == 0 ? std::numeric_limits<int>::max() : length);
  }
  void showContent() override { showText(); }
  void showSelection() override {
    const int start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
    if (start == box_.selStart() && edit_->selectedText().size() == box_.selLength()) return;
    if (box_.selLength() > 0)
      edit_->setSelection(box_.selStart(), box_.selLength());
    else
      edit_->setCursorPosition(box_.selStart());
  }

 private:
  void tellSelection() {
    if (refreshing() || !window().alive() || window().text(box_.text()) != shown()) return;
    const int start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
    const auto length = static_cast<int>(edit_->selectedText().size());
    if (start != box_.selStart() || length != box_.selLength()) box_.setSelection(start, length);
  }

  forms::TextBox& box_;
  QLineEdit* edit_;
};

// TextBox of several lines, RichTextBox.
class LinesView final : public EditorView {
 public:
  LinesView(FormWindow& window, forms::Control& control)
      : EditorView(window, control, new LinesEdit(control.kind() == forms::Kind::kRichTextBox)),
        box_(static_cast<forms::TextBox&>(control)),
        edit_(static_cast<QPlainTextEdit*>(widget())) {
    if (control.kind() == forms::Kind::kRichTextBox) {
      edit_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
      edit_->setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] { edited(); });
    connect(edit_, &QPlainTextEdit::selectionChanged, this, [this] { tellSelection(); });
    connect(edit_, &QPlainTextEdit::cursorPositionChanged, this, [this] { tellSelection(); });
  }

  std::vector<QWidget*> mouseWidgets() const override { return {edit_->viewport()}; }
  bool growsDown() const override { return true; }
  bool takesKey(int key, int shift) const override {
    return EditorView::takesKey(key, shift) || key == forms::keys::kEnter;
  }

 protected:
  QString shown() const override { return edit_->toPlainText(); }
  int caret() const override { return edit_->textCursor().position(); }
  void replacePart(int at, int removed, const QString& inserted) override {
    QTextCursor cursor(edit_->document());
    cursor.setPosition(at);
    cursor.setPosition(at + removed, QTextCursor::KeepAnchor);
    cursor.insertText(inserted);
  }
  void insert(const QString& text) override { edit_->insertPlainText(text); }
  const std::string& bytes() const override { return box_.text(); }
  bool locked() const override { return box_.locked(); }
  int maxLength() const override { return box_.maxLength(); }

  void showState() override {
    if (!box_.multiLine()) return window().layoutChanged();
    edit_->setReadOnly(box_.locked());
  }
  void showContent() override { showText(); }
  void showSelection() override {
    const int start = positionInLines(box_.text(), box_.selStart());
    const int end = positionInLines(box_.text(), box_.selStart() + box_.selLength());
    QTextCursor cursor = edit_->textCursor();
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
  }

 private:
  void tellSelection() {
    if (refreshing() || !window().alive() || window().lines(box_.text()) != shown()) return;
    const QTextCursor cursor = edit_->textCursor();
    const int start = positionInBytes(box_.text(), cursor.selectionStart());
    const int length = positionInBytes(box_.text(), cursor.selectionEnd()) - start;
    if (start != box_.selStart() || length != box_.selLength()) box_.setSelection(start, length);
  }

  forms::TextBox& box_;
  QPlainTextEdit* edit_;
};

// Shows the keys; the control captures them.
class KeyBoxView final : public ControlView {
 public:
  KeyBoxView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QLineEdit), edit_(static_cast<QLineEdit*>(widget())) {
    edit_->setReadOnly(true);
    edit_->setContextMenuPolicy(Qt::NoContextMenu);
  }

 protected:
  void showContent() override {
    edit_->setText(QString::fromStdString(static_cast<forms::KeyBox&>(control()).text()));
  }

 private:
  QLineEdit* edit_;
};

}  // namespace

ControlView* makeLabelView(FormWindow& window, forms::Control& control) {
  return new LabelView(window, control);
}

ControlView* makeTextView(FormWindow& window, forms::Control& control) {
  if (static_cast<forms::TextBox&>(control).multiLine()) return new LinesView(window, control);
  return new LineView(window, control);
}

ControlView* makeKeyBoxView(FormWindow& window, forms::Control& control) {
  return new KeyBoxView(window, control);
}

}  // namespace kolvane::qt
