// A text's physical lines, one after the other.
#pragma once

#include <string_view>

namespace kolvane::base {

// Goes through a text line by line. CR LF, a lone CR and a lone LF each end a line.
class LineCutter {
 public:
  explicit LineCutter(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  bool atEnd() const { return at_ == end_; }
  // The next line without its end; the cutter then stands behind its end.
  std::string_view next();

 private:
  const char* at_;
  const char* end_;
};

}  // namespace kolvane::base
