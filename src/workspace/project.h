// A project: its file, kept line by line, and its components in the order of that file.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workspace/component.h"
#include "workspace/disk_file.h"
#include "workspace/project_file.h"

namespace kolvane::workspace {

class Workspace;

// Why a project in the page cannot be written: "is in code page 932, …".
std::string unwritableReason(int page);

// Members of a project that was closed raise 91.
class Project final : public frame::VBProject, public std::enable_shared_from_this<Project> {
 public:
  // A project that has no file, and needs none, when `keepsNoFile`: it holds components that were opened by
  // themselves.
  Project(std::weak_ptr<Workspace> workspace, ProjectFile text, DiskFile file, bool keepsNoFile = false);

  // ---- frame::VBProject
  std::string Name() override;
  void setName(std::string_view name) override;
  std::string FileName() override;
  std::string BuildFileName() override;
  std::string Description() override;
  std::string HelpFile() override;
  frame::ProjectType Type() override;
  bool IsDirty() override;
  std::shared_ptr<frame::Collection<frame::Reference>> References() override;
  std::shared_ptr<frame::VBComponents> VBComponents() override;
  std::shared_ptr<frame::VBE> VBE() override;
  // Writes the project's file and the components that have none yet; see Workspace::saveProject for all of
  // it.
  void SaveAs(const std::string& path) override;
  std::string ReadProperty(std::string_view section, std::string_view key) override;
  void WriteProperty(std::string_view section, std::string_view key, std::string_view value) override;

  // ---- for the workspace; these do not ask whether the project is still open
  const std::string& name() const { return name_; }
  ProjectFile& text() { return text_; }
  const ProjectFile& text() const { return text_; }
  DiskFile& file() { return file_; }
  const DiskFile& file() const { return file_; }
  // The system's; both empty without a file.
  const std::string& path() const { return file_.path(); }
  std::string folder() const;
  bool keepsNoFile() const { return keepsNoFile_; }
  bool isClosed() const { return closed_; }
  // Raises 91 when the project was closed.
  std::shared_ptr<Workspace> workspace() const;

  const std::vector<std::shared_ptr<Component>>& components() const { return components_; }
  // The first component of the name; nothing without one.
  std::shared_ptr<Component> find(std::string_view name) const;
  std::shared_ptr<Component> findFile(const std::string& systemPath) const;
  // Puts a component behind the others, as its line stands behind theirs.
  void append(const std::shared_ptr<Component>& component) { components_.push_back(component); }
  // Puts a component where its line stands among those of the others.
  void insert(const std::shared_ptr<Component>& component);
  // Gives a component that has none a line in the project file, and puts it in.
  void addWithLine(const std::shared_ptr<Component>& component);
  void take(const std::shared_ptr<Component>& component);
  // What a line says of the component's file: the way from the folder, or the name that a save would give it.
  std::string listedFile(const Component& component, const std::string& folder) const;
  void updateLine(const Component& component);

  // Raises 50132 for an illegal name and 32813 for one that another component, or the project, has.
  void checkName(std::string_view name, const Component* except) const;
  // "Module3" when 1 and 2 are taken.
  std::string freeName(std::string_view stem) const;
  // Puts the new name where the project's file holds the old one.
  void componentRenamed(const Component& component, std::string_view oldName);

  // The project's text is now what `file` holds.
  void written(DiskFile file);
  void setReadOnly(bool readOnly) { toldReadOnly_ = readOnly; }
  // Raises 70 when the host was told that the project cannot be written, or when it is in a page that is not.
  void requireWritable() const;
  // A double-byte page that the project's own text shows; the workspace may be in another one.
  void setOwnPage(int page) { ownPage_ = page; }
  // Projects in a double-byte page are read, not written: the tools that change code count bytes for characters. Its
  // number, 0 for all other projects.
  int unwritablePage() const;
  // The file to name when the project is spoken of: its own, or that of the component that was opened by itself.
  const std::string& place() const;
  // Raises 40198 for such a page.
  void requireWritablePage() const;
  // Makes all paths of the project's file lead, from the new folder, to where they lead now. Gives the lines
  // that it changed as they were, for restore().
  struct OldLine {
    LineId id;
    bool isComponent;
    std::string text;  // the component's file, or the line's value
  };
  using OldLines = std::vector<OldLine>;
  OldLines rebase(const std::string& newFolder);
  void restore(const OldLines& lines);
  // Ends the project and its components.
  void close();

 private:
  const Project& checked() const;
  std::string rebasedFile(const ProjectEntry& entry, const std::string& newFolder) const;
  std::string rebasedValue(const ProjectEntry& entry, const std::string& newFolder) const;
  std::string rebasedPath(std::string_view path, const std::string& newFolder) const;

  std::weak_ptr<Workspace> workspace_;
  ProjectFile text_;
  DiskFile file_;
  std::string name_;
  std::vector<std::shared_ptr<Component>> components_;
  std::shared_ptr<frame::VBComponents> list_;
  bool keepsNoFile_;
  int ownPage_ = 0;
  bool toldReadOnly_ = false;
  bool closed_ = false;
};

}  // namespace kolvane::workspace
