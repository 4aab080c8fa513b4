// A project group that is open: its file, and which project each of its lines stands for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "workspace/disk_file.h"
#include "workspace/project_file.h"

namespace kolvane::workspace {

class Paths;
class Project;

class Group {
 public:
  Group(ProjectFile text, DiskFile file) : text_(std::move(text)), file_(std::move(file)) {}

  ProjectFile& text() { return text_; }
  DiskFile& file() { return file_; }
  // A line's project as it was opened, or one that has no line yet.
  void add(LineId line, const std::shared_ptr<Project>& project);
  // How many lines name the project; also one that was closed and opened again.
  std::size_t linesOf(const Project& project) const;
  bool holds(const Project& project) const { return linesOf(project) > 0; }

  std::vector<std::shared_ptr<Project>> openProjects() const;

  // Brings the lines up to the projects that are open now: one that was closed loses its line, one that was
  // saved under another name gets its line changed, one that was added gets a line. Lines of projects that
  // were never open stay.
  void update(Paths& paths, const std::vector<std::shared_ptr<Project>>& open);

 private:
  struct Member {
    LineId line;
    std::string path;  // that the line leads to; empty without a line
    std::weak_ptr<Project> project;
  };

  ProjectFile text_;
  DiskFile file_;
  std::vector<Member> members_;
};

}  // namespace kolvane::workspace
