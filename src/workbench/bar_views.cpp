#include "workbench/bar_views.h"

#include <QTimer>
#include <algorithm>

#include "base/error.h"
#include "qt/text_convert.h"

namespace kolvane::workbench {
namespace {

using ControlPointer = std::shared_ptr<frame::CommandBarControl>;

QString plain(QString caption) { return caption.remove('&'); }

// All that a toolbar's look depends on.
std::string lookOf(frame::CommandBarControls& controls) {
  std::string look;
  for (const ControlPointer& control : controls.items()) {
    look.append(control->Caption()).append(1, '\x1f').append(control->TooltipText()).append(1, '\x1f');
    look.append(control->Face()).append(1, '\x1f');
    look += static_cast<char>('0' + (control->Enabled() ? 1 : 0) + (control->Visible() ? 2 : 0) +
                              (control->BeginGroup() ? 4 : 0));
    look += static_cast<char>(static_cast<int>(control->Kind()));
  }
  return look;
}

}  // namespace

BarViews::BarViews(Session& session, QMainWindow& window) : session_(session), window_(window) {}

void BarViews::sync() {
  syncMenuBar();
  syncToolbars();
}

// ---- menus

// A menu of the host that holds nothing yet, and has nothing of the workbench, is not shown.
void BarViews::syncMenuBar() {
  const auto controls = session_.host().CommandBars()->ActiveMenuBar()->Controls();
  std::vector<ControlPointer> shown;
  std::string look;
  for (const ControlPointer& control : controls->items()) {
    if (!control->Visible()) continue;
    const bool isPopup = control->Kind() == frame::ControlKind::kPopup;
    const bool isOwn = hasOwnMenu && hasOwnMenu(plain(session_.text(control->Caption())));
    if (isPopup && !isOwn && control->Controls()->Count() == 0) continue;
    shown.push_back(control);
    look.append(control->Caption()).append(1, control->Enabled() ? '\x1f' : '\x1e');
    look.append(std::to_string(reinterpret_cast<std::uintptr_t>(control.get())));
  }
  if (look == drawnMenus_) return;
  drawnMenus_ = look;
  window_.menuBar()->clear();
  for (const MenuView& view : menus_)
    if (view.menu != nullptr) view.menu->deleteLater();
  menus_.clear();
  for (const ControlPointer& control : shown) {
    if (control->Kind() != frame::ControlKind::kPopup) {
      window_.menuBar()->addAction(makeAction(control, window_.menuBar(), Place::kMenu));
      continue;
    }
    auto* menu = new QMenu(session_.text(control->Caption()), &window_);
    menu->setEnabled(control->Enabled());
    window_.menuBar()->addMenu(menu);
    menus_.push_back({control, menu});
    const auto refill = [this, menu, control] {
      menu->clear();
      if (ownMenu) ownMenu(plain(menu->title()), *menu);
      session_.attempt([&] { fill(*menu, *control->Controls()); });
    };
    refill();
    QObject::connect(menu, &QMenu::aboutToShow, menu, refill);
  }
}

void BarViews::fill(QMenu& menu, frame::CommandBarControls& controls) {
  menu.setToolTipsVisible(true);
  bool first = true;
  for (const ControlPointer& control : controls.items()) {
    if (!control->Visible()) continue;
    if (control->BeginGroup() || (first && !menu.isEmpty())) menu.addSeparator();
    first = false;
    if (control->Kind() == frame::ControlKind::kPopup) {
      QMenu* below = menu.addMenu(session_.text(control->Caption()));
      below->setEnabled(control->Enabled());
      if (session_.environment().icon) below->setIcon(session_.environment().icon(control->Face()));
      fill(*below, *control->Controls());
    } else {
      menu.addAction(makeAction(control, &menu, Place::kMenu));
    }
  }
}

QAction* BarViews::makeAction(const ControlPointer& control, QObject* parent, Place place) {
  const std::string caption = control->Caption().empty() ? control->TooltipText() : control->Caption();
  auto* action = new QAction(session_.text(caption), parent);
  showState(*action, *control, place);
  action->setVisible(control->Visible());
  if (session_.environment().icon) action->setIcon(session_.environment().icon(control->Face()));
  // The menu may be filled anew while the command runs: the click outlives its action.
  QObject::connect(action, &QAction::triggered, &window_, [this, control] {
    QTimer::singleShot(0, &window_, [this, control] {
      if (onClick) onClick(control);
    });
  });
  return action;
}

// In a menu the name stands beside the tip; a toolbar's button has the tip alone to say what it is.
void BarViews::showState(QAction& action, frame::CommandBarControl& control, Place place) {
  const std::string tip = control.TooltipText().empty() ? control.Caption() : control.TooltipText();
  const QString name = plain(session_.text(tip));
  const QString reason = control.Enabled() && whyNot ? session_.text(whyNot(control)) : QString();
  action.setEnabled(control.Enabled() && reason.isEmpty());
  action.setStatusTip(reason.isEmpty() ? name : reason);
  if (place == Place::kToolbar)
    action.setToolTip(reason.isEmpty() ? name : name + "\n" + reason);
  else
    action.setToolTip(reason.isEmpty() && control.TooltipText().empty() ? QString() : action.statusTip());
}

void BarViews::fillContextMenu(int barIndex, QMenu& menu) {
  const auto bar = session_.host().CommandBars()->Item(barIndex);
  if (ownMenu) ownMenu(session_.text(bar->Name()), menu);
  fill(menu, *bar->Controls());
}

// ---- toolbars

void BarViews::syncToolbars() {
  const auto bars = session_.host().CommandBars();
  const auto menuBar = bars->ActiveMenuBar();
  const auto all = bars->items();
  std::erase_if(toolbars_, [&](ToolbarView& view) {
    if (std::find(all.begin(), all.end(), view.bar) != all.end()) return false;
    delete view.toolbar;
    return true;
  });
  for (const auto& bar : all) {
    if (bar == menuBar) continue;
    const auto known = std::find_if(toolbars_.begin(), toolbars_.end(),
                                    [&](const ToolbarView& view) { return view.bar == bar; });
    if (known == toolbars_.end()) {
      if (!bar->Visible()) continue;
      auto* toolbar = new QToolBar(session_.text(bar->Name()), &window_);
      toolbar->setObjectName(toolbar->windowTitle());
      toolbar->setIconSize({16, 16});
      window_.addToolBar(toolbar);
      if (ownToolbar) ownToolbar(toolbar->windowTitle(), *toolbar);
      toolbars_.push_back({bar, toolbar, {}, {}});
      draw(toolbars_.back());
    } else {
      if (known->toolbar->isVisibleTo(&window_) != bar->Visible()) known->toolbar->setVisible(bar->Visible());
      draw(*known);
    }
  }
}

void BarViews::draw(ToolbarView& view) {
  const auto controls = view.bar->Controls();
  std::string look = lookOf(*controls);
  if (look == view.drawn) {
    for (const Button& button : view.buttons)
      if (button.control) showState(*button.action, *button.control, Place::kToolbar);
    return;
  }
  view.drawn = std::move(look);
  for (const Button& button : view.buttons) delete button.action;
  view.buttons.clear();
  const auto add = [&](QAction* action, const ControlPointer& shown = nullptr) {
    view.toolbar->addAction(action);
    view.buttons.push_back({action, shown});
  };
  bool first = !view.toolbar->actions().isEmpty();
  for (const ControlPointer& control : controls->items()) {
    if (control->BeginGroup() || std::exchange(first, false)) {
      auto* separator = new QAction(view.toolbar);
      separator->setSeparator(true);
      add(separator);
    }
    if (control->Kind() == frame::ControlKind::kPopup) {
      auto* menu = new QMenu(session_.text(control->Caption()), view.toolbar);
      QObject::connect(menu, &QMenu::aboutToShow, menu, [this, menu, control] {
        menu->clear();
        session_.attempt([&] { fill(*menu, *control->Controls()); });
      });
      add(menu->menuAction());
    } else {
      add(makeAction(control, view.toolbar, Place::kToolbar), control);
    }
  }
}

}  // namespace kolvane::workbench
