#include "writers/auto_coder_text.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/parameter_text.h"
#include "source/procedure_questions.h"
#include "writers/called_from.h"
#include "writers/header_layout.h"
#include "writers/header_reading.h"
#include "writers/line_block.h"

namespace kolvane::writers::auto_coder {
namespace {

using source::lineText;

constexpr std::string_view kModule = "frmAutoCoder";
constexpr int kRuleLength = 9;

// A procedure's last line: an End line, numbered or not, or a procedure of one line.
bool isEnd(std::string_view text) {
  const std::string_view statement = source::trimWhite(source::Strip_Line_Number(text));
  if (source::Is_Comment_Line(statement)) return false;
  return std::any_of(source::kProcedureEnds.begin(), source::kProcedureEnds.end(), [&](std::string_view end) {
    return statement.starts_with(end) || statement.ends_with(std::string(": ").append(end));
  });
}

// What a line says about the header of the procedure.
enum class Sign { kNone, kHeader, kEnd };

class HeaderSigns {
 public:
  explicit HeaderSigns(const frame::Services& services) {
    const std::string character = source::commentCharacter(services);
    rule_ = "'" + base::repeat(character, kRuleLength);
    name_ = fieldStart(character, "Name");
  }

  Sign of(std::string_view text) const {
    const std::string_view line = source::trimWhite(text);
    if (line.starts_with(rule_) || line.starts_with(name_) || source::startsWithAny(line, kForeignRules))
      return Sign::kHeader;
    return isEnd(text) ? Sign::kEnd : Sign::kNone;
  }

 private:
  std::string rule_;
  std::string name_;
};

Sign firstSign(const HeaderSigns& signs, frame::CodeModule& module, int from, int to, int step) {
  for (int line = from; step > 0 ? line <= to : line >= to; line += step)
    if (const Sign sign = signs.of(lineText(module, line)); sign != Sign::kNone) return sign;
  return Sign::kNone;
}

// The title's lines, up to the one that holds ")". A title without brackets ends where it is not continued.
std::string titleUpToBracket(frame::CodeModule& module, int bodyLine, source::TitlePieces pieces) {
  std::string title;
  for (int line = bodyLine;; ++line) {
    const std::string text = lineText(module, line);
    title.append(pieces == source::TitlePieces::kTrimmed ? source::trimWhite(text) : std::string_view(text));
    if (text.find(')') != std::string::npos || !endsInContinuation(text)) return title;
  }
}

// Between the first "(" and the last ")" of a text that ends in one, else the first ")" behind that "(".
std::string_view parametersOf(std::string_view title) {
  const int open = base::inStr(title, "(");
  if (open == 0) return {};
  const int close = title.ends_with(')') ? static_cast<int>(title.size()) : base::inStr(open + 1, title, ")");
  return close == 0 ? base::mid(title, open + 1) : base::mid(title, open + 1, close - open - 1);
}

// The last line of the statement or comment that `line` belongs to or begins.
int lastOfStatement(frame::CodeModule& module, int line) {
  const int last = module.CountOfLines();
  while (line < last && endsInContinuation(lineText(module, line))) ++line;
  return line;
}

// The line that the header goes to when it is to follow `line`.
int placeBehind(frame::CodeModule& module, int line) {
  const int last = lastOfStatement(module, line);
  const bool isWholeProcedure = isEnd(lineText(module, last));
  return isWholeProcedure ? line : last + 1;
}

}  // namespace

bool Handler_Exists(frame::CodeModule& module, int line, int count) {
  const base::ErrorScope scope{kModule, "Handler_Exists"};
  const int last = std::min(line + count, module.CountOfLines());
  for (int at = line + 1; at <= last; ++at) {
    const std::string text = lineText(module, at);
    const std::string_view statement = source::trimWhite(source::Strip_Line_Number(text));
    // A file that was written elsewhere may spell the keywords in any case.
    if (base::startsWithNoCase(statement, "On Error ")) return true;
    if (isEnd(text)) return false;
  }
  return false;
}

bool Header_Exists(const frame::Services& services, frame::CodeModule& module, int startLine, int bodyLine) {
  const base::ErrorScope scope{kModule, "Header_Exists"};
  if (Header_Exists_Within_Procedure(module, startLine, source::kProcedureEnds)) return true;
  const HeaderSigns signs(services);
  const Sign below = firstSign(signs, module, startLine + 1, bodyLine, 1);
  if (below != Sign::kNone) return below == Sign::kHeader;
  const int declarations = module.CountOfDeclarationLines();
  // What the tool itself has put below a title begins here.
  const int place = placeBehind(module, startLine);
  // A rule on the first line of a module without declarations belongs to the module.
  const int top = declarations == 0 && startLine == 1 ? place : std::max(declarations, 1);
  return firstSign(signs, module, place, top, -1) == Sign::kHeader;
}

std::string Find_Parameter_String(const frame::Services& services, frame::CodeModule& module, int bodyLine) {
  const base::ErrorScope scope{kModule, "Find_Parameter_String"};
  const std::string title = titleUpToBracket(module, bodyLine, source::TitlePieces::kTrimmed);
  std::string text(parametersOf(title));
  for (const std::string_view word : {"ByVal ", "ByRef ", "_"}) text = base::replaceAll(text, word, "");
  if (base::trim(text).empty()) return "None";
  return source::brokenBehindCommas(text, source::headerContinuation(source::commentCharacter(services)));
}

std::string Find_Procedure_Return_Type(frame::CodeModule& module, int bodyLine) {
  const base::ErrorScope scope{kModule, "Find_Procedure_Return_Type"};
  constexpr int kBehindAs = 3;
  const std::string joined = titleUpToBracket(module, bodyLine, source::TitlePieces::kAsTheyAre);
  const std::string_view title = source::trimWhite(joined);
  const int mark = base::inStrRev(title, "As");
  return title.ends_with(')') || mark == 0 ? "Nothing" : std::string(base::mid(title, mark + kBehindAs));
}

std::string Find_Procedure_Type(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "Find_Procedure_Type"};
  const int last = module.CountOfLines();
  for (; line <= last; ++line)
    if (source::Is_Procedure_Title(lineText(module, line))) return source::Find_Procedure_Type(module, line);
  return {};
}

int Get_Back_Count(frame::CodeModule& module, int startLine) {
  const base::ErrorScope scope{kModule, "Get_Back_Count"};
  int blank = 0;
  while (startLine - blank > 1 && source::Is_Blank_Line(lineText(module, startLine - blank - 1))) ++blank;
  return blank - 1;
}

void Delete_Blank_Lines(frame::CodeModule& module, int line, int count) {
  const base::ErrorScope scope{kModule, "Delete_Blank_Lines"};
  if (count > 0) module.DeleteLines(line, count);
}

HeaderValues headerValues(const Context& context, frame::CodeModule& module, const HeaderText& text,
                          int line) {
  HeaderValues values;
  values.name = text.name;
  values.parameters = text.parameters;
  values.returns = text.returns;
  values.author = text.author;
  values.date = headerDate(context.services, {});
  if (showsField(context.services, "Called From"))
    values.calledFrom = Get_Called_From_Text(context, module, line);
  return values;
}

void Create_Header(const Context& context, frame::CodeModule& module, const HeaderText& text, int line) {
  const base::ErrorScope scope{kModule, "Create_Header"};
  const HeaderValues values = headerValues(context, module, text, line);
  module.InsertLines(placeBehind(module, line),
                     base::join(headerLines(context.services, values), base::kCrLf));
}

}  // namespace kolvane::writers::auto_coder
