// The members of a module, read from its text.
#pragma once

#include <vector>

#include "workspace/attribute_lines.h"
#include "workspace/code_text.h"
#include "workspace/line_store.h"
#include "workspace/module_outline.h"

namespace kolvane::workspace {

// Procedures, properties (each name once), variables, constants, events and Declare statements in order of
// the text. Looks at the lines outside procedures only.
std::vector<MemberInfo> readMembers(CodeKind kind, const LineStore& lines, const ModuleOutline& outline,
                                    const AttributeLines& attributes);

}  // namespace kolvane::workspace
