#include "maintenance/variable_uses.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kEnds = " .(),\r";

constexpr auto kIsEnd = [] {
  std::array<bool, 256> table{};
  for (const char c : kEnds) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

bool isEnd(char c) { return kIsEnd[static_cast<unsigned char>(c)]; }

// Up to this size a text is searched for each name in turn, which finds most of them soon; longer ones are read once for
// all names.
constexpr std::size_t kShortText = 8192;

bool holdsNameAndEnd(std::string_view text, std::string_view name) {
  for (std::size_t at = text.find(name); at != std::string_view::npos; at = text.find(name, at + 1))
    if (at + name.size() < text.size() && isEnd(text[at + name.size()])) return true;
  return false;
}

}  // namespace

VariableUses::VariableUses(const std::vector<std::string>& names, std::string_view text)
    : names_(names), used_(names.size()) {
  const bool holdsEnd = text.find_first_of(kEnds) != std::string_view::npos;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string& name = names[i];
    if (name.empty())
      used_[i] = holdsEnd;
    else if (text.size() <= kShortText || name.find_first_of(kEnds) != std::string::npos)
      used_[i] = holdsNameAndEnd(text, name);
    else
      leaveOpen(i);
  }
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size() && openCount_ > 0; ++at) {
    if (!isEnd(text[at])) continue;
    if (at > start) readPiece(text.substr(start, at - start));
    start = at + 1;
  }
}

void VariableUses::leaveOpen(std::size_t index) {
  open_.resize(256);
  open_[static_cast<unsigned char>(names_[index].back())].push_back(index);
  ++openCount_;
}

void VariableUses::readPiece(std::string_view piece) {
  std::vector<std::size_t>& open = open_[static_cast<unsigned char>(piece.back())];
  for (std::size_t i = 0; i < open.size();) {
    if (!piece.ends_with(names_[open[i]])) {
      ++i;
      continue;
    }
    used_[open[i]] = true;
    open[i] = open.back();
    open.pop_back();
    --openCount_;
  }
}

}  // namespace kolvane::maintenance
