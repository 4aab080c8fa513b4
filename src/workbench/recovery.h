// Unsaved edits, kept beside the user's files for the case that the program ends without being closed.
//
// A run has a folder of its own, with a file for each component that has unsaved changes and an index of them. Each is
// written whole and renamed into place, so that a kill leaves the old state or the new one. A lock tells a run that
// lives from one that is gone. The user's own files are read only.
#pragma once

#include <QElapsedTimer>
#include <QLockFile>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/session.h"

namespace kolvane::workbench {

class Recovery {
 public:
  // The session must outlive it. `folder` is made at the first use; empty: nothing is kept.
  Recovery(Session& session, QString folder);

  // Writes what has changed since the last call, for at most `milliseconds`; false when there is more to do. A folder
  // that cannot be written raises 75.
  bool keep(int milliseconds = 40);
  // The program is closed: nothing is to be recovered from this run.
  void end();

  // What one run left behind.
  struct Left {
    QString folder;
    QStringList names;  // for people: "modMain.bas", or a component's name
  };
  // Of runs that are gone. Holds their locks until they are restored or dropped.
  std::vector<Left> abandoned();
  struct Restored {
    QStringList failed;   // a line for each that stays where it is
    QStringList changed;  // paths of files that are not what they were when they were edited
  };
  // Opens what is not open yet and puts the edits in, unsaved.
  Restored restore(const Left& left);
  void drop(const Left& left);

 private:
  struct Kept {
    std::weak_ptr<workspace::Component> component;
    QString file;
    unsigned code = 0;
    const void* tree = nullptr;
    std::uint64_t edits = 0;
    std::string name;
  };
  bool begin();
  static bool isCurrent(const Kept& kept, workspace::Component& component);
  void writeIndex();
  bool restoreEntry(const QString& folder, const class QJsonObject& entry, Restored& restored);

  Session& session_;
  QString root_;
  QString own_;
  std::unique_ptr<QLockFile> lock_;
  std::map<const workspace::Component*, Kept> kept_;
  std::map<QString, std::unique_ptr<QLockFile>> held_;
  int nextFile_ = 1;
};

}  // namespace kolvane::workbench
