// kolvane-workbench-bench: how soon the windows of the workbench answer, on large generated projects.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <exception>
#include <iostream>
#include <string>

#include "report.h"
#include "workbench/responsiveness.h"

namespace {

constexpr std::string_view kHead =
    "Windows are drawn in memory and seen by nobody. A time ends when what was asked for is painted and the "
    "event "
    "loop\n"
    "has nothing left to do.";

QtMessageHandler usualHandler = nullptr;

// Of each window that is shown in memory Qt says what a window without a screen cannot do.
void withoutPluginTalk(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (!text.startsWith("This plugin does not support")) usualHandler(type, context, text);
}

}  // namespace

int main(int argc, char** argv) {
  namespace benchmarks = kolvane::benchmarks;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  usualHandler = qInstallMessageHandler(withoutPluginTalk);
  const QApplication application(argc, argv);
  benchmarks::RunOptions options;
  CLI::App app("Measures how soon the workbench answers. Exit status 1 when a bound is not met.");
  addOptions(app, options);
  // So that both programs can be given the same arguments.
  std::string unused;
  app.add_option("--kolvane", unused, "No figure here needs it")->group("");
  CLI11_PARSE(app, argc, argv);
  try {
    benchmarks::Bench bench(options.sizes(), options.runs, {}, {});
    return measureAll(bench, benchmarks::responsivenessFigures(),
                      {kHead, options.quick, options.json, options.only});
  } catch (const std::exception& error) {
    std::cerr << "kolvane-workbench-bench: " << error.what() << "\n";
    return 3;
  }
}
