// Every picture key has a drawing in both variants, and a file of its own.
#include "frame/pictures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "frame/catalogue.h"
#include "frame/context_menus.h"

namespace kolvane::frame {
namespace {

std::string drawing(const std::string& file) {
  std::ifstream stream(KOLVANE_SOURCE_DIR "/data/" + file);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

TEST(Pictures, EveryKeyHasItsDrawingsAndThereAreNoOthers) {
  std::set<std::string> files;
  std::set<std::string> drawings;
  for (const std::string_view key : pictureKeys())
    for (const PictureVariant variant : {PictureVariant::k95, PictureVariant::k2000}) {
      const std::string file = pictureFile(pictureName(key, variant));
      EXPECT_TRUE(files.insert(file).second) << file << " is that of two keys";
      const std::string text = drawing(file);
      EXPECT_TRUE(text.starts_with("<svg ")) << file;
      EXPECT_TRUE(drawings.insert(text).second) << file << " looks like another one";
    }
  std::set<std::string> present;
  const std::filesystem::path data = KOLVANE_SOURCE_DIR "/data";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(data / "Pictures"))
    if (entry.is_regular_file())
      present.insert(std::filesystem::relative(entry.path(), data).generic_string());
  EXPECT_EQ(present, files);
}

TEST(Pictures, EntriesOfTheContextMenusHaveKeys) {
  for (const PopupItem& item : kProcRecoderPopup)
    EXPECT_TRUE(item.pictureKey.empty() || isPictureKey(item.pictureKey)) << item.pictureKey;
  for (const MenuEntry& entry : kEnhancedClipboardPopup) EXPECT_TRUE(isPictureKey(entry.pictureKey));
  for (const MenuEntry& entry :
       {kListMyCallersEntry, kControlCoderEntry, kControlDefaulterEntry, kTabOrderEntry, kSwapControlsEntry,
        kSelectedControlsEntry, kCopyControlCodeEntry, kPasteControlCodeEntry})
    EXPECT_TRUE(isPictureKey(entry.pictureKey)) << entry.pictureKey;
}

TEST(Pictures, TravelOverTheClipboardByName) {
  platform::MemoryClipboard clipboard;
  clipboard.setText("text");
  PutImageIntoClipboard(clipboard, "DB Data Scriptier", PictureVariant::k2000);
  EXPECT_EQ(clipboard.picture(), "DB Data Scriptier");
  EXPECT_EQ(clipboard.text(), std::nullopt);
  EXPECT_EQ(pictureFile(*clipboard.picture()), "Pictures/colour/db-data-scriptier.svg");
  PutImageIntoClipboard(clipboard, kDirtyPictureKey, PictureVariant::k95);
  EXPECT_EQ(clipboard.picture(), "Image95DirtyPictureDirty");
  EXPECT_EQ(pictureFile("Image95DirtyPictureDirty"), "Pictures/high-contrast/dirtypicturedirty.svg");
  PutImageIntoClipboard(clipboard, "Search Again", PictureVariant::k2000);
  EXPECT_EQ(clipboard.picture(), std::nullopt);
  EXPECT_EQ(pictureFile("Search Again"), "");
}

}  // namespace
}  // namespace kolvane::frame
