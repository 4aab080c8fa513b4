#include "workbench/properties_window.h"

#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "base/text.h"
#include "qt/text_convert.h"
#include "workbench/form_picture.h"
#include "workspace/designer_tree.h"

namespace kolvane::workbench {
namespace {

using workspace::PropertyInfo;
using workspace::PropertyType;

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;
constexpr int kNameRole = Qt::UserRole;
constexpr int kColourRole = Qt::UserRole + 1;

std::string nameOf(frame::VBControl& control) {
  return frame::toText(control.Properties()->Item("Name")->value());
}

// "txtName(2)" of a control array's element.
std::string fullNameOf(frame::VBControl& control) {
  std::string name = nameOf(control);
  try {
    const std::string index = frame::toText(control.Properties()->Item("Index")->value());
    if (!index.empty() && index != "-1") name += "(" + index + ")";
  } catch (const base::Error&) {
    // A class without an index.
  }
  return name;
}

}  // namespace

// An editor by the property's type: a list for choices, a line for the rest; colours and fonts have dialogs.
class PropertyDelegate final : public QStyledItemDelegate {
 public:
  explicit PropertyDelegate(PropertiesWindow& window) : QStyledItemDelegate(&window), window_(window) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                        const QModelIndex& index) const override {
    const PropertyInfo* info = window_.infoOf(window_.nameAt(index.row()));
    const PropertyType type = info ? info->type : PropertyType::kText;
    QStringList choices;
    if (type == PropertyType::kBoolean) choices = {"True", "False"};
    if (type == PropertyType::kEnumeration)
      for (const workspace::ValueName& each : info->names)
        choices += QStringLiteral("%1 - %2")
                       .arg(each.number)
                       .arg(QLatin1String(each.name.data(), static_cast<qsizetype>(each.name.size())));
    if (choices.isEmpty()) {
      auto* line = new QLineEdit(parent);
      line->setFrame(false);
      return line;
    }
    auto* list = new QComboBox(parent);
    list->addItems(choices);
    list->setFrame(false);
    connect(list, &QComboBox::activated, this, [this, list] {
      auto* self = const_cast<PropertyDelegate*>(this);
      Q_EMIT self->commitData(list);
      Q_EMIT self->closeEditor(list);
    });
    return list;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const QString text = index.data().toString();
    if (auto* list = qobject_cast<QComboBox*>(editor)) list->setCurrentText(text);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) line->setText(text);
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
    const auto* list = qobject_cast<QComboBox*>(editor);
    const auto* line = qobject_cast<QLineEdit*>(editor);
    const QString text = list ? list->currentText() : line->text();
    if (text == index.data().toString()) return;
    const QString property = model->index(index.row(), kNameColumn).data(kNameRole).toString();
    window_.enter(property, text);
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant colour = index.data(kColourRole);
    if (!colour.isValid()) return;
    const QRect swatch(option.rect.right() - 22, option.rect.top() + 3, 18, option.rect.height() - 7);
    painter->fillRect(swatch, colour.value<QColor>());
    painter->setPen(Qt::black);
    painter->drawRect(swatch);
  }

 private:
  PropertiesWindow& window_;
};

