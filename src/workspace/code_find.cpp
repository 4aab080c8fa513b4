#include "workspace/code_find.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

constexpr FoldTable kUnfolded = [] {
  FoldTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<unsigned char>(i);
  return table;
}();

bool wordBefore(std::string_view text, std::size_t at) {
  return at > 0 && base::isWordCharacter(text[at - 1]);
}
bool wordAt(std::string_view text, std::size_t at) {
  return at < text.size() && base::isWordCharacter(text[at]);
}

bool isWholeWord(std::string_view text, std::size_t begin, std::size_t end) {
  return !wordBefore(text, begin) && !wordAt(text, end);
}

// Each byte's other case, or the byte itself.
constexpr FoldTable kOtherCase = [] {
  FoldTable table = kFolded;
  for (std::size_t i = 0; i < table.size(); ++i)
    if (kFolded[i] != i) table[kFolded[i]] = static_cast<unsigned char>(i);
  return table;
}();

// Places looked at in one step.
constexpr std::size_t kBlock = 64;

// How seldom a byte is met in code, roughly.
int rarity(char c) {
  constexpr std::string_view kCommon = "etanoirsl";
  if (c == ' ') return 0;
  const char low = static_cast<char>(folded(c));
  if (kCommon.find(low) != std::string_view::npos) return 1;
  return low >= 'a' && low <= 'z' ? 2 : 3;
}

// A range in characters counted from 0, cut to the lines that are there.
struct SearchRange {
  int firstLine;
  std::size_t from;  // in the first line
  int lastLine;
  std::size_t to;  // in the last line

  std::size_t begin(int line) const { return line == firstLine ? from : 0; }
  std::size_t end(int line, std::size_t length) const {
    return line == lastLine ? std::min(to, length) : length;
  }
};

SearchRange searchRange(const frame::TextRange& range, int lineCount) {
  SearchRange search{};
  search.firstLine = std::max(range.startLine, 1);
  search.from = static_cast<std::size_t>(std::max(range.startColumn, 1) - 1);
  const bool toEnd = range.endLine < 0 || range.endLine > lineCount;
  search.lastLine = toEnd ? lineCount : range.endLine;
  const bool toEndOfLine = range.endColumn < 0 || range.endLine > lineCount;
  search.to = toEndOfLine ? LineStore::kMaxBytes : static_cast<std::size_t>(range.endColumn);
  return search;
}

void setRange(frame::TextRange& range, int line, std::size_t begin, std::size_t end) {
  range = {line, static_cast<int>(begin) + 1, line, static_cast<int>(end) + 1};
}

bool findText(const LineStore& lines, std::string_view target, const SearchRange& search, bool wholeWord,
              bool matchCase, frame::TextRange& range) {
  const TextSearcher searcher(target, matchCase, wholeWord);
  constexpr int kFirstStretch = 16, kLongestStretch = 1 << 16;
  int stretch = kFirstStretch;
  for (int line = search.firstLine; line <= search.lastLine;
       stretch = std::min(stretch * 4, kLongestStretch)) {
    const LineStore::Run run = lines.run(line, std::min(search.lastLine, line - 1 + stretch));
    const std::size_t from = std::min(search.begin(line), lines.line(line).size());
    std::size_t end = run.text.size();
    if (run.last == search.lastLine) {
      const std::size_t length = lines.line(run.last).size();
      end = end - length + search.end(run.last, length);
    }
    const std::size_t found = searcher.find(run.text, from, end);
    if (found != TextSearcher::kNotFound) {
      const int number = lines.lineInRun(run, found);
      const std::size_t column = found - lines.offsetInRun(run, number);
      setRange(range, number, column, column + target.size());
      return true;
    }
    line = run.last + 1;
  }
  return false;
}

// Of text in a double-byte page, character by character.
std::size_t findWide(std::string_view text, std::string_view target, std::size_t from, std::size_t end,
                     bool wholeWord, const base::CodePage& page) {
  bool afterWord = false;
  for (std::size_t at = 0; at + target.size() <= end;) {
    const bool fits = at >= from && text.substr(at, target.size()) == target;
    if (fits && !(wholeWord && (afterWord || wordAt(text, at + target.size())))) return at;
    const std::size_t size = page.characterSize(text, at);
    afterWord = size > 1 || base::isWordCharacter(text[at]);
    at += size;
  }
  return std::string_view::npos;
}

