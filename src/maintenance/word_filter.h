// A quick no to the question whether a word is one of some names.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kolvane::maintenance {

// By first character and length: one look into a table. Words and names are not empty and compare exactly.
class WordFilter {
 public:
  void add(std::string_view name) { lengths_[first(name)] |= bit(name.size()); }
  bool mayBegin(char character) const { return lengths_[static_cast<unsigned char>(character)] != 0; }
  // False for a word that is none of the names.
  bool mayHold(std::string_view word) const { return (lengths_[first(word)] & bit(word.size())) != 0; }

 private:
  static std::size_t first(std::string_view word) { return static_cast<unsigned char>(word.front()); }
  static std::uint64_t bit(std::size_t length) {
    return std::uint64_t{1} << std::min<std::size_t>(length, 63);
  }

  // For each first character the lengths of the names, a bit each.
  std::array<std::uint64_t, 256> lengths_{};
};

}  // namespace kolvane::maintenance
