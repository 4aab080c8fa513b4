// Error handlers around the procedure at the cursor: the user's code ends up between an `On Error` line and a
// labelled tail.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/lists.h"
#include "frame/services.h"

namespace kolvane::writers {

// Each writes the handler of its kind into the procedure at `line`. Nothing happens in the declarations, on
// or below an End line, in a procedure that has a handler already (Handler_Exists), and where `name`, which
// is the host's for the line, is not that of the title. Properties take a Raise handler only. A module that
// cannot be edited is told to the user. A procedure without an End line in reach raises the host's error for
// a negative count, and nothing is written. Costs what the procedure is long.
void Add_Show_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                         int line);
void Add_Raise_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                          int line);
void Add_Next_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                         int line);
void Add_Blank_Error_Code(const frame::Services& services, frame::CodeModule& module, std::string_view name,
                          int line);

// The writers behind them. `definitionEnd` is the title's last line, `endLine` the procedure's End line,
// `kindWord` what stands behind `Exit`. Show and Raise see to it that a standard module has VB_MODULE_NAME. A
// module that cannot be edited raises 40198 before anything is written.
void Create_Show_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                               int endLine, std::string_view name, std::string_view kindWord);
void Create_Raise_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                                int endLine, std::string_view name, std::string_view kindWord);
void Create_Next_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                               int endLine, std::string_view name, std::string_view kindWord);
void Create_Blank_Error_Handler(const frame::Services& services, frame::CodeModule& module, int definitionEnd,
                                int endLine, std::string_view name, std::string_view kindWord);

// What they share: the `On Error` line and an empty one behind the title, the tail's lines in front of the End
// line. The body itself is not touched, and keeps what the host knows of it. A title that stands among
// alternatives of the conditional compilation has its line behind all of them, to hold for each.
void placeHandler(frame::CodeModule& module, int definitionEnd, int endLine, std::string_view onError,
                  const std::vector<std::string>& tail);

// An `On Error GoTo` stands within 18 lines behind `line` and in front of the next End line. `On Error Resume
// Next` does not count.
bool Handler_Exists(frame::CodeModule& module, int line);

// Whether a handler may be written into the procedure of that title. Always without care. Under care it may not where
// the whole procedure holds an `On Error` of any kind, or the label of the handlers. Costs what the procedure is long.
bool takesHandler(const frame::Services& services, frame::CodeModule& module, int titleLine);
// The same of the lines `first` to `last`.
bool takesHandler(const frame::Services& services, frame::CodeModule& module, int first, int last);

// Writes the constant VB_MODULE_NAME behind the declarations unless they hold it; true when it was written.
bool Ensure_VB_Module_Name_Is_Defined(frame::CodeModule& module);

// Fills a list of handlers: an empty entry, the four kinds, `customHandlers`. "Show" is selected.
void AddErrorHandlers(forms::ComboBox& list, const std::vector<std::string>& customHandlers);

}  // namespace kolvane::writers
