#include "workbench/project_tree.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <algorithm>
#include <array>
#include <initializer_list>

#include "base/text.h"
#include "qt/text_convert.h"
#include "workspace/paths.h"

namespace kolvane::workbench {
namespace {

using frame::ComponentType;

constexpr int kRowRole = Qt::UserRole;

struct Kind {
  const char* caption;
  std::array<ComponentType, 2> types;
};
// In the order of the project window.
constexpr std::array kKinds = {
    Kind{"Forms", {ComponentType::kVBForm, ComponentType::kVBMDIForm}},
    Kind{"Modules", {ComponentType::kStdModule, ComponentType::kStdModule}},
    Kind{"Class Modules", {ComponentType::kClassModule, ComponentType::kClassModule}},
    Kind{"User Controls", {ComponentType::kUserControl, ComponentType::kUserControl}},
    Kind{"Property Pages", {ComponentType::kPropPage, ComponentType::kPropPage}},
    Kind{"User Documents", {ComponentType::kDocObject, ComponentType::kDocObject}},
    Kind{"Designers", {ComponentType::kActiveXDesigner, ComponentType::kMSForm}},
    Kind{"Related Documents", {ComponentType::kRelatedDocument, ComponentType::kResFile}},
};

bool isOf(const Kind& kind, ComponentType type) {
  return std::find(kind.types.begin(), kind.types.end(), type) != kind.types.end();
}

}  // namespace

ProjectTree::ProjectTree(Session& session, QWidget* parent) : QTreeWidget(parent), session_(session) {
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setExpandsOnDoubleClick(false);
  setAccessibleName("Project");
  const auto changed = [this](const auto&...) { stale_ = true; };
  frame::VBProjectsHandlers projects;
  projects.ItemAdded = projects.ItemRemoved = projects.ItemActivated = changed;
  projects.ItemRenamed = changed;
  hooks_.push_back(session.host().Events()->VBProjectsEvents(std::move(projects)));
  frame::VBComponentsHandlers components;
  components.ItemAdded = components.ItemRemoved = components.ItemReloaded = changed;
  components.ItemRenamed = changed;
  hooks_.push_back(session.host().Events()->VBComponentsEvents(nullptr, std::move(components)));
  frame::FileControlHandlers files;
  files.AfterWriteFile = changed;
  hooks_.push_back(session.host().Events()->FileControlEvents(nullptr, std::move(files)));
  connect(this, &QTreeWidget::currentItemChanged, this, [this] { selectInHost(); });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    if (item->childCount() > 0 && !currentComponent()) item->setExpanded(!item->isExpanded());
    if (currentComponent() && onOpen) onOpen();
  });
}

void ProjectTree::sync() {
  const QScopedValueRollback quiet(syncing_, true);
  if (std::exchange(stale_, false)) rebuild();
  for (Row& row : rows_) mark(row);
  const auto selected = session_.host().SelectedVBComponent();
  if (selected == shownSelection_.lock()) return;
  shownSelection_ = selected;
  for (const Row& row : rows_)
    if (selected != nullptr && row.component.lock() == selected) setCurrentItem(row.item);
}

// What was collapsed stays so.
void ProjectTree::rebuild() {
  QStringList collapsed;
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it)
    if ((*it)->childCount() > 0 && !(*it)->isExpanded()) collapsed += (*it)->text(0);
  clear();
  rows_.clear();
  shownSelection_.reset();
  auto& host = session_.host();
  for (const auto& group : host.groups()) {
    auto* top = new QTreeWidgetItem(this, {qt::utf8(workspace::fileName(group->file().path()))});
    for (const auto& project : host.projects())
      if (group->holds(*project)) addProject(top, project);
  }
  for (const auto& project : host.projects()) {
    const bool shown = std::any_of(rows_.begin(), rows_.end(),
                                   [&](const Row& row) { return row.project.lock() == project; });
    if (!shown) addProject(nullptr, project);
  }
  expandAll();
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it)
    if (collapsed.contains((*it)->text(0))) (*it)->setExpanded(false);
  refreshReadOnly();
}

QTreeWidgetItem* ProjectTree::addProject(QTreeWidgetItem* parent,
                                         const std::shared_ptr<workspace::Project>& project) {
  auto* item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
  item->setIcon(0, style()->standardIcon(QStyle::SP_DirHomeIcon));
  item->setData(0, kRowRole, static_cast<int>(rows_.size()));
  rows_.push_back({item, project, {}, project->IsDirty(), false});
  item->setText(0, captionOf(rows_.back()));
  QFont font = item->font(0);
  font.setBold(project == session_.host().ActiveVBProject());
  item->setFont(0, font);
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) addKind(*item, project, kind);
  return item;
}

