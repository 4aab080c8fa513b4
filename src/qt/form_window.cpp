#include "qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QTimerEvent>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "forms/buttons.h"
#include "forms/error_form.h"
#include "forms/indicators.h"
#include "forms/menu.h"
#include "forms/user.h"
#include "frame/window_placement.h"
#include "qt/control_view.h"
#include "qt/input_router.h"
#include "qt/layout_builder.h"
#include "qt/menu_actions.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

constexpr int kTickMilliseconds = 50;
constexpr qint64 kBetweenRefreshes = 30;  // milliseconds

Qt::WindowFlags flagsOf(const forms::Form& form) {
  Qt::WindowFlags flags =
      Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (!form.fixedSize()) flags |= Qt::WindowMinMaxButtonsHint;
  if (form.topMost()) flags |= Qt::WindowStaysOnTopHint;
  return flags;
}

int toPixels(int twips) { return twips / kTwipsAPixel; }

bool samePixels(const forms::Placement& a, const forms::Placement& b) {
  return toPixels(a.left) == toPixels(b.left) && toPixels(a.top) == toPixels(b.top) &&
         toPixels(a.width) == toPixels(b.width) && toPixels(a.height) == toPixels(b.height);
}

// Whether people could take hold of a window there.
bool reachable(const QRect& window) {
  constexpr int kTitle = 24;
  const QRect title(window.topLeft(), QSize(window.width(), kTitle));
  const auto screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    const QRect part = screen->availableGeometry().intersected(title);
    return part.width() >= 3 * kTitle && part.height() >= kTitle / 2;
  });
}

}  // namespace

FormWindow::FormWindow(QtDesk& desk, forms::Form& form, QWidget* owner)
    : QDialog(nullptr, flagsOf(form)), desk_(desk), form_(form), router_(new InputRouter(*this)) {
  setObjectName(QString::fromStdString(form.name()));
  frame_ = new QVBoxLayout(this);
  frame_->setContentsMargins({});
  frame_->setSpacing(0);
  frame_->setSizeConstraint(QLayout::SetNoConstraint);
  if (form.modal()) setWindowModality(Qt::ApplicationModal);
  create();
  if (owner && owner->windowHandle()) windowHandle()->setTransientParent(owner->windowHandle());
  form.setView(this);
  refresh();
}

FormWindow::~FormWindow() {
  if (alive_) form_.setView(nullptr);
  alive_ = false;
  // What asks the window must not outlive this part of it.
  delete router_;
  qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

// Life

void FormWindow::appear() {
  place();
  show();
  settled_ = true;
  keepTime();
  placeFocus();
}

void FormWindow::run() {
  QEventLoop loop;
  loop_ = &loop;
  loop.exec();  // afterwards the window may be gone
}

void FormWindow::disappear() {
  alive_ = false;
  if (loop_) std::exchange(loop_, nullptr)->quit();
  form_.setView(nullptr);
  if (ticking_ != 0) killTimer(std::exchange(ticking_, 0));
  hide();
  deleteLater();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides
  act("Form_Unload", [this] {
    if (!form_.desk().openForms().blocker(form_)) forms::user::close(form_);
  });
}

void FormWindow::reject() { close(); }

void FormWindow::keyPressEvent(QKeyEvent* event) { event->accept(); }  // the router has done it

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && settled_) act("Form_Activate", [this] { form_.activate(); });
  return QDialog::event(event);
}

// Acts

bool FormWindow::act(std::string_view procedure, const std::function<void()>& gesture) {
  if (!alive_) return false;
  const QPointer<FormWindow> self(this);
  const std::string name = form_.name();
  const std::string where(procedure);
  forms::showErrors(desk_, name, where, gesture);
  if (!self || !alive_) return false;
  placeFocus();
  return true;
}

bool FormWindow::act(const forms::Control& control, const std::function<void()>& gesture) {
  if (!alive_) return false;
  changed_[&control] = Changes::all();
  refreshSoon();
  if (!control.obstacle().empty()) return true;
  return act(control.name(), gesture);
}

