// Writing what has changed, and nothing else.
//
// A file is written whole or not at all, and only when its bytes differ from what it holds. One that another
// program has changed since it was read stays as it is (75), and one that has gone is not made again (53), unless the
// save is forced; a read-only file stays in any case (70); a new file takes no existing file's place (58) unless
// forced. A file with several names (hard links) stays (75) unless the options say that they may part.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "workspace/component_source.h"
#include "workspace/disk_file.h"

namespace kolvane::workspace {

class Component;
class Group;
class Project;
class Workspace;

enum class SaveResult { kUnchanged, kWritten, kCancelled };

// Paths are the system's.
struct SaveReport {
  std::vector<std::string> written;
  std::vector<std::string> cancelled;  // by a handler of RequestWriteFile
  std::vector<Problem> problems;       // files that could not be written, and why
};

struct FileChange {
  std::string path;                     // for a component of a project never saved its file name alone
  std::optional<std::string> oldBytes;  // nothing for a new file
  std::string newBytes;
};

class Saving {
 public:
  Saving(Workspace& workspace, SaveOptions options) : workspace_(workspace), options_(options) {}

  SaveResult component(Component& component);
  SaveResult componentAs(Component& component, const std::string& systemPath);
  // The project's file alone, at its place or at another one; components without a file are written first.
  SaveResult projectFile(Project& project);
  SaveResult projectFileAs(Project& project, const std::string& systemPath);
  void project(Project& project, SaveReport& report);
  void group(Group& group, SaveReport& report);

 private:
  class Company;
  template <typename Write>
  SaveResult announced(Project& project, const std::string& systemPath, Write&& write);
  SaveResult writeComponent(Component& component, DiskFile file);
  SaveResult writeProject(Project& project, DiskFile file);
  void announceCompanions(Component& component);
  void refreshOthers(const Component& component);
  void newComponents(Project& project, const std::string& folder);
  std::string defaultPath(const Component& component, const std::string& folder) const;

  static std::string reasonOf(const base::Error& error, const std::string& path);

  Workspace& workspace_;
  SaveOptions options_;
};

using VisitChange = std::function<void(FileChange change)>;
void visitPendingChanges(Workspace& workspace, const VisitChange& visit);

}  // namespace kolvane::workspace
