#include "generate/in_scope.h"

#include <algorithm>

namespace kolvane::generate {

void NamesInScope::add(const Variable& variable) {
  if (variable.isArray) {
    (variable.type == Type::kString ? textArrays : numberArrays).push_back(variable.name);
  } else if (variable.type == Type::kCollection) {
    collections.push_back(variable.name);
  } else if (variable.type == Type::kRecordset) {
    recordsets.push_back(variable.name);
  } else if (variable.type == Type::kObject) {
    objects.push_back({variable.name, variable.classIndex});
  } else {
    variables[static_cast<std::size_t>(row(variable.type).group)].push_back(variable.name);
  }
}

const PatternRow& Choices::pick(Random& random) const {
  const int at = random.below(total_);
  const auto found = std::upper_bound(entries_.begin(), entries_.end(), at,
                                      [](int value, const Entry& entry) { return value < entry.upTo; });
  return *found->row;
}

}  // namespace kolvane::generate
