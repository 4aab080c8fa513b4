// The host as the suite sees it: projects, components, code, controls, windows, command bars and events.
// Everything a tool knows of the user's code it knows through these classes.
//
// Conventions that hold for all of them:
// - Lines and columns count from 1. A column counts characters; an end column stands behind the last
// character.
// - Texts are bytes in the host's code page. Several lines are joined by CR LF when they are handed out; CR
// LF, a lone
//   CR and a lone LF each part lines when they are taken in.
// - Failures are base::Error: -2147024809 for a negative count, a line below 1 and an edit of a line that is
// not there, 9
//   for an unknown name or index of a collection, 13 for a value of the wrong type, 35 for an unknown
//   procedure, 91 for an object that was closed or removed, 438 for an unknown property, 40198 for a module
//   that cannot be edited.
// - Objects are handed out as shared pointers. One that outlives its subject is safe to hold: its members
// raise 91.
// - An empty pointer is the host's "nothing".
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/signal.h"

namespace kolvane::frame {

class VBE;
class VBProject;
class VBComponent;
class VBForm;
class VBControl;
class CodeModule;
class CodePane;
class Window;
class Events;
class CommandBar;
class CommandBars;
class CommandBarControl;

// An ordered collection; names compare without case. An unknown name or index raises 9.
template <typename T>
class Collection {
 public:
  virtual ~Collection() = default;
  virtual int Count() = 0;
  virtual std::shared_ptr<T> Item(int index) = 0;
  virtual std::shared_ptr<T> Item(std::string_view name) = 0;

  // All items as they are now; adding and removing while going through them is safe.
  std::vector<std::shared_ptr<T>> items() {
    std::vector<std::shared_ptr<T>> all;
    const int count = Count();
    all.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) all.push_back(Item(i));
    return all;
  }
};

enum class ComponentType : int {
  kStdModule = 1,
  kClassModule = 2,
  kMSForm = 3,
  kResFile = 4,
  kVBForm = 5,
  kVBMDIForm = 6,
  kPropPage = 7,
  kUserControl = 8,
  kDocObject = 9,
  kRelatedDocument = 10,
  kActiveXDesigner = 11,
};

enum class ProjectType : int { kStandardExe = 0, kActiveXExe = 1, kActiveXDll = 2, kActiveXControl = 3 };

enum class ProcKind : int { kProc = 0, kLet = 1, kSet = 2, kGet = 3 };

enum class MemberType : int { kMethod = 1, kProperty = 2, kVariable = 3, kEvent = 4, kConst = 5 };

enum class MemberScope : int { kPrivate = 1, kPublic = 2, kFriend = 3 };

enum class WindowType : int {
  kCodeWindow = 0,
  kDesigner = 1,
  kBrowser = 2,
  kWatch = 3,
  kLocals = 4,
  kImmediate = 5,
  kProjectWindow = 6,
  kPropertyWindow = 7,
  kFind = 8,
  kFindReplace = 9,
  kToolbox = 10,
  kLinkedWindowFrame = 11,
  kMainWindow = 12,
  kPreview = 13,
  kColorPalette = 14,
  kToolWindow = 15,
};

// Four positions of a selection or a search, in the host's in/out manner.
struct TextRange {
  int startLine = 1;
  int startColumn = 1;
  int endLine = 1;
  int endColumn = 1;
  bool operator==(const TextRange&) const = default;
};

// ---- properties

// An object value that is kept as the file has it: a font's parts, a picture's reference.
struct ObjectValue {
  std::string kind;  // "Font", "Picture", "DataFormat", "List" or the group's own name
  std::string text;  // the reference or value as the file spells it; empty when there is none
  std::vector<std::pair<std::string, std::string>>
      parts;  // name and value text of a group's properties, in order
  bool operator==(const ObjectValue&) const = default;
};

// Boolean, whole number, number with a fraction, text or object; monostate is the host's Empty.
using Value = std::variant<std::monostate, bool, long, double, std::string, ObjectValue>;

