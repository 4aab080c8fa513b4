#include "platform/memory_tree_store.h"

#include <algorithm>
#include <utility>

#include "platform/tree_path.h"

namespace kolvane::platform {
namespace {

// Texts by the number of their creation.
template <typename Item>
using Ordered = std::vector<std::pair<std::uint64_t, Item>>;

template <typename Item>
std::vector<Item> inOrder(Ordered<Item> items) {
  std::sort(items.begin(), items.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Item> result;
  result.reserve(items.size());
  for (auto& [order, item] : items) result.push_back(std::move(item));
  return result;
}

}  // namespace

MemoryTreeStore::Key& MemoryTreeStore::ensureKey(const std::string& path) {
  if (const auto found = keys_.find(path); found != keys_.end()) return found->second;
  ensureKey(std::string(parentPath(path)));
  return keys_.emplace(path, Key{++created_, {}}).first->second;
}

std::optional<StoredValue> MemoryTreeStore::read(const std::string& path, const std::string& name) {
  checkValueName(name);
  const auto key = keys_.find(normalizedPath(path));
  if (key == keys_.end()) return std::nullopt;
  const auto value = key->second.values.find(name);
  if (value == key->second.values.end()) return std::nullopt;
  return value->second.stored;
}

void MemoryTreeStore::write(const std::string& path, const StoredValue& value) {
  checkValueName(value.name);
  auto& values = ensureKey(normalizedPath(path)).values;
  if (const auto found = values.find(value.name); found != values.end()) {
    found->second.stored.type = value.type;
    found->second.stored.text = value.text;
    return;
  }
  values.emplace(value.name, Value{++created_, value});
}

std::vector<StoredValue> MemoryTreeStore::values(const std::string& path) {
  const auto key = keys_.find(normalizedPath(path));
  if (key == keys_.end()) return {};
  Ordered<StoredValue> found;
  for (const auto& [name, value] : key->second.values) found.emplace_back(value.order, value.stored);
  return inOrder(std::move(found));
}

std::vector<std::string> MemoryTreeStore::keys(const std::string& path) {
  const std::string parent = normalizedPath(path);
  const std::string prefix = parent.empty() ? parent : parent + '\\';
  Ordered<std::string> found;
  for (auto at = keys_.lower_bound(prefix); at != keys_.end(); ++at) {
    if (!base::startsWithNoCase(at->first, prefix)) break;
    const std::string name = at->first.substr(prefix.size());
    if (!name.empty() && name.find('\\') == std::string::npos) found.emplace_back(at->second.order, name);
  }
  return inOrder(std::move(found));
}

bool MemoryTreeStore::keyExists(const std::string& path) { return keys_.contains(normalizedPath(path)); }

bool MemoryTreeStore::removeKey(const std::string& path) {
  const std::string key = normalizedPath(path);
  if (key.empty()) {
    keys_.clear();
    keys_.emplace(key, Key{});
    return true;
  }
  const std::string below = key + '\\';
  const bool existed = keys_.erase(key) > 0;
  auto last = keys_.lower_bound(below);
  const auto first = last;
  while (last != keys_.end() && base::startsWithNoCase(last->first, below)) ++last;
  keys_.erase(first, last);
  return existed;
}

bool MemoryTreeStore::removeValue(const std::string& path, const std::string& name) {
  checkValueName(name);
  const auto key = keys_.find(normalizedPath(path));
  return key != keys_.end() && key->second.values.erase(name) > 0;
}

void MemoryTreeStore::update(const std::function<void()>& work) {
  Keys before = keys_;
  try {
    work();
  } catch (...) {
    keys_.swap(before);
    throw;
  }
}

}  // namespace kolvane::platform
