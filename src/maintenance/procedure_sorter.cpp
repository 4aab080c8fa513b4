#include "maintenance/procedure_sorter.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "maintenance/line_rewriter.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/procedure_list.h"
#include "source/read_only_notice.h"
#include "source/text_utilities.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kModule = "modProcedureSorter";
constexpr std::string_view kActivity = " - Sorting";

// How many #If blocks a line opens or closes. A line number in front of it is passed over when `seesNumbered` says so.
int directiveDepth(std::string_view line, bool seesNumbered) {
  std::string_view code = source::lTrimWhite(line);
  if (seesNumbered) code = source::lTrimWhite(code.substr(source::lineNumberMark(code).size()));
  if (!code.starts_with('#')) return 0;
  if (base::startsWithNoCase(code, "#If ")) return 1;
  return base::startsWithNoCase(code, "#End") ? -1 : 0;
}

// The lines behind the declarations, parted into what may be moved. What belongs to a #If of the declarations cannot
// be: it stays in front.
class Parts {
 public:
  Parts(frame::CodeModule& module, const LineBlock& block, bool seesNumbered)
      : block_(block), seesNumbered_(seesNumbered) {
    const int first = module.CountOfDeclarationLines() + 1;
    const LineBlock declarations(module, 1, first - 1);
    for (int line = 1; line < first; ++line) depth_ += directiveDepth(declarations.line(line), seesNumbered_);
    open_ = inFront_ = depth_ > 0;
    depth_ = std::max(0, depth_);
    movesFrom_ = first;
    for (const source::ListedProcedure& procedure : source::listProcedures(module)) add(procedure);
  }

  // The first line that may move.
  int movesFrom() const { return movesFrom_; }
  const std::vector<SortEntry>& entries() const { return entries_; }

 private:
  void add(const source::ListedProcedure& procedure) {
    int from = procedure.startLine;
    for (int line = from; line <= procedure.lastLine; ++line) {
      const int change = directiveDepth(block_.line(line), seesNumbered_);
      if (change == 0) continue;
      const bool closes = depth_ == 1 && change < 0;
      depth_ = std::max(0, depth_ + change);
      if (closes && open_ && line < procedure.titleLine) {
        take(procedure.name, from, line);
        close();
        from = line + 1;
      }
    }
    take(procedure.name, from, procedure.lastLine);
    if (depth_ == 0) close();
  }

  void take(const std::string& name, int from, int last) {
    if (inFront_)
      movesFrom_ = last + 1;
    else if (open_)
      entries_.back().countLines += last - from + 1;
    else
      entries_.push_back({name, from, last - from + 1});
    open_ = true;
  }

  void close() { open_ = inFront_ = false; }

  const LineBlock& block_;
  bool seesNumbered_;
  int movesFrom_ = 1;
  int depth_ = 0;
  bool inFront_ = false;
  bool open_ = false;
  std::vector<SortEntry> entries_;
};

// The part's text without blank lines at its ends, a line end behind it.
void appendText(std::string& out, const LineBlock& block, const SortEntry& entry) {
  int first = entry.startLine, last = entry.startLine + entry.countLines - 1;
  while (first <= last && source::Is_Blank_Line(block.line(first))) ++first;
  while (last > first && source::Is_Blank_Line(block.line(last))) --last;
  const std::size_t begin = out.size();
  for (int line = first; line <= last; ++line) {
    if (line > first) out.append(base::kCrLf);
    out.append(line == first ? base::lTrim(block.line(line)) : block.line(line));
  }
  const std::size_t end = out.find_last_not_of(' ');
  out.erase(std::max(begin, end == std::string::npos ? 0 : end + 1));
  out.append(base::kCrLf);
}

// All in one piece: the host keeps what is hidden behind a deleted member for the one that comes in its place.
void replaceBlock(frame::CodeModule& module, int first, int last, const std::string& text) {
  const std::string old = module.Lines(first, last - first + 1);
  module.DeleteLines(first, last - first + 1);
  try {
    module.InsertLines(first, text);
  } catch (...) {
    module.InsertLines(first, old);
    throw;
  }
}

class BusyPointer {
 public:
  explicit BusyPointer(forms::Desk& desk) : desk_(desk) { desk_.setBusy(true); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { desk_.setBusy(false); }

 private:
  forms::Desk& desk_;
};

void sortModule(const frame::Services& services, frame::CodeModule& module) {
  const int first = module.CountOfDeclarationLines() + 1, last = module.CountOfLines();
  if (last < first) return;
  const LineBlock block(module, first, last);
  const Parts parts(module, block, services.care.guards(frame::Guard::kConditionals));
  std::vector<SortEntry> entries = parts.entries();
  if (!Sort_Procedures(services, entries)) return;
  std::string text;
  for (const SortEntry& entry : entries) {
    if (!text.empty()) text.append(base::kCrLf);
    appendText(text, block, entry);
  }
  replaceBlock(module, parts.movesFrom(), last, text);
}

}  // namespace

bool Sort_Procedures(const frame::Services& services, std::vector<SortEntry>& entries) {
  if (entries.size() < 2) return false;
  const BusyPointer busy(services.desk);
  std::vector<std::string> keys;
  keys.reserve(entries.size());
  for (const SortEntry& entry : entries) keys.push_back(services.codePage.upper(entry.name));
  std::vector<std::size_t> order(entries.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  if (std::is_sorted(order.begin(), order.end())) return false;
  std::vector<SortEntry> sorted;
  sorted.reserve(entries.size());
  for (const std::size_t place : order) sorted.push_back(std::move(entries[place]));
  entries = std::move(sorted);
  return true;
}

void Do_Procedure_Sort(const frame::Services& services, frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "Do_Procedure_Sort"};
  source::withReadOnlyNotice(services, module, [&] { sortModule(services, module); });
}

void sortProject(const frame::Services& services, frame::VBProject& project, WalkProgress* progress) {
  ProjectWalk walk;
  walk.activity = kActivity;
  walk.readOnly = [](frame::VBComponent&) { return WalkStep::kSkip; };
  walk.treat = [&](frame::VBComponent&, frame::CodeModule& module) {
    Do_Procedure_Sort(services, module);
    return true;
  };
  walkProject(services, project, walk, progress);
}

}  // namespace kolvane::maintenance
