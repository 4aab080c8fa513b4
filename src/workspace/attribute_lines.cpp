#include "workspace/attribute_lines.h"

#include <utility>

namespace kolvane::workspace {
std::optional<AttributeLine> parseAttributeLine(std::string_view line) {
  if (!beginsWithAttribute(line) || continuesOnNextLine(line)) return std::nullopt;
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  constexpr std::size_t kBehindWord = std::string_view("Attribute ").size();
  const std::string_view target = base::trim(line.substr(kBehindWord, equals - kBehindWord));
  const std::size_t dot = target.find('.');
  if (dot == std::string_view::npos || dot == 0) return std::nullopt;
  const AttributeLine parsed{target.substr(0, dot), target.substr(dot + 1),
                             base::trim(line.substr(equals + 1))};
  if (!base::startsWithNoCase(parsed.attribute, "VB_")) return std::nullopt;
  return parsed;
}

MemberKey::MemberKey(const DeclaredName& declared)
    : name(foldedText(declared.name)), type(declared.type), procKind(declared.procKind) {}

DeclaredHere::DeclaredHere(std::string_view logicalLine) : names_(declaredNames(logicalLine)) {
  for (const DeclaredName& declared : names_) folded_.insert(foldedText(declared.name));
}

std::string DeclaredHere::ownerOf(std::string_view line) const {
  const auto parsed = names_.empty() ? std::nullopt : parseAttributeLine(line);
  if (!parsed) return {};
  std::string name = foldedText(parsed->member);
  return folded_.count(name) > 0 ? name : std::string();
}

const AttributeLines::Records* AttributeLines::behind(int line) const {
  const std::size_t index = table_.reaching(line);
  return index < size() && this->line(index) == line ? &records(index) : nullptr;
}

void AttributeLines::put(int line, const Records& records) {
  const std::size_t index = table_.reaching(line);
  if (index < size() && this->line(index) == line) {
    Records& there = table_.payload(table_.id(index));
    there.insert(there.end(), records.begin(), records.end());
    return;
  }
  table_.moveGap(index);
  table_.insertAtGap({line, line, records});
}

std::vector<AttributeLines::Taken> AttributeLines::take(int first, int end) {
  std::vector<Taken> taken;
  const std::size_t begin = table_.reaching(first);
  for (std::size_t i = begin; i < size() && line(i) < end; ++i) taken.push_back({line(i), records(i)});
  table_.moveGap(begin);
  table_.eraseBehindGap(taken.size());
  return taken;
}

void AttributeLines::relocate(const LineStore::Relocate& relocate) {
  for (std::size_t i = 0; i < size(); ++i)
    for (LineRecord& record : table_.payload(table_.id(i))) relocate(record);
}

std::optional<AttributeShelf::Records> AttributeShelf::take(const MemberKey& key) {
  const auto found = entries_.lower_bound(key);
  if (found == entries_.end() || found->first != key) return std::nullopt;
  Records records = std::move(found->second);
  entries_.erase(found);
  return records;
}

std::vector<MemberKey> AttributeShelf::keys() const {
  std::vector<MemberKey> keys;
  for (auto entry = entries_.begin(); entry != entries_.end(); entry = entries_.upper_bound(entry->first))
    keys.push_back(entry->first);
  return keys;
}

void AttributeShelf::relocate(const LineStore::Relocate& relocate) {
  for (auto& [key, records] : entries_)
    for (LineRecord& record : records) relocate(record);
}

}  // namespace kolvane::workspace