forms::CommandButton* FormWindow::closingButton() const {
  if (form_.cancelButton()) return nullptr;
  for (const std::string_view name : {"cmdCancel", "cmdClose"}) {
    forms::Control* const control = form_.findControl(name);
    if (control && control->kind() == forms::Kind::kCommandButton && control->obstacle().empty())
      return static_cast<forms::CommandButton*>(control);
  }
  return nullptr;
}

bool FormWindow::aim(forms::Control& control) {
  if (!alive_) return false;
  if (!forms::kindRow(control.kind()).focusable || control.hasFocus()) return true;
  bool there = false;
  return act(control, [&] { there = forms::user::focus(control); }) && there;
}

void FormWindow::refuse(QWidget& widget, const QString& why) {
  QApplication::beep();
  QToolTip::showText(widget.mapToGlobal(QPoint(0, widget.height())), why, &widget);
}

QString FormWindow::text(std::string_view bytes) const { return toQt(codePage(), bytes); }

QString FormWindow::lines(std::string_view bytes) const { return linesToQt(codePage(), bytes); }

ControlView* FormWindow::view(const forms::Control& control) const {
  const auto found = views_.find(&control);
  return found == views_.end() ? nullptr : found->second;
}

// Changes

void FormWindow::controlChanged(const forms::Control& control, forms::Aspect aspect) {
  if (control.kind() == forms::Kind::kMenu)
    menusChanged_ = true;
  else
    changed_[&control].add(aspect);
  refreshSoon();
}

void FormWindow::formChanged() {
  frameChanged_ = true;
  refreshSoon();
}

void FormWindow::layoutChanged() {
  layoutChanged_ = true;
  changed_.clear();
  refreshSoon();
}

void FormWindow::focusMoved() {
  focusMoved_ = true;
  refreshSoon();
}

void FormWindow::raised() {
  if (!settled_ || isActiveWindow()) return;
  raise();
  activateWindow();
}

void FormWindow::refreshSoon() {
  if (std::exchange(soon_, true)) return;
  // A loop that fills a long list and lets events be handled at every row would else spend its time here.
  const qint64 passed = refreshed_.isValid() ? refreshed_.elapsed() : kBetweenRefreshes;
  const int delay = static_cast<int>(std::max<qint64>(0, kBetweenRefreshes - passed));
  QTimer::singleShot(delay, this, [this] {
    if (soon_) refresh();
  });
}

void FormWindow::refresh() {
  soon_ = false;
  if (!alive_ || refreshing_) return;
  refreshing_ = true;
  refreshed_.start();
  if (layoutChanged_) build();
  if (std::exchange(menusChanged_, false)) refreshMenus();
  const auto changed = std::exchange(changed_, {});
  bool stateChanged = false;
  for (const auto& [control, changes] : changed) {
    if (ControlView* shown = view(*control)) shown->refresh(changes);
    stateChanged |= changes.state;
    if (control->kind() == forms::Kind::kTimer) keepTime();
  }
  if (std::exchange(frameChanged_, false)) refreshFrame();
  if (stateChanged) fitToContents();
  refreshing_ = false;
  if (std::exchange(focusMoved_, false)) placeFocus();
}

