#include "workspace/line_store.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

std::size_t endLength(std::string_view text, std::size_t at) {
  if (at == text.size()) return 0;
  return text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
}

std::string firstLineEnd(std::string_view text) {
  base::LineCutter cutter(text);
  const std::size_t length = cutter.next().size();
  const std::size_t end = endLength(text, length);
  return end == 0 ? std::string(base::kCrLf) : std::string(text.substr(length, end));
}

void requireRoom(std::size_t size) {
  if (size >= LineStore::kMaxBytes)
    throw base::Error(base::errors::kInvalidArgument, "The code of a module must be smaller than 2 GB");
}

}  // namespace

LineStore::LineStore(std::shared_ptr<const void> owner, std::string_view loaded)
    : owner_(std::move(owner)), loaded_(loaded) {
  requireRoom(loaded.size());
  lineEnd_ = firstLineEnd(loaded);
}

std::size_t LineStore::textBytes() const {
  constexpr std::size_t kLongestEnd = 2;
  std::size_t sum = 0;
  for (std::size_t i = 0; i < records_.size(); ++i) sum += records_[i].length + kLongestEnd;
  return sum;
}

LineRecord LineStore::recordOfLoaded(std::string_view line) const {
  return {static_cast<std::uint32_t>(line.data() - loaded_.data()), static_cast<std::uint32_t>(line.size())};
}

LineRecord LineStore::add(std::string_view line) {
  requireRoom(edited_.size() + line.size() + lineEnd_.size());
  const auto place = static_cast<std::uint32_t>(edited_.size()) | LineRecord::kEdited;
  // Behind some edits many more can be expected: room for all of them at once is cheaper than growing by doubling.
  // Pages that are never written take no memory.
  if (edited_.capacity() < loaded_.size() && edited_.size() > loaded_.size() / 8)
    edited_.reserve(loaded_.size() * 5 / 4);
  edited_.append(line).append(lineEnd_);
  return {place, static_cast<std::uint32_t>(line.size())};
}

std::span<char> LineStore::added(const LineRecord& first, const LineRecord& last) {
  const std::size_t begin = first.place & ~LineRecord::kEdited;
  return std::span(edited_).subspan(begin, (last.place & ~LineRecord::kEdited) + last.length - begin);
}

void LineStore::replace(int first, int removed, std::span<const LineRecord> records) {
  for (int line = first; line < first + removed; ++line)
    if ((record(line).place & LineRecord::kEdited) != 0) unused_ += record(line).length + lineEnd_.size();
  records_.moveGap(static_cast<std::size_t>(first) - 1);
  records_.eraseBehindGap(static_cast<std::size_t>(removed));
  records_.insertAtGap(records);
}

int LineStore::logicalFirst(int line) const {
  while (line > 1 && continuesOnNextLine(this->line(line - 1))) --line;
  return line;
}

int LineStore::logicalLast(int line) const {
  const int last = count();
  while (line < last && continuesOnNextLine(this->line(line))) ++line;
  return line;
}

std::string_view LineStore::joined(int first, int last, std::string& scratch) const {
  if (first == last) return line(first);
  scratch.clear();
  for (int number = first; number <= last; ++number) {
    if (number > first) scratch.push_back('\n');
    scratch.append(line(number));
  }
  return scratch;
}

std::string_view LineStore::withEnd(const LineRecord& record) const {
  if ((record.place & LineRecord::kEdited) != 0) return {address(record), record.length + lineEnd_.size()};
  const std::size_t end = endLength(loaded_, record.place + record.length);
  return {address(record), record.length + end};
}

bool LineStore::followsInMemory(const LineRecord& a, const LineRecord& b) const {
  if ((a.place ^ b.place) >= LineRecord::kEdited || b.place <= a.place + a.length) return false;
  const std::size_t between = b.place - (a.place + a.length);
  const char* const end = address(a) + a.length;
  return between == 1 ? end[0] != '\r' || end[1] != '\n' : between == 2 && end[0] == '\r' && end[1] == '\n';
}

bool LineStore::followsBehindCrLf(const LineRecord& a, const LineRecord& b) const {
  return followsInMemory(a, b) && b.place - (a.place + a.length) == base::kCrLf.size();
}

void LineStore::appendShown(int first, int last, std::string& out) const {
  for (int from = first; from <= last;) {
    int to = from;
    while (to < last && followsBehindCrLf(record(to), record(to + 1))) ++to;
    if (from > first) out.append(base::kCrLf);
    out.append(address(record(from)), address(record(to)) + record(to).length);
    from = to + 1;
  }
}

LineStore::Run LineStore::run(int first, int limit) const {
  int last = first;
  while (last < limit && followsInMemory(record(last), record(last + 1))) ++last;
  const char* const begin = address(record(first));
  const char* const end = address(record(last)) + record(last).length;
  return {{begin, static_cast<std::size_t>(end - begin)}, first, last};
}

int LineStore::lineInRun(const Run& run, std::size_t offset) const {
  int low = run.first, high = run.last;
  while (low < high) {
    const int middle = low + (high - low + 1) / 2;
    if (offsetInRun(run, middle) <= offset)
      low = middle;
    else
      high = middle - 1;
  }
  return low;
}

void LineStore::Writer::writeLines(int first, int last) {
  while (first <= last) {
    const Run run = store_.run(first, last);
    const std::size_t end = store_.withEnd(store_.record(run.last)).size() - store_.record(run.last).length;
    write({run.text.data(), run.text.size() + end});
    first = run.last + 1;
  }
}

void LineStore::Writer::write(std::string_view piece) {
  if (!ended_) out_.append(store_.lineEnd());
  // An empty line that ends in LF must not become one with a lone CR in front of it.
  while (started_ && !piece.empty() && piece.front() == '\n' && out_.back() == '\r') {
    out_.push_back('\r');
    piece.remove_prefix(1);
  }
  if (piece.empty()) return;
  started_ = true;
  ended_ = piece.back() == '\r' || piece.back() == '\n';
  out_.append(piece);
}

bool LineStore::worthCompacting() const {
  constexpr std::size_t kGoodDeal = std::size_t{1} << 20;
  return unused_ > kGoodDeal && unused_ > edited_.size() / 2;
}

void LineStore::compact(const std::function<void(const Relocate&)>& others) {
  const std::string old = std::exchange(edited_, {});
  const Relocate relocate = [&](LineRecord& record) {
    if ((record.place & LineRecord::kEdited) == 0) return;
    const std::string_view line(old.data() + (record.place & ~LineRecord::kEdited), record.length);
    record = add(line);
  };
  for (std::size_t i = 0; i < records_.size(); ++i) relocate(records_[i]);
  others(relocate);
  unused_ = 0;
}

}  // namespace kolvane::workspace
