// What the settings hold before anybody has changed them: every option with its key and default, as data.
//
// A default is written once, by the step of the version that brought the option. Dialogs, the command line
// and the tests loop over these tables. Keys are in the suite's default code page.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "frame/catalogue.h"

namespace kolvane::frame {

// How the text of an option is meant.
enum class OptionKind : std::uint8_t {
  kCheck,    // "1" or "0"
  kBoolean,  // "True" or "False"
  kNumber,
  kText,
};

// ---- section "Options": the general options

struct GeneralOption {
  std::string_view key;
  std::string_view control;  // of frmGeneralOptions
  std::string_view caption;  // the control's own or its label's; empty where the control before says it
  std::string_view defaultText;
  OptionKind kind;
  Step since;
};

// clang-format off
inline constexpr std::array<GeneralOption, 32> kGeneralOptions{{
    {"DH7", "chkDisplayHeader", "Display Header", "1", OptionKind::kCheck, Step::k1_2},
    {"BLInH6", "chkBlankLinesInHeader", "Blank Lines In Header", "0", OptionKind::kCheck, Step::k1_2},
    {"LAH8", "chkLineAfterHeader", "Line After Header", "1", OptionKind::kCheck, Step::k1_2},
    {"InHe4", "chkIndentHeader", "Indent Header", "0", OptionKind::kCheck, Step::k1_2},
    {"TaHe5", "txtHeaderTabs", "Tabs:", "0", OptionKind::kNumber, Step::k1_2},
    {"CoCh10", "txtCommentCharacter", "Comment Character:", "*", OptionKind::kText, Step::k1_2},
    {"CoNu11", "txtNumOfCommentCharacters", "# of Characters:", "75", OptionKind::kNumber, Step::k1_2},
    {"IC2", "chkIndentCode", "Indent Code", "1", OptionKind::kCheck, Step::k1_2},
    {"TaCo3", "txtCodeTabs", "Tabs:", "1", OptionKind::kNumber, Step::k1_2},
    {"dsagfadsf3435sdf", "txtMaxWidthCodeLine", "Max Width Code Line:", "95",
     OptionKind::kNumber, Step::k2_4},
    {"DefDF17", "cboDateFormat", "Date Format:", "dd mmm yyyy", OptionKind::kText, Step::k1_2},
    {"dfgdfgdf34jhg", "chkUserName", "User Name", "False", OptionKind::kBoolean, Step::k2_4},
    {"dsfgs56djfhgysdjig", "txtUsername", "", "", OptionKind::kText, Step::k2_4},
    {"VMM18", "chkMaxForms", "Ensure Modules Maximized", "0", OptionKind::kCheck, Step::k1_2},
    {"DeCoonDelC13", "chkDeleteCodeDeleteControl", "Delete Code On Delete Control", "0",
     OptionKind::kCheck, Step::k1_2},
    {"OfDelCoDCon14", "chkConfirmDeleteCode", "Confirm Delete Code", "0", OptionKind::kCheck, Step::k1_2},
    {"gf3sdgsfg3sfg", "chkRenameControlInCode", "Rename Control In Code", "0",
     OptionKind::kCheck, Step::k1_2},
    {"RComWA15", "chkRenameComponents", "Rename New Components ", "0", OptionKind::kCheck, Step::k1_2},
    {"sreg453sdfgsdfgsdfg", "chkAddVBError", "Add VBError form to New Projects", "False",
     OptionKind::kBoolean, Step::k1_2},
    {"dvdfg348sdfgsdg", "chkClearVBW", "Clear .VBW", "False", OptionKind::kBoolean, Step::k2_2},
    {"ReCFonCl16", "chkRemoveCFiles", "Remove C++ Files", "0", OptionKind::kCheck, Step::k1_2},
    {"seg360nsdgdg", "chkSaveWindowLocation", "Save Window Location", "0", OptionKind::kCheck, Step::k1_2},
    {"CCAMC19", "chkConfirmCancel", "If changes made on form, Confirm Cancel", "0",
     OptionKind::kCheck, Step::k1_2},
    {"srtg322aeRrgf", "chkPreserveClipboard", "Preserve Clipboard On VB Startup", "0",
     OptionKind::kCheck, Step::k2_2},
    {"BGr9", "chkBeginGroup", "Add Menu Separator", "0", OptionKind::kCheck, Step::k1_2},
    {"y234wazappppff", "chkAddToolbarSeparator", "Add Toolbar Separator", "False",
     OptionKind::kBoolean, Step::k2_4},
    {"greiwuh43hferwc3dsf", "chkControlMenuSeparator", "Add Control/Code Menu Separator",
     "False", OptionKind::kBoolean, Step::k2_4},
    {"CmTUs155", "chkUseOwnToolbar", "Use Own Toolbar", "0", OptionKind::kCheck, Step::k1_2},
    {"CMergu161", "chkUseOwnMenu", "Use Own Menu", "0", OptionKind::kCheck, Step::k1_2},
    {"ergrb4345cF4c", "chkClearClipboardOnPaste", "Clear Clipboard on Paste", "1",
     OptionKind::kCheck, Step::k3_0},
    {"sfdSGRT45frsdfgstr", "chkAddBlankLineOnCopy", "Add Blank Line On Copy", "1",
     OptionKind::kCheck, Step::k3_0},
    {"ouloi45lwefwd", "chkModuleHeader", "Module Headers", "", OptionKind::kCheck, Step::k3_0},
}};
// clang-format on

// Written too, and shown in no dialog: the places of the suite's own toolbar and menu.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kBarPlaces{{
    {"ComTorPon156", "1"},
    {"CuToRwI157", "2"},
    {"CTorp159", "23"},
    {"CuTlrft158", "300"},
    {"CuMLon162", "12"},
}};