void FormWindow::placeFocus() {
  if (!alive_ || !settled_ || refreshing_) return;
  if (!changed_.empty() || layoutChanged_) {
    focusMoved_ = true;  // once the widgets can have it
    return refreshSoon();
  }
  forms::Control* const focus = form_.focus();
  ControlView* const shown = focus ? view(*focus) : nullptr;
  if (!shown) return setFocus(Qt::OtherFocusReason);
  const QWidget* const now = QApplication::focusWidget();
  if (now && (now == shown->focusWidget() || shown->focusWidget()->isAncestorOf(now))) return;
  // As the language's own boxes do: in a combo box the text is selected, in a text box the caret stays where it was.
  const bool selects = qobject_cast<QComboBox*>(shown->focusWidget()) != nullptr;
  shown->focusWidget()->setFocus(selects ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

// Widgets

void FormWindow::build() {
  layoutChanged_ = false;
  changed_.clear();
  views_.clear();
  if (body_) {
    body_->hide();
    body_->deleteLater();  // what is on the stack may be one of its widgets
    frame_->removeWidget(body_);
  }
  body_ = new QWidget(this);
  LayoutBuilder(*this, *body_, views_).build(form_.currentLayout());
  frame_->addWidget(body_, 1);
  for (const auto& [control, shown] : views_) {
    router_->watch(*shown);
    shown->refresh(Changes::all());
  }
  buildMenus();
  QWidget* before = nullptr;
  for (const forms::Control* control : form_.tabOrder()) {
    ControlView* const shown = view(*control);
    if (!shown || !forms::kindRow(control->kind()).focusable) continue;
    if (before) setTabOrder(before, shown->focusWidget());
    before = shown->focusWidget();
  }
  body_->show();
  frameChanged_ = true;
  focusMoved_ = true;
  fitToContents();
}

void FormWindow::refreshFrame() {
  setWindowTitle(text(form_.caption()));
  if (!form_.icon().empty()) setWindowIcon(icon(form_.icon()));
  fitToContents();
  if (!settled_) return;
  constexpr Qt::WindowFlags kChanging = Qt::WindowStaysOnTopHint | Qt::WindowMinMaxButtonsHint;
  if ((flagsOf(form_) & kChanging) != (windowFlags() & kChanging)) {
    overrideWindowFlags(flagsOf(form_));  // without hiding it meanwhile
    windowHandle()->setFlags(windowFlags());
  }
  switch (form_.windowState()) {
    case forms::WindowState::kMinimized:
      if (!isMinimized()) showMinimized();
      return;
    case forms::WindowState::kMaximized:
      if (!isMaximized()) showMaximized();
      return;
    case forms::WindowState::kNormal:
      if (isMinimized() || isMaximized()) showNormal();
      break;
  }
  if (!form_.placement()) return;
  const forms::Placement wanted = *form_.placement();
  placing_ = true;
  if (QPoint(toPixels(wanted.left), toPixels(wanted.top)) != pos())
    move(toPixels(wanted.left), toPixels(wanted.top));
  if (!form_.fixedSize()) resize(toPixels(wanted.width), toPixels(wanted.height));
  placing_ = false;
}

void FormWindow::fitToContents() {
  const QSize least = frame_->totalMinimumSize().expandedTo(
      {toPixels(form_.minimumWidth()), toPixels(form_.minimumHeight())});
  if (form_.fixedSize()) {
    setFixedSize(frame_->totalSizeHint().expandedTo(least));
  } else {
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    setMinimumSize(least);
  }
}

// Placement. What was never stored is known by its default, which no form would want.

void FormWindow::place() {
  // Sizes hold once fonts and style are those of the window.
  for (QWidget* child : findChildren<QWidget*>()) child->ensurePolished();
  frame_->invalidate();
  fitToContents();
  const forms::Placement wanted = form_.placement().value_or(forms::Placement{});
  const frame::WindowPlacement none;
  if (!form_.fixedSize()) {
    const bool sized = wanted.width > 0 && (wanted.width != none.width || wanted.height != none.height);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize room = screen ? screen->availableGeometry().size() : QSize(1024, 768);
    const QSize size =
        sized ? QSize(toPixels(wanted.width), toPixels(wanted.height)) : frame_->totalSizeHint();
    resize(size.boundedTo(room).expandedTo(minimumSize()));
  }
  const QRect there(toPixels(wanted.left), toPixels(wanted.top), width(), height());
  const bool placed = form_.placement() && (wanted.left != none.left || wanted.top != none.top);
  if (placed && reachable(there)) return move(there.topLeft());
  const QWindow* const owner = windowHandle()->transientParent();
  const QScreen* const screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect room = screen->availableGeometry();
  const QRect over = owner ? owner->geometry() : room;
  QRect centred(QPoint(), size());
  centred.moveCenter(over.center());
  move(std::clamp(centred.left(), room.left(), std::max(room.left(), room.right() - width())),
       std::clamp(centred.top(), room.top(), std::max(room.top(), room.bottom() - height())));
}

void FormWindow::tellPlacement() {
  if (!alive_ || !settled_ || placing_ || isMinimized() || isMaximized()) return;
  const forms::Placement now{pos().x() * kTwipsAPixel, pos().y() * kTwipsAPixel, width() * kTwipsAPixel,
                             height() * kTwipsAPixel};
  if (form_.placement() && samePixels(*form_.placement(), now)) return;
  act("Form_Resize", [&] { form_.setPlacement(now); });
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  if (event->pos() != event->oldPos()) tellPlacement();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  tellPlacement();
}

void FormWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || !alive_ || !settled_) return;
  const forms::WindowState now = isMinimized()   ? forms::WindowState::kMinimized
                                 : isMaximized() ? forms::WindowState::kMaximized
                                                 : forms::WindowState::kNormal;
  act("Form_Resize", [&] { form_.setWindowState(now); });
}

