// The code windows and designers in tabs, kept in step with the host's windows: what the host shows has a tab,
// what it hides loses it, and the front window is the current tab.
#pragma once

#include <QTabWidget>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/code_window.h"
#include "workbench/designer_window.h"
#include "workbench/session.h"
#include "workbench/shared_undo.h"

namespace kolvane::workbench {

class Documents final : public QTabWidget {
 public:
  // The session must outlive it.
  explicit Documents(Session& session, QWidget* parent = nullptr);

  // To the state of the host.
  void sync();
  // Brings every open code window up to its module.
  void pull();
  // Before work of the host or the suite, and after it: one step of undo in every code window. They nest.
  void beginCommand();
  void endCommand();
  // Looks again which files may be edited.
  void refreshReadOnly();

  // Those of the current tab; nullptr when it is of the other kind.
  CodeWindow* currentCode() const;
  DesignerWindow* currentDesigner() const;
  std::shared_ptr<workspace::Component> currentComponent() const;
  CodeWindow* codeOf(const workspace::Component& component) const;
  // Captions in the order of the tabs.
  QStringList captions() const;
  void closeCurrent();
  // The user works in the current tab: its window is the host's active one.
  void claimFocus() { activated(); }
  void next(int step);
  // The current tab's widget gets the focus: code and designers take keys, their tabs do not.
  void focusCurrent();

  // Of what was done last: a step over several modules, or one in the current code window.
  SharedUndo& sharedUndo() { return sharedUndo_; }
  bool canUndo() const;
  bool canRedo() const;
  void undo();
  void redo();

  std::function<void(const QString& reason)> onRefused;
  std::function<void(const QPoint&globalPosition)> onCodeMenu, onControlsMenu;
  std::function<void()> onCursorMoved, onCurrentChanged, onToolUsed;
  // The handler of a control, or of the component itself for an empty name, is wanted.
  std::function<void(const std::shared_ptr<workspace::Component>&, const std::string& control)> onOpenCode;
  // Runs work as one command of the user.
  std::function<void(const std::function<void()>& work)> runCommand;

 private:
  struct Tab {
    std::shared_ptr<workspace::HostWindow> window;
    std::shared_ptr<workspace::Component> component;
    QWidget* widget;
    CodeWindow* code;  // one of these two
    DesignerWindow* designer;
  };
  std::shared_ptr<workspace::Component> ownerOf(const std::shared_ptr<workspace::HostWindow>& window) const;
  void open(const std::shared_ptr<workspace::HostWindow>& window);
  void close(std::size_t tab);
  const Tab* tabOf(const QWidget* widget) const;
  void activated();
  void tellLeft(const std::vector<std::string>& names, bool redone);

  Session& session_;
  SharedUndo sharedUndo_;
  std::vector<Tab> tabs_;
  bool syncing_ = false;
  int commandDepth_ = 0;
};

}  // namespace kolvane::workbench
