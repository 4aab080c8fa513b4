#include "workbench/form_surface.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "qt/text_convert.h"
#include "workbench/designer_window.h"
#include "workspace/designer_tree.h"

namespace kolvane::workbench {
namespace {

constexpr double kMargin = 12;
constexpr double kBorder = 4;
constexpr double kTitle = 20;
constexpr double kMenuHeight = 20;
constexpr double kHandle = 6;
constexpr double kGrid = 8;  // pixels: 120 twips
constexpr double kLeastMove = 3;
const QColor kTitleColour(0x0A, 0x24, 0x6A);
const QColor kFrameColour(0xD4, 0xD0, 0xC8);

constexpr std::array<std::pair<int, int>, 8> kHandles = {
    {{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}}};

QPointF handlePlace(const QRectF& place, int dx, int dy) {
  const QPointF center = place.center();
  const double out = kHandle / 2;
  return {center.x() + dx * (place.width() / 2 + out), center.y() + dy * (place.height() / 2 + out)};
}

Qt::CursorShape cursorOf(int dx, int dy) {
  if (dx == 0) return Qt::SizeVerCursor;
  if (dy == 0) return Qt::SizeHorCursor;
  return dx == dy ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

}  // namespace

FormSurface::FormSurface(DesignerWindow& window) : QWidget(&window), window_(window) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName("Form designer");
  refresh();
}

// ---- looking

void FormSurface::sync() {
  const workspace::DesignerTree* tree = window_.component_->header().designer();
  const std::uint64_t edits = tree ? tree->edits() : 0;
  if (tree != tree_ || edits != edits_) refresh();
  std::vector<const frame::VBControl*> selection;
  for (const int i : selected())
    selection.push_back(picture_->shapes()[static_cast<std::size_t>(i)].control.get());
  if (selection == shownSelection_) return;
  shownSelection_ = std::move(selection);
  update();
}

void FormSurface::refresh() {
  const workspace::DesignerTree* tree = window_.component_->header().designer();
  tree_ = tree;
  picture_ = std::make_unique<FormPicture>(*window_.component_, window_.session_.codePage());
  edits_ = tree ? tree->edits() : 0;
  const QSizeF client = picture_->clientSize();
  const QPointF corner = origin() + QPointF(client.width(), client.height());
  setFixedSize(QSizeF(corner.x() + kBorder + kMargin, corner.y() + kBorder + kMargin).toSize());
  update();
}

QPointF FormSurface::origin() const {
  const bool hasFrame =
      picture_ && (picture_->form().className == "Form" || picture_->form().className == "MDIForm");
  const double menu = picture_ && !picture_->menus().isEmpty() ? kMenuHeight : 0;
  return {kMargin + kBorder, kMargin + kBorder + (hasFrame ? kTitle : 0) + menu};
}

// In the order in which they were selected.
std::vector<int> FormSurface::selected() const {
  std::vector<int> numbers;
  const auto form = window_.component_->Designer();
  if (!form) return numbers;
  const auto& shapes = picture_->shapes();
  for (const auto& control : form->SelectedVBControls()->items()) {
    const auto found = std::find_if(shapes.begin(), shapes.end(),
                                    [&](const Shape& shape) { return shape.control == control; });
    if (found != shapes.end()) numbers.push_back(static_cast<int>(found - shapes.begin()));
  }
  return numbers;
}

QRectF FormSurface::placeOf(const QString& control) const {
  if (control.isEmpty()) return {origin(), picture_->clientSize()};
  for (const Shape& shape : picture_->shapes())
    if (shape.name == control) return shape.place.translated(origin());
  return {};
}

// ---- drawing

void FormSurface::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  drawFrame(painter);
  painter.translate(origin());
  picture_->draw(painter, true);
  painter.setClipping(false);
  drawSelection(painter);
}

