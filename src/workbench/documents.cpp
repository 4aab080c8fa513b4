#include "workbench/documents.h"

#include <QScopedValueRollback>
#include <QStyle>
#include <QTabBar>
#include <algorithm>

#include "base/error.h"

namespace kolvane::workbench {
namespace {

bool isDocument(frame::WindowType type) {
  return type == frame::WindowType::kCodeWindow || type == frame::WindowType::kDesigner;
}

}  // namespace

Documents::Documents(Session& session, QWidget* parent)
    : QTabWidget(parent), session_(session), sharedUndo_([this](const workspace::Component& component) {
        CodeWindow* code = codeOf(component);
        return code != nullptr ? &code->editor() : nullptr;
      }) {
  sharedUndo_.onLeft = [this](const auto& names, bool redone) { tellLeft(names, redone); };
  setDocumentMode(true);
  setTabsClosable(true);
  setMovable(true);
  setUsesScrollButtons(true);
  setElideMode(Qt::ElideNone);
  connect(this, &QTabWidget::currentChanged, this, [this] { activated(); });
  connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) {
    if (const Tab* tab = tabOf(widget(index))) tab->window->Close();
    sync();
  });
}

void Documents::sync() {
  if (syncing_) return;
  const QScopedValueRollback quiet(syncing_, true);
  for (std::size_t i = tabs_.size(); i-- > 0;)
    if (tabs_[i].component->isRemoved() || !tabs_[i].component->hasWindow(tabs_[i].window) ||
        !tabs_[i].window->isVisible())
      close(i);
  auto& list = session_.host().windowList();
  for (int i = 1; i <= list.Count(); ++i) {
    const auto window = std::static_pointer_cast<workspace::HostWindow>(list.Item(i));
    if (!window->isVisible() || !isDocument(window->type())) continue;
    const bool shown =
        std::any_of(tabs_.begin(), tabs_.end(), [&](const Tab& tab) { return tab.window == window; });
    if (!shown) open(window);
  }
  const auto front = list.front(isDocument);
  for (const Tab& tab : tabs_) {
    const int index = indexOf(tab.widget);
    const QString caption =
        session_.text(tab.window->Caption()) + (tab.component->isDirty() ? QStringLiteral(" *") : QString());
    if (tabText(index) != caption) setTabText(index, caption);
    if (tab.window == front && currentWidget() != tab.widget) {
      setCurrentWidget(tab.widget);
      if (onCurrentChanged) onCurrentChanged();
    }
    if (tab.designer != nullptr) tab.designer->sync();
  }
  pull();
}

void Documents::pull() {
  for (const Tab& tab : tabs_)
    if (tab.code != nullptr && !tab.component->isRemoved()) tab.code->editor().pull();
}

void Documents::beginCommand() {
  if (commandDepth_++ > 0) return;
  for (const Tab& tab : tabs_)
    if (tab.code != nullptr) tab.code->editor().beginCommand();
}

void Documents::endCommand() {
  if (--commandDepth_ > 0) return;
  for (const Tab& tab : tabs_)
    if (tab.code != nullptr) tab.code->editor().endCommand();
}

void Documents::refreshReadOnly() {
  for (const Tab& tab : tabs_)
    if (tab.code != nullptr && !tab.component->isRemoved()) tab.code->editor().refreshReadOnly();
}

std::shared_ptr<workspace::Component> Documents::ownerOf(
    const std::shared_ptr<workspace::HostWindow>& window) const {
  for (const auto& project : session_.host().projects())
    for (const auto& component : project->components())
      if (component->hasWindow(window)) return component;
  return nullptr;
}

