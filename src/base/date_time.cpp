#include "base/date_time.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "base/text.h"

namespace kolvane::base {
namespace {

constexpr std::array<std::string_view, 12> kMonths{"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kDays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                "Thursday", "Friday", "Saturday"};

bool exists(const DateTime& moment) {
  using namespace std::chrono;
  return year_month_day{year{moment.year}, month{static_cast<unsigned>(moment.month)},
                        day{static_cast<unsigned>(moment.day)}}
             .ok() &&
         moment.year >= 100 && moment.year <= 9999 && moment.hour >= 0 && moment.hour < 24 &&
         moment.minute >= 0 && moment.minute < 60 && moment.second >= 0 && moment.second < 60;
}

std::optional<DateTime> checked(DateTime moment) {
  if (moment.month < 1 || moment.day < 1 || !exists(moment)) return std::nullopt;
  return moment;
}

// Words and numbers of a date's text; separators are dropped but for ":".
struct Token {
  enum class Kind { kNumber, kWord, kColon } kind;
  std::string_view text;
};

std::vector<Token> tokens(std::string_view text) {
  std::vector<Token> all;
  std::size_t i = 0;
  const auto run = [&](auto&& belongs, Token::Kind kind) {
    const std::size_t start = i;
    while (i < text.size() && belongs(text[i])) ++i;
    all.push_back({kind, text.substr(start, i - start)});
  };
  while (i < text.size()) {
    if (isDigit(text[i])) {
      run(isDigit, Token::Kind::kNumber);
    } else if (isAsciiLetter(text[i])) {
      run(isAsciiLetter, Token::Kind::kWord);
    } else if (text[i] == ':') {
      all.push_back({Token::Kind::kColon, text.substr(i++, 1)});
    } else if (std::string_view(" ,./-").find(text[i]) != std::string_view::npos) {
      ++i;
    } else {
      return {};
    }
  }
  return all;
}

// The month that a word names, in full or by at least its first three letters; 0 for any other word.
int monthNamed(std::string_view word) {
  for (std::size_t i = 0; i < kMonths.size(); ++i)
    if (word.size() >= 3 && startsWithNoCase(kMonths[i], word)) return static_cast<int>(i) + 1;
  return 0;
}

bool isDayName(std::string_view word) {
  return std::any_of(kDays.begin(), kDays.end(),
                     [&](std::string_view day) { return word.size() >= 3 && startsWithNoCase(day, word); });
}

// Two digits mean 1930 to 2029, as the run time reads them.
int fullYear(std::string_view digits) {
  const int year = static_cast<int>(toLong(digits));
  return digits.size() > 2 ? year : year < 30 ? 2000 + year : 1900 + year;
}

// "10:20", "10:20:30", with AM or PM behind it; `at` moves behind the time.
bool readTime(const std::vector<Token>& all, std::size_t& at, DateTime& moment) {
  std::array<int, 3> parts{};
  std::size_t count = 0;
  while (count < 3 && at < all.size() && all[at].kind == Token::Kind::kNumber) {
    parts[count++] = static_cast<int>(toLong(all[at++].text));
    if (at >= all.size() || all[at].kind != Token::Kind::kColon) break;
    ++at;
  }
  if (count < 2) return false;
  if (at < all.size() && (equalNoCase(all[at].text, "AM") || equalNoCase(all[at].text, "PM"))) {
    if (parts[0] < 1 || parts[0] > 12) return false;
    parts[0] = parts[0] % 12 + (equalNoCase(all[at].text, "PM") ? 12 : 0);
    ++at;
  }
  moment.hour = parts[0];
  moment.minute = parts[1];
  moment.second = parts[2];
  return true;
}

struct DateParts {
  std::vector<std::string_view> numbers;
  int month = 0;
};

std::optional<DateTime> assemble(const DateParts& parts, DateTime moment) {
  const auto& n = parts.numbers;
  const auto number = [&n](std::size_t i) { return static_cast<int>(toLong(n[i])); };
  if (parts.month > 0) {
    if (n.size() != 2) return std::nullopt;
    const bool yearFirst = n[0].size() > 2;
    moment.month = parts.month;
    moment.day = number(yearFirst ? 1 : 0);
    moment.year = fullYear(n[yearFirst ? 0 : 1]);
    return checked(moment);
  }
  if (n.size() != 3) return std::nullopt;
  if (n[0].size() > 2) {
    moment.year = number(0);
    moment.month = number(1);
    moment.day = number(2);
  } else {
    const bool monthFirst = number(1) > 12;
    moment.day = number(monthFirst ? 1 : 0);
    moment.month = number(monthFirst ? 0 : 1);
    moment.year = fullYear(n[2]);
  }
  return checked(moment);
}

std::string twoDigits(int value) {
  std::array<char, 16> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%02d", value);
  return buffer.data();
}

int dayOfYear(const DateTime& moment) {
  using namespace std::chrono;
  const year_month_day date{year{moment.year}, month{static_cast<unsigned>(moment.month)},
                            day{static_cast<unsigned>(moment.day)}};
  return static_cast<int>(
             (sys_days{date} - sys_days{year_month_day{year{moment.year}, January, day{1}}}).count()) +
         1;
}

std::string dayText(const DateTime& moment, std::size_t length) {
  const std::string_view name = kDays[static_cast<std::size_t>(weekday(moment)) - 1];
  switch (length) {
    case 1:
      return std::to_string(moment.day);
    case 2:
      return twoDigits(moment.day);
    case 3:
      return std::string(name.substr(0, 3));
    default:
      return std::string(name);
  }
}

std::string monthText(const DateTime& moment, std::size_t length) {
  const std::string_view name = kMonths[static_cast<std::size_t>(moment.month) - 1];
  switch (length) {
    case 1:
      return std::to_string(moment.month);
    case 2:
      return twoDigits(moment.month);
    case 3:
      return std::string(name.substr(0, 3));
    default:
      return std::string(name);
  }
}

std::string yearText(const DateTime& moment, std::size_t length) {
  if (length == 1) return std::to_string(dayOfYear(moment));
  return length == 2 ? twoDigits(moment.year % 100) : std::to_string(moment.year);
}

std::string numberText(int value, std::size_t length) {
  return length == 1 ? std::to_string(value) : twoDigits(value);
}

struct HalfDay {
  std::string_view pattern, am, pm;
};
constexpr std::array<HalfDay, 4> kHalfDays{
    {{"AM/PM", "AM", "PM"}, {"am/pm", "am", "pm"}, {"A/P", "A", "P"}, {"a/p", "a", "p"}}};

const HalfDay* halfDayAt(std::string_view pattern) {
  const auto found = std::find_if(kHalfDays.begin(), kHalfDays.end(),
                                  [&](const HalfDay& half) { return pattern.starts_with(half.pattern); });
  return found == kHalfDays.end() ? nullptr : &*found;
}

bool hasHalfDay(std::string_view pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i)
    if (halfDayAt(pattern.substr(i)) != nullptr) return true;
  return false;
}

}  // namespace

int weekday(const DateTime& moment) {
  using namespace std::chrono;
  const std::chrono::weekday day{
      sys_days{year_month_day{year{moment.year}, month{static_cast<unsigned>(moment.month)},
                              std::chrono::day{static_cast<unsigned>(moment.day)}}}};
  return static_cast<int>(day.c_encoding()) + 1;
}

std::optional<DateTime> parseIso(std::string_view text) {
  const std::string copy(text);
  DateTime moment;
  int length = 0;
  if (std::sscanf(copy.c_str(), "%4d-%2d-%2d%n", &moment.year, &moment.month, &moment.day, &length) != 3)
    return std::nullopt;
  if (static_cast<std::size_t>(length) == copy.size()) return checked(moment);
  const char* rest = copy.c_str() + length;
  if ((*rest != 'T' && *rest != ' ') ||
      std::sscanf(rest + 1, "%2d:%2d:%2d%n", &moment.hour, &moment.minute, &moment.second, &length) != 3 ||
      rest[1 + length] != '\0')
    return std::nullopt;
  return checked(moment);
}

std::optional<DateTime> parseDate(std::string_view text) {
  if (const auto iso = parseIso(text)) return iso;
  const std::vector<Token> all = tokens(text);
  DateTime moment;
  DateParts parts;
  for (std::size_t at = 0; at < all.size();) {
    const Token& token = all[at];
    const bool time =
        token.kind == Token::Kind::kNumber && at + 1 < all.size() && all[at + 1].kind == Token::Kind::kColon;
    if (time) {
      if (!readTime(all, at, moment)) return std::nullopt;
      continue;
    }
    if (token.kind == Token::Kind::kNumber) {
      parts.numbers.push_back(token.text);
    } else if (const int month = monthNamed(token.text); month > 0 && parts.month == 0) {
      parts.month = month;
    } else if (!isDayName(token.text)) {
      return std::nullopt;
    }
    ++at;
  }
  return assemble(parts, moment);
}

std::string formatDate(const DateTime& moment, std::string_view pattern) {
  const bool halfDays = hasHalfDay(pattern);
  const int hour = halfDays ? (moment.hour + 11) % 12 + 1 : moment.hour;
  std::string result;
  bool afterHour = false;
  for (std::size_t i = 0; i < pattern.size();) {
    if (const HalfDay* half = halfDayAt(pattern.substr(i))) {
      result += moment.hour < 12 ? half->am : half->pm;
      i += half->pattern.size();
      continue;
    }
    if (pattern[i] == '"') {
      const std::size_t end = std::min(pattern.find('"', i + 1), pattern.size());
      result += pattern.substr(i + 1, end - i - 1);
      i = end + 1;
      continue;
    }
    if (pattern[i] == '\\' && i + 1 < pattern.size()) {
      result += pattern[i + 1];
      i += 2;
      continue;
    }
    const char kind = lCase(pattern.substr(i, 1))[0];
    std::size_t length = 1;
    while (i + length < pattern.size() && lCase(pattern.substr(i + length, 1))[0] == kind) ++length;
    switch (kind) {
      case 'd':
        result += dayText(moment, length);
        break;
      case 'm':
        result += afterHour && length <= 2 ? numberText(moment.minute, length) : monthText(moment, length);
        break;
      case 'y':
        result += yearText(moment, length);
        break;
      case 'h':
        result += numberText(hour, length);
        break;
      case 'n':
        result += numberText(moment.minute, length);
        break;
      case 's':
        result += numberText(moment.second, length);
        break;
      default:
        result += pattern.substr(i, length);
        break;
    }
    if (isAsciiLetter(kind)) afterHour = kind == 'h';
    i += length;
  }
  return result;
}

}  // namespace kolvane::base
