#include "workspace/opening.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "workspace/group.h"
#include "workspace/workspace.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;
using frame::ComponentType;

std::string_view firstLine(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return bytes.substr(0, bytes.find_first_of("\r\n"));
}

// The first word behind "Begin" in the lines above the code, by the class that it names.
struct RootClass {
  std::string_view text;
  ComponentType type;
};
constexpr std::array kRoots = {
    RootClass{"Begin VB.Form", ComponentType::kVBForm},
    RootClass{"Begin VB.MDIForm", ComponentType::kVBMDIForm},
    RootClass{"Begin VB.UserControl", ComponentType::kUserControl},
    RootClass{"Begin VB.PropertyPage", ComponentType::kPropPage},
    RootClass{"Begin VB.UserDocument", ComponentType::kDocObject},
    RootClass{"Begin {", ComponentType::kActiveXDesigner},
};

FileNature natureByContent(std::string_view bytes) {
  const std::string_view first = firstLine(bytes);
  if (base::startsWithNoCase(first, "VBGROUP")) return {FileKind::kGroup};
  if (base::startsWithNoCase(first, "Type=")) return {FileKind::kProject};
  if (base::startsWithNoCase(first, "Attribute VB_Name"))
    return {FileKind::kComponent, ComponentType::kStdModule};
  if (!base::startsWithNoCase(first, "VERSION")) return {};
  if (first.find("CLASS") != std::string_view::npos)
    return {FileKind::kComponent, ComponentType::kClassModule};
  const std::size_t begin = bytes.find("\nBegin ");
  if (begin == std::string_view::npos) return {};
  for (const RootClass& root : kRoots)
    if (bytes.substr(begin + 1).starts_with(root.text)) return {FileKind::kComponent, root.type};
  return {};
}

bool isOpaque(ComponentType type) { return !traitsOf(type).hasCode; }

}  // namespace

FileNature natureOf(std::string_view path, std::string_view bytes) {
  const std::string ending = extension(path);
  if (ending == ".vbp") return {FileKind::kProject};
  if (ending == ".vbg") return {FileKind::kGroup};
  if (const auto type = typeOfExtension(ending)) return {FileKind::kComponent, *type};
  return natureByContent(bytes);
}

Opening::Opening(Workspace& workspace) : workspace_(workspace), finder_(workspace.paths()) {}

void Opening::report(const std::string& file, int line, std::string reason) {
  workspace_.report({file, line, std::move(reason)});
}

int Opening::recogniseNames(const std::string& path, const std::vector<std::string>& names) {
  const int page = workspace_.recogniseNames(path, names);
  finder_.forget();
  return page;
}

std::vector<std::shared_ptr<Project>> Opening::open(const std::string& path) {
  if (auto known = workspace_.findProjectFile(path)) {
    report(path, 0, "the project is open already");
    return {known};
  }
  for (const auto& group : workspace_.groups()) {
    if (group->file().path() != path) continue;
    report(path, 0, "the group is open already");
    return group->openProjects();
  }
  workspace_.leavePage();
  platform::ReadFile file = workspace_.files().read(path);
  std::vector<std::shared_ptr<Project>> opened;
  switch (natureOf(path, file.content->bytes()).kind) {
    case FileKind::kGroup:
      return openGroup(path, std::move(file));
    case FileKind::kProject:
      opened.push_back(openProject(path, std::move(file)));
      break;
    case FileKind::kComponent:
      opened.push_back(openAlone(path, std::move(file)));
      break;
    case FileKind::kOther:
      throw base::Error(errors::kInvalidFormat, path + ": is no project and no component of one");
  }
  activate(opened.back());
  return opened;
}

void Opening::activate(const std::shared_ptr<Project>& project) {
  if (project->isClosed()) return;
  workspace_.putInFront(project);
  failures_.guard([&] {
    workspace_.events().projects.raise(&frame::VBProjectsHandlers::ItemActivated, project.get(), nullptr,
                                       project);
  });
}

// ---- groups

std::vector<std::shared_ptr<Project>> Opening::openGroup(const std::string& path, platform::ReadFile file) {
  const auto content = file.content;
  auto group =
      std::make_unique<Group>(ProjectFile::parse(content, content->bytes()), DiskFile(path, std::move(file)));
  sharing_ = true;
  std::vector<std::string> names;
  for (const ProjectEntry& entry : group->text().entries())
    if (base::equalNoCase(entry.key, "Project")) names.emplace_back(withoutMarks(entry.value));
  recogniseNames(path, names);
  std::vector<std::shared_ptr<Project>> opened;
  std::string startup;
  const std::string folder(folderOf(path));
  for (const ProjectEntry& entry : group->text().entries()) {
    const bool isStartup = base::equalNoCase(entry.key, "StartupProject");
    if (!isStartup && !base::equalNoCase(entry.key, "Project")) continue;
    if (isStartup) startup = finder_.find(folder, withoutMarks(entry.value)).path;
    if (auto project = openGroupLine(*group, entry, startup)) opened.push_back(std::move(project));
  }
  const auto first = std::find_if(opened.begin(), opened.end(),
                                  [&](const auto& project) { return project->file().path() == startup; });
  workspace_.groups().push_back(std::move(group));
  if (!opened.empty()) activate(first != opened.end() ? *first : opened.front());
  return opened;
}