void Documents::open(const std::shared_ptr<workspace::HostWindow>& window) {
  const auto component = ownerOf(window);
  if (component == nullptr) return;
  Tab tab{window, component, nullptr, nullptr, nullptr};
  if (window->type() == frame::WindowType::kCodeWindow) {
    tab.code = new CodeWindow(component, session_.codePage(), this);
    tab.widget = tab.code;
    CodeEditor& editor = tab.code->editor();
    editor.onRefused = [this](const QString& reason) {
      if (onRefused) onRefused(reason);
    };
    editor.onContextMenu = [this](const QPoint& place) {
      if (onCodeMenu) onCodeMenu(place);
    };
    editor.onCursorMoved = [this, code = tab.code] {
      code->followCursor();
      if (onCursorMoved) onCursorMoved();
    };
    sharedUndo_.opened(editor);
    editor.onStep = [this, &editor](CodeEditor::Step step) { sharedUndo_.stepped(editor, step); };
    // A command that is under way opened it: what it does from here on belongs to its step.
    if (commandDepth_ > 0) editor.beginCommand();
  } else {
    tab.designer = new DesignerWindow(component, session_, this);
    tab.widget = tab.designer;
    tab.designer->onContextMenu = [this](const QPoint& place) {
      if (onControlsMenu) onControlsMenu(place);
    };
    tab.designer->onToolUsed = [this] {
      if (onToolUsed) onToolUsed();
    };
    tab.designer->onOpenCode = [this, component](const std::string& control) {
      if (onOpenCode) onOpenCode(component, control);
    };
    tab.designer->runCommand = [this](const std::function<void()>& work) {
      if (runCommand) runCommand(work);
    };
  }
  tabs_.push_back(tab);
  addTab(tab.widget, session_.text(window->Caption()));
}

void Documents::close(std::size_t index) {
  const Tab tab = tabs_[index];
  tabs_.erase(tabs_.begin() + static_cast<std::ptrdiff_t>(index));
  if (tab.code != nullptr && tab.component->hasSource()) {
    tab.code->editor().settle();
    if (!tab.component->isRemoved()) sharedUndo_.closing(tab.code->editor());
  }
  removeTab(indexOf(tab.widget));
  tab.widget->hide();
  tab.widget->deleteLater();
}

const Documents::Tab* Documents::tabOf(const QWidget* widget) const {
  for (const Tab& tab : tabs_)
    if (tab.widget == widget) return &tab;
  return nullptr;
}

// The user has chosen another tab.
void Documents::activated() {
  if (syncing_) return;
  if (const Tab* tab = tabOf(currentWidget())) {
    if (tab->code != nullptr) tab->code->editor().refreshReadOnly();
    const auto window = tab->window;
    session_.attempt([&] { window->SetFocus(); });
  }
  if (onCurrentChanged) onCurrentChanged();
}

CodeWindow* Documents::currentCode() const {
  const Tab* tab = tabOf(currentWidget());
  return tab ? tab->code : nullptr;
}

DesignerWindow* Documents::currentDesigner() const {
  const Tab* tab = tabOf(currentWidget());
  return tab ? tab->designer : nullptr;
}

std::shared_ptr<workspace::Component> Documents::currentComponent() const {
  const Tab* tab = tabOf(currentWidget());
  return tab ? tab->component : nullptr;
}

CodeWindow* Documents::codeOf(const workspace::Component& component) const {
  for (const Tab& tab : tabs_)
    if (tab.component.get() == &component && tab.code != nullptr) return tab.code;
  return nullptr;
}

QStringList Documents::captions() const {
  QStringList captions;
  for (int i = 0; i < count(); ++i) captions += tabText(i);
  return captions;
}

void Documents::closeCurrent() {
  if (const Tab* tab = tabOf(currentWidget())) tab->window->Close();
  sync();
}

void Documents::next(int step) {
  if (count() > 0) setCurrentIndex((currentIndex() + step + count()) % count());
}

void Documents::focusCurrent() {
  if (QWidget* current = currentWidget()) current->setFocus();
}

// ---- undo

bool Documents::canUndo() const {
  CodeWindow* code = currentCode();
  return sharedUndo_.canUndo() ||
         (code != nullptr && !code->editor().isReadOnly() && code->editor().isUndoAvailable());
}

bool Documents::canRedo() const {
  CodeWindow* code = currentCode();
  return sharedUndo_.canRedo() ||
         (code != nullptr && !code->editor().isReadOnly() && code->editor().isRedoAvailable());
}

void Documents::undo() {
  if (sharedUndo_.canUndo())
    sharedUndo_.undo();
  else if (CodeWindow* code = currentCode())
    code->editor().undo();
}

void Documents::redo() {
  if (sharedUndo_.canRedo())
    sharedUndo_.redo();
  else if (CodeWindow* code = currentCode())
    code->editor().redo();
}

void Documents::tellLeft(const std::vector<std::string>& names, bool redone) {
  QStringList left;
  for (const std::string& name : names) left += session_.text(name);
  const char* what = redone ? "Not redone in " : "Not undone in ";
  if (onRefused) onRefused(what + left.join(", ") + ", which was changed since or cannot be edited");
}

}  // namespace kolvane::workbench
