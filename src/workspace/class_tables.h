// The classes that the language brings along, as the designer knows them: their properties with types and
// defaults, their events, and how a new object of each is named and sized. One row a class; everything that
// depends on a class reads it here.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::workspace {

enum class PropertyType : std::uint8_t {
  kText,
  kBoolean,
  kEnumeration,  // 32 bit
  kInteger,      // 16 bit
  kLong,         // 32 bit
  kSingle,       // 32 bit, with a fraction
  kColour,       // 32 bit, spelled in hexadecimal
  kShortcut,     // a menu's key, spelled bare: ^S
  kNumber,       // of a class that is not known: whole or with a fraction
  kPicture,      // a reference into the companion file
  kList,         // likewise
  kFont,         // a group of properties
  kGroup,        // another group of properties
  kRaw,          // of a class that is not known, spelled in no known way: can be read only
};

// A number of an enumeration and the name that the IDE writes behind it.
struct ValueName {
  int number;
  std::string_view name;
};

struct PropertyInfo {
  std::string_view name;
  PropertyType type = PropertyType::kText;
  // What the property is when the file has no line for it; -1 is True.
  std::int32_t number = 0;
  std::string_view text = {};
  std::span<const ValueName> names = {};
  // The IDE writes the line also when the value is the default.
  bool alwaysWritten = false;
};

struct EventInfo {
  std::string_view name;
  std::string_view parameters;  // as in a title, without the parentheses
};

// What a class can hold as a designer's container.
enum class Holds : std::uint8_t {
  kNothing,
  kMenus,           // a menu: its submenu
  kControls,        // any control, no menu
  kControlsMenus,   // a form
  kAlignedAndMenus  // an MDI form: aligned controls, controls without a window at run time, menus
};

struct ClassInfo {
  std::string_view name;      // "TextBox"; its ProgId is "VB.TextBox"
  std::string_view nameStem;  // of a new object's name; empty: a name must be given
  int controlType;            // 1 light, 2 standard, 3 container
  Holds holds;
  int width;  // of a new object, in twips; 0 when the class has no size
  int height;
  bool isRoot;                               // a designer or module itself, never a control
  std::span<const PropertyInfo> properties;  // in alphabetical order
  std::span<const EventInfo> events;         // in alphabetical order
};

// The class of a name, with or without "VB." in front; case is ignored. Nothing for classes of other
// libraries. "Class" is a class module, "Module" a standard module.
const ClassInfo* findClass(std::string_view className);
// All of them, controls first.
std::span<const ClassInfo> allClasses();

// What every control of another library has from the form that holds it. The first group is there always, the
// second when the control can be seen at run time.
std::span<const PropertyInfo> foreignProperties();
std::span<const PropertyInfo> foreignVisibleProperties();

// A font's parts in the order in which files have them.
std::span<const PropertyInfo> fontParts();

const PropertyInfo* findProperty(std::span<const PropertyInfo> properties, std::string_view name);
inline const PropertyInfo* findProperty(const ClassInfo& info, std::string_view name) {
  return findProperty(info.properties, name);
}
// The name that the IDE writes behind the number of an enumeration; empty when there is none.
std::string_view valueName(const PropertyInfo& property, long number);

// An event in its own spelling; nothing for an unknown class or event. A class module's list holds the events
// of all its settings.
const EventInfo* findEvent(std::string_view className, std::string_view event);
// Its parameters as in a title: "Button As Integer, Shift As Integer, X As Single, Y As Single".
std::optional<std::string> eventParameters(std::string_view className, std::string_view event);
// The name that a designer's own handlers begin with ("Form"), whatever the component is called; empty for
// others.
std::string_view eventObjectName(std::string_view rootClass);

}  // namespace kolvane::workspace
