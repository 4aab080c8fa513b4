// Measures figures and prints one row for each, or JSON.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "figures.h"

namespace CLI {
class App;
}

namespace kolvane::benchmarks {

struct Report {
  std::string_view head;  // what is said above the rows, beside the project's size
  bool quick = false;     // small sizes: nothing is judged
  bool json = false;
  std::string only;  // figures whose name and tool hold this text
};

// A figure that cannot be measured says why in its row and keeps no other from being measured. Gives the exit status: 0,
// or 1 when a bound is not met or something was not measured.
int measureAll(Bench& bench, std::span<const Figure> figures, const Report& report);

// What every program of benchmarks can be told.
struct RunOptions {
  bool quick = false;
  bool json = false;
  int runs = 5;
  std::string only;
  std::uint64_t seed = 1;

  Sizes sizes() const;
};
// `options` must outlive the parsing.
void addOptions(CLI::App& app, RunOptions& options);

}  // namespace kolvane::benchmarks
