// Which line numbers a procedure's statements count on.
#pragma once

#include <string_view>
#include <vector>

#include "base/statement_lexer.h"

namespace kolvane::source {

// Collects the numbers that the statements of one procedure name: as the target of a GoTo, GoSub, Resume or On … GoTo,
// behind Then and Else, and in comparisons with Erl, also by way of a variable that Erl was assigned to and in a Select
// Case. A comparison that does not name its numbers (Erl > 100, Case 10 To 20, Erl = lngLine) counts on all of them;
// a use of Erl that compares nothing, as in a log, on none.
class NumberReferences {
 public:
  // The next statement, with all its lines, which must stay where it is until the procedure has been read. Linear.
  void read(std::string_view logicalLine);
  // Behind the last statement; answers count from here on.
  void finish();

  // Whether a statement may mean the number.
  bool holds(long number) const;
  // The same by its name alone: a statement names it.
  bool names(long number) const;

 private:
  using Tokens = std::vector<base::Token>;

  bool mayRefer(std::string_view text) const;
  bool isErl(const base::Token& token) const;
  void readJumps(const Tokens& tokens);
  void readErl(const Tokens& tokens);
  void readRight(const Tokens& tokens, std::size_t erl, std::size_t statement);
  void readLeft(const Tokens& tokens, std::size_t erl, std::size_t statement);
  void readSelect(const Tokens& tokens);
  void readCase(const Tokens& tokens);
  void addOperand(const Tokens& tokens, std::size_t operand, std::size_t behind);

  std::vector<long> numbers_;
  bool all_ = false;
  std::vector<std::string_view> variables_;  // that Erl was assigned to
  // One for each Select Case that is open, from the first one over Erl on: whether it is over Erl.
  std::vector<bool> selects_;
  Tokens tokens_;
};

}  // namespace kolvane::source
