#include "workspace/component.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/line_cutter.h"
#include "base/text.h"
#include "workspace/control_libraries.h"
#include "workspace/designer_tree.h"
#include "workspace/line_store.h"
#include "workspace/module.h"
#include "workspace/workspace.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;
using frame::ComponentType;
using frame::WindowType;

constexpr std::size_t kLongestName = 40;

constexpr std::array kTraits = {
    ComponentTraits{ComponentType::kStdModule, "Module", ".bas", true, true, false},
    ComponentTraits{ComponentType::kClassModule, "Class", ".cls", true, true, false},
    ComponentTraits{ComponentType::kMSForm, "UserForm", ".frm", false, true, true},
    ComponentTraits{ComponentType::kResFile, "Resource", ".res", false, false, false},
    ComponentTraits{ComponentType::kVBForm, "Form", ".frm", true, true, true},
    ComponentTraits{ComponentType::kVBMDIForm, "MDIForm", ".frm", true, true, true},
    ComponentTraits{ComponentType::kPropPage, "PropertyPage", ".pag", true, true, true},
    ComponentTraits{ComponentType::kUserControl, "UserControl", ".ctl", true, true, true},
    ComponentTraits{ComponentType::kDocObject, "UserDocument", ".dob", true, true, true},
    ComponentTraits{ComponentType::kRelatedDocument, "Document", "", false, false, false},
    ComponentTraits{ComponentType::kActiveXDesigner, "Designer", ".dsr", false, true, true},
};

struct Ending {
  std::string_view extension;
  ComponentType type;
};
constexpr std::array kEndings = {
    Ending{".bas", ComponentType::kStdModule},   Ending{".mod", ComponentType::kStdModule},
    Ending{".cls", ComponentType::kClassModule}, Ending{".frm", ComponentType::kVBForm},
    Ending{".ctl", ComponentType::kUserControl}, Ending{".pag", ComponentType::kPropPage},
    Ending{".dob", ComponentType::kDocObject},   Ending{".dsr", ComponentType::kActiveXDesigner},
    Ending{".res", ComponentType::kResFile},
};

constexpr std::string_view kMdiFormClass = "VB.MDIForm";

}  // namespace

const ComponentTraits& traitsOf(ComponentType type) {
  const auto* found = std::find_if(kTraits.begin(), kTraits.end(),
                                   [&](const ComponentTraits& traits) { return traits.type == type; });
  if (found == kTraits.end()) throw base::Error(errors::kInvalidCall);
  return *found;
}

std::optional<ComponentType> typeOfExtension(std::string_view extension) {
  for (const Ending& ending : kEndings)
    if (base::equalNoCase(ending.extension, extension)) return ending.type;
  return std::nullopt;
}

bool isLegalName(std::string_view name) {
  const auto isLetter = [](char c) {
    return base::isAsciiLetter(c) || static_cast<unsigned char>(c) >= 0x80;
  };
  return !name.empty() && name.size() <= kLongestName && isLetter(name.front()) &&
         std::all_of(name.begin(), name.end(), base::isWordCharacter);
}

// ---- making

namespace {

// Problems are told to people, who read UTF-8.
ComponentHeader parseHeader(ComponentType type, const DiskFile& file, const Paths& paths,
                            std::vector<Problem>& problems) {
  std::vector<Problem> found;
  ComponentHeader header = ComponentHeader::parse(file.content(), file.bytes(), file.path(), found);
  std::string reason = whyNotProject(file.bytes());
  // Such as the binary forms of older versions: nothing of them is code.
  if (reason.empty() && traitsOf(type).hasDesigner && header.rootClass().empty())
    reason = "no form or designer begins in it";
  if (reason.empty()) reason = whyNoModule(file.bytes());
  if (!reason.empty()) throw base::Error(errors::kInvalidFormat, file.path() + ": " + reason);
  for (Problem& problem : found) {
    problem.reason = paths.shown(problem.reason);
    problems.push_back(std::move(problem));
  }
  return header;
}

}  // namespace

Component::Component(std::weak_ptr<Project> project, ComponentType type, LineId line, DiskFile file)
    : project_(std::move(project)), type_(type), line_(line), file_(std::move(file)) {}

Component::~Component() = default;

std::shared_ptr<Component> Component::read(std::weak_ptr<Project> project, ComponentType type, LineId line,
                                           DiskFile file, std::string_view listedName,
                                           std::vector<Problem>& problems) {
  const std::shared_ptr<Component> component(new Component(std::move(project), type, line, std::move(file)));
  const DiskFile& source = component->file_;
  ComponentHeader header = parseHeader(type, source, component->workspace()->paths(), problems);
  component->takeHeader(std::move(header), listedName);
  component->makeModule();
  return component;
}

