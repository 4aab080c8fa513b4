// The text of a project (.vbp) or project group (.vbg): lines of "key=value" above the first "[section]" line
// and in the sections. Every line is kept as it is, whatever it holds, until an edit means it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workspace/header_lines.h"

namespace kolvane::workspace {

// Names a line for as long as the file lives, whatever is put in front of it.
using LineId = int;
inline constexpr LineId kNoLine = 0;

// A "key=value" line above the sections. The views are valid until the line is edited.
struct ProjectEntry {
  LineId id = kNoLine;
  int number = 0;  // in the file, from 1
  std::string_view key;
  std::string_view value;  // as it stands, quotes included
};

// What a component's line says: "Module=modMain; Source\modMain.bas" has a name, "Form=frmMain.frm" has none.
struct ComponentLine {
  std::string_view name;
  std::string_view file;
};

class ProjectFile {
 public:
  // Never fails. `owner` keeps `bytes` alive.
  static ProjectFile parse(std::shared_ptr<const void> owner, std::string_view bytes);
  // What the IDE writes for a new project that has no component yet.
  static ProjectFile create(frame::ProjectType type, std::string_view name);

  std::vector<ProjectEntry> entries() const;

  // The value of the first line with the key (no regard to case), without its quotes; nothing without such a
  // line.
  std::optional<std::string> value(std::string_view key) const;
  // Changes that line, keeping its kind of quotes, or adds one at the key's usual place with its usual
  // quotes. Nothing happens when the line says so already. A value with a line end raises 5, here and below.
  void setValue(std::string_view key, std::string_view value);

  // The same in "[section]"; a section that is missing is added at the end, an empty line in front.
  std::optional<std::string> value(std::string_view section, std::string_view key) const;
  void setValue(std::string_view section, std::string_view key, std::string_view value);

  // Adds a line "key=value" behind the references, components and objects that are there.
  LineId addEntry(std::string_view key, std::string_view value);
  void setEntry(LineId id, std::string_view value);
  void removeEntry(LineId id);
  // Position among the lines, from 1; 0 when the line is gone.
  int positionOf(LineId id) const;

  // Change the part of a component's line that they name, and nothing else in it.
  void setComponentName(LineId id, std::string_view name);
  void setComponentFile(LineId id, std::string_view file);

  std::string bytes() const;
  // True from an edit until markSaved.
  bool edited() const { return edited_; }
  void markSaved() { edited_ = false; }

 private:
  struct Line {
    LineId id;
    SourceLine source;
  };

  ProjectFile() = default;
  std::size_t sectionStart(std::string_view section) const;
  std::size_t sectionEnd(std::size_t start) const;
  std::size_t findKey(std::size_t first, std::size_t last, std::string_view key) const;
  std::size_t indexOf(LineId id) const;
  std::size_t placeFor(std::string_view key) const;
  std::string_view textOf(std::size_t index) const;
  LineId insert(std::size_t index, std::string_view text);
  void setText(std::size_t index, std::string_view text);
  void setLineValue(std::size_t index, std::string_view value);

  std::shared_ptr<const void> owner_;
  std::vector<Line> lines_;
  std::string lineEnd_ = "\r\n";
  char mark_ = '"';
  LineId lastId_ = kNoLine;
  bool edited_ = false;
};

// The key of the line that names a component of the type: "Form" for a form and an MDI form.
std::string_view componentKey(frame::ComponentType type);
// The type that a component key stands for; nothing for any other key. A form may turn out to be an MDI form.
std::optional<frame::ComponentType> componentTypeOf(std::string_view key);

// The files of all lines that name a component.
std::vector<std::string> componentFiles(const ProjectFile& file);
ComponentLine componentLine(const ProjectEntry& entry);
// The value of a component's line: "modMain; modMain.bas", "frmMain.frm".
std::string componentValue(frame::ComponentType type, std::string_view name, std::string_view file);

// Without the first and the last mark, if both are there: `"Say "Hi""` gives `Say "Hi"`.
std::string_view withoutMarks(std::string_view value);

}  // namespace kolvane::workspace