// A value as people and settings see it: "True", "12", "2.5", the text itself; objects give their text.
std::string toText(const Value& value);

class Property {
 public:
  virtual ~Property() = default;
  virtual std::string Name() = 0;
  virtual Value value() = 0;
  // A text is converted to the property's own type; one that cannot be raises 13. A read-only property raises
  // 383.
  virtual void setValue(const Value& value) = 0;
  // The parts of an object property (Font: Name, Size, Charset, Weight, Underline, Italic, Strikethrough;
  // Bold is accepted and maps to Weight); nothing for plain values.
  virtual std::shared_ptr<Collection<Property>> Object() = 0;
};

// In alphabetical order. An unknown name raises 438.
class Properties : public Collection<Property> {};

// ---- code

class Member {
 public:
  virtual ~Member() = default;
  virtual std::string Name() = 0;
  virtual MemberType Type() = 0;
  virtual MemberScope Scope() = 0;
  virtual bool Static() = 0;
  virtual int CodeLocation() = 0;
  virtual std::string Description() = 0;
  virtual long HelpContextID() = 0;
  virtual long StandardMethod() = 0;  // 0 when the member has none
  virtual bool Hidden() = 0;
};

class Members : public Collection<Member> {};

class CodeModule {
 public:
  virtual ~CodeModule() = default;

  virtual std::shared_ptr<VBComponent> Parent() = 0;
  virtual std::string Name() = 0;

  // Cut at the module's end; empty when `start` lies behind it.
  virtual std::string Lines(int start, int count) = 0;
  virtual int CountOfLines() = 0;
  virtual int CountOfDeclarationLines() = 0;
  // The same lines one by one, without copying them. `visit` must not edit the module.
  virtual void VisitLines(int start, int count, const std::function<void(std::string_view line)>& visit) = 0;

  // The text's first line becomes line `line`; a line behind the end appends. "" inserts one empty line.
  virtual void InsertLines(int line, std::string_view text) = 0;
  virtual void DeleteLines(int start, int count = 1) = 0;
  virtual void ReplaceLine(int line, std::string_view text) = 0;
  // `text` takes the place of `count` lines, as one edit. Raises what ReplaceLine raises when one of them is not there.
  virtual void ReplaceLines(int start, int count, std::string_view text) = 0;
  // Above the first procedure; at the end of a module without one.
  virtual void AddFromString(std::string_view text) = 0;
  virtual void AddFromFile(const std::string& path) = 0;
  // Writes an empty handler at the module's end and returns its title's line. An event that the object does
  // not have and a handler that exists raise 57017.
  virtual int CreateEventProc(std::string_view event, std::string_view object) = 0;

  // Questions about procedures; see the error numbers above. Below a microsecond on an unchanged module.
  virtual std::string ProcOfLine(int line, ProcKind& kind) = 0;
  virtual int ProcStartLine(std::string_view name, ProcKind kind) = 0;
  virtual int ProcBodyLine(std::string_view name, ProcKind kind) = 0;
  virtual int ProcCountLines(std::string_view name, ProcKind kind) = 0;

  // True and the match in `range`, or False and `range` as it was. -1 as an end means the module's or the
  // line's end. Match case together with pattern, and an empty target, raise 5; a malformed pattern 93.
  virtual bool Find(std::string_view target, TextRange& range, bool wholeWord = false, bool matchCase = false,
                    bool patternSearch = false) = 0;

  virtual std::shared_ptr<class CodePane> CodePane() = 0;
  virtual std::shared_ptr<class Members> Members() = 0;

  std::string ProcOfLine(int line) {
    ProcKind kind{};
    return ProcOfLine(line, kind);
  }
};

class CodePane {
 public:
  virtual ~CodePane() = default;
  virtual std::shared_ptr<class CodeModule> CodeModule() = 0;
  virtual TextRange GetSelection() = 0;
  // Clipped to the text, never fails.
  virtual void SetSelection(const TextRange& selection) = 0;
  virtual int TopLine() = 0;
  // Below 1 raises 5; behind the end becomes the last line.
  virtual void setTopLine(int line) = 0;
  virtual int CountOfVisibleLines() = 0;
  virtual std::shared_ptr<class Window> Window() = 0;
  virtual void Show() = 0;
};

