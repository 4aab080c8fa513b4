// What a new procedure starts with: the values that the Procedure Builder keeps for each project.
#pragma once

#include <array>
#include <string_view>

#include "writers/builder_defaults.h"
#include "writers/procedure_text.h"

namespace kolvane::writers {

namespace procedure_default {

inline constexpr std::string_view kScope = "PBDS37";    // index: Private, Public
inline constexpr std::string_view kType = "PBDT38";     // index: Sub, Function
inline constexpr std::string_view kReturns = "PBDR39";  // of a Function
inline constexpr std::string_view kErrors = "PBDE40";   // name of the handler
inline constexpr std::string_view kIncludeClasses = "PBLC42";
inline constexpr std::string_view kMoveCursor = "serg354sdfgsdgsr";

struct ParameterKeys {
  std::string_view name;
  std::string_view passing;  // index: ByVal, ByRef
  std::string_view type;     // counts only where the passing is there
  std::string_view optional;
};
inline constexpr std::array<ParameterKeys, kBuilderParameters> kParameters{{
    {"ee1", "otee1", "PBDP143", "oee1"},
    {"ceT2", "ttceT2", "PBDP244", "oceT2"},
    {"eufee3", "tteufee3", "PBDP345", "oeufee3"},
}};

}  // namespace procedure_default

// The type of everything whose type is not kept.
inline constexpr std::string_view kUsualType = "String";

struct ProcedureDefaults {
  NewProcedure procedure;  // without name, description and author
  bool includeClasses = true;
  bool moveCursor = true;
};

// Private, Sub, no handler and types of "String" where the values say nothing.
ProcedureDefaults procedureDefaults(const BuilderValues& values);

}  // namespace kolvane::writers
