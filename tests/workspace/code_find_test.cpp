// Find: ranges, whole words, letter case and the pattern language; and all of it against a slow search that
// is plain to see.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

#include "adapters/system/iconv_code_pages.h"
#include "base/error.h"
#include "code_support.h"

namespace kolvane::test {
namespace {

using frame::TextRange;

constexpr TextRange kAll{1, 1, -1, -1};

std::string shown(bool found, const TextRange& r) {
  if (!found) return "-";
  return std::to_string(r.startLine) + ":" + std::to_string(r.startColumn) + ".." +
         std::to_string(r.endLine) + ":" + std::to_string(r.endColumn);
}

struct Options {
  bool wholeWord = false;
  bool matchCase = false;
  bool pattern = false;
};

constexpr Options kWord{true, false, false}, kCase{false, true, false}, kPattern{false, false, true},
    kWordPattern{true, false, true};

std::string found(const CodeText& code, std::string_view target, Options options = {},
                  TextRange range = kAll) {
  const TextRange before = range;
  const bool hit = code.find(target, range, options.wholeWord, options.matchCase, options.pattern);
  if (!hit) {
    EXPECT_EQ(range, before) << "the range of a failed search changed";
  }
  return shown(hit, range);
}

const CodeText& sample() {
  static const CodeText code = load(
      "Dim strName As String ' the Name\n"
      "    strName = \"name_1\" & Name$ & x\n"
      "\n"
      "' \xC4rger, stra\xDF"
      "e\n"
      "Call Name(a[1], b*2, c?3)\n");
  return code;
}

TEST(CodeFind, PlainText) {
  EXPECT_EQ(found(sample(), "NAME"), "1:8..1:12");
  EXPECT_EQ(found(sample(), "name", kCase), "2:16..2:20");
  EXPECT_EQ(found(sample(), "name", kWord), "1:29..1:33");
  EXPECT_EQ(found(sample(), "Name", kWord, {2, 1, -1, -1}), "2:26..2:30") << "a type suffix ends a word";
  EXPECT_EQ(found(sample(), "\xE4RGER"), "4:3..4:8");
  EXPECT_EQ(found(sample(), "stra", kWord), "-") << "a letter above 127 belongs to the word";
  EXPECT_EQ(found(sample(), "x"), "2:34..2:35");
  EXPECT_EQ(found(sample(), "absent"), "-");
  EXPECT_EQ(found(sample(), "x\r\n"), "-");
  EXPECT_EQ(found(load(""), "x"), "-");
}

TEST(CodeFind, Ranges) {
  EXPECT_EQ(found(sample(), "Name", {}, {0, -3, 1, 11}), "1:8..1:12") << "the end column is searched too";
  EXPECT_EQ(found(sample(), "Name", {}, {1, 8, 1, 10}), "-") << "a match lies wholly inside";
  EXPECT_EQ(found(sample(), "Name", {}, {1, 9, 1, -1}), "1:29..1:33");
  EXPECT_EQ(found(sample(), "Name", {}, {1, 30, 2, 1}), "-");
  EXPECT_EQ(found(sample(), "Name", {}, {1, 500, 99, 1}), "2:8..2:12");
  EXPECT_EQ(found(sample(), "Name", {}, {6, 1, -1, -1}), "-");
  EXPECT_EQ(found(sample(), "Name", {}, {3, 1, 2, -1}), "-");
  EXPECT_EQ(found(sample(), "Name", {}, {1, 1, 0, -1}), "-");
  EXPECT_EQ(found(sample(), "Call*", kPattern, {5, 1, 5, 8}), "5:1..5:9");
}

TEST(CodeFind, GoingOnFindsEveryOccurrence) {
  std::string hits;
  TextRange range = kAll;
  while (sample().find("name", range, false, false, false)) {
    hits += shown(true, range) + " ";
    range = {range.endLine, range.endColumn, -1, -1};
  }
  EXPECT_EQ(hits, "1:8..1:12 1:29..1:33 2:8..2:12 2:16..2:20 2:26..2:30 5:6..5:10 ");
}

TEST(CodeFind, Patterns) {
  const struct {
    std::string_view pattern, found;
  } cases[] = {
      {"str????", "1:5..1:12"},
      {"d*s", "1:1..1:17"},  // greedy within the line
      {"_#", "2:20..2:22"},
      {"[0-9]", "2:21..2:22"},
      {"na[!m]*", "-"},
      {"name[!_ ]", "2:26..2:31"},
      {"[*]2", "5:18..5:20"},
      {"[?]3", "5:23..5:25"},
      {"a[[]1]", "5:11..5:15"},
      {"[]x[]", "2:34..2:35"},  // an empty list stands for nothing
      {"[!]2", "-"},
      {"[-x] *", "-"},
      {"[A-c]all", "5:1..5:5"},
      {"[\xC4]rger", "4:3..4:8"},
      {"*call*", "5:1..5:26"},
      {"* = *_1*&*x", "2:1..2:35"},
      {"*", "1:1..1:33"},
  };
  for (const auto& c : cases) EXPECT_EQ(found(sample(), c.pattern, kPattern), c.found) << c.pattern;
  EXPECT_EQ(found(sample(), "n*e", kWordPattern), "1:29..1:33");
  EXPECT_EQ(found(sample(), "*", kPattern, {3, 1, 3, -1}), "-") << "a match has a character";
}

TEST(CodeFind, Errors) {
  const auto errorOf = [](std::string_view target, Options options) {
    try {
      found(sample(), target, options);
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0L;
  };
  EXPECT_EQ(errorOf("", {}), base::errors::kInvalidCall);
  EXPECT_EQ(errorOf("x", {false, true, true}), base::errors::kInvalidCall);
  EXPECT_EQ(errorOf("a[bc", kPattern), base::errors::kInvalidPattern);
  EXPECT_EQ(errorOf("[z-a]", kPattern), base::errors::kInvalidPattern);
  EXPECT_EQ(errorOf("a[bc", {}), 0);
}

TEST(CodeFind, HiddenAndEditedLines) {
  CodeText code =
      load("Sub Aim()\nAttribute Aim.VB_Description = \"target\"\n  x = 1\n  y = target\nEnd Sub\n");
  EXPECT_EQ(found(code, "target"), "3:7..3:13");
  code.insertLines(2, "  ' target\n  a");
  code.deleteLines(5, 1);
  EXPECT_EQ(found(code, "target"), "2:5..2:11");
  EXPECT_EQ(found(code, "target", {}, {2, 6, -1, -1}), "-");
}

// A text and a target that repeat themselves: must end soon, see also the search for short texts below.
TEST(CodeFind, RepeatedText) {
  const std::string line(3'000'000, 'a');
  const CodeText code = load(line);
  EXPECT_EQ(found(code, line.substr(0, 20'000) + "b"), "-");
  EXPECT_EQ(found(code, "b" + line.substr(0, 20'000)), "-");
  EXPECT_EQ(found(code, line.substr(0, 20'000), kWord), "-");
  EXPECT_EQ(found(code, "a*b*a*b*a*b*a*b*c", kPattern), "-");
}

bool isWord(char c) { return base::isWordCharacter(c); }

char lower(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const bool upper = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
  return upper ? static_cast<char>(byte + 32) : c;
}

// The longest match of a pattern at the start of a text, by trying all ways. Without lists.
std::optional<std::size_t> matchLength(std::string_view pattern, std::string_view text, bool literal,
                                       bool matchCase) {
  if (pattern.empty()) return 0;
  if (!literal && pattern[0] == '*') {
    for (std::size_t skip = text.size() + 1; skip-- > 0;)
      if (const auto rest = matchLength(pattern.substr(1), text.substr(skip), literal, matchCase))
        return skip + *rest;
    return std::nullopt;
  }
  if (text.empty()) return std::nullopt;
  const bool fits = !literal && pattern[0] == '?'   ? true
                    : !literal && pattern[0] == '#' ? base::isDigit(text[0])
                    : matchCase                     ? pattern[0] == text[0]
                                                    : lower(pattern[0]) == lower(text[0]);
  if (!fits) return std::nullopt;
  const auto rest = matchLength(pattern.substr(1), text.substr(1), literal, matchCase);
  return rest ? std::optional(*rest + 1) : std::nullopt;
}

std::string foundSlowly(const CodeText& code, std::string_view target, Options o, const TextRange& range) {
  for (int line = range.startLine; line <= std::min(range.endLine, code.countOfLines()); ++line) {
    const std::string_view text = code.line(line);
    const std::size_t from = line == range.startLine ? static_cast<std::size_t>(range.startColumn) - 1 : 0;
    const std::size_t to = line == range.endLine
                               ? std::min(text.size(), static_cast<std::size_t>(range.endColumn))
                               : text.size();
    for (std::size_t at = from; at < to; ++at) {
      if (o.wholeWord && at > 0 && isWord(text[at - 1])) continue;
      for (std::size_t end = to; end > at; --end) {
        if (o.wholeWord && end < text.size() && isWord(text[end])) continue;
        const auto length = matchLength(target, text.substr(at, end - at), !o.pattern, o.matchCase);
        if (length != end - at) continue;
        return shown(true, {line, static_cast<int>(at) + 1, line, static_cast<int>(end) + 1});
      }
    }
  }
  return "-";
}

TEST(CodeFind, AgreesWithTheSlowSearch) {
  std::mt19937 random(2024);
  const auto below = [&random](std::size_t count) { return random() % count; };
  const auto text = [&](std::string_view letters, std::size_t longest) {
    std::string result;
    for (std::size_t i = below(longest + 1); i > 0; --i) result += letters[below(letters.size())];
    return result;
  };
  for (int round = 0; round < 3000; ++round) {
    std::string module;
    for (std::size_t i = below(8); i > 0; --i)
      module += text("aAbB_1 .\xC4\xE4\xD7\xF7", below(10) == 0 ? 300 : 20) + "\n";
    CodeText code = load(module);
    if (code.countOfLines() > 1 && below(2) == 0) code.replaceLine(2, text("aAbB_1 .", 20));
    const Options options{below(2) == 0, false, below(2) == 0};
    const Options withCase{options.wholeWord, !options.pattern && below(2) == 0, options.pattern};
    const std::string target = options.pattern ? text("aAb1?#**", 5) : text("aAbB1_ \xC4\xE4\xF7", 4);
    if (target.empty()) continue;
    const TextRange range{1 + static_cast<int>(below(3)), 1 + static_cast<int>(below(12)),
                          static_cast<int>(below(9)), static_cast<int>(below(25))};
    EXPECT_EQ(found(code, target, withCase, range), foundSlowly(code, target, withCase, range))
        << module << "target " << target << " word " << options.wholeWord << " pattern " << options.pattern;
  }
}

// The second byte of a character may be that of an ASCII letter or sign.
TEST(CodeFind, DoubleByteCharactersAreWhole) {
  const auto pages = adapters::makeIconvCodePages();
  const base::CodePage& page = pages->get(932);
  const CodeText code = load(page.fromUtf8("x = \"ア\" & ソA & Ab\n' ャ 表 ab\n"));
  const auto at = [&](std::string_view target, bool wholeWord) {
    TextRange range = kAll;
    const bool hit = code.find(page.fromUtf8(target), range, wholeWord, false, false, page);
    return shown(hit, range);
  };
  EXPECT_EQ(at("A", false), "1:14..1:15") << "not within ア, 83 41";
  EXPECT_EQ(at("ャ", false), "2:3..2:5") << "83 61 is no lower case of 83 41";
  EXPECT_EQ(at("\\", false), shown(false, kAll)) << "not within ソ, 83 5C, or 表, 95 5C";
  EXPECT_EQ(at("a", true), shown(false, kAll)) << "ソ is a letter";
  EXPECT_EQ(at("AB", true), "1:18..1:20");
}

}  // namespace
}  // namespace kolvane::test
