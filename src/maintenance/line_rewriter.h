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
// text. A line that may declare a member of the module is replaced on its own, so that the host knows it for the same. Nothing is
// written before finish(): until then the module may be read as it was.
class LineRewriter {
 public:
  // Whether an error of the host that has this number is passed over; the lines concerned then stay.
  using Tolerates = bool (*)(long number);

  explicit LineRewriter(
      frame::CodeModule& module, Tolerates tolerates = [](long) { return false; });
  LineRewriter(const LineRewriter&) = delete;
  LineRewriter& operator=(const LineRewriter&) = delete;
  ~LineRewriter() = default;

  void replace(int line, std::string_view oldText, std::string_view text);
  // In front of `line`.
  void insert(int line, std::string_view text);
  // Raises the host's error when it refuses to write and that is not tolerated; what stands below then stays.
  void finish();

  // How many lines more there are than before, once all is written.
  int added() const { return added_; }

 private:
  // `removed` lines at `first` give way to the text that ends at `textEnd`.
  struct Hunk {
    int first = 0;
    int removed = 0;
    int inserted = 0;
    bool declares = false;
    std::size_t textEnd = 0;
  };

  bool joins(int line) const {
    return !hunks_.empty() && line == hunks_.back().first + hunks_.back().removed;
  }
  void add(std::string_view text);
  void write(const Hunk& hunk, std::string_view text);

  frame::CodeModule& module_;
  Tolerates tolerates_;
  int declarationLines_;
  std::vector<Hunk> hunks_;
  std::string text_;  // of all hunks, one behind the other
  int added_ = 0;
  int shift_ = 0;  // of what is written
  std::shared_ptr<frame::CodePane> pane_;
  frame::TextRange selection_;
  int topLine_ = 1;
};

}  // namespace kolvane::maintenance
