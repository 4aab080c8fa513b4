#include "workbench/main_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QInputDialog>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QSettings>
#include <QStatusBar>
#include <algorithm>

#include "base/error.h"
#include "qt/text_convert.h"
#include "workbench/basic_lexer.h"
#include "workbench/command_table.h"
#include "workbench/tool_menu.h"

namespace kolvane::workbench {
namespace {

constexpr int kTickMilliseconds = 100;
constexpr int kOutsideMilliseconds = 2000;
constexpr int kKeepMilliseconds = 1000;
constexpr int kMostWindows = 9;
constexpr QSize kUsualSize(1180, 800);

// What one can do without where the screen is small. Below its room a pane is closed at a user's first start.
struct CrowdingPane {
  const char* title;
  QSize leastRoom;
};
constexpr CrowdingPane kCrowdingPanes[] = {
    {"Immediate", {0, 480}}, {"Toolbox", {800, 0}}, {"Properties", {0, 320}}};

QString captionOf(const Command& command, const QString& name) {
  QString caption = QString::fromUtf8(command.caption);
  return caption.replace("{}", QString(name).replace("&", "&&")).simplified();
}

}  // namespace

MainWindow::MainWindow(Session& session)
    : session_(session),
      files_(session),
      recovery_(session, session.environment().stateFolder),
      bars_(session, *this),
      documents_(new Documents(session, this)),
      diskBar_(new DiskBar(session, files_, this)),
      tree_(new ProjectTree(session)),
      find_(new FindDialog(session, *documents_, this)),
      immediate_(new QPlainTextEdit),
      properties_(new PropertiesWindow(session)),
      toolbox_(new Toolbox),
      place_(new QLabel) {
  setWindowTitle("KolvaneLite");
  makeMiddle();
  statusBar()->addPermanentWidget(place_);
  setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
  makeDocks();
  makeActions();
  bars_.onClick = [this](const std::shared_ptr<frame::CommandBarControl>& control) {
    run([&] { session_.host().click(control); });
  };
  bars_.hasOwnMenu = [](const QString& name) {
    return name == kToolMenu || std::any_of(commands().begin(), commands().end(),
                                            [&](const Command& command) { return name == command.menu; });
  };
  bars_.whyNot = [this](const frame::CommandBarControl& control) { return session_.suite().whyNot(control); };
  bars_.ownMenu = [this](const QString& name, QMenu& menu) { fillOwnMenu(name, menu); };
  bars_.ownToolbar = [this](const QString& name, QToolBar& bar) { fillOwnToolbar(name, bar); };
  const auto say = [this](const QString& reason) {
    QApplication::beep();
    statusBar()->showMessage(reason, 8000);
  };
  documents_->onRefused = say;
  documents_->onCursorMoved = [this] { updateStatus(); };
  documents_->onCodeMenu = [this](const QPoint& place) {
    showContextMenu(frame::kCodeWindowMenuIndex, place);
  };
  documents_->onControlsMenu = [this](const QPoint& place) {
    showContextMenu(frame::kControlsWindowMenuIndex, place);
  };
  documents_->onOpenCode = [this](const std::shared_ptr<workspace::Component>& component,
                                  const std::string& control) {
    run([&] { session_.host().openCode(component); });
    if (CodeWindow* code = documents_->currentCode()) session_.attempt([&] { code->openHandler(control); });
    sync();
  };
  documents_->runCommand = [this](const std::function<void()>& work) { run(work); };
  documents_->onToolUsed = [this] { toolbox_->release(); };
  toolbox_->onChosen = [this](const std::string& progId) {
    if (DesignerWindow* designer = documents_->currentDesigner()) designer->setTool(progId);
  };
  toolbox_->onAdd = [this](const std::string& progId) {
    if (DesignerWindow* designer = documents_->currentDesigner()) {
      designer->setTool({});
      designer->addControl(progId);
    }
    toolbox_->release();
  };
  properties_->runCommand = [this](const std::function<void()>& work) { run(work); };
  find_->runCommand = [this](const std::function<void()>& work) { run(work); };
  tree_->onOpen = [this] {
    if (const auto component = tree_->currentComponent())
      run([&] { session_.attempt([&] { session_.host().activate(component); }); });
  };
  tree_->onContextMenu = [this](const QPoint& place) {
    constexpr int kProjectWindowMenuIndex = 6;
    showContextMenu(kProjectWindowMenuIndex, place);
  };
  files_.onChanged = [this] {
    tree_->refreshReadOnly();
    documents_->refreshReadOnly();
    sync();
  };
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] { sync(); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (commandDepth_ > 0 || syncing_ || now == nullptr) return;
    if (documents_->isAncestorOf(now)) return documents_->claimFocus();
    if (now == immediate_)
      for (const auto& window : session_.host().Windows()->items())
        if (window->Type() == frame::WindowType::kImmediate) window->SetFocus();
  });
  connect(&tick_, &QTimer::timeout, this, [this] { session_.advance(kTickMilliseconds); });
  connect(&keeping_, &QTimer::timeout, this, [this] { keepUnsaved(); });
  connect(&outside_, &QTimer::timeout, this, [this] {
    if (commandDepth_ == 0 && isActiveWindow() && QApplication::activeModalWidget() == nullptr)
      files_.checkOutside();
  });
  resize(kUsualSize);
  const QString& folder = session_.environment().stateFolder;
  bool isFirst = true;
  if (!folder.isEmpty()) {
    const QSettings kept(settingsFile(folder), QSettings::IniFormat);
    restoreGeometry(kept.value("geometry").toByteArray());
    isFirst = !restoreState(kept.value("panes").toByteArray());
  }
  sync();
  fitToScreen(isFirst);
}

