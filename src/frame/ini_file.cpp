#include "frame/ini_file.h"

#include <optional>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::frame {
namespace {

constexpr std::size_t kLongest = 255;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view withoutQuotes(std::string_view text) {
  const bool quoted =
      text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

bool isSection(std::string_view line, std::string_view section) {
  const std::size_t end = line.find(']');
  return end != std::string_view::npos && base::equalNoCase(trimmed(line.substr(1, end - 1)), section);
}

std::optional<std::string_view> find(std::string_view text, std::string_view section, std::string_view key) {
  bool inside = false;
  for (const std::string_view raw : base::splitLines(text)) {
    const std::string_view line = trimmed(raw);
    if (line.starts_with('[')) {
      inside = isSection(line, section);
      continue;
    }
    if (!inside || line.starts_with(';')) continue;
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos && base::equalNoCase(trimmed(line.substr(0, equals)), key))
      return withoutQuotes(trimmed(line.substr(equals + 1)));
  }
  return std::nullopt;
}

}  // namespace

std::string GetIniKeyValue(platform::Files& files, const std::string& file, std::string_view section,
                           std::string_view key, std::string_view fallback) {
  try {
    const platform::ReadFile read = files.read(file);
    return std::string(find(read.content->bytes(), section, key).value_or(fallback).substr(0, kLongest));
  } catch (const base::Error&) {
    return std::string(fallback.substr(0, kLongest));
  }
}

}  // namespace kolvane::frame
