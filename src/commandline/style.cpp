#include "commandline/style.h"

#include <array>

namespace kolvane::commandline {
namespace {

constexpr std::array<std::string_view, 6> kCodes{"31", "32", "36", "1", "1;31", "2"};

}  // namespace

std::string Style::operator()(Paint paint, std::string_view text) const {
  if (!colored_) return std::string(text);
  std::string result = "\x1b[";
  result.append(kCodes[static_cast<std::size_t>(paint)]).append("m").append(text).append("\x1b[0m");
  return result;
}

}  // namespace kolvane::commandline
