// The lines of a file's header: how they end, what they open and close, and how texts stand in them.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kolvane::workspace {

// Goes through a text line by line, each with its end: CR LF, a lone CR or a lone LF. Every byte is looked at
// a constant number of times, whatever the line ends are.
class LineReader {
 public:
  explicit LineReader(std::string_view bytes, std::size_t offset = 0) : bytes_(bytes), offset_(offset) {}

  // False at the end of the text. A text that ends in a line end has no further empty line.
  bool next(std::string_view& whole);
  // Where the line that comes next begins.
  std::size_t offset() const { return offset_; }
  std::string_view bytes() const { return bytes_; }

 private:
  std::size_t find(char what, std::size_t& known, std::size_t limit);

  static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);
  std::string_view bytes_;
  std::size_t offset_;
  std::size_t lineFeed_ = kUnknown;  // the next one at or behind offset_, when it is known
  std::size_t return_ = kUnknown;
};

std::string_view withoutLineEnd(std::string_view whole);
std::string_view lineEndOf(std::string_view whole);

// One line of a file with its end: the file's own bytes until it is edited. text() stays valid until the next
// setText, also when the SourceLine itself is moved.
class SourceLine {
 public:
  SourceLine() = default;
  explicit SourceLine(std::string_view original) : original_(original) {}
  SourceLine(std::string_view text, std::string_view end)
      : edited_(std::make_unique<std::string>(std::string(text).append(end))) {}

  std::string_view whole() const { return edited_ ? std::string_view(*edited_) : original_; }
  std::string_view text() const { return withoutLineEnd(whole()); }
  // Keeps the line's end.
  void setText(std::string_view text);

 private:
  std::string_view original_;
  std::unique_ptr<std::string> edited_;
};

// Blanks and tabs; the rest of the system trims blanks only, but headers written by other programs hold tabs.
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
// The piece up to the next blank, tab or end; `rest` loses it and the blanks behind it.
std::string_view takeWord(std::string_view& rest);

// What a line of a Begin tree does to the nesting.
enum class Bracket { kNone, kBegin, kEnd, kBeginGroup, kEndGroup };
Bracket bracketOf(std::string_view line);

// "name = value" as a tree's lines and class settings have it; the views point into the line. No name: no
// such line.
struct Assignment {
  std::string_view name;
  std::string_view value;  // with the comment behind it, without blanks around it
};
Assignment assignmentOf(std::string_view line);

// "Attribute name = value" in the header; a member's attribute ("Item.VB_UserMemId") is none.
Assignment headerAttributeOf(std::string_view line);

// A text as the files spell it, in quotes, with quotes inside doubled.
std::string quoted(std::string_view text);
// The length of the quoted text that `text` begins with, quotes included; 0 when there is none or it does not
// close.
std::size_t quotedLength(std::string_view text);
// The text between the quotes of quoted text; other text as it is.
std::string unquoted(std::string_view text);

// A number with the name that the IDE writes behind it: `2  'Center`. Truth values have the quote in the
// fifth place.
std::string numberWithName(long number, std::string_view name);

// `"frmMain.frx":0442`, with or without `$` in front: the companion's name, empty when the value is no
// reference.
std::string companionOf(std::string_view value);

}  // namespace kolvane::workspace
