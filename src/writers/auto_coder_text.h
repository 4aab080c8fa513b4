// How the Auto Coder reads and writes headers and handlers. Its functions bear the names of those of the single
// commands and differ from them on purpose: a header is recognised by its rule, any `On Error` counts as a handler,
// parameters read as in the source.
//
// A region is what the host counts to a procedure: its start line comes first, its body line is the title's.
#pragma once

#include <string>
#include <string_view>

#include "writers/context.h"
#include "writers/header_layout.h"

namespace kolvane::writers::auto_coder {

// An `On Error` of any kind stands in the `count` lines behind `line`, in front of the first End line.
bool Handler_Exists(frame::CodeModule& module, int line, int count);

// A rule of nine characters or more, or a header's Name line, stands in the region above the title or in the line
// behind the region's first, or a header of a foreign style within 18 lines. So a rule-like comment between two
// procedures counts as a header.
bool Header_Exists(const frame::Services& services, frame::CodeModule& module, int startLine, int bodyLine);

// What stands in the title's brackets, without ByVal, ByRef and every "_", with the start of a header line behind
// every second comma; "None" when there is nothing. Of a function whose parameters hold brackets, what stands in
// front of the first ")".
std::string Find_Parameter_String(const frame::Services& services, frame::CodeModule& module, int bodyLine);

// What follows the title's last "As"; "Nothing" for a title that ends in ")", of a Function too, and for one
// without "As".
std::string Find_Procedure_Return_Type(frame::CodeModule& module, int bodyLine);

// The kind word of the first procedure title at or below `line`; "" when none follows.
std::string Find_Procedure_Type(frame::CodeModule& module, int line);

// The blank lines directly above `startLine` but one; -1 without any.
int Get_Back_Count(frame::CodeModule& module, int startLine);
void Delete_Blank_Lines(frame::CodeModule& module, int line, int count);

struct HeaderText {
  std::string_view name;
  std::string_view parameters;
  std::string_view returns;
  std::string_view author;  // may be blank
};
// The values as the header has them; the callers are those of the procedure at `line`.
HeaderValues headerValues(const Context& context, frame::CodeModule& module, const HeaderText& text,
                          int line);
// Inserts a header behind `line`; nothing is cleared away. It never parts the lines of a continued statement or
// comment, and stays in front of a procedure of one line, End included. A module that cannot be edited raises 40198.
void Create_Header(const Context& context, frame::CodeModule& module, const HeaderText& text, int line);

}  // namespace kolvane::writers::auto_coder
