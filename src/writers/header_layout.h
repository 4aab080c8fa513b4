// The layout of a procedure header: its lines, their order, and the settings that they follow.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/option_tables.h"
#include "frame/services.h"
#include "source/code_tabs.h"

namespace kolvane::writers {

// The values of a header. Those of several lines bring the starts of their further lines with them.
struct HeaderValues {
  std::string name;
  std::string parameters;
  std::string returns;
  std::string description;
  std::string author;  // the current user when blank
  std::string calledFrom;
  std::string date;  // the present moment when blank
  std::string note = {};
  std::string history = {};
  // Fields that stand there although they are switched off, in the order of frame::kHeaderFields.
  std::array<bool, frame::kHeaderFields.size()> kept = {};
};

// Where the value of each of frame::kHeaderFields stands.
struct HeaderValue {
  std::string_view field;
  std::string HeaderValues::*value;
};
inline constexpr std::array<HeaderValue, frame::kHeaderFields.size()> kHeaderValues{{
    {"Name", &HeaderValues::name},
    {"Description", &HeaderValues::description},
    {"Parameters", &HeaderValues::parameters},
    {"Returns", &HeaderValues::returns},
    {"Called From", &HeaderValues::calledFrom},
    {"Author", &HeaderValues::author},
    {"Date", &HeaderValues::date},
    {"Note", &HeaderValues::note},
    {"History", &HeaderValues::history},
}};

namespace header_layout_detail {
constexpr bool fieldsAgree() {
  for (std::size_t i = 0; i < kHeaderValues.size(); ++i)
    if (kHeaderValues[i].field != frame::kHeaderFields[i].text) return false;
  return true;
}
}  // namespace header_layout_detail
static_assert(header_layout_detail::fieldsAgree(), "values stand in the order of the fields, top to bottom");

using source::fieldLabel;
using source::fieldStart;
// The apostrophe and the comment character, "CoNu11" times.
std::string ruleLine(const frame::Services& services);
// True when the setting shows the field.
bool showsField(const frame::Services& services, std::string_view label);

// A date as the header shows it: `date` in the user's format when it can be read as one, as it stands when it
// cannot or is in that format already; the present moment when it is blank.
std::string headerDate(const frame::Services& services, std::string_view date);

// The values with author and date filled in where they are blank.
HeaderValues completed(const frame::Services& services, HeaderValues values);

// The block's lines from the upper rule to the blank line below it, with the values as they stand.
std::vector<std::string> headerLines(const frame::Services& services, const HeaderValues& values);

// The whole block, from the blank line above it to the one below; lines are joined by CR LF, none behind the
// last.
std::string headerBlock(const frame::Services& services, const HeaderValues& values);

}  // namespace kolvane::writers
