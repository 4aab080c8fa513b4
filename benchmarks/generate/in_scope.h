// The names that a statement may use where it stands.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "generate/outline.h"
#include "generate/patterns.h"

namespace kolvane::generate {

struct ObjectName {
  std::string_view name;
  int classIndex = -1;
};

// Views into the outline, or into texts that the owner keeps.
struct NamesInScope {
  std::array<std::vector<std::string_view>, kGroups> variables;
  std::vector<std::string_view> collections, recordsets, textArrays, numberArrays;
  std::vector<ObjectName> objects;

  void add(const Variable& variable);
};

// Rows of a table that have all they want, for picking by weight.
class Choices {
 public:
  Choices() = default;
  template <typename Accept>
  Choices(std::span<const PatternRow> rows, std::uint32_t available, Accept accept) {
    for (const PatternRow& each : rows) {
      if ((each.needs & ~available) != 0 || !accept(each)) continue;
      total_ += each.weight;
      entries_.push_back({total_, &each});
    }
  }
  Choices(std::span<const PatternRow> rows, std::uint32_t available)
      : Choices(rows, available, [](const PatternRow&) { return true; }) {}

  const PatternRow& pick(Random& random) const;

 private:
  struct Entry {
    int upTo;
    const PatternRow* row;
  };
  std::vector<Entry> entries_;
  int total_ = 0;
};

}  // namespace kolvane::generate
