#include "commandline/text_table.h"

#include <algorithm>

namespace kolvane::commandline {
namespace {

bool startsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

}  // namespace

int columnsOf(const std::string& text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), startsCharacter));
}

std::string cutTo(const std::string& text, int columns) {
  if (columnsOf(text) <= columns) return text;
  std::string cut;
  int used = 0;
  for (const char c : text) {
    if (startsCharacter(c) && ++used >= columns) break;
    cut.push_back(c);
  }
  return cut + "…";
}

std::string TextTable::text(int width) const {
  std::vector<int> widths;
  for (const auto& row : rows_)
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      if (widths.size() <= i) widths.resize(i + 1);
      widths[i] = std::max(widths[i], columnsOf(row[i]));
    }
  std::string out;
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(static_cast<std::size_t>(widths[i] - columnsOf(row[i]) + 2), ' ');
    }
    out += (width > 0 ? cutTo(line, width) : line) + "\n";
  }
  return out;
}

}  // namespace kolvane::commandline
