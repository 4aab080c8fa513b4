// How soon the workbench answers its user.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

// They want a QApplication.
std::span<const Figure> responsivenessFigures();

}  // namespace kolvane::benchmarks
