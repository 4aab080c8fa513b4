#include "source/sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "base/text.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

using List = std::vector<std::string>;

int last(const List& list) { return static_cast<int>(list.size()) - 1; }

// The algorithm of all four sorts told step by step, without regard to cost.
struct PlainSort {
  platform::Random& random;
  std::function<std::string(const std::string&)> key;
  std::function<bool(const std::string&)> stops;

  void operator()(List& list, int min, int max) {
    const auto at = [&list](int index) -> std::string& { return list[static_cast<std::size_t>(index)]; };
    if (min >= max) return;
    const int i = static_cast<int>(std::floor((max - min + 1) * static_cast<double>(random.next()) + min));
    const std::string pivot = at(i);
    at(i) = at(min);
    int lo = min;
    int hi = max;
    while (true) {
      while (key(at(hi)) >= key(pivot) && !stops(at(hi)))
        if (--hi <= lo) break;
      if (hi <= lo) {
        at(lo) = pivot;
        break;
      }
      at(lo) = at(hi);
      ++lo;
      while (key(at(lo)) < key(pivot) && !stops(at(lo)))
        if (++lo >= hi) break;
      if (lo >= hi) {
        lo = hi;
        at(hi) = pivot;
        break;
      }
      at(hi) = at(lo);
    }
    (*this)(list, min, lo - 1);
    (*this)(list, lo + 1, max);
  }
};

// Lines as they stand in code: few distinct texts, various indentation and case, some blank.
List someLines(std::mt19937& generator, int count) {
  constexpr std::string_view kTexts[] = {"Dim x As Long", "dim X As long", "x = 1",    "End If",
                                         "'note",         "Zeta",          "\xE9t\xE9"};
  List list;
  for (int i = 0; i < count; ++i) {
    std::string line(generator() % 4, ' ');
    if (generator() % 5 != 0) line += kTexts[generator() % std::size(kTexts)];
    list.push_back(line);
  }
  return list;
}

TEST(Sorting, EverySortGivesTheOrderOfThePlainAlgorithm) {
  test::TestHost host;
  const frame::Services& services = host.services();
  const auto never = [](const std::string&) { return false; };
  const auto upper = [&](const std::string& text) { return services.codePage.upper(text); };
  const auto trimmed = [](const std::string& text) { return std::string(base::lTrim(text)); };
  const auto blank = [](const std::string& text) { return base::trim(text).empty(); };
  std::mt19937 generator(7);
  for (int round = 0; round < 300; ++round) {
    const List list = someLines(generator, static_cast<int>(generator() % 40));
    const auto expectSame = [&](PlainSort plain, const std::function<void(List&)>& sort) {
      platform::Random fromHere = services.random;
      plain.random = fromHere;
      List expected = list;
      PlainSort{fromHere, plain.key, plain.stops}(expected, 0, last(expected));
      List actual = list;
      sort(actual);
      ASSERT_EQ(actual, expected);
    };
    const auto identity = [](const std::string& text) { return text; };
    expectSame({services.random, identity, never}, [&](List& l) { QuickSort(services, l, 0, last(l)); });
    expectSame({services.random, upper, never},
               [&](List& l) { QuickInsensitiveSort(services, l, 0, last(l)); });
    expectSame({services.random, trimmed, blank},
               [&](List& l) { QuickTrimmedSort(services, l, 0, last(l)); });
  }
}

TEST(Sorting, SortsOnlyTheRangeGiven) {
  test::TestHost host;
  List list{"d", "c", "b", "a", "0"};
  QuickSort(host.services(), list, 1, 3);
  EXPECT_EQ(list, (List{"d", "a", "b", "c", "0"}));
  QuickSort(host.services(), list, 2, 2);
  QuickSort(host.services(), list, 0, -1);
  EXPECT_EQ(list, (List{"d", "a", "b", "c", "0"}));
  EXPECT_ANY_THROW(QuickSort(host.services(), list, 0, 5));
}

TEST(Sorting, ATableIsSortedByItsPages) {
  test::TestHost host;
  List rows{"<TR>(modB) Procedure (zoom).html", "<TR>(modC) Procedure (Add).html",
            "<TR>(modA) Procedure (move).html"};
  QuickSort_Table(host.services(), rows, 0, 2, "Procedure");
  EXPECT_EQ(rows[0], "<TR>(modC) Procedure (Add).html");
  EXPECT_EQ(rows[1], "<TR>(modA) Procedure (move).html");
}

// Each of these would take hours, or the stack, if the sort looked at everything again for every element.
TEST(Sorting, LongListsOfAnyShape) {
  constexpr int kCount = 100'000;
  test::TestHost host;
  const auto texts = [](const std::function<std::string(int)>& text) {
    List list;
    for (int i = 0; i < kCount; ++i) list.push_back(text(i));
    return list;
  };
  const auto numbered = [](int number) { return std::to_string(1'000'000 + number); };
  for (const List& list :
       {texts(numbered), texts([&](int i) { return numbered(kCount - i); }),
        texts([](int) { return "End If"; }), texts([](int i) { return i == 7 ? "b" : "a"; }),
        texts([](int i) { return std::to_string(i % 3); })}) {
    List sorted = list;
    QuickSort(host.services(), sorted, 0, last(sorted));
    EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
    List trimmed = list;
    QuickTrimmedSort(host.services(), trimmed, 0, last(trimmed));
    EXPECT_EQ(trimmed, sorted);
  }
  List half = texts([](int i) { return i % 2 == 0 ? std::string() : "End If"; });
  QuickTrimmedSort(host.services(), half, 0, last(half));
  EXPECT_EQ(std::count(half.begin(), half.end(), ""), kCount / 2);
}

}  // namespace
}  // namespace kolvane::source