// ---- designers

class VBControl {
 public:
  virtual ~VBControl() = default;
  virtual std::string ClassName() = 0;  // "TextBox"
  virtual std::string ProgId() = 0;     // "VB.TextBox"
  virtual int ControlType() = 0;        // 1 light, 2 standard, 3 container
  virtual std::shared_ptr<class Properties> Properties() = 0;
  virtual bool InSelection() = 0;
  virtual void setInSelection(bool selected) = 0;
  // The control that holds this one; nothing directly on the form.
  virtual std::shared_ptr<VBControl> Container() = 0;
  virtual std::shared_ptr<Collection<VBControl>> ContainedVBControls() = 0;
  virtual std::shared_ptr<VBForm> Parent() = 0;
};

class VBControls : public Collection<VBControl> {
 public:
  // A new control of the class, named and placed as the designer does it. A class that the container cannot
  // hold raises 5; a menu without a name raises 50132.
  virtual std::shared_ptr<VBControl> Add(std::string_view progId,
                                         std::shared_ptr<VBControl> container = nullptr,
                                         std::string_view name = {}) = 0;
  virtual void Remove(const std::shared_ptr<VBControl>& control) = 0;
};

class VBForm {
 public:
  virtual ~VBForm() = default;
  // All controls of all levels in file order, menus included. A name finds the first of a control array;
  // "txtName(2)" finds one element.
  virtual std::shared_ptr<class VBControls> VBControls() = 0;
  virtual std::shared_ptr<Collection<VBControl>> ContainedVBControls() = 0;
  // In the order in which they were selected.
  virtual std::shared_ptr<Collection<VBControl>> SelectedVBControls() = 0;
  virtual std::shared_ptr<VBComponent> Parent() = 0;
};

// ---- projects

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::string Name() = 0;
  // An empty, too long or malformed name raises 50132, one in use 32813.
  virtual void setName(std::string_view name) = 0;
  virtual ComponentType Type() = 0;
  virtual std::string Description() = 0;
  virtual int FileCount() = 0;
  // Full path in the host's form; empty for a component never saved.
  virtual std::string FileNames(int index) = 0;
  virtual bool Saved() = 0;
  bool IsDirty() { return !Saved(); }
  // Nothing for a resource file or a related document.
  virtual std::shared_ptr<class CodeModule> CodeModule() = 0;
  // Nothing for a component without a designer.
  virtual std::shared_ptr<VBForm> Designer() = 0;
  virtual std::shared_ptr<class Properties> Properties() = 0;
  virtual std::shared_ptr<class VBProject> VBProject() = 0;
  virtual void Activate() = 0;
  // Drops all edits and reads the file again.
  virtual void Reload() = 0;
  virtual void SaveAs(const std::string& path) = 0;
  virtual std::string ReadProperty(std::string_view section, std::string_view key) = 0;
  virtual void WriteProperty(std::string_view section, std::string_view key, std::string_view value) = 0;
};

class VBComponents : public Collection<VBComponent> {
 public:
  virtual std::shared_ptr<VBComponent> Add(ComponentType type) = 0;
  virtual std::shared_ptr<VBComponent> AddFile(const std::string& path, bool relatedDocument = false) = 0;
  virtual void Remove(const std::shared_ptr<VBComponent>& component) = 0;
};

