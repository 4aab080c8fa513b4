// The host over project files: opens, shows, edits and saves them, and is to the suite what the IDE is.
//
// Everything that a tool does goes through the classes of frame/host.h; the members here are what a user does
// at the host's own window: opening, saving, choosing. All of it runs on one thread.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "frame/host.h"
#include "platform/clipboard.h"
#include "platform/files.h"
#include "workspace/code_text.h"
#include "workspace/command_bars.h"
#include "workspace/component.h"
#include "workspace/events.h"
#include "workspace/group.h"
#include "workspace/page_recognition.h"
#include "workspace/paths.h"
#include "workspace/project.h"
#include "workspace/saving.h"
#include "workspace/windows.h"

namespace kolvane::workspace {

// What a new module holds: "Option Explicit" and an empty line, or nothing.
inline constexpr std::string_view kNewCode = "Option Explicit\r\n\r\n";

class Workspace final : public frame::VBE, public std::enable_shared_from_this<Workspace> {
 public:
  using ProjectPtr = std::shared_ptr<frame::VBProject>;
  using ComponentPtr = std::shared_ptr<frame::VBComponent>;

  // All three must outlive the workspace. Paths that are handed in may be the host's or the system's.
  static std::shared_ptr<Workspace> create(platform::Files& files, platform::Clipboard& clipboard,
                                           const base::CodePage& codePage);
  ~Workspace() override;

  // From now on a project whose files show that it is in another code page makes `inUse`, which must be the very
  // object given to create(), that page. A project that shows another page than those that are open is refused.
  // `known` must outlive the workspace.
  void recogniseCodePages(base::CodePage& inUse, const platform::CodePages& known) {
    recognition_ = {&inUse, &known, inUse.number()};
  }

  // ---- frame::VBE
  std::shared_ptr<frame::VBProjects> VBProjects() override { return projectList_; }
  std::shared_ptr<frame::CommandBars> CommandBars() override { return bars_; }
  std::shared_ptr<frame::Collection<frame::Window>> Windows() override { return windows_; }
  std::shared_ptr<frame::Events> Events() override { return events_; }
  ProjectPtr ActiveVBProject() override { return active_; }
  void setActiveVBProject(const ProjectPtr& project) override;
  ComponentPtr SelectedVBComponent() override { return selected_; }
  std::shared_ptr<frame::Window> ActiveWindow() override { return windows_->front(); }
  std::shared_ptr<frame::CodePane> ActiveCodePane() override;

  // ---- opening
  // Adds the projects of a .vbp or .vbg; any other file of a component opens as a project of its own without
  // a name on the disk. Raises what reading raises when the file itself cannot be read; what is wrong below
  // it becomes a line of problems(), and the rest opens. A project that is open already is given as it is.
  std::vector<ProjectPtr> open(const std::string& path);
  // "Project1" with "Form1" for a standard program, with a class or user control for the others. An empty
  // name stands for the first free one.
  ProjectPtr newProject(frame::ProjectType type = frame::ProjectType::kStandardExe,
                        std::string_view name = {});
  // Unsaved changes are dropped.
  void closeProject(const ProjectPtr& project);
  const std::vector<Problem>& problems() const { return problems_; }
  void clearProblems() { problems_.clear(); }
  // What a user should know of what was opened, though nothing is wrong: such as a code page that was recognised.
  std::vector<Problem> takeNotes() { return std::exchange(notes_, {}); }

  // ---- components
  // As a user adds one: it is listed, selected and opened. Without `code` it holds what a new module holds;
  // code that is given is taken as if it had been loaded.
  ComponentPtr addComponent(const ProjectPtr& project, frame::ComponentType type, std::string_view name = {},
                            std::optional<std::string_view> code = std::nullopt);
  // A missing file raises 76, one that cannot be a component 321, one that is in the project, or whose name
  // is, 32813.
  ComponentPtr addFile(const ProjectPtr& project, const std::string& path, bool relatedDocument = false);
  void removeComponent(const ComponentPtr& component);
  void reload(const ComponentPtr& component);
  // Replaces the code by text that is taken as it is. Raises 40198 for a module that cannot be edited.
  void setText(const ComponentPtr& component, std::string_view text);
  std::vector<ProcedureInfo> procedures(const ComponentPtr& component);
  void setReadOnly(const ComponentPtr& component, bool readOnly);
  void setReadOnly(const ProjectPtr& project, bool readOnly);
  // Whether new modules begin with "Option Explicit"; they do at first.
  void requireVariableDeclaration(bool required) { requiresDeclaration_ = required; }

