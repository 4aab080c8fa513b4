#include "workspace/class_tables.h"

#include <algorithm>

#include "base/text.h"
#include "workspace/class_events.h"
#include "workspace/class_properties.h"

namespace kolvane::workspace {
namespace {

constexpr int kWidth = 1215;
constexpr int kHeight = 495;
constexpr int kRowHeight = 315;
constexpr int kBar = 255;
constexpr int kLight = 1;
constexpr int kStandard = 2;
constexpr int kContainer = 3;

using enum Holds;
namespace events = class_events;
namespace properties = class_properties;

// clang-format off
constexpr ClassInfo kClasses[] = {
    {"CheckBox",       "Check",    kStandard,  kNothing,  kWidth, kHeight,    false, properties::kCheckBox,       events::kCheckBox},
    {"ComboBox",       "Combo",    kStandard,  kNothing,  kWidth, kRowHeight, false, properties::kComboBox,       events::kComboBox},
    {"CommandButton",  "Command",  kStandard,  kNothing,  kWidth, kHeight,    false, properties::kCommandButton,  events::kCommandButton},
    {"Data",           "Data",     kStandard,  kNothing,  kWidth, kHeight,    false, properties::kData,           events::kData},
    {"DirListBox",     "Dir",      kStandard,  kNothing,  kWidth, kHeight,    false, properties::kDirListBox,     events::kDirListBox},
    {"DriveListBox",   "Drive",    kStandard,  kNothing,  kWidth, kRowHeight, false, properties::kDriveListBox,   events::kDriveListBox},
    {"FileListBox",    "File",     kStandard,  kNothing,  kWidth, kHeight,    false, properties::kFileListBox,    events::kFileListBox},
    {"Frame",          "Frame",    kContainer, kControls, kWidth, kHeight,    false, properties::kFrame,          events::kFrame},
    {"HScrollBar",     "HScroll",  kStandard,  kNothing,  kWidth, kBar,       false, properties::kScrollBar,      events::kScrollBar},
    {"Image",          "Image",    kLight,     kNothing,  kWidth, kHeight,    false, properties::kImage,          events::kImage},
    {"Label",          "Label",    kLight,     kNothing,  kWidth, kHeight,    false, properties::kLabel,          events::kLabel},
    {"Line",           "Line",     kLight,     kNothing,  0,      0,          false, properties::kLine,           {}},
    {"ListBox",        "List",     kStandard,  kNothing,  kWidth, kHeight,    false, properties::kListBox,        events::kListBox},
    {"Menu",           "",         kStandard,  kMenus,    0,      0,          false, properties::kMenu,           events::kMenu},
    {"OLE",            "OLE",      kStandard,  kNothing,  kWidth, kHeight,    false, properties::kOle,            events::kOle},
    {"OptionButton",   "Option",   kStandard,  kNothing,  kWidth, kHeight,    false, properties::kOptionButton,   events::kOptionButton},
    {"PictureBox",     "Picture",  kContainer, kControls, kWidth, kHeight,    false, properties::kPictureBox,     events::kPictureBox},
    {"Shape",          "Shape",    kLight,     kNothing,  kWidth, kHeight,    false, properties::kShape,          {}},
    {"TextBox",        "Text",     kStandard,  kNothing,  kWidth, kHeight,    false, properties::kTextBox,        events::kTextBox},
    {"Timer",          "Timer",    kStandard,  kNothing,  0,      0,          false, properties::kTimer,          events::kTimer},
    {"VScrollBar",     "VScroll",  kStandard,  kNothing,  kBar,   kWidth,     false, properties::kScrollBar,      events::kScrollBar},

    {"Form",         "Form",         kContainer, kControlsMenus,   4680, 3195, true, properties::kForm,         events::kForm},
    {"MDIForm",      "MDIForm",      kContainer, kAlignedAndMenus, 4680, 3195, true, properties::kMdiForm,      events::kMdiForm},
    {"UserControl",  "UserControl",  kContainer, kControlsMenus,   4800, 3600, true, properties::kUserControl,  events::kUserControl},
    {"PropertyPage", "PropertyPage", kContainer, kControls,        4800, 3600, true, properties::kPropertyPage, events::kPropertyPage},
    {"UserDocument", "UserDocument", kContainer, kControlsMenus,   4800, 3600, true, properties::kUserDocument, events::kUserDocument},
    {"Class",        "Class",        kStandard,  kNothing,         0,    0,    true, properties::kClassModule,  events::kClassModule},
    {"Module",       "Module",       kStandard,  kNothing,         0,    0,    true, properties::kModule,       {}},
};
// clang-format on

// Each default is of its property's type and, where the values have names, one of them.
consteval bool fits(const PropertyInfo& row) {
  switch (row.type) {
    case PropertyType::kText:
      return row.number == 0 && row.names.empty();
    case PropertyType::kBoolean:
      return (row.number == 0 || row.number == -1) && row.text.empty();
    case PropertyType::kInteger:
      return row.number >= -32768 && row.number <= 32767 && row.text.empty();
    case PropertyType::kEnumeration:
      if (row.names.empty()) return row.text.empty();
      for (const ValueName& value : row.names)
        if (value.number == row.number) return row.text.empty();
      return false;
    case PropertyType::kLong:
    case PropertyType::kColour:
    case PropertyType::kSingle:
      return row.text.empty() && row.names.empty();
    default:
      return row.number == 0 && row.text.empty() && row.names.empty();
  }
}

consteval bool consistent(std::span<const ClassInfo> classes) {
  for (const ClassInfo& info : classes) {
    if (!sortedAndUnique(info.properties) || !sortedAndUnique(info.events)) return false;
    for (const PropertyInfo& row : info.properties)
      if (!fits(row)) return false;
  }
  return true;
}
static_assert(consistent(kClasses),
              "a class lists a name twice or out of order, or a default that does not fit");
static_assert(sortedAndUnique(properties::kForeign) && sortedAndUnique(properties::kForeignVisible));

template <typename Row>
const Row* findRow(std::span<const Row> rows, std::string_view name) {
  const auto found = std::lower_bound(
      rows.begin(), rows.end(), name,
      [](const Row& row, std::string_view wanted) { return base::LessNoCase()(row.name, wanted); });
  return found != rows.end() && base::equalNoCase(found->name, name) ? &*found : nullptr;
}

}  // namespace

const ClassInfo* findClass(std::string_view className) {
  if (base::startsWithNoCase(className, "VB.")) className.remove_prefix(3);
  for (const ClassInfo& info : kClasses)
    if (base::equalNoCase(info.name, className)) return &info;
  return nullptr;
}

std::span<const ClassInfo> allClasses() { return kClasses; }
std::span<const PropertyInfo> foreignProperties() { return properties::kForeign; }
std::span<const PropertyInfo> foreignVisibleProperties() { return properties::kForeignVisible; }
std::span<const PropertyInfo> fontParts() { return properties::kFontParts; }

const PropertyInfo* findProperty(std::span<const PropertyInfo> properties, std::string_view name) {
  return findRow(properties, name);
}

std::string_view valueName(const PropertyInfo& property, long number) {
  for (const ValueName& value : property.names)
    if (value.number == number) return value.name;
  return {};
}

const EventInfo* findEvent(std::string_view className, std::string_view event) {
  const ClassInfo* info = findClass(className);
  return info == nullptr ? nullptr : findRow(info->events, event);
}

std::optional<std::string> eventParameters(std::string_view className, std::string_view event) {
  const EventInfo* info = findEvent(className, event);
  return info == nullptr ? std::nullopt : std::optional<std::string>(info->parameters);
}

std::string_view eventObjectName(std::string_view rootClass) {
  const ClassInfo* info = findClass(rootClass);
  return info != nullptr && info->isRoot && !info->events.empty() ? info->name : std::string_view();
}

}  // namespace kolvane::workspace
