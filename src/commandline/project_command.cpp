#include "commandline/project_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "base/error.h"
#include "base/text.h"
#include "commandline/progress.h"
#include "commandline/unified_diff.h"
#include "maintenance/code_indenter.h"
#include "source/read_only_notice.h"

namespace kolvane::commandline {
namespace {

using workspace::FileChange;

struct FileSummary {
  std::string path;
  int added = 0;
  int removed = 0;
  std::string diff;
  bool written = false;
};

std::string_view before(const FileChange& change) {
  return change.oldBytes ? std::string_view(*change.oldBytes) : std::string_view();
}

// For people the diff is UTF-8; a pipe gets the bytes of the files, which a patch program can apply.
DiffView diffView(Session& session, const ProjectOptions& options) {
  const bool forPeople = options.json || session.terminal().outIsTerminal || session.style().colored();
  return {options.json ? Style(false) : session.style(), forPeople ? &session.codePage() : nullptr};
}

FileSummary summarize(Session& session, const ProjectOptions& options, const FileChange& change) {
  FileSummary summary{change.path, 0, 0, {}};
  for (const auto& hunk : session.environment().diff.compare(before(change), change.newBytes, 0))
    for (const auto& line : hunk.lines)
      ++(line.kind == platform::DiffLine::Kind::kAdded ? summary.added : summary.removed);
  if (options.diff)
    summary.diff = unifiedDiff(session.environment().diff, shownPath(session, change.path), before(change),
                               change.newBytes, diffView(session, options));
  return summary;
}

void printJson(Session& session, const ProjectOptions& options, const std::vector<FileSummary>& files,
               bool written) {
  nlohmann::json list = nlohmann::json::array();
  for (const FileSummary& file : files) {
    nlohmann::json entry{
        {"path", file.path}, {"added", file.added}, {"removed", file.removed}, {"written", file.written}};
    if (options.diff) entry["diff"] = file.diff;
    list.push_back(std::move(entry));
  }
  session.terminal().out << nlohmann::json{{"files", std::move(list)}, {"written", written}}.dump(
                                2, ' ', false, nlohmann::json::error_handler_t::replace)
                         << "\n";
}

void printLine(Session& session, const FileSummary& file) {
  session.terminal().out << shownPath(session, file.path) << "  "
                         << session.style()(Paint::kAdded, "+" + std::to_string(file.added)) << " "
                         << session.style()(Paint::kRemoved, "-" + std::to_string(file.removed)) << "\n";
}

// Where files were to be written, those that were: what could not be is told by its own line.
void printText(Session& session, const ProjectOptions& options, const std::vector<FileSummary>& files,
               bool writes) {
  for (const FileSummary& file : files) {
    if (options.diff)
      session.terminal().out << file.diff;
    else if (!writes || file.written)
      printLine(session, file);
  }
}

std::string outcome(const std::vector<FileSummary>& files, bool writes) {
  const auto count = [](std::size_t number) { return counted(static_cast<long>(number), "file", "files"); };
  if (files.empty()) return "nothing to change";
  if (!writes) return count(files.size()) + " would change, nothing was written";
  const auto written =
      static_cast<std::size_t>(std::ranges::count_if(files, [](const auto& file) { return file.written; }));
  if (written == files.size()) return count(written) + " written";
  return std::to_string(written) + " of " + count(files.size()) + " written, the others are as they were";
}

// Saves, marks what was written, and tells what was not.
bool write(Session& session, const ProjectOptions& options, std::vector<FileSummary>& files) {
  workspace::SaveOptions saving;
  saving.breakLinks = options.breakLinks;
  saving.howToBreakLinks = "--break-links writes it all the same";
  const auto report = session.workspace().saveAll(saving);
  const std::set<std::string> written(report.written.begin(), report.written.end());
  for (FileSummary& file : files) file.written = written.contains(file.path);
  for (const auto& problem : report.problems) session.printProblem(problem.text());
  return report.problems.empty();
}

bool matches(const ComponentPointer& component, const std::string& name) {
  if (base::equalNoCase(component->Name(), name)) return true;
  const std::string full = component->VBProject()->Name() + "/" + component->Name();
  return base::equalNoCase(full, name);
}

std::vector<ComponentPointer> allModules(Session& session) {
  std::vector<ComponentPointer> all;
  for (const auto& project : session.workspace().VBProjects()->items())
    for (const auto& component : project->VBComponents()->items())
      if (component->CodeModule()) all.push_back(component);
  return all;
}

// A line for each project that cannot be changed as a whole; false when that leaves none.
bool tellUnwritable(Session& session) {
  bool any = false;
  for (const auto& project : session.workspace().projects()) {
    const int page = project->unwritablePage();
    any = any || page == 0;
    if (page != 0) session.printProblem(project->place() + ": " + workspace::unwritableReason(page));
  }
  return any;
}

[[noreturn]] void refuseModule(Session& session, const std::string& name) {
  std::string known;
  for (const auto& component : allModules(session))
    known += (known.empty() ? "" : ", ") + session.utf8(component->Name());
  throw WrongUse{"there is no module \"" + name + "\"; the modules are: " + (known.empty() ? "none" : known)};
}

}  // namespace

std::string shownPath(Session& session, const std::string& path) {
  std::string folder = session.environment().files.absolute(".");
  if (!folder.ends_with('/')) folder += '/';
  return path.starts_with(folder) ? path.substr(folder.size()) : path;
}

std::string counted(long count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

void addOutputOptions(CLI::App& command, ProjectOptions& options) {
  command.add_flag("--diff", options.diff, "Show what would change as a unified diff; write nothing");
  command.add_flag("--check", options.check, "Write nothing; exit status 1 if something would change");
  command.add_flag("--json", options.json, "Print the result as JSON");
  command.add_flag(
      "--break-links", options.breakLinks,
      "Write files that have several names (hard links), too; the other names keep what was there");
}

void addProjectOptions(CLI::App& command, ProjectOptions& options) {
  command.add_option("PROJECT", options.paths, "Projects (.vbp), groups (.vbg) or single modules")
      ->required();
  command.add_option("--modules", options.modules, "Only these modules, parted by commas")->delimiter(',');
  addOutputOptions(command, options);
}

std::vector<ComponentPointer> chosenModules(Session& session, const std::vector<std::string>& names) {
  if (names.empty()) return allModules(session);
  std::vector<ComponentPointer> chosen;
  for (const std::string& name : names) {
    const std::string wanted = session.codePage().fromUtf8(name);
    const std::size_t found = chosen.size();
    for (const auto& component : allModules(session))
      if (matches(component, wanted)) chosen.push_back(component);
    if (chosen.size() == found) refuseModule(session, name);
  }
  return chosen;
}

ComponentPointer findModule(Session& session, const std::string& name) {
  return chosenModules(session, {name}).front();
}

bool requireEditable(Session& session, const ComponentPointer& component) {
  const auto own = std::dynamic_pointer_cast<workspace::Component>(component);
  if (!own || !own->isReadOnly()) return true;
  if (own->project()->unwritablePage() != 0) return false;  // told of the whole project
  session.printProblem(session.utf8(source::readOnlyNotice(component->Name())));
  return false;
}

Exit finishChanges(Session& session, const ProjectOptions& options, const std::string& summary) {
  std::vector<FileSummary> files;
  session.workspace().forEachChangedFile(
      [&](const FileChange& change) { files.push_back(summarize(session, options, change)); });
  const bool writes = !options.diff && !options.check && !session.environment().interrupted();
  const bool written = writes && write(session, options, files);
  if (options.json)
    printJson(session, options, files, written);
  else
    printText(session, options, files, writes);
  session.terminal().out.flush();
  if (!options.json && !(summary.empty() && files.empty())) {
    std::ostream& out = options.diff ? session.terminal().err : session.terminal().out;
    out << (summary.empty() ? "" : summary + "; ") << outcome(files, writes) << "\n";
  }
  if (session.environment().interrupted()) session.printProblem("interrupted, nothing was written");
  if (session.hadProblems()) return Exit::kFailed;
  return options.check && !files.empty() ? Exit::kFindings : Exit::kDone;
}

Exit runOnProjects(Environment& environment, const GlobalOptions& global, const ProjectOptions& options,
                   const std::function<std::string(Session&)>& work) {
  Session session(environment, global);
  for (const std::string& path : options.paths) session.open(path);
  if (!tellUnwritable(session)) return Exit::kFailed;
  const std::string summary = work(session);
  return finishChanges(session, options, summary);
}

long treatModules(Session& session, const ProjectOptions& options, const TreatModule& treat) {
  long treated = 0;
  Progress progress(session.terminal());
  for (const auto& component : chosenModules(session, options.modules)) {
    if (session.environment().interrupted()) break;
    progress.step(session.utf8(component->Name()));
    if (!requireEditable(session, component)) continue;
    try {
      treated += treat(session, component) ? 1 : 0;
    } catch (const maintenance::NestedTooDeep& error) {
      leaveAsItWas(session, component, error.reason(), error.line());
    } catch (const base::Error& error) {
      leaveAsItWas(session, component, error.description());
    }
  }
  return treated;
}

void leaveAsItWas(Session& session, const ComponentPointer& component, const std::string& reason,
                  int codeLine) {
  component->Reload();
  const auto own = std::dynamic_pointer_cast<workspace::Component>(component);
  workspace::Problem problem{component->Name(), 0, reason};
  if (codeLine > 0 && own) problem = {own->file().path(), own->fileLine(codeLine), reason};
  session.printProblem(session.utf8(problem.text()) + "; the module is left as it was");
}

void tellFailures(Session& session, const ComponentPointer& component,
                  const std::vector<writers::ProcedureFailure>& failures) {
  for (const writers::ProcedureFailure& failure : failures)
    session.printProblem(session.utf8(component->Name() + "." + failure.name + ": " + failure.reason) +
                         "; the procedure is left as it was");
}

Exit runOnModules(Environment& environment, const GlobalOptions& global, const ProjectOptions& options,
                  const TreatModule& treat, const std::function<std::string(long treated)>& summary) {
  return runOnProjects(environment, global, options,
                       [&](Session& session) { return summary(treatModules(session, options, treat)); });
}

}  // namespace kolvane::commandline
