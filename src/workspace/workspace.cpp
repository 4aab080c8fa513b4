#include "workspace/workspace.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "workspace/module.h"
#include "workspace/opening.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;
using frame::ComponentType;
using frame::WindowType;

// What a new project of each frame::ProjectType holds.
constexpr std::array kFirstComponents = {ComponentType::kVBForm, ComponentType::kClassModule,
                                         ComponentType::kClassModule, ComponentType::kUserControl};

std::shared_ptr<Component> own(const std::shared_ptr<frame::VBComponent>& component) {
  auto mine = std::dynamic_pointer_cast<Component>(component);
  if (mine == nullptr || mine->isRemoved()) throw base::Error(errors::kObjectNotSet);
  return mine;
}

std::shared_ptr<Project> own(const std::shared_ptr<frame::VBProject>& project) {
  auto mine = std::dynamic_pointer_cast<Project>(project);
  if (mine == nullptr || mine->isClosed()) throw base::Error(errors::kObjectNotSet);
  return mine;
}

class ProjectList final : public frame::VBProjects {
 public:
  explicit ProjectList(std::weak_ptr<Workspace> workspace) : workspace_(std::move(workspace)) {}

  int Count() override { return static_cast<int>(workspace()->projects().size()); }
  std::shared_ptr<frame::VBProject> Item(int index) override {
    const auto owner = workspace();
    if (index < 1 || static_cast<std::size_t>(index) > owner->projects().size())
      throw base::Error(errors::kSubscript);
    return owner->projects()[static_cast<std::size_t>(index) - 1];
  }
  std::shared_ptr<frame::VBProject> Item(std::string_view name) override {
    for (const auto& project : workspace()->projects())
      if (base::equalNoCase(project->name(), name)) return project;
    throw base::Error(errors::kSubscript);
  }
  std::shared_ptr<frame::VBProject> Add(frame::ProjectType type) override {
    return workspace()->newProject(type);
  }
  std::vector<std::shared_ptr<frame::VBProject>> AddFromFile(const std::string& path) override {
    const auto owner = workspace();
    auto added = owner->open(path);
    for (const auto& project : added)
      if (const auto mine = std::dynamic_pointer_cast<Project>(project); mine && !mine->isClosed())
        owner->joinGroup(mine);
    return added;
  }
  void Remove(const std::shared_ptr<frame::VBProject>& project) override {
    workspace()->closeProject(project);
  }

 private:
  std::shared_ptr<Workspace> workspace() const {
    auto owner = workspace_.lock();
    if (owner == nullptr) throw base::Error(errors::kObjectNotSet);
    return owner;
  }
  std::weak_ptr<Workspace> workspace_;
};

}  // namespace

// ---- life

Workspace::Workspace(platform::Files& files, platform::Clipboard& clipboard, const base::CodePage& codePage)
    : paths_(files, codePage),
      events_(std::make_shared<EventHub>()),
      bars_(Bars::create(clipboard)),
      windows_(std::make_shared<WindowList>()) {}

std::shared_ptr<Workspace> Workspace::create(platform::Files& files, platform::Clipboard& clipboard,
                                             const base::CodePage& codePage) {
  std::shared_ptr<Workspace> workspace(new Workspace(files, clipboard, codePage));
  workspace->projectList_ = std::make_shared<ProjectList>(workspace);
  workspace->addFixedWindows();
  return workspace;
}

Workspace::~Workspace() {
  for (const auto& project : projects_) project->close();
  windows_->clear();
  bars_->drop();
}

// ---- projects

std::shared_ptr<Project> Workspace::findProjectFile(const std::string& systemPath) const {
  const auto found = std::find_if(projects_.begin(), projects_.end(),
                                  [&](const auto& project) { return project->path() == systemPath; });
  return found == projects_.end() ? nullptr : *found;
}

std::string Workspace::freeProjectName() const {
  for (int number = 1;; ++number) {
    std::string name = "Project" + std::to_string(number);
    if (std::none_of(projects_.begin(), projects_.end(),
                     [&](const auto& project) { return base::equalNoCase(project->name(), name); }))
      return name;
  }
}

