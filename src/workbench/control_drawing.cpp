#include "workbench/control_drawing.h"

#include <QPainterPath>
#include <QTextOption>
#include <algorithm>
#include <array>
#include <string_view>

#include "workbench/form_picture.h"

namespace kolvane::workbench {
namespace {

const QColor kFace(0xD4, 0xD0, 0xC8);
const QColor kLight(0xFF, 0xFF, 0xFF);
const QColor kShadow(0x80, 0x80, 0x80);
const QColor kDark(0x40, 0x40, 0x40);
constexpr double kArrow = 17;  // side of an arrow button
constexpr double kBox = 13;    // of a check box
constexpr long kFlat = 0;

void edge(QPainter& painter, const QRectF& place, const QColor& topLeft, const QColor& bottomRight) {
  painter.setPen(topLeft);
  painter.drawLine(place.topLeft(), QPointF(place.right() - 1, place.top()));
  painter.drawLine(place.topLeft(), QPointF(place.left(), place.bottom() - 1));
  painter.setPen(bottomRight);
  painter.drawLine(QPointF(place.right() - 1, place.top()), QPointF(place.right() - 1, place.bottom() - 1));
  painter.drawLine(QPointF(place.left(), place.bottom() - 1), QPointF(place.right() - 1, place.bottom() - 1));
}

void raised(QPainter& painter, const QRectF& place, const QColor& face) {
  painter.fillRect(place, face);
  edge(painter, place, kLight, kDark);
  edge(painter, place.adjusted(1, 1, -1, -1), face.lighter(105), kShadow);
}

void sunken(QPainter& painter, const QRectF& place, const QColor& ground) {
  painter.fillRect(place, ground);
  edge(painter, place, kShadow, kLight);
  edge(painter, place.adjusted(1, 1, -1, -1), kDark, kFace);
}

// By Appearance and BorderStyle.
void ground(QPainter& painter, const Shape& shape, const QColor& colour, long border) {
  if (shape.number("BorderStyle", border) == 0) return painter.fillRect(shape.place, colour);
  if (shape.number("Appearance", 1) != kFlat) return sunken(painter, shape.place, colour);
  painter.fillRect(shape.place, colour);
  painter.setPen(Qt::black);
  painter.drawRect(shape.place.adjusted(0, 0, -1, -1));
}

void write(QPainter& painter, const Shape& shape, const QRectF& place, const QString& text, int flags) {
  painter.setFont(shape.font());
  painter.setPen(shape.flag("Enabled", true) ? shape.colour("ForeColor", Qt::black) : kShadow);
  painter.save();
  painter.setClipRect(place, Qt::IntersectClip);
  painter.drawText(place, flags, text);
  painter.restore();
}

constexpr std::array kAlignments = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
int alignment(const Shape& shape) {
  return kAlignments[static_cast<std::size_t>(std::clamp(shape.number("Alignment"), 0L, 2L))];
}

void arrow(QPainter& painter, const QRectF& place, double dx, double dy) {
  raised(painter, place, kFace);
  constexpr double kHalf = 3.5;
  const QPointF c = place.center();
  const QPointF tip(c.x() + dx * 2, c.y() + dy * 2);
  const QPointF across(dy * kHalf, dx * kHalf);
  const QPointF back(c.x() - dx * 2, c.y() - dy * 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawPolygon(QPolygonF({tip, back + across, back - across}));
  painter.setBrush(Qt::NoBrush);
}

// ---- classes

void button(QPainter& painter, const Shape& shape) {
  raised(painter, shape.place, shape.colour("BackColor", kFace));
  if (!shape.picture.isNull() && shape.number("Style") == 1) {
    QRectF picture(QPointF(0, 0), shape.picture.size());
    picture.moveCenter(shape.place.center());
    painter.drawImage(picture.topLeft(), shape.picture);
  }
  write(painter, shape, shape.place.adjusted(3, 3, -3, -3), shape.text("Caption"),
        Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextWordWrap);
}

void label(QPainter& painter, const Shape& shape) {
  if (shape.number("BackStyle", 1) == 1) ground(painter, shape, shape.colour("BackColor", kFace), 0);
  write(painter, shape, shape.place, shape.text("Caption"),
        alignment(shape) | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic);
}

void textBox(QPainter& painter, const Shape& shape) {
  ground(painter, shape, shape.colour("BackColor", Qt::white), 1);
  const bool lines = shape.flag("MultiLine");
  write(painter, shape, shape.place.adjusted(4, 3, -4, -3), shape.text("Text"),
        alignment(shape) | (lines ? Qt::AlignTop | Qt::TextWordWrap : Qt::AlignVCenter | Qt::TextSingleLine));
  const long bars = shape.number("ScrollBars");
  const QRectF inner = shape.place.adjusted(2, 2, -2, -2);
  if (bars & 2) {
    arrow(painter, QRectF(inner.right() - kArrow, inner.top(), kArrow, kArrow), 0, -1);
    arrow(painter, QRectF(inner.right() - kArrow, inner.bottom() - kArrow, kArrow, kArrow), 0, 1);
  }
}

void groupBox(QPainter& painter, const Shape& shape) {
  painter.fillRect(shape.place, shape.colour("BackColor", kFace));
  const QFont font = shape.font();
  const QFontMetricsF metrics(font);
  const double half = metrics.height() / 2;
  if (shape.number("BorderStyle", 1) != 0) {
    const QRectF line = shape.place.adjusted(0, half, -1, -1);
    painter.setPen(kLight);
    painter.drawRect(line.adjusted(1, 1, 0, 0));
    painter.setPen(kShadow);
    painter.drawRect(line.adjusted(0, 0, -1, -1));
  }
  const QString caption = shape.text("Caption");
  if (caption.isEmpty()) return;
  const QRectF title(shape.place.left() + 8, shape.place.top(),
                     metrics.size(Qt::TextShowMnemonic, caption).width() + 4, metrics.height());
  painter.fillRect(title, shape.colour("BackColor", kFace));
  write(painter, shape, title, caption, Qt::AlignCenter | Qt::TextShowMnemonic);
}

// A box or circle in front of the caption, or behind it.
QRectF markPlace(const Shape& shape) {
  const bool right = shape.number("Alignment") == 1;
  const double x = right ? shape.place.right() - kBox : shape.place.left();
  return {x, shape.place.center().y() - kBox / 2, kBox, kBox};
}

void captionBesideMark(QPainter& painter, const Shape& shape) {
  constexpr double kGap = kBox + 4;
  const bool right = shape.number("Alignment") == 1;
  write(painter, shape, shape.place.adjusted(right ? 0 : kGap, 0, right ? -kGap : 0, 0),
        shape.text("Caption"), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextWordWrap);
}

void checkBox(QPainter& painter, const Shape& shape) {
  if (shape.number("Style") == 1) return button(painter, shape);
  painter.fillRect(shape.place, shape.colour("BackColor", kFace));
  const QRectF mark = markPlace(shape);
  sunken(painter, mark, shape.number("Value") == 2 ? kFace : QColor(Qt::white));
  if (shape.number("Value") != 0) {
    painter.setPen(QPen(Qt::black, 2));
    painter.drawPolyline(QPolygonF({mark.center() + QPointF(-3, 0), mark.center() + QPointF(-1, 2.5),
                                    mark.center() + QPointF(3.5, -3)}));
  }
  captionBesideMark(painter, shape);
}

void optionButton(QPainter& painter, const Shape& shape) {
  if (shape.number("Style") == 1) return button(painter, shape);
  painter.fillRect(shape.place, shape.colour("BackColor", kFace));
  const QRectF mark = markPlace(shape).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::white);
  painter.setPen(kShadow);
  painter.drawEllipse(mark);
  if (shape.flag("Value")) {
    painter.setBrush(Qt::black);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(mark.center(), 2.5, 2.5);
  }
  painter.restore();
  captionBesideMark(painter, shape);
}

void comboBox(QPainter& painter, const Shape& shape) {
  sunken(painter, shape.place, shape.colour("BackColor", Qt::white));
  const QRectF inner = shape.place.adjusted(2, 2, -2, -2);
  const QString text = shape.text("Text");
  write(painter, shape, inner.adjusted(3, 0, -kArrow, 0), text.isEmpty() ? shape.name : text,
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine);
  arrow(painter, QRectF(inner.right() - kArrow, inner.top(), kArrow, inner.height()), 0, 1);
}

void listBox(QPainter& painter, const Shape& shape) {
  sunken(painter, shape.place, shape.colour("BackColor", Qt::white));
  const QString entries = shape.text("List");
  write(painter, shape, shape.place.adjusted(4, 3, -4, -3), entries.isEmpty() ? shape.name : entries,
        Qt::AlignLeft | Qt::AlignTop);
}

void horizontalBar(QPainter& painter, const Shape& shape) {
  painter.fillRect(shape.place, QBrush(kFace.lighter(110)));
  const double side = std::min(kArrow, shape.place.width() / 2);
  arrow(painter, QRectF(shape.place.topLeft(), QSizeF(side, shape.place.height())), -1, 0);
  arrow(painter, QRectF(shape.place.right() - side, shape.place.top(), side, shape.place.height()), 1, 0);
}

void verticalBar(QPainter& painter, const Shape& shape) {
  painter.fillRect(shape.place, QBrush(kFace.lighter(110)));
  const double side = std::min(kArrow, shape.place.height() / 2);
  arrow(painter, QRectF(shape.place.topLeft(), QSizeF(shape.place.width(), side)), 0, -1);
  arrow(painter, QRectF(shape.place.left(), shape.place.bottom() - side, shape.place.width(), side), 0, 1);
}

void pictureBox(QPainter& painter, const Shape& shape) {
  ground(painter, shape, shape.colour("BackColor", kFace), 1);
  painter.setClipRect(shape.place.adjusted(2, 2, -2, -2), Qt::IntersectClip);
  if (!shape.picture.isNull()) painter.drawImage(shape.place.topLeft() + QPointF(2, 2), shape.picture);
}

void image(QPainter& painter, const Shape& shape) {
  if (!shape.picture.isNull()) {
    if (shape.flag("Stretch"))
      painter.drawImage(shape.place, shape.picture);
    else
      painter.drawImage(shape.place.topLeft(), shape.picture);
  }
  painter.setPen(QPen(kShadow, 1, Qt::DashLine));
  painter.drawRect(shape.place.adjusted(0, 0, -1, -1));
}

// By BorderStyle: transparent, solid, dash, dot, dash-dot, dash-dot-dot, inside solid.
constexpr std::array kLineStyles = {Qt::NoPen,       Qt::SolidLine,      Qt::DashLine, Qt::DotLine,
                                    Qt::DashDotLine, Qt::DashDotDotLine, Qt::SolidLine};
// By FillStyle: solid, transparent, and the hatches.
constexpr std::array kFillStyles = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                    Qt::VerPattern,   Qt::FDiagPattern,    Qt::BDiagPattern,
                                    Qt::CrossPattern, Qt::DiagCrossPattern};

QPen borderPen(const Shape& shape) {
  const auto style = static_cast<std::size_t>(std::clamp(shape.number("BorderStyle", 1), 0L, 6L));
  return {shape.colour("BorderColor", Qt::black),
          static_cast<double>(std::max(1L, shape.number("BorderWidth", 1))), kLineStyles[style]};
}

void figure(QPainter& painter, const Shape& shape) {
  const long kind = shape.number("Shape");
  QRectF place = shape.place.adjusted(0, 0, -1, -1);
  if (kind == 1 || kind == 3 || kind == 5) {
    const double side = std::min(place.width(), place.height());
    const QPointF center = place.center();
    place = QRectF(center.x() - side / 2, center.y() - side / 2, side, side);
  }
  painter.setRenderHint(QPainter::Antialiasing, kind >= 2);
  painter.setPen(borderPen(shape));
  if (shape.number("BackStyle") == 1) painter.setBrush(shape.colour("BackColor", Qt::white));
  const auto fill = static_cast<std::size_t>(std::clamp(shape.number("FillStyle", 1), 0L, 7L));
  const auto outline = [&] {
    constexpr double kRound = 8;
    if (kind == 2 || kind == 3)
      painter.drawEllipse(place);
    else if (kind >= 4)
      painter.drawRoundedRect(place, kRound, kRound);
    else
      painter.drawRect(place);
  };
  outline();
  if (fill == 1) return;
  painter.setBrush(QBrush(shape.colour("FillColor", Qt::black), kFillStyles[fill]));
  outline();
}

void line(QPainter& painter, const Shape& shape) {
  painter.setRenderHint(QPainter::Antialiasing,
                        shape.from.x() != shape.to.x() && shape.from.y() != shape.to.y());
  painter.setPen(borderPen(shape));
  painter.drawLine(shape.from, shape.to);
}

void timer(QPainter& painter, const Shape& shape) {
  raised(painter, shape.place, kFace);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 1.5));
  painter.setBrush(Qt::white);
  const QPointF c = shape.place.center();
  painter.drawEllipse(c, 9, 9);
  painter.drawLine(c, c + QPointF(0, -6));
  painter.drawLine(c, c + QPointF(4, 2));
}

