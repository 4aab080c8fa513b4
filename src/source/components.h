// Small questions about components and controls, and the constant in a module's declarations.
#pragma once

#include <memory>
#include <string_view>

#include "frame/host.h"

namespace kolvane::source {

// "Standard Module", "Class", "Form", "Property Page", "User Control", "ActiveX Designer"; "" for other
// types.
std::string_view Get_Component_Type_Name(frame::ComponentType type);
std::string_view Get_Component_Type_Name(frame::VBComponent& component);

// The controls that are no menus; 0 for nothing.
int GetRealControlCount(const std::shared_ptr<frame::VBControls>& controls);
// The number between the brackets of "txtName(2)"; 0 without brackets.
int GetControlIndex(std::string_view text);

// Where a new declaration goes: behind the declarations. When their last line stands inside of an open #If
// block, behind that block's end, so that the declaration holds under every condition; in front of the block
// when a procedure stands in it too.
int lineBehindDeclarations(frame::CodeModule& module);
// Writes `scope` Const `name` = `value` behind the declarations. A value that is not numeric is put in double
// quotes, those inside of it doubled.
void Create_Constant(frame::CodeModule& module, std::string_view name, std::string_view value,
                     std::string_view scope);

}  // namespace kolvane::source