class Reference {
 public:
  virtual ~Reference() = default;
  virtual std::string Name() = 0;
  virtual std::string Guid() = 0;
  virtual long Major() = 0;
  virtual long Minor() = 0;
  virtual std::string Description() = 0;
  virtual std::string FullPath() = 0;
  virtual bool BuiltIn() = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual std::string Name() = 0;
  virtual void setName(std::string_view name) = 0;
  virtual std::string FileName() = 0;  // full path in the host's form, or empty
  virtual std::string BuildFileName() = 0;
  virtual std::string Description() = 0;
  virtual std::string HelpFile() = 0;
  virtual ProjectType Type() = 0;
  // True when the project or one of its components has unsaved changes.
  virtual bool IsDirty() = 0;
  virtual std::shared_ptr<frame::Collection<Reference>> References() = 0;
  virtual std::shared_ptr<class VBComponents> VBComponents() = 0;
  virtual std::shared_ptr<class VBE> VBE() = 0;
  virtual void SaveAs(const std::string& path) = 0;
  virtual std::string ReadProperty(std::string_view section, std::string_view key) = 0;
  virtual void WriteProperty(std::string_view section, std::string_view key, std::string_view value) = 0;
};

class VBProjects : public Collection<VBProject> {
 public:
  virtual std::shared_ptr<VBProject> Add(ProjectType type) = 0;
  virtual std::vector<std::shared_ptr<VBProject>> AddFromFile(const std::string& path) = 0;
  virtual void Remove(const std::shared_ptr<VBProject>& project) = 0;
};

// ---- windows and command bars

class Window {
 public:
  virtual ~Window() = default;
  virtual std::string Caption() = 0;
  virtual WindowType Type() = 0;
  virtual bool Visible() = 0;
  virtual void setVisible(bool visible) = 0;
  virtual void SetFocus() = 0;
  virtual void Close() = 0;
};

enum class ControlKind : int { kButton = 1, kPopup = 10 };

class CommandBarControls : public Collection<CommandBarControl> {
 public:
  // `before` 0 or past the end appends. Captions find with or without "&".
  virtual std::shared_ptr<CommandBarControl> Add(ControlKind kind = ControlKind::kButton, int id = 1,
                                                 std::string_view parameter = {}, int before = 0,
                                                 bool temporary = true) = 0;
};

class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  virtual ControlKind Kind() = 0;
  virtual std::string Caption() = 0;
  virtual void setCaption(std::string_view caption) = 0;
  virtual std::string TooltipText() = 0;
  virtual void setTooltipText(std::string_view text) = 0;
  virtual bool BeginGroup() = 0;
  virtual void setBeginGroup(bool begin) = 0;
  virtual bool Enabled() = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual bool Visible() = 0;
  virtual void setVisible(bool visible) = 0;
  virtual int Index() = 0;  // its position on its bar now
  // Takes the clipboard's picture; raises 5 when there is none.
  virtual void PasteFace() = 0;
  virtual std::string Face() = 0;  // the picture's key, empty without one
  // The children of a popup; nothing for a button.
  virtual std::shared_ptr<CommandBarControls> Controls() = 0;
  virtual void Delete() = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  virtual std::string Name() = 0;
  virtual int Index() = 0;
  virtual std::shared_ptr<CommandBarControls> Controls() = 0;
  virtual int Left() = 0;
  virtual int Top() = 0;
  virtual int Position() = 0;
  virtual int RowIndex() = 0;
  virtual void setLeft(int value) = 0;
  virtual void setTop(int value) = 0;
  virtual void setPosition(int value) = 0;
  virtual void setRowIndex(int value) = 0;
  virtual bool Visible() = 0;
  virtual void setVisible(bool visible) = 0;
  virtual void Delete() = 0;
};

// The host's own bars that the suite counts on, by their place in CommandBars.
inline constexpr int kStandardToolbarIndex = 2;
inline constexpr int kCodeWindowMenuIndex = 15;
inline constexpr int kControlsWindowMenuIndex = 21;

class CommandBars : public Collection<CommandBar> {
 public:
  // Finds the host's menus ("Add-Ins") by name too.
  virtual std::shared_ptr<CommandBar> Add(std::string_view name) = 0;
  virtual std::shared_ptr<CommandBar> ActiveMenuBar() = 0;
};

// ---- events

