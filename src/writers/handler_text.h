// What the kinds of error handler write into a procedure, line by line.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::writers {

enum class HandlerPiece {
  kText,    // the text as it stands
  kIndent,  // the text behind the indentation of generated code
  kExit,    // "Exit " and the kind of the procedure
  kSource,  // the text, then the line that adds module and procedure to the error's source, both indented
};

struct HandlerLine {
  HandlerPiece piece;
  std::string_view text = {};
};

// Blanks at the ends belong to the lines.
inline constexpr std::array<HandlerLine, 12> kShowTail{{
    {HandlerPiece::kExit},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kText, " errHandler: "},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kIndent, "With frmVBError "},
    {HandlerPiece::kSource, "    "},
    {HandlerPiece::kIndent, "    Set .Error = Err"},
    {HandlerPiece::kText, "     "},
    {HandlerPiece::kIndent, "    .Show vbModal   "},
    {HandlerPiece::kIndent, "    Set frmVBError = Nothing   "},
    {HandlerPiece::kIndent, "End With  "},
    {HandlerPiece::kText, " "},
}};

inline constexpr std::array<HandlerLine, 8> kRaiseTail{{
    {HandlerPiece::kExit},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kText, " errHandler: "},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kSource, ""},
    {HandlerPiece::kText, ""},
    {HandlerPiece::kIndent, "Err.Raise Err.Number, Err.Source, Err.Description"},
    {HandlerPiece::kText, " "},
}};

inline constexpr std::array<HandlerLine, 6> kBlankTail{{
    {HandlerPiece::kExit},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kText, " errHandler: "},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kText, " "},
    {HandlerPiece::kText, " "},
}};

inline constexpr std::string_view kOnErrorGoto = "On Error Goto errHandler";
inline constexpr std::string_view kOnErrorResume = "On Error Resume next";

struct HandlerKind {
  std::string_view name;  // as lists of handlers show it
  std::string_view onError;
  std::span<const HandlerLine> tail;
};

inline constexpr HandlerKind kShowHandler{"Show", kOnErrorGoto, kShowTail};
inline constexpr HandlerKind kRaiseHandler{"Raise", kOnErrorGoto, kRaiseTail};
inline constexpr HandlerKind kNextHandler{"Next", kOnErrorResume, {}};
inline constexpr HandlerKind kBlankHandler{"Blank", kOnErrorGoto, kBlankTail};

// In the order of the lists.
inline constexpr std::array<const HandlerKind*, 4> kHandlerKinds{&kShowHandler, &kRaiseHandler, &kNextHandler,
                                                                 &kBlankHandler};

// What the texts leave open.
struct HandlerValues {
  std::string_view indent;    // of generated code
  std::string_view name;      // of the procedure
  std::string_view exitWord;  // what stands behind `Exit`: "Sub", "Function", "Property"
  bool standardModule =
      true;  // names itself by VB_MODULE_NAME; every other component asks for its type's name
};

// The lines in front of the End line.
std::vector<std::string> handlerTail(const HandlerKind& kind, const HandlerValues& values);

}  // namespace kolvane::writers
