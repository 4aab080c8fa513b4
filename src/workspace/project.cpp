#include "workspace/project.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "workspace/references.h"
#include "workspace/workspace.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

struct TypeName {
  std::string_view text;
  std::string_view extension;  // of what is built
};
// By frame::ProjectType.
constexpr std::array kTypes = {TypeName{"Exe", ".exe"}, TypeName{"OleExe", ".exe"},
                               TypeName{"OleDll", ".dll"}, TypeName{"Control", ".ocx"}};

// Lines, beside those of components, whose value is a path as seen from the project's folder.
constexpr std::array<std::string_view, 3> kPathKeys = {"HelpFile", "Path32", "CompatibleEXE32"};

bool isAbsolute(std::string_view path) {
  return path.starts_with('\\') || path.starts_with('/') || path.find(':') != std::string_view::npos;
}

bool namesIt(const std::optional<std::string>& value, std::string_view name) {
  return value && base::equalNoCase(*value, name);
}

class ComponentList final : public frame::VBComponents {
 public:
  explicit ComponentList(Project& project) : project_(project.weak_from_this()) {}

  int Count() override { return static_cast<int>(project()->components().size()); }
  std::shared_ptr<frame::VBComponent> Item(int index) override {
    const auto owner = project();
    if (index < 1 || static_cast<std::size_t>(index) > owner->components().size())
      throw base::Error(errors::kSubscript);
    return owner->components()[static_cast<std::size_t>(index) - 1];
  }
  std::shared_ptr<frame::VBComponent> Item(std::string_view name) override {
    auto found = project()->find(name);
    if (found == nullptr) throw base::Error(errors::kSubscript);
    return found;
  }
  std::shared_ptr<frame::VBComponent> Add(frame::ComponentType type) override {
    return project()->workspace()->addComponent(project(), type);
  }
  std::shared_ptr<frame::VBComponent> AddFile(const std::string& path, bool relatedDocument) override {
    return project()->workspace()->addFile(project(), path, relatedDocument);
  }
  void Remove(const std::shared_ptr<frame::VBComponent>& component) override {
    const auto owner = project();
    if (component == nullptr || component->VBProject() != owner) throw base::Error(errors::kInvalidArgument);
    owner->workspace()->removeComponent(component);
  }

 private:
  std::shared_ptr<Project> project() const {
    auto owner = project_.lock();
    if (owner == nullptr || owner->isClosed()) throw base::Error(errors::kObjectNotSet);
    return owner;
  }
  std::weak_ptr<Project> project_;
};

}  // namespace

Project::Project(std::weak_ptr<Workspace> workspace, ProjectFile text, DiskFile file, bool keepsNoFile)
    : workspace_(std::move(workspace)),
      text_(std::move(text)),
      file_(std::move(file)),
      keepsNoFile_(keepsNoFile) {
  name_ = text_.value("Name").value_or("");
  if (name_.empty()) name_ = baseName(file_.path());
}

const Project& Project::checked() const {
  if (closed_ || workspace_.expired()) throw base::Error(errors::kObjectNotSet);
  return *this;
}

std::shared_ptr<Workspace> Project::workspace() const {
  auto owner = workspace_.lock();
  if (closed_ || owner == nullptr) throw base::Error(errors::kObjectNotSet);
  return owner;
}

std::string Project::folder() const { return std::string(folderOf(file_.path())); }

std::string unwritableReason(int page) {
  return "is in code page " + std::to_string(page) +
         ", whose characters may take two bytes; it can be read and searched, but not changed";
}

// ---- frame::VBProject

std::string Project::Name() { return checked().name_; }

void Project::setName(std::string_view name) {
  const auto owner = workspace();
  if (name == name_) return;
  if (!isLegalName(name)) throw base::Error(errors::kNotALegalName);
  for (const auto& project : owner->projects())
    if (project.get() != this && base::equalNoCase(project->name(), name))
      throw base::Error(errors::kNameConflict);
  if (find(name) != nullptr) throw base::Error(errors::kNameConflict);
  const std::string oldName = std::exchange(name_, std::string(name));
  text_.setValue("Name", name);
  const auto self = shared_from_this();
  owner->events().projects.raise(&frame::VBProjectsHandlers::ItemRenamed, this, nullptr, self, oldName);
}

std::string Project::FileName() {
  return file_.hasPath() ? workspace()->paths().toHost(file_.path()) : std::string();
}

