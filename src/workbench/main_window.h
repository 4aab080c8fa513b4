// The window of the workbench: code windows and designers in the middle, the project and its properties on the
// right, the immediate window below, the host's command bars on top.
//
// It has no state of its own that the host has too. Before it waits for the next event it looks at what the
// host holds now and shows that; so whoever changes something, the suite, a dialog or a user, tells nobody.
#pragma once

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTimer>
#include <memory>

#include "workbench/bar_views.h"
#include "workbench/disk_bar.h"
#include "workbench/documents.h"
#include "workbench/file_work.h"
#include "workbench/find_dialog.h"
#include "workbench/project_tree.h"
#include "workbench/properties_window.h"
#include "workbench/recovery.h"
#include "workbench/session.h"
#include "workbench/toolbox.h"

namespace kolvane::workbench {

class MainWindow final : public QMainWindow {
 public:
  // The session must outlive it.
  explicit MainWindow(Session& session);
  ~MainWindow() override;

  // Connects the suite and looks at the bars. Once, when the projects of the start are open.
  void start();
  // To the state of the host.
  void sync();
  // One command of the user or the suite: what it does to a module is one step of undo there.
  void run(const std::function<void()>& work);

  Session& session() { return session_; }
  Documents& documents() { return *documents_; }
  ProjectTree& projectTree() { return *tree_; }
  FileWork& files() { return files_; }
  FindDialog& findDialog() { return *find_; }
  QPlainTextEdit& immediateWindow() { return *immediate_; }
  PropertiesWindow& properties() { return *properties_; }
  Recovery& recovery() { return recovery_; }
  DiskBar& diskBar() { return *diskBar_; }
  // Asks about what earlier runs left unsaved, and restores it.
  void offerRecovery();
  Toolbox& toolbox() { return *toolbox_; }

  // The component that commands are about: that of the tree when it has the focus, else of the front window.
  std::shared_ptr<workspace::Component> currentComponent() const;
  std::shared_ptr<workspace::Project> currentProject() const;

  void goToLine();
  void showCode();
  void showObject();
  void showDock(frame::WindowType type);
  void about();
  void showContextMenu(int barIndex, const QPoint& place);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QDockWidget* dock(const char* title, QWidget* content, Qt::DockWidgetArea area, frame::WindowType type);
  void makeDocks();
  void makeActions();
  void fillOwnMenu(const QString& name, QMenu& menu);
  void fillOwnToolbar(const QString& name, QToolBar& bar);
  void fitToScreen(bool isFirst);
  void addRecent(QMenu& menu);
  void addWindows(QMenu& menu);
  void updateActions();
  void updateTitle();
  void updateStatus();
  void showHost();
  void followShown(unsigned showsBefore);
  void makeMiddle();
  void syncDocks();
  void focusDocument();
  void keepUnsaved();

  Session& session_;
  FileWork files_;
  Recovery recovery_;
  BarViews bars_;
  Documents* documents_;
  DiskBar* diskBar_;
  ProjectTree* tree_;
  FindDialog* find_;
  QPlainTextEdit* immediate_;
  PropertiesWindow* properties_;
  Toolbox* toolbox_;
  QLabel* place_;
  QTimer outside_;
  QTimer tick_;
  QTimer keeping_;
  std::vector<QAction*> actions_;  // one a command of the table
  std::vector<std::pair<QDockWidget*, frame::WindowType>> docks_;
  std::weak_ptr<workspace::HostWindow> front_;  // whose coming to the front was followed
  bool syncing_ = false;
  int commandDepth_ = 0;
};

}  // namespace kolvane::workbench
