// Line numbers and the language: where they stand in a module, where they may stand, and which of them its code counts
// on.
#pragma once

#include <string_view>
#include <vector>

#include "base/statement_lexer.h"
#include "frame/host.h"
#include "source/number_references.h"

namespace kolvane::source {

// A module as it was at construction. Lines that it does not have answer no to everything.
class LineNumberMap {
 public:
  // Linear in the module's text.
  explicit LineNumberMap(frame::CodeModule& module);

  // The line begins a statement that a number may be put in front of, and it has none. That is so in procedures alone;
  // not for their titles, directives (#If), labels with or without a statement behind them, Case, what stands between
  // a Select Case and its first Case, comments, blank lines, and the further lines of a statement or a comment.
  bool takesNumber(int line) const { return at(line).takes; }
  // The title of a procedure; one that stands in another branch of a #If and shares the body of the one above is none.
  bool opensProcedure(int line) const { return at(line).opens; }
  // The line begins with a number, in column 1 or behind white space. A statement's further lines never do.
  bool isNumbered(int line) const { return at(line).number != kNone; }
  // Its number is one that a jump of the procedure goes to, or that a use of Erl may mean.
  bool isMeant(int line) const { return isMeant(at(line)); }
  // Whether a line of the procedure around `line` bears the number, or a statement there names it.
  bool isTaken(int line, long number) const;
  // Whether a line bears a number in column 1 that nothing in its procedure means.
  bool hasFreeNumbers() const { return hasFreeNumbers_; }

 private:
  static constexpr long kNone = -1;

  struct Line {
    long number = kNone;
    int procedure = 0;
    bool takes = false;
    bool opens = false;
    bool inColumn1 = false;
  };
  // From its title to the next one that opens a procedure; the first stands for what is above all titles.
  struct Procedure {
    std::vector<long> numbers;
    NumberReferences references;
  };
  class Reader;

  bool isMeant(const Line& line) const;
  const Procedure& procedureOf(const Line& line) const {
    return procedures_[static_cast<std::size_t>(line.procedure)];
  }
  const Line& at(int line) const {
    static constexpr Line kNoLine;
    const std::size_t index = static_cast<std::size_t>(line) - 1;
    return index < lines_.size() ? lines_[index] : kNoLine;
  }

  std::vector<Line> lines_;
  std::vector<Procedure> procedures_;
  bool hasFreeNumbers_ = false;
};

}  // namespace kolvane::source
