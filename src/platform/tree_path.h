// Paths of the settings tree, as every TreeStore understands them.
#pragma once

#include <string>
#include <string_view>

#include "base/error.h"

namespace kolvane::platform {

// The path without leading, trailing and doubled "\"; empty for the root. A NUL raises 5: no name holds one.
inline std::string normalizedPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos)
    throw base::Error(base::errors::kInvalidCall, "The name of a settings key cannot hold a NUL character.");
  std::string result;
  result.reserve(path.size());
  for (const char c : path)
    if (c != '\\' || (!result.empty() && result.back() != '\\')) result.push_back(c);
  if (!result.empty() && result.back() == '\\') result.pop_back();
  return result;
}

// The path of the key that holds this one; empty for a key at the top. `path` is normalized.
inline std::string_view parentPath(std::string_view path) {
  const std::size_t last = path.rfind('\\');
  return last == std::string_view::npos ? std::string_view() : path.substr(0, last);
}

// The key's own name. `path` is normalized.
inline std::string_view leafName(std::string_view path) { return path.substr(path.rfind('\\') + 1); }

inline void checkValueName(std::string_view name) {
  if (name.find('\0') != std::string_view::npos)
    throw base::Error(base::errors::kInvalidCall,
                      "The name of a settings value cannot hold a NUL character.");
}

}  // namespace kolvane::platform
