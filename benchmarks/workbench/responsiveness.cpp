#include "workbench/responsiveness.h"

#include <QAction>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <cctype>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "frame/catalogue.h"
#include "measuring.h"
#include "workbench/watched_window.h"

namespace kolvane::benchmarks {

namespace {

constexpr int kKeys = 120;

// ---- opening a project

std::size_t rowsOf(QTreeWidget& tree) {
  std::size_t rows = 0;
  for (QTreeWidgetItemIterator each(&tree, QTreeWidgetItemIterator::NoChildren); *each != nullptr; ++each)
    ++rows;
  return rows;
}

struct Opening {
  double seconds;
  double longestSeconds;  // without a turn of the event loop
};

// As from the File menu: the suite is connected.
Opening openProject(Bench& bench) {
  WatchedWindow watched;
  workbench::MainWindow& window = watched.window();
  window.start();
  watched.settle();
  const Paintings paintings(*window.projectTree().viewport());
  std::optional<int> before;  // paintings until the rows were there
  Opening opening{};
  opening.seconds =
      watched.secondsUntil([&] { window.files().open(QString::fromStdString(bench.project.project)); },
                           [&] {
                             if (!before && rowsOf(window.projectTree()) == bench.project.components.size())
                               before = paintings.count();
                             return before && paintings.count() > *before;
                           });
  opening.longestSeconds = watched.loop().longestSeconds();
  return opening;
}

std::string componentsOf(const Bench& bench) {
  return std::to_string(bench.project.components.size()) + " components in the tree";
}

Measured measureOpening(Bench& bench) {
  Measured measured;
  measured.value = medianOf(bench, [&] { return openProject(bench).seconds; });
  measured.note = componentsOf(bench);
  return measured;
}

Measured measureOpeningByTool(Bench& bench) {
  std::vector<std::string> tool{"wc", "-l"};
  tool.insert(tool.end(), bench.project.components.begin(), bench.project.components.end());
  Measured measured = compare(bench, tool, [&] { return openProject(bench).seconds; });
  measured.note = componentsOf(bench);
  return measured;
}

Measured measureStandstill(Bench& bench) {
  Measured measured;
  measured.value = medianOf(bench, [&] { return openProject(bench).longestSeconds * 1000; });
  measured.note = "longest stretch without a turn of the event loop";
  return measured;
}

// ---- code windows

std::string inModuleOf(int lines) { return "in a module of " + std::to_string(lines) + " lines"; }

// What the editor shows must be what the module holds: an answer that is wrong is none.
void expectInStep(workbench::CodeEditor& editor) {
  const auto module = editor.component()->CodeModule();
  std::string held = module->Lines(1, module->CountOfLines());
  std::erase(held, '\r');
  editor.settle();
  if (editor.text().toStdString() != base::CodePage::get(base::CodePage::kDefault).toUtf8(held))
    throw std::runtime_error("the editor does not show the module");
}

Measured measureCodeWindow(Bench& bench) {
  Measured measured;
  int lines = 0;
  measured.value = medianOf(bench, [&] {
    WatchedWindow watched;
    watched.open(bench.bigModule.project);
    workbench::MainWindow& window = watched.window();
    QTreeWidgetItemIterator component(&window.projectTree(), QTreeWidgetItemIterator::NoChildren);
    window.projectTree().setCurrentItem(*component);
    watched.settle();
    std::optional<Paintings> paintings;
    const double seconds = watched.secondsUntil(
        [&] {
          window.projectTree().onOpen();
          workbench::CodeWindow* code = window.documents().currentCode();
          if (code == nullptr) throw std::runtime_error("no code window was opened");
          paintings.emplace(*code->editor().viewport());
        },
        [&] { return paintings->count() > 0; });
    paintings.reset();
    workbench::CodeEditor& editor = window.documents().currentCode()->editor();
    lines = editor.lines();
    expectInStep(editor);
    return seconds * 1000;
  });
  measured.note = inModuleOf(lines);
  return measured;
}

// Milliseconds of each key, typed as a user writes lines of code.
std::vector<double> typeKeys(Bench& bench, int& lines) {
  constexpr std::string_view kLine = "if total = 0 then total = count + 1\r";
  WatchedWindow watched;
  watched.window().start();
  watched.open(bench.bigModule.project);
  workbench::CodeEditor& editor = watched.openMiddle();
  lines = editor.lines();
  watched.secondsOfKey(editor, Qt::Key_Return, "\r");
  std::vector<double> times;
  for (std::size_t i = 0; i < kKeys; ++i) {
    const char each = kLine[i % kLine.size()];
    const int key = each == '\r' ? static_cast<int>(Qt::Key_Return) : std::toupper(each);
    times.push_back(watched.secondsOfKey(editor, key, QString(QLatin1Char(each))) * 1000);
  }
  if (editor.lines() != lines + 1 + kKeys / static_cast<int>(kLine.size()))
    throw std::runtime_error("keys were not typed");
  expectInStep(editor);
  return times;
}

Measured measureKeys(Bench& bench, double (*pick)(std::vector<double>)) {
  Measured measured;
  int lines = 0;
  measured.value = medianOf(bench, [&] { return pick(typeKeys(bench, lines)); });
  measured.note =
      std::to_string(kKeys) + " keys in the middle of a module of " + std::to_string(lines) + " lines";
  return measured;
}
Measured measureMedianKey(Bench& bench) { return measureKeys(bench, median); }
Measured measureSlowestKey(Bench& bench) {
  return measureKeys(bench, [](std::vector<double> times) { return std::ranges::max(times); });
}

// ---- a command of the suite

QAction& actionOf(workbench::MainWindow& window, const QString& caption) {
  for (QAction* each : window.actions())
    if (each->text().remove('&') == caption) return *each;
  throw std::runtime_error("no command " + caption.toStdString());
}

struct Commanded {
  double milliseconds;
  double undoMilliseconds;
};

Commanded runCommand(Bench& bench, std::string_view name, int& lines) {
  const frame::CatalogueRow* row = frame::findCatalogueRowByName(name);
  if (row == nullptr) throw std::runtime_error("no such command");
  WatchedWindow watched;
  workbench::MainWindow& window = watched.window();
  window.start();
  watched.open(bench.bigModule.project);
  workbench::CodeEditor& editor = watched.openMiddle();
  lines = editor.lines();
  const QString before = editor.text();
  const Paintings paintings(*editor.viewport());
  int painted = paintings.count();
  const auto shown = [&] { return paintings.count() > painted; };
  Commanded commanded{};
  commanded.milliseconds =
      1000 * watched.secondsUntil([&] { window.run([&] { watched.session().suite().click(*row); }); }, shown);
  if (editor.text() == before) throw std::runtime_error("nothing was written");
  expectInStep(editor);
  watched.settle();
  painted = paintings.count();
  commanded.undoMilliseconds =
      1000 * watched.secondsUntil([&] { actionOf(window, "Undo").trigger(); }, shown);
  if (editor.text() != before) throw std::runtime_error("the command was not undone");
  expectInStep(editor);
  return commanded;
}

Measured measureCommand(Bench& bench, std::string_view name, double Commanded::*which) {
  Measured measured;
  int lines = 0;
  measured.value = medianOf(bench, [&] { return runCommand(bench, name, lines).*which; });
  measured.note = "in the middle of a module of " + std::to_string(lines) + " lines";
  return measured;
}
template <double Commanded::*which>
Measured measureComment(Bench& bench) {
  return measureCommand(bench, "3 Line Comment Block", which);
}
template <double Commanded::*which>
Measured measureHeader(Bench& bench) {
  return measureCommand(bench, "Procedure Header", which);
}

constexpr Figure kFigures[] = {
    {"open a project until its tree is shown", "", "s", 1, measureOpening},
    {"the same", "wc -l", "x", 4, measureOpeningByTool},
    {"standstill while it opens", "", "ms", 100, measureStandstill},
    {"open a code window", "", "ms", 100, measureCodeWindow},
    {"a key typed, median", "", "ms", 30, measureMedianKey},
    {"a key typed, the slowest", "", "ms", 30, measureSlowestKey},
    {"3-line comment until shown", "", "ms", 100, measureComment<&Commanded::milliseconds>},
    {"undo of the 3-line comment", "", "ms", 100, measureComment<&Commanded::undoMilliseconds>},
    {"procedure header until shown", "", "ms", 100, measureHeader<&Commanded::milliseconds>},
    {"undo of the procedure header", "", "ms", 100, measureHeader<&Commanded::undoMilliseconds>},
};

}  // namespace

std::span<const Figure> responsivenessFigures() { return kFigures; }

}  // namespace kolvane::benchmarks
