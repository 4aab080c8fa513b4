#include "workbench/basic_lexer.h"

#include <QFontDatabase>
#include <algorithm>
#include <array>

#include "base/error.h"
#include "workbench/code_colours.h"
#include "workspace/keyword_case.h"
#include "workspace/line_scanner.h"
#include "workspace/line_store.h"

namespace kolvane::workbench {
namespace {

using workspace::CodePart;
using workspace::ScanState;

struct Style {
  const char* name;
  QRgb CodeColours::*colour;
};

enum StyleNumber : char { kDefaultStyle, kKeywordStyle, kStringStyle, kCommentStyle };
constexpr std::array kStyles = {
    Style{"Default", &CodeColours::plain},
    Style{"Keyword", &CodeColours::keyword},
    Style{"String", &CodeColours::plain},
    Style{"Comment", &CodeColours::comment},
};

const Style* findStyle(int number) {
  return number >= 0 && number < static_cast<int>(kStyles.size()) ? &kStyles[static_cast<std::size_t>(number)]
                                                                  : nullptr;
}

StyleNumber styleOf(CodePart part) {
  switch (part) {
    case CodePart::kKeyword:
      return kKeywordStyle;
    case CodePart::kString:
      return kStringStyle;
    case CodePart::kComment:
      return kCommentStyle;
  }
  return kDefaultStyle;
}

// What the editor keeps for each line: whether the next one goes on with it, and the state of the scan behind its
// logical line or, where that goes on, in front of it.
constexpr long kContinues = 0x10;
constexpr ScanState stateOf(long lineState) { return static_cast<ScanState>(lineState & (kContinues - 1)); }

constexpr long kBlockBytes = 1L << 16;

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}
bool isInsideCharacter(char c) { return (c & 0xC0) == 0x80; }

}  // namespace

BasicLexer::BasicLexer(QObject* parent, const base::CodePage& codePage)
    : QsciLexerCustom(parent), codePage_(codePage) {
  setDefaultFont(codeFont());
  QsciLexer::setDefaultColor(QColor::fromRgb(codeColours().plain));
  QsciLexer::setDefaultPaper(QColor::fromRgb(codeColours().paper));
}

QString BasicLexer::description(int style) const {
  const Style* found = findStyle(style);
  return found ? QString::fromLatin1(found->name) : QString();
}

QColor BasicLexer::defaultColor(int style) const {
  const Style* found = findStyle(style);
  return QColor::fromRgb(codeColours().*(found ? found->colour : &CodeColours::plain));
}

QColor BasicLexer::defaultPaper(int /*style*/) const { return QColor::fromRgb(codeColours().paper); }

QFont BasicLexer::defaultFont(int /*style*/) const { return codeFont(); }

QFont BasicLexer::codeFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setStyleHint(QFont::Monospace);
  font.setPointSize(10);
  return font;
}

// ---- styling

void BasicLexer::styleText(int start, int end) {
  QsciScintilla& text = *editor();
  int line = logicalStart(static_cast<int>(text.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, start)));
  startStyling(static_cast<int>(text.SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, line)));
  std::string styles;
  for (long at = 0; at < end;) {
    const std::string block = takeBlock(line, end);
    if (block.empty()) return;
    styles.clear();
    styleBlock(line, block, styles);
    text.SendScintilla(QsciScintilla::SCI_SETSTYLINGEX, static_cast<unsigned long>(styles.size()),
                       styles.c_str());
    at = text.SendScintilla(QsciScintilla::SCI_GETENDSTYLED);
    line = static_cast<int>(text.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, at));
  }
}

int BasicLexer::logicalStart(int line) const {
  while (line > 0 && (editor()->SendScintilla(QsciScintilla::SCI_GETLINESTATE, line - 1) & kContinues) != 0)
    --line;
  return line;
}

// Whole logical lines, with their ends: those up to `end`, or as many as are styled at a time.
std::string BasicLexer::takeBlock(int line, long end) const {
  QsciScintilla& text = *editor();
  const auto lineStart = [&](long number) {
    return text.SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, static_cast<unsigned long>(number));
  };
  const long lines = text.SendScintilla(QsciScintilla::SCI_GETLINECOUNT);
  const long begin = lineStart(line);
  long behind =
      text.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, std::min(end, begin + kBlockBytes)) + 1;
  std::string block;
  const auto append = [&](long from, long to) {
    std::string bytes(static_cast<std::size_t>(to - from) + 1, '\0');  // a NUL is written behind the text
    text.SendScintilla(QsciScintilla::SCI_GETTEXTRANGE, from, to, bytes.data());
    block.append(bytes, 0, bytes.size() - 1);
  };
  const auto endOf = [&](long number) {
    return number < lines ? lineStart(number) : text.SendScintilla(QsciScintilla::SCI_GETLENGTH);
  };
  append(begin, endOf(behind));
  const auto lastLine = [&] {
    const std::string_view all = std::string_view(block).substr(0, block.empty() ? 0 : block.size() - 1);
    const std::size_t last = all.rfind('\n');
    return last == std::string_view::npos ? all : all.substr(last + 1);
  };
  for (; behind < lines && workspace::continuesOnNextLine(lastLine()); ++behind)
    append(endOf(behind), endOf(behind + 1));
  return block;
}

void BasicLexer::styleBlock(int line, std::string_view block, std::string& styles) {
  QsciScintilla& text = *editor();
  ScanState state =
      line > 0 ? stateOf(text.SendScintilla(QsciScintilla::SCI_GETLINESTATE, line - 1)) : ScanState::kModule;
  const auto keep = [&](long lineState) {
    text.SendScintilla(QsciScintilla::SCI_SETLINESTATE, static_cast<unsigned long>(line++), lineState);
  };
  for (std::size_t begin = 0, at = 0; at < block.size();) {
    const std::size_t end = std::min(block.find('\n', at), block.size());
    const std::string_view physical = block.substr(at, end - at);
    at = std::min(end + 1, block.size());
    const bool goesOn = end < block.size() && workspace::continuesOnNextLine(physical);
    if (goesOn && at < block.size()) {
      keep(static_cast<long>(state) | kContinues);
      continue;
    }
    const std::string_view logical = block.substr(begin, end - begin);
    const workspace::ScanStep step = workspace::scanLine(state, logical);
    styles += stylesOf(logical, state == ScanState::kBlock && !step.opened);
    styles.append(at - end, kDefaultStyle);
    keep(goesOn ? static_cast<long>(state) | kContinues : static_cast<long>(step.after));
    state = step.after;
    begin = at;
  }
}

// One style a byte. Which of them are letters only the code page knows.
std::string BasicLexer::stylesOf(std::string_view logicalLine, bool insideBlock) const {
  std::string inPage;
  std::string_view line = logicalLine;
  if (!isAscii(line)) try {
      line = inPage = codePage_.fromUtf8(logicalLine);
    } catch (const base::Error&) {
      // A character that the module is about to refuse.
    }
  std::string styles(line.size(), kDefaultStyle);
  workspace::visitCodeParts(line, insideBlock, [&](CodePart part, std::string_view each) {
    styles.replace(static_cast<std::size_t>(each.data() - line.data()), each.size(), each.size(),
                   styleOf(part));
  });
  if (styles.size() == logicalLine.size()) return styles;
  std::string wide;
  wide.reserve(logicalLine.size());
  std::size_t character = 0;
  for (const char c : logicalLine) wide += isInsideCharacter(c) ? wide.back() : styles[character++];
  return wide;
}

}  // namespace kolvane::workbench
