// A moment of local time, and the language's Format patterns for it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kolvane::base {

// Local calendar time without zone. Fields are in their usual ranges (month 1 to 12, hour 0 to 23).
struct DateTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;

  auto operator<=>(const DateTime&) const = default;
};

// Sunday is 1, as in the language.
int weekday(const DateTime& moment);

// "2026-11-22T10:20:30" or "2026-11-22"; nothing for any other text or a day that does not exist.
std::optional<DateTime> parseIso(std::string_view text);

// A date as people and headers write it ("12 Mar 2003", "Sunday 22 November 2026", "22/11/2026", ISO).
// Numbers alone are read day first, month first only where the second number cannot be a month. A year of two
// digits means 1930 to 2029. Nothing when no date can be read.
std::optional<DateTime> parseDate(std::string_view text);

// Patterns: d dd ddd dddd, m mm mmm mmmm (minutes directly behind h or hh), yy yyyy, h hh, n nn, s ss, AM/PM,
// am/pm, "quoted" and \escaped text; everything else stands for itself. English names.
std::string formatDate(const DateTime& moment, std::string_view pattern);

}  // namespace kolvane::base
