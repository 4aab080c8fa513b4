// Options of section "Options", read with the default of their row in the option tables.
#pragma once

#include <string>
#include <string_view>

#include "frame/option_tables.h"
#include "frame/services.h"

namespace kolvane::frame {

struct Option {
  std::string_view key;
  std::string_view defaultText;
};

// The option of a key of the general options, the header fields or the tools' options. Another key does not
// compile.
consteval Option option(std::string_view key) {
  for (const auto& row : kGeneralOptions)
    if (row.key == key) return {row.key, row.defaultText};
  for (const auto& row : kHeaderFields)
    if (row.key == key) return {row.key, row.defaultText};
  for (const auto& row : kToolOptions)
    if (row.key == key) return {row.key, row.defaultText};
  throw "no such option";
}

// Read afresh at each call.
inline std::string textOf(const Services& services, const Option& option) {
  return services.settings.option(option.key, option.defaultText);
}
inline bool isOn(const Services& services, const Option& option) {
  return services.settings.flag(option.key, option.defaultText);
}
inline long numberOf(const Services& services, const Option& option) {
  return services.settings.number(option.key, option.defaultText);
}

}  // namespace kolvane::frame
