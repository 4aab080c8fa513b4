#include "source/text_utilities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "source/identifiers.h"

namespace kolvane::source {
namespace {

constexpr long kDivisionByZero = 11;

// The marker of each kind of help page.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kPageMarkers{{
    {"Procedure", ") Procedure ("},
    {"Property", ") Property ("},
    {"Module", ") Module Variable ("},
    {"Constants", ") Constant ("},
    {"UDT", ") UDT ("},
    {"Enum", ") Enum ("},
    {"Event", ") Event ("},
}};
constexpr std::string_view kPageEnd = ").html";

}  // namespace

std::string Capitalize(const frame::Services& services, std::string_view text) {
  std::string result(base::trim(text));
  const std::string upper = services.codePage.upper(result);
  for (std::size_t i = 0; i < result.size(); ++i)
    if (i == 0 || result[i - 1] == ' ') result[i] = upper[i];
  return result;
}

std::string_view Trim_CRs(std::string_view text) {
  const std::size_t first = text.find_first_not_of("\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of("\r\n") + 1 - first);
}

std::vector<std::string> SplitLineToArray(std::string_view text, int width) {
  if (width < 1) throw base::Error(base::errors::kInvalidCall);
  const auto step = static_cast<std::size_t>(width);
  std::vector<std::string> pieces;
  for (std::size_t from = 0; from < text.size(); from += step) pieces.emplace_back(text.substr(from, step));
  return pieces;
}

std::string RepeatString(std::string_view text, int count) { return base::repeat(text, count); }

std::string RemovevbLfFromString(std::string_view text) {
  std::string result;
  bool behindLineFeed = false;
  for (const char c : text) {
    behindLineFeed = c == '\n' || (behindLineFeed && c == ' ');
    if (!behindLineFeed) result.push_back(c);
  }
  return result;
}

std::string AddBlankSpaceToTextInMultiLineTextBoxString(std::string_view text) {
  return base::replaceAll(text, "\r", " \r");
}

std::string RemoveSingleAmps(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '&') {
      if (i + 1 == text.size() || text[i + 1] != '&') continue;
      ++i;
    }
    result.push_back(text[i]);
  }
  return result;
}

std::string_view RemoveBracket(std::string_view text) { return text.substr(0, text.find('(')); }

std::string_view GetFirstPart(std::string_view text) { return text.substr(0, text.find('/')); }

std::string_view GetSecondPart(std::string_view text) {
  const std::size_t slash = text.find('/');
  return slash == std::string_view::npos ? std::string_view() : GetFirstPart(text.substr(slash + 1));
}

std::string_view ReturnStringFromUpperCase(std::string_view text) {
  return base::mid(text, std::max(FirstCapitalLetter(text), 1));
}

int FindFirstNonSpaceChar(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? 0 : static_cast<int>(first);
}

bool IsLetter(std::string_view text) { return !text.empty() && base::isAsciiLetter(text.front()); }

int White_Space(std::string_view text) { return static_cast<int>(text.size() - base::lTrim(text).size()); }

std::string Remove_Char(std::string_view text, std::string_view character) {
  return base::replaceAll(text, character, {});
}

int Count_Occurrences(std::string_view text, std::string_view separator) {
  return std::max(static_cast<int>(base::split(text, separator).size()) - 1, 0);
}

double Floor(double value, double step) {
  if (step == 0) throw base::Error(kDivisionByZero, "Division by zero");
  return std::floor(value / std::abs(step)) * std::abs(step);
}

std::string MakeKey(std::string_view text) { return "X" + std::string(text); }

std::string_view GetKey(std::string_view key) { return base::mid(key, 2); }

std::string_view ExtractValue(std::string_view text, std::string_view kind) {
  for (const auto& [known, marker] : kPageMarkers) {
    if (kind != known) continue;
    const std::size_t found = text.find(marker);
    if (found == std::string_view::npos) return text;
    const std::string_view rest = text.substr(found + marker.size());
    return rest.substr(0, rest.find(kPageEnd));
  }
  return text;
}

}  // namespace kolvane::source
