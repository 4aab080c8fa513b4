// The sentences of generated code: one row a statement, block or expression.
//
// A pattern is code with slots in braces: two letters, and a digit where the name that was put in is to be
// repeated by
// "{r1}" (the same digit). A line "~" in a pattern is one or more further statements. A line that begins with
// "@" or
// "#" stands in column 1; a tab is one step of indentation, "\v" one where the module's author indents Case
// lines. A row is used only where all that its slots want is in scope; kSlots says what there is.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kolvane::generate {

enum class Slot : unsigned char {
  // variables that can be assigned to
  kText,
  kNumber,
  kFlag,
  kDecimal,
  kMoment,
  kVariant,
  kLoop,  // a number that no enclosing loop counts in
  kCollection,
  kRecordset,
  kTextArray,
  kNumberArray,
  kObject,
  // calls of functions
  kTextCall,
  kNumberCall,
  kFlagCall,
  kDecimalCall,
  kMomentCall,
  kSubCall,
  // members of an object of the project's own class
  kObjectMethod,
  kObjectAssignment,
  kObjectProperty,
  kConstantText,
  kConstantNumber,
  kTextControl,
  kListControl,
  kCheckControl,
  kCaptionControl,
  kForm,
  kOwnForm,
  kEvent,
  kReadBag,
  kWriteBag,
  // from here on always there
  kTextExpression,
  kNumberExpression,
  kFlagExpression,
  kDecimalExpression,
  kMomentExpression,
  kObjectClass,  // of the object named last
  kTextLiteral,
  kNumberLiteral,
  kHexLiteral,
  kDecimalLiteral,
  kDateLiteral,
  kCaseLabel,  // growing numbers, each once in a pattern
  kRepeat,
  kLoopValue,  // what the innermost loop counts in
  kComment,
  kNoun,
  kProcedureKeyword,
  kProcedureName,
  kErrorLabel,
  kExitLabel,
  kCondition,
  kAuthor,
  kDay,
};
inline constexpr int kScopedSlots = static_cast<int>(Slot::kTextExpression);
static_assert(kScopedSlots <= 32);

struct SlotRow {
  std::string_view code;
  Slot slot;
};
inline constexpr SlotRow kSlots[] = {
    {"vs", Slot::kText},
    {"vn", Slot::kNumber},
    {"vb", Slot::kFlag},
    {"vd", Slot::kDecimal},
    {"vt", Slot::kMoment},
    {"vv", Slot::kVariant},
    {"ix", Slot::kLoop},
    {"co", Slot::kCollection},
    {"rs", Slot::kRecordset},
    {"as", Slot::kTextArray},
    {"an", Slot::kNumberArray},
    {"ob", Slot::kObject},
    {"fs", Slot::kTextCall},
    {"fn", Slot::kNumberCall},
    {"fb", Slot::kFlagCall},
    {"fd", Slot::kDecimalCall},
    {"ft", Slot::kMomentCall},
    {"ca", Slot::kSubCall},
    {"om", Slot::kObjectMethod},
    {"oa", Slot::kObjectAssignment},
    {"op", Slot::kObjectProperty},
    {"cs", Slot::kConstantText},
    {"cn", Slot::kConstantNumber},
    {"ct", Slot::kTextControl},
    {"cl", Slot::kListControl},
    {"ck", Slot::kCheckControl},
    {"cp", Slot::kCaptionControl},
    {"fm", Slot::kForm},
    {"me", Slot::kOwnForm},
    {"ev", Slot::kEvent},
    {"pr", Slot::kReadBag},
    {"pw", Slot::kWriteBag},
    {"es", Slot::kTextExpression},
    {"en", Slot::kNumberExpression},
    {"eb", Slot::kFlagExpression},
    {"ed", Slot::kDecimalExpression},
    {"et", Slot::kMomentExpression},
    {"oc", Slot::kObjectClass},
    {"lt", Slot::kTextLiteral},
    {"li", Slot::kNumberLiteral},
    {"lh", Slot::kHexLiteral},
    {"ld", Slot::kDecimalLiteral},
    {"lm", Slot::kDateLiteral},
    {"kn", Slot::kCaseLabel},
    {"re", Slot::kRepeat},
    {"cm", Slot::kComment},
    {"no", Slot::kNoun},
    {"kw", Slot::kProcedureKeyword},
    {"pn", Slot::kProcedureName},
    {"el", Slot::kErrorLabel},
    {"xl", Slot::kExitLabel},
    {"cc", Slot::kCondition},
    {"au", Slot::kAuthor},
    {"dt", Slot::kDay},
    {"lp", Slot::kLoopValue},
};