std::string Project::BuildFileName() {
  checked();
  if (!file_.hasPath()) return {};
  const auto type = static_cast<std::size_t>(Type());
  const std::string name =
      text_.value("ExeName32")
          .value_or(std::string(baseName(file_.path())) + std::string(kTypes[type].extension));
  std::string folderName = text_.value("Path32").value_or("");
  Paths& paths = workspace()->paths();
  if (!isAbsolute(folderName)) {
    PathFinder finder(paths);
    folderName = paths.toHost(finder.find(folder(), folderName).path);
  }
  if (!folderName.ends_with('\\')) folderName += '\\';
  return folderName + name;
}

std::string Project::Description() { return checked().text_.value("Description").value_or(""); }

std::string Project::HelpFile() { return checked().text_.value("HelpFile").value_or(""); }

frame::ProjectType Project::Type() {
  const std::string type = checked().text_.value("Type").value_or("");
  for (std::size_t i = 0; i < kTypes.size(); ++i)
    if (base::equalNoCase(type, kTypes[i].text)) return static_cast<frame::ProjectType>(i);
  return frame::ProjectType::kStandardExe;
}

bool Project::IsDirty() {
  checked();
  return (text_.edited() && !keepsNoFile_) || std::any_of(components_.begin(), components_.end(),
                                                          [](const auto& each) { return each->isDirty(); });
}

std::shared_ptr<frame::Collection<frame::Reference>> Project::References() {
  checked();
  std::vector<ReferenceInfo> references;
  for (const ProjectEntry& entry : text_.entries())
    if (base::equalNoCase(entry.key, "Reference")) references.push_back(parseReference(entry.value));
  return makeReferences(std::move(references));
}

std::shared_ptr<frame::VBComponents> Project::VBComponents() {
  checked();
  if (list_ == nullptr) list_ = std::make_shared<ComponentList>(*this);
  return list_;
}

std::shared_ptr<frame::VBE> Project::VBE() { return workspace(); }

void Project::SaveAs(const std::string& path) { workspace()->saveProjectAs(shared_from_this(), path); }

std::string Project::ReadProperty(std::string_view section, std::string_view key) {
  return checked().text_.value(section, key).value_or("");
}

void Project::WriteProperty(std::string_view section, std::string_view key, std::string_view value) {
  checked();
  if (key.empty()) throw base::Error(errors::kInvalidCall);
  text_.setValue(section, key, value);
}

// ---- components

std::shared_ptr<Component> Project::find(std::string_view name) const {
  const auto found = std::find_if(components_.begin(), components_.end(),
                                  [&](const auto& each) { return base::equalNoCase(each->name(), name); });
  return found == components_.end() ? nullptr : *found;
}

std::shared_ptr<Component> Project::findFile(const std::string& systemPath) const {
  const auto found = std::find_if(components_.begin(), components_.end(),
                                  [&](const auto& each) { return each->file().path() == systemPath; });
  return found == components_.end() ? nullptr : *found;
}

void Project::insert(const std::shared_ptr<Component>& component) {
  const int position = text_.positionOf(component->line());
  auto place = components_.end();
  while (place != components_.begin() && text_.positionOf((*std::prev(place))->line()) > position) --place;
  components_.insert(place, component);
}

void Project::addWithLine(const std::shared_ptr<Component>& component) {
  const std::string value =
      componentValue(component->type(), component->name(), listedFile(*component, folder()));
  component->setLine(text_.addEntry(componentKey(component->type()), value));
  insert(component);
}

void Project::take(const std::shared_ptr<Component>& component) {
  std::erase(components_, component);
  text_.removeEntry(component->line());
}

std::string Project::listedFile(const Component& component, const std::string& fromFolder) const {
  if (!component.file().hasPath())
    return component.name() + std::string(traitsOf(component.type()).extension);
  Paths& paths = workspace()->paths();
  return fromFolder.empty() ? paths.toHost(component.file().path())
                            : paths.relative(fromFolder, component.file().path());
}

void Project::updateLine(const Component& component) {
  text_.setComponentFile(component.line(), listedFile(component, folder()));
}

void Project::checkName(std::string_view name, const Component* except) const {
  if (!isLegalName(name)) throw base::Error(errors::kNotALegalName);
  const auto taken = [&](const auto& each) {
    return each.get() != except && base::equalNoCase(each->name(), name);
  };
  if (base::equalNoCase(name, name_) || std::any_of(components_.begin(), components_.end(), taken))
    throw base::Error(errors::kNameConflict);
}

