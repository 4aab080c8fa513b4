// The events of the language's own classes. Only for class_tables.cpp.
#pragma once

#include "workspace/class_tables.h"
#include "workspace/table_rows.h"

namespace kolvane::workspace::class_events {

template <typename... Events>
consteval auto events(Events... rows) {
  return std::array<EventInfo, sizeof...(Events)>{rows...};
}
using Event = EventInfo;

inline constexpr std::string_view kMouse = "Button As Integer, Shift As Integer, X As Single, Y As Single";

inline constexpr auto kKeys =
    events(Event{"KeyDown", "KeyCode As Integer, Shift As Integer"}, Event{"KeyPress", "KeyAscii As Integer"},
           Event{"KeyUp", "KeyCode As Integer, Shift As Integer"});
inline constexpr auto kPointer =
    events(Event{"MouseDown", kMouse}, Event{"MouseMove", kMouse}, Event{"MouseUp", kMouse});
inline constexpr auto kFocus = events(Event{"GotFocus", ""}, Event{"LostFocus", ""});
inline constexpr auto kValidate = events(Event{"Validate", "Cancel As Boolean"});
inline constexpr auto kDrag =
    events(Event{"DragDrop", "Source As Control, X As Single, Y As Single"},
           Event{"DragOver", "Source As Control, X As Single, Y As Single, State As Integer"});
inline constexpr auto kLink = events(Event{"LinkClose", ""}, Event{"LinkError", "LinkErr As Integer"},
                                     Event{"LinkNotify", ""}, Event{"LinkOpen", "Cancel As Integer"});
inline constexpr auto kOleDrag =
    events(Event{"OLECompleteDrag", "Effect As Long"},
           Event{"OLEDragDrop",
                 "Data As DataObject, Effect As Long, Button As Integer, Shift As Integer, X As Single, "
                 "Y As Single"},
           Event{"OLEDragOver",
                 "Data As DataObject, Effect As Long, Button As Integer, Shift As Integer, X As Single, "
                 "Y As Single, State As Integer"},
           Event{"OLEGiveFeedback", "Effect As Long, DefaultCursors As Boolean"},
           Event{"OLESetData", "Data As DataObject, DataFormat As Integer"},
           Event{"OLEStartDrag", "Data As DataObject, AllowedEffects As Long"});

inline constexpr auto kClick = events(Event{"Click", ""});
inline constexpr auto kDblClick = events(Event{"DblClick", ""});
inline constexpr auto kChange = events(Event{"Change", ""});
inline constexpr auto kScroll = events(Event{"Scroll", ""});
inline constexpr auto kPaint = events(Event{"Paint", ""});
inline constexpr auto kResize = events(Event{"Resize", ""});
inline constexpr auto kLifetime = events(Event{"Initialize", ""}, Event{"Terminate", ""});
inline constexpr auto kDropDown = events(Event{"DropDown", ""});
inline constexpr auto kItemCheck = events(Event{"ItemCheck", "Item As Integer"});
inline constexpr auto kTick = events(Event{"Timer", ""});
inline constexpr auto kFileList = events(Event{"PathChange", ""}, Event{"PatternChange", ""});
inline constexpr auto kDataOwn =
    events(Event{"Error", "DataErr As Integer, Response As Integer"}, Event{"Reposition", ""},
           Event{"Resize", ""}, Event{"Validate", "Action As Integer, Save As Integer"});
inline constexpr auto kOleOwn =
    events(Event{"ObjectMove", "Left As Single, Top As Single, Width As Single, Height As Single"},
           Event{"Resize", "HeightNew As Single, WidthNew As Single"}, Event{"Updated", "Code As Integer"});
inline constexpr auto kWindow = events(
    Event{"Activate", ""}, Event{"Deactivate", ""}, Event{"LinkClose", ""},
    Event{"LinkError", "LinkErr As Integer"}, Event{"LinkExecute", "CmdStr As String, Cancel As Integer"},
    Event{"LinkOpen", "Cancel As Integer"}, Event{"Load", ""},
    Event{"QueryUnload", "Cancel As Integer, UnloadMode As Integer"}, Event{"Unload", "Cancel As Integer"});
inline constexpr auto kPersistence =
    events(Event{"InitProperties", ""}, Event{"ReadProperties", "PropBag As PropertyBag"},
           Event{"WriteProperties", "PropBag As PropertyBag"});
inline constexpr auto kDataMember = events(Event{"GetDataMember", "DataMember As String, Data As Object"});
inline constexpr auto kSite =
    events(Event{"AsyncReadComplete", "AsyncProp As AsyncProperty"},
           Event{"AsyncReadProgress", "AsyncProp As AsyncProperty"}, Event{"EnterFocus", ""},
           Event{"ExitFocus", ""}, Event{"Hide", ""}, Event{"Show", ""});
inline constexpr auto kUserControlOwn =
    events(Event{"AccessKeyPress", "KeyAscii As Integer"}, Event{"AmbientChanged", "PropertyName As String"},
           Event{"HitTest", "X As Single, Y As Single, HitResult As Integer"});
inline constexpr auto kPageOwn =
    events(Event{"ApplyChanges", ""}, Event{"EditProperty", "PropertyName As String"},
           Event{"SelectionChanged", ""});

// ---- classes

inline constexpr auto kPictureBox = joined<EventInfo, kChange, kClick, kDblClick, kPaint, kResize, kDrag,
                                           kFocus, kKeys, kLink, kPointer, kOleDrag, kValidate>();
inline constexpr auto kLabel =
    joined<EventInfo, kChange, kClick, kDblClick, kDrag, kLink, kPointer, kOleDrag>();
inline constexpr auto kTextBox = joined<EventInfo, kChange, kClick, kDblClick, kDrag, kFocus, kKeys, kLink,
                                        kPointer, kOleDrag, kValidate>();
inline constexpr auto kFrame = joined<EventInfo, kClick, kDblClick, kDrag, kPointer, kOleDrag>();
inline constexpr auto& kImage = kFrame;
inline constexpr auto kCommandButton = joined<EventInfo, kClick, kDrag, kFocus, kKeys, kPointer, kOleDrag>();
inline constexpr auto kCheckBox =
    joined<EventInfo, kClick, kDrag, kFocus, kKeys, kPointer, kOleDrag, kValidate>();
inline constexpr auto kOptionButton =
    joined<EventInfo, kClick, kDblClick, kDrag, kFocus, kKeys, kPointer, kOleDrag, kValidate>();
inline constexpr auto kComboBox = joined<EventInfo, kChange, kClick, kDblClick, kDropDown, kScroll, kDrag,
                                         kFocus, kKeys, kOleDrag, kValidate>();
inline constexpr auto kListBox = joined<EventInfo, kClick, kDblClick, kItemCheck, kScroll, kDrag, kFocus,
                                        kKeys, kPointer, kOleDrag, kValidate>();
inline constexpr auto kScrollBar = joined<EventInfo, kChange, kScroll, kDrag, kFocus, kKeys, kValidate>();
inline constexpr auto& kTimer = kTick;
inline constexpr auto kDriveListBox =
    joined<EventInfo, kChange, kScroll, kDrag, kFocus, kKeys, kOleDrag, kValidate>();
inline constexpr auto kDirListBox =
    joined<EventInfo, kChange, kClick, kScroll, kDrag, kFocus, kKeys, kPointer, kOleDrag, kValidate>();
inline constexpr auto kFileListBox = joined<EventInfo, kClick, kDblClick, kFileList, kScroll, kDrag, kFocus,
                                            kKeys, kPointer, kOleDrag, kValidate>();
inline constexpr auto kData = joined<EventInfo, kDataOwn, kDrag, kPointer, kOleDrag>();
inline constexpr auto kOle =
    joined<EventInfo, kClick, kDblClick, kOleOwn, kDrag, kFocus, kKeys, kPointer, kValidate>();
inline constexpr auto& kMenu = kClick;
inline constexpr auto kMdiForm =
    joined<EventInfo, kClick, kDblClick, kLifetime, kResize, kWindow, kDrag, kPointer, kOleDrag>();
inline constexpr auto kForm = joined<EventInfo, kClick, kDblClick, kLifetime, kPaint, kResize, kWindow, kDrag,
                                     kFocus, kKeys, kPointer, kOleDrag>();
inline constexpr auto kUserControl =
    joined<EventInfo, kUserControlOwn, kSite, kPersistence, kDataMember, kClick, kDblClick, kLifetime, kPaint,
           kResize, kDrag, kFocus, kKeys, kPointer, kOleDrag>();
inline constexpr auto kUserDocument =
    joined<EventInfo, kSite, kPersistence, kClick, kDblClick, kLifetime, kPaint, kResize, kScroll, kDrag,
           kFocus, kKeys, kPointer, kOleDrag>();
inline constexpr auto kPropertyPage = joined<EventInfo, kPageOwn, kClick, kDblClick, kLifetime, kPaint, kDrag,
                                             kFocus, kKeys, kPointer, kOleDrag>();
inline constexpr auto kClassModule = joined<EventInfo, kLifetime, kPersistence, kDataMember>();

// The sizes are those of the IDE's own lists.
static_assert(kPictureBox.size() == 26 && kLabel.size() == 18 && kTextBox.size() == 24);
static_assert(kFrame.size() == 13 && kCommandButton.size() == 17 && kCheckBox.size() == 18);
static_assert(kOptionButton.size() == 19 && kComboBox.size() == 19 && kListBox.size() == 21);
static_assert(kScrollBar.size() == 10 && kDriveListBox.size() == 16 && kDirListBox.size() == 20);
static_assert(kFileListBox.size() == 22 && kData.size() == 15 && kOle.size() == 16);
static_assert(kForm.size() == 31 && kMdiForm.size() == 25);

}  // namespace kolvane::workspace::class_events