// The windows inside go only after this object's own members: what they and the application say meanwhile has no one to
// hear it.
MainWindow::~MainWindow() {
  disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
  disconnect(qApp, nullptr, this, nullptr);
}

// Never larger than the screen, with what its frame takes.
void MainWindow::fitToScreen(bool isFirst) {
  constexpr QSize kFrame(16, 48);
  const QSize room = screen()->availableGeometry().size() - kFrame;
  const auto fits = [&](QSize size) {
    return size.width() <= room.width() && size.height() <= room.height();
  };
  for (const CrowdingPane& pane : kCrowdingPanes)
    if ((isFirst && !fits(pane.leastRoom)) || !fits(minimumSizeHint()))
      findChild<QDockWidget*>(pane.title)->hide();
  resize(size().boundedTo(room));
}

void MainWindow::start() {
  run([this] { session_.connectSuite(); });
  if (documents_->count() == 0) tree_->setFocus();
  tick_.start(kTickMilliseconds);
  outside_.start(kOutsideMilliseconds);
  keeping_.start(kKeepMilliseconds);
}

// A disk that is full must not stop anybody from working: it is told once.
void MainWindow::keepUnsaved() {
  try {
    keeping_.setInterval(recovery_.keep() ? kKeepMilliseconds : kTickMilliseconds);
  } catch (const base::Error& error) {
    keeping_.stop();
    session_.tell(session_.text(error.description()));
  }
}

void MainWindow::offerRecovery() {
  for (const Recovery::Left& left : recovery_.abandoned()) {
    const auto answer = session_.ask(
        "KolvaneLite ended without being closed. It has kept unsaved changes to:\n\n" +
            left.names.join('\n') + "\n\nBring them back? They stay unsaved until you save them.",
        forms::box::kYesNoCancel);
    if (answer == forms::Answer::kNo) recovery_.drop(left);
    if (answer != forms::Answer::kYes) continue;
    Recovery::Restored restored;
    run([&] { restored = recovery_.restore(left); });
    // Here, and not with the next file that is opened.
    files_.tellProblems();
    if (!restored.failed.isEmpty())
      session_.tell("This could not be brought back; it is kept in " + left.folder + ":\n\n" +
                    restored.failed.join('\n'));
    if (!restored.changed.isEmpty())
      session_.tell("Another program has changed these files meanwhile:\n\n" + restored.changed.join('\n') +
                    "\n\nSaving them writes over what it changed.");
  }
}

