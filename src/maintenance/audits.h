// Three audits of a module: local variables whose prefix does not fit their type, local variables that are
// never used, and private procedures that nobody calls. They read and report, and change nothing.
//
// They see text: the declarations as source/declarations.h scans them, and words found in lines. Only Subs and
// Functions are looked at (methods_of.h), in the module's order. All are linear in the module's text and let
// events be handled on the way.
//
// A finding is a declaration with other things in some of its fields:
//
//                          wrong prefix            unused variable         unused procedure
//   Original_Name          name without prefix     name without prefix     module
//   Updated_Name           procedure               procedure               procedure
//   Original_Prefix        the prefix it has       ""                      return type
//   Updated_Prefix         the one it should have  ""                      description in its header
//   Variable_Type          declared type           declared type           "Sub", "Function", "Static"
//   Scope                  the procedure's first line of code, as text
//   Project                project                 project                 project
//   Class                  module                  module                  ""
//   Just_Original_Prefix   ""                      the prefix it has       ""
#pragma once

#include <optional>
#include <string_view>

#include "frame/services.h"
#include "source/declarations.h"

namespace kolvane::maintenance {

// Nothing when the table of prefixes is empty.
std::optional<source::colDeclarations> ReportOnVariablePrefixes_CodeModule(const frame::Services& services,
                                                                           frame::CodeModule& module,
                                                                           std::string_view projectName);
source::colDeclarations ReportOnUnusedVariables_CodeModule(const frame::Services& services,
                                                           frame::CodeModule& module,
                                                           std::string_view projectName);
// Private procedures other than event procedures of the component or of its controls.
source::colDeclarations ReportOnUnusedProcedure_CodeModule(const frame::Services& services,
                                                           frame::VBProject& project,
                                                           frame::VBComponent& component,
                                                           frame::CodeModule& module);

// ---- the parts of the first two

// For each declaration one finding for each row of its type whose prefix it does not have. Type and prefix
// compare exactly; a type without a row gives none.
source::colDeclarations GetIncorrectPrefixes(const source::colDeclarations& declarations,
                                             const frame::Settings::Rows& prefixTable);
// The declarations whose full name, up to a "(", nowhere in the lines `firstLine` to `lastLine` stands in
// front of a blank, ".", "(", ")", "," or a line's end. What stands in front of the name does not matter.
// Comments and Dim statements are left out, and so is the first string literal of a line.
source::colDeclarations GetProcedureVariablesUnused(frame::CodeModule& module,
                                                    const source::colDeclarations& declarations,
                                                    int firstLine, int lastLine);
// What stands in front of the line's first "Dim "; the whole line without one, and when it belongs to "ReDim".
std::string_view RemoveDeclarations(std::string_view line);

}  // namespace kolvane::maintenance
