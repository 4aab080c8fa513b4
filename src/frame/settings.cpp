#include "frame/settings.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/tree_path.h"

namespace kolvane::frame {
namespace {

using base::Error;
using platform::StoredValue;
using platform::ValueType;

// As Format(number, "000") prints it.
std::string threeDigits(long number) {
  const std::string digits = std::to_string(number < 0 ? -number : number);
  const std::string zeros = base::repeat('0', 3 - static_cast<int>(digits.size()));
  return (number < 0 ? "-" : "") + zeros + digits;
}

bool fits(const StoredValue& value, std::string_view data) {
  switch (value.type) {
    case ValueType::kString:
      return data.size() < kRegistryBuffer;
    case ValueType::kBinary:
      return data.size() <= 2 * kRegistryBuffer;
    case ValueType::kNumber:
      break;
  }
  return true;
}

}  // namespace

std::string sectionPath(std::string_view section) {
  std::string path(kSettingsRoot);
  path.append(SettingsAppName);
  if (!section.empty()) path.append("\\").append(section);
  return path;
}

std::string Settings::storePath(RegistryRoot root, std::string_view path) const {
  const std::string_view top = root == RegistryRoot::kCurrentUser ? kCurrentUserKey : kLocalMachineKey;
  return platform::normalizedPath(std::string(top) + '\\' + codePage_.toUtf8(path));
}

std::string Settings::sectionStorePath(std::string_view section) const {
  return storePath(RegistryRoot::kCurrentUser, sectionPath(section));
}

// ---- named values

std::string Settings::GetSetting(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  const auto value = store_.read(sectionStorePath(section), codePage_.toUtf8(key));
  return value ? codePage_.fromUtf8(value->text) : std::string(fallback);
}

void Settings::SaveSetting(std::string_view section, std::string_view key, std::string_view text) {
  const std::string path = sectionStorePath(section);
  store_.write(path, {codePage_.toUtf8(key), ValueType::kString, codePage_.toUtf8(text)});
  changed(path);
}

Settings::Rows Settings::GetAllSettings(std::string_view section) const {
  Rows rows;
  for (const StoredValue& value : store_.values(sectionStorePath(section)))
    rows.emplace_back(codePage_.fromUtf8(value.name), codePage_.fromUtf8(value.text));
  return rows;
}

void Settings::DeleteSetting(std::string_view section) {
  if (!deleteIfPresent(section)) throw Error(base::errors::kInvalidCall);
}

void Settings::DeleteSetting(std::string_view section, std::string_view key) {
  if (!deleteIfPresent(section, key)) throw Error(base::errors::kInvalidCall);
}

bool Settings::deleteIfPresent(std::string_view section) {
  const std::string path = sectionStorePath(section);
  changed(path);
  return store_.removeKey(path);
}

bool Settings::deleteIfPresent(std::string_view section, std::string_view key) {
  const std::string path = sectionStorePath(section);
  changed(path);
  return store_.removeValue(path, codePage_.toUtf8(key));
}

bool Settings::flag(std::string_view key, std::string_view fallback) const {
  return base::toBool(option(key, fallback));
}

long Settings::number(std::string_view key, std::string_view fallback) const {
  return base::toLong(option(key, fallback));
}

// ---- raw operations

RegistryValue Settings::formatted(const StoredValue& value) const {
  RegistryValue result{std::to_string(static_cast<int>(value.type)), codePage_.fromUtf8(value.name), {}};
  switch (value.type) {
    case ValueType::kNumber:
      result.data = threeDigits(base::toLong(value.text));
      break;
    case ValueType::kBinary:
      result.data = value.text;
      break;
    case ValueType::kString:
      result.data = codePage_.fromUtf8(value.text);
      break;
  }
  return result;
}

std::string Settings::ReadRegistryValue(RegistryRoot root, std::string_view path,
                                        std::string_view name) const {
  try {
    const auto value = store_.read(storePath(root, path), codePage_.toUtf8(name));
    if (!value) return std::string(kNotFound);
    std::string data = formatted(*value).data;
    return fits(*value, data) ? data : std::string(kNotFound);
  } catch (const Error&) {
    return std::string(kNotFound);
  }
}

void Settings::WriteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name, int type,
                                  std::string_view value) {
  const bool isNumber = type == static_cast<int>(ValueType::kNumber);
  const std::string key = storePath(root, path);
  changed(key);
  store_.write(key, {codePage_.toUtf8(name), isNumber ? ValueType::kNumber : ValueType::kString,
                     isNumber ? std::to_string(base::toLong(value)) : codePage_.toUtf8(value)});
}

bool Settings::Walk::goesOn(const std::string& key, int next) const {
  return next > 0 && path == key && (next == index || next == index + 1);
}

void Settings::changed(const std::string& path) {
  // A new or a removed key may stand anywhere above or below; values stand in one key.
  keyWalk_ = {};
  if (base::startsWithNoCase(valueWalk_.path, path)) valueWalk_ = {};
}

std::string Settings::EnumRegistryKey(RegistryRoot root, std::string_view path, int index) const {
  try {
    const std::string key = storePath(root, path);
    if (!keyWalk_.goesOn(key, index)) {
      keyWalk_ = {};
      walkedKeys_ = store_.keys(key);
    }
    keyWalk_ = {key, index};
    const auto at = static_cast<std::size_t>(index);
    if (index >= 0 && at < walkedKeys_.size()) return codePage_.fromUtf8(walkedKeys_[at]);
  } catch (const Error&) {
  }
  return std::string(kNotFound);
}

RegistryValue Settings::EnumRegistryValue(RegistryRoot root, std::string_view path, int index) const {
  try {
    const std::string key = storePath(root, path);
    if (!valueWalk_.goesOn(key, index)) {
      valueWalk_ = {};
      walkedValues_ = store_.values(key);
    }
    valueWalk_ = {key, index};
    const auto at = static_cast<std::size_t>(index);
    if (index >= 0 && at < walkedValues_.size()) {
      RegistryValue result = formatted(walkedValues_[at]);
      if (!fits(walkedValues_[at], result.data)) result.data = kNotFound;
      return result;
    }
  } catch (const Error&) {
  }
  return {{}, std::string(kNotFound), std::string(kNotFound)};
}

void Settings::DeleteRegistryKey(RegistryRoot root, std::string_view path) {
  const std::string key = storePath(root, path);
  changed(key);
  store_.update([&] {
    if (store_.keys(key).empty()) store_.removeKey(key);
  });
}

void Settings::DeleteRegistryTree(RegistryRoot root, std::string_view path) {
  const std::string key = storePath(root, path);
  changed(key);
  store_.removeKey(key);
}

void Settings::DeleteRegistryValue(RegistryRoot root, std::string_view path, std::string_view name) {
  const std::string key = storePath(root, path);
  changed(key);
  store_.removeValue(key, codePage_.toUtf8(name));
}

// ---- whole keys

std::vector<std::string> Settings::keyNames(RegistryRoot root, std::string_view path) const {
  std::vector<std::string> names = store_.keys(storePath(root, path));
  for (std::string& name : names) name = codePage_.fromUtf8(name);
  return names;
}

std::vector<RegistryValue> Settings::values(RegistryRoot root, std::string_view path) const {
  std::vector<RegistryValue> result;
  for (const StoredValue& value : store_.values(storePath(root, path))) result.push_back(formatted(value));
  return result;
}

}  // namespace kolvane::frame