std::string Project::freeName(std::string_view stem) const {
  for (int number = 1;; ++number) {
    std::string name = std::string(stem) + std::to_string(number);
    if (find(name) == nullptr && !base::equalNoCase(name, name_)) return name;
  }
}

void Project::componentRenamed(const Component& component, std::string_view oldName) {
  text_.setComponentName(component.line(), component.name());
  for (const std::string_view key : {"Startup", "IconForm"})
    if (namesIt(text_.value(key), oldName)) text_.setValue(key, component.name());
  if (!component.file().hasPath()) updateLine(component);
}

// ---- places

void Project::requireWritable() const {
  if (toldReadOnly_) throw base::Error(errors::kPermissionDenied, file_.path() + ": is read-only");
  if (const int page = unwritablePage(); page != 0)
    throw base::Error(errors::kPermissionDenied, file_.path() + ": " + unwritableReason(page));
}

int Project::unwritablePage() const {
  if (ownPage_ != 0) return ownPage_;
  const base::CodePage& page = workspace()->paths().codePage();
  return page.isDoubleByte() ? page.number() : 0;
}

const std::string& Project::place() const {
  if (file_.hasPath()) return file_.path();
  return components_.empty() ? name_ : components_.front()->file().path();
}

void Project::requireWritablePage() const {
  if (const int page = unwritablePage(); page != 0)
    throw base::Error(errors::kModuleNotEditable, name_ + " " + unwritableReason(page));
}

std::string Project::rebasedPath(std::string_view path, const std::string& newFolder) const {
  if (path.empty() || isAbsolute(path) || !file_.hasPath()) return std::string(path);
  Paths& paths = workspace()->paths();
  return paths.relative(newFolder, PathFinder(paths).find(folder(), path).path);
}

std::string Project::rebasedFile(const ProjectEntry& entry, const std::string& newFolder) const {
  const auto known = std::find_if(components_.begin(), components_.end(),
                                  [&](const auto& each) { return each->line() == entry.id; });
  return known != components_.end() ? listedFile(**known, newFolder)
                                    : rebasedPath(componentLine(entry).file, newFolder);
}

// The value of a line that is no component's, without its marks.
std::string Project::rebasedValue(const ProjectEntry& entry, const std::string& newFolder) const {
  const std::string value(withoutMarks(entry.value));
  if (value.starts_with("*\\A")) return value.substr(0, 3) + rebasedPath(value.substr(3), newFolder);
  if (base::equalNoCase(entry.key, "Reference") && value.starts_with("*\\G")) {
    // A bare name is looked for by the system, not in the project's folder.
    const std::string path = parseReference(value).path;
    if (path.find('\\') == std::string::npos) return value;
    return base::replaceAll(value, "#" + path + "#", "#" + rebasedPath(path, newFolder) + "#");
  }
  const bool isPath = std::any_of(kPathKeys.begin(), kPathKeys.end(),
                                  [&](std::string_view key) { return base::equalNoCase(key, entry.key); });
  return isPath ? rebasedPath(value, newFolder) : value;
}

Project::OldLines Project::rebase(const std::string& newFolder) {
  OldLines lines;
  if (newFolder == folder()) return lines;
  OldLines changed;
  for (const ProjectEntry& entry : text_.entries()) {
    const bool isComponent = componentTypeOf(entry.key).has_value();
    const std::string_view old = isComponent ? componentLine(entry).file : withoutMarks(entry.value);
    std::string value = isComponent ? rebasedFile(entry, newFolder) : rebasedValue(entry, newFolder);
    if (value == old) continue;
    lines.push_back({entry.id, isComponent, std::string(old)});
    changed.push_back({entry.id, isComponent, std::move(value)});
  }
  restore(changed);
  return lines;
}

void Project::written(DiskFile file) {
  file_ = std::move(file);
  keepsNoFile_ = false;
  text_.markSaved();
}

void Project::restore(const OldLines& lines) {
  for (const OldLine& line : lines) {
    if (line.isComponent) {
      text_.setComponentFile(line.id, line.text);
    } else {
      text_.setEntry(line.id, line.text);
    }
  }
}

void Project::close() {
  for (const auto& component : components_) component->remove();
  components_.clear();
  closed_ = true;
}

}  // namespace kolvane::workspace
