#include "qt/qt_desk.h"

#include <QApplication>
#include <QPointer>
#include <utility>

#include "forms/form.h"
#include "qt/boxes.h"
#include "qt/control_view.h"
#include "qt/form_window.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

// The pointer of a program at work would be wrong over a question.
class AtRest {
 public:
  explicit AtRest(QtDesk& desk) : desk_(desk), busy_(desk.busy()) { desk_.setBusy(false); }
  ~AtRest() { desk_.setBusy(busy_); }
  AtRest(const AtRest&) = delete;
  AtRest& operator=(const AtRest&) = delete;

 private:
  QtDesk& desk_;
  bool busy_;
};

}  // namespace

QtDesk::QtDesk(DeskParts parts) : parts_(std::move(parts)), icons_(parts_.pictures) {}

QtDesk::~QtDesk() {
  setBusy(false);
  for (const auto& [form, window] : std::exchange(windows_, {})) window->disappear();
}

QWidget* QtDesk::window(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second;
}

QWidget* QtDesk::widget(const forms::Control& control) const {
  const auto found = windows_.find(&control.form());
  const ControlView* const view = found == windows_.end() ? nullptr : found->second->view(control);
  return view ? view->focusWidget() : nullptr;
}

void QtDesk::refresh() {
  const auto windows = windows_;
  for (const auto& [form, window] : windows)
    if (windows_.contains(form)) window->refresh();
}

// Forms

// A window that blocks others must be owner of those that come after it, or it would block them too.
QWidget* QtDesk::ownerOfNext() const {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  return mainWindow_;
}

FormWindow& QtDesk::open(forms::Form& form) {
  auto* const window = new FormWindow(*this, form, ownerOfNext());
  windows_[&form] = window;
  window->appear();
  return *window;
}

void QtDesk::show(forms::Form& form) { open(form); }

void QtDesk::showModal(forms::Form& form) {
  const AtRest rest(*this);
  const QPointer<FormWindow> window(&open(form));
  form.shown();
  if (window && window->alive()) window->run();
}

void QtDesk::closed(forms::Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  FormWindow* const window = found->second;
  windows_.erase(found);
  window->disappear();
}

// Boxes

namespace {

std::string mapped(const std::function<std::string(const std::string&)>& map, const std::string& path) {
  return map && !path.empty() ? map(path) : path;
}

QWidget* ownerOfBox(QWidget* otherwise) {
  if (QWidget* const active = QApplication::activeWindow()) return active;
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  return otherwise;
}

}  // namespace

forms::Answer QtDesk::msgBox(std::string_view text, int flags, std::string_view title) {
  const AtRest rest(*this);
  refresh();
  return showMessage(ownerOfBox(mainWindow_), toQt(codePage(), text), flags, toQt(codePage(), title));
}

std::optional<std::string> QtDesk::inputBox(std::string_view prompt, std::string_view title,
                                            std::string_view proposal) {
  const AtRest rest(*this);
  refresh();
  return askText(ownerOfBox(mainWindow_), codePage(), prompt, title, proposal);
}

std::optional<std::string> QtDesk::fileDialog(const forms::FileDialog& dialog) {
  const AtRest rest(*this);
  refresh();
  const QString proposed = utf8(mapped(parts_.toSystemPath, codePage().toUtf8(dialog.path)));
  QWidget* const owner = ownerOfBox(mainWindow_);
  while (true) {
    const QString chosen = askFile(owner, dialog.kind, toQt(codePage(), dialog.title),
                                   toQt(codePage(), dialog.filter), proposed);
    if (chosen.isEmpty()) return std::nullopt;
    QString why;
    const QString suitePath = utf8(mapped(parts_.toSuitePath, utf8(chosen)));
    if (const auto path = tryFromQt(codePage(), suitePath, &why)) return path;
    showMessage(owner, why, forms::box::kNotice, toQt(codePage(), dialog.title));
  }
}

void QtDesk::showHelp(std::string_view topic) {
  if (parts_.help) parts_.help(topic);
}

// Time

void QtDesk::doEvents() { QCoreApplication::processEvents(); }

void QtDesk::setBusy(bool busy) {
  if (std::exchange(busy_, busy) == busy) return;
  if (busy)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace kolvane::qt
