// A module's code statement by statement: continued lines joined, comments left out, colons parting.
//
// What a reader of meaning needs who would be misled by lines. The strings stay in a statement; forEachWord passes
// over them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"
#include "frame/host.h"
#include "source/line_tests.h"
#include "source/line_walk.h"

namespace kolvane::source {

struct Statement {
  std::string_view text;  // trimmed, never empty; holds for the call alone
  int line = 0;           // where its line begins
};

// The line ends with a mark that lets the next one go on: "_" behind a blank, also in a comment.
inline bool isJoinedToNext(std::string_view line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
  if (!line.ends_with('_')) return false;
  return line.size() == 1 || line[line.size() - 2] == ' ' || line[line.size() - 2] == '\t';
}

inline bool isRemark(std::string_view statement) {
  constexpr std::string_view kRemark = "Rem";
  return base::startsWithNoCase(statement, kRemark) &&
         (statement.size() == kRemark.size() || statement[kRemark.size()] == ' ');
}

// Calls `work(statement)` for the statements of one logical line. A colon in a date's literal parts, too; what comes
// of it has the same words.
template <typename Work>
void forEachStatementOfLine(std::string_view text, int line, Work work) {
  bool quoted = false;
  std::size_t start = 0;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    const char c = at < text.size() ? text[at] : '\'';
    if (c == '"' && at < text.size()) quoted = !quoted;
    const bool comment = c == '\'' && (!quoted || at == text.size());
    const bool colon = c == ':' && !quoted && !text.substr(at + 1).starts_with('=');
    if (!comment && !colon) continue;
    const std::string_view statement = trimWhite(text.substr(start, at - start));
    if (isRemark(statement)) return;
    if (!statement.empty()) work(Statement{statement, line});
    if (comment) return;
    start = at + 1;
  }
}

// Calls `work(statement)` for the statements of the lines `first` to `last`, which must not be edited meanwhile.
// Linear in their text.
template <typename Work>
void forEachStatement(frame::CodeModule& module, int first, int last, Work work) {
  std::string joined;
  int begin = 0;  // of the lines in `joined`; 0 when none is open
  const auto add = [&](int number, std::string_view line) {
    const bool goesOn = isJoinedToNext(line);
    if (!goesOn && begin == 0) return forEachStatementOfLine(line, number, work);
    if (begin == 0) begin = number;
    joined.append(goesOn ? line.substr(0, line.rfind('_')) : line);
    if (goesOn) return;
    forEachStatementOfLine(joined, begin, work);
    joined.clear();
    begin = 0;
  };
  walkLines(module, first, last, add, [] {});
  if (begin != 0) forEachStatementOfLine(joined, begin, work);
}

// Calls `visit(word, position)` for the words of a statement outside of its strings; numbers count as words.
template <typename Visit>
void forEachWord(std::string_view statement, Visit visit) {
  for (std::size_t at = 0; at < statement.size();) {
    if (statement[at] == '"') {
      const std::size_t end = statement.find('"', at + 1);
      if (end == std::string_view::npos) return;
      at = end + 1;
      continue;
    }
    std::size_t end = at;
    while (end < statement.size() && base::isWordCharacter(statement[end])) ++end;
    if (end > at) visit(statement.substr(at, end - at), at);
    at = end > at ? end : at + 1;
  }
}

// The statement without the number of its line.
inline std::string_view withoutNumber(std::string_view statement) {
  const std::size_t digits = statement.find_first_not_of("0123456789");
  if (digits == std::string_view::npos || (statement[digits] != ' ' && statement[digits] != '\t'))
    return statement;
  return trimWhite(statement.substr(digits));
}

}  // namespace kolvane::source
