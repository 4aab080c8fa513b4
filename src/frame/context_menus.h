// What the suite adds to the context menus of the code window and of the controls window.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/catalogue.h"

namespace kolvane::frame {

// ---- entries that the options can switch on and off, in the order of their list

struct ContextEntry {
  std::string_view prefix;  // kCodeMenuPrefix or kControlMenuPrefix
  std::string_view key;
  std::string_view name;  // without " in Code Menu" or " in Control Menu"
  Step since;
};

inline constexpr std::array<ContextEntry, 9> kContextEntries{{
    {kCodeMenuPrefix, "SCPR75", "Proc. Recoder", Step::k2_1},
    {kCodeMenuPrefix, "SLMCs147", "List My Callers", Step::k1_2},
    {kCodeMenuPrefix, "reYrgUdfg67JKAEWFdfadef", "Enhanced Clipboard", Step::k3_0},
    {kControlMenuPrefix, "SCCo128", "Control Coder", Step::k1_2},
    {kControlMenuPrefix, "SCoDr133", "Control Defaulter", Step::k1_2},
    {kControlMenuPrefix, "SSTO152", "Set Tab Order", Step::k2_1},
    {kControlMenuPrefix, "SAD93", "Copy Control Code", Step::k2_4},
    {kControlMenuPrefix, "sd324srtgseg", "Swap Controls", Step::k2_2},
    {kControlMenuPrefix, "fd345sfdghjsga", "Selected Controls", Step::k2_2},
}};

inline std::string contextEntryName(const ContextEntry& entry) {
  return std::string(entry.name)
      .append(entry.prefix == kCodeMenuPrefix ? " in Code Menu" : " in Control Menu");
}

// ---- the code window's menu

enum class PopupKind : std::uint8_t {
  kPopup,
  kButton,
  kCustomErrors,  // a popup with one button for each custom error handler, absent when there are none
};

struct PopupItem {
  int level;  // 0 the popup itself, 1 its items, 2 the items of the popup above
  std::string_view caption;
  PopupKind kind;
  // The setting that shows it; empty: a popup when any of its items is on, a button always.
  std::string_view option;
  std::string_view pictureKey;
  std::string_view handler;
  std::string_view target;  // the key for Get_Name_Of_Current_Procedure
};

inline constexpr std::array<PopupItem, 24> kProcRecoderPopup{{
    {0, "Pr&oc. Re-Coder", PopupKind::kPopup, "", "", "", ""},
    {1, "Procedure &Header", PopupKind::kButton, "e271der", "PROCEDUREHEADER",
     "evtCode_ProcedureHeader_Click", "CPRProHe80"},
    {1, "&Standard Errors", PopupKind::kPopup, "t272ad", "", "", ""},
    {2, "&Show", PopupKind::kButton, "", "", "evtCode_ShowErrorCode_Click", "CPRShErHaCo76"},
    {2, "&Raise", PopupKind::kButton, "", "", "evtCode_RaiseErrorCode_Click", "CPRRaErHaC77"},
    {2, "&Next", PopupKind::kButton, "", "", "evtCode_NextErrorCode_Click", "CPRNeErHanC78"},
    {2, "&Blank", PopupKind::kButton, "", "", "evtCode_BlankErrorCode_Click", "CPRBlaErrHaCo79"},
    {1, "Custo&m Errors", PopupKind::kCustomErrors, "Pcl273oer", "CUSTOMERROR", "", ""},
    {1, "&Comments", PopupKind::kPopup, "", "", "", ""},
    {2, "&5 Line Comment", PopupKind::kButton, "xdci274t", "", "evtCode_5LineComment_Click", "CPRLiComBlk82"},
    {2, "&3 Line Comment", PopupKind::kButton, "Re275sdfgnt", "", "evtCode_3LineComment_Click",
     "CPRLineComB81"},
    {2, "&Comment Block", PopupKind::kButton, "ERPrerg276sdk", "", "evtCode_CommentBlock_Click",
     "CPRCoBlo83"},
    {2, "U&ncomment Block", PopupKind::kButton, "Prh277shtyadck", "", "evtCode_UncommentBlock_Click",
     "CPRUncBl84"},
    {1, "S&election Case", PopupKind::kPopup, "", "", "", ""},
    {2, "&Lower", PopupKind::kButton, "RT290Ygs", "", "evtCode_MakeSelectionLCase_Click", "CPRLCet86"},
    {2, "&Upper", PopupKind::kButton, "Prs280erg", "", "evtCode_MakeSelectionUCase_Click", "CPRUCTx85"},
    {2, "&Proper", PopupKind::kButton, "fgsdfg350sdfgsfg", "", "evtCode_MakeSelectionProperCase_Click",
     "sdfgsdfg355eafgesfg"},
    {1, "M&isc.", PopupKind::kPopup, "", "", "", ""},
    {2, "Au&to With", PopupKind::kButton, "sergseg349dfvg", "", "evtCode_Auto_With_Click", "sdfg351sfghbyh4"},
    {2, "Sort &Lines", PopupKind::kButton, "rtdhnty370sergkmujs", "", "evtCode_Sort_Lines_Click",
     "ewrqwrfdggfdg397gdsfgsfdgsf"},
    {2, "Add Line &Numbers", PopupKind::kButton, "sregsg745okfioasdfgsdfg", "",
     "evtCode_Add_Line_Numbers_Click", "rgweggsdf56gfds"},
    {2, "&Remove Line Numbers", PopupKind::kButton, "ertertwert391ewrtwertwert", "",
     "evtCode_Remove_Line_Numbers_Click", "sdfgsdfgsdfg430esrgesrgse"},
    {2, "&Split Line", PopupKind::kButton, "edfdf392sdfgdfsg", "", "evtCode_LineSplitter_Click",
     "sdfgsdfgsdfg431sgsdf"},
    {2, "&Join Lines", PopupKind::kButton, "edfdfsdffgdfwwsdg", "", "evtCode_JoinLines_Click",
     "rdfyilf567cdrtrtf"},
}};

inline constexpr int kMaxCustomErrors = 12;
// What all of their buttons lead to.
inline constexpr std::string_view kCustomErrorAction = "CreateCustomErrorHandler";
// The click of the custom error handler's button, counted from 1.
inline std::string customErrorHandlerName(int number) {
  return "evtCode_CustomError" + std::to_string(number) + "_Click";
}

// An entry without a setting of its own in its table.
struct MenuEntry {
  std::string_view caption;
  std::string_view pictureKey;
  std::string_view handler;
};

inline constexpr MenuEntry kListMyCallersEntry{"&List My Callers", "List My Callers",
                                               "evtListMyCallers_Click"};
inline constexpr std::string_view kEnhancedClipboardCaption = "&Enhanced Clipboard";
inline constexpr std::array<MenuEntry, 4> kEnhancedClipboardPopup{{
    {"&Copy", "Enhanced Clipboard Copy", "evtEnhancedClipboard_Copy_Click"},
    {"Cop&y Procedure", "Enhanced Clipboard Copy Procedure", "evtEnhancedClipboard_CopyProcedure_Click"},
    {"C&lear", "Enhanced Clipboard Clear", "evtEnhancedClipboard_Clear_Click"},
    {"&Paste", "Enhanced Clipboard Paste", "evtEnhancedClipboard_Paste_Click"},
}};

// ---- the controls window's menu

inline constexpr MenuEntry kControlCoderEntry{"Cont&rol Coder", "Control Coder", "cmdbarControlCoder_Click"};
inline constexpr MenuEntry kControlDefaulterEntry{"Control De&faulter", "Control Defaulter",
                                                  "cmdbarPop_Click"};
inline constexpr MenuEntry kTabOrderEntry{"S&et Tab Order", "Set Tab Order", "cmdbarTabOrder_Click"};
inline constexpr MenuEntry kSwapControlsEntry{"S&wap Controls", "Swap Controls", "cmdbarSwapControls_Click"};
inline constexpr MenuEntry kSelectedControlsEntry{"Selected Controls", "Selected Controls",
                                                  "cmdbarSelectedControls_Click"};
// A control's name and " Code" follow in the caption.
inline constexpr MenuEntry kCopyControlCodeEntry{"Cop&y ", "Copy Control Code", "CopyControlCode_Click"};
inline constexpr MenuEntry kPasteControlCodeEntry{"P&aste ", "Paste Control Code", "PasteControlCode_Click"};

}  // namespace kolvane::frame
