// The user's own error handlers in code: around the procedure at the cursor, and around the body of an event
// procedure that has just been written.
#pragma once

#include <string_view>

#include "frame/host.h"
#include "frame/services.h"

namespace kolvane::writers {

// Writes the handler into the procedure that holds the start of the pane's selection; every "&" of the name is
// left out, as a button's caption may hold access keys. Nothing happens in a property or the declarations, and
// where there is a handler already: within the reach of Handler_Exists, or anywhere in the procedure. False
// when the user has been told that it could not be done: no handler of that name, or a module that cannot be
// edited. Costs what the procedure is long.
bool CreateCustomErrorHandler(frame::Services& services, frame::VBComponent& component, frame::CodePane& pane,
                              frame::CodeModule& module, std::string_view name);

// Which handler, and what it needs to know of the procedure.
struct CustomHandlerUse {
  std::string_view handler;
  std::string_view kindWord;  // what stands behind `Exit`: "Sub", "Function"
  std::string_view user;      // for "<Username>"
};

// The procedure from line `first`, where the host lets it begin, to the line in front of `behindEnd`, its End
// line. Nothing is written where it holds an `On Error GoTo` already, or no handler has that name. The kind of
// `component` says what "<Module Name>" becomes; a standard module gets VB_MODULE_NAME. A module that cannot be
// edited raises 40198 before anything is written.
void Create_Custom_Error(const frame::Services& services, frame::CodeModule& module,
                         frame::VBComponent& component, std::string_view procedureName, int first,
                         int behindEnd, const CustomHandlerUse& use);

// The event procedure of a control whose body, title and End line apart, stands in the lines `first` to `last`.
// A handler that is there already is not looked for. A name without a handler is told to the user, and nothing
// is written.
void Create_Custom_Error(const frame::Services& services, frame::CodeModule& module,
                         std::string_view eventName, std::string_view controlName, int first, int last,
                         const CustomHandlerUse& use);

}  // namespace kolvane::writers
