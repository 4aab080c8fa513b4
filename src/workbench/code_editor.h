// The text of one code window, kept in step with the module that the host holds.
//
// What a user types goes to the module as edits of the lines that it touches, at once. What anybody else does
// to the module comes back with pull(), as one step of undo: the lines between the first and the last that
// differ. The module gives keywords their case at every edit; the editor takes it over when the cursor leaves
// the line, beside the undo history, so that undo never meets it.
//
// Where the user has selected whole lines, the selection ends in column 1 of the next one, which then is none of them:
// the pane is told the end of the last line instead.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "workbench/scintilla.h"
#include "workspace/component.h"

namespace kolvane::workbench {

class CodeEditor final : public QsciScintilla {
 public:
  // The component must have code.
  CodeEditor(std::shared_ptr<workspace::Component> component, const base::CodePage& codePage,
             QWidget* parent = nullptr);

  const std::shared_ptr<workspace::Component>& component() const { return component_; }

  // Brings text, selection and first line of the module's pane in. Costs next to nothing when nothing has
  // changed; otherwise linear in the module.
  void pull();
  // Takes over the keyword case of the lines that were typed in, and tells the pane the selection. To be
  // called before anybody else looks at the module.
  void settle();
  // Everything that is pulled between these two is one step of undo. They nest.
  void beginCommand();
  void endCommand();
  // Puts the cursor there and shows it; lines and columns as the host counts them.
  void select(const frame::TextRange& range);
  frame::TextRange selection() const;
  // The cursor's line, from 1.
  int cursorLine() const;
  // Asks the component whether it may be edited.
  void refreshReadOnly();

  // ---- the history: a word or a line that was typed is a step, and so is a command
  enum class Step { kNew, kUndone, kRedone };
  // The steps that can be undone.
  int undoDepth() const { return undoDepth_; }
  // For an editor that nobody has worked with: its text becomes one that came about in steps, `texts` from the oldest
  // on, of which `current` (counted from 0) is the module's.
  void rebuildHistory(const std::vector<std::string>& texts, std::size_t current);

  // Each may be empty.
  std::function<void(const QString& reason)> onRefused;
  std::function<void()> onCursorMoved;
  std::function<void(const QPoint& globalPosition)> onContextMenu;
  // The user's work has added a step to the history, or gone back or forward by one; module and editor are in step.
  std::function<void(Step)> onStep;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void modified(int position, int type, const char* text, int length, int added);
  std::optional<Step> countStep(int type);
  void apply(int position, int type, std::string_view text, int added);
  void takeBack();
  void inserted(int position, std::string_view text, int added);
  void deleted(int position, std::string_view text, int added);
  void updated(int what);
  void touch(int firstLine, int lastLine);
  void recase(int butLine = -1);
  bool recaseLine(int line);
  void respell(long start, long end, std::string_view text);
  void pullText();
  void show(std::string_view text);
  std::string moduleText() const;
  std::string_view shownText() const;
  void settleUndone();
  void takeSpelling();
  void pullSelection(bool textChanged);
  frame::TextRange told(const frame::TextRange& shown) const;
  frame::TextRange shownFor(const frame::TextRange& told) const;
  void replaceBytes(long start, long end, std::string_view text);
  void pushSelection();
  QPoint placeBelowCaret() const;  // on the screen
  bool beginsWord(const QKeyEvent& event) const;
  void breakStep();

  std::string lineText(int line) const;  // in the code page; from 0
  std::string linesText(int line, int count) const;
  long lineStart(int line) const;
  long positionOf(int line, int column) const;
  std::pair<int, int> placeOf(long position) const;

  std::shared_ptr<workspace::Component> component_;
  const base::CodePage& codePage_;
  unsigned version_ = 0;  // of the code that the editor shows
  bool pulling_ = false;
  bool outOfStep_ = true;
  bool refused_ = false;
  int commandDepth_ = 0;
  int touchedFirst_ = -1;  // lines typed in since the last settling, from 0
  int touchedLast_ = -1;
  int undoDepth_ = 0;
  frame::TextRange knownSelection_;  // as the pane has it
  bool wholeLines_ = false;          // the pane was told less than is selected
  int knownTop_ = 1;
};

}  // namespace kolvane::workbench
