#include "code_window_commands.h"

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "measuring.h"
#include "source/procedure_questions.h"
#include "writers/code_window_commands.h"

namespace kolvane::benchmarks {
namespace {

constexpr double kMostMilliseconds = 20;
constexpr int kRounds = 20;
constexpr int kBehindAnyLine = 1000;

// Behind its title, which bears a number. Each command finds lines in it that it changes.
constexpr std::array<std::string_view, 10> kBody{
    "    txtName.Text = \"b\"",
    "    txtName.Left = 120",
    "10      lngTotal = 1",
    "20      lngTotal = 2",
    "    MsgBox \"a text that is long enough to be broken\", vbOKOnly, \"and a title that is long\", 10, 20",
    "    Call Save(strName, _",
    "        strPath)",
    "'    Debug.Print 1",
    "'    Debug.Print 2",
    "End Sub",
};

// The lines to select, counted from the title.
struct Target {
  std::string_view routine;
  int first;
  int last;
};
constexpr Target kUsualTarget{"", 1, 2};
constexpr std::array<Target, 4> kTargets{{
    {"RemoveLineNumbersFromSelectedCode", 3, 4},
    {"LineSplitter", 5, 5},
    {"JoinLines", 6, 6},
    {"Write_Uncomment_Block", 8, 9},
}};

const Target& targetOf(const source::CodeWindowCommand& command) {
  for (const Target& target : kTargets)
    if (target.routine == command.routine) return target;
  return kUsualTarget;
}

// Writes the procedure behind the one at `line` and returns its title's line.
int insertProcedure(frame::CodeModule& module, int line, int number) {
  while (!source::At_Procedure_End(module, line)) ++line;
  std::string text = "Public Sub Measured_" + std::to_string(number) + "()";
  for (const std::string_view bodyLine : kBody) text.append(base::kCrLf).append(bodyLine);
  module.InsertLines(line + 1, text);
  return line + 1;
}

Measured measureCommand(Bench& bench, const source::CodeWindowCommand& command) {
  OpenProject opened = open(bench.bigModule.project);
  Suite suite(opened);
  const writers::Context context{suite.services};
  source::CodeWindowCommands commands;
  writers::bindCodeWindowCommands(commands, context);
  frame::CodeModule& module = *opened.modules.at(0);
  const auto pane = opened.host->openCode(module.Parent());
  const Target& target = targetOf(command);
  const int lines = module.CountOfLines();
  int procedures = 0;
  Measured measured;
  measured.value = medianOf(bench, [&] {
    double seconds = 0;
    for (int i = 0; i < kRounds; ++i) {
      const int title = insertProcedure(module, lines / 2, ++procedures);
      pane->SetSelection({title + target.first, 1, title + target.last, kBehindAnyLine});
      const int window = 3 * static_cast<int>(kBody.size());
      const std::string before = module.Lines(title, window);
      seconds +=
          secondsOf([&] { source::Get_Name_Of_Current_Procedure(suite.services, commands, command.key); });
      if (module.Lines(title, window) == before) throw std::runtime_error("nothing was written");
    }
    return seconds * 1000 / kRounds;
  });
  measured.note = "in the middle of a module of " + std::to_string(lines) + " lines";
  return measured;
}

template <std::size_t... places>
constexpr std::array<Figure, sizeof...(places)> figuresOf(std::index_sequence<places...>) {
  return {Figure{source::kCodeWindowCommands[places].name, "", "ms", kMostMilliseconds,
                 [](Bench& bench) { return measureCommand(bench, source::kCodeWindowCommands[places]); }}...};
}

constexpr auto kFigures = figuresOf(std::make_index_sequence<source::kCodeWindowCommands.size()>());

}  // namespace

std::span<const Figure> codeWindowFigures() { return kFigures; }

}  // namespace kolvane::benchmarks