void FormSurface::drawFrame(QPainter& painter) const {
  const Shape& form = picture_->form();
  const QSizeF client = picture_->clientSize();
  const QRectF frame(kMargin, kMargin, client.width() + 2 * kBorder,
                     origin().y() - kMargin + client.height() + kBorder);
  painter.fillRect(frame, kFrameColour);
  painter.setPen(QColor(0x40, 0x40, 0x40));
  painter.drawRect(frame.adjusted(0, 0, -1, -1));
  double y = kMargin + kBorder;
  if (form.className == "Form" || form.className == "MDIForm") {
    const QRectF title(kMargin + kBorder, y, client.width(), kTitle - 2);
    painter.fillRect(title, kTitleColour);
    QFont font = form.font();
    font.setBold(true);
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(title.adjusted(5, 0, -5, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     form.text("Caption"));
    y += kTitle;
  }
  if (picture_->menus().isEmpty()) return;
  QFont font("Liberation Sans");
  font.setPixelSize(11);
  painter.setFont(font);
  painter.setPen(Qt::black);
  double x = kMargin + kBorder + 6;
  for (const QString& menu : picture_->menus()) {
    const double width = QFontMetricsF(font).size(Qt::TextShowMnemonic, menu).width();
    painter.drawText(QRectF(x, y, width, kMenuHeight), Qt::AlignCenter | Qt::TextShowMnemonic, menu);
    x += width + 14;
  }
}

// The one that was selected last leads the others; its handles are filled.
void FormSurface::drawSelection(QPainter& painter) const {
  const std::vector<int> shown = selected();
  const QColor colour = palette().color(QPalette::Highlight).darker(130);
  for (const int i : shown) {
    const QRectF place = dragged(i);
    if (drag_ != Drag::kNone && drag_ != Drag::kBand && moved_) {
      painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(place);
      continue;
    }
    painter.setPen(colour);
    painter.setBrush(i == shown.back() ? colour : QColor(Qt::white));
    for (const auto& [dx, dy] : kHandles) {
      const QPointF c = handlePlace(place, dx, dy);
      painter.drawRect(QRectF(c.x() - kHandle / 2, c.y() - kHandle / 2, kHandle - 1, kHandle - 1));
    }
  }
  painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  if (drag_ == Drag::kBand && moved_) painter.drawRect(QRectF(pressed_, now_).normalized());
  if (drag_ == Drag::kFormSize && moved_) painter.drawRect(QRectF(QPointF(0, 0), now_));
}

double FormSurface::onGrid(double pixels) { return std::round(pixels / kGrid) * kGrid; }

// Where a selected control will be when the drag ends here. Sides that move go to the grid.
QRectF FormSurface::dragged(int number) const {
  const Shape& shape = picture_->shapes()[static_cast<std::size_t>(number)];
  if (!moved_ || (drag_ != Drag::kMove && drag_ != Drag::kSize)) return shape.place;
  const QPointF container = shape.parent < 0
                                ? QPointF(0, 0)
                                : picture_->shapes()[static_cast<std::size_t>(shape.parent)].place.topLeft();
  const QPointF by = now_ - pressed_;
  const auto snapX = [&](double x) { return container.x() + onGrid(x - container.x()); };
  const auto snapY = [&](double y) { return container.y() + onGrid(y - container.y()); };
  QRectF place = shape.place;
  if (drag_ == Drag::kMove) {
    place.moveTo(snapX(place.left() + by.x()), snapY(place.top() + by.y()));
    return place;
  }
  if (handle_.dx < 0) place.setLeft(std::min(snapX(place.left() + by.x()), place.right() - 1));
  if (handle_.dx > 0) place.setRight(std::max(snapX(place.right() + by.x()), place.left() + 1));
  if (handle_.dy < 0) place.setTop(std::min(snapY(place.top() + by.y()), place.bottom() - 1));
  if (handle_.dy > 0) place.setBottom(std::max(snapY(place.bottom() + by.y()), place.top() + 1));
  return place;
}

// ---- mouse

std::optional<FormSurface::Handle> FormSurface::handleAt(QPointF point) const {
  for (const int i : selected()) {
    const Shape& shape = picture_->shapes()[static_cast<std::size_t>(i)];
    if (!shape.hasSize || shape.isLine) continue;
    for (const auto& [dx, dy] : kHandles) {
      const QPointF away = handlePlace(shape.place, dx, dy) - point;
      if (std::abs(away.x()) <= kHandle / 2 + 1 && std::abs(away.y()) <= kHandle / 2 + 1)
        return Handle{dx, dy};
    }
  }
  return std::nullopt;
}

bool FormSurface::onFormCorner(QPointF point) const {
  const QSizeF size = picture_->clientSize();
  return point.x() >= size.width() - 2 && point.y() >= size.height() - 2 &&
         point.x() <= size.width() + kBorder + 4 && point.y() <= size.height() + kBorder + 4;
}

void FormSurface::select(const std::vector<int>& shapes) {
  window_.run([&] {
    for (const auto& control : window_.component_->Designer()->SelectedVBControls()->items())
      control->setInSelection(false);
    for (const int i : shapes) picture_->shapes()[static_cast<std::size_t>(i)].control->setInSelection(true);
  });
}

void FormSurface::click(int number, Qt::KeyboardModifiers held) {
  const bool extends = (held & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
  if (number < 0) {
    if (!extends) select({});
    return;
  }
  const auto control = picture_->shapes()[static_cast<std::size_t>(number)].control;
  if (extends)
    window_.run([&] { control->setInSelection(!control->InSelection()); });
  else if (!control->InSelection())
    select({number});
}

void FormSurface::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
  pressed_ = now_ = toForm(event->position());
  moved_ = false;
  if (event->button() == Qt::RightButton) return click(picture_->at(pressed_), event->modifiers());
  if (tool_.empty()) {
    if (const auto handle = handleAt(pressed_)) {
      handle_ = *handle;
      drag_ = Drag::kSize;
      return;
    }
    if (onFormCorner(pressed_)) {
      drag_ = Drag::kFormSize;
      return;
    }
    const int number = picture_->at(pressed_);
    click(number, event->modifiers());
    drag_ = number >= 0 ? Drag::kMove : Drag::kBand;
  } else {
    drag_ = Drag::kBand;
  }
}

void FormSurface::mouseMoveEvent(QMouseEvent* event) {
  now_ = toForm(event->position());
  if (drag_ == Drag::kNone) {
    const auto handle = handleAt(now_);
    setCursor(!tool_.empty()       ? Qt::CrossCursor
              : handle             ? cursorOf(handle->dx, handle->dy)
              : onFormCorner(now_) ? Qt::SizeFDiagCursor
                                   : Qt::ArrowCursor);
    return;
  }
  moved_ = moved_ || (now_ - pressed_).manhattanLength() >= kLeastMove;
  update();
}

void FormSurface::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || drag_ == Drag::kNone) return;
  now_ = toForm(event->position());
  if (drag_ == Drag::kBand)
    finishBand(event->modifiers());
  else if (moved_)
    finishDrag();
  drag_ = Drag::kNone;
  moved_ = false;
  sync();
  update();
}

