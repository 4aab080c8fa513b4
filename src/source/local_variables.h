// The variables that a procedure declares with Dim, as the language reads them: bounds belong to their array, a colon
// ends a declaration, a statement goes on over lines.
//
// The scanner in declarations.h reads words instead, and the dialogs count on how it does; this one is for what is our
// own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "source/statements.h"

namespace kolvane::source {

struct LocalVariable {
  std::string name;  // as declared, without a type's character
  std::string type;  // as declared ("New Collection", "String * 20"), by its character, or "Variant"
  bool isArray = false;
  bool operator==(const LocalVariable&) const = default;
};

bool isDim(std::string_view statement);
// Those of a Dim statement, none of any other.
std::vector<LocalVariable> declaredVariables(std::string_view statement);

// A Sub or Function and its own variables.
struct ProcedureLocals {
  std::string procedure;
  int titleLine = 0;
  int lastLine = 0;
  std::vector<LocalVariable> variables;
};

// Those of the module that declare any, in its order. Property procedures are left out. One pass over the text, in which
// the module must not be edited.
std::vector<ProcedureLocals> localsOf(frame::CodeModule& module);

}  // namespace kolvane::source
