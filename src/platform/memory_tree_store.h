// A settings tree that lives in memory, for tests and for sessions that leave nothing behind.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/text.h"
#include "platform/tree_store.h"

namespace kolvane::platform {

// update() copies the tree first, so its cost grows with all that is stored.
class MemoryTreeStore final : public TreeStore {
 public:
  MemoryTreeStore() { keys_.emplace(std::string(), Key{}); }

  std::optional<StoredValue> read(const std::string& path, const std::string& name) override;
  void write(const std::string& path, const StoredValue& value) override;
  std::vector<StoredValue> values(const std::string& path) override;
  std::vector<std::string> keys(const std::string& path) override;
  bool keyExists(const std::string& path) override;
  bool removeKey(const std::string& path) override;
  bool removeValue(const std::string& path, const std::string& name) override;
  void update(const std::function<void()>& work) override;

 private:
  struct Value {
    std::uint64_t order = 0;
    StoredValue stored;
  };
  struct Key {
    std::uint64_t order = 0;
    std::map<std::string, Value, base::LessNoCase> values;
  };
  using Keys = std::map<std::string, Key, base::LessNoCase>;  // by whole path; the root is ""

  Key& ensureKey(const std::string& path);

  Keys keys_;
  std::uint64_t created_ = 0;
};

}  // namespace kolvane::platform
