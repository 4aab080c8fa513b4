// The case that keywords get in the lines that an edit brings.
#include <gtest/gtest.h>

#include <random>

#include "code_support.h"
#include "workspace/line_store.h"

namespace kolvane::test {
namespace {

struct Recased {
  std::string_view typed;
  std::string_view kept;
};

void expectRecased(std::string_view above, std::initializer_list<Recased> lines) {
  for (const Recased& line : lines) {
    CodeText code = load(above);
    const int at = code.countOfLines() + 1;
    code.insertLines(at, line.typed);
    EXPECT_EQ(code.lines(at, 100), withEnds(line.kept)) << line.typed;
  }
}

TEST(CodeRecase, ReservedWordsEverywhere) {
  expectRecased(
      "Sub A()\n",
      {
          {"if NOT x is nothing then exit sub else end", "If Not x Is Nothing Then Exit Sub Else End"},
          {"dim  date AS string*20,y as new collection", "Dim  Date As String*20,y As New collection"},
          {"select case ubound(a): case is > 1 to 2, TRUE: end select",
           "Select Case UBound(a): Case Is > 1 To 2, True: End Select"},
          {"x = string$(3, \"a\") & date$ & input$(1, #2)", "x = String$(3, \"a\") & Date$ & Input$(1, #2)"},
          {"  ME.Caption=addressof foo", "  Me.Caption=AddressOf foo"},
          {"for each v IN c : next v", "For Each v In c : Next v"},
          {"10 goto 20", "10 GoTo 20"},
          {"#if win32 and NOT debug then", "#If win32 And Not Debug Then"},
          {"  #elseif x then\n#else\n# end if\n#const a=1", "  #ElseIf x Then\n#Else\n# End If\n#Const a=1"},
      });
}

TEST(CodeRecase, LibraryFunctionsAndOtherNamesStay) {
  expectRecased("Sub A()\n", {
                                 {"x = CHR(val(mId(s, 1))) & left$(mId$(s, 1), 2)",
                                  "x = CHR(val(mId(s, 1))) & left$(mId$(s, 1), 2)"},
                                 {"ifx = theNext + end_if + \xE4nd", "ifx = theNext + end_if + \xE4nd"},
                                 {"ptrsafe = longptr", "ptrsafe = longptr"},
                                 {"text = base + binary + lib + module + step + object + name",
                                  "text = base + binary + lib + module + step + object + name"},
                             });
}

TEST(CodeRecase, WhatIsNeverTouched) {
  expectRecased("Sub A()\n",
                {
                    {"x = \"if then \"\"else\" & \"end", "x = \"if then \"\"else\" & \"end"},
                    {"print x ' if then else", "Print x ' if then else"},
                    {"x = 1: rem if then", "x = 1: Rem if then"},
                    {"if x then rem for next", "If x Then Rem for next"},
                    {"' if _\nthen _\nelse\nif", "' if _\nthen _\nelse\nIf"},
                    {"rem if _\nthen", "Rem if _\nthen"},
                    {"x.lbound = y!date + [next] + .end + rs![print]",
                     "x.lbound = y!date + [next] + .end + rs![print]"},
                    {"call f(date:=1, string := 2)", "Call f(date:=1, string := 2)"},
                    {"exit: x = date", "exit: x = Date"},
                    {"reset:\nerror: error 5", "reset:\nerror: Error 5"},
                    {"loop: next", "Loop: Next"},
                    {"  else: x = 1", "  Else: x = 1"},
                    {"Attribute b.vb_x = true", "Attribute b.vb_x = true"},
                    {"x# = y& and z! or q% xor 1.5e3 imp &hFF&", "x# = y& And z! Or q% Xor 1.5e3 Imp &hFF&"},
                });
}

TEST(CodeRecase, ContextualWordsInTheirPlaces) {
  expectRecased(
      "",
      {
          {"option explicit", "Option Explicit"},
          {"option base 1\noption compare binary\noption compare text",
           "Option Base 1\nOption Compare Binary\nOption Compare Text"},
          {"option private module", "Option Private Module"},
          {"public declare function lib lib \"a\" alias \"b\" (byval alias as any, lib as long) as object",
           "Public Declare Function lib Lib \"a\" Alias \"b\" (ByVal alias As Any, lib As Long) As Object"},
          {"declare sub x cdecl lib \"a\" ()", "Declare Sub x Cdecl Lib \"a\" ()"},
          {"property get x()\nexit property\nend property", "Property Get x()\nExit Property\nEnd Property"},
          {"friend static property let x(property)", "Friend Static Property Let x(property)"},
          {"sub a(optional error as string, byref object as object)",
           "Sub a(Optional error As String, ByRef object As Object)"},
      });
  expectRecased(
      "Sub A()\n",
      {
          {"open access for random access read write lock read as #1 len = read",
           "Open access For Random Access Read Write Lock Read As #1 Len = read"},
          {"if x then open f for append as 1: append = output",
           "If x Then Open f For Append As 1: append = output"},
          {"on error goto 0\non local error resume next", "On Error GoTo 0\nOn Local Error Resume Next"},
          {"error 5: error lngNumber\nerror = 5\nerror(1) = 2\nx = error$ + error",
           "Error 5: Error lngNumber\nerror = 5\nerror(1) = 2\nx = Error$ + error"},
          {"line input #1, line\nline = line", "Line Input #1, line\nline = line"},
          {"name a as name\nname = x\nname x, y", "Name a As name\nname = x\nname x, y"},
          {"if a then name \"x\" as \"y\" else reset", "If a Then Name \"x\" As \"y\" Else Reset"},
          {"mid(s, 1) = mid(t, 2)\nx = mid(s, 1)", "Mid(s, 1) = mid(t, 2)\nx = mid(s, 1)"},
          {"for step = step to step step step\nnext: step = 1",
           "For step = step To step Step step\nNext: step = 1"},
          {"for i = 1 to f(x) step -1: step = 2", "For i = 1 To f(x) Step -1: step = 2"},
          {"width #1, width\nwidth = 3\n  reset\nreset 1", "Width #1, width\nwidth = 3\n  Reset\nreset 1"},
          {"dim x as object, object as long", "Dim x As Object, object As Long"},
      });
}

TEST(CodeRecase, NamesDeclaredInBlocksStay) {
  expectRecased("Private Type T\n",
                {
                    {"sUB as LONG", "sUB As Long"},
                    {"  date(1 to 3) as date\nname as string\nend type\ndim x",
                     "  date(1 To 3) As Date\nname As String\nEnd Type\nDim x"},
                    {"#if x then\nnext as long\n#end if", "#If x Then\nnext As Long\n#End If"},
                    {"' date as\nRem as", "' date as\nRem as"},
                    {"private sub a()", "Private Sub a()"},
                });
  expectRecased("Enum E\n",
                {{"close = 1\nopen = not close\nend enum", "close = 1\nopen = Not Close\nEnd Enum"}});
  expectRecased("", {{"type t\n  next as long\nend type\nnext", "Type t\n  next As Long\nEnd Type\nNext"}});
}

struct InContext {
  std::string_view module;
  int line;
  std::string_view typed;
  std::string_view kept;  // the whole module
};

TEST(CodeRecase, LinesAreReadAsPartOfTheirLogicalLine) {
  const InContext cases[] = {
      {"' a comment _\n", 2, "if then", "' a comment _\nif then\n"},
      {"x = 1 ' a _\nif _\nif\n", 2, "next _", "x = 1 ' a _\nnext _\nif _\nif\n"},
      {"declare sub a _\n", 2, "lib \"x\"", "declare sub a _\nLib \"x\"\n"},
      {"' a\nif\n", 2, "rem b _", "' a\nRem b _\nif\n"},
      {"x as y\n", 1, "name a _", "Name a _\nx as y\n"},
      {"type t _\n\nif\n", 2, "' if", "type t _\n' if\n\nif\n"},
      {"Enum E\n  a _\n\n", 3, "if as", "Enum E\n  a _\nIf As\n\n"},
      {"x = c. _\n", 2, "print", "x = c. _\nprint\n"},
  };
  for (const InContext& c : cases) {
    CodeText code = load(c.module);
    code.insertLines(c.line, c.typed);
    EXPECT_EQ(visible(code), c.kept);
  }
}

// Lines whose words are all spelled as keywords are not looked at closely. A bracket in the next line has them looked
// at: both ways must give the same.
TEST(CodeRecase, IsTheSameForLinesThatSeemRightAlready) {
  constexpr std::string_view kPieces[] = {
      "if",     "If",          "x",      "Then",      "THEN",       "Text",    "Option Compare",
      "binary", "Name a As b", "End",    "Type",      " ",          " ",       ":",
      ".",      ".Text",       ".print", "!If",       "10then",     "10",      "1.5E3or",
      "&H1",    "&HFFthen",    "&",      "\"if\"",    "\"a\"\"b\"", "\"",      "' if",
      "Rem",    "rem b",       "=",      "(",         ")",          "#1",      "Error$",
      "error",  "On Error",    "_",      "Attribute", "a_If",       "Sub\xE9", "\t",
      ":="};
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    std::string line;
    for (std::size_t pieces = 1 + random() % 7; pieces > 0; --pieces) {
      line += kPieces[random() % std::size(kPieces)];
      if (random() % 2 == 0) line += ' ';
    }
    const auto recased = [](const std::string& text) {
      CodeText code = load("Sub A()\n");
      code.insertLines(2, text);
      return std::string(code.line(2));
    };
    if (workspace::continuesOnNextLine(line)) continue;
    EXPECT_EQ(recased(line + "\r\n[x] = 1"), recased(line));
  }
}

TEST(CodeRecase, OnlyTheLinesOfTheEdit) {
  CodeText code = load("dim a\nif b then _\n  c = me\nend if\n");
  code.replaceLine(3, "  d = me");
  code.insertLines(1, "dim x");
  code.deleteLines(2, 1);
  EXPECT_EQ(visible(code), "Dim x\nif b then _\n  d = Me\nend if\n");
  code.setText("sub a()\r\nend sub\r\n");
  EXPECT_EQ(visible(code), "sub a()\nend sub\n");
}

}  // namespace
}  // namespace kolvane::test
