#include "qt/picture_icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <memory>

#include "frame/pictures.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

class SvgEngine final : public QIconEngine {
 public:
  explicit SvgEngine(std::shared_ptr<QSvgRenderer> picture) : picture_(std::move(picture)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device() ? painter->device()->devicePixelRatioF() : 1;
    QPixmap drawn = pixmap(rect.size() * scale, mode, state);
    drawn.setDevicePixelRatio(scale);
    painter->drawPixmap(rect.topLeft(), drawn);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    picture_->render(&painter, square(size));
    painter.end();
    if (mode != QIcon::Disabled) return drawn;
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
  QIconEngine* clone() const override { return new SvgEngine(*this); }
  bool isNull() override { return !picture_->isValid(); }

 private:
  // Pictures are as wide as high; what is left over of a longer side stays empty.
  static QRectF square(const QSize& size) {
    const qreal side = std::min(size.width(), size.height());
    return {(size.width() - side) / 2, (size.height() - side) / 2, side, side};
  }

  std::shared_ptr<QSvgRenderer> picture_;
};

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

bool isHighContrast(const QPalette& palette) {
  constexpr double kNearlyMost = 20.5;  // black on white is 21
  const double text = luminance(palette.color(QPalette::WindowText));
  const double ground = luminance(palette.color(QPalette::Window));
  return (std::max(text, ground) + 0.05) / (std::min(text, ground) + 0.05) >= kNearlyMost;
}

QIcon PictureIcons::icon(std::string_view name) const {
  std::string file = frame::pictureFile(name);
  if (file.empty() || home_.empty()) return {};
  if (isHighContrast(QApplication::palette())) {
    const std::string strong = frame::pictureFile(frame::pictureName(name, frame::PictureVariant::k95));
    if (!strong.empty()) file = strong;
  }
  const auto known = icons_.find(file);
  if (known != icons_.end()) return known->second;
  const auto picture = std::make_shared<QSvgRenderer>(utf8(home_ + "/" + file));
  const QIcon icon = picture->isValid() ? QIcon(new SvgEngine(picture)) : QIcon();
  icons_.emplace(file, icon);
  return icon;
}

}  // namespace kolvane::qt
