#include "workspace/code_body.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "workspace/keyword_case.h"
#include "workspace/member_list.h"
#include "workspace/text_fold.h"

namespace kolvane::workspace {

// Reads the lines of a text, enters them in the outline one logical line at a time, and hides attribute
// lines.
class CodeText::Body::Loader {
 public:
  explicit Loader(Body& body) : body_(body), scan_(body.outline, 1), cutter_(body.lines.loaded()) {}

  void load() {
    constexpr std::size_t kBytesPerLine = 32;  // a low guess: memory that is too much is given back
    records_.reserve(body_.lines.loaded().size() / kBytesPerLine + 1);
    while (!cutter_.atEnd()) readLine(cutter_.next());
    if (inside_) feed();
    records_.shrink_to_fit();
    const int count = static_cast<int>(records_.size());
    body_.lines.setLines(std::move(records_));
    body_.outline.setLineCount(count);
    scan_.finishAtEnd();
    body_.attributes.setLineCount(count);
  }

 private:
  void readLine(std::string_view line) {
    if (!inside_) {
      if (beginsWithAttribute(line) && hide(line)) return;
      logicalBegin_ = line.data();
      first_ = static_cast<int>(records_.size()) + 1;
      inside_ = true;
    }
    records_.push_back(body_.lines.recordOfLoaded(line));
    lineEnd_ = line.data() + line.size();
    if (!continuesOnNextLine(line)) feed();
  }

  // A logical line stands in one piece in the text: nothing is hidden within one.
  void feed() {
    inside_ = false;
    logicalLine_ = {logicalBegin_, static_cast<std::size_t>(lineEnd_ - logicalBegin_)};
    declared_.reset();
    scan_.feed(logicalLine_, first_, static_cast<int>(records_.size()));
  }

  bool hide(std::string_view line) {
    if (records_.empty()) return false;
    if (!declared_) declared_.emplace(logicalLine_);
    if (declared_->ownerOf(line).empty()) return false;
    body_.attributes.put(static_cast<int>(records_.size()), {body_.lines.recordOfLoaded(line)});
    return true;
  }