// Places of slots by their two letters, for speed.
inline constexpr auto kSlotTable = [] {
  std::array<signed char, 26 * 26> table{};
  table.fill(-1);
  for (const SlotRow& row : kSlots)
    table[static_cast<std::size_t>((row.code[0] - 'a') * 26 + row.code[1] - 'a')] =
        static_cast<signed char>(row.slot);
  return table;
}();
constexpr Slot slotAt(std::string_view pattern, std::size_t brace) {
  const int place = (pattern[brace + 1] - 'a') * 26 + pattern[brace + 2] - 'a';
  return static_cast<Slot>(kSlotTable[static_cast<std::size_t>(place)]);
}

enum class RowKind : unsigned char { kStatement, kComment, kBlank };

struct PatternRow {
  int weight;
  std::string_view text;
  int lines = 1;   // a "~" counts as one
  int blocks = 0;  // of its lines are "~"
  std::uint32_t needs = 0;
  RowKind kind = RowKind::kStatement;

  // A slot that is not in kSlots does not compile.
  consteval PatternRow(int itsWeight, std::string_view itsText) : weight(itsWeight), text(itsText) {
    if (text.empty()) kind = RowKind::kBlank;
    if (text.starts_with("'") || text.starts_with("Rem ")) kind = RowKind::kComment;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '\n') ++lines;
      if (text[i] == '~') ++blocks;
      if (text[i] != '{') continue;
      const std::size_t close = text.find('}', i);
      const bool digit = close == i + 4 && text[i + 3] >= '0' && text[i + 3] <= '9';
      const int slot = kSlotTable[static_cast<std::size_t>((text[i + 1] - 'a') * 26 + text[i + 2] - 'a')];
      if (slot < 0 || (close != i + 3 && !digit)) throw "not a slot";
      if (slot < kScopedSlots) needs |= std::uint32_t{1} << slot;
    }
  }
};

