// What is measured: one row a figure, with the tool that it is measured against and the bound that it is to
// meet.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "process.h"
#include "sample.h"

namespace kolvane::benchmarks {

struct Sizes {
  generate::Options project;
  generate::Options bigModule;
  int insertions = 10'000;
  int settingsReads = 100'000;
  int questions = 200'000;
  int headers = 200;
};
Sizes fullSizes();
Sizes quickSizes();

// The samples, and what the figures share; made once a run.
struct Bench {
  Bench(const Sizes& itsSizes, int itsRuns, std::string kolvaneProgram, std::string ownProgram);

  Sizes sizes;
  int runs;
  std::string kolvane;  // path of the command line
  std::string self;     // path of this program, for children of it
  TemporaryFolder folder;
  Sample project;
  Sample bigModule;
  OpenProject opened;  // the project, unchanged throughout
};

struct Measured {
  double value = 0;           // in the figure's unit
  std::optional<double> own;  // seconds of our side and of the tool's, where there is a tool
  std::optional<double> base;
  std::string note;         // what was done: "600 modules, 14,120 procedures"
  std::string notMeasured;  // why there is no value; empty when there is one
};

struct Figure {
  std::string_view name;
  std::string_view against;  // command line of the tool; empty for a figure of its own
  std::string_view unit;     // "x" is a ratio of times
  double bound;              // the value is to be at most this
  Measured (*measure)(Bench&);
};

std::span<const Figure> figures();

// Opens the project and tells how many bytes the process grew at its largest; for a process of its own.
std::size_t growthOfOpening(const std::string& project);

}  // namespace kolvane::benchmarks