void MainWindow::run(const std::function<void()>& work) {
  const unsigned shows = session_.host().shows();
  ++commandDepth_;
  documents_->beginCommand();
  session_.attempt(work);
  documents_->endCommand();
  --commandDepth_;
  sync();
  followShown(shows);
}

// Who asks for a component wants to work in it.
void MainWindow::followShown(unsigned showsBefore) {
  if (commandDepth_ > 0 || session_.host().shows() == showsBefore) return;
  const QWidget* current = documents_->currentWidget();
  const QWidget* focused = QApplication::focusWidget();
  if (current != nullptr && focused != nullptr && current->isAncestorOf(focused)) return;
  documents_->focusCurrent();
}

void MainWindow::sync() {
  if (syncing_) return;
  const QScopedValueRollback quiet(syncing_, true);
  try {
    showHost();
  } catch (const base::Error&) {
    // Something of the host went away while it was looked at: the next look finds it gone.
  }
}

void MainWindow::showHost() {
  tree_->sync();
  documents_->sync();
  diskBar_->sync();
  bars_.sync();
  syncDocks();
  const auto component = currentComponent();
  const bool inDesigner = documents_->currentDesigner() != nullptr;
  properties_->sync(component, inDesigner && component == documents_->currentComponent());
  toolbox_->setEnabled(inDesigner);
  toolbox_->setToolTip(inDesigner ? QString() : QStringLiteral("No designer is in front."));
  updateActions();
  updateTitle();
  updateStatus();
}

// ---- what commands are about

std::shared_ptr<workspace::Component> MainWindow::currentComponent() const {
  if (tree_->hasFocus())
    if (auto component = tree_->currentComponent()) return component;
  if (auto component = documents_->currentComponent(); component && !component->isRemoved()) return component;
  return tree_->currentComponent();
}

std::shared_ptr<workspace::Project> MainWindow::currentProject() const {
  if (auto project = tree_->currentProject()) return project;
  return std::dynamic_pointer_cast<workspace::Project>(session_.host().ActiveVBProject());
}

// ---- docks

QDockWidget* MainWindow::dock(const char* title, QWidget* content, Qt::DockWidgetArea area,
                              frame::WindowType type) {
  auto* dock = new QDockWidget(title, this);
  dock->setObjectName(title);
  dock->setWidget(content);
  addDockWidget(area, dock);
  docks_.emplace_back(dock, type);
  return dock;
}

void MainWindow::makeMiddle() {
  auto* middle = new QWidget(this);
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(diskBar_);
  column->addWidget(documents_, 1);
  setCentralWidget(middle);
  diskBar_->runCommand = [this](const std::function<void()>& work) { run(work); };
  diskBar_->onLeft = [this] { documents_->focusCurrent(); };
}

void MainWindow::makeDocks() {
  immediate_->setFont(BasicLexer::codeFont());
  immediate_->setLineWrapMode(QPlainTextEdit::NoWrap);
  immediate_->setAccessibleName("Immediate");
  QDockWidget* project = dock("Project", tree_, Qt::RightDockWidgetArea, frame::WindowType::kProjectWindow);
  QDockWidget* immediate =
      dock("Immediate", immediate_, Qt::BottomDockWidgetArea, frame::WindowType::kImmediate);
  QDockWidget* properties =
      dock("Properties", properties_, Qt::RightDockWidgetArea, frame::WindowType::kPropertyWindow);
  QDockWidget* toolbox = dock("Toolbox", toolbox_, Qt::LeftDockWidgetArea, frame::WindowType::kToolbox);
  splitDockWidget(project, properties, Qt::Vertical);
  resizeDocks({toolbox, project}, {130, 290}, Qt::Horizontal);
  resizeDocks({project, properties}, {330, 330}, Qt::Vertical);
  resizeDocks({immediate}, {110}, Qt::Vertical);
}

