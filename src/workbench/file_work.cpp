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

bool FileWork::hasChanged(const workspace::DiskFile& file) const {
  if (!file.wasRead()) return false;
  const auto now = session_.environment().files.stamp(file.path());
  return now && *now != file.stamp();
}

// The files of a save that need the user's word for it, by what is the matter with them.
struct FileWork::Doubts {
  QStringList changed, gone, linked;
};

void FileWork::doubt(const workspace::DiskFile& file, Doubts& doubts) const {
  if (!file.hasPath()) return;
  platform::Files& files = session_.environment().files;
  const QString name = qt::utf8(workspace::fileName(file.path()));
  if (hasChanged(file)) doubts.changed += name;
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
    if (only == nullptr && project->text().edited()) doubt(project->file(), doubts);
  }
  return settle(doubts);
}

// For a file that the user has chosen to write over.
std::optional<workspace::SaveOptions> FileWork::replacing(const std::string& hostPath) {
  Doubts doubts;
  doubt(workspace::DiskFile(session_.host().paths().toSystem(hostPath)), doubts);
  auto options = settle(doubts);
  if (options) options->force = true;
  return options;
}

bool FileWork::report(const workspace::SaveReport& report) {
  if (report.problems.empty()) return report.cancelled.empty();
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
    const auto options = overwriting({project}, nullptr);
    saved = options && report(session_.host().saveProject(project, *options));
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
    const auto options = overwriting({project}, nullptr);
    saved = options && report(session_.host().saveProject(project, *options));
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
    const auto options = overwriting(projects, nullptr);
    saved = options && report(session_.host().saveAll(*options));
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

void FileWork::checkOutside() {
  std::vector<std::shared_ptr<workspace::Component>> fresh, edited;
  for (const auto& project : session_.host().projects())
    for (const auto& component : project->components()) {
      if (!component->hasSource() || !hasChanged(component->file())) continue;
      const auto now = session_.environment().files.stamp(component->file().path());
      auto& asked = asked_[component->file().path()];
      if (!now || asked == *now) continue;
      asked = *now;
      (component->isDirty() ? edited : fresh).push_back(component);
    }
  const auto namesOf = [&](const auto& components) {
    QStringList names;
    for (const auto& component : components) names += fileOf(*component);
    return names.join('\n');
  };
  if (!fresh.empty() &&
      session_.ask("Another program has changed these files:\n\n" + namesOf(fresh) + "\n\nRead them again?",
                   forms::box::kYesNo) == forms::Answer::kYes)
    for (const auto& component : fresh)
      if (!component->isRemoved()) session_.attempt([&] { session_.host().reload(component); });
  if (!edited.empty() &&
      session_.agreesToLose(
          "Another program has changed these files, and they have unsaved changes here:\n\n" +
          namesOf(edited) + "\n\nDrop the changes made here and read the files again?"))
    for (const auto& component : edited)
      if (!component->isRemoved()) session_.attempt([&] { session_.host().reload(component); });
  if (!fresh.empty() || !edited.empty()) changed();
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
