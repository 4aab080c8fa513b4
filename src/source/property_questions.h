// Properties as a module's text has them. Each question looks the titles up behind the declarations by their
// words ("Property Get Total"), case apart; so a title whose name only begins with the asked one is taken too
// when it comes first.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// A property's procedures, in the order in which all questions look at them.
struct PropertyMethod {
  std::string_view word;   // "Get"
  std::string_view title;  // "Property Get "
};
inline constexpr std::array<PropertyMethod, 3> kPropertyMethods{{
    {"Get", "Property Get "},
    {"Let", "Property Let "},
    {"Set", "Property Set "},
}};

// True when the module has a property of that name, case apart.
bool PropertyExists(std::string_view name, frame::CodeModule& module);

// The last word of a title, without the bracket that closes a list of parameters; brackets of an array stay.
std::string FindPropertiesType(frame::CodeModule& module, int line);

// The first of the titles that are there, 0 without any.
int GetPropertyRealStartLine(frame::CodeModule& module, std::string_view name);

// The methods that are there: "Get/Let", "Set", "".
std::string GetPropertyDeclarations(frame::CodeModule& module, std::string_view name);

// "Read Write", "Write Only", "Read Only", "Private" or "", by the scopes of the methods. A title that does not
// open with Public counts as private. A property with nothing but a Get is "" when that is public.
std::string GetPropertiesScope(frame::CodeModule& module, std::string_view name);

// One of the methods holds an `On Error` line.
bool DoesPropertyUseErrorHandler(frame::CodeModule& module, std::string_view name);

// What stands behind the Description label above the first method that is there; "" without one.
std::string GetPropertiesDescription(const frame::Services& services, frame::CodeModule& module,
                                     std::string_view name);

// The same, looked for from `line` upwards, as far as the host counts the lines to `name`.
std::string descriptionUpwards(const frame::Services& services, frame::CodeModule& module, int line,
                               std::string_view name);

}  // namespace kolvane::source
