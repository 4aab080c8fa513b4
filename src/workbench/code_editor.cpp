#include "workbench/code_editor.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "qt/text_convert.h"
#include "workbench/basic_lexer.h"
#include "workbench/code_colours.h"
#include "workspace/module.h"

namespace kolvane::workbench {
namespace {

constexpr int kNumberMargin = 0;
constexpr int kTabWidth = 4;
constexpr int kSelectionChanged = 2;  // of SCN_UPDATEUI
constexpr int kScrolled = 4;
constexpr unsigned long kTextEvents =
    QsciScintillaBase::SC_MOD_INSERTTEXT | QsciScintillaBase::SC_MOD_DELETETEXT;

const char* bytesOf(const std::string& text) { return text.c_str(); }

std::size_t toSize(long value) { return static_cast<std::size_t>(value); }

bool isLetterWithControl(int key) {
  const int letter = key & ~static_cast<int>(Qt::KeyboardModifierMask);
  return (key & static_cast<int>(Qt::ControlModifier)) != 0 && letter >= Qt::Key_A && letter <= Qt::Key_Z;
}

}  // namespace

CodeEditor::CodeEditor(std::shared_ptr<workspace::Component> component, const base::CodePage& codePage,
                       QWidget* parent)
    : QsciScintilla(parent), component_(std::move(component)), codePage_(codePage) {
  setUtf8(true);
  setEolMode(EolUnix);
  setLexer(new BasicLexer(this, codePage_));
  setMarginType(kNumberMargin, NumberMargin);
  setMarginsFont(BasicLexer::codeFont());
  const CodeColours& colours = codeColours();
  setMarginsForegroundColor(QColor::fromRgb(colours.lineNumber));
  setMarginsBackgroundColor(QColor::fromRgb(colours.margin));
  setMarginWidth(1, 0);
  SendScintilla(SCI_SETMARGINLEFT, 0UL, 6L);
  setCaretLineVisible(true);
  setCaretLineBackgroundColor(QColor::fromRgb(colours.caretLine));
  setCaretForegroundColor(QColor::fromRgb(colours.plain));
  setMatchedBraceBackgroundColor(QColor::fromRgb(colours.brace));
  setMatchedBraceForegroundColor(QColor::fromRgb(colours.braceText));
  setUnmatchedBraceForegroundColor(QColor::fromRgb(colours.loneBrace));
  setBraceMatching(SloppyBraceMatch);
  setAutoIndent(true);
  setIndentationsUseTabs(false);
  setTabWidth(kTabWidth);
  setBackspaceUnindents(true);
  setFrameShape(QFrame::NoFrame);
  SendScintilla(SCI_SETMULTIPLESELECTION, 0UL);
  SendScintilla(SCI_SETVIRTUALSPACEOPTIONS, 0UL);
  SendScintilla(SCI_SETSCROLLWIDTH, 1UL);
  SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1UL);
  SendScintilla(SCI_SETENDATLASTLINE, 1UL);
  SendScintilla(SCI_SETMODEVENTMASK, kTextEvents);
  connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
          [this](int position, int type, const char* text, int length, int added, int, int, int, int, int) {
            modified(position, type, text, length, added);
          });
  // The text must not be changed while it tells of a change.
  connect(this, &QsciScintillaBase::SCN_SAVEPOINTREACHED, this,
          [this] { QTimer::singleShot(0, this, [this] { settleUndone(); }); });
  connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int what) { updated(what); });
  // Such keys are those of the window's menus.
  for (QsciCommand* command : standardCommands()->commands()) {
    if (isLetterWithControl(command->key())) command->setKey(0);
    if (isLetterWithControl(command->alternateKey())) command->setAlternateKey(0);
  }
  pull();
  SendScintilla(SCI_EMPTYUNDOBUFFER);
  undoDepth_ = 0;
  refreshReadOnly();
}

void CodeEditor::refreshReadOnly() { setReadOnly(component_->isReadOnly()); }

// ---- from the user to the module

