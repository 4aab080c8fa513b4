// Letter case of a module's bytes, for names and for searching.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kolvane::workspace {

// The lower case of a byte: ASCII letters, and the letters from 0xC0 to 0xDE, which Windows-1252 and its
// neighbours have 32 below their lower case (all but the sign 0xD7). Bytes of other code pages may be taken
// for one another by this; they are never changed by it.
constexpr unsigned char foldByte(unsigned char byte) {
  const bool ascii = byte >= 'A' && byte <= 'Z';
  const bool latin = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;
  return ascii || latin ? static_cast<unsigned char>(byte + 32) : byte;
}

using FoldTable = std::array<unsigned char, 256>;

inline constexpr FoldTable kFolded = [] {
  FoldTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = foldByte(static_cast<unsigned char>(i));
  return table;
}();

inline unsigned char folded(char c) { return kFolded[static_cast<unsigned char>(c)]; }

inline std::string foldedText(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(folded(c));
  return result;
}

inline bool equalFolded(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (folded(a[i]) != folded(b[i])) return false;
  return true;
}

// FNV-1a over the folded bytes.
inline std::uint32_t foldedHash(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ folded(c)) * 16777619U;
  return hash;
}

}  // namespace kolvane::workspace
