// Putting table rows together at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kolvane::workspace {

constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// Names compare without case, as everywhere in the host.
constexpr bool lessNoCase(std::string_view a, std::string_view b) {
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
    if (lowered(a[i]) != lowered(b[i])) return lowered(a[i]) < lowered(b[i]);
  return a.size() < b.size();
}

// All rows of several arrays in one, sorted by name.
template <typename Row, const auto&... kGroups>
consteval auto joined() {
  std::array<Row, (kGroups.size() + ... + 0)> rows{};
  std::size_t count = 0;
  const auto add = [&](const auto& group) {
    for (const Row& row : group) {
      std::size_t at = count++;
      for (; at > 0 && lessNoCase(row.name, rows[at - 1].name); --at) rows[at] = rows[at - 1];
      rows[at] = row;
    }
  };
  (add(kGroups), ...);
  return rows;
}

// True when each row's name stands behind the name before it: sorted, and none twice.
template <typename Rows>
consteval bool sortedAndUnique(const Rows& rows) {
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (!lessNoCase(rows[i - 1].name, rows[i].name)) return false;
  return true;
}

}  // namespace kolvane::workspace
