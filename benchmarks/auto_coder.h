// The Auto Coder over one big module.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

std::span<const Figure> autoCoderFigures();

}  // namespace kolvane::benchmarks