// Each set of handlers may leave any of them empty.
struct VBProjectsHandlers {
  std::function<void(const std::shared_ptr<VBProject>&)> ItemAdded, ItemRemoved, ItemActivated;
  std::function<void(const std::shared_ptr<VBProject>&, const std::string& oldName)> ItemRenamed;
};

struct VBComponentsHandlers {
  std::function<void(const std::shared_ptr<VBComponent>&)> ItemAdded, ItemRemoved, ItemActivated,
      ItemSelected, ItemReloaded;
  std::function<void(const std::shared_ptr<VBComponent>&, const std::string& oldName)> ItemRenamed;
};

struct VBControlsHandlers {
  std::function<void(const std::shared_ptr<VBControl>&)> ItemAdded, ItemRemoved;
  std::function<void(const std::shared_ptr<VBControl>&, const std::string& oldName, int oldIndex)>
      ItemRenamed;
};

struct SelectedVBControlsHandlers {
  std::function<void(const std::shared_ptr<VBControl>&)> ItemAdded, ItemRemoved;
};

struct VBBuildHandlers {
  std::function<void()> EnterDesignMode, EnterRunMode;
};

struct FileControlHandlers {
  // Setting `cancel` keeps the file from being written.
  std::function<void(const std::shared_ptr<VBProject>&, const std::string& file, bool& cancel)>
      RequestWriteFile;
  // `result`: 0 written, 1 cancelled, 2 failed.
  std::function<void(const std::shared_ptr<VBProject>&, const std::string& file, int result)> AfterWriteFile;
  std::function<void(const std::shared_ptr<VBProject>&, const std::string&file)> BeforeLoadFile, AfterAddFile,
      AfterRemoveFile;
};

// `handled` stops further handlers.
using CommandBarClick =
    std::function<void(const std::shared_ptr<CommandBarControl>&, bool& handled, bool& cancelDefault)>;

// Handlers run while the returned subscription lives. Nothing as project or form means all of them.
class Events {
 public:
  virtual ~Events() = default;
  [[nodiscard]] virtual base::Subscription VBProjectsEvents(VBProjectsHandlers handlers) = 0;
  [[nodiscard]] virtual base::Subscription VBComponentsEvents(std::shared_ptr<VBProject> project,
                                                              VBComponentsHandlers handlers) = 0;
  [[nodiscard]] virtual base::Subscription VBControlsEvents(std::shared_ptr<VBProject> project,
                                                            std::shared_ptr<VBForm> form,
                                                            VBControlsHandlers handlers) = 0;
  [[nodiscard]] virtual base::Subscription SelectedVBControlsEvents(std::shared_ptr<VBProject> project,
                                                                    std::shared_ptr<VBForm> form,
                                                                    SelectedVBControlsHandlers handlers) = 0;
  // No control raises 5.
  [[nodiscard]] virtual base::Subscription CommandBarEvents(const std::shared_ptr<CommandBarControl>& control,
                                                            CommandBarClick click) = 0;
  [[nodiscard]] virtual base::Subscription VBBuildEvents(VBBuildHandlers handlers) = 0;
  [[nodiscard]] virtual base::Subscription FileControlEvents(std::shared_ptr<VBProject> project,
                                                             FileControlHandlers handlers) = 0;
};

class VBE {
 public:
  virtual ~VBE() = default;
  virtual std::shared_ptr<class VBProjects> VBProjects() = 0;
  virtual std::shared_ptr<class CommandBars> CommandBars() = 0;
  virtual std::shared_ptr<Collection<Window>> Windows() = 0;
  virtual std::shared_ptr<class Events> Events() = 0;
  virtual std::shared_ptr<VBProject> ActiveVBProject() = 0;
  virtual void setActiveVBProject(const std::shared_ptr<VBProject>& project) = 0;
  virtual std::shared_ptr<VBComponent> SelectedVBComponent() = 0;
  virtual std::shared_ptr<Window> ActiveWindow() = 0;
  // The last code pane that was active, also while another window has the focus.
  virtual std::shared_ptr<CodePane> ActiveCodePane() = 0;
};

}  // namespace kolvane::frame
