// A whole property as text: the variable that holds its value, and its Get, Let and Set procedures.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::writers {

struct PropertyMethods {
  bool get = false;
  bool let = false;
  bool set = false;
  bool none() const { return !get && !let && !set; }
  bool operator==(const PropertyMethods&) const = default;
};

// "Get/Let".
std::string methodNames(const PropertyMethods& methods);

struct PropertyValues {
  std::string name;
  std::string description;
  std::string type;
  PropertyMethods methods;
  bool isPublic = true;
  bool useHandler = false;
  // Writes the declaration of the variable, unless the module has a variable of that name.
  bool declareMember = true;
  // The variable that holds the value; empty: "m" and the name, with the prefix of the type between them.
  std::string member = {};
};

// The methods that suit a type: Let and Get for plain values, Get and Set for objects, all three for a
// Variant. Nothing for a type that is not known as either.
std::optional<PropertyMethods> usualMethods(const frame::Services& services, std::string_view type);
// The same, and Get and Set for a class of the open projects.
std::optional<PropertyMethods> methodsOfType(const frame::Services& services, std::string_view type);

// The name as Create_Property writes it: trimmed, "_" for blanks, capitals at the starts of words. Names that
// begin with "col" or "obj" keep their first letter.
std::string propertyName(const frame::Services& services, std::string_view name);

// What a property cannot be written with.
enum class PropertyField { kName, kType, kMethods };
struct PropertyFault {
  PropertyField field;
  std::string_view message;
};
// The first fault that a user is told of, with the value that it lies in.
std::optional<PropertyFault> faultOf(const frame::Services& services, frame::CodeModule& module,
                                     const PropertyValues& property);

// Writes the variable behind the declarations and the methods behind the module's last line that is not
// blank, in the order Get, Let, Set. The values are taken as they are: faultOf() is the caller's matter.
// Without a method nothing is written.
// False when the module cannot be edited; the user has been told. Two edits, or three with the constant that
// handlers in a standard module need.
bool Create_Property(frame::Services& services, frame::CodeModule& module, const PropertyValues& property);

}  // namespace kolvane::writers
