// The pictures on buttons: their keys, and the files that hold them.
//
// A picture travels to the host over the clipboard by its name; who draws it asks for the name's file.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard.h"

namespace kolvane::frame {

// Old systems get pictures in black and white, the others in colour.
enum class PictureVariant : std::uint8_t { k95, k2000 };

// Beside those of the catalogue.
inline constexpr std::array<std::string_view, 11> kFurtherPictureKeys{{
    "List My Callers",
    "Set Tab Order",
    "Copy Control Code",
    "Paste Control Code",
    "Swap Controls",
    "Selected Controls",
    "Enhanced Clipboard Copy",
    "Enhanced Clipboard Copy Procedure",
    "Enhanced Clipboard Clear",
    "Enhanced Clipboard Paste",
    "CUSTOMERROR",
}};

// The faces of the dirty indicator.
inline constexpr std::string_view kDirtyPictureKey = "DirtyPictureDirty";
inline constexpr std::string_view kNotDirtyPictureKey = "DirtyPictureNotDirty";

// Every key: the catalogue's in its order, the indicator's, the further ones.
std::vector<std::string_view> pictureKeys();
// Compared exactly.
bool isPictureKey(std::string_view key);

// What the clipboard and a button call the picture: the key itself; with "Image95" in front in the other
// variant. Those of the two faces start with "Image2000" or "Image95".
std::string pictureName(std::string_view key, PictureVariant variant);
// The picture's file below the suite's folder, such as "Pictures/colour/search.svg"; "" for a name that no
// picture has.
std::string pictureFile(std::string_view name);

// Clears the clipboard and puts the picture on it. For any other key it stays empty.
void PutImageIntoClipboard(platform::Clipboard& clipboard, std::string_view key, PictureVariant variant);

}  // namespace kolvane::frame
