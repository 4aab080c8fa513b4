// The suite's pictures as icons of the window system.
#pragma once

#include <QIcon>
#include <QPalette>
#include <map>
#include <string>
#include <string_view>

namespace kolvane::qt {

// Whether text and ground of the palette differ as much as they can, as in a high-contrast theme.
bool isHighContrast(const QPalette& palette);

// Drawn sharply at every size and scale; a disabled one is drawn as the style draws such. Under a high-contrast
// theme all come from the set that is made for it.
class PictureIcons {
 public:
  // `home` is the folder that holds "Pictures", as the file system writes it, in UTF-8. Empty: no icons.
  explicit PictureIcons(std::string home) : home_(std::move(home)) {}

  // By the name that the suite calls the picture (frame/pictures.h), such as "Search" or "Image95Search"; an
  // empty icon for a name that no picture has. Files are read at first use and kept.
  QIcon icon(std::string_view name) const;

 private:
  std::string home_;
  mutable std::map<std::string, QIcon, std::less<>> icons_;  // by file
};

}  // namespace kolvane::qt
