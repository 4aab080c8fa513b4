// Typed property values out of the texts that a designer's file holds, and the texts for new values.
#pragma once

#include <string>
#include <string_view>

#include "frame/host.h"
#include "workspace/class_tables.h"

namespace kolvane::workspace {

namespace errors {
inline constexpr long kOverflow = 6;
inline constexpr long kAlreadyLoaded = 360;
inline constexpr long kInvalidPropertyValue = 380;
}  // namespace errors

// A property's value as it stands in the file. Never fails: a text that does not fit the type is given as
// what it looks like. A text or picture in the companion file is an object whose text is the reference.
frame::Value valueOf(const PropertyInfo& property, std::string_view fileText);
// The value of a property without a line.
frame::Value defaultOf(const PropertyInfo& property);
// What a property that no table knows seems to be.
PropertyType inferredType(std::string_view fileText);

// A value as one of the property's type. Raises 13 when it cannot be one, 6 when it is too large, 380 when
// the property cannot have it, 321 for a text with a line end and for an object other than none: these live
// in the companion file, which is not written.
frame::Value converted(const PropertyInfo& property, const frame::Value& value);
// Both must be of the property's type.
bool sameValue(const PropertyInfo& property, const frame::Value& a, const frame::Value& b);
// The text behind "=" for a value of the property's type, with the value's name behind it. Not for objects.
std::string fileText(const PropertyInfo& property, const frame::Value& value);

}  // namespace kolvane::workspace
