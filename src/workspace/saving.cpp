#include "workspace/saving.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "workspace/workspace.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

// Results of AfterWriteFile.
constexpr int kFileWritten = 0;
constexpr int kFileCancelled = 1;
constexpr int kFileFailed = 2;

// The companions of a component on their way to another place. Undone as a whole unless kept.
class CompanionMove {
 public:
  CompanionMove(Component& component, Paths& paths, const std::string& target, const SaveOptions& options)
      : component_(component), files_(paths.files()) {
    try {
      for (const Component::Companion& companion : component.companions())
        carry(companion, paths, target, options);
    } catch (...) {
      undo();
      throw;
    }
  }
  CompanionMove(const CompanionMove&) = delete;
  CompanionMove& operator=(const CompanionMove&) = delete;
  ~CompanionMove() {
    if (!kept_) undo();
  }
  void keep() { kept_ = true; }

 private:
  void carry(const Component::Companion& companion, Paths& paths, const std::string& target,
             const SaveOptions& options) {
    const std::string folder(folderOf(target));
    std::string name(fileName(companion.name));
    // One that bears the component's own file name goes on doing so.
    if (base::equalNoCase(baseName(companion.path), baseName(component_.file().path())))
      name = paths.nameToHost(baseName(target)) + name.substr(baseName(name).size());
    copy(companion.path, folder + "/" + paths.nameToSystem(name), options);
    if (name == companion.name) return;
    component_.renameCompanion(companion.name, name);
    renamed_.emplace_back(companion.name, name);
  }

  void copy(const std::string& from, const std::string& to, const SaveOptions& options) {
    if (from == to) return;
    const platform::ReadFile source = files_.read(from);
    const bool exists = files_.stamp(to).has_value();
    if (exists && files_.read(to).content->bytes() == source.content->bytes()) return;
    DiskFile(to).requireWritable(files_, options);
    files_.replace(to, source.content->bytes());
    if (!exists) made_.push_back(to);
  }

  void undo() noexcept {
    try {
      for (const auto& [from, to] : renamed_) component_.renameCompanion(to, from);
      for (const std::string& path : made_) files_.remove(path);
    } catch (const base::Error&) {
      // A copy that cannot be taken away again does no harm.
    }
  }

  Component& component_;
  platform::Files& files_;
  std::vector<std::pair<std::string, std::string>> renamed_;
  std::vector<std::string> made_;
  bool kept_ = false;
};

void note(SaveReport& report, SaveResult result, const std::string& path) {
  if (result == SaveResult::kWritten) report.written.push_back(path);
  if (result == SaveResult::kCancelled) report.cancelled.push_back(path);
}

std::string shownName(const Component& component) {
  return component.file().hasPath() ? component.file().path()
                                    : component.project()->workspace()->paths().shown(component.name());
}

bool needsSaving(const Component& component) {
  return component.hasSource() && (component.isDirty() || !component.file().hasPath());
}

}  // namespace

template <typename Write>
SaveResult Saving::announced(Project& project, const std::string& systemPath, Write&& write) {
  auto& files = workspace_.events().files;
  const std::shared_ptr<frame::VBProject> self = project.shared_from_this();
  const std::string shown = workspace_.paths().toHost(systemPath);
  const auto after = [&](int result) {
    files.raise(&frame::FileControlHandlers::AfterWriteFile, &project, nullptr, self, shown, result);
  };
  bool cancel = false;
  files.raise(&frame::FileControlHandlers::RequestWriteFile, &project, nullptr, self, shown, cancel);
  if (cancel) {
    after(kFileCancelled);
    return SaveResult::kCancelled;
  }
  try {
    write();
  } catch (const base::Error&) {
    after(kFileFailed);
    throw;
  }
  after(kFileWritten);
  return SaveResult::kWritten;
}

// ---- components

SaveResult Saving::component(Component& component) {
  if (!component.hasSource()) return SaveResult::kUnchanged;
  if (!component.file().hasPath())
    return componentAs(component, defaultPath(component, component.project()->folder()));
  if (!component.isDirty()) return SaveResult::kUnchanged;
  if (component.bytes() == component.file().bytes()) {
    component.markSaved();
    return SaveResult::kUnchanged;
  }
  return writeComponent(component, component.file());
}

SaveResult Saving::componentAs(Component& component, const std::string& systemPath) {
  if (!component.hasSource()) throw base::Error(errors::kNotAvailable);
  if (systemPath == component.file().path()) return this->component(component);
  std::optional<CompanionMove> companions;
  if (component.file().hasPath()) companions.emplace(component, workspace_.paths(), systemPath, options_);
  const SaveResult result = writeComponent(component, DiskFile(systemPath));
  if (result == SaveResult::kWritten) {
    if (companions) companions->keep();
    component.project()->updateLine(component);
  }
  return result;
}