inline constexpr PatternRow kStatements[] = {
    // blank lines and comments
    {760, ""},
    {105, "'{cm}"},
    {80, "' {cm}"},
    {5, "'{vs} = {es}"},
    {4, "'If {eb} Then {ca}"},
    {2, "'    {ca}"},
    {1, "Rem {cm}"},
    {1, "'{cm} _\nEnd of the note: {no}"},
    {1, "' ---- {no} ----"},
    // assignments
    {75, "{vs} = {es}"},
    {16, "{vs1} = {re1} & {es}"},
    {52, "{vn} = {en}"},
    {12, "{vn1} = {re1} + {li}"},
    {35, "{vb} = {eb}"},
    {9, "{vb} = True"},
    {9, "{vb} = False"},
    {24, "{vd} = {ed}"},
    {6, "{vd1} = {re1} + {ed}"},
    {8, "{vt} = {et}"},
    {6, "{vv} = {es}"},
    {6, "{as}({en}) = {es}"},
    {6, "{an}({en}) = {en}"},
    {2, "Mid$({vs}, {li}, 1) = \"-\""},
    {2, "Let {vn} = {en}"},
    // calls
    {85, "{ca}"},
    {28, "{om}"},
    {26, "{oa}"},
    {16, "{co}.Add {es}"},
    {4, "{co}.Remove {li}"},
    {4, "RaiseEvent {ev}"},
    {6, "Debug.Print {lt}; {en}"},
    {3, "DoEvents"},
    {5, "MsgBox {lt}, vbExclamation"},
    {3, "MsgBox {es} & vbCrLf & {lt}, vbInformation, App.Title"},
    {60, "{vs} = {pr}.ReadProperty(\"{no}\", {lt})"},
    {60, "{pw}.WriteProperty \"{no}\", {es}, {lt}"},
    // controls and forms
    {26, "{ct}.Text = {es}"},
    {5, "{ct}.SetFocus"},
    {9, "{ct}.Enabled = {eb}"},
    {14, "{cl}.AddItem {es}"},
    {4, "{cl}.Clear"},
    {6, "{cl1}.ItemData({re1}.NewIndex) = {en}"},
    {9, "{ck}.Value = vbChecked"},
    {18, "{cp}.Caption = {es}"},
    {8, "{cp}.Visible = {eb}"},
    {3, "{fm}.Show vbModal"},
    {2, "{me}.Caption = {es}"},
    {2, "Unload {me}"},
    {3, "Screen.MousePointer = vbHourglass"},
    {3, "Screen.MousePointer = vbDefault"},
    // objects
    {8, "Set {ob} = New {oc}"},
    {6, "Set {ob} = Nothing"},
    {4, "Set {co} = New Collection"},
    {4, "{rs}.MoveNext"},
    {14, "{vs} = {rs}!{no}Name & \"\""},
    {8, "{vn} = {rs}.Fields(\"{no}ID\").Value"},
    {8, "{rs}!{no} = {es}"},
    {3, "ReDim Preserve {as}({en})"},
    {2, "ReDim {an}(0 To {en}) As Long"},
    {1, "Erase {an}"},
    // ways out
    {8, "If {eb} Then Exit {kw}"},
    {4, "If {eb} Then {vn} = {en}"},
    {3, "If {eb} Then {vs1} = {es} Else {re1} = {lt}"},
    {4, "If {eb} Then {ca}"},
    {2, "On Error Resume Next"},
    {2, "On Error GoTo 0"},
    {1, "Err.Raise vbObjectError + {li}, {lt}, {lt}"},
    {2, "{vn} = {en}: {vs} = {es}"},
    // over several lines
    {7, "{vs} = {lt} & _\n\t{es} & _\n\t{lt}"},
    {6, "{vs} = \"SELECT {no}ID, {no}Name FROM tbl{no}\" & _\n\t\" WHERE {no}Code = '\" & {es} & \"'\""},
    {3,
     "{vs1} = \"SELECT * FROM tbl{no} AS t\"\n{re1} = {re1} & \" INNER JOIN tbl{no} AS d ON t.ID = "
     "d.{no}ID\"\n"
     "{re1} = {re1} & \" WHERE t.{no}ID = \" & {en}"},
    {3, "MsgBox {lt} & vbCrLf & _\n\t{es}, vbInformation + vbOKOnly, {lt}"},
    {1,
     "{vs} = \"INSERT INTO tbl{no} (\" & _\n\t\"{no}ID, \" & _\n\t\"{no}Name, \" & _\n\t\"{no}Code) \" & "
     "_\n\t\"VALUES (\" & _\n"
     "\t{en} & \", '\" & _\n\t{es} & \"', '\" & _\n\t{es} & \"')\""},
    {2, "Set {rs1} = New ADODB.Recordset\n{re1}.Open {es}, , adOpenForwardOnly, adLockReadOnly"},
    // blocks
    {118, "If {eb} Then\n\t~\nEnd If"},
    {56, "If {eb} Then\n\t~\nElse\n\t~\nEnd If"},
    {26, "If {eb} Then\n\t~\nElseIf {eb} Then\n\t~\nElse\n\t~\nEnd If"},
    {5, "If {eb} And _\n\t\t{eb} Then\n\t~\nEnd If"},
    {4, "If MsgBox({lt}, vbQuestion + vbYesNo) = vbYes Then\n\t~\nEnd If"},
    {14, "For {ix1} = 0 To {en}\n\t~\nNext {re1}"},
    {12, "For {ix1} = 1 To {en}\n\t~\nNext"},
    {3, "For {ix1} = {en} To {li} Step -1\n\t~\nNext {re1}"},
    {5, "For {ix1} = LBound({as2}) To UBound({re2})\n\t~\n\t{re2}({re1}) = {es}\nNext {re1}"},
    {12, "For Each {vv1} In {co}\n\t~\nNext {re1}"},
    {6, "For Each {vv1} In {co}\n\t~\nNext"},
    {5, "Do While {eb}\n\t~\nLoop"},
    {4, "Do\n\t~\nLoop Until {eb}"},
    {2, "While {eb}\n\t~\nWend"},
    {2, "Do\n\t~\n\tIf {eb} Then Exit Do\n\t~\nLoop"},
    {14, "Do Until {rs1}.EOF\n\t~\n\t{re1}.MoveNext\nLoop"},
    {12, "Select Case {en}\n\vCase {kn}\n\v\t~\n\vCase {kn}\n\v\t~\nEnd Select"},
    {9,
     "Select Case {en}\n\vCase {kn}\n\v\t~\n\vCase {kn}, {kn}\n\v\t~\n\vCase {kn} To {kn}\n\v\t~\n\vCase "
     "Else\n\v\t~\nEnd Select"},
    {3,
     "Select Case UCase$({vs})\n\vCase \"A\"\n\v\t~\n\vCase \"B\", \"C\"\n\v\t~\n\vCase Else\n\v\t~\nEnd "
     "Select"},
    {3,
     "Select Case {vn1}\n\vCase {kn}: {re1} = {li}\n\vCase {kn}: {re1} = {li}\n\vCase Is > {kn}: {re1} = "
     "0\nEnd Select"},
    {4, "With {ct}\n\t.SelStart = 0\n\t.SelLength = Len(.Text)\n\t~\nEnd With"},
    {8, "With {rs}\n\t.MoveFirst\n\t.Fields(\"{no}\").Value = {es}\n\t~\n\t.Update\nEnd With"},
    {5, "With {ob}\n\t~\nEnd With"},
    {2,
     "{vn1} = FreeFile\nOpen {es} For Input As #{re1}\nDo While Not EOF({re1})\n\tLine Input #{re1}, "
     "{vs}\n\t~\nLoop\nClose #{re1}"},
    {2, "{vn1} = FreeFile\nOpen {es} For Output As #{re1}\nPrint #{re1}, {es}; {en}\nClose #{re1}"},
    {1, "#If {cc} Then\n\t~\n#End If"},
    {1, "#If {cc} Then\n\t~\n#Else\n\t~\n#End If"},
};

