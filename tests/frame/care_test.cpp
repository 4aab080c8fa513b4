// The policy of care: what a user has stored, and that the guide tells all that it keeps.
#include "frame/care.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/text.h"
#include "frame/settings.h"
#include "platform/memory_tree_store.h"

namespace kolvane::frame {
namespace {

TEST(Care, onlyAPlainNoSwitchesItOff) {
  platform::MemoryTreeStore store;
  Settings settings(store, base::CodePage::get(base::CodePage::kDefault));
  EXPECT_TRUE(storedCare(settings).isCareful()) << "nothing is stored";
  for (const auto& [text, careful] : {std::pair("True", true),
                                      {"1", true},
                                      {"", true},
                                      {"nonsense", true},
                                      {"false", false},
                                      {" 0 ", false}}) {
    settings.SaveSetting(kSafetySection, kCarefulKey, text);
    EXPECT_EQ(storedCare(settings).isCareful(), careful) << text;
  }
  storeCare(settings, Care::toTheLetter());
  EXPECT_FALSE(storedCare(settings).guards(Guard::kComments));
}

TEST(Care, theGuideListsEveryGuard) {
  std::ifstream file(KOLVANE_SOURCE_DIR "/docs/guide/careful.md");
  std::stringstream text;
  text << file.rdbuf();
  const std::string guide = base::replaceAll(text.str(), "\n  ", " ");
  for (const GuardRow& row : kGuards)
    EXPECT_NE(guide.find("- " + std::string(row.keeps)), std::string::npos) << row.keeps;
}

}  // namespace
}  // namespace kolvane::frame
