#include "workbench/file_work.h"

#include <QSettings>
#include <algorithm>

#include "base/error.h"
#include "qt/text_convert.h"
#include "workspace/paths.h"

namespace kolvane::workbench {
namespace {

constexpr int kMostRecent = 8;
constexpr const char* kRecentKey = "recentProjects";
constexpr const char* kProjectFilter =
    "Project Files (*.vbp;*.vbg)|*.vbp;*.vbg|Source Files (*.bas;*.cls;*.frm;*.ctl;*.pag)|"
    "*.bas;*.cls;*.frm;*.ctl;*.pag|All Files (*.*)|*.*";
constexpr const char* kComponentFilter =
    "Source Files (*.frm;*.bas;*.cls;*.ctl;*.pag;*.dsr)|*.frm;*.bas;*.cls;*.ctl;*.pag;*.dsr|All Files "
    "(*.*)|*.*";

}  // namespace

FileWork::FileWork(Session& session) : session_(session) {
  const QString& folder = session.environment().stateFolder;
  if (!folder.isEmpty())
    recent_ = QSettings(settingsFile(folder), QSettings::IniFormat).value(kRecentKey).toStringList();
}

void FileWork::changed() {
  if (onChanged) onChanged();
}

void FileWork::remember(const QString& systemPath) {
  recent_.removeAll(systemPath);
  recent_.prepend(systemPath);
  while (recent_.size() > kMostRecent) recent_.removeLast();
  const QString& folder = session_.environment().stateFolder;
  if (!folder.isEmpty()) QSettings(settingsFile(folder), QSettings::IniFormat).setValue(kRecentKey, recent_);
}

void FileWork::tellProblems() {
  const auto& problems = session_.host().problems();
  if (problems.empty()) return;
  QString text = QStringLiteral("Some of it could not be read:\n");
  for (const auto& problem : problems) text += "\n" + QString::fromStdString(problem.text());
  session_.host().clearProblems();
  session_.tell(text);
}

// ---- opening

bool FileWork::open(const QString& systemPath) {
  bool opened = false;
  session_.attempt([&] {
    const std::string path = session_.environment().files.absolute(qt::utf8(systemPath));
    const auto projects = session_.host().open(path);
    opened = !projects.empty();
    if (!opened && session_.host().problems().empty())
      throw base::Error(base::errors::kInvalidFormat, path + ": holds no project");
    if (opened) remember(qt::utf8(path));
  });
  tellProblems();
  changed();
  return opened;
}

bool FileWork::chooseAndOpen(bool adds) {
  const auto path =
      chooseFile(forms::FileDialog::Kind::kOpen, adds ? "Add Project" : "Open Project", kProjectFilter, {});
  if (!path || (!adds && !closeAll())) return false;
  return open(qt::utf8(session_.host().paths().toSystem(*path)));
}

bool FileWork::openRecent(int index) {
  if (index < 0 || index >= recent_.size()) return false;
  const QString path = recent_[index];
  return closeAll() && open(path);
}

bool FileWork::newProject(frame::ProjectType type) {
  if (!closeAll()) return false;
  const bool made = session_.attempt([&] { session_.host().newProject(type); });
  changed();
  return made;
}

// ---- saving

QString FileWork::fileOf(const workspace::Component& component) const {
  const std::string& path = component.file().path();
  return path.empty() ? session_.text(component.name()) : qt::utf8(workspace::fileName(path));
}

// The files of a save that need the user's word for it, by what is the matter with them.
struct FileWork::Doubts {
  QStringList changed, gone, linked;
};

void FileWork::doubt(const workspace::DiskFile& file, Doubts& doubts) const {
  if (!file.hasPath()) return;
  platform::Files& files = session_.environment().files;
  const QString name = qt::utf8(workspace::fileName(file.path()));
  if (file.isGone(files)) doubts.gone += name;
  if (file.otherNames(files) > 0) doubts.linked += name;
}

std::optional<workspace::SaveOptions> FileWork::settle(const Doubts& doubts) {
  const auto allows = [this](const QStringList& names, const QString& what, const QString& question) {
    return names.isEmpty() || session_.agreesToLose(what + ":\n\n" + names.join('\n') + "\n\n" + question);
  };
  if (!allows(doubts.changed, "Another program has changed these files since they were read",
              "Write over them?") ||
      !allows(doubts.gone, "These files have been deleted or moved since they were read",
              "Make them anew?") ||
      !allows(doubts.linked,
              "These files have other names (hard links), which would go on naming what they hold now",
              "Write them all the same?"))
    return std::nullopt;
  workspace::SaveOptions options;
  options.force = !doubts.changed.isEmpty() || !doubts.gone.isEmpty();
  options.breakLinks = !doubts.linked.isEmpty();
  return options;
}

std::optional<workspace::SaveOptions> FileWork::overwriting(const Projects& projects,
                                                            const workspace::Component* only) {
  Doubts doubts;
  for (const auto& project : projects) {
    for (const auto& component : project->components())
      if ((only == nullptr || component.get() == only) && component->isDirty())
        doubt(component->file(), doubts);
    if (only != nullptr || !project->text().edited()) continue;
    const workspace::DiskFile& file = project->file();
    doubt(file, doubts);
    const auto now = file.wasRead() ? session_.environment().files.stamp(file.path()) : std::nullopt;
    if (now && *now != file.stamp()) doubts.changed += qt::utf8(workspace::fileName(file.path()));
  }
  auto options = settle(doubts);
  // A yes to these is none to a module that another program has changed.
  if (options && !refused(projects).empty()) options->force = false;
  return options;
}

// For a file that the user has chosen to write over.
std::optional<workspace::SaveOptions> FileWork::replacing(const std::string& hostPath) {
  Doubts doubts;
  doubt(workspace::DiskFile(session_.host().paths().toSystem(hostPath)), doubts);
  auto options = settle(doubts);
  if (options) options->force = true;
  return options;
}

bool FileWork::report(workspace::SaveReport report, const Projects& projects) {
  const auto left = refused(projects);
  std::erase_if(report.problems, [&](const workspace::Problem& problem) {
    return std::any_of(left.begin(), left.end(),
                       [&](const auto& component) { return component->file().path() == problem.file; });
  });
  const bool clean = refuse(left) && report.cancelled.empty();
  if (report.problems.empty()) return clean;
  QString text = QStringLiteral("These files could not be saved:\n");
  for (const auto& problem : report.problems) text += "\n" + QString::fromStdString(problem.text());
  session_.tell(text, forms::box::kCritical);
  return false;
}

bool FileWork::save(const std::shared_ptr<workspace::Component>& component) {
  if (!component) return false;
  if (!component->file().hasPath()) return saveAs(component);
  bool saved = false;
  session_.attempt([&] {
    if (component->isDirty() && hasChanged(*component) && !refuse({component})) return;
    const auto options = overwriting({component->project()}, component.get());
    saved = options && session_.host().save(component, *options) != workspace::SaveResult::kCancelled;
  });
  changed();
  return saved;
}

bool FileWork::saveAs(const std::shared_ptr<workspace::Component>& component) {
  if (!component) return false;
  bool saved = false;
  session_.attempt([&] {
    const std::string& old = component->file().path();
    std::string proposal = component->name();
    proposal += workspace::traitsOf(component->type()).extension;
    const std::string folder = old.empty() ? component->project()->folder() : std::string();
    if (!old.empty()) proposal = session_.host().paths().toHost(old);
    if (!folder.empty()) proposal = session_.host().paths().toHost(folder) + "\\" + proposal;
    const auto path = chooseFile(forms::FileDialog::Kind::kSave, "Save File As", kComponentFilter, proposal);
    if (!path) return;
    // The dialog has asked about a file that is there.
    const auto options = replacing(*path);
    if (!options) return;
    session_.host().saveAs(component, *path, *options);
    saved = true;
  });
  changed();
  return saved;
}

bool FileWork::saveProject(const std::shared_ptr<workspace::Project>& project) {
  if (!project) return false;
  if (project->path().empty() && !project->keepsNoFile()) return saveProjectAs(project);
  bool saved = false;
  session_.attempt([&] {
    const auto options = overwriting({project});
    saved = options && report(session_.host().saveProject(project, *options), {project});
  });
  changed();
  return saved;
}

bool FileWork::saveProjectAs(const std::shared_ptr<workspace::Project>& project) {
  if (!project) return false;
  bool saved = false;
  session_.attempt([&] {
    const std::string proposal =
        project->path().empty() ? project->name() + ".vbp" : session_.host().paths().toHost(project->path());
    const auto path = chooseFile(forms::FileDialog::Kind::kSave, "Save Project As",
                                 "Project Files (*.vbp)|*.vbp|All Files (*.*)|*.*", proposal);
    if (!path) return;
    const auto replaced = replacing(*path);
    if (!replaced) return;
    session_.host().saveProjectAs(project, *path, *replaced);
    remember(qt::utf8(session_.host().paths().toSystem(*path)));
    const auto options = overwriting({project});
    saved = options && report(session_.host().saveProject(project, *options), {project});
  });
  changed();
  return saved;
}

bool FileWork::saveAll() {
  const Projects projects = session_.host().projects();
  for (const auto& project : projects)
    if (project->path().empty() && !project->keepsNoFile() && project->IsDirty() && !saveProjectAs(project))
      return false;
  bool saved = false;
  session_.attempt([&] {
    const auto options = overwriting(projects);
    saved = options && report(session_.host().saveAll(*options), projects);
  });
  changed();
  return saved;
}

// ---- components

void FileWork::add(const std::shared_ptr<workspace::Project>& project, frame::ComponentType type) {
  if (!project) return;
  session_.attempt([&] { session_.host().addComponent(project, type); });
  changed();
}

void FileWork::addFile(const std::shared_ptr<workspace::Project>& project) {
  if (!project) return;
  const auto path = chooseFile(forms::FileDialog::Kind::kOpen, "Add File", kComponentFilter, {});
  if (!path) return;
  session_.attempt([&] { session_.host().addFile(project, *path); });
  tellProblems();
  changed();
}

void FileWork::remove(const std::shared_ptr<workspace::Component>& component) {
  if (!component) return;
  if (component->isDirty()) {
    const auto answer = session_.ask("Save changes to " + fileOf(*component) + " before removing it?",
                                     forms::box::kYesNoCancel);
    if (answer == forms::Answer::kCancel || (answer == forms::Answer::kYes && !save(component))) return;
  }
  session_.attempt([&] { session_.host().removeComponent(component); });
  changed();
}

void FileWork::revert(const std::shared_ptr<workspace::Component>& component) {
  if (!component || !component->file().hasPath()) return;
  if (component->isDirty() &&
      !session_.agreesToLose("Drop all changes to " + fileOf(*component) + " since it was saved?"))
    return;
  session_.attempt([&] { session_.host().reload(component); });
  tellProblems();
  changed();
}

// ---- closing

bool FileWork::mayLose(const Projects& projects) {
  QStringList names;
  for (const auto& project : projects) {
    // A new project that nobody has touched is let go.
    bool anything = false;
    for (const auto& component : project->components())
      if (component->isDirty()) {
        names += "  " + fileOf(*component);
        anything = true;
      }
    if (project->IsDirty() && (!anything || project->path().empty()) && !project->keepsNoFile())
      names += "  " + (project->path().empty() ? session_.text(project->name())
                                               : qt::utf8(workspace::fileName(project->path())));
  }
  if (names.isEmpty()) return true;
  const auto answer =
      session_.ask("Save changes to the following files?\n\n" + names.join('\n'), forms::box::kYesNoCancel);
  if (answer == forms::Answer::kNo) return true;
  if (answer != forms::Answer::kYes) return false;
  for (const auto& project : projects)
    if (project->IsDirty() && !saveProject(project)) return false;
  return true;
}

bool FileWork::close(const std::shared_ptr<workspace::Project>& project) {
  if (!project || !mayLose({project})) return false;
  session_.attempt([&] { session_.host().closeProject(project); });
  changed();
  return true;
}

bool FileWork::closeAll() {
  const Projects projects = session_.host().projects();
  if (!mayLose(projects)) return false;
  for (const auto& project : projects) session_.attempt([&] { session_.host().closeProject(project); });
  changed();
  return true;
}

// ---- outside changes

FileWork::OutsideChange* FileWork::findChange(const workspace::Component& component) {
  const auto found = std::find_if(outside_.begin(), outside_.end(), [&](const OutsideChange& change) {
    return change.component.lock().get() == &component;
  });
  return found == outside_.end() ? nullptr : &*found;
}

// A file that was written anew with the same bytes is none; it is read once to see that.
bool FileWork::hasChanged(workspace::Component& component) {
  const workspace::DiskFile& file = component.file();
  if (!component.hasSource() || !file.wasRead()) return false;
  platform::Files& files = session_.environment().files;
  const auto now = files.stamp(file.path());
  OutsideChange* known = findChange(component);
  if (!now || *now == file.stamp()) {
    if (known != nullptr) outside_.erase(outside_.begin() + (known - outside_.data()));
    return false;
  }
  if (known == nullptr) known = &outside_.emplace_back(OutsideChange{component.weak_from_this(), {}, {}});
  if (known->read == file.stamp() && known->found == *now) return !known->isSame;
  known->read = file.stamp();
  known->found = *now;
  known->isLeft = known->wasRefused = false;
  known->isSame =
      now->size == file.bytes().size() && files.read(file.path()).content->bytes() == file.bytes();
  return !known->isSame;
}

void FileWork::checkOutside() {
  for (const auto& project : session_.host().projects())
    for (const auto& component : project->components()) {
      try {
        hasChanged(*component);
      } catch (const base::Error&) {
        // It is being written at this moment; the next look will tell.
      }
    }
}

std::vector<std::shared_ptr<workspace::Component>> FileWork::changedOutside() {
  std::erase_if(outside_, [](const OutsideChange& change) {
    const auto component = change.component.lock();
    return component == nullptr || component->isRemoved() || component->file().stamp() != change.read;
  });
  std::vector<std::shared_ptr<workspace::Component>> components;
  for (const OutsideChange& change : outside_)
    if (!change.isLeft && !change.isSame) components.push_back(change.component.lock());
  return components;
}

bool FileWork::wasRefused(const workspace::Component& component) const {
  return std::any_of(outside_.begin(), outside_.end(), [&](const OutsideChange& change) {
    return change.wasRefused && change.component.lock().get() == &component;
  });
}

std::vector<std::shared_ptr<workspace::Component>> FileWork::refused(const Projects& projects) {
  std::vector<std::shared_ptr<workspace::Component>> components;
  for (const auto& project : projects)
    for (const auto& component : project->components())
      if (component->isDirty() && hasChanged(*component)) components.push_back(component);
  return components;
}

// True when there are none.
bool FileWork::refuse(const std::vector<std::shared_ptr<workspace::Component>>& components) {
  for (const auto& component : components)
    if (OutsideChange* change = findChange(*component)) {
      change->isLeft = false;
      change->wasRefused = true;
    }
  return components.empty();
}

void FileWork::readAgain(const std::vector<std::shared_ptr<workspace::Component>>& components) {
  for (const auto& component : components)
    if (!component->isRemoved()) session_.attempt([&] { session_.host().reload(component); });
  tellProblems();
  changed();
}

void FileWork::leave(const std::vector<std::shared_ptr<workspace::Component>>& components) {
  for (const auto& component : components)
    if (OutsideChange* change = findChange(*component)) change->isLeft = true;
}

void FileWork::writeOver(const std::shared_ptr<workspace::Component>& component) {
  session_.attempt([&] { session_.host().save(component, {true}); });
  changed();
}

std::optional<std::string> FileWork::chooseFile(forms::FileDialog::Kind kind, const char* title,
                                                const char* filter, const std::string& proposal) {
  forms::FileDialog dialog;
  dialog.kind = kind;
  dialog.title = title;
  dialog.filter = filter;
  dialog.path = proposal;
  return session_.desk().fileDialog(dialog);
}

}  // namespace kolvane::workbench
