#include "maintenance.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <utility>

#include "frame/default_settings.h"
#include "maintenance/audits.h"
#include "maintenance/code_indenter.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/methods_of.h"
#include "maintenance/module_audits.h"
#include "maintenance/module_line_numbers.h"
#include "maintenance/procedure_sorter.h"
#include "measuring.h"
#include "workspace/host_files.h"

namespace kolvane::benchmarks {

namespace {

namespace fs = std::filesystem;

// A thousand modules of a thousand lines; the project of the other figures when sizes are small.
const Sample& sampleOf(Bench& bench) {
  static const Sample sample = [&bench] {
    generate::Options options = bench.sizes.project;
    if (options.lines >= generate::Options{}.lines) {
      options.lines = 1'000'000;
      options.files = 1'000;
    }
    return writeSample(bench.folder.path(), "maintenance", options);
  }();
  return sample;
}

// Copies of a sample, each to be written into once. They are all made before the first one is used and stay until the
// figure is measured: file systems are slow to make files where others have just gone.
class Copies {
 public:
  Copies(const Sample& sample, int count) : sample_(sample), count_(count) {
    for (int i = 0; i < count; ++i) fs::copy(sample.folder, folder(i), fs::copy_options::recursive);
    run({"sync"});  // nothing that is measured waits for the copying
  }
  Copies(const Copies&) = delete;
  Copies& operator=(const Copies&) = delete;
  ~Copies() {
    std::error_code ignored;
    for (int i = 0; i < count_; ++i) fs::remove_all(folder(i), ignored);
  }

  // The project of a copy that was not used yet.
  std::string next() { return (folder(used_++) / fs::path(sample_.project).filename()).string(); }

 private:
  fs::path folder(int number) const { return sample_.folder + "-work" + std::to_string(number); }

