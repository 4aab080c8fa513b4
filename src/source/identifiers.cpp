#include "source/identifiers.h"

#include <algorithm>

#include "base/text.h"

namespace kolvane::source {
namespace {

// Where `word` stands as a whole word at or behind `from`; npos when it does not.
std::size_t findWord(std::string_view text, std::string_view word, std::size_t from) {
  for (std::size_t at; (at = text.find(word, from)) != std::string_view::npos; from = at + 1) {
    const std::size_t behind = at + word.size();
    const bool startsClean = at == 0 || !base::isWordCharacter(text[at - 1]);
    const bool endsClean = behind == text.size() || !base::isWordCharacter(text[behind]);
    if (startsClean && endsClean) return at;
  }
  return std::string_view::npos;
}

}  // namespace

std::string GetAlphaNumericCharactersFromPosition(std::string_view text, int position) {
  const int length = static_cast<int>(text.size());
  if (position < 0 || position > length) return {};
  const auto at = [text](int place) { return text[static_cast<std::size_t>(place) - 1]; };
  int first = position;
  while (first >= 1 && IsAlphaNumericUnderscore(at(first))) --first;
  int last = position;
  while (last < length && IsAlphaNumericUnderscore(at(last + 1))) ++last;
  return std::string(base::mid(text, first + 1, last - first));
}

int FirstCapitalLetter(std::string_view text) {
  const auto capital = std::find_if(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
  return capital == text.end() ? 0 : static_cast<int>(capital - text.begin()) + 1;
}

std::string ExtractElementFromVariable(std::string_view name, std::string_view element) {
  if (name.starts_with('m')) name.remove_prefix(1);
  const int capital = FirstCapitalLetter(name);
  if (capital == 0) return {};
  if (element == "name") return std::string(base::mid(name, capital));
  if (element == "type") return std::string(base::left(name, capital - 1));
  return {};
}

bool holdsWord(std::string_view text, std::string_view word) {
  return findWord(text, word, 0) != std::string_view::npos;
}

std::string removeWord(std::string_view text, std::string_view word) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at; (at = findWord(text, word, from)) != std::string_view::npos; from = at + word.size())
    result.append(text.substr(from, at - from));
  return result.append(text.substr(from));
}

}  // namespace kolvane::source
