// What a user does with projects and files: opening, saving, reverting, closing, with the questions that go
// with it. Failures are told in a box.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
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

  // ---- saving; false when the user has given it up or a file could not be written. A file that another program has
  // changed is not written, and is then one of changedOutside().
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

  // ---- files that another program has changed: nothing is done about one until the user says what
  struct OutsideChange {
    std::weak_ptr<workspace::Component> component;
    platform::FileStamp read;   // of the file as it was read
    platform::FileStamp found;  // as it is now
    bool wasRefused = false;    // a save would have written over it
    bool isLeft = false;        // the user knows, and has left it as it is
    bool isSame = false;        // what was written is what was there
  };
  // Looks for them on the disk.
  void checkOutside();
  // Those that the user has not decided about. A file that was read again, or written, is none of them.
  std::vector<std::shared_ptr<workspace::Component>> changedOutside();
  bool wasRefused(const workspace::Component& component) const;
  // Drops what was changed here.
  void readAgain(const std::vector<std::shared_ptr<workspace::Component>>& components);
  // Says no more about this change of theirs.
  void leave(const std::vector<std::shared_ptr<workspace::Component>>& components);
  void writeOver(const std::shared_ptr<workspace::Component>& component);

  // Called after each change of the files that are open or of the recent projects.
  std::function<void()> onChanged;

 private:
  using Projects = std::vector<std::shared_ptr<workspace::Project>>;
  bool mayLose(const Projects& projects);
  bool hasChanged(workspace::Component& component);
  OutsideChange* findChange(const workspace::Component& component);
  // The unsaved components whose files a save must leave alone.
  std::vector<std::shared_ptr<workspace::Component>> refused(const Projects& projects);
  bool refuse(const std::vector<std::shared_ptr<workspace::Component>>& components);
  // Asks about files that were deleted and that have other names, and about a project's own file that another program has
  // changed; nothing when the user wants to write nothing. Changed modules are left to the bar above the code.
  std::optional<workspace::SaveOptions> overwriting(const Projects& projects,
                                                    const workspace::Component* only = nullptr);
  std::optional<workspace::SaveOptions> replacing(const std::string& hostPath);
  struct Doubts;
  void doubt(const workspace::DiskFile& file, Doubts& doubts) const;
  std::optional<workspace::SaveOptions> settle(const Doubts& doubts);
  bool report(workspace::SaveReport report, const Projects& projects);
  void remember(const QString& systemPath);
  QString fileOf(const workspace::Component& component) const;
  std::optional<std::string> chooseFile(forms::FileDialog::Kind kind, const char* title, const char* filter,
                                        const std::string& proposal);
  void changed();

  Session& session_;
  QStringList recent_;
  std::vector<OutsideChange> outside_;
};

}  // namespace kolvane::workbench
