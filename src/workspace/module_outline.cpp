#include "workspace/module_outline.h"

#include <algorithm>

#include "workspace/text_fold.h"

namespace kolvane::workspace {

ModuleOutline::Scan::Scan(ModuleOutline& outline, int from)
    : outline_(outline),
      state_(outline.stateBefore(from)),
      procedures_(outline.procedures_, from),
      blocks_(outline.blocks_, from) {}

void ModuleOutline::Scan::feed(std::string_view logicalLine, int first, int last) {
  const ScanStep step = scanLine(state_, logicalLine);
  if (state_ == ScanState::kBlock && step.after != ScanState::kBlock) blocks_.end(last);
  if (state_ != ScanState::kBlock && step.after == ScanState::kBlock) blocks_.begin(first, {});
  if (step.opened) procedures_.begin(first, {foldedHash(step.opened->name), kNoId, kNoId, step.opened->kind});
  if (procedures_.open() && step.after != ScanState::kProcedure) procedures_.end(last);
  state_ = step.after;
}

bool ModuleOutline::Scan::agrees(int oldLine, int shift) {
  const bool inProcedure = procedures_.wasInside(oldLine, shift), inBlock = blocks_.wasInside(oldLine, shift);
  const ScanState old = inProcedure ? ScanState::kProcedure
                        : inBlock   ? ScanState::kBlock
                                    : ScanState::kModule;
  return state_ == old;
}

void ModuleOutline::Scan::finishAt(int oldLine, int shift) {
  procedures_.meet(oldLine, shift);
  blocks_.meet(oldLine, shift);
  commit();
}

void ModuleOutline::Scan::finishAtEnd() {
  procedures_.meetEnd();
  blocks_.meetEnd();
  commit();
}

void ModuleOutline::Scan::commit() {
  procedures_.commit([this](Id id) { outline_.unlink(id); }, [this](Id id) { outline_.link(id); });
  blocks_.commit([](Id) {}, [](Id) {});
}

ModuleOutline::Update::Update(ModuleOutline& outline, const LineStore& lines, const LineEdit& edit)
    : outline_(outline),
      edit_(edit),
      from_(lines.logicalFirst(edit.first)),
      lineBehindStarts_(edit.first + edit.removed == 1 ||
                        !continuesOnNextLine(lines.line(edit.first + edit.removed - 1))),
      oldFirstTitle_(outline.firstTitle()),
      scan_(outline, from_) {}

void ModuleOutline::Update::apply(const LineStore& lines) {
  outline_.setLineCount(lines.count());
  updateDeclarations(lines, rescan(lines));
}

// The line up to which was scanned.
int ModuleOutline::Update::rescan(const LineStore& lines) {
  const int behind = edit_.first + edit_.inserted;
  std::string scratch;
  for (int line = from_; line <= lines.count();) {
    const int oldLine = line - edit_.shift();
    const bool started = line > behind || (line == behind && lineBehindStarts_);
    if (started && scan_.agrees(oldLine, edit_.shift())) {
      scan_.finishAt(oldLine, edit_.shift());
      return line;
    }
    const int last = lines.logicalLast(line);
    scan_.feed(lines.joined(line, last, scratch), line, last);
    line = last + 1;
  }
  scan_.finishAtEnd();
  return lines.count() + 1;
}

void ModuleOutline::Update::updateDeclarations(const LineStore& lines, int scannedTo) {
  const int firstTitle = outline_.firstTitle(), shift = edit_.shift();
  int& declarations = outline_.declarations_;
  const bool firstTitleStays =
      firstTitle != 0 && firstTitle == oldFirstTitle_ + (from_ > oldFirstTitle_ ? 0 : shift);
  if (declarations < 0 || oldFirstTitle_ == 0 || !firstTitleStays) {
    declarations = -1;
  } else if (from_ > oldFirstTitle_) {
    return;
  } else if (declarations >= scannedTo - shift) {
    declarations += shift;
  } else if (declarations < from_) {
    const int found = outline_.lastDeclaration(lines, std::min(scannedTo, firstTitle), from_);
    declarations = std::max(declarations, found);
  } else {
    declarations = -1;
  }
}

void ModuleOutline::setLineCount(int count) {
  procedures_.setLineCount(count);
  blocks_.setLineCount(count);
}

ScanState ModuleOutline::stateBefore(int line) const {
  const auto inside = [line](const auto& table) {
    const std::size_t index = table.reaching(line);
    return index < table.size() && table.first(table.id(index)) < line;
  };
  if (inside(procedures_)) return ScanState::kProcedure;
  return inside(blocks_) ? ScanState::kBlock : ScanState::kModule;
}

int ModuleOutline::firstTitle() const {
  return procedures_.size() == 0 ? 0 : procedures_.first(procedures_.id(0));
}

int ModuleOutline::declarationLines(const LineStore& lines) const {
  if (procedures_.size() == 0) return lines.count();
  if (declarations_ < 0) declarations_ = lastDeclaration(lines, firstTitle(), 1);
  return declarations_;
}

// The last line of the last declaration that begins in the lines from `downTo` to above `above`, or 0.
int ModuleOutline::lastDeclaration(const LineStore& lines, int above, int downTo) const {
  std::string scratch;
  for (int last = above - 1; last >= downTo;) {
    const int first = lines.logicalFirst(last);
    const std::string_view text = lines.joined(first, last, scratch);
    if (stateBefore(first) == ScanState::kBlock ? isCode(text) : holdsDeclaration(text)) return last;
    last = first - 1;
  }
  return 0;
}

ProcedureLines ModuleOutline::procedure(std::size_t index, const LineStore& lines) const {
  const Id id = procedures_.id(index);
  const int front = index == 0 ? declarationLines(lines) : procedures_.last(procedures_.id(index - 1));
  const int last = index + 1 == procedures_.size() ? lines.count() : procedures_.last(id);
  return {front + 1, procedures_.first(id), last};
}

Title ModuleOutline::titleOf(Id id, const LineStore& lines, std::string& scratch) const {
  const int first = procedures_.first(id);
  // A name stands on one line, nearly always on the first.
  if (const auto title = parseTitle(lines.line(first))) return *title;
  const auto title = parseTitle(lines.joined(first, lines.logicalLast(first), scratch));
  return title.value_or(Title{});
}

Title ModuleOutline::title(std::size_t index, const LineStore& lines, std::string& scratch) const {
  return titleOf(procedures_.id(index), lines, scratch);
}

std::size_t ModuleOutline::procedureAt(int line, const LineStore& lines) const {
  if (procedures_.size() == 0 || line > lines.count()) return kNone;
  const std::size_t index = std::min(procedures_.reaching(line), procedures_.size() - 1);
  return index == 0 && line <= declarationLines(lines) ? kNone : index;
}

std::size_t ModuleOutline::procedureNamed(std::string_view name, frame::ProcKind kind,
                                          const LineStore& lines) const {
  if (buckets_.empty()) return kNone;
  const std::uint32_t hash = foldedHash(name);
  int first = 0;
  std::string scratch;
  for (Id id = buckets_[hash & (buckets_.size() - 1)]; id != kNoId; id = procedures_.payload(id).next) {
    const ProcedureKey& key = procedures_.payload(id);
    if (key.hash != hash || key.kind != kind) continue;
    if (first != 0 && procedures_.first(id) >= first) continue;
    if (equalFolded(titleOf(id, lines, scratch).name, name)) first = procedures_.first(id);
  }
  return first == 0 ? kNone : procedures_.reaching(first);
}

void ModuleOutline::link(Id id) {
  constexpr std::size_t kFewest = 16;
  if (procedures_.size() <= buckets_.size()) {
    putIntoBucket(id);
    return;
  }
  std::size_t wanted = std::max(buckets_.size(), kFewest);
  while (wanted < procedures_.size()) wanted *= 2;
  buckets_.assign(wanted, kNoId);
  for (std::size_t i = 0; i < procedures_.size(); ++i) putIntoBucket(procedures_.id(i));
}

void ModuleOutline::putIntoBucket(Id id) {
  ProcedureKey& key = procedures_.payload(id);
  Id& head = bucket(key.hash);
  key.next = head;
  key.previous = kNoId;
  if (head != kNoId) procedures_.payload(head).previous = id;
  head = id;
}

void ModuleOutline::unlink(Id id) {
  const ProcedureKey& key = procedures_.payload(id);
  if (key.next != kNoId) procedures_.payload(key.next).previous = key.previous;
  (key.previous == kNoId ? bucket(key.hash) : procedures_.payload(key.previous).next) = key.next;
}

}  // namespace kolvane::workspace
