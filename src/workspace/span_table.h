// Spans of lines in order (procedures, blocks, attribute lines), which follow edits at the cost of what was
// edited.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "workspace/gap_vector.h"

namespace kolvane::workspace {

// Spans do not overlap. Those behind the gap hold their lines counted from the end of the text: when lines
// come or go in front of them, only the text's line count changes.
template <typename Payload>
class SpanTable {
 public:
  using Id = std::uint32_t;
  // The last line of a span that nothing closes.
  static constexpr int kOpen = INT_MAX;

  struct Span {
    int first = 0;
    int last = 0;
    Payload payload{};
  };

  std::size_t size() const { return order_.size(); }
  // Ids stay as they are while their span lives.
  Id id(std::size_t index) const { return order_[index]; }
  int first(Id id) const { return decoded(pool_[id], pool_[id].span.first); }
  int last(Id id) const { return decoded(pool_[id], pool_[id].span.last); }
  Payload& payload(Id id) { return pool_[id].span.payload; }
  const Payload& payload(Id id) const { return pool_[id].span.payload; }

  // The index of the first span that ends at or behind `line`; size() when there is none.
  std::size_t reaching(int line) const {
    std::size_t low = 0, high = size();
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if (last(id(middle)) >= line)
        high = middle;
      else
        low = middle + 1;
    }
    return low;
  }

  void setLineCount(int count) { lineCount_ = count; }

  Id append(Span span) {
    moveGap(size());
    return insertAtGap(std::move(span));
  }

  std::size_t gap() const { return order_.gap(); }

  void moveGap(std::size_t index) {
    for (std::size_t i = index; i < order_.gap(); ++i) turn(order_[i], true);
    for (std::size_t i = order_.gap(); i < index; ++i) turn(order_[i], false);
    order_.moveGap(index);
  }

  // In front of the gap.
  Id insertAtGap(Span span) {
    Id id = static_cast<Id>(pool_.size());
    if (free_.empty()) {
      pool_.push_back({std::move(span), false});
    } else {
      id = free_.back();
      free_.pop_back();
      pool_[id] = {std::move(span), false};
    }
    order_.insertAtGap(std::span<const Id>(&id, 1));
    return id;
  }

  void eraseBehindGap(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const Id gone = order_[order_.gap() + i];
      pool_[gone] = {};
      free_.push_back(gone);
    }
    order_.eraseBehindGap(count);
  }

  // Of a span in front of the gap.
  void setLast(Id id, int last) { pool_[id].span.last = last; }

 private:
  struct Slot {
    Span span;
    bool fromEnd = false;
  };

  int decoded(const Slot& slot, int stored) const {
    return slot.fromEnd && stored != kOpen ? lineCount_ - stored : stored;
  }

  void turn(Id id, bool fromEnd) {
    Slot& slot = pool_[id];
    slot.fromEnd = fromEnd;
    slot.span.first = lineCount_ - slot.span.first;
    if (slot.span.last != kOpen) slot.span.last = lineCount_ - slot.span.last;
  }

  GapVector<Id> order_;
  std::vector<Slot> pool_;
  std::vector<Id> free_;
  int lineCount_ = 0;
};

// Brings a table up to date with a scan that starts in front of an edit and goes on until it agrees with what
// the table says about the text behind. Lines of the old text are in old coordinates, others in new ones. The
// owner changes the table's line count between the construction and the scan.
template <typename Payload>
class SpanRescan {
 public:
  using Table = SpanTable<Payload>;
  using Span = typename Table::Span;
  using Id = typename Table::Id;

  // `from` is where the scan starts.
  SpanRescan(Table& table, int from) : table_(table) {
    std::size_t index = table.reaching(from);
    if (index < table.size() && table.first(table.id(index)) < from) {
      enclosing_ = true;
      enclosingLast_ = newLast_ = table.last(table.id(index));
      ++index;
    }
    table.moveGap(index);
    open_ = enclosing_;
  }

  // Whether a span is open where the scan stands.
  bool open() const { return open_; }

  // Whether line `line` of the old text was inside a span (behind its first line, up to its last). To be
  // asked with rising lines; spans that end before the line are given up.
  bool wasInside(int line, int shift) {
    if (enclosing_ && enclosingLast_ >= line) return true;
    while (pending() && old(table_.last(next()), shift) < line) ++passed_;
    return pending() && old(table_.first(next()), shift) < line;
  }

  void begin(int line, Payload payload) {
    found_.push_back({line, Table::kOpen, std::move(payload)});
    open_ = true;
  }

  void end(int line) {
    (found_.empty() ? newLast_ : found_.back().last) = line;
    open_ = false;
  }

  // The scan reached line `line` of the old text, and agrees with it.
  void meet(int line, int shift) {
    if (open_) {
      const bool inEnclosing = enclosing_ && enclosingLast_ >= line;
      int last = enclosingLast_;
      if (inEnclosing) {
        if (last != Table::kOpen) last += shift;
      } else {
        last = table_.last(next());
        ++passed_;
      }
      end(last);
    }
  }

  // The scan reached the end of the text.
  void meetEnd() {
    if (open_) end(Table::kOpen);
    passed_ = table_.size() - table_.gap();
  }

  // Writes the result: `gone` is called with the id of each span taken out, `came` with that of each one put
  // in.
  template <typename Gone, typename Came>
  void commit(Gone gone, Came came) {
    if (enclosing_) table_.setLast(table_.id(table_.gap() - 1), newLast_);
    for (std::size_t i = 0; i < passed_; ++i) gone(table_.id(table_.gap() + i));
    table_.eraseBehindGap(passed_);
    for (Span& span : found_) came(table_.insertAtGap(std::move(span)));
  }

 private:
  bool pending() const { return table_.gap() + passed_ < table_.size(); }
  Id next() const { return table_.id(table_.gap() + passed_); }
  static int old(int line, int shift) { return line == Table::kOpen ? line : line - shift; }

  Table& table_;
  bool enclosing_ = false;  // the span in front of the gap holds the start of the scan
  bool open_ = false;
  int enclosingLast_ = 0;  // as it was
  int newLast_ = 0;
  std::size_t passed_ = 0;  // spans behind the gap that the scan went over
  std::vector<Span> found_;
};

}  // namespace kolvane::workspace
