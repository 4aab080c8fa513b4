#include "frame/window_placement.h"

#include <algorithm>
#include <string>

#include "base/text.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kSaveWindowLocation = "seg360nsdgdg";

long read(const Settings& settings, std::string_view key, long fallback) {
  return key.empty() ? fallback : base::toLong(settings.option(key, std::to_string(fallback)), fallback);
}

}  // namespace

PlacementKeys GetLeftAndTop(std::string_view name) {
  const auto row = std::find_if(kPlacements.begin(), kPlacements.end(),
                                [name](const PlacementRow& placement) { return placement.name == name; });
  return row == kPlacements.end() ? PlacementKeys{} : row->keys;
}

WindowPlacement RestoreWindowPlacement(const Settings& settings, std::string_view name) {
  const PlacementKeys keys = GetLeftAndTop(name);
  const WindowPlacement none;
  return {read(settings, keys.left, none.left), read(settings, keys.top, none.top),
          read(settings, keys.width, none.width), read(settings, keys.height, none.height)};
}

void SaveWindowPlacement(Settings& settings, std::string_view name, const WindowPlacement& placement) {
  const PlacementKeys keys = GetLeftAndTop(name);
  if (keys.left.empty() || !settings.flag(kSaveWindowLocation)) return;
  settings.store().update([&] {
    settings.saveOption(keys.left, std::to_string(placement.left));
    settings.saveOption(keys.top, std::to_string(placement.top));
    settings.saveOption(keys.width, std::to_string(placement.width));
    settings.saveOption(keys.height, std::to_string(placement.height));
  });
}

}  // namespace kolvane::frame
