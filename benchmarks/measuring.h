// What figures are measured with.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "figures.h"
#include "forms/scripted_desk.h"
#include "frame/services.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"

namespace kolvane::benchmarks {

double secondsOf(const std::function<void()>& work);

// Of at least one value.
double median(std::vector<double> values);
// Median of as many runs as were asked for, behind one that warms up.
double medianOf(const Bench& bench, const std::function<double()>& once);

// The tool and our side by turns, so that a slow moment of the machine meets both; medians, behind one run of each that
// warms up. `own` gives seconds. A tool that fails raises std::runtime_error.
Measured compare(const Bench& bench, const std::vector<std::string>& tool,
                 const std::function<double()>& own);

// A suite's services around a host, without anybody at the desk. The project must outlive it.
struct Suite {
  explicit Suite(OpenProject& opened);

  platform::MemoryFiles files;
  platform::MemoryClipboard clipboard;
  platform::RecordedKeystrokes keystrokes;
  platform::MemoryTreeStore store;
  platform::FixedClock clock{base::DateTime{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user{"ann"};
  platform::Random random;
  forms::ScriptedDesk desk;
  frame::Settings settings{store, base::CodePage::get(base::CodePage::kDefault)};
  frame::Services services;
};

}  // namespace kolvane::benchmarks
