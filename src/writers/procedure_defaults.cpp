#include "writers/procedure_defaults.h"

#include "base/text.h"

namespace kolvane::writers {
namespace {

// Of a list of two.
bool isSecond(const BuilderValues& values, std::string_view name) {
  return base::toLong(values.text(name)) == 1;
}

}  // namespace

ProcedureDefaults procedureDefaults(const BuilderValues& values) {
  using namespace procedure_default;
  ProcedureDefaults defaults;
  NewProcedure& procedure = defaults.procedure;
  procedure.isPrivate = !isSecond(values, kScope);
  procedure.isFunction = isSecond(values, kType);
  procedure.returnType = values.text(kReturns, kUsualType);
  procedure.errors = values.text(kErrors);
  for (std::size_t i = 0; i < kParameters.size(); ++i) {
    const ParameterKeys& keys = kParameters[i];
    procedure.parameters[i] = {
        values.text(keys.name),
        values.has(keys.passing) ? values.text(keys.type, kUsualType) : std::string(kUsualType),
        isSecond(values, keys.passing), values.flag(keys.optional, false)};
  }
  defaults.includeClasses = values.flag(kIncludeClasses, true);
  defaults.moveCursor = values.flag(kMoveCursor, true);
  return defaults;
}

}  // namespace kolvane::writers
