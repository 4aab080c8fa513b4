// Where a module's procedures and blocks stand. Built while the module is loaded, and kept up to date by
// scanning only from an edit to where the scan agrees again with what is known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workspace/line_scanner.h"
#include "workspace/line_store.h"
#include "workspace/span_table.h"

namespace kolvane::workspace {

// A change of the lines: `removed` lines from `first` on give way to `inserted` ones.
struct LineEdit {
  int first = 1;
  int removed = 0;
  int inserted = 0;

  int shift() const { return inserted - removed; }
};

// The lines of a procedure's region: from behind the procedure in front of it to its End; the first region
// begins behind the declarations, the last one runs on to the module's end.
struct ProcedureLines {
  int start = 0;
  int body = 0;  // the title's first line
  int last = 0;
};

// What a procedure is looked up by.
struct ProcedureKey {
  std::uint32_t hash = 0;
  std::uint32_t next = 0;  // in its bucket
  std::uint32_t previous = 0;
  frame::ProcKind kind = frame::ProcKind::kProc;
};
struct BlockMark {};

class ModuleOutline {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Reads lines in order and enters what they open and close. One scan at a time.
  class Scan {
   public:
    // Begins at the logical line `from`, in the state that the outline knows there. The outline's lines may
    // then change.
    Scan(ModuleOutline& outline, int from);

    void feed(std::string_view logicalLine, int first, int last);
    // Whether the scan is in the state that the outline knew at line `oldLine`, which is now line `oldLine +
    // shift`.
    bool agrees(int oldLine, int shift);
    // Ends the scan where it agrees.
    void finishAt(int oldLine, int shift);
    void finishAtEnd();

   private:
    void commit();

    ModuleOutline& outline_;
    ScanState state_;
    SpanRescan<ProcedureKey> procedures_;
    SpanRescan<BlockMark> blocks_;
  };

  // Makes an edit known, in two steps around the change of the lines.
  class Update {
   public:
    // Before the lines change.
    Update(ModuleOutline& outline, const LineStore& lines, const LineEdit& edit);
    // When they have changed.
    void apply(const LineStore& lines);

   private:
    int rescan(const LineStore& lines);
    void updateDeclarations(const LineStore& lines, int scannedTo);

    ModuleOutline& outline_;
    LineEdit edit_;
    int from_;               // where the logical line begins that the edit falls into
    bool lineBehindStarts_;  // whether the first line behind the edit began a logical line
    int oldFirstTitle_;
    Scan scan_;
  };

  void setLineCount(int count);

  // The state in which the scan of `line` begins, which must start a logical line.
  ScanState stateBefore(int line) const;

  // The last line of the declarations.
  int declarationLines(const LineStore& lines) const;

  // Procedures are counted from 0 in order of their lines.
  std::size_t procedureCount() const { return procedures_.size(); }
  ProcedureLines procedure(std::size_t index, const LineStore& lines) const;
  // Valid as long as the lines and `scratch` stay as they are.
  Title title(std::size_t index, const LineStore& lines, std::string& scratch) const;

  // The procedure whose region holds the line; kNone for a line of the declarations.
  std::size_t procedureAt(int line, const LineStore& lines) const;
  // The first procedure of the name and kind, or kNone.
  std::size_t procedureNamed(std::string_view name, frame::ProcKind kind, const LineStore& lines) const;

  // Calls `visit` with the first and last line of each logical line at module level, those of titles
  // included, those inside blocks not.
  template <typename Visit>
  void forEachModuleLine(const LineStore& lines, Visit visit) const;

 private:
  using ProcedureTable = SpanTable<ProcedureKey>;
  using Id = ProcedureTable::Id;
  static constexpr Id kNoId = static_cast<Id>(-1);

  int lastDeclaration(const LineStore& lines, int above, int downTo) const;
  int firstTitle() const;
  Title titleOf(Id id, const LineStore& lines, std::string& scratch) const;

  void link(Id id);
  void putIntoBucket(Id id);
  void unlink(Id id);
  Id& bucket(std::uint32_t hash) { return buckets_[hash & (buckets_.size() - 1)]; }

  ProcedureTable procedures_;
  SpanTable<BlockMark> blocks_;
  std::vector<Id> buckets_;        // the first procedure of each chain of names
  mutable int declarations_ = -1;  // -1: to be looked for
};

template <typename Visit>
void ModuleOutline::forEachModuleLine(const LineStore& lines, Visit visit) const {
  std::size_t procedure = 0, block = 0;
  const auto behind = [&](int last) { return last >= lines.count() ? lines.count() + 1 : last + 1; };
  for (int line = 1; line <= lines.count();) {
    const int last = lines.logicalLast(line);
    visit(line, last);
    if (procedure < procedures_.size() && procedures_.first(procedures_.id(procedure)) == line) {
      line = behind(procedures_.last(procedures_.id(procedure++)));
    } else if (block < blocks_.size() && blocks_.first(blocks_.id(block)) == line) {
      line = behind(blocks_.last(blocks_.id(block++)));
      // A title that ended the block counts as a part of it.
      if (procedure < procedures_.size() && procedures_.first(procedures_.id(procedure)) < line)
        line = procedures_.first(procedures_.id(procedure));
    } else {
      line = last + 1;
    }
  }
}

}  // namespace kolvane::workspace
