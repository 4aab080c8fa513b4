// The lines of a module. A line that was loaded stays where it was loaded; one that an edit brought stands in
// a text of the store's own. Eight bytes a line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_cutter.h"
#include "workspace/gap_vector.h"

namespace kolvane::workspace {

// Where a line's text stands, without its end. Valid until the store compacts.
struct LineRecord {
  static constexpr std::uint32_t kEdited = 0x80000000U;

  std::uint32_t place = 0;  // kEdited set: an offset into the edited text, else into the loaded one
  std::uint32_t length = 0;
};

// Whether a physical line goes on in the next one: an underscore behind a blank, with nothing but blanks
// behind it.
inline bool continuesOnNextLine(std::string_view line) {
  std::size_t end = line.size();
  while (end > 0 && (line[end - 1] == ' ' || line[end - 1] == '\t')) --end;
  return end > 1 && line[end - 1] == '_' && (line[end - 2] == ' ' || line[end - 2] == '\t');
}

// Lines count from 1. Numbers outside the text are a caller's fault.
class LineStore {
 public:
  // Loaded and edited text must each stay below this size.
  static constexpr std::size_t kMaxBytes = 0x7FFFFFFFU;

  // No lines yet. Raises an error for a text of kMaxBytes or more.
  LineStore(std::shared_ptr<const void> owner, std::string_view loaded);

  std::string_view loaded() const { return loaded_; }
  bool holds(std::string_view text) const {
    const std::less<const char*> before;
    return !before(text.data(), edited_.data()) && before(text.data(), edited_.data() + edited_.size());
  }
  // No less than what all lines take when they are written, and little more. Cost: linear in the lines.
  std::size_t textBytes() const;
  // What `line` stands in as a record; it must be a part of loaded().
  LineRecord recordOfLoaded(std::string_view line) const;
  void setLines(std::vector<LineRecord> records) { records_ = GapVector<LineRecord>(std::move(records)); }

  int count() const { return static_cast<int>(records_.size()); }
  const LineRecord& record(int line) const { return records_[static_cast<std::size_t>(line) - 1]; }
  std::string_view text(const LineRecord& record) const { return {address(record), record.length}; }
  std::string_view line(int number) const { return text(record(number)); }

  // The end that new lines get: that of the first loaded line that has one.
  std::string_view lineEnd() const { return lineEnd_; }

  // Adds text to the store, not yet to the lines. `line` must not stand in the store's edited text.
  LineRecord add(std::string_view line);
  // Lines that add() has just put in one behind the other, from the first to the last, their ends between them: to be
  // changed in place before they go among the lines.
  std::span<char> added(const LineRecord& first, const LineRecord& last);
  // Puts records in the place of `removed` lines from `first` on.
  void replace(int first, int removed, std::span<const LineRecord> records);

  // Logical lines: what a chain of continued physical lines makes.
  int logicalFirst(int line) const;
  int logicalLast(int line) const;
  // The text of the lines `first` to `last` with any line ends between; valid until `scratch` or the store
  // changes.
  std::string_view joined(int first, int last, std::string& scratch) const;

  // A stretch of lines that follow each other in memory too, from the start of the first to the end of the
  // last.
  struct Run {
    std::string_view text;  // without the last line's end
    int first = 0;
    int last = 0;
  };
  // From line `first` on, up to line `limit`.
  Run run(int first, int limit) const;
  // The line of a run that holds the run's byte `offset`.
  int lineInRun(const Run& run, std::size_t offset) const;
  std::size_t offsetInRun(const Run& run, int line) const {
    return static_cast<std::size_t>(address(record(line)) - run.text.data());
  }

  // Appends lines as the host shows them: CR LF between them, none behind the last.
  void appendShown(int first, int last, std::string& out) const;

  // Appends lines to `out` as they are to be written. Each one but the very last gets an end.
  class Writer {
   public:
    Writer(const LineStore& store, std::string& out) : store_(store), out_(out) {}
    void write(const LineRecord& record) { write(store_.withEnd(record)); }
    void writeLines(int first, int last);

   private:
    void write(std::string_view piece);

    const LineStore& store_;
    std::string& out_;
    bool started_ = false;
    bool ended_ = true;  // the last piece has a line end
  };

  // True when more than half of the edited text, and a good deal of it, belongs to no line any more.
  bool worthCompacting() const;
  using Relocate = std::function<void(LineRecord&)>;
  // Drops the edited text that no line uses. `others` is to call its argument for each record kept elsewhere.
  void compact(const std::function<void(const Relocate&)>& others);

 private:
  const char* address(const LineRecord& record) const {
    return (record.place & LineRecord::kEdited) != 0 ? edited_.data() + (record.place & ~LineRecord::kEdited)
                                                     : loaded_.data() + record.place;
  }
  std::string_view withEnd(const LineRecord& record) const;
  bool followsInMemory(const LineRecord& a, const LineRecord& b) const;
  bool followsBehindCrLf(const LineRecord& a, const LineRecord& b) const;

  std::shared_ptr<const void> owner_;
  std::string_view loaded_;
  std::string edited_;  // each line with lineEnd_
  std::size_t unused_ = 0;
  std::string lineEnd_;
  GapVector<LineRecord> records_;
};

}  // namespace kolvane::workspace