void FormSurface::finishDrag() {
  std::vector<std::pair<int, QRectF>> places;
  for (const int i : selected()) places.emplace_back(i, dragged(i));
  window_.run([&] {
    if (drag_ == Drag::kFormSize) {
      const auto properties = window_.component_->Properties();
      const QSizeF old = picture_->clientSize();
      const auto grow = [&](const char* name, double pixels) {
        const frame::Value value = properties->Item(name)->value();
        const double now = std::holds_alternative<double>(value) ? std::get<double>(value)
                           : std::holds_alternative<long>(value) ? static_cast<double>(std::get<long>(value))
                                                                 : 0;
        properties->Item(name)->setValue(now + pixels * kTwipsPerPixel);
      };
      grow("Width", std::max(kGrid, onGrid(now_.x())) - old.width());
      grow("Height", std::max(kGrid, onGrid(now_.y())) - old.height());
      return;
    }
    for (const auto& [i, place] : places) setPlace(picture_->shapes()[static_cast<std::size_t>(i)], place);
  });
}

void FormSurface::finishBand(Qt::KeyboardModifiers held) {
  const QRectF band = QRectF(pressed_, now_).normalized();
  if (!tool_.empty()) {
    const std::string progId = std::exchange(tool_, {});
    const int container = picture_->at(pressed_);
    add(progId, moved_ ? std::optional(band) : std::nullopt, container);
    if (window_.onToolUsed) window_.onToolUsed();
    return;
  }
  if (!moved_) return;
  std::vector<int> numbers =
      held & (Qt::ControlModifier | Qt::ShiftModifier) ? selected() : std::vector<int>();
  for (std::size_t i = 0; i < picture_->shapes().size(); ++i) {
    const Shape& shape = picture_->shapes()[i];
    const auto number = static_cast<int>(i);
    if (shape.parent == -1 && band.intersects(shape.place) &&
        std::find(numbers.begin(), numbers.end(), number) == numbers.end())
      numbers.push_back(number);
  }
  select(numbers);
}

void FormSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  const int number = picture_->at(toForm(event->position()));
  drag_ = Drag::kNone;
  if (!window_.onOpenCode) return;
  const std::string name =
      number < 0 ? std::string()
                 : frame::toText(picture_->shapes()[static_cast<std::size_t>(number)].values.at("Name"));
  window_.onOpenCode(name);
}

void FormSurface::contextMenuEvent(QContextMenuEvent* event) {
  if (window_.onContextMenu) window_.onContextMenu(event->globalPos());
}

// ---- changes

