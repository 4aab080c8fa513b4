#include "qt/menu_actions.h"

#include <utility>

namespace kolvane::qt {

QAction* addMenuItem(QMenu& menu, const MenuItem& item, std::function<void()> chosen) {
  QAction* action = menu.addAction(QString());
  updateMenuItem(*action, item);
  QObject::connect(action, &QAction::triggered, action, [chosen = std::move(chosen)] {
    if (chosen) chosen();
  });
  return action;
}

void updateMenuItem(QAction& action, const MenuItem& item) {
  action.setSeparator(item.caption == QLatin1String("-"));
  action.setVisible(item.visible);
  action.setEnabled(item.enabled);
  if (action.isSeparator()) return;
  // What follows a tab stands where shortcuts stand.
  action.setText(item.shortcut.isEmpty() ? item.caption : item.caption + QLatin1Char('\t') + item.shortcut);
  action.setIcon(item.icon);
  action.setIconVisibleInMenu(true);
  action.setToolTip(item.tip);
  // An item shows room for a tick only once it has had one.
  if (item.checked) action.setCheckable(true);
  action.setChecked(item.checked);
}

}  // namespace kolvane::qt
