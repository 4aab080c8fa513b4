#include "workbench/basic_lexer.h"

#include <QFontDatabase>
#include <array>

#include "workbench/code_colours.h"
#include "workspace/keyword_case.h"

namespace kolvane::workbench {
namespace {

struct Style {
  int number;  // as the lexer gives it out
  const char* name;
  QRgb CodeColours::*colour;
};

constexpr QRgb CodeColours::*kKeyword = &CodeColours::keyword;
constexpr QRgb CodeColours::*kComment = &CodeColours::comment;
constexpr QRgb CodeColours::*kPlain = &CodeColours::plain;

constexpr std::array kStyles = {
    Style{0, "Default", kPlain},     Style{1, "Comment", kComment},  Style{2, "Number", kPlain},
    Style{3, "Keyword", kKeyword},   Style{4, "String", kPlain},     Style{5, "Directive", kKeyword},
    Style{6, "Operator", kPlain},    Style{7, "Identifier", kPlain}, Style{8, "Date", kPlain},
    Style{9, "Open string", kPlain},
};

const Style* findStyle(int number) {
  for (const Style& style : kStyles)
    if (style.number == number) return &style;
  return nullptr;
}

}  // namespace

BasicLexer::BasicLexer(QObject* parent) : QsciLexer(parent) {
  for (const std::string_view word : workspace::reservedWords())
    keywords_.append(word.data(), static_cast<qsizetype>(word.size())).append(' ');
  keywords_ = keywords_.toLower();
  setDefaultFont(codeFont());
  QsciLexer::setDefaultColor(QColor::fromRgb(codeColours().plain));
  QsciLexer::setDefaultPaper(QColor::fromRgb(codeColours().paper));
}

QString BasicLexer::description(int style) const {
  const Style* found = findStyle(style);
  return found ? QString::fromLatin1(found->name) : QString();
}

const char* BasicLexer::keywords(int set) const { return set == 1 ? keywords_.constData() : nullptr; }

QColor BasicLexer::defaultColor(int style) const {
  const Style* found = findStyle(style);
  return QColor::fromRgb(codeColours().*(found ? found->colour : kPlain));
}

QColor BasicLexer::defaultPaper(int /*style*/) const { return QColor::fromRgb(codeColours().paper); }

QFont BasicLexer::defaultFont(int /*style*/) const { return codeFont(); }

QFont BasicLexer::codeFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setStyleHint(QFont::Monospace);
  font.setPointSize(10);
  return font;
}

}  // namespace kolvane::workbench
