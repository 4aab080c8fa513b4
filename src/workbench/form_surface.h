// What a designer window shows in its scrolled area: the form with its frame, and the user's mouse on it.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "workbench/form_picture.h"

namespace kolvane::workbench {

class DesignerWindow;

class FormSurface final : public QWidget {
 public:
  explicit FormSurface(DesignerWindow& window);

  void sync();
  void setTool(const std::string& progId);
  QRectF placeOf(const QString& control) const;
  void deleteSelected();
  void selectAll();
  void add(const std::string& progId, std::optional<QRectF> place, int container);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  enum class Drag { kNone, kMove, kSize, kBand, kFormSize };
  struct Handle {
    int dx = 0;  // -1 the left side, 1 the right one
    int dy = 0;
  };
  void refresh();
  QPointF origin() const;  // of the client area
  QPointF toForm(QPointF point) const { return point - origin(); }
  std::vector<int> selected() const;
  std::optional<Handle> handleAt(QPointF point) const;
  bool onFormCorner(QPointF point) const;
  void click(int shape, Qt::KeyboardModifiers held);
  void select(const std::vector<int>& shapes);
  QRectF dragged(int shape) const;
  void finishDrag();
  void finishBand(Qt::KeyboardModifiers held);
  void setPlace(const Shape& shape, const QRectF& place);
  void nudge(int dx, int dy, bool size);
  void drawFrame(QPainter& painter) const;
  void drawSelection(QPainter& painter) const;
  static double onGrid(double pixels);

  DesignerWindow& window_;
  std::unique_ptr<FormPicture> picture_;
  const void* tree_ = nullptr;  // what the picture was taken of
  std::uint64_t edits_ = 0;
  std::vector<const frame::VBControl*> shownSelection_;
  std::string tool_;
  Drag drag_ = Drag::kNone;
  Handle handle_;
  QPointF pressed_, now_;  // in the form
  bool moved_ = false;
};

}  // namespace kolvane::workbench
