// The libraries and projects that a project refers to, as its "Reference=" lines tell them.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::workspace {

struct ReferenceInfo {
  std::string name;  // of a known library; otherwise that of its file
  std::string guid;  // with braces; empty for a project
  long major = 0;
  long minor = 0;
  std::string path;  // as the line has it
  std::string description;
};

// The value of a line: "*\G{guid}#major.minor#lcid#path#description" or "*\Apath.vbp". Parts that are missing
// stay empty; the numbers are hexadecimal, as in the system's list of libraries.
ReferenceInfo parseReference(std::string_view value);

// A fixed list; names are found without regard to case.
std::shared_ptr<frame::Collection<frame::Reference>> makeReferences(std::vector<ReferenceInfo> references);

}  // namespace kolvane::workspace