bool findWideText(const LineStore& lines, std::string_view target, const SearchRange& search, bool wholeWord,
                  bool matchCase, const base::CodePage& page, frame::TextRange& range) {
  const auto cased = [&](std::string_view text) { return matchCase ? std::string(text) : page.lower(text); };
  const std::string wanted = cased(target);
  for (int line = search.firstLine; line <= search.lastLine; ++line) {
    const std::string text = cased(lines.line(line));
    const std::size_t end = search.end(line, text.size());
    const std::size_t found = findWide(text, wanted, search.begin(line), end, wholeWord, page);
    if (found == std::string_view::npos) continue;
    setRange(range, line, found, found + target.size());
    return true;
  }
  return false;
}

bool findPattern(const LineStore& lines, std::string_view target, const SearchRange& search, bool wholeWord,
                 frame::TextRange& range) {
  const CodePattern pattern(target);
  for (int line = search.firstLine; line <= search.lastLine; ++line) {
    const std::string_view text = lines.line(line);
    const auto match = pattern.match(text, search.begin(line), search.end(line, text.size()), wholeWord);
    if (!match) continue;
    setRange(range, line, match->begin, match->end);
    return true;
  }
  return false;
}

}  // namespace

TextSearcher::TextSearcher(std::string_view target, bool matchCase, bool wholeWord)
    : table_(matchCase ? &kUnfolded : &kFolded), wholeWord_(wholeWord), target_(target) {
  std::size_t rarest = 0, next = target_.size() - 1;
  for (char& c : target_) c = static_cast<char>(fold(c));
  for (std::size_t i = 0; i < target_.size(); ++i)
    if (rarity(target_[i]) > rarity(target_[rarest])) rarest = i;
  for (std::size_t i = 0; i < target_.size(); ++i)
    if (i != rarest && (next == rarest || rarity(target_[i]) > rarity(target_[next]))) next = i;
  first_ = probeAt(rarest);
  second_ = probeAt(next);
}

TextSearcher::Probe TextSearcher::probeAt(std::size_t offset) const {
  const auto byte = static_cast<unsigned char>(target_[offset]);
  return {offset, byte, table_ == &kFolded ? kOtherCase[byte] : byte};
}

// Whether one of kBlock places may start an occurrence. No branches: compilers make vector instructions of
// it.
bool TextSearcher::mayStartWithin(const unsigned char* block) const {
  const unsigned char* const a = block + first_.offset;
  const unsigned char* const b = block + second_.offset;
  const Probe first = first_, second = second_;
  unsigned char any = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    any = static_cast<unsigned char>(any | (first.match(a[i]) & second.match(b[i])));
  return any != 0;
}

bool TextSearcher::accepts(std::string_view text, std::size_t begin) const {
  return !wholeWord_ || isWholeWord(text, begin, begin + target_.size());
}

std::size_t TextSearcher::find(std::string_view text, std::size_t from, std::size_t end) const {
  if (end < target_.size()) return kNotFound;
  const std::size_t stop = end - target_.size() + 1;
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t patience = end + 4096;  // in bytes compared, for text and target that repeat themselves
  for (std::size_t at = from; at < stop;) {
    const std::size_t blockEnd = std::min(at + kBlock, stop);
    if (blockEnd - at == kBlock && !mayStartWithin(bytes + at)) {
      at = blockEnd;
      continue;
    }
    for (; at < blockEnd; ++at) {
      if (first_.match(bytes[at + first_.offset]) == 0 || second_.match(bytes[at + second_.offset]) == 0)
        continue;
      std::size_t same = 0;
      while (same < target_.size() && fold(text[at + same]) == static_cast<unsigned char>(target_[same]))
        ++same;
      if (same == target_.size() && accepts(text, at)) return at;
      if (patience < same) return findSlowly(text, at, end);
      patience -= same;
    }
  }
  return kNotFound;
}

// Knuth, Morris and Pratt's search: looks at each byte once.
std::size_t TextSearcher::findSlowly(std::string_view text, std::size_t from, std::size_t end) const {
  std::vector<std::size_t> border(target_.size(), 0);
  for (std::size_t i = 1, length = 0; i < target_.size(); ++i) {
    while (length > 0 && target_[i] != target_[length]) length = border[length - 1];
    if (target_[i] == target_[length]) ++length;
    border[i] = length;
  }
  std::size_t matched = 0;
  for (std::size_t at = from; at < end; ++at) {
    const char c = static_cast<char>(fold(text[at]));
    while (matched > 0 && c != target_[matched]) matched = border[matched - 1];
    if (c == target_[matched]) ++matched;
    if (matched < target_.size()) continue;
    if (accepts(text, at + 1 - matched)) return at + 1 - matched;
    matched = border[matched - 1];
  }
  return kNotFound;
}

