// The two kinds of JSON values here.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace kolvane::automation {

// What is answered: members stand in the order in which they were added.
using Json = nlohmann::ordered_json;
// What was asked: members are found fast, however many there are.
using Input = nlohmann::json;

// As one line. Bytes that are no UTF-8 become the replacement character.
template <class Value>
std::string lineOf(const Value& value) {
  return value.dump(-1, ' ', false, Value::error_handler_t::replace);
}

}  // namespace kolvane::automation
