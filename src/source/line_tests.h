// Tests on the text of one line: is it a title, an End line, a comment, blank. There is no parser behind
// them: each is a comparison of the line's start, exact in case, for code whose keywords the host keeps in
// their canonical case.
//
// "Trimmed" means without blanks and tabs at both ends. The editor turns tabs into blanks, a file that was
// written elsewhere may still hold them.
#pragma once

#include <array>
#include <string_view>

namespace kolvane::source {

// What a procedure's title may begin with. No prefix carries a blank at its end, so that a line which begins
// with the name of a variable such as Subtotal passes too.
inline constexpr std::array<std::string_view, 12> kProcedureTitles{
    "Sub",
    "Function",
    "Static Function",
    "Static Sub",
    "Public Static Function",
    "Public Static Sub",
    "Private Static Function",
    "Private Static Sub",
    "Private Function",
    "Private Sub",
    "Public Function",
    "Public Sub",
};

inline constexpr std::array<std::string_view, 3> kPropertyTitles{
    "Property ",
    "Private Property ",
    "Public Property ",
};

// The list of the line number tools, the indenter and the line splitter. It differs from kProcedureTitles on
// purpose.
inline constexpr std::array<std::string_view, 10> kUpperCaseTitles{
    "SUB",        "FUNCTION",        "PUBLIC SUB",       "PRIVATE SUB",     "PUBLIC FUNCTION",
    "STATIC SUB", "STATIC FUNCTION", "PRIVATE FUNCTION", "PUBLIC PROPERTY", "PRIVATE PROPERTY",
};

inline constexpr std::array<std::string_view, 4> kUpperCaseEnds{"EXIT SUB", "END SUB", "EXIT FUNCTION",
                                                                "END FUNCTION"};

// What ends a procedure or leaves it.
inline constexpr std::array<std::string_view, 6> kExitsAndEnds{"Exit Property", "Exit Function", "Exit Sub",
                                                               "End Property",  "End Function",  "End Sub"};
inline constexpr std::array<std::string_view, 3> kProcedureEnds{"End Property", "End Function", "End Sub"};

// Without blanks and tabs at both ends, or at the left end.
std::string_view trimWhite(std::string_view text);
std::string_view lTrimWhite(std::string_view text);

// True when `text` begins with one of `prefixes`.
template <std::size_t N>
bool startsWithAny(std::string_view text, const std::array<std::string_view, N>& prefixes) {
  for (const std::string_view prefix : prefixes)
    if (text.starts_with(prefix)) return true;
  return false;
}

// The trimmed text begins with one of kProcedureTitles. `Friend` and `Property` titles do not pass.
bool Is_Procedure_Title(std::string_view text);
// The trimmed text begins with one of kPropertyTitles.
bool Is_Property_Title(std::string_view text);
// The text in upper case begins with one of kUpperCaseTitles; nothing is trimmed.
bool Are_We_On_Procedure_Header(std::string_view text);
// For a text that the caller has put in upper case: it begins with one of kUpperCaseEnds.
bool Are_We_At_End_Of_Procedure(std::string_view text);
bool Is_Blank_Line(std::string_view text);
bool Is_Comment_Line(std::string_view text);
// The very first character is a digit; an indented number does not count.
bool Is_Numbered_Line(std::string_view text);
// The trimmed text begins with "Dim", whatever follows.
bool Is_Dim_Line(std::string_view text);
// The trimmed text begins with a point.
bool Is_With_Member_Line(std::string_view text);
// "_" stands among the last three characters, so the statement goes on in the next line.
bool isContinued(std::string_view text);

}  // namespace kolvane::source
