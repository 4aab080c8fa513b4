// A designer: the form as it will look, with its controls to select, move, size, add and delete.
//
// The selection is the host's, in the order in which controls joined it. Places are written on the grid as the
// drag ends, one change a control. What others change shows with the next sync().
#pragma once

#include <QScrollArea>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/form_picture.h"
#include "workbench/session.h"

namespace kolvane::workbench {

class FormSurface;

class DesignerWindow final : public QScrollArea {
 public:
  // The session must outlive it.
  DesignerWindow(std::shared_ptr<workspace::Component> component, Session& session,
                 QWidget* parent = nullptr);

  const std::shared_ptr<workspace::Component>& component() const { return component_; }
  // Looks at the designer again when it has changed, and at the selection.
  void sync();

  // The next rectangle that is drawn on the form becomes a control of the class; an empty name selects again.
  void setTool(const std::string& progId);
  // In the middle of the form.
  void addControl(const std::string& progId);
  void deleteSelected();
  void selectAll();
  // The selected controls, over all others of their containers or below them.
  void reorderSelected(bool toFront);

  // The widget that shows the form, and the place of a control or of the client area on it; for tests.
  QWidget& surface();
  QRectF placeOf(const QString& control) const;

  std::function<void(const QPoint& globalPosition)> onContextMenu;
  std::function<void()> onToolUsed;
  // The handler of a control, or of the form for an empty name, is wanted.
  std::function<void(const std::string& control)> onOpenCode;
  // Runs work as one command of the user.
  std::function<void(const std::function<void()>& work)> runCommand;

 private:
  friend class FormSurface;
  void run(const std::function<void()>& work);

  std::shared_ptr<workspace::Component> component_;
  Session& session_;
  FormSurface* surface_;
};

}  // namespace kolvane::workbench
