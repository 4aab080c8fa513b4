// The colours of Visual Basic in an editor. What is a keyword is asked of the workspace, which gives keywords their case
// by the same rule: what is coloured on a line that was left is what was spelled there.
#pragma once

#include <string>

#include "base/code_page.h"
#include "workbench/scintilla.h"

namespace kolvane::workbench {

class BasicLexer final : public QsciLexerCustom {
 public:
  // The editor's text is UTF-8; `codePage` is that of the module.
  BasicLexer(QObject* parent, const base::CodePage& codePage);

  const char* language() const override { return "Visual Basic"; }
  QString description(int style) const override;
  // Whole logical lines, so that the state of the text can be kept at their ends.
  void styleText(int start, int end) override;
  QColor defaultColor(int style) const override;
  QColor defaultPaper(int style) const override;
  QFont defaultFont(int style) const override;

  // The typeface of code windows.
  static QFont codeFont();

 private:
  int logicalStart(int line) const;
  std::string takeBlock(int line, long end) const;
  void styleBlock(int line, std::string_view block, std::string& styles);
  std::string stylesOf(std::string_view logicalLine, bool insideBlock) const;

  const base::CodePage& codePage_;
};

}  // namespace kolvane::workbench