void CodeEditor::modified(int position, int type, const char* text, int length, int added) {
  if ((type & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) == 0) return;
  const std::optional<Step> step = countStep(type);
  if (pulling_) return;
  if (length != 0 || added != 0)
    apply(position, type, {text != nullptr ? text : "", text != nullptr ? toSize(length) : 0}, added);
  if (step && onStep && !outOfStep_) onStep(*step);
  // The text must not be changed while it tells of a change.
  if (outOfStep_)
    QTimer::singleShot(0, this, [this] {
      if (!outOfStep_ || component_->isRemoved()) return;
      takeBack();
      pull();
    });
}

std::optional<CodeEditor::Step> CodeEditor::countStep(int type) {
  if ((type & SC_PERFORMED_USER) != 0 && (type & SC_STARTACTION) != 0) {
    ++undoDepth_;
    return Step::kNew;
  }
  if ((type & SC_LASTSTEPINUNDOREDO) == 0) return std::nullopt;
  const bool undone = (type & SC_PERFORMED_UNDO) != 0;
  undoDepth_ += undone ? -1 : 1;
  return undone ? Step::kUndone : Step::kRedone;
}

void CodeEditor::apply(int position, int type, std::string_view text, int added) {
  try {
    if ((type & SC_MOD_INSERTTEXT) != 0) inserted(position, text, added);
    if ((type & SC_MOD_DELETETEXT) != 0) deleted(position, text, added);
    const int count = component_->code().countOfLines();
    outOfStep_ = outOfStep_ || (count != lines() && !(count == 0 && lines() == 1));
    version_ = component_->codeVersion();
    // Undo brings a line back as it was typed.
    touch(static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position)),
          static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position)) + std::max(added, 0));
  } catch (const base::Error& error) {
    outOfStep_ = refused_ = true;
    if (onRefused) onRefused(qt::toQt(codePage_, error.description()));
  }
}

// What the module has not taken goes again, out of the undo history too: undo would only bring it back.
void CodeEditor::takeBack() {
  if (!std::exchange(refused_, false) || commandDepth_ > 0) return;
  const QScopedValueRollback quiet(pulling_, true);
  SendScintilla(SCI_UNDO);
}

void CodeEditor::inserted(int position, std::string_view text, int added) {
  const auto module = component_->CodeModule();
  const int line = static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position));
  if (component_->code().countOfLines() == 0) return module->InsertLines(1, linesText(0, lines()));
  const bool atLineStart = position == lineStart(line);
  const bool atLineEnd =
      position + static_cast<int>(text.size()) == SendScintilla(SCI_GETLINEENDPOSITION, line + added);
  // Whole lines leave those around them alone.
  if (added > 0 && atLineStart && text.back() == '\n')
    return module->InsertLines(line + 1, linesText(line, added));
  if (added > 0 && atLineEnd && text.front() == '\n')
    return module->InsertLines(line + 2, linesText(line + 1, added));
  module->ReplaceLine(line + 1, linesText(line, added + 1));
}

void CodeEditor::deleted(int position, std::string_view text, int added) {
  const auto module = component_->CodeModule();
  const int line = static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position));
  const int gone = -added;
  const bool atLineStart = position == lineStart(line);
  const bool atLineEnd = position == SendScintilla(SCI_GETLINEENDPOSITION, line);
  if (gone > 0 && atLineStart && text.back() == '\n') return module->DeleteLines(line + 1, gone);
  if (gone > 0) module->DeleteLines(line + 2, gone);
  if (gone == 0 || !atLineEnd || text.front() != '\n') module->ReplaceLine(line + 1, lineText(line));
}

void CodeEditor::updated(int what) {
  if (pulling_ || component_->isRemoved()) return;
  if ((what & kSelectionChanged) != 0) {
    const int line = cursorLine() - 1;
    if (touchedFirst_ >= 0 && (touchedFirst_ != line || touchedLast_ != line)) recase(line);
    pushSelection();
    if (onCursorMoved) onCursorMoved();
  }
  if ((what & kScrolled) != 0 && component_->pane()->TopLine() == knownTop_) {
    component_->pane()->setTopLine(static_cast<int>(SendScintilla(SCI_GETFIRSTVISIBLELINE)) + 1);
    knownTop_ = component_->pane()->TopLine();
  }
}

