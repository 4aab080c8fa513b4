// The colours of Visual Basic in an editor.
#pragma once

#include <QByteArray>

#include "workbench/scintilla.h"

namespace kolvane::workbench {

class BasicLexer final : public QsciLexer {
 public:
  explicit BasicLexer(QObject* parent);

  const char* language() const override { return "Visual Basic"; }
  const char* lexer() const override { return "vb"; }
  QString description(int style) const override;
  const char* keywords(int set) const override;
  QColor defaultColor(int style) const override;
  QColor defaultPaper(int style) const override;
  QFont defaultFont(int style) const override;

  // The typeface of code windows.
  static QFont codeFont();

 private:
  QByteArray keywords_;
};

}  // namespace kolvane::workbench
