// What editors of text have in common: what the user typed, pasted, dropped or took back goes to the control, what
// the control says comes back, with no more of the widget's text replaced than differs.
#pragma once

#include <string>

#include "qt/control_view.h"

namespace kolvane::qt {

class EditorView : public ControlView {
 public:
  bool takesKey(int key, int shift) const override;
  bool takeCharacter(QChar character, bool changed) override;

 protected:
  using ControlView::ControlView;

  // The widget's text, its lines parted by "\n", and where its caret stands.
  virtual QString shown() const = 0;
  virtual int caret() const = 0;
  // Replaces a part of it.
  virtual void replacePart(int at, int removed, const QString& inserted) = 0;
  // At the caret, in place of what is selected.
  virtual void insert(const QString& text) = 0;
  // The control's.
  virtual const std::string& bytes() const = 0;
  virtual bool locked() const = 0;
  virtual int maxLength() const { return 0; }

  // The widget's text has changed by hand. Characters that came in otherwise than by the keyboard go through
  // KeyPress here; a text that the code page does not hold is taken back, and the user told.
  void edited();
  void showText();

 private:
  bool passKeyPress(QString& inserted);
  QString model() const;

  bool typing_ = false;
};

}  // namespace kolvane::qt