// A selection that somebody else has just made is not undone: pull() brings it here.
void CodeEditor::pushSelection() {
  const auto& pane = component_->pane();
  if (pane->GetSelection() != knownSelection_ && !outOfStep_ && version_ != component_->codeVersion()) return;
  const frame::TextRange shown = selection();
  pane->SetSelection(told(shown));
  knownSelection_ = pane->GetSelection();
  wholeLines_ = knownSelection_ != shown;
}

frame::TextRange CodeEditor::told(const frame::TextRange& shown) const {
  if (shown.startLine == shown.endLine || shown.endColumn > 1) return shown;
  const int last = shown.endLine - 1;
  return {shown.startLine, shown.startColumn, last,
          static_cast<int>(component_->code().line(last).size()) + 1};
}

// A command that leaves the pane's selection to follow the text leaves its last column as it was.
frame::TextRange CodeEditor::shownFor(const frame::TextRange& told) const {
  const bool isEmpty = told.startLine == told.endLine && told.startColumn == told.endColumn;
  if (!wholeLines_ || isEmpty || told.endLine >= lines()) return told;
  const int behind = static_cast<int>(component_->code().line(told.endLine).size()) + 1;
  if (told.endColumn != behind && told.endColumn != knownSelection_.endColumn) return told;
  return {told.startLine, told.startColumn, told.endLine + 1, 1};
}

void CodeEditor::touch(int firstLine, int lastLine) {
  const int first = touchedFirst_;
  touchedFirst_ = first < 0 ? firstLine : std::min(first, firstLine);
  touchedLast_ = first < 0 ? lastLine : std::max(touchedLast_, lastLine);
}

void CodeEditor::settle() {
  if (component_->isRemoved()) return;
  recase();
  pushSelection();
}

// Of the lines that were typed in, but for the one that is still being written. Has no place in the undo history: the
// length stays, so that its positions hold.
void CodeEditor::recase(int butLine) {
  if (touchedFirst_ < 0 || outOfStep_ || commandDepth_ > 0 || version_ != component_->codeVersion()) return;
  const int first = std::exchange(touchedFirst_, -1);
  const int last = std::min(touchedLast_, component_->code().countOfLines() - 1);
  const long anchor = SendScintilla(SCI_GETANCHOR);
  const long caret = SendScintilla(SCI_GETCURRENTPOS);
  const QScopedValueRollback quiet(pulling_, true);
  bool changed = false;
  for (int line = first; line <= last; ++line) changed = (line != butLine && recaseLine(line)) || changed;
  if (butLine >= first && butLine <= last) touchedFirst_ = touchedLast_ = butLine;
  if (!changed) return;
  SendScintilla(SCI_SETANCHOR, static_cast<unsigned long>(anchor));
  SendScintilla(SCI_SETCURRENTPOS, static_cast<unsigned long>(caret));
}

bool CodeEditor::recaseLine(int line) {
  const std::string shown = lineText(line);
  const std::string_view held = component_->code().line(line + 1);
  if (held == shown || held.size() != shown.size()) return false;
  const std::string utf8 = codePage_.toUtf8(held);
  const long start = lineStart(line);
  const long end = SendScintilla(SCI_GETLINEENDPOSITION, line);
  if (utf8.size() != toSize(end - start)) return false;
  respell(start, end, utf8);
  return true;
}

// Beside the undo history, and without a word of it: the editor tells screen readers of each change, for which it counts
// all characters in front of it.
void CodeEditor::respell(long start, long end, std::string_view text) {
  SendScintilla(SCI_SETMODEVENTMASK, 0UL);
  SendScintilla(SCI_SETUNDOCOLLECTION, 0UL);
  replaceBytes(start, end, text);
  SendScintilla(SCI_SETUNDOCOLLECTION, 1UL);
  SendScintilla(SCI_SETMODEVENTMASK, kTextEvents);
}

// ---- from the module to the editor

void CodeEditor::pull() {
  const bool textChanged = outOfStep_ || version_ != component_->codeVersion();
  if (textChanged) pullText();
  if (!component_->isDirty() && SendScintilla(SCI_GETMODIFY) != 0) SendScintilla(SCI_SETSAVEPOINT);
  pullSelection(textChanged);
}