void dataControl(QPainter& painter, const Shape& shape) {
  raised(painter, shape.place, shape.colour("BackColor", kFace));
  const double side = std::min(kArrow, shape.place.width() / 4);
  const QRectF& place = shape.place;
  for (int i = 0; i < 2; ++i) {
    arrow(painter, QRectF(place.left() + i * side, place.top(), side, place.height()), -1, 0);
    arrow(painter, QRectF(place.right() - (i + 1) * side, place.top(), side, place.height()), 1, 0);
  }
  write(painter, shape, place.adjusted(2 * side + 2, 0, -2 * side - 2, 0), shape.text("Caption"),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine);
}

void named(QPainter& painter, const Shape& shape) {
  if (!shape.hasSize) {
    raised(painter, shape.place, kFace);
    painter.setFont(shape.font());
    painter.setPen(Qt::black);
    painter.drawText(shape.place, Qt::AlignCenter, QString::fromStdString(shape.className).left(3));
    return;
  }
  painter.fillRect(shape.place, QBrush(QColor(0xF4, 0xF2, 0xEE)));
  painter.setPen(kShadow);
  painter.drawRect(shape.place.adjusted(0, 0, -1, -1));
  const QString className = QString::fromStdString(shape.className);
  const bool isLow = shape.place.height() < 2 * QFontMetricsF(shape.font()).height() + 6;
  const QRectF inside = shape.place.adjusted(3, 0, -3, 0);
  if (!isLow)
    return write(painter, shape, inside, shape.name + "\n" + className, Qt::AlignCenter | Qt::TextWordWrap);
  const QString line =
      QFontMetricsF(shape.font()).elidedText(shape.name + " : " + className, Qt::ElideRight, inside.width());
  write(painter, shape, inside, line, Qt::AlignCenter | Qt::TextSingleLine);
}

struct Look {
  std::string_view className;
  void (*draw)(QPainter& painter, const Shape& shape);
};
constexpr std::array kLooks = {
    Look{"CheckBox", checkBox},
    Look{"ComboBox", comboBox},
    Look{"CommandButton", button},
    Look{"Data", dataControl},
    Look{"DirListBox", listBox},
    Look{"DriveListBox", comboBox},
    Look{"FileListBox", listBox},
    Look{"Frame", groupBox},
    Look{"HScrollBar", horizontalBar},
    Look{"Image", image},
    Look{"Label", label},
    Look{"Line", line},
    Look{"ListBox", listBox},
    Look{"OLE", named},
    Look{"OptionButton", optionButton},
    Look{"PictureBox", pictureBox},
    Look{"Shape", figure},
    Look{"TextBox", textBox},
    Look{"Timer", timer},
    Look{"VScrollBar", verticalBar},
};

}  // namespace

void drawControl(QPainter& painter, const Shape& shape) {
  painter.setBrush(Qt::NoBrush);
  for (const Look& look : kLooks)
    if (look.className == shape.className) return look.draw(painter, shape);
  named(painter, shape);
}

}  // namespace kolvane::workbench
