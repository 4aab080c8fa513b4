// The parameters of a request that have passed the method table's check.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "automation/json.h"

namespace kolvane::automation {

// Only parameters of the method's row may be asked for, as the kind that stands there. Texts are in the code
// page, or UTF-8 where the row says so.
class Arguments {
 public:
  explicit Arguments(const Input& params) : params_(params) {}

  bool has(std::string_view name) const { return params_.contains(name); }
  const Input& at(std::string_view name) const { return *params_.find(name); }

  std::string text(std::string_view name, std::string_view fallback = {}) const {
    return has(name) ? at(name).get<std::string>() : std::string(fallback);
  }
  std::optional<std::string> optionalText(std::string_view name) const {
    return has(name) ? std::optional(at(name).get<std::string>()) : std::nullopt;
  }
  int whole(std::string_view name, int fallback = 0) const {
    return has(name) ? at(name).get<int>() : fallback;
  }
  bool truth(std::string_view name, bool fallback = false) const {
    return has(name) ? at(name).get<bool>() : fallback;
  }

 private:
  const Input& params_;
};

}  // namespace kolvane::automation
