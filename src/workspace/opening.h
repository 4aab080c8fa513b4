// Reading projects and groups into a workspace.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/text.h"
#include "platform/files.h"
#include "workspace/events.h"
#include "workspace/page_recognition.h"
#include "workspace/paths.h"
#include "workspace/project.h"

namespace kolvane::workspace {

class Group;
class Workspace;

// One opening. Handlers of events may fail in its middle: all is opened, then finish() raises the first
// failure.
class Opening {
 public:
  explicit Opening(Workspace& workspace);

  // What Workspace::open says; `path` is the system's.
  std::vector<std::shared_ptr<Project>> open(const std::string& path);
  void finish() const { failures_.rethrow(); }

 private:
  std::vector<std::shared_ptr<Project>> openGroup(const std::string& path, platform::ReadFile file);
  std::shared_ptr<Project> openGroupLine(Group& group, const ProjectEntry& entry, const std::string& startup);
  std::shared_ptr<Project> openProject(const std::string& path, platform::ReadFile file);
  std::shared_ptr<Project> openAlone(const std::string& path, platform::ReadFile file);
  void loadComponents(const std::shared_ptr<Project>& project);
  int recogniseNames(const std::string& path, const std::vector<std::string>& names);

  // A component's line of a project file, in strings of its own: handlers may edit the file meanwhile.
  struct Listed {
    LineId id;
    int number;
    frame::ComponentType type;
    std::string name;
    std::string file;
  };
  struct Seen {
    std::unordered_set<std::string> files;
    std::set<std::string, base::LessNoCase> names;
  };
  void loadComponent(const std::shared_ptr<Project>& project, const Listed& listed, Seen& seen);
  // The file that a line leads to; nothing, and a problem, when there is none that can be used.
  std::string locate(const Project& project, const Listed& listed);
  std::shared_ptr<Component> readComponent(const std::shared_ptr<Project>& project, const Listed& listed,
                                           const std::string& path);
  void added(const std::shared_ptr<Project>& project, const std::shared_ptr<Component>& component);
  void announceFiles(const std::shared_ptr<Project>& project, Component& component);
  void announce(const std::shared_ptr<Project>& project, const std::string& path);
  void activate(const std::shared_ptr<Project>& project);
  void report(const std::string& file, int line, std::string reason);

  Workspace& workspace_;
  PathFinder finder_;
  HandlerFailures failures_;
  DoubleByteEvidence evidence_;  // of the project that is being read
  // Projects of a group share files; each is read once. Not kept for a single project.
  bool sharing_ = false;
  std::unordered_map<std::string, platform::ReadFile> shared_;
};

// What a file is, by its ending, or else by what stands in it.
enum class FileKind { kProject, kGroup, kComponent, kOther };
struct FileNature {
  FileKind kind = FileKind::kOther;
  frame::ComponentType type = frame::ComponentType::kStdModule;
};
FileNature natureOf(std::string_view path, std::string_view bytes);

}  // namespace kolvane::workspace
