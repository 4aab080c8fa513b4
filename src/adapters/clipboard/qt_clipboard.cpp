#include "adapters/clipboard/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace kolvane::adapters {

namespace {

const QString& pictureType() {
  static const QString kType = QStringLiteral("application/x-kolvane-picture");
  return kType;
}

const QMimeData* held() { return QGuiApplication::clipboard()->mimeData(); }

// What is there already, to be added to.
QMimeData* copyOfHeld() {
  auto* const copy = new QMimeData;
  const QMimeData* const now = held();
  if (now && now->hasText()) copy->setText(now->text());
  if (now && now->hasFormat(pictureType())) copy->setData(pictureType(), now->data(pictureType()));
  return copy;
}

}  // namespace

void QtClipboard::clear() { QGuiApplication::clipboard()->clear(); }

std::optional<std::string> QtClipboard::text() const {
  if (!held() || !held()->hasText()) return std::nullopt;
  return held()->text().toStdString();
}

std::optional<std::string> QtClipboard::picture() const {
  if (!held() || !held()->hasFormat(pictureType())) return std::nullopt;
  return held()->data(pictureType()).toStdString();
}

void QtClipboard::setText(const std::string& utf8) {
  QMimeData* const data = copyOfHeld();
  data->setText(QString::fromStdString(utf8));
  QGuiApplication::clipboard()->setMimeData(data);
}

void QtClipboard::setPicture(const std::string& key) {
  QMimeData* const data = copyOfHeld();
  data->setData(pictureType(), QByteArray::fromStdString(key));
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace kolvane::adapters
