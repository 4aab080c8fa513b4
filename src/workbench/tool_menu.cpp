#include "workbench/tool_menu.h"

#include <QTimer>

namespace kolvane::workbench {
namespace {

void describe(Session& session, QAction& action, const suite::MenuLine& line) {
  const std::string reason = session.suite().whyNot(line);
  action.setEnabled(reason.empty());
  action.setToolTip(reason.empty() ? action.text().remove('&') : session.text(reason));
  action.setStatusTip(action.toolTip());
}

}  // namespace

void fillToolMenu(Session& session, QMenu& menu,
                  const std::function<void(const std::function<void()>& work)>& run) {
  menu.setToolTipsVisible(true);
  QMenu* popup = &menu;
  for (const suite::MenuLine& line : session.suite().menu()) {
    if (line.level == 0) popup = &menu;
    if (line.beginsGroup && !menu.isEmpty()) menu.addSeparator();
    const QString caption = session.text(line.caption);
    if (line.isPopup()) {
      popup = menu.addMenu(caption);
      popup->setToolTipsVisible(true);
      continue;
    }
    QAction* action = popup->addAction(caption);
    describe(session, *action, line);
    if (line.row != nullptr && session.environment().icon)
      action->setIcon(session.environment().icon(std::string(line.row->pictureKey)));
    // The menu may be filled anew while the command runs: the click outlives its action.
    QWidget* window = menu.parentWidget();
    QObject::connect(action, &QAction::triggered, window, [&session, window, run, line] {
      QTimer::singleShot(0, window, [&session, run, line] { run([&] { session.suite().click(line); }); });
    });
  }
}

}  // namespace kolvane::workbench
