#include "frame/pictures.h"

#include <algorithm>

#include "base/text.h"
#include "frame/catalogue.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kOld = "Image95";
constexpr std::string_view kNew = "Image2000";

bool isFace(std::string_view key) { return key == kDirtyPictureKey || key == kNotDirtyPictureKey; }

// Lower-case letters and digits, everything else as one "-".
std::string fileStem(std::string_view key) {
  std::string stem;
  for (const char c : base::lCase(key)) {
    const bool kept = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (kept || (!stem.empty() && stem.back() != '-')) stem += kept ? c : '-';
  }
  return stem;
}

}  // namespace

std::vector<std::string_view> pictureKeys() {
  std::vector<std::string_view> keys;
  for (const CatalogueRow& row : kCatalogue) keys.push_back(row.pictureKey);
  keys.insert(keys.end(), {kDirtyIndicator.pictureKey, kDirtyPictureKey, kNotDirtyPictureKey});
  keys.insert(keys.end(), kFurtherPictureKeys.begin(), kFurtherPictureKeys.end());
  return keys;
}

bool isPictureKey(std::string_view key) {
  static const std::vector<std::string_view> keys = [] {
    auto sorted = pictureKeys();
    std::sort(sorted.begin(), sorted.end());
    return sorted;
  }();
  return std::binary_search(keys.begin(), keys.end(), key);
}

std::string pictureName(std::string_view key, PictureVariant variant) {
  if (variant == PictureVariant::k95) return std::string(kOld).append(key);
  return isFace(key) ? std::string(kNew).append(key) : std::string(key);
}

std::string pictureFile(std::string_view name) {
  const bool old = name.starts_with(kOld);
  std::string_view key = name;
  if (old) key.remove_prefix(kOld.size());
  if (key.starts_with(kNew)) key.remove_prefix(kNew.size());
  if (!isPictureKey(key)) return {};
  return std::string(old ? "Pictures/high-contrast/" : "Pictures/colour/") + fileStem(key) + ".svg";
}

void PutImageIntoClipboard(platform::Clipboard& clipboard, std::string_view key, PictureVariant variant) {
  clipboard.clear();
  if (isPictureKey(key)) clipboard.setPicture(pictureName(key, variant));
}

}  // namespace kolvane::frame