  Body& body_;
  ModuleOutline::Scan scan_;
  base::LineCutter cutter_;
  std::vector<LineRecord> records_;
  bool inside_ = false;  // in a logical line that goes on
  int first_ = 0;
  const char* logicalBegin_ = nullptr;
  const char* lineEnd_ = nullptr;
  std::string_view logicalLine_;  // the last one
  std::optional<DeclaredHere> declared_;
};

CodeText::Body::Body(CodeKind moduleKind, std::shared_ptr<const void> owner, std::string_view bytes)
    : kind(moduleKind), lines(std::move(owner), bytes) {
  Loader(*this).load();
}

const std::vector<MemberInfo>& CodeText::Body::memberList() {
  if (!members) members = readMembers(kind, lines, outline, attributes);
  return *members;
}

LineEdit CodeText::Body::edit(int first, int removed, const std::vector<std::string_view>& texts) {
  const LineEdit change{first, removed, static_cast<int>(texts.size())};
  if (readsAlike(change, texts)) {
    lines.replace(first, removed, addRecased(first, removed, texts));
    members.reset();
    compactLines();
    return change;
  }
  Reach reach = reachOf(change, texts);
  const std::vector<LineRecord> records = addRecased(first, removed, texts);
  AttributeShelf loose = takeAttributes(reach);
  splice(change, records);
  reach.to += change.shift();
  LineEdit visible = change;
  settleAttributes(reach, loose, visible);
  giveToMembersElsewhere(loose);
  loose.moveTo(shelf);
  members.reset();
  compactLines();
  return visible;
}

CodeText::Body::Reach CodeText::Body::reachOf(const LineEdit& edit,
                                              const std::vector<std::string_view>& texts) const {
  const auto continues = [this](int line) { return line > 0 && continuesOnNextLine(lines.line(line)); };
  const int behind = edit.first + edit.removed;
  const bool wasJoined = continues(behind - 1);
  const bool isJoined = texts.empty() ? continues(edit.first - 1) : continuesOnNextLine(texts.back());
  const bool touchesBehind = behind <= lines.count() && (wasJoined || isJoined);
  return {lines.logicalFirst(edit.first), touchesBehind ? lines.logicalLast(behind) + 1 : behind};
}

// Whether the edit does no more to its lines than to move them to the left or right: nothing then becomes another
// procedure or member, and nothing hidden loses its owner.
bool CodeText::Body::readsAlike(const LineEdit& edit, const std::vector<std::string_view>& texts) const {
  const auto text = [](std::string_view line) {
    std::size_t begin = 0;
    while (begin < line.size() && (line[begin] == ' ' || line[begin] == '\t')) ++begin;
    return line.substr(begin);
  };
  const auto alike = [&](std::string_view before, std::string_view after) {
    return text(before) == text(after) && !beginsWithAttribute(before) && !beginsWithAttribute(after) &&
           continuesOnNextLine(before) == continuesOnNextLine(after);
  };
  if (edit.shift() != 0) return false;
  for (int i = 0; i < edit.inserted; ++i)
    if (!alike(lines.line(edit.first + i), texts[static_cast<std::size_t>(i)])) return false;
  return true;
}

// New lines get their keywords' case by the logical lines that they will be part of.
std::vector<LineRecord> CodeText::Body::addRecased(int first, int removed,
                                                   const std::vector<std::string_view>& texts) {
  std::vector<LineRecord> records;
  records.reserve(texts.size());
  for (const std::string_view text : texts) records.push_back(lines.add(text));
  if (texts.empty()) return records;
  const std::span<char> all = lines.added(records.front(), records.back());
  if (hasKeywordsSpelled({all.data(), all.size()})) return records;

  const int front = lines.logicalFirst(first), behind = first + removed;
  ScanState state = outline.stateBefore(front);
  for (std::size_t begin = 0, end = 0; begin < texts.size(); begin = end) {
    while (end < texts.size() && continuesOnNextLine(texts[end])) ++end;
    const bool continues = end == texts.size();
    if (!continues) ++end;
    const std::span<const LineRecord> added = std::span(records).subspan(begin, end - begin);
    const bool amongOthers = (begin == 0 && front < first) || (continues && behind <= lines.count());
    state = amongOthers ? recaseAmongOthers(begin == 0 ? front : first, first, added, behind, state)
                        : recase(state, lines.added(added.front(), added.back()));
  }
  return records;
}

// Gives a logical line that begins in `state` its keywords' case.
ScanState CodeText::Body::recase(ScanState state, std::span<char> logical) {
  const ScanStep step = scanLine(state, {logical.data(), logical.size()});
  recaseKeywords(logical, state == ScanState::kBlock && !step.opened);
  return step.after;
}

// The same for lines that go on in lines that are there, or that go on from lines from `front` to above `first`.
ScanState CodeText::Body::recaseAmongOthers(int front, int first, std::span<const LineRecord> added,
                                            int behind, ScanState state) {
  std::string logical;
  const auto append = [&logical](std::string_view line) { logical.append(line).push_back('\n'); };
  for (int line = front; line < first; ++line) append(lines.line(line));
  std::size_t at = logical.size();
  for (const LineRecord& record : added) append(lines.text(record));
  bool continues = continuesOnNextLine(lines.text(added.back()));
  for (int line = behind; continues && line <= lines.count(); ++line) {
    append(lines.line(line));
    continues = continuesOnNextLine(lines.line(line));
  }
  logical.pop_back();
  state = recase(state, logical);
  for (const LineRecord& record : added) {
    const std::span<char> text = lines.added(record, record);
    std::copy_n(logical.begin() + static_cast<std::ptrdiff_t>(at), text.size(), text.begin());
    at += text.size() + 1;
  }
  return state;
}

void CodeText::Body::splice(const LineEdit& edit, const std::vector<LineRecord>& records) {
  ModuleOutline::Update update(outline, lines, edit);
  attributes.prepare(edit.first);
  lines.replace(edit.first, edit.removed, records);
  attributes.setLineCount(lines.count());
  update.apply(lines);
}

// The attribute lines within reach, by the declarations that they stand behind now.
AttributeShelf CodeText::Body::takeAttributes(const Reach& reach) {
  AttributeShelf loose;
  std::string scratch;
  for (const AttributeLines::Taken& taken : attributes.take(reach.from, reach.to)) {
    const DeclaredHere declared(lines.joined(lines.logicalFirst(taken.line), taken.line, scratch));
    std::map<std::string, AttributeLines::Records> byOwner;
    for (const LineRecord& record : taken.records)
      byOwner[declared.ownerOf(lines.text(record))].push_back(record);
    for (const DeclaredName& name : declared.names())
      if (auto own = byOwner.extract(foldedText(name.name)))
        loose.put(MemberKey(name), std::move(own.mapped()));
  }
  return loose;
}

// Gives loose attribute lines, and shelved ones, to the declarations within reach, and hides lines that have
// become attribute lines of the declaration in front of them.
void CodeText::Body::settleAttributes(const Reach& reach, AttributeShelf& loose, LineEdit& visible) {
  const int lineCount = lines.count();
  int line = reach.from > 1 ? lines.logicalFirst(reach.from - 1) : reach.from;
  const auto end = [&] { return reach.to - (lineCount - lines.count()); };
  while (line <= lines.count() && line < end()) {
    const int last = lines.logicalLast(line);
    const bool mayTake = line >= reach.from && !(loose.empty() && shelf.empty());
    const bool mayHide = last < lines.count() && beginsWithAttribute(lines.line(last + 1));
    if (mayTake || mayHide) settleLine(line, last, mayTake, loose, visible);
    line = last + 1;
  }
}

void CodeText::Body::settleLine(int first, int last, bool mayTake, AttributeShelf& loose, LineEdit& visible) {
  if (!mayCarryAttributes(last)) return;
  std::string scratch;
  const DeclaredHere declared(lines.joined(first, last, scratch));
  AttributeLines::Records brought;
  std::set<std::string> bringers;
  while (last < lines.count()) {
    std::string owner = declared.ownerOf(lines.line(last + 1));
    if (owner.empty()) break;
    brought.push_back(lines.record(last + 1));
    bringers.insert(std::move(owner));
    hideLine(last + 1, visible);
  }
  if (mayTake) {
    for (const DeclaredName& name : declared.names()) {
      const MemberKey key(name);
      auto records = loose.take(key);
      if (!records) records = shelf.take(key);
      // A text that brings attribute lines of its own replaces the old ones.
      if (records && bringers.count(key.name) == 0) attributes.put(last, *records);
    }
  }
  if (!brought.empty()) attributes.put(last, brought);
}

// Behind a last line that means to go on, an attribute line would be read as its continuation.
bool CodeText::Body::mayCarryAttributes(int line) const { return !continuesOnNextLine(lines.line(line)); }

void CodeText::Body::hideLine(int line, LineEdit& visible) {
  (line < visible.first + visible.inserted ? --visible.inserted : ++visible.removed);
  splice({line, 1, 0}, {});
}

// A member may have been copied before it was deleted: its copy then gets the attribute lines.
void CodeText::Body::giveToMembersElsewhere(AttributeShelf& loose) {
  if (loose.empty()) return;
  for (const MemberKey& key : loose.keys()) {
    if (key.type != frame::MemberType::kMethod && key.type != frame::MemberType::kProperty) continue;
    const std::size_t index = outline.procedureNamed(key.name, key.procKind, lines);
    if (index == ModuleOutline::kNone) continue;
    const int last = lines.logicalLast(outline.procedure(index, lines).body);
    if (mayCarryAttributes(last) && !attributes.behind(last)) attributes.put(last, *loose.take(key));
  }
  std::string scratch;
  for (int line = 1; line <= outline.declarationLines(lines) && !loose.empty();) {
    const int last = lines.logicalLast(line);
    if (mayCarryAttributes(last) && !attributes.behind(last)) {
      const DeclaredHere declared(lines.joined(line, last, scratch));
      for (const DeclaredName& name : declared.names())
        if (auto records = loose.take(MemberKey(name))) attributes.put(last, *records);
    }
    line = last + 1;
  }
}

void CodeText::Body::compactLines() {
  if (!lines.worthCompacting()) return;
  lines.compact([this](const LineStore::Relocate& relocate) {
    attributes.relocate(relocate);
    shelf.relocate(relocate);
  });
}

}  // namespace kolvane::workspace
