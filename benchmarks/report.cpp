#include "report.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace kolvane::benchmarks {

namespace {

struct Result {
  const Figure* figure;
  Measured measured;
};

bool met(const Result& result) { return result.measured.value <= result.figure->bound; }

std::string number(double value) {
  char text[40];
  std::snprintf(text, sizeof text,
                value < 0.1   ? "%.4f"
                : value < 10  ? "%.2f"
                : value < 100 ? "%.1f"
                              : "%.0f",
                value);
  return text;
}

std::string milliseconds(const std::optional<double>& seconds) {
  return seconds ? number(*seconds * 1000) + " ms" : "";
}

std::string verdict(const Result& result, bool quick) {
  if (!result.measured.notMeasured.empty()) return "not measured";
  if (quick) return "-";
  return met(result) ? "met" : "not met";
}

void printHead(const Bench& bench, const Report& report) {
  std::printf(
      "Project: %zu lines, %zu files, %.1f MB. Median of %d runs behind a warm-up; all files in the page "
      "cache.\n%s\n",
      bench.project.lines, bench.project.components.size(), static_cast<double>(bench.project.bytes) / 1e6,
      bench.runs, std::string(report.head).c_str());
  if (report.quick) std::puts("Small sizes: start-up outweighs the work, so nothing is judged.");
  std::puts("");
}

void printRow(const std::vector<std::string>& cells) {
  std::printf("%-46s %10s  %-11s %10s %11s %11s  %-12s  %s\n", cells[0].c_str(), cells[1].c_str(),
              cells[2].c_str(), cells[3].c_str(), cells[4].c_str(), cells[5].c_str(), cells[6].c_str(),
              cells[7].c_str());
  std::fflush(stdout);
}

void printResult(const Result& result, bool quick) {
  const Figure& figure = *result.figure;
  const Measured& measured = result.measured;
  const bool valid = measured.notMeasured.empty();
  const std::string unit = " " + std::string(figure.unit);
  printRow({std::string(figure.name), milliseconds(measured.own), std::string(figure.against),
            milliseconds(measured.base), valid ? number(measured.value) + unit : "",
            "<= " + number(figure.bound) + unit, verdict(result, quick),
            valid ? measured.note : measured.notMeasured});
}

nlohmann::json asJson(const Bench& bench, const std::vector<Result>& results, bool quick) {
  nlohmann::json rows = nlohmann::json::array();
  for (const Result& result : results) {
    nlohmann::json row{{"figure", result.figure->name},
                       {"unit", result.figure->unit},
                       {"bound", result.figure->bound},
                       {"verdict", verdict(result, quick)}};
    if (!result.figure->against.empty()) row["against"] = result.figure->against;
    if (result.measured.notMeasured.empty()) {
      row["value"] = result.measured.value;
      row["note"] = result.measured.note;
    } else {
      row["reason"] = result.measured.notMeasured;
    }
    if (result.measured.own) row["seconds"] = *result.measured.own;
    if (result.measured.base) row["toolSeconds"] = *result.measured.base;
    rows.push_back(std::move(row));
  }
  return {{"lines", bench.project.lines},
          {"files", bench.project.components.size()},
          {"bytes", bench.project.bytes},
          {"runs", bench.runs},
          {"quick", quick},
          {"figures", std::move(rows)}};
}

// A figure that fails does not keep the others from being measured.
Result measure(const Figure& figure, Bench& bench) {
  Result result{&figure, {}};
  try {
    result.measured = figure.measure(bench);
  } catch (const std::exception& error) {
    result.measured = {};
    result.measured.notMeasured = error.what();
  }
  return result;
}

}  // namespace

int measureAll(Bench& bench, std::span<const Figure> figures, const Report& report) {
  if (!report.json) {
    printHead(bench, report);
    printRow({"figure", "time", "against", "its time", "measured", "bound", "", ""});
  }
  std::vector<Result> results;
  bool allMet = true;
  for (const Figure& figure : figures) {
    const std::string row = std::string(figure.name).append(", against ").append(figure.against);
    if (row.find(report.only) == std::string::npos) continue;
    results.push_back(measure(figure, bench));
    allMet = allMet && results.back().measured.notMeasured.empty() && (report.quick || met(results.back()));
    if (!report.json) printResult(results.back(), report.quick);
  }
  if (report.json) std::cout << asJson(bench, results, report.quick).dump(2) << "\n";
  return allMet ? 0 : 1;
}

Sizes RunOptions::sizes() const {
  Sizes sizes = quick ? quickSizes() : fullSizes();
  sizes.project.seed = sizes.bigModule.seed = seed;
  return sizes;
}

void addOptions(CLI::App& app, RunOptions& options) {
  app.add_flag("--quick", options.quick, "Small sizes, to see that everything runs");
  app.add_flag("--json", options.json, "Print JSON");
  app.add_option("--runs", options.runs, "Runs a figure; the median counts")
      ->check(CLI::Range(1, 1000))
      ->capture_default_str();
  app.add_option("--only", options.only, "Figures whose name, or tool, holds this text");
  app.add_option("--seed", options.seed, "Of the generated projects")->capture_default_str();
}

}  // namespace kolvane::benchmarks
