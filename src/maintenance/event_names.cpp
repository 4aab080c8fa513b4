#include "maintenance/event_names.h"

#include <algorithm>
#include <array>
#include <span>

namespace kolvane::maintenance {
namespace {

using Type = frame::ComponentType;

constexpr std::array<std::string_view, 2> kClassEvents{"Class_Initialize", "Class_Terminate"};

// In upper case, in order.
constexpr std::array<std::string_view, 31> kFormEvents{
    "FORM_ACTIVATE",        "FORM_CLICK",        "FORM_DBLCLICK",    "FORM_DEACTIVATE",
    "FORM_DRAGDROP",        "FORM_DRAGOVER",     "FORM_GOTFOCUS",    "FORM_INITIALIZE",
    "FORM_KEYDOWN",         "FORM_KEYPRESS",     "FORM_KEYUP",       "FORM_LINKCLOSE",
    "FORM_LINKERROR",       "FORM_LINKEXECUTE",  "FORM_LINKOPEN",    "FORM_LOAD",
    "FORM_LOSTFOCUS",       "FORM_MOUSEDOWN",    "FORM_MOUSEMOVE",   "FORM_MOUSEUP",
    "FORM_OLECOMPLETEDRAG", "FORM_OLEDRAGDROP",  "FORM_OLEDRAGOVER", "FORM_OLEGIVEFEEDBACK",
    "FORM_OLESETDATA",      "FORM_OLESTARTDRAG", "FORM_PAINT",       "FORM_QUERYUNLOAD",
    "FORM_RESIZE",          "FORM_TERMINATE",    "FORM_UNLOAD",
};
constexpr std::array<std::string_view, 24> kPageEvents{
    "PROPERTYPAGE_APPLYCHANGES",
    "PROPERTYPAGE_CLICK",
    "PROPERTYPAGE_DBLCLICK",
    "PROPERTYPAGE_DRAGDROP",
    "PROPERTYPAGE_DRAGOVER",
    "PROPERTYPAGE_EDITPROPERTY",
    "PROPERTYPAGE_GOTFOCUS",
    "PROPERTYPAGE_INITIALIZE",
    "PROPERTYPAGE_KEYDOWN",
    "PROPERTYPAGE_KEYPRESS",
    "PROPERTYPAGE_KEYUP",
    "PROPERTYPAGE_LOSTFOCUS",
    "PROPERTYPAGE_MOUSEDOWN",
    "PROPERTYPAGE_MOUSEMOVE",
    "PROPERTYPAGE_MOUSEUP",
    "PROPERTYPAGE_OLECOMPLETEDRAG",
    "PROPERTYPAGE_OLEDRAGDROP",
    "PROPERTYPAGE_OLEDRAGOVER",
    "PROPERTYPAGE_OLEGIVEFEEDBACK",
    "PROPERTYPAGE_OLESETDATA",
    "PROPERTYPAGE_OLESTARTDRAG",
    "PROPERTYPAGE_PAINT",
    "PROPERTYPAGE_SELECTIONCHANGED",
    "PROPERTYPAGE_TERMINATE",
};
constexpr std::array<std::string_view, 35> kControlEvents{
    "USERCONTROL_ACCESSKEYPRESS",
    "USERCONTROL_AMBIENTCHANGED",
    "USERCONTROL_ASYNCREADCOMPLETE",
    "USERCONTROL_ASYNCREADPROGRESS",
    "USERCONTROL_CLICK",
    "USERCONTROL_DBLCLICK",
    "USERCONTROL_DRAGDROP",
    "USERCONTROL_DRAGOVER",
    "USERCONTROL_ENTERFOCUS",
    "USERCONTROL_EXITFOCUS",
    "USERCONTROL_GETDATAMEMBER",
    "USERCONTROL_GOTFOCUS",
    "USERCONTROL_HIDE",
    "USERCONTROL_HITTEST",
    "USERCONTROL_INITIALIZE",
    "USERCONTROL_INITPROPERTIES",
    "USERCONTROL_KEYDOWN",
    "USERCONTROL_KEYPRESS",
    "USERCONTROL_KEYUP",
    "USERCONTROL_LOSTFOCUS",
    "USERCONTROL_MOUSEDOWN",
    "USERCONTROL_MOUSEMOVE",
    "USERCONTROL_MOUSEUP",
    "USERCONTROL_OLECOMPLETEDRAG",
    "USERCONTROL_OLEDRAGDROP",
    "USERCONTROL_OLEDRAGOVER",
    "USERCONTROL_OLEGIVEFEEDBACK",
    "USERCONTROL_OLESETDATA",
    "USERCONTROL_OLESTARTDRAG",
    "USERCONTROL_PAINT",
    "USERCONTROL_READPROPERTIES",
    "USERCONTROL_RESIZE",
    "USERCONTROL_SHOW",
    "USERCONTROL_TERMINATE",
    "USERCONTROL_WRITEPROPERTIES",
};

struct EventRow {
  Type type;
  std::span<const std::string_view> names;
  bool exact;
};

constexpr std::array<EventRow, 5> kEvents{{
    {Type::kClassModule, kClassEvents, true},
    {Type::kVBForm, kFormEvents, false},
    {Type::kVBMDIForm, kFormEvents, false},
    {Type::kPropPage, kPageEvents, false},
    {Type::kUserControl, kControlEvents, false},
}};

static_assert(std::ranges::all_of(kEvents,
                                  [](const EventRow& row) { return std::ranges::is_sorted(row.names); }));

// What the lists above leave out, in upper case and in order. Some of a class's depend on its settings.
constexpr std::array<std::string_view, 6> kAllClassEvents{"CLASS_GETDATAMEMBER",  "CLASS_INITIALIZE",
                                                          "CLASS_INITPROPERTIES", "CLASS_READPROPERTIES",
                                                          "CLASS_TERMINATE",      "CLASS_WRITEPROPERTIES"};
constexpr std::array<std::string_view, 25> kMDIFormEvents{
    "MDIFORM_ACTIVATE",     "MDIFORM_CLICK",       "MDIFORM_DBLCLICK",        "MDIFORM_DEACTIVATE",
    "MDIFORM_DRAGDROP",     "MDIFORM_DRAGOVER",    "MDIFORM_INITIALIZE",      "MDIFORM_LINKCLOSE",
    "MDIFORM_LINKERROR",    "MDIFORM_LINKEXECUTE", "MDIFORM_LINKOPEN",        "MDIFORM_LOAD",
    "MDIFORM_MOUSEDOWN",    "MDIFORM_MOUSEMOVE",   "MDIFORM_MOUSEUP",         "MDIFORM_OLECOMPLETEDRAG",
    "MDIFORM_OLEDRAGDROP",  "MDIFORM_OLEDRAGOVER", "MDIFORM_OLEGIVEFEEDBACK", "MDIFORM_OLESETDATA",
    "MDIFORM_OLESTARTDRAG", "MDIFORM_QUERYUNLOAD", "MDIFORM_RESIZE",          "MDIFORM_TERMINATE",
    "MDIFORM_UNLOAD",
};
static_assert(std::ranges::is_sorted(kAllClassEvents) && std::ranges::is_sorted(kMDIFormEvents));

constexpr std::string_view kHandlerStart = "Private Sub ";
constexpr std::string_view kHandlerEnd = "_,";

}  // namespace

bool IsStandardEvent(const base::CodePage& codePage, frame::ComponentType type, std::string_view name) {
  const auto row = std::ranges::find(kEvents, type, &EventRow::type);
  if (row == kEvents.end()) return false;
  return std::ranges::binary_search(row->names, row->exact ? std::string(name) : codePage.upper(name));
}

bool isRunTimeEvent(const base::CodePage& codePage, frame::ComponentType type, std::string_view name) {
  switch (type) {
    case Type::kClassModule:
      return std::ranges::binary_search(kAllClassEvents, codePage.upper(name));
    case Type::kVBMDIForm:
      return std::ranges::binary_search(kMDIFormEvents, codePage.upper(name));
    default:
      return IsStandardEvent(codePage, type, name);
  }
}

std::string controlHandlers(const base::CodePage& codePage, frame::VBComponent& component) {
  const auto designer = component.Designer();
  std::string handlers;
  if (!designer) return handlers;
  for (const auto& control : designer->VBControls()->items())
    handlers.append(kHandlerStart)
        .append(frame::toText(control->Properties()->Item("Name")->value()))
        .append(kHandlerEnd);
  return codePage.upper(handlers);
}

bool IsControlEvent(const base::CodePage& codePage, std::string_view name, std::string_view handlers) {
  const std::size_t end = name.find('_');
  if (handlers.empty() || end == std::string_view::npos) return false;
  const std::string start = std::string(kHandlerStart).append(name.substr(0, end + 1));
  return handlers.find(codePage.upper(start)) != std::string_view::npos;
}

}  // namespace kolvane::maintenance