SaveResult Saving::writeComponent(Component& component, DiskFile file) {
  const std::string path = file.path();
  if (path == component.file().path() && component.isReadOnly())
    throw base::Error(errors::kPermissionDenied, path + ": is read-only");
  const SaveResult result =
      announced(*component.project(), path, [&] { component.writeTo(std::move(file), options_); });
  if (result != SaveResult::kWritten) return result;
  announceCompanions(component);
  refreshOthers(component);
  return result;
}

// The IDE reads a file with companions again once it is written.
void Saving::announceCompanions(Component& component) {
  auto& files = workspace_.events().files;
  if (!files.connected() || component.companions().empty()) return;
  const std::shared_ptr<frame::VBProject> project = component.VBProject();
  const std::string shown = workspace_.paths().toHost(component.file().path());
  files.raise(&frame::FileControlHandlers::BeforeLoadFile, project.get(), nullptr, project, shown);
}

// Other open projects may hold the same file; they read it again unless they have changes of their own.
void Saving::refreshOthers(const Component& component) {
  for (const auto& project : std::vector(workspace_.projects())) {
    const auto other = project->findFile(component.file().path());
    if (other == nullptr || other.get() == &component || other->isDirty()) continue;
    try {
      other->Reload();
    } catch (const base::Error& error) {
      workspace_.report({other->file().path(), 0, error.description()});
    }
  }
}

std::string Saving::defaultPath(const Component& component, const std::string& folder) const {
  if (folder.empty())
    throw base::Error(errors::kPathNotFound,
                      component.name() + ": neither it nor its project has a file name yet");
  return folder + "/" + workspace_.paths().nameToSystem(component.name()) +
         std::string(traitsOf(component.type()).extension);
}

// ---- projects

// Components of one save on their way to the disk in company, which costs far less waiting than one by one. What
// becomes of each one goes into the report.
class Saving::Company {
 public:
  Company(Saving& saving, SaveReport& report)
      : saving_(saving), report_(report), batch_(saving.workspace_.files().startBatch()) {}

  // Raises what a save of the component alone would raise before anything is written.
  void add(const std::shared_ptr<Component>& component) {
    std::string bytes = component->bytes();
    if (bytes == component->file().bytes()) return component->markSaved();
    const std::string& path = component->file().path();
    if (component->wasToldReadOnly()) throw base::Error(errors::kPermissionDenied, path + ": is read-only");
    component->file().requireWritable(saving_.workspace_.files(), saving_.options_);
    writeBeside(path, bytes);
    size_ += bytes.size();
    members_.push_back({component, std::move(bytes)});
    if (members_.size() >= kMembers || size_ >= kBytes) finish();
  }

  void finish() {
    std::vector<Member> members = std::exchange(members_, {});
    size_ = 0;
    const std::vector<platform::ReplacementBatch::Outcome> outcomes = batch_->finish();
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
      Component& component = *members[i].component;
      const std::string& path = component.file().path();
      if (const auto* error = std::get_if<base::Error>(&outcomes[i])) {
        report_.problems.push_back({path, 0, reasonOf(*error, path)});
        continue;
      }
      component.written(std::get<platform::FileStamp>(outcomes[i]), std::move(members[i].bytes));
      report_.written.push_back(path);
      saving_.refreshOthers(component);
    }
  }

 private:
  struct Member {
    std::shared_ptr<Component> component;
    std::string bytes;
  };
  // So few that little is left lying about when the program is killed, and that the disk need not hold much twice.
  static constexpr std::size_t kMembers = 64;
  static constexpr std::size_t kBytes = std::size_t{8} << 20;

  // A disk that is full for all of them together may have room for one.
  void writeBeside(const std::string& path, const std::string& bytes) {
    try {
      batch_->add(path, bytes);
    } catch (const base::Error&) {
      if (members_.empty()) throw;
      finish();
      batch_->add(path, bytes);
    }
  }

  Saving& saving_;
  SaveReport& report_;
  std::unique_ptr<platform::ReplacementBatch> batch_;
  std::vector<Member> members_;
  std::size_t size_ = 0;
};

void Saving::newComponents(Project& project, const std::string& folder) {
  for (const auto& component : std::vector(project.components()))
    if (component->hasSource() && !component->file().hasPath())
      componentAs(*component, defaultPath(*component, folder));
}

SaveResult Saving::projectFile(Project& project) {
  if (project.keepsNoFile()) return SaveResult::kUnchanged;
  if (!project.file().hasPath())
    throw base::Error(errors::kPathNotFound, project.name() + ": has no file name yet");
  newComponents(project, project.folder());
  if (!project.text().edited()) return SaveResult::kUnchanged;
  project.requireWritable();
  return writeProject(project, project.file());
}

