// Menu items of all kinds: of forms, of command bars, of context menus.
#pragma once

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QString>
#include <functional>

namespace kolvane::qt {

struct MenuItem {
  QString caption;   // "&" marks the access key; "-" is a separating line
  QString shortcut;  // shown only: who has the keyboard acts on it
  QIcon icon;
  QString tip;
  bool enabled = true;
  bool visible = true;
  bool checked = false;
};

// Appends the item; choosing it calls `chosen`. The action belongs to the menu.
QAction* addMenuItem(QMenu& menu, const MenuItem& item, std::function<void()> chosen);
// Brings an action to what the item says now.
void updateMenuItem(QAction& action, const MenuItem& item);

}  // namespace kolvane::qt