void ProjectTree::addKind(QTreeWidgetItem& parent, const std::shared_ptr<workspace::Project>& project,
                          std::size_t kind) {
  std::vector<std::shared_ptr<workspace::Component>> members;
  for (const auto& component : project->components())
    if (isOf(kKinds[kind], component->type())) members.push_back(component);
  if (members.empty()) return;
  std::stable_sort(members.begin(), members.end(), [&](const auto& a, const auto& b) {
    return session_.codePage().lower(a->name()) < session_.codePage().lower(b->name());
  });
  auto* folder = new QTreeWidgetItem(&parent, {QString::fromLatin1(kKinds[kind].caption)});
  folder->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
  folder->setData(0, kRowRole, -1);
  const QIcon icon = style()->standardIcon(QStyle::SP_FileIcon);
  for (const auto& component : members) {
    auto* item = new QTreeWidgetItem(folder);
    item->setIcon(0, icon);
    item->setData(0, kRowRole, static_cast<int>(rows_.size()));
    rows_.push_back({item, project, component, component->isDirty(), false});
    item->setText(0, captionOf(rows_.back()));
  }
}

QString ProjectTree::captionOf(const Row& row) const {
  const auto component = row.component.lock();
  const auto project = row.project.lock();
  const std::string& path = component ? component->file().path() : project->path();
  const QString name = session_.text(component ? component->name() : project->name());
  const QString file = path.empty() ? name : qt::utf8(workspace::fileName(path));
  return name + " (" + file + ")" + (row.dirty ? " *" : "") + (row.readOnly ? " [read-only]" : "");
}

void ProjectTree::mark(Row& row) {
  const auto project = row.project.lock();
  if (project == nullptr || project->isClosed()) return;
  const auto component = row.component.lock();
  if (component == nullptr && !row.component.expired()) return;
  const bool dirty = component ? component->isDirty() : project->IsDirty();
  if (dirty == row.dirty) return;
  row.dirty = dirty;
  row.item->setText(0, captionOf(row));
}

void ProjectTree::refreshReadOnly() {
  for (Row& row : rows_) {
    const auto component = row.component.lock();
    if (component == nullptr || component->isRemoved()) continue;
    const bool readOnly = component->file().hasPath() && component->isReadOnly();
    if (readOnly == row.readOnly) continue;
    row.readOnly = readOnly;
    row.item->setText(0, captionOf(row));
    row.item->setForeground(
        0, palette().brush(readOnly ? QPalette::Disabled : QPalette::Active, QPalette::Text));
  }
}

const ProjectTree::Row* ProjectTree::rowOf(const QTreeWidgetItem* item) const {
  if (item == nullptr || !item->data(0, kRowRole).isValid()) return nullptr;
  const int row = item->data(0, kRowRole).toInt();
  return row >= 0 ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

std::shared_ptr<workspace::Component> ProjectTree::currentComponent() const {
  const Row* row = rowOf(currentItem());
  const auto component = row ? row->component.lock() : nullptr;
  return component && !component->isRemoved() ? component : nullptr;
}

std::shared_ptr<workspace::Project> ProjectTree::currentProject() const {
  for (const QTreeWidgetItem* item = currentItem(); item != nullptr; item = item->parent())
    if (const Row* row = rowOf(item))
      if (auto project = row->project.lock(); project && !project->isClosed()) return project;
  return nullptr;
}

void ProjectTree::selectInHost() {
  if (syncing_) return;
  if (const auto component = currentComponent()) {
    shownSelection_ = component;
    session_.attempt([&] { session_.host().select(component); });
  } else if (const auto project = currentProject()) {
    session_.attempt([&] { session_.host().setActiveVBProject(project); });
  }
  if (onSelected) onSelected();
}

void ProjectTree::keyPressEvent(QKeyEvent* event) {
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentComponent() && onOpen)
    return onOpen();
  QTreeWidget::keyPressEvent(event);
}

void ProjectTree::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse)
    if (QTreeWidgetItem* item = itemAt(event->pos())) setCurrentItem(item);
  if (onContextMenu) onContextMenu(event->globalPos());
}

}  // namespace kolvane::workbench