std::string CodeEditor::moduleText() const {
  const workspace::CodeText& code = component_->code();
  std::string text = codePage_.toUtf8(code.lines(1, code.countOfLines()));
  std::erase(text, '\r');
  return text;
}

// Valid until the next change.
std::string_view CodeEditor::shownText() const {
  const auto length = toSize(SendScintilla(SCI_GETLENGTH));
  return {reinterpret_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER)), length};
}

void CodeEditor::pullText() {
  const QScopedValueRollback quiet(pulling_, true);
  outOfStep_ = false;
  version_ = component_->codeVersion();
  touchedFirst_ = -1;
  const int depth = undoDepth_;
  show(moduleText());
  if (undoDepth_ > depth && onStep) onStep(Step::kNew);
}

// The difference to what is shown becomes a step of whole lines, so that undoing it reads as one.
void CodeEditor::show(std::string_view text) {
  const std::string_view shown = shownText();
  if (shown == text) return;
  const auto [from, to] = std::mismatch(shown.begin(), shown.end(), text.begin(), text.end());
  std::size_t start = static_cast<std::size_t>(from - shown.begin());
  while (start > 0 && shown[start - 1] != '\n') --start;
  std::size_t common = 0;
  const std::size_t most = std::min(shown.size(), text.size()) - start;
  while (common < most && shown[shown.size() - 1 - common] == text[text.size() - 1 - common]) ++common;
  while (common > 0 && common < shown.size() && shown[shown.size() - common - 1] != '\n') --common;
  const auto end = static_cast<long>(shown.size() - common);
  const bool wasReadOnly = isReadOnly();
  SendScintilla(SCI_SETREADONLY, 0UL);
  SendScintilla(SCI_BEGINUNDOACTION);
  replaceBytes(static_cast<long>(start), end, text.substr(start, text.size() - common - start));
  SendScintilla(SCI_ENDUNDOACTION);
  if (wasReadOnly) SendScintilla(SCI_SETREADONLY, 1UL);
  const QString digits(static_cast<int>(std::to_string(std::max(lines(), 1000)).size()) + 1,
                       QLatin1Char('9'));
  setMarginWidth(kNumberMargin, digits);
}

void CodeEditor::rebuildHistory(const std::vector<std::string>& texts, std::size_t current) {
  const QScopedValueRollback quiet(pulling_, true);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::string text = codePage_.toUtf8(texts[i]);
    std::erase(text, '\r');
    show(text);
    if (i > 0) continue;
    SendScintilla(SCI_EMPTYUNDOBUFFER);
    undoDepth_ = 0;
  }
  const bool wasReadOnly = isReadOnly();
  SendScintilla(SCI_SETREADONLY, 0UL);
  for (std::size_t i = texts.size(); i-- > current + 1;) SendScintilla(SCI_UNDO);
  if (wasReadOnly) SendScintilla(SCI_SETREADONLY, 1UL);
  outOfStep_ = shownText() != moduleText();
  pullSelection(true);
}

// The text is again what was saved: so are the bytes that the module would write.
void CodeEditor::settleUndone() {
  if (component_->isRemoved() || !component_->isDirty() || SendScintilla(SCI_GETMODIFY) != 0) return;
  if (outOfStep_ || commandDepth_ > 0 || version_ != component_->codeVersion()) return;
  component_->settleUndone();
  if (version_ != component_->codeVersion()) takeSpelling();
}

