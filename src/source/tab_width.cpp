#include "source/tab_width.h"

#include <string>
#include <string_view>

#include "base/text.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kEditorKey = "Software\\Microsoft\\VBA\\Microsoft Visual Basic";
constexpr std::string_view kTabWidth = "TabWidth";
constexpr long kWidestIndent = 256;

}  // namespace

int GetTabWidth(const frame::Services& services) {
  const std::string text =
      services.settings.ReadRegistryValue(frame::RegistryRoot::kCurrentUser, kEditorKey, kTabWidth);
  const long width = base::toLong(text);
  return width < 1 || width > kWidestIndent ? kDefaultTabWidth : static_cast<int>(width);
}

}  // namespace kolvane::source
