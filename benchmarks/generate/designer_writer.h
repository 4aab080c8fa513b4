// What stands in front of a component's code: version line, designer tree, attribute block.
#pragma once

#include <string>

#include "generate/outline.h"
#include "generate/text.h"

namespace kolvane::generate {

void writeHeader(Random& random, const Module& module, Text& out);

// The bytes of the form's companion file; of no meaning but the length that pictures have.
std::string companionBytes(Random& random);
// "Forms/frmOrder.frx" for "Forms/frmOrder.frm"
std::string companionPath(const Module& module);

}  // namespace kolvane::generate
