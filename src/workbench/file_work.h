// What a user does with projects and files: opening, saving, reverting, closing, with the questions that go
// with it. Failures are told in a box.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/session.h"

namespace kolvane::workbench {

class FileWork {
 public:
  // The session must outlive it.
  explicit FileWork(Session& session);

  // ---- opening; false when nothing was opened
  bool open(const QString& systemPath);
  // Asks for the file first; the projects that are open are closed, or stay when `adds`.
  bool chooseAndOpen(bool adds);
  bool openRecent(int index);
  bool newProject(frame::ProjectType type);
  // The latest first.
  const QStringList& recent() const { return recent_; }

  // ---- saving; false when the user has given it up or a file could not be written
  bool save(const std::shared_ptr<workspace::Component>& component);
  bool saveAs(const std::shared_ptr<workspace::Component>& component);
  bool saveProject(const std::shared_ptr<workspace::Project>& project);
  bool saveProjectAs(const std::shared_ptr<workspace::Project>& project);
  bool saveAll();

  // ---- components
  void add(const std::shared_ptr<workspace::Project>& project, frame::ComponentType type);
  void addFile(const std::shared_ptr<workspace::Project>& project);
  void remove(const std::shared_ptr<workspace::Component>& component);
  // Drops the edits after asking.
  void revert(const std::shared_ptr<workspace::Component>& component);

  // ---- closing; asks about unsaved changes, and false means that the user wants to stay
  bool close(const std::shared_ptr<workspace::Project>& project);
  bool closeAll();

  // Lists what the host could not read since the last time, if there is anything.
  void tellProblems();

  // Files that another program has changed: those without edits are offered to be read again, the others told of.
  // Each change is asked about once.
  void checkOutside();

  // Called after each change of the files that are open or of the recent projects.
  std::function<void()> onChanged;

 private:
  using Projects = std::vector<std::shared_ptr<workspace::Project>>;
  bool mayLose(const Projects& projects);
  bool hasChanged(const workspace::DiskFile& file) const;
  // Asks about files that other programs have changed or deleted, and that have other names; nothing when the user wants
  // to write nothing.
  std::optional<workspace::SaveOptions> overwriting(const Projects& projects,
                                                    const workspace::Component* only);
  std::optional<workspace::SaveOptions> replacing(const std::string& hostPath);
  struct Doubts;
  void doubt(const workspace::DiskFile& file, Doubts& doubts) const;
  std::optional<workspace::SaveOptions> settle(const Doubts& doubts);
  bool report(const workspace::SaveReport& report);
  void remember(const QString& systemPath);
  QString fileOf(const workspace::Component& component) const;
  std::optional<std::string> chooseFile(forms::FileDialog::Kind kind, const char* title, const char* filter,
                                        const std::string& proposal);
  void changed();

  Session& session_;
  QStringList recent_;
  std::map<std::string, platform::FileStamp> asked_;  // states of files that were asked about
};

}  // namespace kolvane::workbench