void Workspace::addProject(const std::shared_ptr<Project>& project) {
  projects_.push_back(project);
  putInFront(project);
}

void Workspace::putInFront(const std::shared_ptr<Project>& project) {
  active_ = project;
  selected_.reset();
}

void Workspace::setActiveVBProject(const ProjectPtr& project) {
  const auto mine = own(project);
  if (mine == active_) return;
  putInFront(mine);
  events_->projects.raise(&frame::VBProjectsHandlers::ItemActivated, mine.get(), nullptr, mine);
}

std::vector<Workspace::ProjectPtr> Workspace::open(const std::string& path) {
  Opening opening(*this);
  const auto opened = opening.open(paths_.toSystem(path));
  opening.finish();
  return {opened.begin(), opened.end()};
}

Workspace::ProjectPtr Workspace::newProject(frame::ProjectType type, std::string_view name) {
  const std::string title = name.empty() ? freeProjectName() : std::string(name);
  if (!isLegalName(title)) throw base::Error(errors::kNotALegalName);
  for (const auto& other : projects_)
    if (base::equalNoCase(other->name(), title)) throw base::Error(errors::kNameConflict);
  const auto project =
      std::make_shared<Project>(weak_from_this(), ProjectFile::create(type, title), DiskFile());
  const ComponentType first = kFirstComponents.at(static_cast<std::size_t>(type));
  const std::string_view code = requiresDeclaration_ ? kNewCode : std::string_view();
  const auto component = Component::create(project, first, project->freeName(traitsOf(first).stem), code);
  addProject(project);
  project->addWithLine(component);
  if (type == frame::ProjectType::kStandardExe) project->text().setValue("Startup", component->name());
  project->text().markSaved();
  HandlerFailures failures;
  failures.guard([&] {
    events_->components.raise(&frame::VBComponentsHandlers::ItemAdded, project.get(), component.get(),
                              component);
  });
  failures.guard([&] { show(component, component->mainWindow()); });
  failures.guard([&] {
    events_->projects.raise(&frame::VBProjectsHandlers::ItemAdded, project.get(), nullptr, project);
  });
  failures.guard([&] {
    events_->projects.raise(&frame::VBProjectsHandlers::ItemActivated, project.get(), nullptr, project);
  });
  joinGroup(project);
  failures.rethrow();
  return project;
}

void Workspace::closeProject(const ProjectPtr& project) {
  const auto mine = own(project);
  HandlerFailures failures;
  failures.guard(
      [&] { events_->projects.raise(&frame::VBProjectsHandlers::ItemRemoved, mine.get(), nullptr, mine); });
  mine->close();
  std::erase(projects_, mine);
  // A group ends with its last project; that is no change of its file.
  std::erase_if(groups_,
                [&](const auto& group) { return group->holds(*mine) && group->openProjects().empty(); });
  if (active_ == mine) {
    putInFront(projects_.empty() ? nullptr : projects_.front());
    failures.guard([&] { selectFront(); });
  }
  failures.rethrow();
}

// With one group open a project that is added belongs to it; with several nobody could tell to which.
void Workspace::joinGroup(const std::shared_ptr<Project>& project) {
  if (groups_.size() == 1 && !project->keepsNoFile() && !groups_.front()->holds(*project))
    groups_.front()->add(kNoLine, project);
}

// ---- code pages

namespace {

bool usesLetters(const Project& project) {
  return !base::isAscii(project.text().bytes()) ||
         std::ranges::any_of(project.components(),
                             [](const auto& each) { return !base::isAscii(each->file().bytes()); });
}

std::string pageText(const base::CodePage& page) {
  return page.number() == base::CodePage::kUtf8 ? "UTF-8" : "code page " + std::to_string(page.number());
}

}  // namespace

bool Workspace::pageIsNeeded(const Project* asking) const {
  return std::ranges::any_of(
      projects_, [&](const auto& project) { return project.get() != asking && usesLetters(*project); });
}