// A window of the host that comes to the front takes the focus here.
void MainWindow::syncDocks() {
  const auto front = session_.host().windowList().front();
  if (front == front_.lock()) return;
  front_ = front;
  if (front == nullptr) return;
  for (const auto& [dock, type] : docks_)
    if (type == front->type()) {
      dock->show();
      dock->raise();
      dock->widget()->setFocus();
    }
  if (front->type() == frame::WindowType::kCodeWindow || front->type() == frame::WindowType::kDesigner)
    if (QWidget* current = documents_->currentWidget(); current != nullptr && !tree_->hasFocus())
      current->setFocus();
}

// To type in it, and not among its tabs.
void MainWindow::focusDocument() {
  if (QWidget* current = documents_->currentWidget()) current->setFocus();
}

void MainWindow::showDock(frame::WindowType type) {
  for (const auto& [dock, each] : docks_)
    if (each == type) {
      dock->show();
      dock->raise();
      dock->widget()->setFocus();
    }
}

// ---- actions and menus

void MainWindow::makeActions() {
  for (const Command& command : commands()) {
    auto* action = new QAction(captionOf(command, {}), this);
    action->setShortcut(QKeySequence(QString::fromLatin1(command.key)));
    action->setShortcutContext(Qt::WindowShortcut);
    action->setCheckable(command.checked != nullptr);
    if (command.icon >= 0)
      action->setIcon(style()->standardIcon(static_cast<QStyle::StandardPixmap>(command.icon)));
    connect(action, &QAction::triggered, this, [this, &command] {
      if (command.whyNot != nullptr && command.whyNot(*this) != nullptr) return updateActions();
      const unsigned shows = session_.host().shows();
      session_.attempt([&] { command.run(*this); });
      sync();
      followShown(shows);
    });
    addAction(action);
    actions_.push_back(action);
  }
}

void MainWindow::fillOwnMenu(const QString& name, QMenu& menu) {
  menu.setToolTipsVisible(true);
  if (name == kToolMenu)
    fillToolMenu(session_, menu, [this](const std::function<void()>& work) { run(work); });
  for (std::size_t i = 0; i < commands().size(); ++i) {
    const Command& command = commands()[i];
    if (name != command.menu && name != command.contextMenu) continue;
    if (name == command.menu && name == "File" && command.caption == std::string_view("E&xit"))
      addRecent(menu);
    if (command.group && !menu.isEmpty()) menu.addSeparator();
    menu.addAction(actions_[i]);
  }
  if (name == "Window") addWindows(menu);
}

void MainWindow::fillOwnToolbar(const QString& name, QToolBar& bar) {
  if (name != "Standard") return;
  for (std::size_t i = 0; i < commands().size(); ++i)
    if (commands()[i].icon >= 0) bar.addAction(actions_[i]);
}

void MainWindow::addRecent(QMenu& menu) {
  if (files_.recent().isEmpty()) return;
  menu.addSeparator();
  for (int i = 0; i < files_.recent().size(); ++i) {
    constexpr int kWidest = 320;
    const QString& path = files_.recent()[i];
    QString shown = menu.fontMetrics().elidedText(path, Qt::ElideMiddle, kWidest);
    QAction* action = menu.addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(shown.replace("&", "&&")));
    if (shown != path) action->setToolTip(path);
    connect(action, &QAction::triggered, this, [this, i] { files_.openRecent(i); });
  }
}

void MainWindow::addWindows(QMenu& menu) {
  if (documents_->count() == 0) return;
  menu.addSeparator();
  const QStringList captions = documents_->captions();
  for (int i = 0; i < captions.size(); ++i) {
    const QString number = i < kMostWindows ? QStringLiteral("&%1 ").arg(i + 1) : QString();
    QAction* action = menu.addAction(number + QString(captions[i]).replace("&", "&&"));
    action->setCheckable(true);
    action->setChecked(i == documents_->currentIndex());
    connect(action, &QAction::triggered, this, [this, i] { documents_->setCurrentIndex(i); });
  }
}

