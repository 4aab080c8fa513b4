#include "base/text.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "base/date_time.h"
#include "base/error.h"
#include "base/signal.h"

namespace kolvane::base {
namespace {

TEST(Text, positionsCountFromOneAndNeverFailPastTheEnd) {
  EXPECT_EQ(mid("abc", 2), "bc");
  EXPECT_EQ(mid("abc", 2, 1), "b");
  EXPECT_EQ(mid("abc", 9), "");
  EXPECT_EQ(right("abc", 5), "abc");
  EXPECT_EQ(inStr("", ""), 0);
  EXPECT_EQ(inStr("abc", ""), 1);
  EXPECT_EQ(inStr(3, "abcab", "ab"), 4);
  EXPECT_EQ(inStrRev("abcab", "ab"), 4);
  EXPECT_EQ(inStrRev("abcab", "ab", 4), 1);
  EXPECT_THROW(mid("abc", 0), Error);
  EXPECT_THROW(left("abc", -1), Error);
}

TEST(Text, trimTakesBlanksOnly) {
  EXPECT_EQ(trim("  \ta "), "\ta");
  EXPECT_EQ(trim("   "), "");
}

TEST(Text, splitJoinAndLines) {
  EXPECT_TRUE(split("", ",").empty());
  EXPECT_EQ(join(split(",a,,b", ","), "|"), "|a||b");
  EXPECT_EQ(splitLines("a\r\nb\rc\nd\n").size(), 5u);
  EXPECT_EQ(splitLines("").size(), 1u);
  EXPECT_EQ(splitLines("\n\r").size(), 3u);
}

// Line ends at every offset of a word, next to control characters and characters above 127.
TEST(Text, linesEndWhereverTheirEndStands) {
  for (const std::string_view filler : {"x", "\t", "\x0B", "\x8D", "\xFF", "\x01"})
    for (std::size_t length = 0; length < 20; ++length)
      for (const std::string_view end : {"\r\n", "\n", "\r"}) {
        std::string line;
        while (line.size() < length) line += filler;
        const std::string text = line + std::string(end) + line + std::string(end);
        EXPECT_EQ(splitLines(text), (std::vector<std::string_view>{line, line, ""})) << length;
      }
}

struct NumberCase {
  std::string_view text;
  double value;
  bool numeric;
};

class Numbers : public testing::TestWithParam<NumberCase> {};

TEST_P(Numbers, areReadAsTheLanguageReadsThem) {
  EXPECT_EQ(val(GetParam().text), GetParam().value) << GetParam().text;
  EXPECT_EQ(isNumeric(GetParam().text), GetParam().numeric) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Text, Numbers,
                         testing::Values(NumberCase{"12abc", 12, false}, NumberCase{" -1.5 ", -1.5, true},
                                         NumberCase{"&HFF", 255, true}, NumberCase{"&HFFx", 255, false},
                                         NumberCase{"1e3", 1000, true}, NumberCase{"", 0, false},
                                         NumberCase{"inf", 0, false}, NumberCase{"nan", 0, false},
                                         NumberCase{"-", 0, false}, NumberCase{".5", 0.5, true},
                                         NumberCase{"+7", 7, true}));

TEST(Text, truthValuesInAllTheirSpellings) {
  for (const auto* text : {"True", "true", "-1", "1", " 1 "}) EXPECT_TRUE(toBool(text)) << text;
  for (const auto* text : {"False", "0", "", "Not Found"}) EXPECT_FALSE(toBool(text)) << text;
  EXPECT_EQ(toLong("2.5"), 2);
  EXPECT_EQ(toLong("3.5"), 4);
  EXPECT_EQ(toLong("x", 7), 7);
  EXPECT_EQ(numberText(3.0), "3");
  EXPECT_EQ(numberText(-0.25), "-0.25");
}

TEST(CodePages, everyByteSurvivesBothWays) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
  for (const int number : CodePage::numbers()) {
    const CodePage& page = CodePage::get(number);
    EXPECT_EQ(page.fromUtf8(page.toUtf8(bytes)), bytes) << number;
  }
}

TEST(CodePages, refuseWhatTheyCannotHold) {
  const CodePage& page = CodePage::get(1252);
  EXPECT_EQ(page.fromUtf8("Übergröße €"),
            "\xDC"
            "bergr\xF6\xDF"
            "e \x80");
  try {
    page.fromUtf8("a Ж");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "The character \"Ж\" (U+0416) does not exist in code page 1252.");
  }
  for (const auto* text : {"\xC3", "\xFF", "\xC0\x80", "\xED\xA0\x80", "\xE2\x82"})
    EXPECT_THROW(page.fromUtf8(text), Error);
  EXPECT_THROW(CodePage::get(9), Error);
}

