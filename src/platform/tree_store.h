// The physical store of the settings tree: keys that hold keys and named text values, both in the order of
// their first creation. Paths are key names joined by "\"; key and value names compare without ASCII case.
// Texts are UTF-8.
//
// Safe under several processes that write at once: every call is one transaction, and update() makes one of
// many. A process that is killed leaves the state before or after its transaction.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"

namespace kolvane::platform {

// 321: what a store keeps its values in holds something else, or part of it is lost. It was left as it stands.
class StoreDamaged final : public base::Error {
 public:
  explicit StoreDamaged(std::string_view description)
      : base::Error(base::errors::kInvalidFormat, description) {}
};

// A value's kind, as the raw operations report it.
enum class ValueType : int { kString = 1, kBinary = 3, kNumber = 4 };

struct StoredValue {
  std::string name;
  ValueType type = ValueType::kString;
  std::string text;
};

class TreeStore {
 public:
  virtual ~TreeStore() = default;

  virtual std::optional<StoredValue> read(const std::string& path, const std::string& name) = 0;
  // Creates the key and its parents as needed. An existing value keeps its place.
  virtual void write(const std::string& path, const StoredValue& value) = 0;
  virtual std::vector<StoredValue> values(const std::string& path) = 0;
  virtual std::vector<std::string> keys(const std::string& path) = 0;
  virtual bool keyExists(const std::string& path) = 0;
  // Removes a key with all below it; false when it was not there.
  virtual bool removeKey(const std::string& path) = 0;
  virtual bool removeValue(const std::string& path, const std::string& name) = 0;
  // Runs `work` as one transaction; an exception from it undoes all of it. Calls may nest.
  virtual void update(const std::function<void()>& work) = 0;
};

}  // namespace kolvane::platform