std::shared_ptr<Component> Component::opaque(std::weak_ptr<Project> project, ComponentType type, LineId line,
                                             DiskFile file, std::string_view name) {
  const std::shared_ptr<Component> component(new Component(std::move(project), type, line, std::move(file)));
  component->name_ = name;
  return component;
}

std::shared_ptr<Component> Component::create(std::weak_ptr<Project> project, ComponentType type,
                                             std::string_view name, std::string_view code) {
  const std::shared_ptr<Component> component(new Component(std::move(project), type, kNoLine, DiskFile()));
  component->takeHeader(ComponentHeader::create(type, name, base::kCrLf), name);
  component->code_.emplace(component->codeKind());
  component->code_->setText(code);
  component->watchCode();
  component->makeModule();
  return component;
}

void Component::takeHeader(ComponentHeader header, std::string_view listedName) {
  designer_.reset();
  header_ = std::make_unique<ComponentHeader>(std::move(header));
  codeOffset_ = header_->codeOffset();
  recovered_ = false;
  if (type_ == ComponentType::kVBForm && base::equalNoCase(header_->rootClass(), kMdiFormClass))
    type_ = ComponentType::kVBMDIForm;
  name_ = header_->attribute("VB_Name").value_or("");
  if (name_.empty()) name_ = listedName;
}

CodeKind Component::codeKind() const {
  return type_ == ComponentType::kStdModule ? CodeKind::kStandardModule : CodeKind::kObjectModule;
}

void Component::makeModule() {
  module_ = std::make_shared<Module>(weak_from_this());
  pane_ = std::make_shared<Pane>(weak_from_this());
}

CodeText& Component::code() {
  if (!code_) {
    code_.emplace(codeKind(), file_.content(), file_.bytes().substr(codeOffset_));
    watchCode();
  }
  return *code_;
}

void Component::watchCode() {
  code_->onEdited = [this](int line, int removed, int inserted) {
    dirty_ = true;
    ++codeVersion_;
    pane_->follow(*code_, line, removed, inserted);
  };
}

DesignerHost& Component::designerHost() {
  if (designer_ == nullptr) {
    DesignerCallbacks callbacks;
    callbacks.canEdit = [this] { requireEditable(); };
    callbacks.edited = [this] { markDirty(); };
    callbacks.rename = [this](std::string_view name) { setName(name); };
    callbacks.objectLine = [this](std::string_view progId) { return objectLineFor(*project(), progId); };
    const auto events = [this]() -> EventHub& { return workspace()->events(); };
    callbacks.controlAdded = [=, this](const std::shared_ptr<frame::VBControl>& control) {
      events().controls.raise(&frame::VBControlsHandlers::ItemAdded, project().get(), this, control);
    };
    callbacks.controlRemoved = [=, this](const std::shared_ptr<frame::VBControl>& control) {
      events().controls.raise(&frame::VBControlsHandlers::ItemRemoved, project().get(), this, control);
    };
    callbacks.controlRenamed = [=, this](const std::shared_ptr<frame::VBControl>& control,
                                         const std::string& oldName, int oldIndex) {
      events().controls.raise(&frame::VBControlsHandlers::ItemRenamed, project().get(), this, control,
                              oldName, oldIndex);
    };
    callbacks.selectionChanged = [=, this](const std::shared_ptr<frame::VBControl>& control, bool added) {
      events().selectedControls.raise(added ? &frame::SelectedVBControlsHandlers::ItemAdded
                                            : &frame::SelectedVBControlsHandlers::ItemRemoved,
                                      project().get(), this, control);
    };
    designer_ = std::make_unique<DesignerHost>(*header_, std::move(callbacks),
                                               [weak = weak_from_this()] { return weak.lock(); });
  }
  return *designer_;
}

// ---- frame::VBComponent

Component& Component::checked() {
  if (removed_) throw base::Error(errors::kObjectNotSet);
  return *this;
}

const Component& Component::checked() const {
  if (removed_) throw base::Error(errors::kObjectNotSet);
  return *this;
}

std::shared_ptr<Project> Component::project() const {
  auto owner = project_.lock();
  if (removed_ || owner == nullptr || owner->isClosed()) throw base::Error(errors::kObjectNotSet);
  return owner;
}

std::shared_ptr<Workspace> Component::workspace() const { return project()->workspace(); }

std::string Component::Name() { return checked().name_; }

