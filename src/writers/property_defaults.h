// What a new property starts with: the values that the Property Builder keeps for each project.
#pragma once

#include <string_view>

#include "writers/builder_defaults.h"
#include "writers/property_text.h"

namespace kolvane::writers {

namespace property_default {

inline constexpr std::string_view kScope = "PrBDS58";  // index: Private, Public
inline constexpr std::string_view kType = "PrBDT59";
inline constexpr std::string_view kIncludeClasses = "PrBLC60";
inline constexpr std::string_view kErrorHandler = "PrBUEH57";

}  // namespace property_default

struct PropertyDefaults {
  PropertyValues property;  // without name, description and methods
  bool includeClasses = true;
};

// Private, of type "String" and without handler where the values say nothing.
PropertyDefaults propertyDefaults(const BuilderValues& values);

// The values that propertyDefaults() reads.
frame::Settings::Rows valuesOf(const PropertyDefaults& defaults);

}  // namespace kolvane::writers
