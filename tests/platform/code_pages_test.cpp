#include "platform/code_pages.h"

#include <gtest/gtest.h>

#include "adapters/system/iconv_code_pages.h"
#include "base/error.h"

namespace kolvane::platform {
namespace {

TEST(CodePages, utf8AndTheDoubleBytePages) {
  const auto pages = adapters::makeIconvCodePages();
  const struct {
    int number;
    std::string bytes;
    const char* utf8;
  } samples[] = {
      {932, "\x95\x5C a\xB1", "表 aｱ"},  // half-width katakana take one byte
      {936, "\xB1\xED", "表"},
      {949, "\xC7\xA5", "표"},
      {950, "\xAA\xED", "表"},
  };
  for (const auto& sample : samples) {
    const base::CodePage& page = pages->get(sample.number);
    EXPECT_EQ(page.toUtf8(sample.bytes), sample.utf8);
    EXPECT_EQ(page.fromUtf8(sample.utf8), sample.bytes);
    const std::string odd = "a\x95\r\n\xFF";
    EXPECT_EQ(page.fromUtf8(page.toUtf8(odd)), odd) << sample.number;
    EXPECT_EQ(page.lower(sample.bytes + "A"), sample.bytes + "a");
    EXPECT_THROW(page.fromUtf8("\U0001F600"), base::Error);
  }
  const std::string stray = "\xC3\xA4\xFC\xEF\x9F\x80\xC3";
  EXPECT_EQ(pages->get(65001).toUtf8("\xC3\xA4"), "ä");
  EXPECT_EQ(pages->get(65001).fromUtf8(pages->get(65001).toUtf8(stray)), stray);
  EXPECT_THROW(pages->get(9), base::Error);
  EXPECT_THROW(CodePages().get(932), base::Error);
}

}  // namespace
}  // namespace kolvane::platform