// A row of a list of tick boxes.
struct TickOption {
  std::string_view text;
  std::string_view listKey;
  std::string_view key;
  std::string_view defaultText;
  Step since;
};

// The fields of a procedure header.
inline constexpr std::array<TickOption, 9> kHeaderFields{{
    {"Name", "Name", "SN25", "True", Step::k1_2},
    {"Description", "Description", "SD26", "True", Step::k1_2},
    {"Parameters", "Parameters", "SP27", "True", Step::k1_2},
    {"Returns", "Returns", "SR28", "True", Step::k1_2},
    {"Called From", "CalledFrom", "SCF29", "False", Step::k1_2},
    {"Author", "Author", "SA30", "True", Step::k1_2},
    {"Date", "Date", "SD31", "True", Step::k1_2},
    {"Note", "Note", "SN32", "False", Step::k1_2},
    {"History", "History", "SH33", "False", Step::k1_2},
}};

// Items of the code window's popup. A reader without a stored value takes "1".
inline constexpr std::array<TickOption, 16> kProcRecoderItems{{
    {"Procedure Header", "Header", "e271der", "True", Step::k2_1},
    {"Standard Errors", "Standard Errors", "t272ad", "True", Step::k2_1},
    {"Custom Errors", "Custom Errors", "Pcl273oer", "True", Step::k2_1},
    {"5 Line Comment", "5 Line", "xdci274t", "True", Step::k2_1},
    {"3 Line Comment", "3 Line", "Re275sdfgnt", "True", Step::k2_1},
    {"Comment Block", "Comm Block", "ERPrerg276sdk", "True", Step::k2_1},
    {"Uncomment Block", "Uncomm Block", "Prh277shtyadck", "True", Step::k2_1},
    {"Selection Lower Case", "lcase", "RT290Ygs", "True", Step::k2_1},
    {"Selection Upper Case", "ucase", "Prs280erg", "True", Step::k2_1},
    {"Selection Proper Case", "proper", "fgsdfg350sdfgsfg", "False", Step::k2_2},
    {"Auto With", "AutoWith", "sergseg349dfvg", "False", Step::k2_2},
    {"Sort Lines", "SortLines", "rtdhnty370sergkmujs", "False", Step::k2_2},
    {"Add Line Numbers", "AddLineNumbers", "sregsg745okfioasdfgsdfg", "False", Step::k2_2},
    {"Remove Line Numbers", "RemoveLineNumbers", "ertertwert391ewrtwertwert", "False", Step::k2_4},
    {"Split Line", "LineSplitter", "edfdf392sdfgdfsg", "False", Step::k2_4},
    {"Join Lines", "JoinLines", "edfdfsdffgdfwwsdg", "False", Step::k2_4},
}};
inline constexpr std::string_view kProcRecoderFallback = "1";

