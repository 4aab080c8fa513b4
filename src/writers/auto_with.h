// A run of lines with one object in front, turned into a With block.
#pragma once

#include <string>
#include <vector>

#include "frame/services.h"

namespace kolvane::writers {

// The position of the point behind the longest object that all lines begin with, case ignored; -1 without
// one. What holds a blank is no object, nor is a comment, an open bracket or an open string. At least one line.
int Find_With_Prefix(const std::vector<std::string>& lines);

// Nothing changes when the lines have no object in common. The cursor goes behind the block. A module that
// cannot be edited is told to the user.
void Auto_With(const frame::Services& services, frame::CodeModule& module, int startLine, int endLine);

}  // namespace kolvane::writers
