#include "frame/hot_keys.h"

#include <array>

#include "base/text.h"

namespace kolvane::frame {
namespace {

// By the modifiers' sum.
constexpr std::array<std::string_view, 8> kModifierTexts{
    "", "ALT", "CTRL", "CTRL + ALT", "SHIFT", "SHIFT + ALT", "CTRL + SHIFT", "CTRL + SHIFT + ALT"};

}  // namespace

std::string_view GetHotKey(std::string_view value) {
  const std::size_t slash = value.find('/');
  return slash == std::string_view::npos ? std::string_view() : value.substr(0, slash);
}

std::string_view GetHotMod(std::string_view value) {
  const std::size_t slash = value.find('/');
  return slash == std::string_view::npos ? std::string_view() : value.substr(slash + 1);
}

std::string GetHotKeyText(std::string_view value) {
  const std::string_view key = GetHotKey(value);
  const std::string_view modifiers = GetHotMod(value);
  const bool digit = modifiers.size() == 1 && modifiers[0] >= '1' && modifiers[0] <= '7';
  if (!digit || key.empty() || key.size() > 3) return {};
  const long code = base::toLong(key);
  if (code < 1 || code > 255) return {};
  return std::string(kModifierTexts[static_cast<std::size_t>(modifiers[0] - '0')]) + " + " +
         static_cast<char>(code);
}

}  // namespace kolvane::frame
