// What a CodeText is made of, and how an edit goes through its parts.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workspace/attribute_lines.h"
#include "workspace/code_text.h"
#include "workspace/line_store.h"
#include "workspace/module_outline.h"

namespace kolvane::workspace {

// After every edit all parts are as if the text were written and loaded again.
struct CodeText::Body {
  // Loads a text in one pass.
  Body(CodeKind moduleKind, std::shared_ptr<const void> owner, std::string_view bytes);

  // Puts `texts` in the place of `removed` lines from `first` on and re-cases them. Returns the change of the
  // visible lines: attribute lines that find their declaration disappear from them. The texts must not point
  // into this body.
  LineEdit edit(int first, int removed, const std::vector<std::string_view>& texts);

  const std::vector<MemberInfo>& memberList();

  CodeKind kind;
  LineStore lines;
  ModuleOutline outline;
  AttributeLines attributes;
  AttributeShelf shelf;
  std::optional<std::vector<MemberInfo>> members;  // until the next edit

 private:
  class Loader;

  // Lines of an edit whose declarations may change: from the logical line that the edit falls into to the one
  // behind it.
  struct Reach {
    int from;
    int to;  // behind the last of them
  };
  Reach reachOf(const LineEdit& edit, const std::vector<std::string_view>& texts) const;

  bool readsAlike(const LineEdit& edit, const std::vector<std::string_view>& texts) const;
  std::vector<LineRecord> addRecased(int first, int removed, const std::vector<std::string_view>& texts);
  static ScanState recase(ScanState state, std::span<char> logical);
  ScanState recaseAmongOthers(int front, int first, std::span<const LineRecord> added, int behind,
                              ScanState state);
  void splice(const LineEdit& edit, const std::vector<LineRecord>& records);

  AttributeShelf takeAttributes(const Reach& reach);
  void settleAttributes(const Reach& reach, AttributeShelf& loose, LineEdit& visible);
  void settleLine(int first, int last, bool mayTake, AttributeShelf& loose, LineEdit& visible);
  bool mayCarryAttributes(int line) const;
  void hideLine(int line, LineEdit& visible);
  void giveToMembersElsewhere(AttributeShelf& loose);
  void compactLines();
};

}  // namespace kolvane::workspace