  // ---- the project window and the others
  // Selects in the project window, without opening anything; nothing selects the project alone.
  void select(const ComponentPtr& component);
  // Opens the code window and makes it active.
  std::shared_ptr<frame::CodePane> openCode(const ComponentPtr& component);
  // Opens the designer, or the code window of a component without one.
  void activate(const ComponentPtr& component);
  // The handlers of the control, as a user's click.
  void click(const std::shared_ptr<frame::CommandBarControl>& control);
  void enterRunMode();
  void leaveRunMode();

  // ---- saving; see saving.h
  // Raises what keeps the file from being written. A component without a file gets its default name in the
  // project's folder.
  SaveResult save(const ComponentPtr& component, SaveOptions options = {});
  void saveAs(const ComponentPtr& component, const std::string& path, SaveOptions options = {});
  // All that has changed in the project; what cannot be written is told, and the rest is.
  SaveReport saveProject(const ProjectPtr& project, SaveOptions options = {});
  void saveProjectAs(const ProjectPtr& project, const std::string& path, SaveOptions options = {});
  SaveReport saveAll(SaveOptions options = {});
  // The bytes that a save would give the file.
  std::string pendingBytes(const ComponentPtr& component);
  // Every file that saveAll would write when nothing stands in its way, and none else; one at a time, so that a
  // large project's texts need not stand in memory together.
  void forEachChangedFile(const std::function<void(FileChange change)>& visit);
  std::vector<FileChange> changedFiles();

  // ---- for the classes of this folder
  platform::Files& files() { return paths_.files(); }
  Paths& paths() { return paths_; }
  EventHub& events() { return *events_; }
  WindowList& windowList() { return *windows_; }
  const std::vector<std::shared_ptr<Project>>& projects() const { return projects_; }
  std::vector<std::unique_ptr<Group>>& groups() { return groups_; }
  std::shared_ptr<Project> findProjectFile(const std::string& systemPath) const;
  void addProject(const std::shared_ptr<Project>& project);
  std::string freeProjectName() const;
  // Makes a project the active one without telling anybody.
  void putInFront(const std::shared_ptr<Project>& project);
  void report(Problem problem) { problems_.push_back(std::move(problem)); }
  std::vector<Problem>& problemList() { return problems_; }
  // Back to the page that was given, when no open project needs the one in use.
  void leavePage();
  // Goes over to the page in which the names that the project or group at the path uses are those of files. Gives its
  // number, 0 when the names tell nothing. Raises 321 when projects in another page are open.
  int recogniseNames(const std::string& systemPath, const std::vector<std::string>& names);
  // The same for a project that was read, by the page that its text shows; the page may stay when others are open.
  void recogniseText(Project& project, int page);
  void show(const std::shared_ptr<Component>& component, frame::WindowType type);
  // How often a component's window was shown, one that stood in front already included.
  unsigned shows() const { return shows_; }
  // The window has come to the front because another was closed.
  void uncovered(const std::shared_ptr<Component>& component, frame::WindowType type);
  // Adds a project that a user adds to the group that is open.
  void joinGroup(const std::shared_ptr<Project>& project);

 private:
  Workspace(platform::Files& files, platform::Clipboard& clipboard, const base::CodePage& codePage);
  bool pageIsNeeded(const Project* asking) const;
  bool takePage(const std::string& path, const base::CodePage& page, const Project* asking,
                std::string_view sign);
  void addFixedWindows();
  std::string projectCaption() const;
  void selectComponent(const std::shared_ptr<Component>& component);
  void selectFront();

  Paths paths_;
  std::shared_ptr<EventHub> events_;
  std::shared_ptr<Bars> bars_;
  std::shared_ptr<WindowList> windows_;
  std::shared_ptr<frame::VBProjects> projectList_;
  std::vector<std::shared_ptr<Project>> projects_;
  std::vector<std::unique_ptr<Group>> groups_;
  std::shared_ptr<Project> active_;
  std::shared_ptr<Component> selected_;
  std::vector<Problem> problems_;
  std::vector<Problem> notes_;
  struct Recognition {
    base::CodePage* inUse = nullptr;
    const platform::CodePages* known = nullptr;
    int given = base::CodePage::kDefault;  // for projects that show none
  };
  Recognition recognition_;
  bool requiresDeclaration_ = true;
  unsigned shows_ = 0;
};

}  // namespace kolvane::workspace
