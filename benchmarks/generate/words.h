// The vocabulary of the generated programs: an office suite for a trading company with a workshop.
#pragma once

#include <string_view>

namespace kolvane::generate::words {

using namespace std::string_view_literals;

// What identifiers are made of.
inline constexpr std::string_view kNouns[] = {
    "Account",   "Address",  "Agent",      "Amount",   "Article", "Backup",   "Balance",  "Bank",
    "Barcode",   "Batch",    "Branch",     "Budget",   "Buffer",  "Calendar", "Carrier",  "Cash",
    "Catalog",   "Category", "Channel",    "Cheque",   "City",    "Code",     "Company",  "Connection",
    "Contact",   "Contract", "Counter",    "Country",  "Courier", "Credit",   "Currency", "Customer",
    "Dealer",    "Delivery", "Department", "Deposit",  "Detail",  "Device",   "Discount", "Document",
    "Drawing",   "Employee", "Entry",      "Export",   "Factor",  "Field",    "Filter",   "Folder",
    "Freight",   "Goods",    "Group",      "Guest",    "Header",  "History",  "Import",   "Index",
    "Inventory", "Invoice",  "Item",       "Job",      "Journal", "Label",    "Language", "Ledger",
    "Limit",     "List",     "Location",   "Log",      "Machine", "Margin",   "Member",   "Message",
    "Meter",     "Node",     "Note",       "Number",   "Offer",   "Office",   "Operator", "Order",
    "Owner",     "Packing",  "Page",       "Part",     "Partner", "Password", "Payment",  "Percent",
    "Period",    "Phone",    "Picture",    "Position", "Price",   "Printer",  "Product",  "Profile",
    "Quantity",  "Query",    "Queue",      "Quote",    "Range",   "Rate",     "Reading",  "Receipt",
    "Record",    "Region",   "Report",     "Request",  "Reserve", "Result",   "Return",   "Row",
    "Salary",    "Sample",   "Scanner",    "Schedule", "Section", "Sensor",   "Serial",   "Server",
    "Session",   "Shift",    "Shipment",   "Stock",    "Storage", "Street",   "Supplier", "Table",
    "Tariff",    "Tax",      "Template",   "Ticket",   "Title",   "Tool",     "Total",    "Transfer",
    "Unit",      "User",     "Value",      "Vehicle",  "Vendor",  "Version",  "Voucher",  "Warehouse",
    "Weight",    "Window",   "Worker",     "Zone"};

inline constexpr std::string_view kVerbs[] = {
    "Add",     "Apply",  "Assign", "Calc",    "Check",  "Clear",  "Close",  "Collect",  "Compare", "Convert",
    "Copy",    "Create", "Delete", "Draw",    "Enable", "Export", "Fill",   "Filter",   "Find",    "Format",
    "Get",     "Import", "Init",   "Insert",  "Load",   "Lock",   "Log",    "Move",     "Open",    "Parse",
    "Prepare", "Print",  "Read",   "Refresh", "Remove", "Reset",  "Resize", "Save",     "Select",  "Send",
    "Set",     "Show",   "Sort",   "Split",   "Start",  "Store",  "Update", "Validate", "Verify",  "Write"};

// Verbs of functions that answer yes or no.
inline constexpr std::string_view kQuestions[] = {"Is", "Has", "Can", "Check", "Exists"};

inline constexpr std::string_view kQualifiers[] = {"Active",  "All",   "Base", "Closed",  "Current",  "Daily",
                                                   "Default", "First", "Full", "Grand",   "Last",     "Local",
                                                   "Main",    "Max",   "Min",  "Monthly", "New",      "Next",
                                                   "Old",     "Open",  "Paid", "Prev",    "Selected", "Temp"};

inline constexpr std::string_view kModuleRoles[] = {"",       "Utils",  "Data",  "Api",   "Main",
                                                    "Print",  "File",   "Tools", "Sql",   "Format",
                                                    "Config", "Global", "Calc",  "Import"};
inline constexpr std::string_view kClassRoles[] = {"",       "s",      "Info",   "Manager", "Reader",
                                                   "Writer", "Engine", "Cache",  "Item",    "Parser",
                                                   "List",   "Entry",  "Events", "Factory"};
inline constexpr std::string_view kFormRoles[] = {"",        "List",    "Edit",   "Search",  "Options",
                                                  "Details", "Select",  "Report", "Preview", "Entry",
                                                  "Wizard",  "History", "Import", "Print"};
inline constexpr std::string_view kControlRoles[] = {"Box", "Grid", "Picker", "Panel",
                                                     "Bar", "View", "Meter"};

// Comments; "%" stands for one of the nouns in lower case.
inline constexpr std::string_view kSentences[] = {
    "get the % from the database, together with its % when the user has asked for it",
    "check if the % is valid",
    "no % was selected",
    "load the % list, newest first",
    "make sure that the % isn't empty",
    "the % may have been removed by another user",
    "reset the % counter; the next call starts at 1 again",
    "TODO: show the % here as well",
    "calculate the total of the %",
    "skip this % when it is already closed",
    "save the current % first, otherwise the changes made in the grid are lost",
    "update the display",
    "the % comes with a trailing blank from the old system",
    "this is only needed for the % of older versions",
    "If the % is missing, use the default one",
    "don't change the % while it's printed",
    "fill the combo box with every %",
    "initialise variables",
    "the user pressed Cancel",
    "write the % to the log file, one line each, and don't stop when the disk is full",
    "we have to do this twice: the % triggers the change event",
    "first the %, then the rest",
    "Sub-totals go below the %",
    "End of the % loop",
    "quick exit when nothing has changed",
    "convert the % to local currency at the rate of the day (see the manual, chapter 4, '%')",
    "*** changed for the new % format ***",
    "only one % at a time, please: the library isn't reentrant and returns garbage then",
    "remember the old % so that it can be restored when the user presses Cancel later on",
    "find the first % which matches both the % and the number that was entered",
    "the \"%\" column is hidden",
    "FIXME: what if the % is longer than 40 characters?",
    "same as above for the %, but only if the % has been approved by somebody",
    "rounding: half a cent goes to the %",
    "ask before the % is overwritten",
    "the grid counts rows from 0, the % from 1",
};
inline constexpr std::string_view kAccentedSentences[] = {
    "Summe f\xFCr den % neu berechnen",
    "gr\xF6\xDFter Wert, danach \xFC"
    "berspringen",
    "pr\xFC"
    "fen, ob der % g\xFCltig ist",
    "v\xE9rifier si le % existe d\xE9j\xE0",
    "la fen\xEAtre doit \xEAtre ferm\xE9"
    "e avant",
    "si no hay % se usa el a\xF1o actual",
    "n\xFAmero de p\xE1gina del %",
    "\x84%\x93 \x96 siehe Handbuch \xA7 7",
};

// Texts of string literals, quotes doubled as in code; "%" stands for a noun.
inline constexpr std::string_view kTexts[] = {
    "%",
    "%s",
    "Please select a % first, then press the button again to continue.",
    "The % can't be deleted because it's in use.",
    "Do you really want to remove this % and everything that belongs to it?",
    "% not found",
    "Error while reading the % from the server: ",
    "Invalid % number. Enter \"\"0\"\" or leave it blank.",
    "Loading %...",
    "yyyy-mm-dd",
    "C:\\Data\\%.dat",
    " WHERE %ID = ",
    " AND Deleted = 0",
    " ORDER BY t.%Name, t.%Code, t.LastChanged DESC",
    "DELETE FROM tbl% WHERE %ID = ",
    "%='",
    "'",
    "', '",
    "Couldn't open file '%'",
    "N/A",
    ", ",
    ": ",
    " - ",
    "0",
    "The user's % isn't valid; End Sub was reached",
    "Ready",
    "Some of the % have not been saved yet. Are you sure?",
    "OK",
    "Total for this %",
    "You don't have permission to change the %.",
    "\\",
    "*.txt",
    "% saved",
    "Record # of #",
    "The import of the % file has been finished without errors.",
    "Value must be greater than zero",
    "http://localhost/%",
    "(none)",
};
inline constexpr std::string_view kAccentedTexts[] = {
    "Gr\xF6\xDF"
    "e ge\xE4ndert",
    "Stra\xDF"
    "e",
    "M\xFCller & S\xF6hne",
    "\x80 ",
    "Ann\xE9"
    "e",
    "Se\xF1or",
    "Pr\xE9nom",
    "% l\xF6schen?",
    "\xA9 2001",
    "N\xB0 ",
    "\xBFQuiere borrar el registro?",
    "\x93Zitat\x94",
};
inline constexpr std::string_view kAccentedNames[] = {
    "Gr\xF6\xDF"
    "e",
    "Pr\xFC"
    "fung",
    "A\xF1o", "Num\xE9ro",
    "\xDC"
    "bersicht"};

inline constexpr std::string_view kAuthors[] = {"P. Holm",   "A. Brandt", "jk",
                                                "M. Okafor", "Sue",       "R. Lindqvist"};

inline constexpr std::string_view kErrorLabels[] = {"ErrHandler", "ErrTrap",     "ErrorHandler",
                                                    "EH",         "Err_Handler", "LocalErr"};
inline constexpr std::string_view kExitLabels[] = {"ExitHere", "CleanUp", "Done", "ExitProc"};
inline constexpr std::string_view kConditions[] = {"DEBUG_BUILD", "TRIAL_VERSION", "USE_ADO", "Win32"};

// Declarations of the operating system's functions, one of them a line of this table; inner lines parted by
// "\n".
inline constexpr std::string_view kDeclares[] = {
    "Declare Function GetTickCount Lib \"kernel32\" () As Long",
    "Declare Sub Sleep Lib \"kernel32\" (ByVal dwMilliseconds As Long)",
    "Declare Function SendMessage Lib \"user32\" Alias \"SendMessageA\" (ByVal hWnd As Long, ByVal wMsg As "
    "Long, ByVal wParam As Long, lParam As Any) As Long",
    "Declare Function GetPrivateProfileString Lib \"kernel32\" Alias \"GetPrivateProfileStringA\" ( _\n"
    "        ByVal lpApplicationName As String, _\n"
    "        ByVal lpKeyName As Any, _\n"
    "        ByVal lpDefault As String, _\n"
    "        ByVal lpReturnedString As String, _\n"
    "        ByVal nSize As Long, _\n"
    "        ByVal lpFileName As String) As Long",
    "Declare Function GetComputerName Lib \"kernel32\" Alias \"GetComputerNameA\" (ByVal lpBuffer As String, "
    "nSize As Long) As Long",
    "Declare Function ShellExecute Lib \"shell32.dll\" Alias \"ShellExecuteA\" (ByVal hWnd As Long, ByVal "
    "lpOperation As String, _\n"
    "    ByVal lpFile As String, ByVal lpParameters As String, ByVal lpDirectory As String, ByVal nShowCmd "
    "As Long) As Long",
    "Declare Sub CopyMemory Lib \"kernel32\" Alias \"RtlMoveMemory\" (Destination As Any, Source As Any, "
    "ByVal Length As Long)",
    "Declare Function GetWindowText Lib \"user32\" Alias \"GetWindowTextA\" (ByVal hWnd As Long, ByVal "
    "lpString As String, ByVal cch As Long) As Long",
    "Declare Function SetWindowPos Lib \"user32\" (ByVal hWnd As Long, ByVal hWndInsertAfter As Long, ByVal "
    "x As Long, ByVal y As Long, ByVal cx As Long, ByVal cy As Long, ByVal wFlags As Long) As Long",
    "Declare Function GetTempPath Lib \"kernel32\" Alias \"GetTempPathA\" (ByVal nBufferLength As Long, "
    "ByVal lpBuffer As String) As Long",
};

}  // namespace kolvane::generate::words
