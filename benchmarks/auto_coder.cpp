#include "auto_coder.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

#include "frame/default_settings.h"
#include "measuring.h"
#include "writers/auto_coder.h"
#include "writers/code_window_commands.h"

namespace kolvane::benchmarks {
namespace {

constexpr int kLinesOfAProcedure = 20;
constexpr double kMostSeconds = 2;
constexpr double kMostAgainstAwk = 30;
// Four times the procedures.
constexpr double kMostGrowth = 6;

// What the tool does, as far as a program without knowledge of the language can: a block above each title, a line
// behind it, a tail in front of each End.
constexpr std::string_view kAwk = R"(
function rule() { print "'***************************************************************************" }
/^(Public |Private )?(Sub|Function) / {
  name = $0; sub(/\(.*/, "", name); sub(/.* /, "", name)
  rule(); print "'*  Name         : " name; print "'*  Description  : "; print "'*  Parameters   : "
  print "'*  Returns      : "; print "'*  Author       : ann"; print "'*  Date         : "; rule(); print ""
  print; print ""; print "On Error GoTo errHandler"; next
}
/^End (Sub|Function)/ {
  print "Exit " $2; print " "; print " errHandler: "; print " "
  print "\tErr.Source = Err.Source & vb_module_name & \"." name "\""; print ""
  print "\tErr.Raise Err.Number, Err.Source, Err.Description"; print " "
}
{ print })";

Sample moduleOf(Bench& bench, int procedures) {
  generate::Options options = bench.sizes.bigModule;
  options.procedures = procedures;
  options.moduleLines = procedures * kLinesOfAProcedure;
  return writeSample(bench.folder.path(), "autocode" + std::to_string(procedures), options);
}

int fullCount(const Bench& bench) { return bench.sizes.bigModule.moduleLines / kLinesOfAProcedure; }

struct Outcome {
  double seconds = 0;  // of the two passes
  int written = 0;
};

// Opens the module afresh and writes Raise handlers and headers into it.
Outcome autoCode(const Sample& sample) {
  OpenProject opened = open(sample.project);
  Suite suite(opened);
  frame::ApplyDefaultSettings(suite.settings, suite.user);
  const writers::Context context{suite.services};
  source::CodeWindowCommands commands;
  writers::bindCodeWindowCommands(commands, context);
  frame::CodeModule& module = *opened.modules.at(0);
  opened.host->openCode(module.Parent());
  Outcome outcome;
  outcome.seconds = secondsOf([&] {
    outcome.written =
        writers::Process_CodeModule_For_ErrorHandlers({context, commands}, module, "Raise").written +
        writers::Process_CodeModule_For_Headers(context, module, "ann").written;
  });
  if (outcome.written == 0) throw std::runtime_error("nothing was written");
  return outcome;
}

std::string noteOf(const Sample& sample, int written) {
  return std::to_string(sample.lines) + " lines, " + std::to_string(written) +
         " headers and handlers written";
}

Measured measureModule(Bench& bench) {
  const Sample sample = moduleOf(bench, fullCount(bench));
  Outcome outcome;
  Measured measured;
  measured.value = medianOf(bench, [&] { return (outcome = autoCode(sample)).seconds; });
  measured.note = noteOf(sample, outcome.written);
  return measured;
}

// Opening included, as awk reads the file too.
Measured measureAgainstAwk(Bench& bench) {
  const Sample sample = moduleOf(bench, fullCount(bench));
  int written = 0;
  Measured measured = compare(bench, {"awk", std::string(kAwk), sample.components.at(0)},
                              [&] { return secondsOf([&] { written = autoCode(sample).written; }); });
  measured.note = noteOf(sample, written) + ", opening included";
  return measured;
}

std::string milliseconds(double seconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", seconds * 1000);
  return text;
}

Measured measureGrowth(Bench& bench) {
  double first = 0;
  double last = 0;
  Measured measured;
  for (const int part : {4, 2, 1}) {
    const int procedures = fullCount(bench) / part;
    const Sample sample = moduleOf(bench, procedures);
    last = medianOf(bench, [&] { return autoCode(sample).seconds; });
    if (first == 0) first = last;
    measured.note += (measured.note.empty() ? "" : ", ") + std::to_string(procedures) + " procedures " +
                     milliseconds(last) + " ms";
  }
  measured.value = last / first;
  return measured;
}

constexpr Figure kAutoCoderFigures[] = {
    {"Auto Coder over a module", "", "s", kMostSeconds, measureModule},
    {"the same, opening included", "awk", "x", kMostAgainstAwk, measureAgainstAwk},
    {"its growth with four times the procedures", "", "x", kMostGrowth, measureGrowth},
};

}  // namespace

std::span<const Figure> autoCoderFigures() { return kAutoCoderFigures; }

}  // namespace kolvane::benchmarks
