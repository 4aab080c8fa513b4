// Connecting the suite to its host.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

std::span<const Figure> connectingFigures();

}  // namespace kolvane::benchmarks
