// All that the suite remembers between two runs: one tree of text values for each user.
//
// Two ways in: the named values reach the sections below the product's own key, the raw operations reach
// anywhere and can tell a missing value from an empty one ("Not Found"). Texts are in the suite's code page
// here and UTF-8 in the store; one that the code page cannot hold raises 5 (a raw read calls it missing).
// Keys and sections compare without case; values keep the order of their first creation. Errors of the store
// pass through, save from raw reads.
#pragma once

#include <optional>
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

// Each root has a key of its own at the top of the store.
enum class RegistryRoot : int { kCurrentUser = 0, kLocalMachine = 1 };
inline constexpr std::string_view kCurrentUserKey = "HKEY_CURRENT_USER";
inline constexpr std::string_view kLocalMachineKey = "HKEY_LOCAL_MACHINE";

// A raw read's buffer: a text of this many bytes does not fit, as its end takes one.
inline constexpr std::size_t kRegistryBuffer = 2048;

struct RegistryValue {
  std::string type;  // as text: "1" string, "3" binary, "4" number
  std::string name;  // "Not Found" past the end
  std::string data;  // "Not Found" past the end, and for a text that does not fit
};

// The path of a section for the raw operations.
std::string sectionPath(std::string_view section);

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

  // ---- raw operations; reads never raise
  // A number comes with three digits at least ("007"), a binary value as pairs of hexadecimal digits.
  std::string ReadRegistryValue(RegistryRoot root, std::string_view path, std::string_view name) const;
  // Type 4 writes a number of 32 bits, everything else a string.
  void WriteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name, int type,
                          std::string_view value);
  // The index counts from 0 and is not advanced. Walking a key from 0 upwards reads it once.
  std::string EnumRegistryKey(RegistryRoot root, std::string_view path, int index) const;
  RegistryValue EnumRegistryValue(RegistryRoot root, std::string_view path, int index) const;
  // Removes a key that has no subkeys; one that has them stays.
  void DeleteRegistryKey(RegistryRoot root, std::string_view path);
  // Removes a key with all below it; nothing happens when there is none.
  void DeleteRegistryTree(RegistryRoot root, std::string_view path);
  void DeleteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name);

  // ---- whole keys at once, in stored order, without the limit of the raw reads; nothing for a missing key
  std::vector<std::string> keyNames(RegistryRoot root, std::string_view path) const;
  // Values as the raw operations format them.
  std::vector<RegistryValue> values(RegistryRoot root, std::string_view path) const;

  // ---- conveniences over section "Options"
  std::string option(std::string_view key, std::string_view fallback = {}) const {
    return GetSetting(kOptions, key, fallback);
  }
  void saveOption(std::string_view key, std::string_view text) { SaveSetting(kOptions, key, text); }
  bool flag(std::string_view key, std::string_view fallback = {}) const;    // base::toBool of option()
  long number(std::string_view key, std::string_view fallback = {}) const;  // base::toLong of option()

  // Deletes what may be missing; false when it was.
  bool deleteIfPresent(std::string_view section);
  bool deleteIfPresent(std::string_view section, std::string_view key);

  platform::TreeStore& store() const { return store_; }
  const base::CodePage& codePage() const { return codePage_; }

 private:
  // The key that is being walked by index.
  struct Walk {
    // Whether the walk goes on at this index or has to read its key (again).
    bool goesOn(const std::string& key, int next) const;

    std::string path;
    int index = -1;
  };
  // Ends the walks that a change at this key would leave behind the times.
  void changed(const std::string& path);

  std::string storePath(RegistryRoot root, std::string_view path) const;
  std::string sectionStorePath(std::string_view section) const;
  RegistryValue formatted(const platform::StoredValue& value) const;

  platform::TreeStore& store_;
  const base::CodePage& codePage_;
  mutable Walk keyWalk_;
  mutable std::vector<std::string> walkedKeys_;
  mutable Walk valueWalk_;
  mutable std::vector<platform::StoredValue> walkedValues_;
};

}  // namespace kolvane::frame