// Time

void FormWindow::keepTime() {
  if (!settled_) return;
  bool any = false;
  for (const forms::Control* control : form_.controls()) any |= control->kind() == forms::Kind::kTimer;
  if (any && ticking_ == 0) ticking_ = startTimer(kTickMilliseconds);
}

void FormWindow::timerEvent(QTimerEvent* event) {
  if (event->timerId() != ticking_) return QDialog::timerEvent(event);
  act("Timer", [this] { form_.advance(kTickMilliseconds); });
}

// Menus

namespace {

MenuItem itemOf(const FormWindow& window, const forms::Menu& menu) {
  MenuItem item;
  item.caption = window.text(menu.caption());
  item.shortcut = QString::fromStdString(menu.shortcut());
  item.tip = window.text(menu.tooltip());
  item.enabled = menu.enabled();
  item.visible = menu.visible();
  item.checked = menu.checked();
  return item;
}

}  // namespace

void FormWindow::buildMenus() {
  actions_.clear();
  if (menuBar_) {
    menuBar_->hide();
    menuBar_->deleteLater();
    frame_->setMenuBar(nullptr);
    menuBar_ = nullptr;
  }
  const auto bar = form_.menuBar();
  if (bar.empty()) return;
  menuBar_ = new QMenuBar(this);
  const auto fill = [this](const auto& self, QMenu& into, const forms::Menu& menu) -> void {
    for (forms::Menu* item : menu.items()) {
      if (item->items().empty()) {
        actions_[item] = addMenuItem(into, itemOf(*this, *item),
                                     [this, item] { act(*item, [item] { forms::user::click(*item); }); });
        continue;
      }
      QMenu* const inner = into.addMenu(QString());
      actions_[item] = inner->menuAction();
      self(self, *inner, *item);
    }
  };
  for (forms::Menu* menu : bar) {
    if (menu->items().empty()) {
      QAction* const action = menuBar_->addAction(QString());
      connect(action, &QAction::triggered, action,
              [this, menu] { act(*menu, [menu] { forms::user::click(*menu); }); });
      actions_[menu] = action;
      continue;
    }
    QMenu* const inner = menuBar_->addMenu(QString());
    actions_[menu] = inner->menuAction();
    fill(fill, *inner, *menu);
  }
  frame_->setMenuBar(menuBar_);
  refreshMenus();
}

void FormWindow::refreshMenus() {
  bool any = false;
  for (const auto& [control, action] : actions_) {
    const auto& menu = static_cast<const forms::Menu&>(*control);
    updateMenuItem(*action, itemOf(*this, menu));
    any |= !menu.parent() && menu.visible();
  }
  if (menuBar_) menuBar_->setVisible(any);
}

}  // namespace kolvane::qt
