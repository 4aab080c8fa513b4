// Colours of a terminal, in one table.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::commandline {

enum class Paint { kRemoved, kAdded, kPlace, kTitle, kProblem, kQuiet };

class Style {
 public:
  explicit Style(bool colored) : colored_(colored) {}
  // The text in its colour, or as it is.
  std::string operator()(Paint paint, std::string_view text) const;
  bool colored() const { return colored_; }

 private:
  bool colored_;
};

}  // namespace kolvane::commandline
