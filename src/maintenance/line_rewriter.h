// Reading and writing many lines of a module at little cost.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::maintenance {

// Walks over a module treat so many lines before the host's events get their turn: some hundredths of a second.
inline constexpr int kLinesBetweenEvents = 20'000;

// The lines `first` to `last` as they were at construction, read in one go.
class LineBlock {
 public:
  LineBlock(frame::CodeModule& module, int first, int last);
  LineBlock(const LineBlock&) = delete;
  LineBlock& operator=(const LineBlock&) = delete;
  // The text of a line of the block, "" for any other.
  std::string_view line(int number) const {
    const std::size_t index = static_cast<std::size_t>(number - first_);
    return number >= first_ && index < lines_.size() ? lines_[index] : std::string_view();
  }

 private:
  int first_;
  std::string text_;
  std::vector<std::string_view> lines_;
};

// Writes lines back, neighbours together. Lines are named by their numbers from before the first change, and come in
// ascending order. What is not handed in is not touched. The cursor and the top of the module's pane stay with their
// text. A line that may declare a member of the module is replaced on its own, so that the host knows it for the same.
class LineRewriter {
 public:
  explicit LineRewriter(frame::CodeModule& module);
  LineRewriter(const LineRewriter&) = delete;
  LineRewriter& operator=(const LineRewriter&) = delete;
  // Does not write what is pending: call finish().
  ~LineRewriter() = default;

  // All three raise the host's error when it refuses to write; the lines that it was about to write then stay.
  void replace(int line, std::string_view oldText, std::string_view text);
  // In front of `line`.
  void insert(int line, std::string_view text);
  void finish();

  // How many lines more there are than before, once all is written.
  int added() const { return shift_ + hunk_.inserted - hunk_.removed; }

 private:
  // `removed` lines at `first` give way to the text.
  struct Hunk {
    int first = 0;
    int removed = 0;
    int inserted = 0;
    bool declares = false;
    std::string text;
  };

  bool joins(int line) const { return hunk_.inserted > 0 && line == hunk_.first + hunk_.removed; }
  void open(int line);
  void add(std::string_view text);
  void write();

  frame::CodeModule& module_;
  int declarationLines_;
  int shift_ = 0;  // of what is written
  Hunk hunk_;
  std::shared_ptr<frame::CodePane> pane_;
  frame::TextRange selection_;
  int topLine_ = 1;
};

}  // namespace kolvane::maintenance
