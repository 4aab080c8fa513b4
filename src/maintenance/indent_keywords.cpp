#include "maintenance/indent_keywords.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace kolvane::maintenance {
namespace {

constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
constexpr std::size_t index(char c) { return static_cast<unsigned char>(c); }

struct BlockWord {
  std::string_view text;
  int opens = 0;
  int closes = 0;
};

// The distinct words of both block tables with the count of their rows, by first letter.
struct BlockWords {
  std::array<BlockWord, 2 * kBlocks> words{};
  std::size_t count = 0;

  constexpr BlockWords() {
    for (const std::string_view text : kBlockOpeners) ++of(text).opens;
    for (const std::string_view text : kBlockClosers) ++of(text).closes;
    std::sort(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(count),
              [](const BlockWord& a, const BlockWord& b) { return a.text[0] < b.text[0]; });
  }

 private:
  constexpr BlockWord& of(std::string_view text) {
    for (std::size_t i = 0; i < count; ++i)
      if (words[i].text == text) return words[i];
    words[count].text = text;
    return words[count++];
  }
};
constexpr BlockWords kBlockWords;

// For each character that a statement may begin with: its block words, whether the other tables have one, and as bits
// how long the first words of all of them are.
struct Letter {
  unsigned char first = 0;
  unsigned char end = 0;
  bool startsProcedure = false;
  bool endsProcedure = false;
  std::uint32_t lengths = 0;
};

struct Letters {
  std::array<Letter, 256> of{};

  // Above the constructor: not every compiler finds a member template that stands below a constant's use of it.
  template <typename T>
  constexpr void set(char letter, T Letter::*member, T value) {
    of[index(letter)].*member = value;
    if (letter >= 'A' && letter <= 'Z') of[index(static_cast<char>(letter + 32))].*member = value;
  }

  constexpr Letters() {
    for (std::size_t i = kBlockWords.count; i-- > 0;) {
      const char first = kBlockWords.words[i].text[0];
      if (of[index(first)].end == 0) set(first, &Letter::end, static_cast<unsigned char>(i + 1));
      set(first, &Letter::first, static_cast<unsigned char>(i));
    }
    for (const std::string_view text : kStartPrefixes)
      if (!text.empty()) set(text[0], &Letter::startsProcedure, true);
    for (const std::string_view text : kStartWords) set(text[0], &Letter::startsProcedure, true);
    for (const std::string_view text : kProcedureEnds) set(text[0], &Letter::endsProcedure, true);
    addLengths(kBlockOpeners);
    addLengths(kBlockClosers);
    addLengths(kStartPrefixes);
    addLengths(kStartWords);
    addLengths(kProcedureEnds);
  }

 private:
  constexpr void addLengths(std::span<const std::string_view> texts) {
    for (const std::string_view text : texts)
      if (!text.empty())
        set(text[0], &Letter::lengths,
            of[index(text[0])].lengths | 1U << std::min(text.find(' '), text.size()));
  }
};
constexpr Letters kLetters;
static_assert(kLetters.of['s'].end - kLetters.of['s'].first == 1, "SELECT CASE is one word with two rows");

void readProcedureStart(std::string_view statement, StatementStart& start) {
  const char first = upper(statement[0]);
  for (const std::string_view prefix : kStartPrefixes) {
    if (!prefix.empty() && (prefix[0] != first || !beginsWith(statement, prefix))) continue;
    const std::string_view behind = statement.substr(prefix.size());
    if (behind.empty()) continue;
    const char next = upper(behind[0]);
    for (const std::string_view word : kStartWords) {
      if (word[0] != next || !matchesKeyword(behind, word)) continue;
      start.startsProcedure = true;
      start.startsTypeOrEnum = word == "TYPE" || word == "ENUM";
      return;
    }
  }
}

}  // namespace

bool beginsWith(std::string_view text, std::string_view keyword) {
  if (text.size() < keyword.size()) return false;
  for (std::size_t i = 0; i < keyword.size(); ++i)
    if (upper(text[i]) != keyword[i]) return false;
  return true;
}

// What stands behind the keyword is looked at first: it rules out most of them.
bool matchesKeyword(std::string_view statement, std::string_view keyword) {
  if (statement.size() > keyword.size() && statement[keyword.size()] != ' ' &&
      statement[keyword.size()] != ':')
    return false;
  return beginsWith(statement, keyword);
}

StatementStart statementStart(std::string_view statement) {
  StatementStart start;
  if (statement.empty()) return start;
  const Letter& letter = kLetters.of[index(statement[0])];
  if (letter.lengths == 0) return start;
  std::size_t length = 1;
  while (length < statement.size() && statement[length] != ' ' && statement[length] != ':') ++length;
  if (length >= 32 || (letter.lengths >> length & 1U) == 0) return start;
  for (std::size_t i = letter.first; i < letter.end; ++i) {
    if (!matchesKeyword(statement, kBlockWords.words[i].text)) continue;
    start.opens = kBlockWords.words[i].opens;
    start.closes = kBlockWords.words[i].closes;
    break;
  }
  if (letter.startsProcedure) readProcedureStart(statement, start);
  if (letter.endsProcedure)
    start.endsProcedure =
        std::any_of(kProcedureEnds.begin(), kProcedureEnds.end(),
                    [statement](std::string_view word) { return matchesKeyword(statement, word); });
  return start;
}

}  // namespace kolvane::maintenance