  const Sample& sample_;
  int count_;
  int used_ = 0;
};

// `cat` of each file to a new one.
double secondsOfCat(const Sample& sample) {
  constexpr const char* kScript = "d=$1; shift; i=0; for f; do i=$((i+1)); cat \"$f\" > \"$d/$i\"; done";
  const fs::path copies = sample.folder + "-cat";
  fs::remove_all(copies);
  fs::create_directories(copies);
  std::vector<std::string> command{"sh", "-c", kScript, "sh", copies.string()};
  command.insert(command.end(), sample.components.begin(), sample.components.end());
  const Finished finished = run(command);
  if (finished.status != 0) throw std::runtime_error("cat ended with " + std::to_string(finished.status));
  return finished.seconds;
}

using Operation = void (*)(const frame::Services&, frame::VBProject&);

struct Treated {
  double seconds = 0;
  std::size_t written = 0;  // files
};

Treated treat(const std::string& project, Operation operation) {
  Treated treated;
  OpenProject opened;
  std::optional<Suite> suite;
  treated.seconds = secondsOf([&] {
    opened = openUnread(project);
    suite.emplace(opened);
    workspace::HostFiles files(opened.host->paths());
    const frame::Services services{*opened.host,
                                   suite->settings,
                                   suite->desk,
                                   suite->clock,
                                   suite->user,
                                   suite->random,
                                   suite->clipboard,
                                   suite->keystrokes,
                                   files,
                                   suite->services.codePage,
                                   {}};
    operation(services, *opened.project);
    const workspace::SaveReport report = opened.host->saveProject(opened.project);
    if (!report.problems.empty()) throw std::runtime_error(report.problems.front().text());
    treated.written = report.written.size();
  });
  if (treated.written == 0) throw std::runtime_error("no file was written");
  return treated;
}

Measured measureAgainstCat(Bench& bench, Operation operation) {
  const Sample& sample = sampleOf(bench);
  std::vector<double> ownTimes, catTimes;
  std::size_t written = 0;
  Copies copies(sample, bench.runs + 1);
  for (int i = 0; i <= bench.runs; ++i) {
    const double cat = secondsOfCat(sample);
    const Treated treated = treat(copies.next(), operation);
    written = treated.written;
    if (i == 0) continue;
    catTimes.push_back(cat);
    ownTimes.push_back(treated.seconds);
  }
  Measured measured;
  measured.own = median(std::move(ownTimes));
  measured.base = median(std::move(catTimes));
  measured.value = *measured.own / *measured.base;
  measured.note = std::to_string(sample.lines) + " lines, " + std::to_string(written) + " of " +
                  std::to_string(sample.components.size()) + " files written";
  return measured;
}

void indent(const frame::Services& services, frame::VBProject& project) {
  maintenance::IndentState state;
  std::string message;
  maintenance::CodeIndentProjectLevel(services, state, project, message);
}

Measured measureIndentMemory(Bench& bench) {
  const Sample& sample = sampleOf(bench);
  Copies copies(sample, bench.runs + 1);
  Measured measured;
  measured.value = medianOf(bench, [&] {
    const Finished finished = run({bench.self, "memory", "--indent", copies.next()});
    if (finished.status != 0) throw std::runtime_error("the process that indents the project failed");
    return std::stod(finished.output) / static_cast<double>(sample.bytes);
  });
  measured.note = "largest growth of a process that opens, indents and saves the project";
  return measured;
}

void formatComments(const frame::Services& services, frame::VBProject& project) {
  for (const auto& component : project.VBComponents()->items()) {
    const auto module = component->CodeModule();
    maintenance::FormatComments(services, *module, module->CountOfDeclarationLines() + 1,
                                module->CountOfLines());
  }
}

void invertNumbers(const frame::Services& services, frame::VBProject& project) {
  for (const auto& component : project.VBComponents()->items())
    maintenance::Invert_LineNumbers_Mod(services, *component);
}

void sort(const frame::Services& services, frame::VBProject& project) {
  maintenance::sortProject(services, project);
}

Measured measureIndent(Bench& bench) { return measureAgainstCat(bench, indent); }
Measured measureComments(Bench& bench) { return measureAgainstCat(bench, formatComments); }
Measured measureNumbers(Bench& bench) { return measureAgainstCat(bench, invertNumbers); }
Measured measureSort(Bench& bench) { return measureAgainstCat(bench, sort); }

int audit(const frame::Services& services, frame::VBProject& project) {
  int findings = 0;
  const std::string name = project.Name();
  for (const auto& component : project.VBComponents()->items()) {
    const auto module = component->CodeModule();
    const auto prefixes = maintenance::ReportOnVariablePrefixes_CodeModule(services, *module, name);
    findings += prefixes ? prefixes->Count() : 0;
    findings += maintenance::ReportOnUnusedVariables_CodeModule(services, *module, name).Count();
    if (maintenance::reportsUnusedProcedures(component->Type()))
      findings +=
          maintenance::ReportOnUnusedProcedure_CodeModule(services, project, *component, *module).Count();
  }
  return findings;
}

// As the command line runs them.
int auditModules(const frame::Services& services, frame::VBProject& project) {
  using enum maintenance::Operation;
  maintenance::ModuleAudits audits(services);
  std::size_t findings = 0;
  for (const auto& component : project.VBComponents()->items())
    for (const auto operation : {kVariablePrefixes, kUnusedVariables, kUnusedProcedures})
      findings += audits.find(operation, *component).size();
  return static_cast<int>(findings);
}

// Against one `cat` of all files that writes nothing.
Measured measureAuditsBy(Bench& bench, int (*audit)(const frame::Services&, frame::VBProject&)) {
  const Sample& sample = sampleOf(bench);
  std::vector<std::string> cat{"sh", "-c", "cat \"$@\" > /dev/null", "sh"};
  cat.insert(cat.end(), sample.components.begin(), sample.components.end());
  int findings = 0;
  Measured measured = compare(bench, cat, [&] {
    OpenProject opened;
    std::optional<Suite> suite;
    return secondsOf([&] {
      opened = openUnread(sample.project);
      suite.emplace(opened);
      findings = audit(suite->services, *opened.project);
    });
  });
  measured.note =
      std::to_string(sample.lines) + " lines, " + std::to_string(findings) + " findings, opening included";
  return measured;
}

Measured measureAudits(Bench& bench) { return measureAuditsBy(bench, audit); }
Measured measureModuleAudits(Bench& bench) { return measureAuditsBy(bench, auditModules); }

// Procedures in the reverse of their order.
Measured measureBigSort(Bench& bench) {
  constexpr int kProcedures = 5'000;
  std::string code = "Attribute VB_Name = \"Big\"\r\n";
  for (int i = kProcedures; i > 0; --i)
    code.append("' number ")
        .append(std::to_string(i))
        .append("\r\nPublic Sub Proc")
        .append(std::to_string(10'000 + i))
        .append("()\r\n    Debug.Print 1\r\nEnd Sub\r\n\r\n");
  const fs::path folder = fs::path(bench.folder.path()) / "big";
  fs::create_directories(folder);
  std::ofstream(folder / "Big.vbp", std::ios::binary) << "Type=Exe\r\nModule=Big; Big.bas\r\n";
  Measured measured;
  measured.value = medianOf(bench, [&] {
    std::ofstream(folder / "Big.bas", std::ios::binary) << code;
    return treat((folder / "Big.vbp").string(), sort).seconds;
  });
  measured.note = std::to_string(kProcedures) + " procedures in one module, opening and saving included";
  return measured;
}

// Vim's own Visual Basic indenter in batch mode, once, one file a call as for cat.
Measured measureVim(Bench& bench) {
  const Sample& sample = sampleOf(bench);
  Copies copies(sample, bench.runs + 2);
  const fs::path folder = fs::path(copies.next()).parent_path();
  std::vector<std::string> command{"sh", "-c",
                                   "for f; do vim -u NONE -N -es -c 'filetype indent on' -c 'set ft=vb sw=4 "
                                   "et' -c 'normal gg=G' -c wq \"$f\" || "
                                   "exit; done",
                                   "sh"};
  for (const std::string& component : sample.components)
    command.push_back((folder / fs::path(component).lexically_relative(sample.folder)).string());
  const Finished vim = run(command);
  if (vim.status != 0) throw std::runtime_error("vim ended with " + std::to_string(vim.status));
  Measured measured;
  measured.base = vim.seconds;
  measured.own = medianOf(bench, [&] { return treat(copies.next(), indent).seconds; });
  measured.value = *measured.own / *measured.base;
  measured.note = std::to_string(sample.lines) + " lines; vim runs once";
  return measured;
}

bool hasVim() {
  try {
    return run({"vim", "--version"}).status == 0;
  } catch (const std::runtime_error&) {
    return false;
  }
}

constexpr Figure kFigures[] = {
    {"indent a project, opening and saving included", "cat", "x", 6, measureIndent},
    {"indent it, memory a byte of source", "", "B", 3, measureIndentMemory},
    {"format its comments", "cat", "x", 8, measureComments},
    {"number its lines", "cat", "x", 8, measureNumbers},
    {"sort its procedures", "cat", "x", 8, measureSort},
    {"the three audits of a project", "cat >/dev/null", "x", 20, measureAudits},
    {"the three audits as the command line reads code", "cat >/dev/null", "x", 20, measureModuleAudits},
    {"sort 5,000 procedures", "", "s", 1, measureBigSort},
    {"indent a project, opening and saving included", "vim gg=G", "x", 0.01, measureVim},
};

}  // namespace

std::span<const Figure> maintenanceFigures() {
  static const bool kVim = hasVim();
  if (!kVim) std::fputs("vim is not installed: indenting is not compared with it\n", stderr);
  return std::span(kFigures).first(std::size(kFigures) - (kVim ? 0 : 1));
}

std::size_t growthOfIndenting(const std::string& project) {
  const std::size_t before = residentBytes();
  treat(project, indent);
  return peakResidentBytes() - before;
}

}  // namespace kolvane::benchmarks