SaveResult Saving::projectFileAs(Project& project, const std::string& systemPath) {
  if (systemPath == project.path()) return projectFile(project);
  if (workspace_.findProjectFile(systemPath) != nullptr)
    throw base::Error(kFileExists, systemPath + ": is an open project");
  const std::string folder(folderOf(systemPath));
  newComponents(project, folder);
  const Project::OldLines lines = project.rebase(folder);
  SaveResult result = SaveResult::kCancelled;
  try {
    result = writeProject(project, DiskFile(systemPath));
  } catch (const base::Error&) {
    project.restore(lines);
    throw;
  }
  if (result == SaveResult::kCancelled) project.restore(lines);
  return result;
}

SaveResult Saving::writeProject(Project& project, DiskFile file) {
  std::string bytes = project.text().bytes();
  if (file.wasRead() && bytes == file.bytes()) {
    project.text().markSaved();
    return SaveResult::kUnchanged;
  }
  return announced(project, file.path(), [&] {
    file.write(workspace_.files(), std::move(bytes), options_);
    project.written(std::move(file));
  });
}

void Saving::project(Project& project, SaveReport& report) {
  const bool homeless = !project.file().hasPath();
  bool newOnesFailed = false;
  // Handlers hear of each file before and behind its writing.
  const bool inCompany = !workspace_.events().files.connected();
  Company company(*this, report);
  for (const auto& component : std::vector(project.components())) {
    if (component->isRemoved() || !needsSaving(*component) || (homeless && !component->file().hasPath()))
      continue;
    try {
      if (inCompany && component->file().hasPath()) {
        company.add(component);
        continue;
      }
      company.finish();  // here and below: files are written, and told, in the order of the components
      const SaveResult result = this->component(*component);
      note(report, result, shownName(*component));
    } catch (const base::Error& error) {
      company.finish();
      report.problems.push_back({shownName(*component), 0, reasonOf(error, shownName(*component))});
    }
    newOnesFailed = newOnesFailed || !component->file().hasPath();
  }
  company.finish();
  if (project.keepsNoFile()) return;
  const std::string name = homeless ? project.name() : project.path();
  if (newOnesFailed) {
    // The project's file must not name files that are not there.
    report.problems.push_back({name, 0, "not written, as a new component could not be"});
    return;
  }
  try {
    const SaveResult result = projectFile(project);
    note(report, result, name);
  } catch (const base::Error& error) {
    report.problems.push_back({name, 0, reasonOf(error, name)});
  }
}

void Saving::group(Group& group, SaveReport& report) {
  group.update(workspace_.paths(), workspace_.projects());
  std::string bytes = group.text().bytes();
  if (!group.text().edited() || bytes == group.file().bytes()) return;
  const std::string path = group.file().path();
  try {
    group.file().write(workspace_.files(), std::move(bytes), options_);
    group.text().markSaved();
    report.written.push_back(path);
  } catch (const base::Error& error) {
    report.problems.push_back({path, 0, reasonOf(error, path)});
  }
}

// The descriptions of file errors begin with the path, which a Problem tells already.
std::string Saving::reasonOf(const base::Error& error, const std::string& path) {
  const std::string& text = error.description();
  return text.starts_with(path + ": ") ? text.substr(path.size() + 2) : text;
}

// ---- pending changes

namespace {

void visitChange(const VisitChange& visit, const DiskFile& file, const std::string& path, std::string bytes) {
  FileChange change{path, std::nullopt, std::move(bytes)};
  if (file.wasRead()) change.oldBytes = file.bytes();
  if (change.oldBytes != change.newBytes) visit(std::move(change));
}

std::string defaultName(const Component& component, const Project& project, Paths& paths) {
  const std::string name =
      paths.nameToSystem(component.name()) + std::string(traitsOf(component.type()).extension);
  return project.folder().empty() ? name : project.folder() + "/" + name;
}

}  // namespace

void visitPendingChanges(Workspace& workspace, const VisitChange& visit) {
  Paths& paths = workspace.paths();
  for (const auto& project : workspace.projects()) {
    for (const auto& component : project->components()) {
      if (!needsSaving(*component)) continue;
      const DiskFile& file = component->file();
      visitChange(visit, file, file.hasPath() ? file.path() : defaultName(*component, *project, paths),
                  component->bytes());
    }
    if (project->text().edited() && project->file().hasPath())
      visitChange(visit, project->file(), project->path(), project->text().bytes());
  }
  for (const auto& group : workspace.groups()) {
    group->update(paths, workspace.projects());
    if (group->text().edited())
      visitChange(visit, group->file(), group->file().path(), group->text().bytes());
  }
}

}  // namespace kolvane::workspace