// Expressions: the first tables are what they end in, the second what they are built of.
inline constexpr PatternRow kTextLeaves[] = {
    {60, "{vs}"}, {34, "{lt}"},        {6, "{cs}"}, {16, "{ct}.Text"},
    {5, "{op}"},  {5, "vbNullString"}, {5, "\"\""}, {2, "vbCrLf"},
};
inline constexpr PatternRow kTextTerms[] = {
    {24, "{es} & {es}"},
    {14, "{lt} & {vs} & {lt}"},
    {16, "{lt} & {es} & {lt} & {es} & {lt}"},
    {8, "{lt} & {en} & {lt}"},
    {10, "Trim$({es})"},
    {4, "UCase$({es})"},
    {5, "Left$({es}, {li})"},
    {5, "Mid$({vs}, {en}, {li})"},
    {2, "Right$(\"0\" & {en}, 2)"},
    {4, "Format$({et}, \"dd/mm/yyyy\")"},
    {4, "Format$({ed}, \"#,##0.00\")"},
    {10, "CStr({en})"},
    {18, "{fs}"},
    {6, "{as}({en})"},
    {5, "{cl1}.List({re1}.ListIndex)"},
    {4, "Replace({vs}, \"'\", \"''\")"},
    {3, "App.Path & \"\\{no}.dat\""},
    {2, "Chr$({li})"},
    {1, "String$({li}, \"-\")"},
    {2, "IIf({eb}, {lt}, {lt})"},
};
inline constexpr PatternRow kNumberLeaves[] = {
    {56, "{vn}"}, {26, "{li}"},          {12, "{lp}"},      {10, "{cn}"},
    {3, "{lh}"},  {3, "{cl}.ListIndex"}, {3, "{co}.Count"},
};
inline constexpr PatternRow kNumberTerms[] = {
    {14, "{vn} + {li}"}, {10, "{vn} - {li}"},
    {8, "{en} + {en}"},  {5, "{en} * {en}"},
    {14, "Len({es})"},   {8, "InStr({es}, {lt})"},
    {18, "{fn}"},        {5, "UBound({as})"},
    {5, "{an}({en})"},   {6, "CLng(Val({es}))"},
    {4, "CInt({ed})"},   {2, "{vn} Mod {li}"},
    {2, "Asc({vs})"},    {2, "({en} + {en}) \\ 2"},
    {2, "Year({et})"},   {3, "{cl1}.ItemData({re1}.ListIndex)"},
    {2, "-{vn}"},        {2, "{vn} And {lh}"},
};
inline constexpr PatternRow kFlagLeaves[] = {
    {40, "{vb}"}, {18, "{vn} = {li}"}, {16, "{vn} > 0"}, {14, "{vs} <> \"\""}, {8, "Not {vb}"}, {1, "True"},
};
inline constexpr PatternRow kFlagTerms[] = {
    {26, "{en} = {en}"},
    {14, "{en} > {en}"},
    {10, "{en} < {en}"},
    {8, "{en} <> {en}"},
    {20, "{es} = {es}"},
    {10, "{es} <> {es}"},
    {10, "Len({es}) = 0"},
    {6, "Len({es}) > {li}"},
    {8, "{eb} And {eb}"},
    {5, "{eb} Or {eb}"},
    {22, "{fb}"},
    {6, "IsNumeric({es})"},
    {5, "IsNull({rs}!{no})"},
    {5, "{ob} Is Nothing"},
    {5, "Not {ob} Is Nothing"},
    {4, "{ed} >= {ed}"},
    {10, "{ck}.Value = vbChecked"},
    {4, "{cl}.ListIndex = -1"},
    {4, "{et} > {et}"},
    {1, "{es} Like \"*#[A-Z]?\""},
    {4, "Dir$({es}) <> \"\""},
    {5, "InStr(1, {es}, {lt}, vbTextCompare) > 0"},
};
inline constexpr PatternRow kDecimalLeaves[] = {{60, "{vd}"}, {25, "{ld}"}, {15, "{vn}"}};
inline constexpr PatternRow kDecimalTerms[] = {
    {20, "{ed} * {ed}"}, {16, "{ed} + {ed}"},   {10, "{ed} / {ld}"}, {10, "Val({es})"},
    {6, "CDbl({es})"},   {5, "Round({ed}, 2)"}, {14, "{fd}"},        {4, "({ed} - {ed}) / {ld}"},
    {3, "Abs({vd})"},    {3, "CCur({es})"},
};
inline constexpr PatternRow kMomentLeaves[] = {{50, "{vt}"}, {20, "Now"}, {20, "Date"}, {3, "{lm}"}};
inline constexpr PatternRow kMomentTerms[] = {
    {12, "DateAdd(\"d\", {en}, {et})"},
    {5, "DateSerial(Year({et}), {li}, 1)"},
    {6, "CDate({es})"},
    {6, "{ft}"},
    {6, "{et} + {li}"},
};

