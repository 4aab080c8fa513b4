// All that the suite remembers between two runs: one tree of text values for each user.
//
// Two ways in: the named values reach the sections below the product's own key, the raw operations reach
// anywhere and can tell a missing value from an empty one ("Not Found"). Texts are in the suite's code page
// here and UTF-8 in the store. Keys and sections compare without case; values keep the order of their first
// creation.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "platform/tree_store.h"

namespace kolvane::frame {

inline constexpr std::string_view SettingsAppName = "KolvaneLite";
inline constexpr std::string_view kNotFound = "Not Found";
inline constexpr std::string_view kAnyProject = "Any Project";
inline constexpr std::string_view kOptions = "Options";
// Path of a section for the raw operations: kSettingsRoot + SettingsAppName + "\" + section.
inline constexpr std::string_view kSettingsRoot = "SOFTWARE\\VB and VBA Program Settings\\";

enum class RegistryRoot : int { kCurrentUser = 0, kLocalMachine = 1 };

struct RegistryValue {
  std::string type;  // as text: "1" string, "3" binary, "4" number
  std::string name;
  std::string data;  // "Not Found" past the end
};

class Settings {
 public:
  using Rows = std::vector<std::pair<std::string, std::string>>;

  // Both must outlive the object.
  Settings(platform::TreeStore& store, const base::CodePage& codePage) : store_(store), codePage_(codePage) {}

  // ---- named values: section and key below the product's own key
  std::string GetSetting(std::string_view section, std::string_view key,
                         std::string_view fallback = {}) const;
  void SaveSetting(std::string_view section, std::string_view key, std::string_view text);
  // Key and value in stored order; no rows for a missing or empty section.
  Rows GetAllSettings(std::string_view section) const;
  // A missing section or value raises 5.
  void DeleteSetting(std::string_view section);
  void DeleteSetting(std::string_view section, std::string_view key);

  // ---- raw operations; reads never raise for what is missing
  std::string ReadRegistryValue(RegistryRoot root, std::string_view path, std::string_view name) const;
  // Type 4 writes a number, everything else a string.
  void WriteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name, int type,
                          std::string_view value);
  // The index counts from 0 and is not advanced.
  std::string EnumRegistryKey(RegistryRoot root, std::string_view path, int index) const;
  RegistryValue EnumRegistryValue(RegistryRoot root, std::string_view path, int index) const;
  // Removes a key that has no subkeys; one that has them stays.
  void DeleteRegistryKey(RegistryRoot root, std::string_view path);
  void DeleteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name);

  // ---- conveniences over section "Options"
  std::string option(std::string_view key, std::string_view fallback = {}) const {
    return GetSetting(kOptions, key, fallback);
  }
  bool flag(std::string_view key, std::string_view fallback = {}) const;    // base::toBool of option()
  long number(std::string_view key, std::string_view fallback = {}) const;  // base::toLong of option()

  platform::TreeStore& store() const { return store_; }
  const base::CodePage& codePage() const { return codePage_; }

 private:
  platform::TreeStore& store_;
  const base::CodePage& codePage_;
};

}  // namespace kolvane::frame
