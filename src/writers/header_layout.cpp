#include "writers/header_layout.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/date_time.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/code_tabs.h"

namespace kolvane::writers {
namespace {

constexpr frame::Option kRuleLength = frame::option("CoNu11");
constexpr frame::Option kLineAfterHeader = frame::option("LAH8");
constexpr frame::Option kBlankLinesInHeader = frame::option("BLInH6");
constexpr frame::Option kDateFormat = frame::option("DefDF17");

// The host's limit for a line.
constexpr long kLongestRule = 1022;

// The other reading of a date of numbers alone, as far as it has one.
base::DateTime monthAndDaySwapped(base::DateTime moment) {
  if (moment.day <= 12) std::swap(moment.day, moment.month);
  return moment;
}

}  // namespace

HeaderValues completed(const frame::Services& services, HeaderValues values) {
  if (base::trim(values.author).empty()) values.author = frame::GetCurrentUser(services);
  values.date = headerDate(services, values.date);
  return values;
}

std::string ruleLine(const frame::Services& services) {
  const long length = frame::numberOf(services, kRuleLength);
  const int count = static_cast<int>(std::clamp(length, 0L, kLongestRule));
  return "'" + base::repeat(source::commentCharacter(services), count);
}

bool showsField(const frame::Services& services, std::string_view label) {
  return std::any_of(frame::kHeaderFields.begin(), frame::kHeaderFields.end(),
                     [&](const frame::TickOption& field) {
                       return field.text == label && services.settings.flag(field.key, field.defaultText);
                     });
}

std::string headerDate(const frame::Services& services, std::string_view date) {
  const std::string format = frame::textOf(services, kDateFormat);
  if (base::trim(date).empty()) return base::formatDate(services.clock.now(), format);
  const auto moment = base::parseDate(date);
  // "05/11/2026" may be May or November: what the user's format gives for either reading stays as it is.
  if (!moment || base::formatDate(monthAndDaySwapped(*moment), format) == date) return std::string(date);
  return base::formatDate(*moment, format);
}

std::vector<std::string> headerLines(const frame::Services& services, const HeaderValues& values) {
  const std::string indent = source::headerIndent(services);
  const std::string character = source::commentCharacter(services);
  const bool spaced = frame::isOn(services, kBlankLinesInHeader);
  std::vector<std::string> lines{indent + ruleLine(services)};
  for (std::size_t i = 0; i < kHeaderValues.size(); ++i) {
    const auto& [label, value] = kHeaderValues[i];
    if (!values.kept[i] && !showsField(services, label)) continue;
    lines.push_back(indent + fieldStart(character, label) + " " + values.*value);
    const bool last = label == kHeaderValues.back().field;
    if (spaced && !last) lines.push_back(indent + "'" + character + " ");
  }
  lines.push_back(indent + ruleLine(services));
  if (frame::isOn(services, kLineAfterHeader)) lines.push_back(indent);
  return lines;
}

std::string headerBlock(const frame::Services& services, const HeaderValues& values) {
  std::vector<std::string> lines = headerLines(services, completed(services, values));
  lines.insert(lines.begin(), source::headerIndent(services));
  return base::join(lines, base::kCrLf);
}

}  // namespace kolvane::writers