bool Workspace::takePage(const std::string& path, const base::CodePage& page, const Project* asking,
                         std::string_view sign) {
  if (page.number() != paths_.codePage().number()) {
    if (pageIsNeeded(asking)) return false;
    *recognition_.inUse = page;
  }
  if (page.number() != recognition_.given)
    notes_.push_back({path, 0, "read in " + pageText(page) + ", as " + std::string(sign) + " shows"});
  return true;
}

void Workspace::leavePage() {
  if (recognition_.known != nullptr && !pageIsNeeded(nullptr))
    *recognition_.inUse = recognition_.known->get(recognition_.given);
}

int Workspace::recogniseNames(const std::string& systemPath, const std::vector<std::string>& names) {
  if (recognition_.known == nullptr) return 0;
  const std::string folder(folderOf(systemPath));
  const PageByNames found = pageByNames(files(), *recognition_.known, paths_.codePage(), folder, names);
  if (!found.alike.empty()) {
    std::string pages;
    for (const int page : found.alike) pages += (pages.empty() ? "" : " and ") + std::to_string(page);
    report(
        {systemPath, 0, "its file names fit code pages " + pages + " alike; --code-page tells which it is"});
  }
  if (found.page == nullptr) return 0;
  if (!takePage(systemPath, *found.page, nullptr, "a file name"))
    throw base::Error(errors::kInvalidFormat, systemPath + ": its file names are in " +
                                                  pageText(*found.page) + ", and a project in " +
                                                  pageText(paths_.codePage()) +
                                                  " is open; it needs a run of its own");
  return found.page->number();
}

void Workspace::recogniseText(Project& project, int page) {
  if (page == 0 || recognition_.known == nullptr || paths_.codePage().isDoubleByte()) return;
  project.setOwnPage(page);
  const std::vector<int> known = recognition_.known->numbers();
  const std::string& place = project.place();
  if (std::ranges::find(known, page) == known.end() ||
      !takePage(place, recognition_.known->get(page), &project, "its text"))
    notes_.push_back({place, 0, "is in code page " + std::to_string(page) + ", as its text shows"});
}

// ---- components

Workspace::ComponentPtr Workspace::addComponent(const ProjectPtr& project, ComponentType type,
                                                std::string_view name, std::optional<std::string_view> code) {
  const auto owner = own(project);
  owner->requireWritablePage();
  const ComponentTraits& traits = traitsOf(type);
  if (!traits.isNew) throw base::Error(errors::kInvalidCall, "A component of this kind cannot be made anew");
  const std::string title = name.empty() ? owner->freeName(traits.stem) : std::string(name);
  owner->checkName(title, nullptr);
  const std::string_view text = code ? *code : requiresDeclaration_ ? kNewCode : std::string_view();
  const auto component = Component::create(owner, type, title, text);
  component->markDirty();
  owner->addWithLine(component);
  HandlerFailures failures;
  failures.guard([&] {
    events_->components.raise(&frame::VBComponentsHandlers::ItemAdded, owner.get(), component.get(),
                              component);
  });
  if (!component->isRemoved()) failures.guard([&] { show(component, component->mainWindow()); });
  failures.rethrow();
  return component;
}

Workspace::ComponentPtr Workspace::addFile(const ProjectPtr& project, const std::string& path,
                                           bool relatedDocument) {
  const auto owner = own(project);
  owner->requireWritablePage();
  const std::string place = paths_.toSystem(path);
  if (!files().stamp(place)) throw base::Error(errors::kPathNotFound, place + ": not found");
  if (owner->findFile(place) != nullptr)
    throw base::Error(errors::kNameConflict, place + ": is in the project already");
  platform::ReadFile file = files().read(place);
  FileNature nature = natureOf(place, file.content->bytes());
  if (relatedDocument) nature = {FileKind::kComponent, ComponentType::kRelatedDocument};
  if (nature.kind != FileKind::kComponent)
    throw base::Error(errors::kInvalidFormat, place + ": is no component of a project");
  const std::string name = paths_.nameToHost(fileName(place));
  std::shared_ptr<Component> component;
  if (traitsOf(nature.type).hasCode) {
    component = Component::read(owner, nature.type, kNoLine, DiskFile(place, std::move(file)), baseName(name),
                                problems_);
    owner->checkName(component->name(), nullptr);
  } else {
    component = Component::opaque(owner, nature.type, kNoLine, DiskFile(place), name);
  }
  owner->addWithLine(component);
  const std::string shown = paths_.toHost(place);
  HandlerFailures failures;
  failures.guard([&] {
    events_->components.raise(&frame::VBComponentsHandlers::ItemAdded, owner.get(), component.get(),
                              component);
  });
  failures.guard([&] {
    events_->files.raise(&frame::FileControlHandlers::AfterAddFile, owner.get(), nullptr, owner, shown);
  });
  if (!component->isRemoved()) failures.guard([&] { show(component, component->mainWindow()); });
  failures.rethrow();
  return component;
}

