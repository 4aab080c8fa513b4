// kolvane-bench: the suite's speed and size, as ratios against standard tools on the same generated files.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "figures.h"
#include "maintenance.h"
#include "report.h"

namespace {

constexpr std::string_view kHead =
    "Tools run as children in the C locale over the component files, start-up included, by turns with our "
    "side.\n"
    "\"kolvane verify\" is a child too; opening and finding are timed inside this process, without "
    "start-up.\n"
    "Nanoseconds are processor time.";

}  // namespace

int main(int argc, char** argv) {
  kolvane::benchmarks::RunOptions options;
  std::string kolvaneProgram = KOLVANE_PROGRAM;
  std::string project;
  CLI::App app(
      "Measures the suite against standard tools on generated projects. Exit status 1 when a bound is not "
      "met.");
  addOptions(app, options);
  app.add_option("--kolvane", kolvaneProgram, "The command line to measure")->capture_default_str();
  // For the children that this program makes of itself.
  CLI::App* memory = app.add_subcommand("memory", "Print the bytes that opening a project needs")->group("");
  bool indents = false;
  memory->add_flag("--indent", indents, "Indenting it and saving it too");
  memory->add_option("project", project)->required();
  CLI11_PARSE(app, argc, argv);
  try {
    if (memory->parsed()) {
      std::cout << (indents ? kolvane::benchmarks::growthOfIndenting(project)
                            : kolvane::benchmarks::growthOfOpening(project))
                << "\n";
      return 0;
    }
    kolvane::benchmarks::Bench bench(options.sizes(), options.runs, kolvaneProgram,
                                     std::filesystem::read_symlink("/proc/self/exe").string());
    return measureAll(bench, kolvane::benchmarks::figures(),
                      {kHead, options.quick, options.json, options.only});
  } catch (const std::exception& error) {
    std::cerr << "kolvane-bench: " << error.what() << "\n";
    return 3;
  }
}
