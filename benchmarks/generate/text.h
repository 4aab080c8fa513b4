// A file under construction: bytes, and how many lines they are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace kolvane::generate {

class Text {
 public:
  Text(std::string_view lineEnd, std::size_t expectedBytes) : lineEnd_(lineEnd) {
    bytes_.reserve(expectedBytes);
  }

  void put(std::string_view piece) { bytes_ += piece; }
  void put(char character) { bytes_ += character; }
  void put(int number) { bytes_ += std::to_string(number); }
  void blanks(int count) {
    if (count > 0) bytes_.append(static_cast<std::size_t>(count), ' ');
  }
  void end() {
    bytes_ += lineEnd_;
    ++lines_;
  }
  template <typename... Pieces>
  void line(const Pieces&... pieces) {
    (put(pieces), ...);
    end();
  }
  // Several lines, parted by "\n".
  void block(std::string_view lines) {
    for (std::size_t at = 0; at <= lines.size();) {
      const std::size_t stop = std::min(lines.find('\n', at), lines.size());
      line(lines.substr(at, stop - at));
      at = stop + 1;
    }
  }

  int lines() const { return lines_; }
  std::string take() { return std::move(bytes_); }

 private:
  std::string_view lineEnd_;
  std::string bytes_;
  int lines_ = 0;
};

}  // namespace kolvane::generate
