#include "workspace/group.h"

#include <algorithm>

#include "workspace/paths.h"
#include "workspace/project.h"

namespace kolvane::workspace {

void Group::add(LineId line, const std::shared_ptr<Project>& project) {
  members_.push_back({line, line == kNoLine ? std::string() : project->file().path(), project});
}

std::size_t Group::linesOf(const Project& project) const {
  return static_cast<std::size_t>(std::ranges::count_if(members_, [&](const Member& member) {
    return member.project.lock().get() == &project ||
           (project.file().hasPath() && member.path == project.path());
  }));
}

std::vector<std::shared_ptr<Project>> Group::openProjects() const {
  std::vector<std::shared_ptr<Project>> open;
  for (const Member& member : members_)
    if (auto project = member.project.lock();
        project && !project->isClosed() && std::find(open.begin(), open.end(), project) == open.end())
      open.push_back(std::move(project));
  return open;
}

void Group::update(Paths& paths, const std::vector<std::shared_ptr<Project>>& open) {
  const std::string folder(folderOf(file_.path()));
  for (Member& member : members_) {
    auto project = member.project.lock();
    if (project == nullptr || project->isClosed()) {
      // It may have been closed and opened again.
      const auto again = std::find_if(open.begin(), open.end(),
                                      [&](const auto& each) { return each->file().path() == member.path; });
      project = again == open.end() || member.path.empty() ? nullptr : *again;
      member.project = project;
    }
    if (project == nullptr) {
      text_.removeEntry(member.line);
    } else if (project->file().path() != member.path && project->file().hasPath()) {
      member.path = project->file().path();
      const std::string value = paths.relative(folder, member.path);
      if (member.line == kNoLine) {
        member.line = text_.addEntry("Project", value);
      } else {
        text_.setEntry(member.line, value);
      }
    }
  }
  std::erase_if(members_, [](const Member& member) { return member.project.expired(); });
}

}  // namespace kolvane::workspace