// What the names of new components begin with.
struct ComponentPrefix {
  std::string_view type;
  std::string_view key;
  std::string_view defaultText;
  Step since;
};
inline constexpr std::array<ComponentPrefix, 6> kComponentPrefixes{{
    {"Form", "e267m", "frm", Step::k2_1},
    {"MDIForm", "p268o", "frm", Step::k2_1},
    {"Class", "O269fs", "cls", Step::k2_1},
    {"Module", "s270l", "mod", Step::k2_1},
    {"Prop. Page", "sdfgh4678bsdfvsdfv", "ppg", Step::k2_4},
    {"User Control", "esfg47sfdg", "uct", Step::k2_4},
}};

// Texts with the placeholders "<Date>", "<Author>" and "<Project>"; no default.
struct ModuleHeaderTemplate {
  std::string_view type;
  std::string_view key;
};
inline constexpr std::array<ModuleHeaderTemplate, 5> kModuleHeaderTemplates{{
    {"Form", "ghj456hgjsdfg"},
    {"Module", "sfdgyu65kdsfgdf"},
    {"Class", "fgdg982hgfhfgherag"},
    {"Prop. Page", "serhgb67alf"},
    {"User Control", "fdsgsdfhgsdf76g"},
}};

// ---- section "Options": the tools

struct ToolOption {
  std::string_view tool;
  std::string_view key;
  std::string_view meaning;
  std::string_view defaultText;
  OptionKind kind;
  Step since;
};