TEST(CodePages, caseFollowsTheCodePage) {
  EXPECT_EQ(CodePage::get(1252).upper("\xE4 stra\xDF"
                                      "e"),
            "\xC4 STRA\xDF"
            "E");
  EXPECT_EQ(CodePage::get(1251).lower("\xCF\xF0"), "\xEF\xF0");
  EXPECT_EQ(CodePage::get(1252).proper("\xE9T\xC9 of-the year"), "\xC9t\xE9 Of-the Year");
}

struct DateCase {
  std::string_view text, iso;
};

class Dates : public testing::TestWithParam<DateCase> {};

TEST_P(Dates, areReadAsPeopleWriteThem) {
  const auto moment = parseDate(GetParam().text);
  EXPECT_EQ(moment ? formatDate(*moment, "yyyy-mm-dd hh:nn:ss") : "none", GetParam().iso) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Text, Dates,
                         testing::Values(DateCase{"12 Mar 2003", "2003-03-12 00:00:00"},
                                         DateCase{"March 12, 2003", "2003-03-12 00:00:00"},
                                         DateCase{"Sunday 22 November 2026", "2026-11-22 00:00:00"},
                                         DateCase{"22/11/26 10:20", "2026-11-22 10:20:00"},
                                         DateCase{"11/22/2026", "2026-11-22 00:00:00"},
                                         DateCase{"3/4/1999", "1999-04-03 00:00:00"},
                                         DateCase{"1999-04-03", "1999-04-03 00:00:00"},
                                         DateCase{"12 Mar 03 1:05:09 PM", "2003-03-12 13:05:09"},
                                         DateCase{"31 Feb 2003", "none"}, DateCase{"long ago", "none"},
                                         DateCase{"", "none"}, DateCase{"12", "none"}));

TEST(Dates, formatPatterns) {
  const DateTime moment{2026, 11, 2, 15, 4, 5};
  EXPECT_EQ(formatDate(moment, "dd mmm yyyy"), "02 Nov 2026");
  EXPECT_EQ(formatDate(moment, "dddd dd mmmm yyyy"), "Monday 02 November 2026");
  EXPECT_EQ(formatDate(moment, "d/m/yy h:mm AM/PM"), "2/11/26 3:04 PM");
  EXPECT_EQ(formatDate(moment, "hh:mm:ss \"on\" \\d ddd"), "15:04:05 on d Mon");
  EXPECT_EQ(formatDate(moment, "y"), "306");
}

void lower() {
  ErrorScope scope{"modA", "Lower"};
  throw Error(9);
}

TEST(Errors, collectTheirPath) {
  try {
    ErrorScope scope{"modB", "Upper"};
    try {
      ErrorScope other{"modX", "Tolerated"};
      throw Error(53);
    } catch (const Error&) {
    }
    lower();
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.source(), "KolvaneLite.modA.Lower.modB.Upper");
    EXPECT_STREQ(error.what(), "Subscript out of range");
  }
}

TEST(Signals, handlersMayEndAndBeginWhileRaised) {
  Signal<int> signal;
  std::string seen;
  Subscription second, third;
  const Subscription first = signal.connect([&](int value) {
    seen += "1:" + std::to_string(value) + " ";
    second.reset();
    if (!third) third = signal.connect([&](int) { seen += "3 "; });
  });
  second = signal.connect([&](int) { seen += "2 "; });
  signal.raise(1);
  signal.raise(2);
  EXPECT_EQ(seen, "1:1 1:2 3 ");
}

}  // namespace
}  // namespace kolvane::base
