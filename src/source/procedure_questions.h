// Questions to a module about its procedures. A title's line is the first physical line of the title. Lines
// are read one at a time, so that a question costs what the procedure is long and not what the module is.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// The text of one line, "" behind the module's end.
std::string lineText(frame::CodeModule& module, int line);

// ---- from the cursor to the title

// Goes up from `line` to the first line that `accept` takes and returns it. 0 when the module's start or an
// End line comes first: the cursor stands in the declarations, between two procedures or on an End line, and
// there is nothing to do. `line` itself is looked at.
using TitleTest = std::function<bool(int line, const std::string& text)>;
int walkUpToTitle(frame::CodeModule& module, int line, const TitleTest& accept);

// True when the line is an End line and nothing else, its line number and indentation apart: one with a
// comment behind it is not.
bool At_Procedure_End(frame::CodeModule& module, int line);

// ---- about a title

// The title's first line without scope and kind, up to the "(". Other words stay: "Static Foo", "Property Get
// Foo".
std::string Find_Procedure_Name(frame::CodeModule& module, int titleLine);
// The first word behind the scope: "Sub", "Function", "Property", "Static"; it serves behind `Exit`.
std::string Find_Procedure_Type(frame::CodeModule& module, int titleLine);
// "Nothing" for a Sub; what stands behind the last ") As " of anything else, a comment included; "Variant"
// without one.
std::string Find_Procedure_Return_Type(frame::CodeModule& module, int titleLine);
// The first line from the title on that holds ")"; 0 when the module has none.
int Procedure_Definition_End_Line(frame::CodeModule& module, int titleLine);
// The first End line within kLongestProcedure lines behind the title; 0 without one.
inline constexpr int kLongestProcedure = 1000;
int Find_Last_LineNumber(frame::CodeModule& module, int titleLine);

// How joinTitle takes the lines behind the first.
enum class TitlePieces { kAsTheyAre, kTrimmed };
// A title's lines as one text, continuation marks included, for as long as a line isContinued().
std::string joinTitle(frame::CodeModule& module, int titleLine, TitlePieces pieces);
// True when the text up to its first "(" holds the word Sub.
bool opensSub(std::string_view title);

// ---- about procedures as the host counts them

// The first line at or behind `line` that holds code, 0 when none follows.
int GetProcedureRealStartLine(frame::CodeModule& module, int line);
// The last line from `line` on that the host counts to `name`, short of the module's last line.
int GetProcEndLine(frame::CodeModule& module, int line, std::string_view name);
// The host's range of the plain procedure at the cursor: `end` is the line behind it. Outside of a procedure
// both stay as they are; in a property the host raises 35.
void Get_Procedure_Start_End_Lines(frame::CodeModule& module, int& start, int& end);
// The kind of the first member whose title stands at or above `line` and whose line count, laid from there,
// reaches it; kProc without one.
frame::ProcKind GetProcKindAtLine(frame::CodeModule& module, int line);
// A Sub or Function of that name; properties do not count.
bool ProcedureExists(std::string_view name, frame::CodeModule& module);
// True for an empty module too.
bool Last_Line_Is_Blank(frame::CodeModule& module);
// What the host counts to the procedure, without its first line and with the line behind it. An unknown name
// raises 35.
std::string GetProcedureCode(frame::CodeModule& module, std::string_view name);
// The same of the selected component; 91 when none is.
std::string GetProcedureCode(frame::VBE& vbe, std::string_view name);

// The index-th line of `text`, counted from 1, after its continued lines have been joined (9 when there are
// fewer). With index 0, the line of the module where `name` first stands as a word, "" when it does not.
std::string GetLineAccountingForContinuations(frame::CodeModule& module, std::string_view text, int index,
                                              std::string_view name);

}  // namespace kolvane::source