PropertiesWindow::PropertiesWindow(Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      objects_(new QComboBox(this)),
      table_(new QTableWidget(0, 2, this)) {
  objects_->setAccessibleName("Object");
  table_->setAccessibleName("Properties");
  table_->setItemDelegate(new PropertyDelegate(*this));
  table_->horizontalHeader()->hide();
  table_->horizontalHeader()->setSectionResizeMode(kNameColumn, QHeaderView::ResizeToContents);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(objects_);
  column->addWidget(table_, 1);
  setFocusProxy(table_);
  connect(objects_, &QComboBox::activated, this, [this](int index) { chooseObject(index); });
  connect(table_, &QTableWidget::cellDoubleClicked, this, [this](int row) { edit(row); });
}

// ---- what is shown

void PropertiesWindow::sync(const std::shared_ptr<workspace::Component>& component, bool inDesigner) {
  if (filling_) return;
  std::vector<ControlPtr> controls;
  Seen now;
  if (component && !component->isRemoved() && component->hasSource()) {
    const workspace::DesignerTree* tree = component->header().designer();
    now = {component.get(), tree, tree ? tree->edits() : 0, 0, {}, component->name()};
    if (inDesigner)
      if (const auto form = component->Designer()) controls = form->SelectedVBControls()->items();
    for (const ControlPtr& control : controls) now.controls.push_back(control.get());
    if (tree == nullptr) now.edits = component->isDirty() ? 1 : 0;
  }
  if (now == seen_) return;
  seen_ = std::move(now);
  component_ = seen_.component != nullptr ? component : nullptr;
  controls_ = std::move(controls);
  fillObjects();
  fill();
}

void PropertiesWindow::fillObjects() {
  const QSignalBlocker quiet(objects_);
  objects_->clear();
  if (!component_) return;
  objects_->addItem(session_.text(component_->name()), QString());
  if (const auto form = component_->Designer())
    for (const auto& control : form->VBControls()->items()) {
      const std::string name = fullNameOf(*control);
      objects_->addItem(session_.text(name + "  " + control->ClassName()), session_.text(name));
    }
  objects_->setCurrentIndex(
      controls_.empty() ? 0 : std::max(0, objects_->findData(session_.text(fullNameOf(*controls_.back())))));
}

void PropertiesWindow::chooseObject(int index) {
  if (!component_) return;
  const std::string name = qt::fromQt(session_.codePage(), objects_->itemData(index).toString());
  const auto work = [&] {
    const auto form = component_->Designer();
    if (!form) return;
    for (const auto& control : form->SelectedVBControls()->items()) control->setInSelection(false);
    if (!name.empty()) form->VBControls()->Item(name)->setInSelection(true);
  };
  runCommand ? runCommand(work) : work();
}

std::vector<std::shared_ptr<frame::Properties>> PropertiesWindow::targets() const {
  std::vector<std::shared_ptr<frame::Properties>> all;
  for (const ControlPtr& control : controls_) all.push_back(control->Properties());
  if (all.empty() && component_) all.push_back(component_->Properties());
  return all;
}

const PropertyInfo* PropertiesWindow::infoOf(const std::string& property) const {
  if (!component_) return nullptr;
  std::string className =
      controls_.empty() ? std::string(component_->header().rootClass()) : controls_.back()->ClassName();
  if (controls_.empty() && className.empty())
    className = component_->Type() == frame::ComponentType::kClassModule ? "Class" : "Module";
  if (const workspace::ClassInfo* info = workspace::findClass(className))
    return workspace::findProperty(*info, property);
  if (const PropertyInfo* found = workspace::findProperty(workspace::foreignProperties(), property))
    return found;
  return workspace::findProperty(workspace::foreignVisibleProperties(), property);
}

QString PropertiesWindow::shown(const std::string& property, const frame::Value& value) const {
  const PropertyInfo* info = infoOf(property);
  if (const auto* object = std::get_if<frame::ObjectValue>(&value)) {
    if (object->kind == "Font") {
      for (const auto& [name, text] : object->parts)
        if (name == "Name") return session_.text(text).remove('"');
      return QStringLiteral("MS Sans Serif");
    }
    return object->text.empty() ? QStringLiteral("(None)") : "(" + session_.text(object->kind) + ")";
  }
  if (info != nullptr && std::holds_alternative<long>(value)) {
    const long number = std::get<long>(value);
    if (info->type == PropertyType::kColour)
      return QStringLiteral("&H%1&")
          .arg(static_cast<std::uint32_t>(number), 8, 16, QLatin1Char('0'))
          .toUpper();
    const std::string_view name = workspace::valueName(*info, number);
    if (!name.empty()) return QStringLiteral("%1 - %2").arg(number).arg(session_.text(name));
  }
  return session_.text(frame::toText(value));
}

// "(Name)" first. Of several controls what all of them have; a value where they agree.
void PropertiesWindow::fill() {
  const QScopedValueRollback quiet(filling_, true);
  const std::string current = nameAt(table_->currentRow());
  table_->setRowCount(0);
  const auto all = targets();
  if (all.empty()) return;
  std::vector<std::pair<std::string, frame::Value>> rows;
  std::vector<bool> agreed;
  for (const auto& property : all.back()->items()) {
    const frame::Value value = property->value();
    bool everywhere = true, same = true;
    for (std::size_t i = 0; i + 1 < all.size() && everywhere; ++i) {
      try {
        same = all[i]->Item(property->Name())->value() == value && same;
      } catch (const base::Error&) {
        everywhere = false;
      }
    }
    if (!everywhere || (all.size() > 1 && property->Name() == "Name")) continue;
    rows.emplace_back(property->Name(), value);
    agreed.push_back(same);
  }
  table_->setRowCount(static_cast<int>(rows.size()));
  int row = 0;
  const auto add = [&](std::size_t i) {
    const auto& [name, value] = rows[i];
    auto* title = new QTableWidgetItem(name == "Name" ? QStringLiteral("(Name)") : session_.text(name));
    title->setData(kNameRole, session_.text(name));
    title->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    table_->setItem(row, kNameColumn, title);
    auto* cell = new QTableWidgetItem(agreed[i] ? shown(name, value) : QString());
    const PropertyInfo* info = infoOf(name);
    const bool isObject = std::holds_alternative<frame::ObjectValue>(value);
    if (isObject) cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    if (info && info->type == PropertyType::kColour && agreed[i] && std::holds_alternative<long>(value))
      cell->setData(kColourRole, colourOf(std::get<long>(value)));
    table_->setItem(row, kValueColumn, cell);
    if (name == current) table_->setCurrentCell(row, kValueColumn);
    ++row;
  };
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].first == "Name") add(i);
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].first != "Name") add(i);
}