void Workspace::removeComponent(const ComponentPtr& component) {
  const auto mine = own(component);
  const auto project = mine->project();
  const std::string shown = mine->file().hasPath() ? paths_.toHost(mine->file().path()) : std::string();
  HandlerFailures failures;
  failures.guard([&] {
    events_->components.raise(&frame::VBComponentsHandlers::ItemRemoved, project.get(), mine.get(), mine);
  });
  if (mine->isRemoved()) return failures.rethrow();
  project->take(mine);
  mine->remove();
  if (selected_ == mine) {
    selected_.reset();
    failures.guard([&] { selectFront(); });
  }
  if (!shown.empty())
    failures.guard([&] {
      events_->files.raise(&frame::FileControlHandlers::AfterRemoveFile, project.get(), nullptr, project,
                           shown);
    });
  failures.rethrow();
}

void Workspace::reload(const ComponentPtr& component) { own(component)->Reload(); }

void Workspace::setText(const ComponentPtr& component, std::string_view text) {
  const auto mine = own(component);
  if (!mine->hasSource()) throw base::Error(errors::kNotAvailable);
  mine->setCode(text);
}

std::vector<ProcedureInfo> Workspace::procedures(const ComponentPtr& component) {
  const auto mine = own(component);
  return mine->hasSource() ? mine->code().procedures() : std::vector<ProcedureInfo>();
}

void Workspace::setReadOnly(const ComponentPtr& component, bool readOnly) {
  own(component)->setReadOnly(readOnly);
}

void Workspace::setReadOnly(const ProjectPtr& project, bool readOnly) { own(project)->setReadOnly(readOnly); }

// ---- selecting and showing

void Workspace::select(const ComponentPtr& component) {
  if (component == nullptr) {
    selected_.reset();
  } else {
    selectComponent(own(component));
  }
}

void Workspace::selectComponent(const std::shared_ptr<Component>& component) {
  const auto project = component->project();
  setActiveVBProject(project);
  if (selected_ == component) return;
  selected_ = component;
  events_->components.raise(&frame::VBComponentsHandlers::ItemSelected, project.get(), component.get(),
                            component);
}

void Workspace::show(const std::shared_ptr<Component>& component, WindowType type) {
  selectComponent(component);
  if (component->isRemoved() || !component->hasSource()) return;
  ++shows_;
  const auto window = component->window(type);
  if (windows_->front() == window) return;
  windows_->bringToFront(window);
  events_->components.raise(&frame::VBComponentsHandlers::ItemActivated, component->project().get(),
                            component.get(), component);
}

void Workspace::uncovered(const std::shared_ptr<Component>& component, WindowType type) {
  selectComponent(component);
  if (component->isRemoved() || windows_->front() != component->window(type)) return;
  events_->components.raise(&frame::VBComponentsHandlers::ItemActivated, component->project().get(),
                            component.get(), component);
}

// What was selected has gone with its windows: the one that is in front now counts, if it is a component's.
void Workspace::selectFront() {
  if (const auto front = windows_->front()) front->uncover();
}

std::shared_ptr<frame::CodePane> Workspace::openCode(const ComponentPtr& component) {
  const auto mine = own(component);
  if (!mine->hasSource()) throw base::Error(errors::kNotAvailable, mine->name() + " has no code");
  show(mine, WindowType::kCodeWindow);
  return mine->pane();
}