// clang-format off
inline constexpr std::array<ToolOption, 97> kToolOptions{{
    {"Auto Coder", "ACSE64", "selected error handler", "Show", OptionKind::kText, Step::k1_2},
    {"Auto Coder", "ACDE65", "generate error handlers", "True", OptionKind::kBoolean, Step::k1_2},
    {"Auto Coder", "ACDPH66", "generate procedure headers", "True", OptionKind::kBoolean, Step::k1_2},
    {"Auto Coder", "ACDIU67", "include login user name", "True", OptionKind::kBoolean, Step::k1_2},
    {"Code Maintenance", "CMPIC109", "project: indent code", "1", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMPFC105", "project: comments", "1", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMPSP108", "project: sort procedures", "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMPLN107", "project: invert line numbers", "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "dghdghfghdfg395srthrthgh", "project: report on variable prefixes",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "ewrwerewrc420qwercqwr", "project: report on unused variables",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "erwtwertwr422ergtergtwer", "project: update 'Called From'",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "xsjbsfd456bvsbv", "project: report on unused procedures",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMMIC104", "module: indent code", "1", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMMFC100", "module: comments", "1", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMMSP103", "module: sort procedures", "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMMLN102", "module: invert line numbers", "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "ewqrqewrqwer421erewqr", "module: report on variable prefixes",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "rfwerferfwerf423dferferf", "module: report on unused variables",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "dsfgfdgf425dsgfesgf", "module: update 'Called From'",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "gnfdv454sadfsdfs", "module: report on unused procedures",
     "0", OptionKind::kCheck, Step::k1_2},
    {"Code Maintenance", "CMDT99", "default target, 0 project, 1 module",
     "0", OptionKind::kNumber, Step::k1_2},
    {"Code Maintenance", "sfdgsfdg624fdzgdfg", "show progress", "1", OptionKind::kCheck, Step::k1_2},
    {"List My Callers", "srtgkhsdfjh46vsdfgshg", "use module declarations",
     "0", OptionKind::kCheck, Step::k1_2},
    {"List My Callers", "etrertretre4fg405ertwrt", "maximum width of Called From",
     "80", OptionKind::kNumber, Step::k1_2},
    {"List My Callers", "43tsdfvsdfgsdfgsdfg", "seconds before the cancel dialog",
     "0", OptionKind::kNumber, Step::k1_2},
    {"Search", "SDS68", "default scope, 0 module, 1 project, 2 group", "0", OptionKind::kNumber, Step::k1_2},
    {"Search", "SPS69", "pattern search", "1", OptionKind::kCheck, Step::k1_2},
    {"Search", "ffvfefgaf", "find whole word only", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "gdasfwfregf", "match case", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "jsf1dgsfgsd", "ignore matches in comments", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "sldfg464hdg", "regular expression", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "h291ve", "lines shown above a hit", "0", OptionKind::kNumber, Step::k1_2},
    {"Search", "s292il", "lines shown below a hit", "0", OptionKind::kNumber, Step::k1_2},
    {"Search", "ggfgsfjs4gf1dgsfgsd", "left trim results", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "qjth46dfgasd", "limit search results", "0", OptionKind::kCheck, Step::k1_2},
    {"Search", "dsfgd456fgsdf", "most results", "100", OptionKind::kNumber, Step::k1_2},
    {"Word Complete", "wfdg356fgdsfgafdfsderb", "use form properties", "0", OptionKind::kCheck, Step::k1_2},
    {"DB Data Scripter", "DDaScDF113", "script file", "", OptionKind::kText, Step::k1_2},
    {"DB Data Scripter", "DDaScOA114", "clear down, 0 all tables, 1 script tables",
     "0", OptionKind::kNumber, Step::k1_2},
    {"DB Data Scripter", "DDaScDU115", "user name", "", OptionKind::kText, Step::k1_2},
    {"DB Data Scripter", "DDaScDP116", "password", "", OptionKind::kText, Step::k1_2},
    {"DB Data Scripter", "aiwera45dieuf", "connection timeout in seconds",
     "30", OptionKind::kNumber, Step::k1_2},
    {"DB Data Scripter", "wae456faediruf", "command timeout in seconds",
     "30", OptionKind::kNumber, Step::k1_2},
    {"SQL Formatter", "SFLL122", "line length", "50", OptionKind::kNumber, Step::k1_2},
    {"SQL Formatter", "SFVN123", "variable name", "strSql", OptionKind::kText, Step::k1_2},
    {"SQL Formatter", "SFUV124", "declare the variable", "1", OptionKind::kCheck, Step::k1_2},
    {"SQL Formatter", "SFCQ125", "double quotes to single quotes", "1", OptionKind::kCheck, Step::k1_2},
    {"SQL Formatter", "SFUC126", "line continuation", "1", OptionKind::kCheck, Step::k1_2},
    {"SQL Formatter", "sergewrtg394terwtwertewr", "left align SQL statements",
     "0", OptionKind::kCheck, Step::k1_2},
    {"SQL Formatter", "rdfh311dfhds", "capitals of reserved words, list index",
     "0", OptionKind::kNumber, Step::k1_2},
    {"SQL Formatter", "adf315he", "capitals of table names, list index",
     "0", OptionKind::kNumber, Step::k1_2},
    {"SQL Formatter", "sq317strhgsrthar", "place of the capital in table names",
     "0", OptionKind::kNumber, Step::k1_2},
    {"Control Coder", "CoCoErH130", "error handler", "", OptionKind::kText, Step::k1_2},
    {"Control Coder", "CoCoUHe131", "create header", "1", OptionKind::kCheck, Step::k1_2},
    {"Control Coder", "265erdeer", "confirm code", "0", OptionKind::kCheck, Step::k1_2},
    {"Control Coder", "sdfgj345snfdgsdfg", "color code", "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "GLVSSDB140", "file of the database", "", OptionKind::kText, Step::k1_2},
    {"MS SourceSafe Options", "GLVSSUCU141", "log on as the current user",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "GeLaVnSSUs142", "user name, scrambled", "", OptionKind::kText, Step::k1_2},
    {"MS SourceSafe Options", "GeLtVeSoSD143", "password, scrambled", "", OptionKind::kText, Step::k1_2},
    {"MS SourceSafe Options", "So303Vdfsdrm", "Get Latest Versions: confirm operation",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "aehrf456gadshfsadf", "Get Latest Versions: auto close",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "esrfh304fghe", "Get Latest Versions: use",
     "Group", OptionKind::kText, Step::k1_2},
    {"MS SourceSafe Options", "td305fhrwm", "Multi Check In: confirm operation",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "Csghfgs308pdate", "Multi Check In: update SourceSafe",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "dsfas43dfdsfasdf", "Multi Check In: auto close",
     "0", OptionKind::kCheck, Step::k1_2},
    {"MS SourceSafe Options", "gSgh306dfhe", "Multi Check In: use", "Group", OptionKind::kText, Step::k1_2},
    {"Tab Controller", "ertervtreb400teyrtyerty", "use current tab order",
     "0", OptionKind::kCheck, Step::k2_1},
    {"Auto Access Keys", "rthg5sdfgdfgsd", "apply standard access keys", "0", OptionKind::kCheck, Step::k2_2},
    {"MsgBox Builder", "asdfsdfsdfsdf378asdfdfsdf", "variable name",
     "intMsgBox", OptionKind::kText, Step::k2_3},
    {"DB Class Generator", "re487tewertwrtert", "user name", "SA", OptionKind::kText, Step::k2_4},
    {"DB Class Generator", "slkxdnmrsdfgre456", "password", "", OptionKind::kText, Step::k2_4},
    {"DB Class Generator", "sdfgsdfg723djfgnsdfg", "remove dash", "1", OptionKind::kCheck, Step::k2_4},
    {"DB Class Generator", "s823dfgdfgsdfgsdfgsdfg", "next character upper",
     "1", OptionKind::kCheck, Step::k2_4},
    {"DB Class Generator", "ert505wretwretwret", "connection timeout in seconds",
     "30", OptionKind::kNumber, Step::k2_4},
    {"DB Class Generator", "surhgsredfh546gsfdg", "command timeout in seconds",
     "30", OptionKind::kNumber, Step::k2_4},
    {"DB Class Generator", "edwqasf1234gdfgsdfgsdfgrth", "use error handling",
     "0", OptionKind::kCheck, Step::k2_4},
    {"DB Class Generator", "rthrthaedrfa875redsf", "create collection", "1", OptionKind::kCheck, Step::k2_4},
    {"DB Class Generator", "xsdfhgfgh1111dfghfghdfgh", "create defaults",
     "0", OptionKind::kCheck, Step::k2_4},
    {"Auto Documentor", "dszfsdfsdf295dsfgsdf", "help compiler location",
     "C:\\Program Files\\HTML Help Workshop\\hhc.exe", OptionKind::kText, Step::k3_0},
    {"Auto Documentor", "sdfgfsdgsdfg329dfgsdfgfsdg", "work folder below the suite's own",
     "\\HTML Files\\", OptionKind::kText, Step::k3_0},
    {"Auto Documentor", "sdfgsdfgsdfg550dsfgdsfgdfg", "include source code",
     "1", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "fdgsdfgsdfg401dzfgsdfgsdfg", "only public members",
     "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "f445dsgsdfgsdfgsdfg", "remove empty tables", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "ef3oocm4cmd53cd", "include stats page", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "asdf591adfsdsffas", "show progress", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "wergegf456dsfgvsd6fbgs", "sort tables", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "45rtgfhbgf56fr5bxdfgh", "remember selections", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "uiofdyth567swfvacykrntb", "overview: procedures",
     "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "ufntafb347vd8ftr", "overview: properties", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "tgse5rgf7jber8tcaqre", "overview: module variables",
     "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "rthb4\xA3%^&serf7erv", "overview: events", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "er\xA3" "55%VEW%GG^\xA3%vs8erg", "overview: enums",
     "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "gfhdrtbv456wbghwrty$%&", "overview: UDTs", "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "dfgvsdgvstrgwg45656dfgsdgsd", "overview: constants",
     "0", OptionKind::kCheck, Step::k3_0},
    {"Auto Documentor", "qw4etrke45wgj4uer", "overview: source code", "0", OptionKind::kCheck, Step::k3_0},
    {"Custom Error Handlers", "uklsdf5682srghs", "color code", "0", OptionKind::kCheck, Step::k3_0},
}};
// clang-format on

// ---- section "Options": where windows stand, in twips

struct PlacementKeys {
  std::string_view left;
  std::string_view top;
  std::string_view width;
  std::string_view height;
};
struct PlacementRow {
  std::string_view name;
  PlacementKeys keys;
  int defaultWidth;
  int defaultHeight;
};
inline constexpr int kDefaultLeft = 500;
inline constexpr int kDefaultTop = 500;

// clang-format off
inline constexpr std::array<PlacementRow, 46> kPlacements{{
    {"Procedure Builder", {"PBWL46", "PBWT47", "PBWW48", "PBWH49"}, 6600, 5400},
    {"Property Builder", {"PrBWL601", "PrBWT602", "PrBWW603", "PrBWH604"}, 6600, 5400},
    {"Auto Coder", {"ACWL605", "ACWT606", "ACWW607", "ACWH608"}, 6600, 5400},
    {"sfghsdfgksdfg3547yuj", {"AAKWL609", "AAKWT610", "AAKWW611", "AAKWH612"}, 6600, 5400},
    {"Code Maintenance", {"CMWL613", "CMWT614", "CMWW615", "CMWH616"}, 6600, 5400},
    {"Search", {"Seft185", "Seap186", "Seh187", "Seht188"}, 10500, 7500},
    {"SQL Formatter", {"SFWL617", "SFWT618", "SFWW619", "SFWH620"}, 9000, 7800},
    {"DB Data Scriptier", {"DDSWL621", "DDSWT622", "DDSWW623", "DDSWH624"}, 8400, 7200},
    {"Control Defaulter", {"CDefWL625", "CDefWT626", "CDefWW627", "CDefWH628"}, 8400, 6600},
    {"Control Coder", {"CCoWL629", "CCoWT630", "CCoWW631", "CCoWH632"}, 9600, 7200},
    {"Template Coder", {"TCoWL633", "TCoWT634", "TCoWW635", "TCoWH636"}, 5400, 6600},
    {"Strings Writer", {"StrWL637", "StrWT638", "StrWW639", "StrWH640"}, 6600, 5400},
    {"Mass Property Updater", {"MPUWL641", "MPUWT642", "MPUWW643", "MPUWH644"}, 6600, 5400},
    {"ManEs148", {"CErrWL645", "CErrWT646", "CErrWW647", "CErrWH648"}, 8400, 6600},
    {"List My Callers", {"LMCWL649", "LMCWT650", "LMCWW651", "LMCWH652"}, 9000, 5400},
    {"Standards Monitor", {"StMoWL653", "StMoWT654", "StMoWW655", "StMoWH656"}, 10200, 7800},
    {"Auto Documentor", {"ADocWL657", "ADocWT658", "ADocWW659", "ADocWH660"}, 8400, 7800},
    {"Project Stats", {"PStWL661", "PStWT662", "PStWW663", "PStWH664"}, 10800, 6000},
    {"Module Stats", {"MStWL665", "MStWT666", "MStWW667", "MStWH668"}, 10800, 3600},
    {"DB Class Generator", {"DCGWL669", "DCGWT670", "DCGWW671", "DCGWH672"}, 10200, 7800},
    {"DB Class Generator Options", {"DCGOWL673", "DCGOWT674", "DCGOWW675", "DCGOWH676"}, 6000, 4200},
    {"Multi Check in", {"MCIWL677", "MCIWT678", "MCIWW679", "MCIWH680"}, 7800, 5400},
    {"Get Latest Versions", {"GLVWL681", "GLVWT682", "GLVWW683", "GLVWH684"}, 7800, 5400},
    {"Tab Controller", {"TabWL685", "TabWT686", "TabWW687", "TabWH688"}, 6600, 7200},
    {"Tab Controller Options", {"TabOWL689", "TabOWT690", "TabOWW691", "TabOWH692"}, 6000, 4200},
    {"MsgBox Builder", {"MsgWL693", "MsgWT694", "MsgWW695", "MsgWH696"}, 4920, 4440},
    {"Hot Key Setup", {"HKeyWL697", "HKeyWT698", "HKeyWW699", "HKeyWH700"}, 6600, 7200},
    {"Menu Copier", {"MCopWL701", "MCopWT702", "MCopWW703", "MCopWH704"}, 6600, 5400},
    {"Clipboard Ring", {"ClRiWL705", "ClRiWT706", "ClRiWW707", "ClRiWH708"}, 8400, 5400},
    {"Word Complete Setup", {"WCSWL709", "WCSWT710", "WCSWW711", "WCSWH712"}, 9000, 7200},
    {"ewrwerqwer396qewrqwerqwer", {"WCOWL713", "WCOWT714", "WCOWW715", "WCOWH716"}, 6000, 4200},
    {"Project Backup Setup", {"PBkWL717", "PBkWT718", "PBkWW719", "PBkWH720"}, 7800, 6600},
    {"PBO36", {"PBOWL721", "PBOWT722", "PBOWW723", "PBOWH724"}, 6000, 4200},
    {"PrBO56", {"PrBOWL725", "PrBOWT726", "PrBOWW727", "PrBOWH728"}, 6000, 4200},
    {"ACO63", {"ACOWL729", "ACOWT730", "ACOWW731", "ACOWH732"}, 6000, 4200},
    {"CMS98", {"CMSWL733", "CMSWT734", "CMSWW735", "CMSWH736"}, 6600, 5400},
    {"SO67", {"SOWL737", "SOWT738", "SOWW739", "SOWH740"}, 6000, 4200},
    {"General Options", {"Gn260t", "Ge261p", "Gn262h", "Gn263t"}, 9000, 7200},
    {"DDSrO112", {"DDSOWL741", "DDSOWT742", "DDSOWW743", "DDSOWH744"}, 6000, 4200},
    {"List My Callers Options", {"LMCOWL745", "LMCOWT746", "LMCOWW747", "LMCOWH748"}, 6000, 4200},
    {"SFO121", {"SFOWL749", "SFOWT750", "SFOWW751", "SFOWH752"}, 6000, 4200},
    {"CoCOs129", {"CCOWL753", "CCOWT754", "CCOWW755", "CCOWH756"}, 6000, 4200},
    {"MS Sourcesafe Options", {"SSOWL757", "SSOWT758", "SSOWW759", "SSOWH760"}, 6000, 4200},
    {"srthsrtg500sfrgjnsreg", {"ADTWL761", "ADTWT762", "ADTWW763", "ADTWH764"}, 9600, 7800},
    {"rthg5sdfgdfgsd", {"AAKOWL765", "AAKOWT766", "AAKOWW767", "AAKOWH768"}, 6000, 4200},
    {"aagkjh45654ydy", {"CErOWL769", "CErOWT770", "CErOWW771", "CErOWH772"}, 3525, 1845},
}};
// clang-format on

// ---- other sections: key and text

using DefaultRow = std::pair<std::string_view, std::string_view>;

inline constexpr std::string_view kVariablePrefixSection = "ADP95";
// The prefix, and the type that it stands for.
inline constexpr std::array<DefaultRow, 12> kVariablePrefixes{{
    {"str", "String"},
    {"bln", "Boolean"},
    {"int", "Integer"},
    {"lng", "Long"},
    {"sng", "Single"},
    {"dbl", "Double"},
    {"rec", "ADODB.Recordset"},
    {"dtm", "Date"},
    {"obj", "Object"},
    {"byt", "Byte"},
    {"vnt", "Variant"},
    {"col", "Collection"},
}};

inline constexpr std::string_view kWordSection = "WCW92";
// The typed text, and the code that it becomes.
inline constexpr std::array<DefaultRow, 8> kWords{{
    {"do", "DoEvents"},
    {"un", "Unload Me"},
    {"mq", R"(intAnswer = Msgbox("<Cursor Position>", vbYesNo))"},
    {"ms", R"(MsgBox "<Cursor Position>", vbOkOnly)"},
    {"ei", "End If"},
    {"ef", "Exit Function"},
    {"es", "Exit Sub"},
    {"or", "On Error Resume Next"},
}};

inline constexpr std::string_view kHotKeySection = "awes345df";
// The command's key, and key code "/" modifiers (1 Alt, 2 Control, 4 Shift).
inline constexpr std::array<DefaultRow, 10> kHotKeys{{
    {"SPB35", "80/6"},
    {"SCIW71", "87/6"},
    {"SS66", "83/6"},
    {"ShWoC90", "87/3"},
    {"SSF120", "81/6"},
    {"SAD93", "65/3"},
    {"sardfijgnbs451sidjfgn", "82/3"},
    {"skghsfd331fghndfshd", "67/3"},
    {"SGOs153", "71/3"},
    {"thshgg546fhfg", "72/3"},
}};

}  // namespace kolvane::frame
