// A whole Sub or Function as text: header, title, error handler, End line.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::writers {

inline constexpr std::size_t kBuilderParameters = 3;

struct NewParameter {
  std::string name;  // "names()" for an array
  std::string type;
  bool byRef = false;  // arrays are ByRef whatever this says
  bool optional = false;
};

struct NewProcedure {
  std::string name;
  std::string description;
  bool isFunction = false;
  bool isPrivate = true;
  std::string returnType;  // of a Function
  // They count up to the first one without a name.
  std::array<NewParameter, kBuilderParameters> parameters;
  // A kind of handler as AddErrorHandlers lists them, or a custom handler's name, case apart; "" and "None" for no
  // handler.
  std::string errors;
  std::string author;  // the current user when blank
};

// The name as Create_Procedure writes it: trimmed, "_" for blanks, capitals at the starts of words. Of "g_" and "m_"
// at its start the first letter stays.
std::string procedureName(const frame::Services& services, std::string_view name);
// Whether a parameter's name is that of an array: it holds a bracket.
bool Array_Variable(std::string_view name);

// What a procedure cannot be written with.
enum class ProcedureField { kName, kParameterType, kReturnType };
struct ProcedureFault {
  ProcedureField field;
  std::size_t parameter;  // from 0, of kParameterType
  std::string message;
};
// The first fault that a user is told of, with the value that it lies in.
std::optional<ProcedureFault> faultOf(const NewProcedure& procedure);
// The same, and then whether the module has a Sub or Function of that name.
std::optional<ProcedureFault> faultOf(const frame::Services& services, frame::CodeModule& module,
                                      const NewProcedure& procedure);

// Writes the procedure behind the module's last line that is not blank, with one empty line between; blank lines
// there stay behind it. Names are brought into form first, and a parameter's name gets the prefix of its type. The
// values are taken as they are: faultOf() is the caller's matter. A custom handler that is not in the store leaves
// the handler's body empty.
// False when the module cannot be edited; the user has been told. One edit, or two with the constant that handlers
// in a standard module need.
bool Create_Procedure(frame::Services& services, frame::CodeModule& module, const NewProcedure& procedure);

// Where the first statement goes in the module's last procedure: two lines above its End line, or with a handler
// above its Exit line, where `kindWord` is "Sub" or "Function". Nothing when the module has no such line.
std::optional<int> FindLineForCursor(frame::CodeModule& module, std::string_view kindWord,
                                     std::string_view errors);

// The text of the Parameters field with a line break for its last comma, when it has at least `width` - 18
// characters; the further line begins with `indent`, an apostrophe, `character`, `blanks` blanks and ": ".
std::string Format_Header_Parameter_String(std::string_view text, int width, int blanks,
                                           std::string_view character, std::string_view indent);

}  // namespace kolvane::writers
