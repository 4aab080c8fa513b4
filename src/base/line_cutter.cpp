#include "base/line_cutter.h"

#include "base/byte_search.h"

namespace kolvane::base {
namespace {

const char* findLineEnd(const char* at, const char* end) {
  for (; static_cast<std::size_t>(end - at) >= kWordBytes; at += kWordBytes) {
    const std::uint64_t word = wordAt(at);
    const std::uint64_t found = marksOf(word, '\r') | marksOf(word, '\n');
    if (found == 0) continue;
    if constexpr (std::endian::native == std::endian::little) return at + std::countr_zero(found) / 8;
    break;
  }
  while (at != end && *at != '\r' && *at != '\n') ++at;
  return at;
}

}  // namespace

std::string_view LineCutter::next() {
  const char* const stop = findLineEnd(at_, end_);
  const std::string_view line(at_, static_cast<std::size_t>(stop - at_));
  const bool isPair = end_ - stop > 1 && stop[0] == '\r' && stop[1] == '\n';
  at_ = stop == end_ ? end_ : stop + (isPair ? 2 : 1);
  return line;
}

}  // namespace kolvane::base
