#include "maintenance.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "frame/default_settings.h"
#include "maintenance/audits.h"
#include "maintenance/code_indenter.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/methods_of.h"
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

std::string freshCopy(const Sample& sample) {
  const fs::path copy = sample.folder + "-work";
  fs::remove_all(copy);
  fs::copy(sample.folder, copy, fs::copy_options::recursive);
  return (copy / fs::path(sample.project).filename()).string();
}

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
  treated.seconds = secondsOf([&] {
    OpenProject opened = open(project);
    Suite suite(opened);
    workspace::HostFiles files(opened.host->paths());
    const frame::Services services{*opened.host,
                                   suite.settings,
                                   suite.desk,
                                   suite.clock,
                                   suite.user,
                                   suite.random,
                                   suite.clipboard,
                                   suite.keystrokes,
                                   files,
                                   suite.services.codePage,
                                   {},
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
  for (int i = 0; i <= bench.runs; ++i) {
    const double cat = secondsOfCat(sample);
    const Treated treated = treat(freshCopy(sample), operation);
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
  Measured measured;
  measured.value = medianOf(bench, [&] {
    const Finished finished = run({bench.self, "memory", "--indent", freshCopy(sample)});
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

// Against one `cat` of all files that writes nothing.
Measured measureAudits(Bench& bench) {
  const Sample& sample = sampleOf(bench);
  std::vector<std::string> cat{"sh", "-c", "cat \"$@\" > /dev/null", "sh"};
  cat.insert(cat.end(), sample.components.begin(), sample.components.end());
  int findings = 0;
  Measured measured = compare(bench, cat, [&] {
    return secondsOf([&] {
      OpenProject opened = open(sample.project);
      Suite suite(opened);
      frame::ApplyDefaultSettings(suite.settings, suite.user);
      findings = audit(suite.services, *opened.project);
    });
  });
  measured.note =
      std::to_string(sample.lines) + " lines, " + std::to_string(findings) + " findings, opening included";
  return measured;
}

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

// vim's own Visual Basic indenter, in batch, on one big module.
Measured measureVim(Bench& bench) {
  const std::string path = freshCopy(bench.bigModule);
  std::string module;
  for (const auto& entry : fs::directory_iterator(fs::path(path).parent_path()))
    if (entry.path().extension() == ".bas") module = entry.path().string();
  Measured measured;
  const Finished vim = run({"vim", "-u", "NONE", "-N", "-es", "-c", "filetype indent on", "-c",
                            "set ft=vb sw=4 et", "-c", "normal gg=G", "-c", "wq", module});
  if (vim.status != 0) throw std::runtime_error("vim ended with " + std::to_string(vim.status));
  measured.base = vim.seconds;
  measured.own = medianOf(bench, [&] { return treat(freshCopy(bench.bigModule), indent).seconds; });
  measured.value = *measured.own / *measured.base;
  measured.note = std::to_string(bench.bigModule.lines) + " lines in one module; vim runs once";
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
    {"sort 5,000 procedures", "", "s", 1, measureBigSort},
    {"indent a module", "vim gg=G", "x", 0.005, measureVim},
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