// `place` is in the form; the control's own numbers count from its container, in its container's units.
void FormSurface::setPlace(const Shape& shape, const QRectF& place) {
  const auto properties = shape.control->Properties();
  const QPointF by = place.topLeft() - shape.place.topLeft();
  const auto number = [&](const char* name) {
    const frame::Value value = properties->Item(name)->value();
    if (const auto* whole = std::get_if<long>(&value)) return static_cast<double>(*whole);
    return std::holds_alternative<double>(value) ? std::get<double>(value) : 0.0;
  };
  const auto shift = [&](const char* name, double by_, double unit) {
    if (by_ != 0) properties->Item(name)->setValue(std::round((number(name) + by_ * unit) * 1000) / 1000);
  };
  if (shape.isLine) {
    for (const char* x : {"X1", "X2"}) shift(x, by.x(), shape.unitX);
    for (const char* y : {"Y1", "Y2"}) shift(y, by.y(), shape.unitY);
    return;
  }
  shift("Left", by.x(), shape.unitX);
  shift("Top", by.y(), shape.unitY);
  if (!shape.hasSize) return;
  shift("Width", place.width() - shape.place.width(), shape.unitX);
  shift("Height", place.height() - shape.place.height(), shape.unitY);
}

void FormSurface::add(const std::string& progId, std::optional<QRectF> place, int container) {
  window_.run([&] {
    const auto& shapes = picture_->shapes();
    // The innermost that can hold it.
    int holder = container;
    while (holder >= 0 && shapes[static_cast<std::size_t>(holder)].control->ControlType() != 3)
      holder = shapes[static_cast<std::size_t>(holder)].parent;
    const auto owner = holder >= 0 ? shapes[static_cast<std::size_t>(holder)].control : nullptr;
    const auto form = window_.component_->Designer();
    const auto control = form->VBControls()->Add(progId, owner);
    refresh();
    for (const auto& each : form->SelectedVBControls()->items()) each->setInSelection(false);
    control->setInSelection(true);
    if (!place) return;
    for (const Shape& shape : picture_->shapes())
      if (shape.control == control) {
        QRectF wanted(onGrid(place->left()), onGrid(place->top()), onGrid(place->width()),
                      onGrid(place->height()));
        if (wanted.width() < kGrid || wanted.height() < kGrid) wanted.setSize(shape.place.size());
        return setPlace(shape, wanted);
      }
  });
  sync();
}

void FormSurface::deleteSelected() {
  window_.run([&] {
    const auto form = window_.component_->Designer();
    // One that stood in another one that was removed has gone with it.
    while (form->SelectedVBControls()->Count() > 0)
      form->VBControls()->Remove(form->SelectedVBControls()->Item(1));
  });
  sync();
}

void FormSurface::selectAll() {
  std::vector<int> all;
  for (std::size_t i = 0; i < picture_->shapes().size(); ++i)
    if (picture_->shapes()[i].parent == -1) all.push_back(static_cast<int>(i));
  select(all);
}

void FormSurface::nudge(int dx, int dy, bool size) {
  std::vector<std::pair<int, QRectF>> places;
  for (const int i : selected()) {
    QRectF place = picture_->shapes()[static_cast<std::size_t>(i)].place;
    if (size)
      place.setSize(
          QSizeF(std::max(kGrid, place.width() + dx * kGrid), std::max(kGrid, place.height() + dy * kGrid)));
    else
      place.translate(dx * kGrid, dy * kGrid);
    places.emplace_back(i, place);
  }
  window_.run([&] {
    for (const auto& [i, place] : places) setPlace(picture_->shapes()[static_cast<std::size_t>(i)], place);
  });
  sync();
}

void FormSurface::keyPressEvent(QKeyEvent* event) {
  const bool size = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_Left:
      return nudge(-1, 0, size);
    case Qt::Key_Right:
      return nudge(1, 0, size);
    case Qt::Key_Up:
      return nudge(0, -1, size);
    case Qt::Key_Down:
      return nudge(0, 1, size);
    case Qt::Key_Delete:
      return deleteSelected();
    case Qt::Key_Escape:
      tool_.clear();
      if (window_.onToolUsed) window_.onToolUsed();
      return select({});
    case Qt::Key_Return:
      if (window_.onOpenCode) {
        const auto shown = selected();
        window_.onOpenCode(
            shown.empty()
                ? std::string()
                : frame::toText(
                      picture_->shapes()[static_cast<std::size_t>(shown.back())].values.at("Name")));
      }
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

// Tab goes through the controls.
bool FormSurface::focusNextPrevChild(bool next) {
  const auto count = static_cast<int>(picture_->shapes().size());
  if (count == 0) return QWidget::focusNextPrevChild(next);
  const std::vector<int> shown = selected();
  const int from = shown.empty() ? (next ? -1 : count) : shown.back();
  select({(from + (next ? 1 : -1) + count) % count});
  return true;
}

void FormSurface::setTool(const std::string& progId) {
  tool_ = progId;
  setCursor(progId.empty() ? Qt::ArrowCursor : Qt::CrossCursor);
}

}  // namespace kolvane::workbench
