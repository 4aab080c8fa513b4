// The host's command bars as menus and toolbars. The bars are the truth: what a tool adds, disables, renames
// or takes away shows with the next sync(), and a menu is filled when it opens.
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/session.h"

namespace kolvane::workbench {

class BarViews {
 public:
  // The session and the window must outlive it.
  BarViews(Session& session, QMainWindow& window);

  // Runs a click of the user on a control.
  std::function<void(const std::shared_ptr<frame::CommandBarControl>& control)> onClick;
  // Puts the workbench's own entries into a menu or toolbar, in front of those of the host's bar of that name.
  std::function<void(const QString& name, QMenu& menu)> ownMenu;
  std::function<void(const QString& name, QToolBar& bar)> ownToolbar;
  std::function<bool(const QString& name)> hasOwnMenu;
  // Why a control that the host has enabled cannot be used now: it is grey and says so. Empty: it can be used.
  std::function<std::string(const frame::CommandBarControl& control)> whyNot;

  void sync();
  // Fills a menu with what the bar of that place shows now.
  void fillContextMenu(int barIndex, QMenu& menu);

 private:
  struct MenuView {
    std::shared_ptr<frame::CommandBarControl> popup;
    QMenu* menu;
  };
  enum class Place { kMenu, kToolbar };
  struct Button {
    QAction* action;
    std::shared_ptr<frame::CommandBarControl> control;  // nothing for a separator
  };
  struct ToolbarView {
    std::shared_ptr<frame::CommandBar> bar;
    QPointer<QToolBar> toolbar;
    std::vector<Button> buttons;
    std::string drawn;  // what the buttons were made from
  };
  void syncMenuBar();
  void syncToolbars();
  void draw(ToolbarView& view);
  void fill(QMenu& menu, frame::CommandBarControls& controls);
  QAction* makeAction(const std::shared_ptr<frame::CommandBarControl>& control, QObject* parent, Place place);
  // Whether it can be used now, and what it says about that.
  void showState(QAction& action, frame::CommandBarControl& control, Place place);

  Session& session_;
  QMainWindow& window_;
  std::vector<MenuView> menus_;
  std::string drawnMenus_;
  std::vector<ToolbarView> toolbars_;
};

}  // namespace kolvane::workbench
