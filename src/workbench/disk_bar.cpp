#include "workbench/disk_bar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

#include "qt/text_convert.h"
#include "workspace/paths.h"

namespace kolvane::workbench {
namespace {

constexpr std::size_t kMostRows = 4;
constexpr std::size_t kMostNames = 4;

}  // namespace

DiskBar::DiskBar(Session& session, FileWork& files, QWidget* parent)
    : QFrame(parent), session_(session), files_(files), column_(new QVBoxLayout(this)) {
  setObjectName("DiskBar");
  setAccessibleName("Files changed on the disk");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  column_->setContentsMargins(8, 4, 8, 4);
  column_->setSpacing(4);
  hide();
}

std::vector<DiskBar::Row> DiskBar::rowsNow() {
  std::vector<Row> rows;
  Row fresh;
  for (const auto& component : files_.changedOutside()) {
    if (component->isDirty())
      rows.push_back({{component}, true, files_.wasRefused(*component)});
    else
      fresh.components.push_back(component);
  }
  if (!fresh.components.empty()) rows.insert(rows.begin(), fresh);
  if (rows.size() > kMostRows) rows.resize(kMostRows);  // the others come when these are decided about
  return rows;
}

void DiskBar::sync() {
  std::vector<Row> rows = rowsNow();
  if (rows == rows_) return;
  rows_ = std::move(rows);
  const QWidget* focused = QApplication::focusWidget();
  const bool hadFocus = focused != nullptr && isAncestorOf(focused);
  while (QLayoutItem* item = column_->takeAt(0)) {
    // One of its buttons may be the one that is being clicked.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  for (const Row& row : rows_) column_->addWidget(widgetFor(row));
  setVisible(!rows_.empty());
  if (hadFocus && onLeft) onLeft();
}

QString DiskBar::namesOf(const Components& components) const {
  QStringList names;
  for (std::size_t i = 0; i < std::min(components.size(), kMostNames); ++i)
    names += qt::utf8(workspace::fileName(components[i]->file().path()));
  if (components.size() > kMostNames)
    return names.join(", ") + QStringLiteral(" and %1 more").arg(components.size() - kMostNames);
  const QString last = names.takeLast();
  return names.isEmpty() ? last : names.join(", ") + " and " + last;
}

QString DiskBar::textOf(const Row& row) const {
  const QString names = namesOf(row.components);
  if (row.wasRefused) return names + " was not saved: it has changed on the disk.";
  if (row.isEdited) return "Another program has changed " + names + ", which has unsaved changes here.";
  return "Another program has changed " + names + ".";
}

QWidget* DiskBar::widgetFor(const Row& row) {
  auto* widget = new QWidget(this);
  auto* line = new QHBoxLayout(widget);
  line->setContentsMargins(0, 0, 0, 0);
  auto* icon = new QLabel(widget);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
  line->addWidget(icon);
  auto* text = new QLabel(textOf(row), widget);
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setForegroundRole(QPalette::ToolTipText);
  line->addWidget(text, 1);
  const auto offer = [&](const QString& caption, std::function<void()> work) {
    auto* button = new QPushButton(caption, widget);
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys to the code
    connect(button, &QPushButton::clicked, this, [this, work = std::move(work)] {
      if (runCommand)
        runCommand(work);
      else
        work();
      sync();
    });
    line->addWidget(button);
  };
  const Components& those = row.components;
  if (row.wasRefused) offer("Save Mine Over It", [this, those] { files_.writeOver(those.front()); });
  if (row.isEdited) {
    offer("Drop My Changes and Read It Again", [this, those] { files_.readAgain(those); });
    offer("Keep My Changes", [this, those] { files_.leave(those); });
    return widget;
  }
  const bool isOne = those.size() == 1;
  // What was typed in meanwhile has a row of its own.
  offer(isOne ? "Read It Again" : "Read Them Again", [this, those] {
    Components unedited;
    std::copy_if(those.begin(), those.end(), std::back_inserter(unedited),
                 [](const auto& component) { return !component->isDirty(); });
    files_.readAgain(unedited);
  });
  offer(isOne ? "Leave It as It Is Here" : "Leave Them as They Are Here",
        [this, those] { files_.leave(those); });
  return widget;
}

}  // namespace kolvane::workbench
