// Reading headers back. Fields live in the module's text alone; what a reader does not find is an empty text.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "frame/services.h"
#include "source/line_tests.h"

namespace kolvane::writers {

// A header stands above the title, or in a foreign style inside of the procedure. A header that is indented
// does not count, nor does any header of a procedure whose End line directly follows its title.
bool Header_Exists(const frame::Services& services, frame::CodeModule& module, int titleLine);
// A rule, "' Name:" and "' Description:" on three lines that follow one another, within the 18 lines behind
// the title and in front of a line that begins with one of `stops`.
bool Header_Exists_Within_Procedure(frame::CodeModule& module, int titleLine,
                                    std::span<const std::string_view> stops = source::kExitsAndEnds);
// What a rule of a header in a foreign style begins with.
inline constexpr std::array<std::string_view, 2> kForeignRules{"'---------", "'*********"};

// The value of a field in the kHeaderWindow lines above `line` or on it: its lines joined, the marks at their
// starts taken out, runs of blanks shrunk to one. A field that stands higher is not found.
inline constexpr int kHeaderWindow = 11;
std::string Get_Field_From_Procedure_Header(const frame::Services& services, frame::CodeModule& module,
                                            int line, std::string_view field);

// The Parameters field at or above `line` of the procedure that the host counts `line` to, as it stands
// there, its up to eleven lines joined. A header that is indented has none.
std::string GetCurrentParameters(const frame::Services& services, frame::CodeModule& module, int line);

// What stands behind the type of one parameter ("a - Long the count" gives " the count"), with its leading
// blank. A default value stands there too.
std::string GetParameterComment(std::string_view parameter);

// The parameters of `fresh` with the comments that the parameters of the same name have in `old`. Both are
// texts of the Parameters field.
std::string carryParameterComments(std::string_view fresh, std::string_view old);

// The text behind the Description label, two lines or more above a property's title and within what the host
// counts to `name`. The second form looks for the title by its text.
std::string propertyDescriptionAbove(const frame::Services& services, frame::CodeModule& module,
                                     int titleLine, std::string_view name);
std::string GetIndividualPropertyDescription(const frame::Services& services, frame::CodeModule& module,
                                             std::string_view titleText, std::string_view name);

}  // namespace kolvane::writers
