// Looking at eight characters of a text at once, for searches in texts that are too short for memchr to pay.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kolvane::base {

inline constexpr std::size_t kWordBytes = sizeof(std::uint64_t);

// A word of eight times the same character.
constexpr std::uint64_t everyByte(char character) {
  return std::uint64_t{0x0101010101010101U} * static_cast<unsigned char>(character);
}

// The eight characters at `at`, all of which must be there.
inline std::uint64_t wordAt(const char* at) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, kWordBytes);
  return word;
}

// Not 0 when one of the bytes is 0. The first of the bits that are set is the high bit of the first such byte in the
// order of their worth; those above it may be wrong.
constexpr std::uint64_t zeroMarks(std::uint64_t word) {
  return (word - everyByte(1)) & ~word & everyByte('\x80');
}
// The same for bytes that are `character`.
constexpr std::uint64_t marksOf(std::uint64_t word, char character) {
  return zeroMarks(word ^ everyByte(character));
}

}  // namespace kolvane::base
