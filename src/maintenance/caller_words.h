// Where the names of procedures stand in the code of many modules: read once, asked often. It saves a run
// over all procedures of a project from searching every module's text anew for each of them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/host.h"

namespace kolvane::maintenance {

// A module that callers are looked for in, and what the search asks of it again and again.
struct SearchedModule {
  std::string project;
  std::string name;
  frame::ComponentType type = frame::ComponentType::kStdModule;
  std::shared_ptr<frame::CodeModule> code;
};

// Standard modules, classes, forms, property pages, user controls and designers.
bool isSearchedType(frame::ComponentType type);
// All of the host that are searched, in the order of its projects and components.
std::vector<SearchedModule> searchedModules(frame::VBE& vbe);

// Called often during long work; false ends it.
using KeepGoing = std::function<bool()>;

// Names, numbered from 0.
class NameTable {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;
  std::uint32_t add(std::string_view name);
  // kNone for a name that was not added. Exact in case.
  std::uint32_t find(std::string_view name) const;
  std::size_t size() const { return numbers_.size(); }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> numbers_;
};

// The lines of one module in which the names of a table stand as whole words, comments and strings included.
// Holds while the module's lines stay where they are.
class ModuleWords {
 public:
  struct Place {
    std::uint32_t name;
    int line;
  };

  ModuleWords() = default;
  // One pass over the text. The table must outlive the object.
  ModuleWords(frame::CodeModule& module, const NameTable& names);

  bool knows(std::string_view name) const { return names_ && names_->find(name) != NameTable::kNone; }
  // Ascending, each line once; of a name that it knows.
  std::span<const Place> linesOf(std::string_view name) const;
  std::span<const Place> places() const { return places_; }
  // False when lines have come or gone.
  bool isCurrent(frame::CodeModule& module) const { return module.CountOfLines() == countOfLines_; }

 private:
  const NameTable* names_ = nullptr;
  std::vector<Place> places_;  // by name, then line
  int countOfLines_ = 0;
};

// The same for all modules that are searched.
class ProjectWords {
 public:
  // Reads the modules one by one. A build that keepGoing ends is empty: complete() is false.
  ProjectWords(std::vector<SearchedModule> modules, NameTable names, const KeepGoing& keepGoing);

  ProjectWords(const ProjectWords&) = delete;
  ProjectWords& operator=(const ProjectWords&) = delete;

  bool complete() const { return complete_; }
  const std::vector<SearchedModule>& modules() const { return modules_; }
  // Indexes of the modules in which the name stands, ascending; those that do not hold it any more may be
  // among them. Nothing for a name that is not in the table.
  const std::vector<std::uint32_t>* modulesWith(std::string_view name) const;
  const ModuleWords& wordsOf(std::size_t module) const { return words_[module]; }
  // nullptr for a module that is not among them.
  const ModuleWords* find(const frame::CodeModule& module) const;
  // Reads a module again in which lines have come or gone.
  void refresh(frame::CodeModule& module);

 private:
  void read(std::uint32_t module);

  std::vector<SearchedModule> modules_;
  NameTable names_;
  std::vector<ModuleWords> words_;
  std::vector<std::vector<std::uint32_t>> modulesOf_;  // by name
  std::unordered_map<const frame::CodeModule*, std::uint32_t> numbers_;
  bool complete_ = true;
};

// The names of all methods and properties of the modules.
NameTable procedureNames(const std::vector<SearchedModule>& modules);

// Goes through the lines of a module that hold a text as a whole word, case exact: each line once, at the
// text's first column in it.
class LineHits {
 public:
  // `words` may be nullptr or out of date: then the module's text is searched.
  LineHits(frame::CodeModule& module, std::string_view text, const ModuleWords* words);
  // False when there is no further one.
  bool next();
  int line() const { return line_; }
  int column() const { return column_; }

 private:
  bool findFrom(int line, int lastLine);

  frame::CodeModule& module_;
  std::string text_;
  int countOfLines_;
  int line_ = 0;
  int column_ = 0;
  bool indexed_ = false;
  std::span<const ModuleWords::Place> places_;
};

}  // namespace kolvane::maintenance
