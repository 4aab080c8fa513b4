// The project window: projects, their components by kind, what is unsaved and what cannot be written.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/session.h"

namespace kolvane::workbench {

class ProjectTree final : public QTreeWidget {
 public:
  // The session must outlive it.
  explicit ProjectTree(Session& session, QWidget* parent = nullptr);

  // Brings the tree to what the host holds: the items when projects or components came or went, the marks, and the
  // selection. Cheap when nothing has changed.
  void sync();
  // Asks the disk which files can be written.
  void refreshReadOnly();

  std::shared_ptr<workspace::Component> currentComponent() const;
  std::shared_ptr<workspace::Project> currentProject() const;

  std::function<void()> onOpen;  // the current component
  std::function<void(const QPoint& globalPosition)> onContextMenu;
  std::function<void()> onSelected;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  struct Row {
    QTreeWidgetItem* item;
    std::weak_ptr<workspace::Project> project;
    std::weak_ptr<workspace::Component> component;  // nothing for a project's own row
    bool dirty = false;
    bool readOnly = false;
  };
  void rebuild();
  QTreeWidgetItem* addProject(QTreeWidgetItem* parent, const std::shared_ptr<workspace::Project>& project);
  void addKind(QTreeWidgetItem& parent, const std::shared_ptr<workspace::Project>& project, std::size_t kind);
  void mark(Row& row);
  QString captionOf(const Row& row) const;
  void selectInHost();
  const Row* rowOf(const QTreeWidgetItem* item) const;

  Session& session_;
  std::vector<Row> rows_;
  std::vector<base::Subscription> hooks_;
  bool stale_ = true;
  bool syncing_ = false;
  std::weak_ptr<frame::VBComponent> shownSelection_;
};

}  // namespace kolvane::workbench
