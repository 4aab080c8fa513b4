#include "commandline/text_table.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"

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

std::string wrapHelp(const std::string& text, int width, int indent) {
  std::string out;
  const auto limit = static_cast<std::size_t>(width);
  for (std::string_view rest : base::splitLines(text)) {
    const std::string margin(rest.starts_with(' ') ? static_cast<std::size_t>(indent) : 0, ' ');
    std::string line;
    while (line.size() + rest.size() > limit) {
      const std::size_t room = limit - line.size();
      const std::size_t cut = rest.rfind(' ', room);
      // A word wider than the terminal stays whole.
      if (cut == std::string_view::npos || rest.find_first_not_of(' ') > cut) break;
      out.append(line).append(rest.substr(0, cut)).append("\n");
      rest.remove_prefix(cut + 1);
      line = margin;
    }
    out.append(line).append(rest).append("\n");
  }
  out.pop_back();
  return out;
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
    std::size_t cells =
        row.size();  // but for empty ones at the end, which would leave blanks behind the text
    while (cells > 0 && row[cells - 1].empty()) --cells;
    for (std::size_t i = 0; i < cells; ++i) {
      line += row[i];
      if (i + 1 < cells) line.append(static_cast<std::size_t>(widths[i] - columnsOf(row[i]) + 2), ' ');
    }
    out += (width > 0 ? cutTo(line, width) : line) + "\n";
  }
  return out;
}

}  // namespace kolvane::commandline
