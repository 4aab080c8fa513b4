#include <utility>

#include "figures.h"

namespace kolvane::benchmarks {

Sizes fullSizes() {
  Sizes sizes;
  sizes.bigModule.moduleLines = 60'000;
  return sizes;
}

Sizes quickSizes() {
  Sizes sizes;
  sizes.project.lines = 20'000;
  sizes.project.files = 30;
  sizes.bigModule.moduleLines = 5'000;
  sizes.insertions = 500;
  sizes.settingsReads = 5'000;
  sizes.questions = 10'000;
  sizes.headers = 20;
  return sizes;
}

Bench::Bench(const Sizes& itsSizes, int itsRuns, std::string kolvaneProgram, std::string ownProgram)
    : sizes(itsSizes),
      runs(itsRuns),
      kolvane(std::move(kolvaneProgram)),
      self(std::move(ownProgram)),
      project(writeSample(folder.path(), "project", sizes.project)),
      bigModule(writeSample(folder.path(), "module", sizes.bigModule)),
      opened(open(project.project)) {}

}  // namespace kolvane::benchmarks
