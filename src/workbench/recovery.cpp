#include "workbench/recovery.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>

#include "base/error.h"
#include "qt/text_convert.h"
#include "workspace/designer_tree.h"
#include "workspace/paths.h"

namespace kolvane::workbench {
namespace {

constexpr const char* kIndex = "index.json";
constexpr const char* kLock = "lock";

void writeWhole(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
    throw base::Error(base::errors::kPathAccess, "Unsaved changes cannot be kept in " + qt::utf8(path) +
                                                     ": " + qt::utf8(file.errorString()));
}

std::unique_ptr<QLockFile> tryLock(const QString& folder) {
  auto lock = std::make_unique<QLockFile>(folder + "/" + kLock);
  // Held for as long as its program lives, however long that is.
  lock->setStaleLockTime(0);
  return lock->tryLock(0) ? std::move(lock) : nullptr;
}

QJsonArray readIndex(const QString& folder) {
  QFile file(folder + "/" + kIndex);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QJsonDocument::fromJson(file.readAll()).array();
}

// Of what the file held when it was read or written last; empty when it was neither.
QString contentOf(const workspace::DiskFile& file) {
  if (!file.wasRead()) return {};
  const std::string_view bytes = file.bytes();
  const auto whole = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QString::fromLatin1(QCryptographicHash::hash(whole, QCryptographicHash::Sha256).toHex());
}

}  // namespace

Recovery::Recovery(Session& session, QString folder)
    : session_(session), root_(folder.isEmpty() ? QString() : folder + "/recovery") {}

bool Recovery::begin() {
  if (lock_ != nullptr) return true;
  if (root_.isEmpty()) return false;
  own_ = root_ + "/" + QDateTime::currentDateTimeUtc().toString("yyyyMMdd-hhmmss-zzz") + "-" +
         QString::number(reinterpret_cast<quintptr>(this) % 100000);
  if (!QDir().mkpath(own_) || !(lock_ = tryLock(own_)))
    throw base::Error(base::errors::kPathAccess, "Unsaved changes cannot be kept in " + qt::utf8(own_));
  QFile::setPermissions(own_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return true;
}

bool Recovery::isCurrent(const Kept& kept, workspace::Component& component) {
  const workspace::DesignerTree* tree = component.header().designer();
  return kept.component.lock().get() == &component && kept.code == component.codeVersion() &&
         kept.tree == tree && kept.edits == (tree ? tree->edits() : 0) && kept.name == component.name();
}

bool Recovery::keep(int milliseconds) {
  QElapsedTimer time;
  time.start();
  bool indexChanged = false;
  std::erase_if(kept_, [&](const auto& entry) {
    const auto component = entry.second.component.lock();
    if (component && !component->isRemoved() && component->isDirty()) return false;
    QFile::remove(own_ + "/" + entry.second.file);
    return indexChanged = true;
  });
  bool finished = true;
  for (const auto& project : session_.host().projects()) {
    for (const auto& component : project->components()) {
      if (!component->isDirty() || !component->hasSource()) continue;
      const auto known = kept_.find(component.get());
      if (known != kept_.end() && isCurrent(known->second, *component)) continue;
      if (time.elapsed() > milliseconds) {
        finished = false;
        break;
      }
      if (!begin()) return true;
      Kept& kept = kept_[component.get()];
      indexChanged = indexChanged || kept.file.isEmpty() || kept.name != component->name();
      if (kept.file.isEmpty()) kept.file = QStringLiteral("%1.bin").arg(nextFile_++);
      const workspace::DesignerTree* tree = component->header().designer();
      kept.component = component;
      kept.code = component->codeVersion();
      kept.tree = tree;
      kept.edits = tree ? tree->edits() : 0;
      kept.name = component->name();
      const std::string bytes = component->bytes();
      writeWhole(own_ + "/" + kept.file,
                 QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    }
  }
  if (indexChanged) writeIndex();
  return finished;
}

void Recovery::writeIndex() {
  if (lock_ == nullptr) return;
  QJsonArray entries;
  for (const auto& [key, kept] : kept_) {
    const auto component = kept.component.lock();
    if (!component || component->isRemoved()) continue;
    const auto project = component->project();
    entries.append(QJsonObject{{"file", kept.file},
                               {"name", session_.text(component->name())},
                               {"type", static_cast<int>(component->type())},
                               {"path", qt::utf8(component->file().path())},
                               {"content", contentOf(component->file())},
                               {"project", qt::utf8(project->path())},
                               {"projectName", session_.text(project->name())},
                               {"projectType", static_cast<int>(project->Type())},
                               {"single", project->keepsNoFile()}});
  }
  writeWhole(own_ + "/" + kIndex, QJsonDocument(entries).toJson());
}

void Recovery::end() {
  kept_.clear();
  if (lock_ == nullptr) return;
  lock_.reset();
  QDir(own_).removeRecursively();
}

// ---- what others left

std::vector<Recovery::Left> Recovery::abandoned() {
  std::vector<Left> all;
  if (root_.isEmpty()) return all;
  for (const QString& name : QDir(root_).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
    const QString folder = root_ + "/" + name;
    if (folder == own_) continue;
    auto lock = tryLock(folder);
    if (lock == nullptr) continue;
    Left left{folder, {}};
    for (const auto& value : readIndex(folder)) {
      const QJsonObject entry = value.toObject();
      const QString path = entry["path"].toString();
      left.names += path.isEmpty() ? entry["name"].toString() : path;
    }
    if (left.names.isEmpty()) {
      lock.reset();
      QDir(folder).removeRecursively();
      continue;
    }
    held_[folder] = std::move(lock);
    all.push_back(std::move(left));
  }
  return all;
}

Recovery::Restored Recovery::restore(const Left& left) {
  Restored restored;
  QStringList& failed = restored.failed;
  for (const auto& value : readIndex(left.folder)) {
    const QJsonObject entry = value.toObject();
    try {
      if (!restoreEntry(left.folder, entry, restored))
        failed += entry["name"].toString() + ": its project is not there";
    } catch (const base::Error& error) {
      failed += entry["name"].toString() + ": " + session_.text(error.description());
    }
  }
  // This run keeps them from now on, before the old ones go.
  while (!keep()) {
  }
  if (failed.isEmpty()) drop(left);
  return restored;
}

bool Recovery::restoreEntry(const QString& folder, const QJsonObject& entry, Restored& restored) {
  auto& host = session_.host();
  QFile file(folder + "/" + entry["file"].toString());
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray bytes = file.readAll();
  const std::string path = qt::utf8(entry["path"].toString());
  const std::string projectPath = qt::utf8(entry["project"].toString());
  const std::string name = qt::fromQt(session_.codePage(), entry["name"].toString());
  const std::string projectName = qt::fromQt(session_.codePage(), entry["projectName"].toString());
  const auto findProject = [&]() -> std::shared_ptr<workspace::Project> {
    for (const auto& each : host.projects()) {
      const bool isIt = projectPath.empty()
                            ? (path.empty() ? each->path().empty() && each->name() == projectName
                                            : each->findFile(path) != nullptr)
                            : each->path() == projectPath;
      if (isIt) return each;
    }
    return nullptr;
  };
  auto project = findProject();
  if (!project && (!projectPath.empty() || (entry["single"].toBool() && !path.empty()))) {
    host.open(projectPath.empty() ? path : projectPath);
    project = findProject();
  }
  if (!project && projectPath.empty())
    project = std::dynamic_pointer_cast<workspace::Project>(
        host.newProject(static_cast<frame::ProjectType>(entry["projectType"].toInt()), projectName));
  if (!project) return false;
  auto component = path.empty() ? project->find(name) : project->findFile(path);
  if (!component)
    component = std::dynamic_pointer_cast<workspace::Component>(
        host.addComponent(project, static_cast<frame::ComponentType>(entry["type"].toInt()), name));
  const QString content = entry["content"].toString();
  if (!content.isEmpty() && content != contentOf(component->file())) restored.changed += qt::utf8(path);
  component->recover(bytes.toStdString());
  return true;
}

void Recovery::drop(const Left& left) {
  held_.erase(left.folder);
  QDir(left.folder).removeRecursively();
}

}  // namespace kolvane::workbench
