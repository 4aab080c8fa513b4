// The properties of the language's own classes: groups that many classes share, then one list a class. Only
// for class_tables.cpp.
#pragma once

#include "workspace/class_tables.h"
#include "workspace/table_rows.h"
#include "workspace/value_names.h"

namespace kolvane::workspace::class_properties {

using Row = PropertyInfo;
using enum PropertyType;

template <typename... Rows>
consteval auto rows(Rows... each) {
  return std::array<Row, sizeof...(Rows)>{each...};
}

// ---- one row

consteval Row text(std::string_view name, std::string_view initial = {}) { return {name, kText, 0, initial}; }
consteval Row boolean(std::string_view name, bool initial) { return {name, kBoolean, initial ? -1 : 0}; }
consteval Row choice(std::string_view name, int initial, std::span<const ValueName> names = {}) {
  return {name, kEnumeration, initial, {}, names};
}
consteval Row integer(std::string_view name, int initial) { return {name, kInteger, initial}; }
consteval Row whole(std::string_view name) { return {name, kLong}; }
consteval Row single(std::string_view name, int initial = 0) { return {name, kSingle, initial}; }
consteval Row colour(std::string_view name, std::uint32_t initial) {
  return {name, kColour, static_cast<std::int32_t>(initial)};
}
consteval Row picture(std::string_view name) { return {name, kPicture}; }
consteval Row list(std::string_view name) { return {name, kList}; }
// Written also when it is the default.
consteval Row always(Row row) {
  row.alwaysWritten = true;
  return row;
}

inline constexpr std::uint32_t kButtonFace = 0x8000000F;
inline constexpr std::uint32_t kButtonText = 0x80000012;
inline constexpr std::uint32_t kWindowBack = 0x80000005;
inline constexpr std::uint32_t kWindowText = 0x80000008;
inline constexpr std::uint32_t kWorkspace = 0x8000000C;
inline constexpr std::uint32_t kSilver = 0x00C0C0C0;

// ---- shared groups

inline constexpr auto kId = rows(text("Name"), integer("Index", -1), text("Tag"));
inline constexpr auto kRootId = rows(text("Name"), text("Tag"));
inline constexpr auto kPosition = rows(always(single("Left")), always(single("Top")));
inline constexpr auto kSize = rows(always(single("Width")), always(single("Height")));
// A form's is reckoned from its client area.
inline constexpr auto kFormGeometry = rows(single("Left"), single("Top"), single("Width"), single("Height"));
inline constexpr auto kPageSize = rows(single("Height", 3600), single("Width", 4800));
inline constexpr auto kFont_ = rows(Row{"Font", kFont});
inline constexpr auto kDrag = rows(picture("DragIcon"), choice("DragMode", 0, value_names::kDragMode));
inline constexpr auto kMouse =
    rows(picture("MouseIcon"), choice("MousePointer", 0, value_names::kMousePointer));
inline constexpr auto kTip = rows(text("ToolTipText"));
inline constexpr auto kTabIndex = rows(always(integer("TabIndex", 0)));
inline constexpr auto kTabStop = rows(boolean("TabStop", true));
inline constexpr auto kVisible = rows(boolean("Visible", true));
inline constexpr auto kEnabled = rows(boolean("Enabled", true));
inline constexpr auto kHelpContext = rows(whole("HelpContextID"));
inline constexpr auto kWhatsThis = rows(whole("WhatsThisHelpID"));
// The source is another control, given by its name.
inline constexpr auto kBound =
    rows(text("DataField"), Row{"DataFormat", kGroup}, text("DataMember"), text("DataSource"));
inline constexpr auto kRightToLeft = rows(boolean("RightToLeft", false));
inline constexpr auto kLink = rows(text("LinkItem"), choice("LinkMode", 0, value_names::kControlLink),
                                   integer("LinkTimeout", 50), text("LinkTopic"));
inline constexpr auto kCausesValidation = rows(boolean("CausesValidation", true));
inline constexpr auto kDrawMode = rows(choice("DrawMode", 13));
inline constexpr auto kFill = rows(colour("FillColor", 0), choice("FillStyle", 1, value_names::kFillStyle));
inline constexpr auto kDrawStyle =
    rows(choice("DrawStyle", 0, value_names::kDrawStyle), integer("DrawWidth", 1));
inline constexpr auto kDrop = rows(choice("OLEDropMode", 0, value_names::kDropMode));
inline constexpr auto kOleDrag = rows(choice("OLEDragMode", 0, value_names::kDragMode));
inline constexpr auto kScale =
    rows(always(single("ScaleHeight")), always(single("ScaleWidth")), single("ScaleLeft"), single("ScaleTop"),
         choice("ScaleMode", 1, value_names::kScaleMode));
inline constexpr auto kAppearance = rows(choice("Appearance", 1, value_names::kAppearance));
inline constexpr auto kFace = rows(colour("BackColor", kButtonFace));
inline constexpr auto kFaceText = rows(colour("ForeColor", kButtonText));
inline constexpr auto kWindow = rows(colour("BackColor", kWindowBack), colour("ForeColor", kWindowText));
inline constexpr auto kPictures =
    rows(picture("Picture"), picture("DownPicture"), picture("DisabledPicture"), colour("MaskColor", kSilver),
         boolean("UseMaskColor", false), choice("Style", 0, value_names::kButtonStyle));
inline constexpr auto kPicture_ = rows(picture("Picture"));
inline constexpr auto kPalette = rows(picture("Palette"));
inline constexpr auto kCaption = rows(text("Caption"));
inline constexpr auto kText_ = rows(text("Text"));
inline constexpr auto kLocked = rows(boolean("Locked", false));
inline constexpr auto kControlBorder = rows(choice("BorderStyle", 1, value_names::kBorder));
inline constexpr auto kNoBorder = rows(choice("BorderStyle", 0, value_names::kBorder));
inline constexpr auto kAlignment = rows(choice("Alignment", 0, value_names::kAlignment));
inline constexpr auto kClipControls = rows(boolean("ClipControls", true));
inline constexpr auto kItems =
    rows(boolean("IntegralHeight", true), list("ItemData"), list("List"), boolean("Sorted", false));
inline constexpr auto kCanvas =
    rows(boolean("AutoRedraw", false), boolean("FontTransparent", true), boolean("HasDC", true));
inline constexpr auto kKeyPreview = rows(boolean("KeyPreview", false));
inline constexpr auto kMultiSelect = rows(choice("MultiSelect", 0, value_names::kMultiSelect));

// ---- controls

inline constexpr auto kPictureBoxOwn =
    rows(choice("Align", 0, value_names::kAlign), boolean("AutoSize", false), boolean("Negotiate", false));
inline constexpr auto kPictureBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kFace, kBound, kDrag, kDrawMode, kDrawStyle, kFill,
           kFont_, kHelpContext, kWhatsThis, kLink, kMouse, kOleDrag, kDrop, kRightToLeft, kScale, kTabIndex,
           kTabStop, kTip, kCausesValidation, kEnabled, kVisible, kFaceText, kCanvas, kControlBorder,
           kClipControls, kPicture_, kPictureBoxOwn>();

inline constexpr auto kLabelOwn =
    rows(boolean("AutoSize", false), choice("BackStyle", 1, value_names::kBackStyle),
         boolean("UseMnemonic", true), boolean("WordWrap", false));
inline constexpr auto kLabel = joined<Row, kId, kPosition, kSize, kAppearance, kFace, kBound, kDrag, kFont_,
                                      kLink, kMouse, kDrop, kRightToLeft, kTip, kEnabled, kVisible, kTabIndex,
                                      kWhatsThis, kFaceText, kAlignment, kNoBorder, kCaption, kLabelOwn>();

inline constexpr auto kTextBoxOwn = rows(
    boolean("HideSelection", true), choice("IMEMode", 0), whole("MaxLength"), boolean("MultiLine", false),
    text("PasswordChar"), choice("ScrollBars", 0, value_names::kScrollBars));
inline constexpr auto kTextBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kWindow, kBound, kDrag, kFont_, kHelpContext, kWhatsThis,
           kLink, kMouse, kOleDrag, kDrop, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation,
           kEnabled, kVisible, kAlignment, kControlBorder, kLocked, kText_, kTextBoxOwn>();

inline constexpr auto kFrame =
    joined<Row, kId, kPosition, kSize, kAppearance, kFace, kDrag, kFont_, kHelpContext, kWhatsThis, kMouse,
           kDrop, kRightToLeft, kTip, kEnabled, kVisible, kTabIndex, kFaceText, kControlBorder, kCaption,
           kClipControls>();

inline constexpr auto kCommandButtonOwn = rows(boolean("Cancel", false), boolean("Default", false));
inline constexpr auto kCommandButton =
    joined<Row, kId, kPosition, kSize, kAppearance, kFace, kDrag, kFont_, kHelpContext, kWhatsThis, kMouse,
           kDrop, kPictures, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled, kVisible,
           kCaption, kCommandButtonOwn>();

inline constexpr auto kCheckBoxOwn = rows(choice("Value", 0, value_names::kChecked));
inline constexpr auto kCheckBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kFace, kBound, kDrag, kFont_, kHelpContext, kWhatsThis,
           kMouse, kDrop, kPictures, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled,
           kVisible, kFaceText, kAlignment, kCaption, kCheckBoxOwn>();

inline constexpr auto kOptionButtonOwn = rows(boolean("Value", false));
inline constexpr auto kOptionButton =
    joined<Row, kId, kPosition, kSize, kAppearance, kFace, kDrag, kFont_, kHelpContext, kWhatsThis, kMouse,
           kDrop, kPictures, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled, kVisible,
           kFaceText, kAlignment, kCaption, kOptionButtonOwn>();

inline constexpr auto kComboBoxOwn = rows(choice("Style", 0, value_names::kComboStyle));
inline constexpr auto kComboBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kWindow, kBound, kDrag, kFont_, kHelpContext, kWhatsThis,
           kMouse, kOleDrag, kDrop, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled,
           kVisible, kItems, kLocked, kText_, kComboBoxOwn>();

inline constexpr auto kListBoxOwn = rows(integer("Columns", 0), choice("Style", 0, value_names::kListStyle));
inline constexpr auto kListBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kWindow, kBound, kDrag, kFont_, kHelpContext, kWhatsThis,
           kMouse, kOleDrag, kDrop, kRightToLeft, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled,
           kVisible, kItems, kMultiSelect, kListBoxOwn>();

inline constexpr auto kScrollBarOwn = rows(integer("LargeChange", 1), integer("Max", 32767),
                                           integer("Min", 0), integer("SmallChange", 1), integer("Value", 0));
inline constexpr auto kScrollBar =
    joined<Row, kId, kPosition, kSize, kDrag, kHelpContext, kWhatsThis, kMouse, kRightToLeft, kTabIndex,
           kTabStop, kCausesValidation, kEnabled, kVisible, kScrollBarOwn>();

inline constexpr auto kTimerOwn = rows(whole("Interval"));
inline constexpr auto kTimer = joined<Row, kId, kPosition, kEnabled, kTimerOwn>();

inline constexpr auto kDriveListBox =
    joined<Row, kId, kPosition, kSize, kAppearance, kWindow, kDrag, kFont_, kHelpContext, kWhatsThis, kMouse,
           kDrop, kTabIndex, kTabStop, kTip, kCausesValidation, kEnabled, kVisible>();
inline constexpr auto kDirListBox = joined<Row, kDriveListBox, kOleDrag>();
inline constexpr auto kFileListBoxOwn =
    rows(boolean("Archive", true), boolean("Hidden", false), boolean("Normal", true), text("Pattern", "*.*"),
         boolean("ReadOnly", true), boolean("System", false));
inline constexpr auto kFileListBox = joined<Row, kDirListBox, kMultiSelect, kFileListBoxOwn>();

inline constexpr auto kOutline =
    rows(colour("BorderColor", kWindowText), choice("BorderStyle", 1, value_names::kLineBorder),
         integer("BorderWidth", 1));
inline constexpr auto kShapeOwn =
    rows(colour("BackColor", kWindowBack), choice("BackStyle", 0, value_names::kBackStyle),
         choice("Shape", 0, value_names::kShape));
inline constexpr auto kShape =
    joined<Row, kId, kPosition, kSize, kVisible, kOutline, kDrawMode, kFill, kShapeOwn>();
inline constexpr auto kLineOwn =
    rows(always(single("X1")), always(single("X2")), always(single("Y1")), always(single("Y2")));
inline constexpr auto kLine = joined<Row, kId, kVisible, kOutline, kDrawMode, kLineOwn>();

inline constexpr auto kImageOwn = rows(boolean("Stretch", false));
inline constexpr auto kImage =
    joined<Row, kId, kPosition, kSize, kBound, kDrag, kMouse, kOleDrag, kDrop, kTip, kEnabled, kVisible,
           kAppearance, kNoBorder, kPicture_, kWhatsThis, kImageOwn>();

inline constexpr auto kDataOwn =
    rows(choice("Align", 0, value_names::kAlign), choice("BOFAction", 0), text("Connect", "Access"),
         text("DatabaseName"), choice("DefaultCursorType", 0), choice("DefaultType", 2),
         choice("EOFAction", 0), boolean("Exclusive", false), boolean("Negotiate", false), whole("Options"),
         boolean("ReadOnly", false), choice("RecordsetType", 1), text("RecordSource"));
inline constexpr auto kData =
    joined<Row, kId, kPosition, kSize, kAppearance, kWindow, kDrag, kFont_, kMouse, kDrop, kRightToLeft, kTip,
           kEnabled, kVisible, kCaption, kWhatsThis, kDataOwn>();

inline constexpr auto kOleOwn =
    rows(colour("BackColor", kWindowBack), choice("BackStyle", 1, value_names::kBackStyle),
         choice("AutoActivate", 2), boolean("AutoVerbMenu", true), text("Class"), text("DataField"),
         text("DataSource"), choice("DisplayType", 0), text("HostName"), whole("MiscFlags"),
         boolean("OLEDropAllowed", false), choice("OLETypeAllowed", 2), choice("SizeMode", 0),
         text("SourceDoc"), text("SourceItem"), choice("UpdateOptions", 0), whole("Verb"));
inline constexpr auto kOle =
    joined<Row, kId, kPosition, kSize, kDrag, kHelpContext, kWhatsThis, kMouse, kTabIndex, kTabStop,
           kCausesValidation, kEnabled, kVisible, kAppearance, kControlBorder, kOleOwn>();

inline constexpr auto kMenuOwn =
    rows(always(text("Caption")), boolean("Checked", false), choice("NegotiatePosition", 0),
         Row{"Shortcut", kShortcut}, boolean("WindowList", false));
inline constexpr auto kMenu = joined<Row, kId, kEnabled, kVisible, kHelpContext, kMenuOwn>();

// ---- designers and modules

inline constexpr auto kWindowOwn =
    rows(picture("Icon"), choice("LinkMode", 0, value_names::kFormLink), boolean("Moveable", true),
         choice("StartUpPosition", 0, value_names::kStartUpPosition), boolean("WhatsThisHelp", false),
         choice("WindowState", 0, value_names::kWindowState));
inline constexpr auto kFormOwn =
    rows(choice("BorderStyle", 2, value_names::kFormBorder), boolean("ControlBox", true),
         always(text("LinkTopic", "Form1")), boolean("MaxButton", true), boolean("MDIChild", false),
         boolean("MinButton", true), boolean("NegotiateMenus", true),
         choice("PaletteMode", 0, value_names::kPaletteMode), boolean("ShowInTaskbar", true),
         boolean("WhatsThisButton", false));
inline constexpr auto kForm =
    joined<Row, kRootId, kFormGeometry, kAppearance, kFace, kDrawMode, kDrawStyle, kFill, kFont_, kMouse,
           kDrop, kRightToLeft, kScale, kEnabled, kVisible, kHelpContext, kFaceText, kCanvas, kCaption,
           kClipControls, kKeyPreview, kPalette, kPicture_, kWindowOwn, kFormOwn>();

inline constexpr auto kMdiFormOwn = rows(
    always(colour("BackColor", kWorkspace)), boolean("AutoShowChildren", true),
    always(text("LinkTopic", "MDIForm1")), boolean("NegotiateToolbars", true), boolean("ScrollBars", true));
inline constexpr auto kMdiForm =
    joined<Row, kRootId, kFormGeometry, kMouse, kDrop, kRightToLeft, kEnabled, kVisible, kHelpContext,
           kAppearance, kCaption, kPicture_, kWindowOwn, kMdiFormOwn>();

inline constexpr auto kPagePalette = rows(choice("PaletteMode", 3, value_names::kPaletteMode));
inline constexpr auto kUserControlOwn =
    rows(text("AccessKeys"), boolean("Alignable", false), choice("BackStyle", 1, value_names::kBackStyle),
         boolean("CanGetFocus", true), choice("ClipBehavior", 1, value_names::kClipBehavior),
         boolean("ControlContainer", false), choice("DataBindingBehavior", 0, value_names::kDataBinding),
         choice("DataSourceBehavior", 0, value_names::kDataSource), boolean("DefaultCancel", false),
         boolean("EditAtDesignTime", false), boolean("ForwardFocus", false),
         choice("HitBehavior", 1, value_names::kHitBehavior), boolean("InvisibleAtRuntime", false),
         colour("MaskColor", kButtonFace), picture("MaskPicture"), list("PropertyPages"),
         boolean("Public", true), picture("ToolboxBitmap"), boolean("Windowless", false));
inline constexpr auto kUserControl =
    joined<Row, kRootId, kPageSize, kAppearance, kFace, kDrawMode, kDrawStyle, kFill, kFont_, kMouse, kDrop,
           kRightToLeft, kScale, kEnabled, kFaceText, kCanvas, kNoBorder, kClipControls, kKeyPreview,
           kPalette, kPagePalette, kPicture_, kUserControlOwn>();

inline constexpr auto kPropertyPageOwn = rows(choice("StandardSize", 0));
inline constexpr auto kPropertyPage =
    joined<Row, kRootId, kPageSize, kAppearance, kFace, kDrawMode, kDrawStyle, kFill, kFont_, kMouse, kDrop,
           kRightToLeft, kScale, kHelpContext, kFaceText, kCanvas, kCaption, kClipControls, kKeyPreview,
           kPalette, kPagePalette, kPicture_, kPropertyPageOwn>();

inline constexpr auto kUserDocumentOwn =
    rows(boolean("ContinuousScroll", true), always(integer("HScrollSmallChange", 225)), single("MinHeight"),
         single("MinWidth"), choice("ScrollBars", 3, value_names::kScrollBars),
         always(integer("VScrollSmallChange", 225)));
inline constexpr auto kUserDocument =
    joined<Row, kRootId, kPageSize, kAppearance, kFace, kDrawMode, kDrawStyle, kFill, kFont_, kMouse, kDrop,
           kRightToLeft, kScale, kFaceText, kCanvas, kClipControls, kKeyPreview, kPalette, kPagePalette,
           kPicture_, kUserDocumentOwn>();

inline constexpr auto kClassModuleOwn =
    rows(choice("DataBindingBehavior", 0, value_names::kDataBinding),
         choice("DataSourceBehavior", 0, value_names::kDataSource), choice("Instancing", 1),
         choice("MTSTransactionMode", 0, value_names::kTransaction),
         choice("Persistable", 0, value_names::kPersistable));
inline constexpr auto kModule = rows(text("Name"));
inline constexpr auto kClassModule = joined<Row, kModule, kClassModuleOwn>();

// ---- controls of other libraries

inline constexpr auto kForeign = joined<Row, kId>();
inline constexpr auto kForeignVisible = joined<Row, kPosition, kSize, kTabIndex, kTabStop, kCausesValidation,
                                               kDrag, kTip, kVisible, kHelpContext, kWhatsThis>();

// ---- fonts

// In file order, which is not the alphabet's. The size's default, 8.25, is the one fraction of all defaults:
// as text.
inline constexpr auto kFontParts =
    rows(text("Name", "MS Sans Serif"), Row{"Size", kSingle, 8, "8.25"}, integer("Charset", 0),
         integer("Weight", 400), boolean("Underline", false), boolean("Italic", false),
         boolean("Strikethrough", false));

}  // namespace kolvane::workspace::class_properties
