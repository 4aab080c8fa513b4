#include "workbench/designer_window.h"

#include <algorithm>

#include "base/error.h"
#include "workbench/form_surface.h"

namespace kolvane::workbench {

DesignerWindow::DesignerWindow(std::shared_ptr<workspace::Component> component, Session& session,
                               QWidget* parent)
    : QScrollArea(parent), component_(std::move(component)), session_(session), surface_(nullptr) {
  setFrameShape(QFrame::NoFrame);
  setBackgroundRole(QPalette::Base);
  surface_ = new FormSurface(*this);
  setWidget(surface_);
  setFocusProxy(surface_);
}

void DesignerWindow::sync() {
  if (!component_->isRemoved()) surface_->sync();
}

void DesignerWindow::run(const std::function<void()>& work) {
  if (runCommand)
    runCommand(work);
  else
    session_.attempt(work);
}

void DesignerWindow::setTool(const std::string& progId) { surface_->setTool(progId); }
void DesignerWindow::addControl(const std::string& progId) { surface_->add(progId, std::nullopt, -1); }
void DesignerWindow::deleteSelected() { surface_->deleteSelected(); }
void DesignerWindow::selectAll() { surface_->selectAll(); }

void DesignerWindow::reorderSelected(bool toFront) {
  run([&] {
    auto selected = component_->Designer()->SelectedVBControls()->items();
    // Among themselves they keep the order of their selection, the first one on top.
    if (toFront) std::reverse(selected.begin(), selected.end());
    for (const auto& control : selected)
      toFront ? component_->bringToFront(control) : component_->sendToBack(control);
  });
  sync();
}

QWidget& DesignerWindow::surface() { return *surface_; }
QRectF DesignerWindow::placeOf(const QString& control) const { return surface_->placeOf(control); }

}  // namespace kolvane::workbench