// The project of a line; nothing when it cannot be opened or another line named it. The start-up project may
// have two lines.
std::shared_ptr<Project> Opening::openGroupLine(Group& group, const ProjectEntry& entry,
                                                const std::string& startup) {
  const std::string& groupPath = group.file().path();
  const Place place = finder_.find(std::string(folderOf(groupPath)), withoutMarks(entry.value));
  const auto skip = [&](std::string reason) {
    report(groupPath, entry.number, std::move(reason));
    return nullptr;
  };
  const std::string shown = workspace_.paths().shown(withoutMarks(entry.value));
  if (place.kind == PlaceKind::kMissing)
    return skip(workspace_.paths().notFound("project file", withoutMarks(entry.value)));
  if (place.kind == PlaceKind::kFolder) return skip("is a folder, not a project: " + shown);
  if (auto known = workspace_.findProjectFile(place.path)) {
    const std::size_t lines = group.linesOf(*known);
    group.add(entry.id, known);
    if (lines == 0) report(groupPath, entry.number, "the project is open already: " + shown);
    if (lines > (place.path == startup ? 1 : 0))
      report(groupPath, entry.number, "the project is named twice: " + shown);
    return lines > 0 ? nullptr : known;
  }
  try {
    platform::ReadFile file = workspace_.files().read(place.path);
    if (natureOf(place.path, file.content->bytes()).kind != FileKind::kProject)
      return skip("is no project: " + shown);
    auto project = openProject(place.path, std::move(file));
    group.add(entry.id, project);
    return project;
  } catch (const base::Error& error) {
    return skip("cannot be read: " + error.description());
  }
}

// ---- projects

std::shared_ptr<Project> Opening::openProject(const std::string& path, platform::ReadFile file) {
  const auto content = file.content;
  if (const std::string reason = whyNotProject(content->bytes()); !reason.empty())
    throw base::Error(errors::kInvalidFormat, path + ": " + reason);
  auto text = ProjectFile::parse(content, content->bytes());
  const int page = recogniseNames(path, componentFiles(text));
  auto project = std::make_shared<Project>(workspace_.weak_from_this(), std::move(text),
                                           DiskFile(path, std::move(file)));
  if (!base::startsWithNoCase(firstLine(content->bytes()), "Type="))
    report(path, 1, "the first line does not tell the project's type; taken as a standard program");
  const auto& others = workspace_.projects();
  if (std::any_of(others.begin(), others.end(),
                  [&](const auto& other) { return base::equalNoCase(other->name(), project->name()); }))
    report(path, 0, "another open project has the name " + workspace_.paths().shown(project->name()));
  workspace_.addProject(project);
  announce(project, path);
  evidence_ = {};
  evidence_.add(content->bytes());
  loadComponents(project);
  if (page == 0 && !project->isClosed()) workspace_.recogniseText(*project, evidence_.page());
  if (!project->isClosed())
    failures_.guard([&] {
      workspace_.events().projects.raise(&frame::VBProjectsHandlers::ItemAdded, project.get(), nullptr,
                                         project);
    });
  return project;
}

// A component's file by itself: in a project that has no file and gets none.
std::shared_ptr<Project> Opening::openAlone(const std::string& path, platform::ReadFile file) {
  const ComponentType type = natureOf(path, file.content->bytes()).type;
  ProjectFile text = ProjectFile::create(frame::ProjectType::kStandardExe, workspace_.freeProjectName());
  auto project = std::make_shared<Project>(workspace_.weak_from_this(), std::move(text), DiskFile(), true);
  const std::string name = workspace_.paths().nameToHost(baseName(path));
  evidence_ = {};
  evidence_.add(file.content->bytes());
  const auto component = isOpaque(type)
                             ? Component::opaque(project, type, kNoLine, DiskFile(path), name)
                             : Component::read(project, type, kNoLine, DiskFile(path, std::move(file)), name,
                                               workspace_.problemList());
  workspace_.addProject(project);
  announce(project, path);
  project->addWithLine(component);
  project->text().markSaved();
  workspace_.recogniseText(*project, evidence_.page());
  added(project, component);
  failures_.guard([&] {
    workspace_.events().projects.raise(&frame::VBProjectsHandlers::ItemAdded, project.get(), nullptr,
                                       project);
  });
  return project;
}

