// The one way in which the code window's commands reach the routines that write code. The commands are told
// here; the routines stand a floor above and hand themselves in.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// Which of a CodeWindowCall's members a command's routine works with, `module` and `pane` apart.
enum class ArgumentShape {
  kProcedure,  // name and line
  kLine,       // line
  kColumn,     // line and startColumn
  kLines,      // line and endLine: from the first selected line to the last
  kPane,       // the selection of `pane`
  kPaneWord,   // line, the selection of `pane`, and word
};

struct CodeWindowCommand {
  std::string_view key;
  std::string_view name;     // for people
  std::string_view routine;  // the routine that it goes to
  ArgumentShape shape;
  // Does nothing, and says nothing, unless the selection spans more than one line.
  bool needsSeveralLines = false;
  std::string_view word = {};
};

// In the order in which a key is compared.
inline constexpr std::array<CodeWindowCommand, 18> kCodeWindowCommands{{
    {"CPRShErHaCo76", "Show error handler", "Add_Show_Error_Code", ArgumentShape::kProcedure},
    {"CPRRaErHaC77", "Raise error handler", "Add_Raise_Error_Code", ArgumentShape::kProcedure},
    {"CPRNeErHanC78", "Resume Next error handler", "Add_Next_Error_Code", ArgumentShape::kProcedure},
    {"CPRBlaErrHaCo79", "Blank error handler", "Add_Blank_Error_Code", ArgumentShape::kProcedure},
    {"CPRProHe80", "Procedure header", "Add_Procedure_Header", ArgumentShape::kProcedure},
    {"CPRLineComB81", "3-line comment", "Write_3Line_Comment_Block", ArgumentShape::kLine},
    {"sdfgsdfgsdfg431sgsdf", "Split line", "LineSplitter", ArgumentShape::kColumn},
    {"rdfyilf567cdrtrtf", "Join lines", "JoinLines", ArgumentShape::kColumn},
    {"sdfg351sfghbyh4", "Auto With", "Auto_With", ArgumentShape::kLines, true},
    {"ewrqwrfdggfdg397gdsfgsfdgsf", "Sort lines", "SortCodeModLines", ArgumentShape::kLines, true},
    {"sdfgsdfgsdfg430esrgesrgse", "Remove line numbers from selection", "RemoveLineNumbersFromSelectedCode",
     ArgumentShape::kLines, true},
    {"rgweggsdf56gfds", "Add line numbers to selection", "AddLineNumbersToSelectedCode",
     ArgumentShape::kLines, true},
    {"CPRLiComBlk82", "5-line comment", "Write_5Line_Comment_Block", ArgumentShape::kLine},
    {"CPRCoBlo83", "Comment block", "Write_Comment_Block", ArgumentShape::kPane},
    {"CPRUncBl84", "Uncomment block", "Write_Uncomment_Block", ArgumentShape::kPane},
    {"CPRUCTx85", "Upper case", "MakeSelectionCase", ArgumentShape::kPaneWord, false, "UCASE"},
    {"CPRLCet86", "Lower case", "MakeSelectionCase", ArgumentShape::kPaneWord, false, "LCASE"},
    {"sdfgsdfg355eafgesfg", "Proper case", "MakeSelectionCase", ArgumentShape::kPaneWord, false, "PROPER"},
}};

namespace dispatcher_detail {
constexpr bool keysAreUnique() {
  for (std::size_t i = 0; i < kCodeWindowCommands.size(); ++i)
    for (std::size_t j = i + 1; j < kCodeWindowCommands.size(); ++j)
      if (kCodeWindowCommands[i].key == kCodeWindowCommands[j].key) return false;
  return true;
}
}  // namespace dispatcher_detail
static_assert(dispatcher_detail::keysAreUnique());

// The command of a key, compared byte for byte; nothing for another key.
const CodeWindowCommand* findCodeWindowCommand(std::string_view key);

// What a command's routine is called with.
struct CodeWindowCall {
  frame::Services& services;
  frame::CodeModule& module;
  frame::CodePane& pane;  // of that module
  std::string name;       // of the procedure that the host counts the line to
  int line = 0;
  int endLine = 0;
  int startColumn = 0;
  std::string_view word;
};

using CodeWindowAction = std::function<void(const CodeWindowCall&)>;

// The routines behind the commands, one set a suite.
class CodeWindowCommands {
 public:
  // Replaces an earlier action of the key. A key that is not in kCodeWindowCommands raises 9.
  void bind(std::string_view key, CodeWindowAction action);
  bool isBound(std::string_view key) const;
  // A command without an action raises 445 with a description that names it.
  void run(const CodeWindowCommand& command, const CodeWindowCall& call) const;

 private:
  std::array<CodeWindowAction, kCodeWindowCommands.size()> actions_;
};

// Line, name and module are taken from the active code pane when the line is this.
inline constexpr int kLineOfCursor = -1;

// Runs the command `key`. Without an active code pane, and for a key of no command, nothing happens.
// Otherwise line, name and module are those of the cursor, or those given; services.CodeTabs is rebuilt, and
// the command's routine runs.
void Get_Name_Of_Current_Procedure(frame::Services& services, const CodeWindowCommands& commands,
                                   std::string_view key, int line = kLineOfCursor, std::string name = {},
                                   std::shared_ptr<frame::CodeModule> module = nullptr);

}  // namespace kolvane::source