void Component::setName(std::string_view name) {
  const auto owner = project();
  askDiskAgain();
  if (name == name_) return;
  if (!hasSource()) throw base::Error(errors::kReadOnlyProperty);
  owner->checkName(name, this);
  requireEditable();
  header_->rename(name);
  const std::string oldName = std::exchange(name_, std::string(name));
  markDirty();
  owner->componentRenamed(*this, oldName);
  const auto self = shared_from_this();
  workspace()->events().components.raise(&frame::VBComponentsHandlers::ItemRenamed, owner.get(), this, self,
                                         oldName);
}

ComponentType Component::Type() { return checked().type_; }

std::string Component::Description() {
  return checked().header_ ? header_->attribute("VB_Description").value_or("") : std::string();
}

int Component::FileCount() {
  checked();
  if (!file_.hasPath()) return 0;
  return 1 + (header_ ? static_cast<int>(companions().size()) : 0);
}

std::string Component::FileNames(int index) {
  checked();
  if (!file_.hasPath()) return {};
  Paths& paths = workspace()->paths();
  if (index == 1) return paths.toHost(file_.path());
  const auto others = header_ ? companions() : std::vector<Companion>();
  if (index < 1 || static_cast<std::size_t>(index) > others.size() + 1) throw base::Error(errors::kSubscript);
  return paths.toHost(others[static_cast<std::size_t>(index) - 2].path);
}

bool Component::Saved() { return !checked().dirty_; }

std::shared_ptr<frame::CodeModule> Component::CodeModule() {
  checked().askDiskAgain();
  return module_;
}

std::shared_ptr<frame::VBForm> Component::Designer() {
  checked().askDiskAgain();
  return header_ ? designerHost().form() : nullptr;
}

std::shared_ptr<frame::Properties> Component::Properties() {
  checked().askDiskAgain();
  return header_ ? designerHost().properties() : nullptr;
}

std::shared_ptr<frame::VBProject> Component::VBProject() { return project(); }

void Component::Activate() { workspace()->activate(shared_from_this()); }

void Component::Reload() {
  const auto owner = project();
  if (!hasSource()) return;
  if (!file_.hasPath()) throw base::Error(errors::kFileNotFound, name_ + " has not been saved");
  const auto host = workspace();
  DiskFile fresh(file_.path(), host->files().read(file_.path()));
  ComponentHeader header = parseHeader(type_, fresh, host->paths(), host->problemList());
  file_ = std::move(fresh);
  code_.reset();
  takeHeader(std::move(header), std::string(name_));
  dirty_ = false;
  ++codeVersion_;
  pane_->SetSelection(pane_->GetSelection());
  pane_->setTopLine(pane_->TopLine());
  const auto self = shared_from_this();
  host->events().components.raise(&frame::VBComponentsHandlers::ItemReloaded, owner.get(), this, self);
}

void Component::recover(std::string bytes) {
  const auto owner = project();
  const auto host = workspace();
  const auto text = std::make_shared<const std::string>(std::move(bytes));
  ComponentHeader header = ComponentHeader::parse(text, *text, file_.path(), host->problemList());
  const std::string_view code = std::string_view(*text).substr(header.codeOffset());
  const std::string oldName = name_;
  takeHeader(std::move(header), oldName);
  code_.emplace(codeKind(), text, code);
  recovered_ = true;
  watchCode();
  markDirty();
  ++codeVersion_;
  pane_->SetSelection(pane_->GetSelection());
  if (name_ != oldName) owner->componentRenamed(*this, oldName);
  const auto self = shared_from_this();
  host->events().components.raise(&frame::VBComponentsHandlers::ItemReloaded, owner.get(), this, self);
}

void Component::SaveAs(const std::string& path) { workspace()->saveAs(shared_from_this(), path); }

std::string Component::ReadProperty(std::string_view /*section*/, std::string_view key) {
  return checked().header_ ? header_->extProperty(key) : std::string();
}

void Component::WriteProperty(std::string_view /*section*/, std::string_view key, std::string_view value) {
  if (checked().header_ == nullptr) throw base::Error(errors::kNotAvailable);
  askDiskAgain();
  requireEditable();
  header_->setExtProperty(key, value);
  markDirty();
}

// ---- editing

std::string Component::bytes() {
  std::string result;
  if (!hasSource()) return result;
  if (!code_ && !header_->edited()) return std::string(file_.bytes());
  result.reserve(header_->codeOffset());
  header_->appendBytes(result);
  code().appendBytes(result);
  return result;
}

int Component::fileLine(int codeLine) {
  std::string header;
  if (hasSource()) header_->appendBytes(header);
  int lines = 0;
  for (base::LineCutter cutter(header); !cutter.atEnd(); cutter.next()) ++lines;
  return lines + code().hiddenLinesBefore(codeLine) + codeLine;
}

