// Reports as aligned text.
#pragma once

#include <string>
#include <vector>

namespace kolvane::commandline {

// Rows of UTF-8 cells, aligned in columns two blanks apart; the last column is never padded. With a width
// above 0, the last column is cut with "…" where a row would pass it.
class TextTable {
 public:
  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  bool empty() const { return rows_.empty(); }
  std::string text(int width = 0) const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

// Columns that a UTF-8 text takes, each character one.
int columnsOf(const std::string& text);
// The text cut to so many columns, with "…" at its end if anything was cut.
std::string cutTo(const std::string& text, int columns);

// Help text for a narrow terminal: longer lines are broken at blanks, and go on at column `indent` where they
// begin with a blank, at the margin otherwise.
std::string wrapHelp(const std::string& text, int width, int indent);

}  // namespace kolvane::commandline
