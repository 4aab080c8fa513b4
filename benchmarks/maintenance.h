// Whole projects rewritten: from opening the project to its files written, against a copy of the files.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

// Without the comparison with vim, and a line on standard error that says so, where there is no vim.
std::span<const Figure> maintenanceFigures();

}  // namespace kolvane::benchmarks
