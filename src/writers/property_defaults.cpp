#include "writers/property_defaults.h"

#include <string>

#include "base/text.h"

namespace kolvane::writers {

using namespace property_default;

PropertyDefaults propertyDefaults(const BuilderValues& values) {
  PropertyDefaults defaults;
  defaults.property.isPublic = base::toLong(values.text(kScope)) == 1;
  defaults.property.type = values.text(kType, "String");
  defaults.property.useHandler = values.flag(kErrorHandler, false);
  defaults.includeClasses = values.flag(kIncludeClasses, true);
  return defaults;
}

frame::Settings::Rows valuesOf(const PropertyDefaults& defaults) {
  return {{std::string(kScope), defaults.property.isPublic ? "1" : "0"},
          {std::string(kType), defaults.property.type},
          {std::string(kIncludeClasses), base::boolText(defaults.includeClasses)},
          {std::string(kErrorHandler), base::boolText(defaults.property.useHandler)}};
}

}  // namespace kolvane::writers
