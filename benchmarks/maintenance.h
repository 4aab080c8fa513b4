// Whole projects rewritten: from opening the project to its files written, against a copy of the files.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "figures.h"

namespace kolvane::benchmarks {

// Without the comparison with vim, and a line on standard error that says so, where there is no vim.
std::span<const Figure> maintenanceFigures();

// The bytes by which this process grows at most while it opens a project, indents it and writes it back.
std::size_t growthOfIndenting(const std::string& project);

}  // namespace kolvane::benchmarks