// What differs in case alone is taken over beside the history.
void CodeEditor::takeSpelling() {
  const std::string held = moduleText();
  const std::string_view shown = shownText();
  if (held.size() != shown.size()) return;
  std::vector<std::pair<std::size_t, std::size_t>> differing;
  for (std::size_t at = 0; at < held.size();) {
    at += static_cast<std::size_t>(std::mismatch(held.begin() + static_cast<std::ptrdiff_t>(at), held.end(),
                                                 shown.begin() + static_cast<std::ptrdiff_t>(at))
                                       .first -
                                   (held.begin() + static_cast<std::ptrdiff_t>(at)));
    if (at == held.size()) break;
    const std::size_t start = at == 0 ? 0 : held.rfind('\n', at - 1) + 1;  // npos + 1 is 0
    const std::size_t end = std::min(held.find('\n', at), held.size());
    if (!base::equalNoCase(std::string_view(held).substr(start, end - start),
                           shown.substr(start, end - start)))
      return;
    differing.emplace_back(start, end);
    at = end;
  }
  const QScopedValueRollback quiet(pulling_, true);
  version_ = component_->codeVersion();
  touchedFirst_ = -1;
  const long anchor = SendScintilla(SCI_GETANCHOR);
  const long caret = SendScintilla(SCI_GETCURRENTPOS);
  for (const auto& [start, end] : differing)
    respell(static_cast<long>(start), static_cast<long>(end),
            std::string_view(held).substr(start, end - start));
  SendScintilla(SCI_SETANCHOR, static_cast<unsigned long>(anchor));
  SendScintilla(SCI_SETCURRENTPOS, static_cast<unsigned long>(caret));
}

// The editor tells of its cursor only when it paints. Where the pane's selection is still the one that the editor knows,
// the user has moved, and the pane follows.
void CodeEditor::pullSelection(bool textChanged) {
  const auto& pane = component_->pane();
  if (!textChanged && pane->GetSelection() == knownSelection_ && knownSelection_ != told(selection()))
    updated(kSelectionChanged);
  const frame::TextRange wanted = pane->GetSelection();
  const frame::TextRange range = textChanged ? shownFor(wanted) : wanted;
  const int top = pane->TopLine();
  const bool isShown = selection() == range || (!textChanged && told(selection()) == wanted);
  if (isShown && top == knownTop_) {
    knownSelection_ = wanted;
    return;
  }
  const QScopedValueRollback quiet(pulling_, true);
  if (!isShown) {
    SendScintilla(SCI_SETSEL, static_cast<unsigned long>(positionOf(range.startLine, range.startColumn)),
                  positionOf(range.endLine, range.endColumn));
    wholeLines_ = range != wanted;
  }
  if (top != knownTop_) SendScintilla(SCI_SETFIRSTVISIBLELINE, static_cast<unsigned long>(top - 1));
  knownSelection_ = wanted;
  knownTop_ = top;
  if (onCursorMoved) onCursorMoved();
}

void CodeEditor::replaceBytes(long start, long end, std::string_view text) {
  SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(start), end);
  const std::string copy(text);
  SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(copy.size()), bytesOf(copy));
}

void CodeEditor::beginCommand() {
  if (commandDepth_++ == 0) {
    settle();
    SendScintilla(SCI_BEGINUNDOACTION);
  }
}

void CodeEditor::endCommand() {
  if (--commandDepth_ == 0) {
    if (!component_->isRemoved()) pull();
    SendScintilla(SCI_ENDUNDOACTION);
  }
}

void CodeEditor::select(const frame::TextRange& range) {
  const int shown = static_cast<int>(SendScintilla(SCI_LINESONSCREEN));
  const int top = static_cast<int>(SendScintilla(SCI_GETFIRSTVISIBLELINE));
  component_->pane()->SetSelection(range);
  pullSelection(true);
  const int line = range.startLine - 1;
  if (line < top || line >= top + shown - 1)
    SendScintilla(SCI_SETFIRSTVISIBLELINE, static_cast<unsigned long>(std::max(0, line - shown / 3)));
  SendScintilla(SCI_SCROLLCARET);
}

// ---- places

frame::TextRange CodeEditor::selection() const {
  const auto [startLine, startColumn] = placeOf(SendScintilla(SCI_GETSELECTIONSTART));
  const auto [endLine, endColumn] = placeOf(SendScintilla(SCI_GETSELECTIONEND));
  return {startLine, startColumn, endLine, endColumn};
}

int CodeEditor::cursorLine() const { return placeOf(SendScintilla(SCI_GETCURRENTPOS)).first; }

long CodeEditor::lineStart(int line) const {
  return SendScintilla(SCI_POSITIONFROMLINE, static_cast<unsigned long>(line));
}

long CodeEditor::positionOf(int line, int column) const {
  const long start = lineStart(std::clamp(line, 1, lines()) - 1);
  if (column <= 1) return start;
  const long place = SendScintilla(SCI_POSITIONRELATIVE, static_cast<unsigned long>(start), column - 1L);
  return place > 0 ? place : SendScintilla(SCI_GETLENGTH);
}