void Workspace::activate(const ComponentPtr& component) {
  const auto mine = own(component);
  show(mine, mine->mainWindow());
}

std::shared_ptr<frame::CodePane> Workspace::ActiveCodePane() {
  const auto window = windows_->front([](WindowType type) { return type == WindowType::kCodeWindow; });
  if (window == nullptr) return nullptr;
  for (const auto& project : projects_)
    for (const auto& component : project->components())
      if (component->hasWindow(window)) return component->pane();
  return nullptr;
}

void Workspace::click(const std::shared_ptr<frame::CommandBarControl>& control) {
  const auto mine = std::dynamic_pointer_cast<BarControl>(control);
  if (mine == nullptr) throw base::Error(errors::kObjectNotSet);
  mine->click();
}

void Workspace::enterRunMode() {
  events_->build.raise(&frame::VBBuildHandlers::EnterRunMode, nullptr, nullptr);
}

void Workspace::leaveRunMode() {
  events_->build.raise(&frame::VBBuildHandlers::EnterDesignMode, nullptr, nullptr);
}

// ---- windows

std::string Workspace::projectCaption() const {
  if (groups_.size() == 1)
    return "Project Group - " + paths_.nameToHost(baseName(groups_.front()->file().path()));
  return active_ ? "Project - " + active_->name() : "Project";
}

void Workspace::addFixedWindows() {
  struct Fixed {
    WindowType type;
    std::string_view caption;
    bool visible;
  };
  constexpr std::array kFixed = {
      Fixed{WindowType::kProjectWindow, "Project", true},
      Fixed{WindowType::kPropertyWindow, "Properties", true},
      Fixed{WindowType::kImmediate, "Immediate", true},
      Fixed{WindowType::kLocals, "Locals", false},
      Fixed{WindowType::kWatch, "Watches", false},
      Fixed{WindowType::kBrowser, "Object Browser", false},
      Fixed{WindowType::kPreview, "Form Layout", false},
      Fixed{WindowType::kColorPalette, "Color Palette", false},
      Fixed{WindowType::kToolbox, "Toolbox", false},
  };
  for (const Fixed& window : kFixed) {
    HostWindow::Traits traits;
    traits.type = window.type;
    if (window.type == WindowType::kProjectWindow) {
      traits.caption = [this] { return projectCaption(); };
    } else if (window.type == WindowType::kPropertyWindow) {
      traits.caption = [this] {
        return selected_ ? "Properties - " + selected_->name() : std::string("Properties");
      };
    } else {
      traits.caption = [text = std::string(window.caption)] { return text; };
    }
    windows_->add(std::move(traits), window.visible);
  }
}

// ---- saving

SaveResult Workspace::save(const ComponentPtr& component, SaveOptions options) {
  return Saving(*this, options).component(*own(component));
}

void Workspace::saveAs(const ComponentPtr& component, const std::string& path, SaveOptions options) {
  Saving(*this, options).componentAs(*own(component), paths_.toSystem(path));
}

SaveReport Workspace::saveProject(const ProjectPtr& project, SaveOptions options) {
  SaveReport report;
  Saving(*this, options).project(*own(project), report);
  return report;
}

void Workspace::saveProjectAs(const ProjectPtr& project, const std::string& path, SaveOptions options) {
  Saving(*this, options).projectFileAs(*own(project), paths_.toSystem(path));
}

SaveReport Workspace::saveAll(SaveOptions options) {
  SaveReport report;
  Saving saving(*this, options);
  for (const auto& project : std::vector(projects_)) saving.project(*project, report);
  for (const auto& group : groups_) saving.group(*group, report);
  return report;
}

std::string Workspace::pendingBytes(const ComponentPtr& component) { return own(component)->bytes(); }

void Workspace::forEachChangedFile(const std::function<void(FileChange change)>& visit) {
  visitPendingChanges(*this, visit);
}
std::vector<FileChange> Workspace::changedFiles() {
  std::vector<FileChange> changes;
  forEachChangedFile([&](FileChange change) { changes.push_back(std::move(change)); });
  return changes;
}

}  // namespace kolvane::workspace
