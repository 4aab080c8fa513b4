// What stands in front of a component's code in its file: version line, object lines, the Begin tree and the
// attribute block. Kept byte for byte; an edit changes only the lines that it means.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::workspace {

class DesignerTree;

// A fault of a file, told in one line: "file(line): reason" (without "(line)" when line is 0).
struct Problem {
  std::string file;
  int line = 0;
  std::string reason;
  std::string text() const;
};

// Limit for hostile files: what goes past it is a Problem, and the part concerned stays opaque (kept, not
// parsed). Objects and property groups inside each other both count.
inline constexpr int kMaxNesting = 256;

class ComponentHeader {
 public:
  // Finds where the code begins: one pass over the header, none over the code. `bytes` is the whole file;
  // `owner` keeps it alive. Faults are appended to `problems` under `file`; the header is then kept as opaque
  // text.
  static ComponentHeader parse(std::shared_ptr<const void> owner, std::string_view bytes,
                               const std::string& file, std::vector<Problem>& problems);
  // The header of a new component, in the IDE's own layout. Raises 445 for a type whose files have no such
  // header.
  static ComponentHeader create(frame::ComponentType type, std::string_view name, std::string_view lineEnd);

  ComponentHeader(ComponentHeader&&) noexcept;
  ComponentHeader& operator=(ComponentHeader&&) noexcept;
  ~ComponentHeader();

  // Where the code begins in the bytes that were parsed.
  std::size_t codeOffset() const;
  // True when the header has a fault: its objects and settings are kept, but neither read nor changed.
  bool opaque() const;
  // The file's first line end; CR LF when it has none.
  std::string_view lineEnd() const;
  // "VB.Form", "VB.UserControl", "{guid}" …; empty for a module or class.
  std::string_view rootClass() const;

  // Values of `Attribute VB_… = value` without quotes; nothing when the line is missing. Setting one changes
  // its line, or adds the line where the IDE has it. A value with a line end raises 5.
  std::optional<std::string> attribute(std::string_view name) const;
  void setAttribute(std::string_view name, std::string_view value, bool quoted);
  // VB_Ext_KEY pairs; empty when there is none of the key, which compares without case.
  std::string extProperty(std::string_view key) const;
  void setExtProperty(std::string_view key, std::string_view value);
  // `MultiUse = -1` and the like of a class's BEGIN block. Setting one adds the line, and the block, where it
  // is missing; a comment is written behind the value. Raises 321 when the header is opaque.
  std::optional<long> classSetting(std::string_view name) const;
  void setClassSetting(std::string_view name, long value, std::string_view comment);

  // The libraries that a designer's objects come from: `"{guid}#2.0#0"; "file.ocx"` and the like, each line's
  // text behind "Object = ". A line that is there is not added again.
  std::vector<std::string> objectLines() const;
  void addObjectLine(std::string_view text);

  // Renames the component: VB_Name, and the root object of a designer. Raises 321, and changes nothing, for a
  // designer whose header is opaque.
  void rename(std::string_view name);

  // The designer's objects, parsed at the first call; nothing for a module or class. Lives as long as the
  // header. The tree of an opaque header has no objects.
  DesignerTree* designer();

  // The bytes in front of the code as they are to be written.
  void appendBytes(std::string& out) const;
  bool edited() const;

  // Companion files that the header refers to ("frmMain.frx"), each once, in order of appearance.
  std::vector<std::string> companions() const;

 private:
  struct Body;
  explicit ComponentHeader(std::unique_ptr<Body> body);
  std::unique_ptr<Body> body_;
};

}  // namespace kolvane::workspace
