#include "workbench/toolbox.h"

#include <QSignalBlocker>

#include "workspace/class_tables.h"

namespace kolvane::workbench {

Toolbox::Toolbox(QWidget* parent) : QListWidget(parent) {
  setAccessibleName("Toolbox");
  addItem("Pointer");
  for (const workspace::ClassInfo& each : workspace::allClasses()) {
    if (each.isRoot || each.name == "Menu") continue;
    const QString name = QString::fromUtf8(each.name.data(), static_cast<qsizetype>(each.name.size()));
    auto* item = new QListWidgetItem(name, this);
    item->setData(Qt::UserRole, "VB." + name);
  }
  sortItems();
  // The pointer stands first.
  for (int i = 0; i < count(); ++i)
    if (!this->item(i)->data(Qt::UserRole).isValid()) insertItem(0, takeItem(i));
  setCurrentRow(0);
  connect(this, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* now) {
    if (onChosen && now != nullptr) onChosen(now->data(Qt::UserRole).toString().toStdString());
  });
  connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    const std::string progId = item->data(Qt::UserRole).toString().toStdString();
    if (onAdd && !progId.empty()) onAdd(progId);
  });
}

void Toolbox::release() {
  const QSignalBlocker quiet(this);
  setCurrentRow(0);
}

}  // namespace kolvane::workbench