// Comment blocks in front of titles.
inline constexpr PatternRow kBanners[] = {
    {1, "'{cm}"},
    {1, "' {cm}"},
    {1,
     "'---------------------------------------------------------------------------------------\n' {pn}\n' "
     "{cm}\n"
     "'---------------------------------------------------------------------------------------"},
    {1,
     "'*******************************************************\n'*  {pn}\n'*  {cm}\n"
     "'*******************************************************"},
    {1, "' Procedure : {pn}\n' Author    : {au}\n' Date      : {dt}\n' Purpose   : {cm}"},
    {1, "'==================================================================================="},
    {1, "'{cm}\n'{cm}"},
};

// What stands at the end of a procedure with an error handler, from the last statement to the End line.
inline constexpr PatternRow kErrorTails[] = {
    {6, "Exit {kw}\n\n@{el}:\nMsgBox Err.Description, vbCritical, \"{pn}\""},
    {3, "Exit {kw}\n@{el}:\nMsgBox \"Error \" & Err.Number & \" in {pn}: \" & Err.Description"},
    {3,
     "\n@{xl}:\nOn Error Resume Next\nExit {kw}\n\n@{el}:\nMsgBox Err.Description, vbExclamation\nResume "
     "{xl}"},
    {2,
     "Exit {kw}\n\n@{el}:\nIf Err.Number = {li} Then\n\tResume Next\nElse\n\tErr.Raise Err.Number, \"{pn}\", "
     "Err.Description\nEnd If"},
};
inline constexpr int kLongestTail = 8;
static_assert([] {
  for (const PatternRow& tail : kErrorTails)
    if (tail.lines > kLongestTail) return false;
  return true;
}());

}  // namespace kolvane::generate