namespace {

// But for line ends and case.
bool readAlike(std::string_view a, std::string_view b) {
  base::LineCutter linesOfA(a), linesOfB(b);
  while (!linesOfA.atEnd() && !linesOfB.atEnd())
    if (!base::equalNoCase(linesOfA.next(), linesOfB.next())) return false;
  return linesOfA.atEnd() && linesOfB.atEnd();
}

}  // namespace

void Component::settleUndone() {
  if (!dirty_ || !code_ || recovered_ || !file_.wasRead()) return;
  const std::string pending = code_->bytes();
  const std::string_view stored = file_.bytes().substr(codeOffset_);
  if (pending != stored) {
    if (!readAlike(pending, stored)) return;
    code_.reset();
    ++codeVersion_;
  }
  std::string header;
  header_->appendBytes(header);
  dirty_ = header != file_.bytes().substr(0, codeOffset_);
}

void Component::setCode(std::string_view text) {
  askDiskAgain();
  requireEditable();
  code().setText(text);
}

bool Component::isReadOnly() const {
  return toldReadOnly_ || project()->unwritablePage() != 0 || file_.isReadOnly(workspace()->files());
}

void Component::requireEditable() const {
  project()->requireWritablePage();
  if (!fileIsReadOnly_) fileIsReadOnly_ = file_.isReadOnly(workspace()->files());
  if (toldReadOnly_ || *fileIsReadOnly_)
    throw base::Error(errors::kModuleNotEditable, name_ + " cannot be edited: its file is read-only");
}

void Component::writeTo(DiskFile file, const SaveOptions& options) {
  file.write(workspace()->files(), bytes(), options);
  file_ = std::move(file);
  settled();
}

void Component::written(const platform::FileStamp& stamp, std::string bytes) {
  file_.written(stamp, std::move(bytes));
  settled();
}

void Component::settled() {
  code_.reset();  // its lines point into the old bytes, which need not be kept twice
  std::string header;
  header_->appendBytes(header);
  codeOffset_ = header.size();
  recovered_ = false;
  markSaved();
}

std::vector<Component::Companion> Component::companions() {
  std::vector<Companion> result;
  PathFinder finder(workspace()->paths());
  for (std::string& name : header_->companions()) {
    Place place = finder.find(std::string(folderOf(file_.path())), name);
    if (place.kind == PlaceKind::kFile) result.push_back({std::move(name), std::move(place.path)});
  }
  return result;
}

namespace {

// Renames the companion in the references of an object or group and of all inside it.
void renameIn(DesignerTree& tree, DesignerNode& node, std::string_view from, std::string_view to) {
  for (const DesignerEntry& entry : node.entries()) {
    if (entry.child != nullptr) renameIn(tree, *entry.child, from, to);
    if (entry.kind != DesignerEntry::Kind::kProperty || node.find(entry.name) != &entry) continue;
    if (!base::equalNoCase(companionOf(entry.value), from)) continue;
    const std::string value(entry.value);
    const std::size_t start = value.front() == '$' ? 1 : 0;
    const std::string rest = value.substr(start + quotedLength(std::string_view(value).substr(start)));
    tree.setValue(node, std::string(entry.name), value.substr(0, start) + quoted(to) + rest);
  }
}

}  // namespace

void Component::renameCompanion(std::string_view from, std::string_view to) {
  DesignerTree* tree = header_->designer();
  if (tree != nullptr && tree->root() != nullptr) renameIn(*tree, *tree->root(), from, to);
}

// ---- windows

WindowType Component::mainWindow() const {
  return traitsOf(type_).hasDesigner ? WindowType::kDesigner : WindowType::kCodeWindow;
}

std::shared_ptr<HostWindow> Component::window(WindowType type) {
  auto& window = type == WindowType::kDesigner ? designerWindow_ : codeWindow_;
  if (window == nullptr) {
    HostWindow::Traits traits;
    traits.type = type;
    const std::string_view kind = type == WindowType::kDesigner ? traitsOf(type_).stem : "Code";
    traits.caption = [this, kind] { return name_ + " (" + std::string(kind) + ")"; };
    traits.activated = [this, type] { workspace()->show(shared_from_this(), type); };
    traits.uncovered = [this, type] { workspace()->uncovered(shared_from_this(), type); };
    window = workspace()->windowList().add(std::move(traits), false);
  }
  return window;
}

void Component::remove() {
  if (removed_) return;
  for (const auto& window : {codeWindow_, designerWindow_})
    if (window != nullptr) window->remove();
  designer_.reset();
  removed_ = true;
}

}  // namespace kolvane::workspace
