// The Code Indenter: rewrites the white space at the start of each line, so that the block structure shows.
//
// It does not parse. A statement is told by its first words; what a statement opens or closes stands in the tables of
// indent_keywords.h. Lines are indented from line 1 of the module on, whatever their indentation was before. The lines
// of a procedure's, Type's or Enum's title are never rewritten.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "frame/host.h"
#include "frame/services.h"
#include "maintenance/project_walk.h"

namespace kolvane::maintenance {

// What survives from one module to the next, so that the caller holds it: one a suite. A well-formed module ends with
// all of them false.
struct IndentState {
  bool LineContinued = false;  // the code of the line before ended in " _"
  bool InTypeOrEnum = false;   // between a Type or Enum line and its end
  bool IfContinued = false;    // an If whose condition runs on over a continued line
  bool operator==(const IndentState&) const = default;
};

// What one statement means for the indentation: levels that it opens and closes. `onHeader` is set by a statement that
// opens a procedure, Type or Enum and left as it is by others.
void CheckLine(IndentState& state, std::string_view statement, int& indentCount, int& outdentCount,
               bool& onHeader);

// Blocks inside each other. What lies deeper is no program that anybody wrote or could compile, and its lines would be
// longer than a module's may be.
inline constexpr long kDeepestBlocks = 256;

// Where blocks nest deeper than that; the description names the line.
class NestedTooDeep final : public base::Error {
 public:
  explicit NestedTooDeep(int line);
  int line() const { return line_; }  // of the code
  static std::string reason();        // without the line

 private:
  int line_;
};

// Indents the lines `first` to `last`, beginning at level 0. Blocks deeper than kDeepestBlocks raise NestedTooDeep before
// anything is written. A line that the host refuses to change stays, and the
// others are treated. Only lines that come out different are written. Linear in the text; the host's events get their
// turn every few ten thousand lines. Under care a line number goes to column 1, and what stands behind it is indented by
// its block, as Add_Line_Numbers_Mod would have written it.
void IndentCodeLines(const frame::Services& services, IndentState& state, frame::CodeModule& module,
                     int first, int last);

// All lines of a module. Gives true.
bool CodeIndentModuleLevel(const frame::Services& services, IndentState& state, frame::CodeModule& module);

inline constexpr std::string_view kNotIndentedMessage =
    "The code of at least one file was not indented due to being either readonly or checked in within Source "
    "Code "
    "control.";

// All modules with code of a project. Read-only files are passed over; `message` then becomes kNotIndentedMessage and
// stays as it is otherwise. `progress` is null when nothing is to be shown. An error is shown and gives false, save that
// a module whose blocks nest too deep is passed over where `passesOver` says so.
using PassesOver = std::function<bool(frame::VBComponent& component, const NestedTooDeep& error)>;
bool CodeIndentProjectLevel(const frame::Services& services, IndentState& state, frame::VBProject& project,
                            std::string& message, WalkProgress* progress = nullptr,
                            const PassesOver& passesOver = nullptr);

}  // namespace kolvane::maintenance
