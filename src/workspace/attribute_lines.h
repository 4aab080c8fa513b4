// The hidden lines of a module: `Attribute Name.VB_Description = "…"` in column 1, directly behind the
// declaration of Name. They are no lines of the code; they belong to the member and go where it goes.
#pragma once

#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "workspace/line_scanner.h"
#include "workspace/line_store.h"
#include "workspace/span_table.h"
#include "workspace/text_fold.h"

namespace kolvane::workspace {

// The parts of an attribute line; `value` is as written.
struct AttributeLine {
  std::string_view member;
  std::string_view attribute;  // "VB_Description", "VB_ProcData.VB_Invoke_Property"
  std::string_view value;
};

// Whether a line begins with the word Attribute in column 1, and a blank behind it.
inline bool beginsWithAttribute(std::string_view line) {
  constexpr std::string_view kWord = "Attribute";
  return line.size() > kWord.size() && folded(line[0]) == 'a' && base::startsWithNoCase(line, kWord) &&
         (line[kWord.size()] == ' ' || line[kWord.size()] == '\t');
}
// Nothing for a line of another form, and for one that goes on in the next line.
std::optional<AttributeLine> parseAttributeLine(std::string_view line);

// What attribute lines are bound to: name and kind of a member.
struct MemberKey {
  explicit MemberKey(const DeclaredName& declared);
  std::string name;  // folded
  frame::MemberType type;
  frame::ProcKind procKind;
  auto operator<=>(const MemberKey&) const = default;
};

// The names that a logical line declares, as the attribute lines behind it may use them.
class DeclaredHere {
 public:
  explicit DeclaredHere(std::string_view logicalLine);
  const std::vector<DeclaredName>& names() const { return names_; }
  // Whether `line` is an attribute line of one of the names; its member name, folded, or empty.
  std::string ownerOf(std::string_view line) const;

 private:
  std::vector<DeclaredName> names_;
  std::set<std::string, std::less<>> folded_;
};

// The attribute lines of a module by the line that they stand behind.
class AttributeLines {
 public:
  using Records = std::vector<LineRecord>;

  std::size_t size() const { return table_.size(); }
  int line(std::size_t index) const { return table_.first(table_.id(index)); }
  const Records& records(std::size_t index) const { return table_.payload(table_.id(index)); }
  // Those behind a line, or null.
  const Records* behind(int line) const;

  // Puts records behind a line, behind those that stand there.
  void put(int line, const Records& records);
  // Takes out what stands behind the lines from `first` to before `end`.
  struct Taken {
    int line;
    Records records;
  };
  std::vector<Taken> take(int first, int end);

  // Lines change at `first`: those behind it move when setLineCount is called.
  void prepare(int first) { table_.moveGap(table_.reaching(first)); }
  void setLineCount(int count) { table_.setLineCount(count); }

  void relocate(const LineStore::Relocate& relocate);

 private:
  SpanTable<Records> table_;
};

// Attribute lines whose member is not there at the moment. Of several under one key the first one comes out
// first.
class AttributeShelf {
 public:
  using Records = AttributeLines::Records;

  bool empty() const { return entries_.empty(); }
  void clear() { entries_.clear(); }
  void put(const MemberKey& key, Records records) { entries_.emplace(key, std::move(records)); }
  std::optional<Records> take(const MemberKey& key);
  // Moves all entries into another shelf.
  void moveTo(AttributeShelf& other) { other.entries_.merge(entries_); }
  // The keys that have entries.
  std::vector<MemberKey> keys() const;

  void relocate(const LineStore::Relocate& relocate);

 private:
  std::multimap<MemberKey, Records> entries_;
};

}  // namespace kolvane::workspace
