// Everything that a user can start from the host: one table of commands. The entries of the context menus
// stand in context_menus.h.
//
// A command's key names it everywhere: in the settings (alone, or behind one of the prefixes below), as a hot
// key, on the command line. Keys and names are looked up without case.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/settings.h"

namespace kolvane::frame {

// In front of a key: the setting that shows the command there.
inline constexpr std::string_view kInMenuPrefix = "nM164";
inline constexpr std::string_view kOnToolbarPrefix = "b165";
inline constexpr std::string_view kCodeMenuPrefix = "o166";
inline constexpr std::string_view kControlMenuPrefix = "ol168";

// The order tables: a running number as text, and the whole key with its prefix.
inline constexpr std::string_view kMenuOrderSection = "gwejwegijrwegij";
inline constexpr std::string_view kToolbarOrderSection = "zgregefdgtrhggsd";
// A row that creates nothing and asks for a group line.
inline constexpr std::string_view kSeparatorKey = "fdsfdfdsfwert";
inline constexpr std::string_view kSeparatorName = "Separator";

// Versions that brought something new, oldest first: the steps in which default settings are written.
enum class Step : std::uint8_t { k1_2, k2_1, k2_2, k2_3, k2_4, k3_0 };

enum class Action : std::uint8_t {
  kModelessForm,  // target: the form
  kModalForm,     // target: the form
  kDispatcher,    // target: the key for Get_Name_Of_Current_Procedure
  kAtOnce,        // target: the procedure
  kNone,          // an indicator
};

// How the names of a command's two event sinks end.
enum class SinkNames : std::uint8_t {
  kUsual,       // _MenuHandler, _ToolBarHandler
  kMenuBar,     // _MenuBarHandler, _ToolBarHandler
  kTool,        // _MenuHandler, _ToolHandler
  kToolbarLow,  // _MenuHandler, _ToolbarHandler
};

struct CatalogueRow {
  int number;  // in the menu's default order; 0: never in the menu
  std::string_view key;
  std::string_view menuCaption;
  std::string_view toolbarTip;
  int toolbarNumber;  // in the toolbar's default order
  bool inMenu;
  bool onToolbar;
  std::string_view handlerStem;
  std::string_view pictureKey;
  std::string_view listName;  // in lists of options, without " in Menu" or " on Toolbar"
  Action action;
  std::string_view target;
  Step since;
  SinkNames sinks = SinkNames::kUsual;
};

namespace catalogue {
inline constexpr auto kModeless = Action::kModelessForm;
inline constexpr auto kModal = Action::kModalForm;
inline constexpr auto kDispatch = Action::kDispatcher;
inline constexpr auto kAtOnce = Action::kAtOnce;
}  // namespace catalogue

// clang-format off
inline constexpr std::array<CatalogueRow, 54> kCatalogue{{
    {1, "SPB35", "&Procedure Builder", "Procedure Builder", 1, true, false, "ProcedureBuilder",
     "Procedure Builder", "Procedure Builder", catalogue::kModeless, "frmProcedureBuilder", Step::k1_2},
    {2, "SPrB55", "P&roperty Builder", "Property Builder", 2, true, false, "PropertyBuilder",
     "Property Builder", "Property Builder", catalogue::kModeless, "frmPropertyBuilder", Step::k1_2},
    {3, "SAC62", "A&uto Coder", "Auto Coder", 3, true, false, "AutoCoder", "Auto Coder", "Auto Coder",
     catalogue::kModeless, "frmAutoCoder", Step::k1_2},
    {4, "SCIW71", "Close Inactive Win&dows", "Close Inactive Windows", 4, false, true,
     "Close_Inactive_Windows", "Close Inactive Windows", "Close Inactive Windows", catalogue::kAtOnce,
     "CloseInactiveWindows", Step::k1_2, SinkNames::kMenuBar},
    {5, "SCIW73", "Clear &Immediate Window", "Clear Immediate Window", 5, false, true,
     "Clear_Immediate_Window", "Clear Immediate Window", "Clear Immediate Window", catalogue::kAtOnce,
     "ClearImmediateWindow", Step::k1_2, SinkNames::kMenuBar},
    {6, "SCM97", "Cod&e Maintenance", "Code Maintenance", 6, true, false, "CodeMaintenance",
     "Code Maintenance", "Code Maintenance", catalogue::kModeless, "frmCodeMaintenance", Step::k1_2},
    {7, "SS66", "&Search", "Search", 7, false, true, "Search", "Search", "Search", catalogue::kModeless,
     "frmSearch", Step::k1_2},
    {8, "ShWoC90", "&word Complete", "Word Complete", 8, true, false, "WordComplete", "Word Complete",
     "Word Complete", catalogue::kAtOnce, "Complete_Word", Step::k1_2, SinkNames::kToolbarLow},
    {9, "SWCtSp91", "Word C&omplete Setup", "Word Complete Setup", 9, true, false, "WordComplete_Options",
     "Word Complete Setup", "Word Complete Setup", catalogue::kModeless, "frmWordCompleteSetup", Step::k1_2,
     SinkNames::kToolbarLow},
    {10, "SSF120", "S&QL Formatter", "SQL Formatter", 10, true, false, "SQL_Formatter", "SQL Formatter",
     "SQL Formatter", catalogue::kModeless, "frmSQLFormatter", Step::k1_2, SinkNames::kToolbarLow},
    {11, "SDDSr111", "D&B Data Scripter", "DB Data Scripter", 11, true, false, "DBScripter",
     "DB Data Scriptier", "DB Data Scriptier", catalogue::kModeless, "frmDBScripter", Step::k1_2,
     SinkNames::kToolbarLow},
    {12, "SAD93", "&Auto Declare", "Auto Declare", 12, false, true, "Auto_Declare", "Auto Declare",
     "Auto Declare", catalogue::kAtOnce, "Auto_Declare", Step::k1_2, SinkNames::kMenuBar},
    {13, "STCod135", "&Template Coder", "Template Coder", 13, true, false, "TemplateCoder", "Template Coder",
     "Template Coder", catalogue::kModeless, "frmTemplateCoder", Step::k1_2},
    {14, "SStMoi150", "Standards &Monitor", "Standards &Monitor", 14, true, false, "StandardsMonitor",
     "Standards Monitor", "Standards &Monitor", catalogue::kModeless, "frmStandardsMonitor", Step::k1_2,
     SinkNames::kToolbarLow},
    {15, "tsrjh294er", "Tab Co&ntroller", "Tab Controller", 15, false, false, "TabController",
     "Tab Controller", "Tab Controller", catalogue::kModeless, "frmTabController", Step::k2_1},
    {16, "sdfgsdf450gsdfg", "MsgBo&x Builder", "MsgBox Builder", 16, false, false, "MsgBoxBuilder",
     "MsgBox Builder", "MsgBox Builder", catalogue::kModeless, "frmMsgboxBuilder", Step::k2_3},
    {17, "wjg7sfg323fsdgsdfg", "Auto Access &Keys", "Auto Access Keys", 17, false, false, "AutoAccessKeys",
     "Auto Access Keys", "Auto Access Keys", catalogue::kModeless, "frmAutoAccessKeys", Step::k2_2,
     SinkNames::kToolbarLow},
    {18, "sardfijgnbs451sidjfgn", "Pro&ject Backup", "Project Backup", 18, false, false, "ProjectBackup",
     "Project Backup", "Project Backup", catalogue::kAtOnce, "DoZip", Step::k2_3, SinkNames::kTool},
    {19, "selkrjgnsdkjfgn452sekiruhg", "Project Backup Setup", "Project Backup Setup", 19, false, false,
     "ProjectBackup_Setup", "Project Backup Setup", "Project Backup Setup", catalogue::kModeless,
     "frmProjectBackupSetup", Step::k2_3, SinkNames::kTool},
    {20, "sdfgsdfg352dfgsdfg", "DB Class Generator", "DB Class Generator", 20, false, false,
     "DBClassGenerator", "DB Class Generator", "DB Class Generator", catalogue::kModeless,
     "frmDBClassGenerator", Step::k2_4},
    {21, "skghsfd331fghndfshd", "Clipboard Ring", "Clipboard Ring", 21, false, false, "ClipboardRing",
     "Clipboard Ring", "Clipboard Ring", catalogue::kModal, "frmClipboardRing", Step::k2_2},
    {22, "rtgertg399rsfgjnbdfg", "Men&u Copier", "Menu Copier", 22, false, false, "MenuCopier", "Menu Copier",
     "Menu Copier", catalogue::kModal, "frmMenuCopier", Step::k2_2},
    {23, "SSW118", "Strings Writer", "Strings Writer", 24, true, false, "StringsWriter", "Strings Writer",
     "Strings Writer", catalogue::kModeless, "frmStringsWriter", Step::k1_2, SinkNames::kToolbarLow},
    {24, "SCCo128", "&Control Coder", "Control Coder", 25, true, false, "ControlCoder", "Control Coder",
     "Control Coder", catalogue::kModeless, "frmControlCoder", Step::k1_2},
    {25, "SCoDr133", "Control Defaulter", "Control Defaulter", 26, true, false, "ControlDefaulter",
     "Control Defaulter", "Control Defaulter", catalogue::kModeless, "frmControlDefaulter", Step::k1_2},
    {26, "SGLV137", "Get &Latest Versions", "Get Latest Versions", 27, false, false, "GetLatestVersions",
     "Get Latest Versions", "Get Latest Versions", catalogue::kModeless, "frmGetLatestVersions", Step::k1_2},
    {27, "SMCkIns145", "Multi C&heck In", "Multi Check In", 28, false, false, "MultiCheckIns",
     "Multi Check in", "Multi Check in", catalogue::kModeless, "frmMultiCheckIn", Step::k1_2},
    {28, "SSOs138", "MS SourceSa&fe Options", "MS SourceSafe Options", 29, false, false, "Sourcesafe_Options",
     "MS Sourcesafe Options", "MS Sourcesafe Options", catalogue::kModeless, "frmMSSourceSafeOptions",
     Step::k1_2},
    {29, "thshgg546fhfg", "Procedure Header", "Procedure Header", 30, false, false,
     "ProcRecoder_ProcedureHeader", "PROCEDUREHEADER", "Procedure Header", catalogue::kDispatch, "CPRProHe80",
     Step::k2_1},
    {30, "dghdf4hfghrbdfsb", "Show Error", "Show Error", 31, false, false, "ProcRecoder_ShowError",
     "SHOWERROR", "Show Error", catalogue::kDispatch, "CPRShErHaCo76", Step::k2_1},
    {31, "tyjtj812fgeytjtyerd", "Next Error", "Next Error", 32, false, false, "ProcRecoder_NextError",
     "NEXTERROR", "Next Error", catalogue::kDispatch, "CPRNeErHanC78", Step::k2_1},
    {32, "sghehtj346turtr", "Raise Error", "Raise Error", 33, false, false, "ProcRecoder_RaiseError",
     "RAISEERROR", "Raise Error", catalogue::kDispatch, "CPRRaErHaC77", Step::k2_1},
    {33, "dtrjyt81yhbthgfhsdd", "Blank Error", "Blank Error", 34, false, false, "ProcRecoder_BlankError",
     "BLANKERROR", "Blank Error", catalogue::kDispatch, "CPRBlaErrHaCo79", Step::k2_1},
    {34, "wdgfyokiur675hnhysdafd", "5 Line Comment Block", "5 Line Comment Block", 35, false, false,
     "ProcRecoder_5LineComment", "COMMENT5LINEBLOCK", "5 Line Comment", catalogue::kDispatch, "CPRLiComBlk82",
     Step::k2_1},
    {35, "sdesertw3462ertret", "3 Line Comment Block", "3 Line Comment Block", 36, false, false,
     "ProcRecoder_3LineComment", "COMMENT3LINEBLOCK", "3 Line Comment", catalogue::kDispatch, "CPRLineComB81",
     Step::k2_1},
    {36, "segrsfdgd546fgtrtssa", "Comment Block", "Comment Block", 37, false, false,
     "ProcRecoder_CommentBlock", "COMMENTBLOCK", "Comment Block", catalogue::kDispatch, "CPRCoBlo83",
     Step::k2_1},
    {37, "erytjs25fgyrjjuj", "Uncomment Block", "Uncomment Block", 38, false, false,
     "ProcRecoder_UncommentBlock", "UNCOMMENTBLOCK", "Uncomment Block", catalogue::kDispatch, "CPRUncBl84",
     Step::k2_1},
    {38, "qertser762wergwtgtgt", "Lower Case", "Lower Case", 39, false, false, "ProcRecoder_LowerCase",
     "LOWERCASE", "Lower Case", catalogue::kDispatch, "CPRLCet86", Step::k2_1},
    {39, "ywqrty2rbrfhhhhstr", "Upper Case", "Upper Case", 40, false, false, "ProcRecoder_UpperCase",
     "UPPERCASE", "Upper Case", catalogue::kDispatch, "CPRUCTx85", Step::k2_1},
    {40, "uosegfgy27678ujryjtj", "Proper Case", "Proper Case", 41, false, false, "ProcRecoder_ProperCase",
     "PROPERCASE", "Proper Case", catalogue::kDispatch, "sdfgsdfg355eafgesfg", Step::k2_2},
    {41, "ergsr45egwerg", "Auto With", "Auto With", 42, false, false, "ProcRecoder_AutoWith", "AUTOWITH",
     "Auto With", catalogue::kDispatch, "sdfg351sfghbyh4", Step::k2_2},
    {42, "sdfsdfggs456dfgsdfgsdfg", "Sort Lines", "Sort Lines", 43, false, false, "ProcRecoder_SortLines",
     "SORTLINES", "Sort Lines", catalogue::kDispatch, "ewrqwrfdggfdg397gdsfgsfdgsf", Step::k2_2},
    {43, "skjdgjdsf645gnsfd", "Add Line Numbers", "Add Line Numbers", 44, false, false,
     "ProcRecoder_AddLineNumbers", "ADDLINENUMBERS", "Add Line Numbers", catalogue::kDispatch,
     "rgweggsdf56gfds", Step::k2_2},
    {44, "sdfgsdfg3456rhjutrjhyr", "Remove Line Numbers", "Remove Line Numbers", 45, false, false,
     "ProcRecoder_RemoveLineNumbers", "REMOVELINENUMBERS", "Remove Line Numbers", catalogue::kDispatch,
     "sdfgsdfgsdfg430esrgesrgse", Step::k2_4},
    {45, "tysd3456ffytujdz", "Split Line", "Split Line", 46, false, false, "ProcRecoder_SplitLine",
     "SPLITLINE", "Split Line", catalogue::kDispatch, "sdfgsdfgsdfg431sgsdf", Step::k2_4},
    {46, "dtkudhjgf345645gzdf", "Join Lines", "Join Lines", 47, false, false, "ProcRecoder_JoinLines",
     "JOINLINE", "Join Lines", catalogue::kDispatch, "rdfyilf567cdrtrtf", Step::k2_4},
    {47, "SGOs153", "&General Options", "General Options", 48, true, false, "GeneralOptions",
     "General Options", "General Options", catalogue::kModeless, "frmGeneralOptions", Step::k1_2},
    {48, "dsgsdfg567sdfg", "Mass Propert&y Updater", "Mass Property Updater", 49, false, false,
     "MassPropertyUpdater", "Mass Property Updater", "Mass Property Updater", catalogue::kModeless,
     "frmMassPropertyUpdater", Step::k2_4, SinkNames::kToolbarLow},
    {49, "wesrg455sdfhgbdaszfg", "Auto Documentor", "Auto Documentor", 50, false, false, "AutoDocumentor",
     "Auto Documentor", "Auto Documentor", catalogue::kModeless, "frmAutoDocumentor", Step::k3_0,
     SinkNames::kToolbarLow},
    {50, "kwefdyberf45ju", "&Hot Key Setup", "Hot Key Setup", 51, false, false, "HotKeySetup",
     "Hot Key Setup", "Hot Key Setup", catalogue::kModeless, "frmHotKey", Step::k3_0, SinkNames::kToolbarLow},
    {51, "dsf3Tgs456dg", "Custom Error Handlers", "Custom Error Handlers", 52, false, false,
     "CustomErrorHandlers", "Custom Error Handlers", "Custom Error Handlers", catalogue::kModeless,
     "frmCustomErrorHandlers", Step::k3_0},
    {52, "esfgfdsgdsf54gsdf", "Add Module Header", "Add Module Header", 53, false, false, "AddModuleHeader",
     "Add Module Header", "Add Module Header", catalogue::kAtOnce, "AddModuleHeader", Step::k3_0,
     SinkNames::kToolbarLow},
    {53, "xdfgh456dhgfhdhhdfghgfh", "Project Stats", "Project Stats", 54, false, false, "ProjectStats",
     "Project Stats", "Project Stats", catalogue::kModal, "frmStats", Step::k3_0},
    {54, "dhmstr456hdfgjdghj", "Module Stats", "Module Stats", 55, false, false, "ModuleStats",
     "Module Stats", "Module Stats", catalogue::kModal, "frmStats", Step::k3_0},
}};
// clang-format on

// The button that shows whether the project has unsaved changes. It has no menu row and no handler.
inline constexpr CatalogueRow kDirtyIndicator{
    0,  "328srgksjerg",  "Dirty Project", "Dirty Project", 23, false,     false,
    "", "Dirty Project", "Dirty Project", Action::kNone,   "", Step::k2_2};

// The command of a key (without prefix); nothing for an unknown one and for the indicator.
const CatalogueRow* findCatalogueRow(std::string_view key);
// The command of a name: its list name, toolbar tip or menu caption, "&" and case ignored.
const CatalogueRow* findCatalogueRowByName(std::string_view name);

// Names of the click handlers, such as "Search_MenuHandler_Click".
std::string menuHandlerName(const CatalogueRow& row);
std::string toolbarHandlerName(const CatalogueRow& row);

// The name that lists of options show for a whole key, such as "Search in Menu" for "nM164SS66", and the
// reverse. Empty for what nobody knows.
std::string GetAddinNameFromRegValue(std::string_view value);
std::string GetRegValueFromAddinName(std::string_view name);

// Writes both order tables afresh, in the catalogue's numbers.
void CreateDefaultMenusToolbarOrder(Settings& settings);
// Writes for every command whether the menu and the toolbar show it.
void CreateDefaultMenusToolbarChecked(Settings& settings);

}  // namespace kolvane::frame
