#include "base/line_cutter.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace kolvane::base {
namespace {

const char* findByte(const char* from, const char* end, char byte) {
  const void* found = from == end ? nullptr : std::memchr(from, byte, static_cast<std::size_t>(end - from));
  return found ? static_cast<const char*>(found) : end;
}

}  // namespace

LineCutter::LineCutter(std::string_view text)
    : at_(text.data()),
      end_(text.data() + text.size()),
      carriageReturn_(findByte(at_, end_, '\r')),
      lineFeed_(findByte(at_, end_, '\n')) {}

std::string_view LineCutter::next() {
  if (carriageReturn_ < at_) carriageReturn_ = findByte(at_, end_, '\r');
  if (lineFeed_ < at_) lineFeed_ = findByte(at_, end_, '\n');
  const char* const stop = std::min(carriageReturn_, lineFeed_);
  const std::string_view line(at_, static_cast<std::size_t>(stop - at_));
  const bool isPair = stop == carriageReturn_ && end_ - stop > 1 && stop[1] == '\n';
  at_ = stop == end_ ? end_ : stop + (isPair ? 2 : 1);
  return line;
}

}  // namespace kolvane::base
