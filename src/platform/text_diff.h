// What differs between two states of a file, line by line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kolvane::platform {

struct DiffLine {
  enum class Kind : char { kContext = ' ', kRemoved = '-', kAdded = '+' };
  Kind kind = Kind::kContext;
  std::string text;       // with its line end, if it has one
  bool lacksEnd = false;  // the file's last line, without an end
};

struct DiffHunk {
  int oldStart = 0, oldCount = 0, newStart = 0, newCount = 0;
  std::vector<DiffLine> lines;
};

class TextDiff {
 public:
  virtual ~TextDiff() = default;
  // Hunks with `context` unchanged lines around each change; none for equal texts. Any bytes are taken as
  // text.
  virtual std::vector<DiffHunk> compare(std::string_view before, std::string_view after, int context) = 0;
};

}  // namespace kolvane::platform
