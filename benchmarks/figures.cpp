#include "figures.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <stdexcept>
#include <utility>

#include "adapters/sqlite/sqlite_tree_store.h"
#include "auto_coder.h"
#include "callers.h"
#include "code_window_commands.h"
#include "connecting.h"
#include "maintenance.h"
#include "measuring.h"
#include "writers/headers.h"

namespace kolvane::benchmarks {

namespace {

// Stands in comments throughout the project, about two thousand times in 450,000 lines.
constexpr std::string_view kTarget = "half a cent";

// Of the processor: what others do on the machine meanwhile does not count.
double processorSecondsOf(const std::function<void()>& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

std::vector<std::string> onComponents(std::vector<std::string> command, const Sample& sample) {
  command.insert(command.end(), sample.components.begin(), sample.components.end());
  return command;
}
std::vector<std::string> wordCount(const Sample& sample) { return onComponents({"wc", "-l"}, sample); }
std::vector<std::string> grep(const Sample& sample) {
  return onComponents({"grep", "-c", "-F", std::string(kTarget)}, sample);
}

// ---- whole projects

Measured measureOpening(Bench& bench) {
  OpenProject opened;
  Measured measured = compare(bench, wordCount(bench.project), [&] {
    opened = {};
    return secondsOf([&] { opened = open(bench.project.project); });
  });
  measured.note = std::to_string(opened.modules.size()) + " modules, " + std::to_string(opened.procedures) +
                  " procedures";
  return measured;
}

Measured measureMemory(Bench& bench) {
  Measured measured;
  measured.value = medianOf(bench, [&] {
    const Finished finished = run({bench.self, "memory", bench.project.project});
    if (finished.status != 0) throw std::runtime_error("the process that opens the project failed");
    return std::stod(finished.output) / static_cast<double>(bench.project.bytes);
  });
  measured.note = "largest growth of a process that opens the project";
  return measured;
}

Measured measureVerify(Bench& bench) {
  const std::vector<std::string> command{bench.kolvane, "verify", bench.project.folder};
  if (const Finished first = run(command); first.status != 0) {
    Measured measured;
    measured.notMeasured = "kolvane verify ended with " + std::to_string(first.status);
    return measured;
  }
  Measured measured = compare(bench, wordCount(bench.project), [&] { return run(command).seconds; });
  measured.note = "start-up included";
  return measured;
}

// ---- finding

int findAll(frame::CodeModule& module, bool matchCase) {
  int found = 0;
  frame::TextRange range{1, 1, -1, -1};
  while (module.Find(kTarget, range, false, matchCase)) {
    ++found;
    range = {range.endLine, range.endColumn, -1, -1};
  }
  return found;
}

Measured measureFind(Bench& bench, bool matchCase) {
  int found = 0;
  Measured measured = compare(bench, grep(bench.project), [&] {
    found = 0;
    return secondsOf([&] {
      for (const auto& module : bench.opened.modules) found += findAll(*module, matchCase);
    });
  });
  if (found == 0) throw std::runtime_error("nothing was found");
  measured.note = "\"" + std::string(kTarget) + "\", " + std::to_string(found) + " times";
  return measured;
}

Measured measureFindCase(Bench& bench) { return measureFind(bench, true); }
Measured measureFindNoCase(Bench& bench) { return measureFind(bench, false); }

// ---- questions about procedures

struct Question {
  frame::CodeModule* module;
  int line;
  std::string name;
  frame::ProcKind kind;
};

// Lines all over the project, in no order that a cache could like.
std::vector<Question> questionsFor(const Bench& bench) {
  std::vector<Question> questions;
  platform::Random random;
  while (questions.size() < 5000) {
    const auto place =
        static_cast<std::size_t>(random.next() * static_cast<float>(bench.opened.modules.size()));
    frame::CodeModule& module = *bench.opened.modules[place];
    Question question{
        &module, 1 + static_cast<int>(random.next() * static_cast<float>(module.CountOfLines())), {}, {}};
    question.name = module.ProcOfLine(question.line, question.kind);
    if (!question.name.empty()) questions.push_back(std::move(question));
  }
  return questions;
}

template <typename Ask>
Measured measureQuestion(Bench& bench, Ask ask) {
  const std::vector<Question> questions = questionsFor(bench);
  const int rounds = std::max(1, bench.sizes.questions / static_cast<int>(questions.size()));
  long sum = 0;
  Measured measured;
  measured.value = medianOf(bench, [&] {
    const double seconds = processorSecondsOf([&] {
      for (int round = 0; round < rounds; ++round)
        for (const Question& question : questions) sum += ask(question);
    });
    return seconds * 1e9 / (rounds * static_cast<double>(questions.size()));
  });
  if (sum == 0) throw std::runtime_error("no answers");
  measured.note = "all over the open project";
  return measured;
}

Measured measureProcOfLine(Bench& bench) {
  return measureQuestion(bench, [](const Question& question) {
    frame::ProcKind kind{};
    return static_cast<long>(question.module->ProcOfLine(question.line, kind).size());
  });
}
Measured measureProcStartLine(Bench& bench) {
  return measureQuestion(bench, [](const Question& question) {
    return question.module->ProcStartLine(question.name, question.kind);
  });
}
Measured measureProcBodyLine(Bench& bench) {
  return measureQuestion(bench, [](const Question& question) {
    return question.module->ProcBodyLine(question.name, question.kind);
  });
}
Measured measureProcCountLines(Bench& bench) {
  return measureQuestion(bench, [](const Question& question) {
    return question.module->ProcCountLines(question.name, question.kind);
  });
}

// ---- editing

Measured measureInsertions(Bench& bench) {
  Measured measured;
  int lines = 0;
  measured.value = medianOf(bench, [&] {
    const OpenProject opened = open(bench.bigModule.project);
    frame::CodeModule& module = *opened.modules.at(0);
    lines = module.CountOfLines();
    const int middle = lines / 2;
    std::size_t named = 0;
    const double seconds = secondsOf([&] {
      for (int i = 0; i < bench.sizes.insertions; ++i) {
        module.InsertLines(middle, "    Debug.Print \"line " + std::to_string(i) + "\"");
        named += module.ProcOfLine(middle).size();
      }
    });
    if (named == 0 || module.CountOfLines() != lines + bench.sizes.insertions)
      throw std::runtime_error("lines are missing");
    return seconds;
  });
  measured.note =
      std::to_string(bench.sizes.insertions) + " in a module of " + std::to_string(lines) + " lines";
  return measured;
}

Measured measureHeaders(Bench& bench) {
  Measured measured;
  int lines = 0;
  measured.value = medianOf(bench, [&] {
    OpenProject opened = open(bench.bigModule.project);
    Suite suite(opened);
    const writers::Context context{suite.services};
    frame::CodeModule& module = *opened.modules.at(0);
    lines = module.CountOfLines();
    int line = lines / 2;
    const double seconds = secondsOf([&] {
      for (int i = 0; i < bench.sizes.headers; ++i) {
        const std::string name = module.ProcOfLine(line);
        writers::Add_Procedure_Header(context, module, name, line);
        line += 37;
      }
    });
    if (module.CountOfLines() == lines) throw std::runtime_error("no header was written");
    return seconds * 1000 / bench.sizes.headers;
  });
  measured.note = "in the middle of a module of " + std::to_string(lines) + " lines";
  return measured;
}

// ---- settings

Measured measureSettings(Bench& bench) {
  constexpr int kKeys = 400;
  adapters::SqliteTreeStore store(bench.folder.path() + "/settings.db");
  frame::Settings settings(store, base::CodePage::get(base::CodePage::kDefault));
  std::vector<std::string> keys;
  store.update([&] {
    for (int i = 0; i < kKeys; ++i) {
      keys.push_back("CoNu" + std::to_string(i));
      settings.SaveSetting(frame::kOptions, keys.back(), std::to_string(i));
    }
  });
  std::size_t read = 0;
  Measured measured;
  measured.value = medianOf(bench, [&] {
    return secondsOf([&] {
      for (int i = 0; i < bench.sizes.settingsReads; ++i)
        read += settings.GetSetting(frame::kOptions, keys[static_cast<std::size_t>(i % kKeys)]).size();
    });
  });
  if (read == 0) throw std::runtime_error("nothing was read");
  measured.note =
      std::to_string(bench.sizes.settingsReads) + " reads of " + std::to_string(kKeys) + " options";
  return measured;
}

constexpr Figure kFigures[] = {
    {"open a project, tables of procedures included", "wc -l", "x", 8, measureOpening},
    {"memory a byte of source", "", "B", 2.5, measureMemory},
    {"kolvane verify", "wc -l", "x", 15, measureVerify},
    {"find all, matching case", "grep -c -F", "x", 3, measureFindCase},
    {"find all, any case", "grep -c -F", "x", 3, measureFindNoCase},
    {"ProcOfLine", "", "ns", 1000, measureProcOfLine},
    {"ProcStartLine", "", "ns", 1000, measureProcStartLine},
    {"ProcBodyLine", "", "ns", 1000, measureProcBodyLine},
    {"ProcCountLines", "", "ns", 1000, measureProcCountLines},
    {"InsertLines, each followed by ProcOfLine", "", "s", 2, measureInsertions},
    {"settings read", "", "s", 0.5, measureSettings},
    {"procedure header", "", "ms", 10, measureHeaders},
};

}  // namespace

std::span<const Figure> figures() {
  static const std::vector<Figure> all = [] {
    std::vector<Figure> figures(std::begin(kFigures), std::end(kFigures));
    for (const auto& more : {connectingFigures(), codeWindowFigures(), autoCoderFigures(),
                             maintenanceFigures(), callersFigures()})
      figures.insert(figures.end(), more.begin(), more.end());
    return figures;
  }();
  return all;
}

std::size_t growthOfOpening(const std::string& project) {
  const std::size_t before = residentBytes();
  const OpenProject opened = open(project);
  return peakResidentBytes() - before;
}

}  // namespace kolvane::benchmarks
