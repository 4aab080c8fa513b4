#include "measuring.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "frame/default_settings.h"

namespace kolvane::benchmarks {

namespace {

double secondsOfTool(const std::vector<std::string>& command) {
  const Finished finished = run(command);
  if (finished.status > 1)
    throw std::runtime_error(command[0] + " ended with " + std::to_string(finished.status));
  return finished.seconds;
}

}  // namespace

double secondsOf(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double medianOf(const Bench& bench, const std::function<double()>& once) {
  once();
  std::vector<double> values;
  for (int i = 0; i < bench.runs; ++i) values.push_back(once());
  return median(std::move(values));
}

Suite::Suite(OpenProject& opened)
    : services{*opened.host, settings,  desk,       clock, user,
               random,       clipboard, keystrokes, files, base::CodePage::get(base::CodePage::kDefault),
               {},           {}} {
  frame::ApplyDefaultSettings(settings, user);
}

Measured compare(const Bench& bench, const std::vector<std::string>& tool,
                 const std::function<double()>& own) {
  secondsOfTool(tool);
  own();
  std::vector<double> ownTimes;
  std::vector<double> toolTimes;
  for (int i = 0; i < bench.runs; ++i) {
    toolTimes.push_back(secondsOfTool(tool));
    ownTimes.push_back(own());
  }
  Measured measured;
  measured.own = median(std::move(ownTimes));
  measured.base = median(std::move(toolTimes));
  measured.value = *measured.own / *measured.base;
  return measured;
}

}  // namespace kolvane::benchmarks
