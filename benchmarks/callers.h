// The search for callers against a search for the word.
#pragma once

#include <span>

#include "figures.h"

namespace kolvane::benchmarks {

std::span<const Figure> callersFigures();

}  // namespace kolvane::benchmarks
