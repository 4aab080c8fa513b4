// Texts of the code page, and numbers, as JSON.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

#include "automation/json.h"
#include "automation/session.h"

namespace kolvane::automation {

inline std::string textOf(const Session& session, std::string_view bytes) {
  return session.codePage().toUtf8(bytes);
}

template <class Texts>
Json textsOf(const Session& session, const Texts& texts) {
  Json list = Json::array();
  for (const auto& text : texts) list.push_back(textOf(session, text));
  return list;
}

// Whole numbers without a fraction.
inline Json numberOf(double value) {
  if (std::floor(value) == value && std::abs(value) < 1e15) return static_cast<long>(value);
  return value;
}

}  // namespace kolvane::automation