void MainWindow::showContextMenu(int barIndex, const QPoint& place) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  updateActions();
  session_.attempt([&] { bars_.fillContextMenu(barIndex, *menu); });
  menu->popup(place);
}

void MainWindow::updateActions() {
  const auto component = currentComponent();
  const QString name = component ? session_.text(component->name()) : QString();
  for (std::size_t i = 0; i < commands().size(); ++i) {
    const Command& command = commands()[i];
    QAction& action = *actions_[i];
    if (std::string_view(command.caption).find("{}") != std::string_view::npos) {
      const QString caption = captionOf(command, name);
      if (action.text() != caption) action.setText(caption);
    }
    const char* reason = command.whyNot != nullptr ? command.whyNot(*this) : nullptr;
    const QString tip = QString::fromUtf8(reason != nullptr ? reason : command.tip);
    action.setEnabled(reason == nullptr);
    action.setStatusTip(tip);
    // On the toolbar the tip alone says what a button is.
    const bool isButton = command.icon >= 0 && !tip.isEmpty();
    action.setToolTip(isButton ? action.text().remove('&') + "\n" + tip : tip);
    if (command.checked != nullptr) action.setChecked(command.checked(*this));
  }
}

void MainWindow::updateTitle() {
  QString title;
  if (const auto project = session_.host().ActiveVBProject()) title = session_.text(project->Name()) + " - ";
  title += "KolvaneLite";
  if (documents_->currentComponent()) title += " - [" + documents_->tabText(documents_->currentIndex()) + "]";
  if (windowTitle() != title) setWindowTitle(title);
}

void MainWindow::updateStatus() {
  const CodeWindow* code = documents_->currentCode();
  QString text;
  if (code != nullptr) {
    auto& editor = const_cast<CodeWindow*>(code)->editor();
    const frame::TextRange range = editor.selection();
    text = QStringLiteral("Ln %1, Col %2").arg(range.endLine).arg(range.endColumn);
    if (editor.isReadOnly()) text += QStringLiteral("   read-only");
  }
  if (place_->text() != text) place_->setText(text);
}

// ---- commands

void MainWindow::goToLine() {
  CodeWindow* code = documents_->currentCode();
  if (code == nullptr) return;
  bool chosen = false;
  const int line = QInputDialog::getInt(this, "Go to Line", "&Line:", code->editor().cursorLine(), 1,
                                        std::max(1, code->editor().lines()), 1, &chosen);
  if (!chosen) return;
  code->editor().select({line, 1, line, 1});
  documents_->focusCurrent();
}

void MainWindow::showCode() {
  if (const auto component = currentComponent()) run([&] { session_.host().openCode(component); });
}

void MainWindow::showObject() {
  if (const auto component = currentComponent()) run([&] { session_.host().activate(component); });
}

void MainWindow::about() {
  session_.attempt([this] { session_.suite().about(); });
}

// ---- closing

void MainWindow::closeEvent(QCloseEvent* event) {
  if (commandDepth_ > 0 || !files_.closeAll()) return event->ignore();
  for (QTimer* timer : {&tick_, &outside_, &keeping_}) timer->stop();
  recovery_.end();
  run([this] { session_.disconnectSuite(); });
  const QString& folder = session_.environment().stateFolder;
  if (!folder.isEmpty()) {
    QSettings kept(settingsFile(folder), QSettings::IniFormat);
    kept.setValue("geometry", saveGeometry());
    kept.setValue("panes", saveState());
  }
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow() || commandDepth_ > 0) return;
  tree_->refreshReadOnly();
  documents_->refreshReadOnly();
}

}  // namespace kolvane::workbench