void Opening::loadComponents(const std::shared_ptr<Project>& project) {
  std::vector<Listed> lines;
  for (const ProjectEntry& entry : project->text().entries()) {
    const auto type = componentTypeOf(entry.key);
    if (!type) continue;
    const ComponentLine parts = componentLine(entry);
    lines.push_back({entry.id, entry.number, *type, std::string(parts.name), std::string(parts.file)});
  }
  Seen seen;
  for (const Listed& listed : lines) {
    if (project->isClosed()) return;
    loadComponent(project, listed, seen);
  }
}

std::string Opening::locate(const Project& project, const Listed& listed) {
  const auto fail = [&](const std::string& reason) {
    report(project.path(), listed.number, reason);
    return std::string();
  };
  if (listed.file.empty()) return fail("the line names no file");
  Place place = finder_.find(project.folder(), listed.file);
  if (place.kind == PlaceKind::kMissing) return fail(workspace_.paths().notFound("file", listed.file));
  if (place.kind == PlaceKind::kFolder)
    return fail("is a folder, not a file: " + workspace_.paths().shown(listed.file));
  return std::move(place.path);
}

void Opening::loadComponent(const std::shared_ptr<Project>& project, const Listed& listed, Seen& seen) {
  const std::string path = locate(*project, listed);
  if (path.empty()) return;
  if (!seen.files.insert(path).second)
    return report(project->path(), listed.number,
                  "the file is named twice: " + workspace_.paths().shown(listed.file));
  announce(project, path);
  const auto component = readComponent(project, listed, path);
  if (component == nullptr) return;
  announceFiles(project, *component);
  if (component->hasSource() && !seen.names.insert(component->name()).second)
    report(path, 0,
           "another component of the project has the name " + workspace_.paths().shown(component->name()));
  project->append(component);
  added(project, component);
}

std::shared_ptr<Component> Opening::readComponent(const std::shared_ptr<Project>& project,
                                                  const Listed& listed, const std::string& path) {
  const std::string_view hostName = workspace_.paths().fileNameIn(listed.file);
  if (isOpaque(listed.type))
    return Component::opaque(project, listed.type, listed.id, DiskFile(path), hostName);
  try {
    platform::ReadFile file;
    if (const auto known = shared_.find(path); known != shared_.end()) {
      file = known->second;
    } else {
      file = workspace_.files().read(path);
      if (sharing_) shared_.emplace(path, file);
    }
    const std::string_view name =
        listed.name.empty() ? hostName.substr(0, hostName.rfind('.')) : std::string_view(listed.name);
    const auto bytes = file.content;
    auto component = Component::read(project, listed.type, listed.id, DiskFile(path, std::move(file)), name,
                                     workspace_.problemList());
    evidence_.add(bytes->bytes());
    if (workspace_.paths().codePage().number() == base::CodePage::kUtf8 && !base::isUtf8(bytes->bytes())) {
      component->setReadOnly(true);
      report(path, 0,
             "is not UTF-8, as the names of the project are; it is not changed (--code-page tells the code "
             "page)");
    }
    return component;
  } catch (const base::Error& error) {
    report(project->path(), listed.number, "cannot be read: " + error.description());
    return nullptr;
  }
}

// ---- events

void Opening::announce(const std::shared_ptr<Project>& project, const std::string& path) {
  if (!workspace_.events().files.connected()) return;
  const std::string shown = workspace_.paths().toHost(path);
  failures_.guard([&] {
    workspace_.events().files.raise(&frame::FileControlHandlers::BeforeLoadFile, project.get(), nullptr,
                                    project, shown);
  });
}

void Opening::announceFiles(const std::shared_ptr<Project>& project, Component& component) {
  if (!component.hasSource() || !workspace_.events().files.connected()) return;
  for (const Component::Companion& companion : component.companions()) announce(project, companion.path);
}

void Opening::added(const std::shared_ptr<Project>& project, const std::shared_ptr<Component>& component) {
  EventHub& events = workspace_.events();
  failures_.guard([&] {
    events.components.raise(&frame::VBComponentsHandlers::ItemAdded, project.get(), component.get(),
                            component);
  });
  if (component->isRemoved() || !events.files.connected()) return;
  const std::string shown = workspace_.paths().toHost(component->file().path());
  failures_.guard([&] {
    events.files.raise(&frame::FileControlHandlers::AfterAddFile, project.get(), nullptr, project, shown);
  });
}

}  // namespace kolvane::workspace
