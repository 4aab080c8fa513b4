// The controls that generated forms are made of: one row a class, with its properties in file order.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace kolvane::generate {

enum class PropertyShape : unsigned char {
  kFixed,  // the row's value, as it stands in the file
  kCaption,
  kToolTip,
  kColour,
  kFont,
  kLeft,
  kTop,
  kWidth,
  kHeight,
  kRight,   // X2 of a line
  kBottom,  // Y2 of a line
  kIndex,   // written for elements of a control array only
  kTabIndex,
  kTabs,  // a tab control's captions and the names of the controls on each tab
  kPicture,
};

struct PropertyRow {
  std::string_view name;
  PropertyShape shape;
  int perMille;  // how often it is written; geometry always is
  std::string_view value = {};
};

// What code does with a control.
enum class ControlUse : unsigned char { kNone, kText, kList, kCheck, kCaption };

struct ControlClass {
  std::string_view progId;
  std::string_view prefix;
  int weight;
  ControlUse use;
  bool container;
  bool array;  // may become one
  int width;
  int height;
  std::span<const PropertyRow> properties;
  std::span<const std::string_view> events;
};

namespace rows {

using Shape = PropertyShape;
using Row = PropertyRow;

inline constexpr Row kLabel[] = {
    {"Alignment", Shape::kFixed, 400, "1  'Right Justify"},
    {"AutoSize", Shape::kFixed, 200, "-1  'True"},
    {"BackStyle", Shape::kFixed, 300, "0  'Transparent"},
    {"Caption", Shape::kCaption, 1000},
    {"Font", Shape::kFont, 420},
    {"ForeColor", Shape::kColour, 300},
    {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},
    {"Visible", Shape::kFixed, 40, "0   'False"},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kTextBox[] = {
    {"Alignment", Shape::kFixed, 200, "1  'Right Justify"},
    {"Appearance", Shape::kFixed, 150, "0  'Flat"},
    {"BackColor", Shape::kColour, 250},
    {"DataField", Shape::kFixed, 60, "\"Code\""},
    {"Enabled", Shape::kFixed, 150, "0   'False"},
    {"Font", Shape::kFont, 420},
    {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},
    {"Locked", Shape::kFixed, 150, "-1  'True"},
    {"MaxLength", Shape::kFixed, 500, "40"},
    {"MultiLine", Shape::kFixed, 120, "-1  'True"},
    {"ScrollBars", Shape::kFixed, 100, "2  'Vertical"},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"TabStop", Shape::kFixed, 150, "0   'False"},
    {"Tag", Shape::kFixed, 80, "\"required\""},
    {"Text", Shape::kFixed, 250, "\"0,00\""},
    {"ToolTipText", Shape::kToolTip, 250},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kCommandButton[] = {
    {"Cancel", Shape::kFixed, 120, "-1  'True"},
    {"Caption", Shape::kCaption, 1000},
    {"Default", Shape::kFixed, 100, "-1  'True"},
    {"Enabled", Shape::kFixed, 120, "0   'False"},
    {"Font", Shape::kFont, 350},
    {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},
    {"MaskColor", Shape::kColour, 100},
    {"Picture", Shape::kPicture, 120},
    {"Style", Shape::kFixed, 180, "1  'Graphical"},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"ToolTipText", Shape::kToolTip, 350},
    {"Top", Shape::kTop, 1000},
    {"UseMaskColor", Shape::kFixed, 100, "-1  'True"},
    {"Visible", Shape::kFixed, 50, "0   'False"},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kComboBox[] = {
    {"BackColor", Shape::kColour, 150},
    {"Enabled", Shape::kFixed, 100, "0   'False"},
    {"Font", Shape::kFont, 350},
    {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},
    {"Sorted", Shape::kFixed, 300, "-1  'True"},
    {"Style", Shape::kFixed, 700, "2  'Dropdown List"},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"ToolTipText", Shape::kToolTip, 200},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kCheckBox[] = {
    {"Alignment", Shape::kFixed, 100, "1  'Right Justify"},
    {"Caption", Shape::kCaption, 1000},
    {"Enabled", Shape::kFixed, 80, "0   'False"},
    {"Font", Shape::kFont, 300},
    {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"ToolTipText", Shape::kToolTip, 150},
    {"Top", Shape::kTop, 1000},
    {"Value", Shape::kFixed, 300, "1  'Checked"},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kOptionButton[] = {
    {"Caption", Shape::kCaption, 1000}, {"Font", Shape::kFont, 300},
    {"Height", Shape::kHeight, 1000},   {"Index", Shape::kIndex, 1000},
    {"Left", Shape::kLeft, 1000},       {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},         {"Value", Shape::kFixed, 250, "-1  'True"},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kFrame[] = {
    {"BackColor", Shape::kColour, 150},   {"BorderStyle", Shape::kFixed, 150, "0  'None"},
    {"Caption", Shape::kCaption, 1000},   {"Font", Shape::kFont, 350},
    {"ForeColor", Shape::kColour, 150},   {"Height", Shape::kHeight, 1000},
    {"Index", Shape::kIndex, 1000},       {"Left", Shape::kLeft, 1000},
    {"TabIndex", Shape::kTabIndex, 1000}, {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kPictureBox[] = {
    {"Align", Shape::kFixed, 150, "1  'Align Top"},
    {"Appearance", Shape::kFixed, 300, "0  'Flat"},
    {"AutoRedraw", Shape::kFixed, 200, "-1  'True"},
    {"BackColor", Shape::kColour, 400},
    {"BorderStyle", Shape::kFixed, 500, "0  'None"},
    {"ForeColor", Shape::kColour, 300},
    {"Height", Shape::kHeight, 1000},
    {"Left", Shape::kLeft, 1000},
    {"Picture", Shape::kPicture, 150},
    {"ScaleHeight", Shape::kHeight, 1000},
    {"ScaleWidth", Shape::kWidth, 1000},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kListBox[] = {
    {"Font", Shape::kFont, 300},
    {"Height", Shape::kHeight, 1000},
    {"IntegralHeight", Shape::kFixed, 300, "0   'False"},
    {"Left", Shape::kLeft, 1000},
    {"MultiSelect", Shape::kFixed, 150, "2  'Extended"},
    {"Sorted", Shape::kFixed, 300, "-1  'True"},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kTimer[] = {
    {"Enabled", Shape::kFixed, 600, "0   'False"},
    {"Interval", Shape::kFixed, 900, "1000"},
    {"Left", Shape::kLeft, 1000},
    {"Top", Shape::kTop, 1000},
};
inline constexpr Row kImage[] = {
    {"Height", Shape::kHeight, 1000},  {"Left", Shape::kLeft, 1000},
    {"Picture", Shape::kPicture, 500}, {"Stretch", Shape::kFixed, 300, "-1  'True"},
    {"Top", Shape::kTop, 1000},        {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kLine[] = {
    {"BorderColor", Shape::kColour, 700}, {"Index", Shape::kIndex, 1000}, {"X1", Shape::kLeft, 1000},
    {"X2", Shape::kRight, 1000},          {"Y1", Shape::kTop, 1000},      {"Y2", Shape::kBottom, 1000},
};
inline constexpr Row kScrollBar[] = {
    {"Height", Shape::kHeight, 1000},     {"LargeChange", Shape::kFixed, 600, "10"},
    {"Left", Shape::kLeft, 1000},         {"Max", Shape::kFixed, 700, "100"},
    {"TabIndex", Shape::kTabIndex, 1000}, {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
};
inline constexpr Row kMenu[] = {
    {"Caption", Shape::kCaption, 1000},
    {"Checked", Shape::kFixed, 60, "-1  'True"},
    {"Enabled", Shape::kFixed, 60, "0   'False"},
    {"Shortcut", Shape::kFixed, 100, "{F5}"},
};
inline constexpr Row kListView[] = {
    {"Height", Shape::kHeight, 1000},
    {"Left", Shape::kLeft, 1000},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
    {"_ExtentX", Shape::kFixed, 1000, "7646"},
    {"_ExtentY", Shape::kFixed, 1000, "4048"},
    {"View", Shape::kFixed, 900, "3"},
    {"LabelEdit", Shape::kFixed, 800, "1"},
    {"LabelWrap", Shape::kFixed, 1000, "-1  'True"},
    {"HideSelection", Shape::kFixed, 1000, "0   'False"},
    {"FullRowSelect", Shape::kFixed, 800, "-1  'True"},
    {"GridLines", Shape::kFixed, 500, "-1  'True"},
    {"_Version", Shape::kFixed, 1000, "393217"},
    {"ForeColor", Shape::kFixed, 1000, "-2147483640"},
    {"BackColor", Shape::kFixed, 1000, "-2147483643"},
    {"BorderStyle", Shape::kFixed, 1000, "1"},
    {"Appearance", Shape::kFixed, 1000, "1"},
    {"NumItems", Shape::kFixed, 1000, "0"},
};
inline constexpr Row kTabStrip[] = {
    {"Height", Shape::kHeight, 1000},
    {"Left", Shape::kLeft, 1000},
    {"TabIndex", Shape::kTabIndex, 1000},
    {"Top", Shape::kTop, 1000},
    {"Width", Shape::kWidth, 1000},
    {"_ExtentX", Shape::kFixed, 1000, "9551"},
    {"_ExtentY", Shape::kFixed, 1000, "6800"},
    {"_Version", Shape::kFixed, 1000, "393216"},
    {"Tabs", Shape::kTabs, 1000},
};
inline constexpr Row kDialog[] = {
    {"Left", Shape::kLeft, 1000},
    {"Top", Shape::kTop, 1000},
    {"_ExtentX", Shape::kFixed, 1000, "847"},
    {"_ExtentY", Shape::kFixed, 1000, "847"},
    {"_Version", Shape::kFixed, 1000, "393216"},
};

inline constexpr std::string_view kClick[] = {"Click()"};
inline constexpr std::string_view kButtonEvents[] = {
    "Click()", "Click()",    "Click()",
    "Click()", "GotFocus()", "MouseDown(Button As Integer, Shift As Integer, X As Single, Y As Single)"};
inline constexpr std::string_view kTextEvents[] = {"Change()",
                                                   "GotFocus()",
                                                   "KeyPress(KeyAscii As Integer)",
                                                   "LostFocus()",
                                                   "Validate(Cancel As Boolean)",
                                                   "KeyDown(KeyCode As Integer, Shift As Integer)"};
inline constexpr std::string_view kListEvents[] = {"Click()", "Click()", "DblClick()",
                                                   "KeyPress(KeyAscii As Integer)"};
inline constexpr std::string_view kChangeEvents[] = {"Change()", "Scroll()"};
inline constexpr std::string_view kTimerEvents[] = {"Timer()"};
inline constexpr std::string_view kPaintEvents[] = {
    "Resize()", "Paint()", "MouseMove(Button As Integer, Shift As Integer, X As Single, Y As Single)"};
inline constexpr std::string_view kGridEvents[] = {
    "DblClick()", "ColumnClick(ByVal ColumnHeader As MSComctlLib.ColumnHeader)",
    "ItemClick(ByVal Item As MSComctlLib.ListItem)"};
inline constexpr std::string_view kTabEvents[] = {"Click(PreviousTab As Integer)"};

}  // namespace rows

using Use = ControlUse;

inline constexpr ControlClass kControlClasses[] = {
    {"VB.Label", "lbl", 300, Use::kCaption, false, true, 1215, 255, rows::kLabel, rows::kClick},
    {"VB.TextBox", "txt", 210, Use::kText, false, true, 1935, 315, rows::kTextBox, rows::kTextEvents},
    {"VB.CommandButton", "cmd", 120, Use::kCaption, false, true, 1215, 375, rows::kCommandButton,
     rows::kButtonEvents},
    {"VB.ComboBox", "cbo", 50, Use::kList, false, false, 2175, 315, rows::kComboBox, rows::kListEvents},
    {"VB.CheckBox", "chk", 50, Use::kCheck, false, true, 1935, 255, rows::kCheckBox, rows::kClick},
    {"VB.OptionButton", "opt", 40, Use::kCaption, false, true, 1695, 255, rows::kOptionButton, rows::kClick},
    {"VB.Frame", "fra", 75, Use::kCaption, true, true, 4575, 2175, rows::kFrame, {}},
    {"VB.PictureBox", "pic", 20, Use::kNone, true, false, 3015, 1455, rows::kPictureBox, rows::kPaintEvents},
    {"VB.ListBox", "lst", 15, Use::kList, false, false, 2415, 1425, rows::kListBox, rows::kListEvents},
    {"VB.Timer", "tmr", 8, Use::kNone, false, false, 420, 420, rows::kTimer, rows::kTimerEvents},
    {"VB.Image", "img", 12, Use::kNone, false, false, 480, 480, rows::kImage, rows::kClick},
    {"VB.Line", "lin", 12, Use::kNone, false, true, 4575, 15, rows::kLine, {}},
    {"VB.HScrollBar", "hsb", 4, Use::kNone, false, false, 1215, 255, rows::kScrollBar, rows::kChangeEvents},
    {"VB.VScrollBar", "vsb", 4, Use::kNone, false, false, 255, 1215, rows::kScrollBar, rows::kChangeEvents},
    {"MSComctlLib.ListView", "lvw", 18, Use::kNone, false, false, 4335, 2295, rows::kListView,
     rows::kGridEvents},
    {"TabDlg.SSTab", "tab", 10, Use::kNone, true, false, 5415, 3855, rows::kTabStrip, rows::kTabEvents},
    {"MSComDlg.CommonDialog", "dlg", 8, Use::kNone, false, false, 480, 480, rows::kDialog, {}},
};
// Menus stand behind all other controls, and hold menus only.
inline constexpr ControlClass kMenuClass = {"VB.Menu", "mnu", 0, Use::kNone,  true,
                                            false,     0,     0, rows::kMenu, rows::kClick};

// Libraries of controls that are not the language's own, as forms and the project file name them.
struct ControlLibrary {
  std::string_view prefix;  // of a progId
  std::string_view guid;
  std::string_view file;
};
inline constexpr ControlLibrary kControlLibraries[] = {
    {"MSComctlLib.", "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", "MSCOMCTL.OCX"},
    {"TabDlg.", "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0", "TABCTL32.OCX"},
    {"MSComDlg.", "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0", "COMDLG32.OCX"},
};

constexpr bool hasTabIndex(const ControlClass& type) {
  for (const PropertyRow& property : type.properties)
    if (property.shape == PropertyShape::kTabIndex) return true;
  return false;
}

// Lines that an object takes in its file, on the average, without those of its children.
constexpr int usualLines(const ControlClass& type) {
  int perMille = 2000;
  for (const PropertyRow& property : type.properties) {
    int lines = 1;
    if (property.shape == PropertyShape::kFont) lines = 9;
    if (property.shape == PropertyShape::kTabs) lines = 12;
    perMille += property.perMille * lines / (property.shape == PropertyShape::kIndex ? 3 : 1);
  }
  return (perMille + 500) / 1000;
}

constexpr char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Order of properties in a file: ascending without case.
constexpr bool inFileOrder(std::span<const PropertyRow> properties) {
  for (std::size_t i = 1; i < properties.size(); ++i) {
    const std::string_view a = properties[i - 1].name;
    const std::string_view b = properties[i].name;
    std::size_t at = 0;
    while (at < a.size() && at < b.size() && lowerAscii(a[at]) == lowerAscii(b[at])) ++at;
    if (at == b.size() || (at < a.size() && lowerAscii(a[at]) > lowerAscii(b[at]))) return false;
  }
  return true;
}
static_assert([] {
  for (const ControlClass& type : kControlClasses)
    if (type.progId.starts_with("VB.") && !inFileOrder(type.properties)) return false;
  return inFileOrder(kMenuClass.properties);
}());

}  // namespace kolvane::generate
