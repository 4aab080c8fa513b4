// The code window's commands in a large module.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

// One figure a command, in milliseconds.
std::span<const Figure> codeWindowFigures();

}  // namespace kolvane::benchmarks
