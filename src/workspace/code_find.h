// Searching the lines of a module: plain text and the host's pattern language.
#pragma once

#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"
#include "frame/host.h"
#include "workspace/line_store.h"
#include "workspace/text_fold.h"

namespace kolvane::workspace {

// Finds a text in a text, many bytes per step. Linear in the text, whatever text and target are.
class TextSearcher {
 public:
  static constexpr std::size_t kNotFound = std::string_view::npos;

  // `target` must not be empty.
  TextSearcher(std::string_view target, bool matchCase, bool wholeWord);

  // The first occurrence that lies within [from, end) of the text. A whole word has no word character on
  // either side, within the range or not.
  std::size_t find(std::string_view text, std::size_t from, std::size_t end) const;

 private:
  // A byte of the target to look for before all others, in both its cases.
  struct Probe {
    std::size_t offset = 0;
    unsigned char lower = 0;
    unsigned char upper = 0;
    // 1 for the byte in either case, else 0.
    unsigned char match(unsigned char byte) const {
      return static_cast<unsigned char>(static_cast<unsigned>(byte == lower) |
                                        static_cast<unsigned>(byte == upper));
    }
  };

  unsigned char fold(char c) const { return (*table_)[static_cast<unsigned char>(c)]; }
  Probe probeAt(std::size_t offset) const;
  bool mayStartWithin(const unsigned char* block) const;
  bool accepts(std::string_view text, std::size_t begin) const;
  std::size_t findSlowly(std::string_view text, std::size_t from, std::size_t end) const;

  const FoldTable* table_;
  bool wholeWord_;
  std::string target_;    // folded
  Probe first_, second_;  // its two rarest bytes
};

// A pattern: ? one character, * any number of characters, # one digit, [list] and [!list] one character of or
// not of a list with ranges such as a-z; all else stands for itself, letters in either case. Raises 93 for a
// list that is not closed and for a range that runs backwards.
class CodePattern {
 public:
  explicit CodePattern(std::string_view pattern);

  struct Match {
    std::size_t begin;
    std::size_t end;
  };
  // The leftmost match within [from, to) of a line, and of those the longest; at least one character. A word
  // match has no word character of the line on either side.
  std::optional<Match> match(std::string_view line, std::size_t from, std::size_t to, bool wholeWord) const;

 private:
  using CharSet = std::bitset<256>;
  using Segment = std::vector<CharSet>;  // what stands between two *

  void addList(std::string_view pattern, std::size_t& at);
  static bool fits(const Segment& segment, std::string_view line, std::size_t at);
  static std::optional<std::size_t> rightmost(const Segment& segment, std::string_view line, std::size_t from,
                                              std::size_t to, bool endsWord);

  std::vector<Segment> segments_;
};

// CodeModule.Find. `range` and the result are as there; a range that is no range finds nothing. In a double-byte page
// text is found where a character begins only; a pattern knows no such characters. Columns are bytes.
bool findInLines(const LineStore& lines, std::string_view target, frame::TextRange& range, bool wholeWord,
                 bool matchCase, bool pattern, const base::CodePage& page);

}  // namespace kolvane::workspace