CodePattern::CodePattern(std::string_view pattern) : segments_(1) {
  for (std::size_t at = 0; at < pattern.size();) {
    const char c = pattern[at++];
    CharSet set;
    switch (c) {
      case '*':
        segments_.emplace_back();
        continue;
      case '[':
        addList(pattern, at);
        continue;
      case '?':
        set.set();
        break;
      case '#':
        for (std::size_t digit = '0'; digit <= '9'; ++digit) set.set(digit);
        break;
      default:
        for (std::size_t byte = 0; byte < set.size(); ++byte) set[byte] = kFolded[byte] == folded(c);
    }
    segments_.back().push_back(set);
  }
}

// `at` stands behind the opening bracket, and then behind the closing one. An empty list stands for nothing.
void CodePattern::addList(std::string_view pattern, std::size_t& at) {
  const std::size_t close = pattern.find(']', at);
  if (close == std::string_view::npos) throw base::Error(base::errors::kInvalidPattern);
  std::string_view list = pattern.substr(at, close - at);
  at = close + 1;
  const bool negated = list.size() > 1 && list.front() == '!';
  if (negated) list.remove_prefix(1);
  if (list.empty()) return;

  CharSet folds;
  for (std::size_t i = 0; i < list.size(); ++i) {
    auto low = static_cast<unsigned char>(list[i]);
    auto high = low;
    if (i + 2 < list.size() && list[i + 1] == '-') {
      high = static_cast<unsigned char>(list[i + 2]);
      i += 2;
    }
    if (high < low) {
      low = kFolded[low];
      high = kFolded[high];
    }
    if (high < low) throw base::Error(base::errors::kInvalidPattern);
    for (unsigned byte = low; byte <= high; ++byte) folds.set(kFolded[byte]);
  }
  CharSet set;
  for (std::size_t byte = 0; byte < set.size(); ++byte) set[byte] = folds[kFolded[byte]] != negated;
  segments_.back().push_back(set);
}

bool CodePattern::fits(const Segment& segment, std::string_view line, std::size_t at) {
  for (std::size_t i = 0; i < segment.size(); ++i)
    if (!segment[i][static_cast<unsigned char>(line[at + i])]) return false;
  return true;
}

// Where the segment fits furthest to the right within [from, to); not in front of a word character with
// `endsWord`.
std::optional<std::size_t> CodePattern::rightmost(const Segment& segment, std::string_view line,
                                                  std::size_t from, std::size_t to, bool endsWord) {
  if (to < from + segment.size()) return std::nullopt;
  for (std::size_t at = to - segment.size() + 1; at-- > from;)
    if (fits(segment, line, at) && !(endsWord && wordAt(line, at + segment.size()))) return at;
  return std::nullopt;
}

// What stands between the stars has a fixed length. So it is enough to lay the last segment as far right as
// it goes, then the one in front of it, and so on: the first segment may then stand anywhere in front of
// that.
std::optional<CodePattern::Match> CodePattern::match(std::string_view line, std::size_t from, std::size_t to,
                                                     bool wholeWord) const {
  std::size_t limit = to;
  std::optional<std::size_t> end;
  for (std::size_t i = segments_.size(); i-- > 1;) {
    const auto at = rightmost(segments_[i], line, from, limit, wholeWord && !end);
    if (!at) return std::nullopt;
    if (!end) end = *at + segments_[i].size();
    limit = *at;
  }
  const Segment& first = segments_.front();
  for (std::size_t at = from; at + first.size() <= limit; ++at) {
    const std::size_t stop = end.value_or(at + first.size());
    if (stop > at && fits(first, line, at) && !(wholeWord && !isWholeWord(line, at, stop)))
      return Match{at, stop};
  }
  return std::nullopt;
}

bool findInLines(const LineStore& lines, std::string_view target, frame::TextRange& range, bool wholeWord,
                 bool matchCase, bool pattern, const base::CodePage& page) {
  if (target.empty() || (matchCase && pattern)) throw base::Error(base::errors::kInvalidCall);
  const SearchRange search = searchRange(range, lines.count());
  if (pattern) return findPattern(lines, target, search, wholeWord, range);
  if (target.find_first_of(base::kCrLf) != std::string_view::npos) return false;
  if (page.isDoubleByte()) return findWideText(lines, target, search, wholeWord, matchCase, page, range);
  return findText(lines, target, search, wholeWord, matchCase, range);
}

}  // namespace kolvane::workspace
