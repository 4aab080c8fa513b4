#include "maintenance/caller_words.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kolvane::maintenance {
namespace {

using frame::ComponentType;

constexpr std::array<ComponentType, 7> kSearchedTypes{
    ComponentType::kStdModule,       ComponentType::kClassModule, ComponentType::kVBForm,
    ComponentType::kVBMDIForm,       ComponentType::kPropPage,    ComponentType::kUserControl,
    ComponentType::kActiveXDesigner,
};

// How far a search looks into the module's last line.
constexpr int kLastColumn = 1000;

constexpr std::array<bool, 256> kWordCharacters = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[static_cast<std::size_t>(c)] =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c >= 0x80;
  return table;
}();

bool inWord(char c) { return kWordCharacters[static_cast<unsigned char>(c)]; }

// Calls visit(word, line) for each run of word characters.
template <class Visit>
void forEachWord(std::string_view text, Visit visit) {
  int line = 1;
  for (std::size_t at = 0; at < text.size();) {
    if (!inWord(text[at])) {
      if (text[at] == '\n') ++line;
      ++at;
      continue;
    }
    std::size_t end = at + 1;
    while (end < text.size() && inWord(text[end])) ++end;
    visit(text.substr(at, end - at), line);
    at = end;
  }
}

std::string_view lastWord(std::string_view text) {
  std::size_t start = text.size();
  while (start > 0 && inWord(text[start - 1])) --start;
  return text.substr(start);
}

}  // namespace

bool isSearchedType(ComponentType type) {
  return std::find(kSearchedTypes.begin(), kSearchedTypes.end(), type) != kSearchedTypes.end();
}

std::vector<SearchedModule> searchedModules(frame::VBE& vbe) {
  std::vector<SearchedModule> modules;
  for (const auto& project : vbe.VBProjects()->items())
    for (const auto& component : project->VBComponents()->items()) {
      if (!isSearchedType(component->Type())) continue;
      if (auto code = component->CodeModule())
        modules.push_back({project->Name(), component->Name(), component->Type(), std::move(code)});
    }
  return modules;
}

std::uint32_t NameTable::add(std::string_view name) {
  return numbers_.try_emplace(std::string(name), static_cast<std::uint32_t>(numbers_.size())).first->second;
}

std::uint32_t NameTable::find(std::string_view name) const {
  const auto found = numbers_.find(name);
  return found == numbers_.end() ? kNone : found->second;
}

ModuleWords::ModuleWords(frame::CodeModule& module, const NameTable& names)
    : names_(&names), countOfLines_(module.CountOfLines()) {
  if (countOfLines_ == 0 || names.size() == 0) return;
  const std::string text = module.Lines(1, countOfLines_);
  forEachWord(text, [&](std::string_view word, int line) {
    if (const std::uint32_t name = names.find(word); name != NameTable::kNone)
      places_.push_back({name, line});
  });
  const auto key = [](const Place& place) { return std::pair(place.name, place.line); };
  std::sort(places_.begin(), places_.end(), [&](const Place& a, const Place& b) { return key(a) < key(b); });
  const auto end = std::unique(places_.begin(), places_.end(),
                               [&](const Place& a, const Place& b) { return key(a) == key(b); });
  places_.erase(end, places_.end());
  places_.shrink_to_fit();
}

std::span<const ModuleWords::Place> ModuleWords::linesOf(std::string_view name) const {
  const std::uint32_t number = names_->find(name);
  const auto [first, last] = std::equal_range(places_.begin(), places_.end(), Place{number, 0},
                                              [](const Place& a, const Place& b) { return a.name < b.name; });
  return {first, last};
}

ProjectWords::ProjectWords(std::vector<SearchedModule> modules, NameTable names, const KeepGoing& keepGoing)
    : modules_(std::move(modules)),
      names_(std::move(names)),
      words_(modules_.size()),
      modulesOf_(names_.size()) {
  for (std::uint32_t module = 0; module < modules_.size(); ++module)
    numbers_[modules_[module].code.get()] = module;
  for (std::uint32_t module = 0; module < modules_.size(); ++module) {
    if (keepGoing && !keepGoing()) {
      complete_ = false;
      return;
    }
    read(module);
  }
}

void ProjectWords::read(std::uint32_t module) {
  words_[module] = ModuleWords(*modules_[module].code, names_);
  std::uint32_t last = NameTable::kNone;
  for (const ModuleWords::Place& place : words_[module].places()) {
    if (place.name == last) continue;
    last = place.name;
    auto& holders = modulesOf_[place.name];
    const auto at = std::lower_bound(holders.begin(), holders.end(), module);
    if (at == holders.end() || *at != module) holders.insert(at, module);
  }
}

const std::vector<std::uint32_t>* ProjectWords::modulesWith(std::string_view name) const {
  const std::uint32_t number = names_.find(name);
  return number == NameTable::kNone ? nullptr : &modulesOf_[number];
}

const ModuleWords* ProjectWords::find(const frame::CodeModule& module) const {
  const auto found = numbers_.find(&module);
  return found == numbers_.end() ? nullptr : &words_[found->second];
}

void ProjectWords::refresh(frame::CodeModule& module) {
  const auto found = numbers_.find(&module);
  if (found != numbers_.end() && !words_[found->second].isCurrent(module)) read(found->second);
}

NameTable procedureNames(const std::vector<SearchedModule>& modules) {
  NameTable names;
  for (const SearchedModule& module : modules)
    for (const auto& member : module.code->Members()->items())
      if (member->Type() == frame::MemberType::kMethod || member->Type() == frame::MemberType::kProperty)
        names.add(member->Name());
  return names;
}

LineHits::LineHits(frame::CodeModule& module, std::string_view text, const ModuleWords* words)
    : module_(module), text_(text), countOfLines_(module.CountOfLines()) {
  const std::string_view name = lastWord(text);
  if (!words || !words->knows(name) || !words->isCurrent(module)) return;
  indexed_ = true;
  places_ = words->linesOf(name);
}

bool LineHits::findFrom(int line, int lastLine) {
  const int lastColumn = lastLine == countOfLines_ ? kLastColumn : -1;
  frame::TextRange range{line, 1, lastLine, lastColumn};
  if (!module_.Find(text_, range, true, true)) return false;
  line_ = range.startLine;
  column_ = range.startColumn;
  return true;
}

bool LineHits::next() {
  if (!indexed_) return line_ < countOfLines_ && findFrom(line_ + 1, countOfLines_);
  while (!places_.empty()) {
    const int line = places_.front().line;
    places_ = places_.subspan(1);
    if (findFrom(line, line)) return true;
  }
  return false;
}

}  // namespace kolvane::maintenance
