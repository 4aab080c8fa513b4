// A component of a project: its file, the header in front of its code, the code, and what the host shows of
// it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workspace/code_text.h"
#include "workspace/component_source.h"
#include "workspace/designer_host.h"
#include "workspace/disk_file.h"
#include "workspace/project_file.h"
#include "workspace/windows.h"

namespace kolvane::workspace {

class Module;
class Pane;
class Project;
class Workspace;

// Code is read into lines at its first use, a designer at its first use. Members of a component that was
// removed, or whose project was closed, raise 91.
class Component final : public frame::VBComponent, public std::enable_shared_from_this<Component> {
 public:
  // A component of the kind that `type` and its file say. `listedName` is used when the file holds no name. Raises 321
  // for a file of a designer in which none begins.
  static std::shared_ptr<Component> read(std::weak_ptr<Project> project, frame::ComponentType type,
                                         LineId line, DiskFile file, std::string_view listedName,
                                         std::vector<Problem>& problems);
  // A resource file or related document: a file that is never opened.
  static std::shared_ptr<Component> opaque(std::weak_ptr<Project> project, frame::ComponentType type,
                                           LineId line, DiskFile file, std::string_view name);
  // One that has no file yet; `code` is taken as if it had been loaded.
  static std::shared_ptr<Component> create(std::weak_ptr<Project> project, frame::ComponentType type,
                                           std::string_view name, std::string_view code);
  ~Component() override;

  // ---- frame::VBComponent
  std::string Name() override;
  void setName(std::string_view name) override;
  frame::ComponentType Type() override;
  std::string Description() override;
  int FileCount() override;
  std::string FileNames(int index) override;
  bool Saved() override;
  std::shared_ptr<frame::CodeModule> CodeModule() override;
  std::shared_ptr<frame::VBForm> Designer() override;
  std::shared_ptr<frame::Properties> Properties() override;
  std::shared_ptr<frame::VBProject> VBProject() override;
  void Activate() override;
  void Reload() override;
  void SaveAs(const std::string& path) override;
  // The file has no place for a section: the key alone counts.
  std::string ReadProperty(std::string_view section, std::string_view key) override;
  void WriteProperty(std::string_view section, std::string_view key, std::string_view value) override;

  // ---- for the workspace; these do not ask whether the component is still there
  const std::string& name() const { return name_; }
  frame::ComponentType type() const { return type_; }
  LineId line() const { return line_; }
  void setLine(LineId line) { line_ = line; }
  const DiskFile& file() const { return file_; }
  bool hasSource() const { return header_ != nullptr; }
  ComponentHeader& header() { return *header_; }
  CodeText& code();
  const std::shared_ptr<Module>& module() const { return module_; }
  const std::shared_ptr<Pane>& pane() const { return pane_; }
  bool isRemoved() const { return removed_; }
  // Raises 91 when the project has gone.
  std::shared_ptr<Project> project() const;
  std::shared_ptr<Workspace> workspace() const;

  bool isDirty() const { return dirty_; }
  void markDirty() { dirty_ = true; }
  void markSaved() { dirty_ = false; }
  // Counts the edits of the code.
  unsigned codeVersion() const { return codeVersion_; }
  // The file as a save would write it.
  std::string bytes();
  // Where a line of the code stands in the file as a save would write it, counted from 1. Cost: linear in the
  // header, and in the members with hidden lines.
  int fileLine(int codeLine);
  // Takes the bytes of a whole file, header included, for unsaved changes of its own; what the file on the
  // disk held stays known. Told as a reload.
  void recover(std::string bytes);
  // For an editor that has undone everything: where the pending code differs from the file's in line ends and case
  // alone, the file's own bytes stand again, and a component without other edits counts as saved. Cost: linear in
  // the file.
  void settleUndone();
  // Replaces the code by text that is taken as it is.
  void setCode(std::string_view text);

  bool isReadOnly() const;
  // "The host was told so": edits fail whatever the file's attributes are.
  void setReadOnly(bool readOnly) { toldReadOnly_ = readOnly; }
  bool wasToldReadOnly() const { return toldReadOnly_; }
  // Raises 40198 when the module cannot be edited. The disk is asked once for each time that the component's code,
  // designer or properties are handed out: an edit of every line of a module must not ask it for every line.
  void requireEditable() const;
  void askDiskAgain() { fileIsReadOnly_.reset(); }

  // Writes the pending bytes into `file`, which becomes the component's own; see DiskFile::write.
  void writeTo(DiskFile file, const SaveOptions& options);
  // The file at its own place was written with `bytes`.
  void written(const platform::FileStamp& stamp, std::string bytes);
  // A companion file that the header refers to and that is there.
  struct Companion {
    std::string name;  // as the header has it
    std::string path;  // the system's
  };
  std::vector<Companion> companions();
  // Makes the header refer to another file instead; the way back undoes it.
  void renameCompanion(std::string_view from, std::string_view to);

  // As the user orders controls in the designer; see DesignerHost.
  void bringToFront(const std::shared_ptr<frame::VBControl>& control) {
    designerHost().bringToFront(control);
  }
  void sendToBack(const std::shared_ptr<frame::VBControl>& control) { designerHost().sendToBack(control); }

  // The window that opening the component opens: its designer's, or its code's.
  frame::WindowType mainWindow() const;
  // The window of the code or the designer, made at its first use.
  std::shared_ptr<HostWindow> window(frame::WindowType type);
  bool hasWindow(const std::shared_ptr<HostWindow>& window) const {
    return window != nullptr && (window == codeWindow_ || window == designerWindow_);
  }
  // Takes the component out of its project's sight for good.
  void remove();

 private:
  Component(std::weak_ptr<Project> project, frame::ComponentType type, LineId line, DiskFile file);
  Component& checked();
  const Component& checked() const;
  CodeKind codeKind() const;
  void takeHeader(ComponentHeader header, std::string_view listedName);
  void watchCode();
  void settled();
  void makeModule();
  DesignerHost& designerHost();

  std::weak_ptr<Project> project_;
  frame::ComponentType type_;
  LineId line_;
  DiskFile file_;
  std::string name_;
  std::unique_ptr<ComponentHeader> header_;
  std::optional<CodeText> code_;
  std::size_t codeOffset_ = 0;  // where the code begins in the bytes of `file_`
  bool recovered_ = false;      // the code is not that of `file_`, nor is the header
  std::unique_ptr<DesignerHost> designer_;
  std::shared_ptr<Module> module_;
  std::shared_ptr<Pane> pane_;
  std::shared_ptr<HostWindow> codeWindow_;
  std::shared_ptr<HostWindow> designerWindow_;
  unsigned codeVersion_ = 0;
  bool dirty_ = false;
  bool toldReadOnly_ = false;
  mutable std::optional<bool> fileIsReadOnly_;
  bool removed_ = false;
};

struct ComponentTraits {
  frame::ComponentType type;
  std::string_view stem;       // "Module" of Module1; also of a designer's caption, "Form1 (Form)"
  std::string_view extension;  // of its file
  bool isNew;                  // can be added without a file
  bool hasCode;
  bool hasDesigner;
};
const ComponentTraits& traitsOf(frame::ComponentType type);
// The type of a file by its ending (".bas"); nothing for other endings.
std::optional<frame::ComponentType> typeOfExtension(std::string_view extension);

// A letter, then letters, digits and underscores, at most 40 in all.
bool isLegalName(std::string_view name);

}  // namespace kolvane::workspace