std::string PropertiesWindow::nameAt(int row) const {
  const QTableWidgetItem* item = row >= 0 ? table_->item(row, kNameColumn) : nullptr;
  return item ? qt::fromQt(session_.codePage(), item->data(kNameRole).toString()) : std::string();
}

QString PropertiesWindow::value(const QString& property) const {
  for (int row = 0; row < table_->rowCount(); ++row)
    if (table_->item(row, kNameColumn)->data(kNameRole).toString() == property)
      return table_->item(row, kValueColumn)->text();
  return {};
}

// ---- changes

void PropertiesWindow::set(const std::string& property, const frame::Value& value) {
  const auto all = targets();
  const auto work = [&] {
    for (const auto& each : all) each->Item(property)->setValue(value);
  };
  runCommand ? runCommand(work) : (void)session_.attempt(work);
  // Show what became of it, also when nothing has.
  seen_ = {};
}

void PropertiesWindow::enter(const QString& property, const QString& text) {
  session_.attempt([&] {
    const std::string name = qt::fromQt(session_.codePage(), property);
    const PropertyInfo* info = infoOf(name);
    const bool isChoice = info != nullptr && info->type == PropertyType::kEnumeration;
    const QString plain = isChoice ? text.section(" - ", 0, 0) : text;
    set(name, qt::fromQt(session_.codePage(), plain));
  });
}

void PropertiesWindow::edit(int row) {
  const std::string name = nameAt(row);
  const PropertyInfo* info = infoOf(name);
  if (info == nullptr) return;
  if (info->type == PropertyType::kColour) chooseColour(name);
  if (info->type == PropertyType::kFont) chooseFont(name);
}

void PropertiesWindow::chooseColour(const std::string& property) {
  const frame::Value value = targets().back()->Item(property)->value();
  const long now = std::holds_alternative<long>(value) ? std::get<long>(value) : 0;
  const QColor chosen = QColorDialog::getColor(colourOf(now), this, session_.text(property));
  if (!chosen.isValid() || chosen == colourOf(now)) return;
  set(property, static_cast<long>(chosen.red() | chosen.green() << 8 | chosen.blue() << 16));
}

void PropertiesWindow::chooseFont(const std::string& property) {
  const auto parts = targets().back()->Item(property)->Object();
  if (!parts) return;
  const auto textOf = [&](const char* name) {
    return session_.text(frame::toText(parts->Item(name)->value()));
  };
  QFont font(textOf("Name"));
  font.setPointSizeF(std::max(1.0, textOf("Size").toDouble()));
  font.setBold(textOf("Weight").toInt() > 500);
  font.setItalic(textOf("Italic") == "True");
  font.setUnderline(textOf("Underline") == "True");
  font.setStrikeOut(textOf("Strikethrough") == "True");
  bool chosen = false;
  font = QFontDialog::getFont(&chosen, font, this, "Font");
  if (!chosen) return;
  const auto all = targets();
  const auto work = [&] {
    for (const auto& each : all) {
      const auto own = each->Item(property)->Object();
      own->Item("Name")->setValue(session_.shown(font.family()));
      own->Item("Size")->setValue(font.pointSizeF());
      own->Item("Weight")->setValue(font.bold() ? 700L : 400L);
      own->Item("Italic")->setValue(font.italic());
      own->Item("Underline")->setValue(font.underline());
      own->Item("Strikethrough")->setValue(font.strikeOut());
    }
  };
  runCommand ? runCommand(work) : (void)session_.attempt(work);
  seen_ = {};
}

}  // namespace kolvane::workbench