std::pair<int, int> CodeEditor::placeOf(long position) const {
  const int line = static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position));
  const long column =
      SendScintilla(SCI_COUNTCHARACTERS, static_cast<unsigned long>(lineStart(line)), position);
  return {line + 1, static_cast<int>(column) + 1};
}

std::string CodeEditor::lineText(int line) const { return linesText(line, 1); }

std::string CodeEditor::linesText(int line, int count) const {
  const long start = lineStart(line);
  const long end = SendScintilla(SCI_GETLINEENDPOSITION, line + count - 1);
  std::string bytes(toSize(end - start) + 1, '\0');
  // Writes a NUL behind the text.
  SendScintilla(SCI_GETTEXTRANGE, start, end, bytes.data());
  bytes.resize(toSize(end - start));
  const std::string text = codePage_.fromUtf8(bytes);
  if (count == 1) return text;
  std::string joined;
  joined.reserve(text.size() + toSize(count));
  for (const char c : text) {
    if (c == '\n') joined += '\r';
    joined += c;
  }
  return joined;
}

// ---- events

QPoint CodeEditor::placeBelowCaret() const {
  const long position = SendScintilla(SCI_GETCURRENTPOS);
  const QPoint caret(static_cast<int>(SendScintilla(SCI_POINTXFROMPOSITION, 0UL, position)),
                     static_cast<int>(SendScintilla(SCI_POINTYFROMPOSITION, 0UL, position)) +
                         static_cast<int>(SendScintilla(SCI_TEXTHEIGHT, 0UL)));
  return viewport()->mapToGlobal(caret);
}

void CodeEditor::contextMenuEvent(QContextMenuEvent* event) {
  if (!onContextMenu) return QsciScintilla::contextMenuEvent(event);
  onContextMenu(event->reason() == QContextMenuEvent::Keyboard ? placeBelowCaret() : event->globalPos());
  event->accept();
}

// What is chosen from the menu is about what was clicked.
void CodeEditor::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) {
    const QPoint place = event->position().toPoint();
    const long position =
        SendScintilla(SCI_POSITIONFROMPOINT, static_cast<unsigned long>(place.x()), long{place.y()});
    const bool isSelected =
        position >= SendScintilla(SCI_GETSELECTIONSTART) && position < SendScintilla(SCI_GETSELECTIONEND);
    if (!isSelected) {
      SendScintilla(SCI_SETSEL, static_cast<unsigned long>(position), position);
      updated(kSelectionChanged);
    }
  }
  QsciScintilla::mousePressEvent(event);
}

// The editor takes every key, so that the window system never makes a request for the menu of these two.
void CodeEditor::keyPressEvent(QKeyEvent* event) {
  const bool asksForMenu = event->key() == Qt::Key_Menu ||
                           (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (asksForMenu && onContextMenu) {
    event->accept();
    return onContextMenu(placeBelowCaret());
  }
  if (beginsWord(*event)) breakStep();
  // A line's end and the indent behind it are one step.
  const bool isLineEnd = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isLineEnd) SendScintilla(SCI_BEGINUNDOACTION);
  QsciScintilla::keyPressEvent(event);
  if (isLineEnd) SendScintilla(SCI_ENDUNDOACTION);
}

bool CodeEditor::beginsWord(const QKeyEvent& event) const {
  const QString& typed = event.text();
  if (typed.isEmpty() || !typed[0].isPrint() || typed[0].isSpace()) return false;
  const long caret = SendScintilla(SCI_GETCURRENTPOS);
  const long before = caret > 0 ? SendScintilla(SCI_GETCHARAT, caret - 1) : ' ';
  return before == ' ' || before == '\t';
}

// What is typed from here on does not join the step in front of it.
void CodeEditor::breakStep() {
  SendScintilla(SCI_BEGINUNDOACTION);
  SendScintilla(SCI_ENDUNDOACTION);
}

void CodeEditor::focusOutEvent(QFocusEvent* event) {
  if (!component_->isRemoved()) settle();
  QsciScintilla::focusOutEvent(event);
}

}  // namespace kolvane::workbench
