// ComboBox, ImageCombo, DriveList.
#include <QComboBox>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include "forms/file_lists.h"
#include "forms/lists.h"
#include "forms/user.h"
#include "qt/editor_view.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

namespace keys = forms::keys;

constexpr int kIndentation = Qt::UserRole;

class Combo final : public QComboBox {
 public:
  bool opens = true;
  void showPopup() override {
    if (opens) QComboBox::showPopup();
  }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (opens) return QComboBox::wheelEvent(event);
    event->ignore();
  }
};

struct Row {
  QString text;
  QIcon icon;
  int indentation = 0;
};

class Indenting final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem moved = option;
    moved.rect.adjust(indentation(index), 0, 0, 0);
    QStyledItemDelegate::paint(painter, moved, index);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(indentation(index), 0);
  }

 private:
  static int indentation(const QModelIndex& index) {
    constexpr int kStep = 12;
    return index.data(kIndentation).toInt() * kStep;
  }
};

// All three: a list that drops down, its text edited or not.
class ComboView : public EditorView {
 public:
  ComboView(FormWindow& window, forms::Control& control)
      : EditorView(window, control, new Combo), combo_(static_cast<Combo*>(widget())) {
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    combo_->setMinimumContentsLength(12);
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(combo_, &QComboBox::activated, this, [this](int index) {
      // Of equal texts an edited list would find the first: the index is what was chosen.
      act([&] { forms::user::selectIndex(this->control(), index); });
    });
  }

  std::vector<QWidget*> mouseWidgets() const override {
    if (combo_->lineEdit()) return {combo_, combo_->lineEdit()};
    return {combo_};
  }
  bool takesKey(int key, int shift) const override {
    constexpr int kF4 = keys::kF1 + 3;
    const bool opens =
        (shift == keys::kAlt && (key == keys::kUp || key == keys::kDown)) || (shift == 0 && key == kF4);
    const bool choosing =
        key == keys::kUp || key == keys::kDown || key == keys::kPageUp || key == keys::kPageDown;
    if (!combo_->opens && (opens || choosing || !combo_->lineEdit())) return false;
    return opens || EditorView::takesKey(key, shift);
  }
  bool takeCharacter(QChar character, bool changed) override {
    return combo_->lineEdit() && EditorView::takeCharacter(character, changed);
  }

 protected:
  QString shown() const override {
    return combo_->lineEdit() ? combo_->lineEdit()->text() : combo_->currentText();
  }
  int caret() const override { return combo_->lineEdit() ? combo_->lineEdit()->cursorPosition() : 0; }
  void replacePart(int at, int removed, const QString& inserted) override {
    combo_->lineEdit()->setSelection(at, removed);
    combo_->lineEdit()->insert(inserted);
  }
  void insert(const QString& text) override { combo_->lineEdit()->insert(text); }

  void allow(bool editable, bool opens) {
    combo_->opens = opens;
    if (combo_->isEditable() == editable) {
      if (combo_->lineEdit()) combo_->lineEdit()->setReadOnly(locked());
      return;
    }
    combo_->setEditable(editable);
    if (!editable) return;
    combo_->setCompleter(nullptr);
    combo_->lineEdit()->setReadOnly(locked());
    connect(combo_->lineEdit(), &QLineEdit::textEdited, this, [this] { edited(); });
  }
  void showRows(const std::vector<Row>& rows) {
    const auto count = static_cast<int>(rows.size());
    while (combo_->count() > count) combo_->removeItem(combo_->count() - 1);
    for (int i = 0; i < count; ++i) {
      const Row& row = rows[static_cast<std::size_t>(i)];
      if (i == combo_->count()) combo_->addItem(row.icon, row.text);
      if (combo_->itemText(i) != row.text) combo_->setItemText(i, row.text);
      // Each of these resets the edited text, and with it what is selected there.
      if (combo_->itemIcon(i).cacheKey() != row.icon.cacheKey()) combo_->setItemIcon(i, row.icon);
      if (combo_->itemData(i, kIndentation).toInt() != row.indentation)
        combo_->setItemData(i, row.indentation, kIndentation);
    }
  }
  void showChoice(int index) {
    if (combo_->currentIndex() != index) combo_->setCurrentIndex(index);
    if (combo_->lineEdit()) showText();
  }
  Combo& combo() { return *combo_; }

 private:
  Combo* combo_;
};

std::vector<Row> rowsOf(const FormWindow& window, const forms::ListControl& list) {
  std::vector<Row> rows;
  for (const std::string& text : list.items()) rows.push_back({window.text(text), {}, 0});
  return rows;
}

class ComboBoxView final : public ComboView {
 public:
  ComboBoxView(FormWindow& window, forms::Control& control)
      : ComboView(window, control), box_(static_cast<forms::ComboBox&>(control)) {
    allow(box_.style() == forms::ComboBox::kDropdownCombo, true);
  }

 protected:
  const std::string& bytes() const override { return box_.text(); }
  bool locked() const override { return box_.locked(); }
  void showState() override { allow(box_.style() == forms::ComboBox::kDropdownCombo, !box_.locked()); }
  void showContent() override { showRows(rowsOf(window(), box_)); }
  void showSelection() override { showChoice(box_.listIndex()); }

 private:
  forms::ComboBox& box_;
};

// A locked one can be chosen from, not written in.
class ImageComboView final : public ComboView {
 public:
  ImageComboView(FormWindow& window, forms::Control& control)
      : ComboView(window, control), box_(static_cast<forms::ImageCombo&>(control)) {
    combo().setItemDelegate(new Indenting(&combo()));
    allow(!box_.locked(), true);
  }

 protected:
  const std::string& bytes() const override { return box_.text(); }
  bool locked() const override { return box_.locked(); }
  void showState() override {
    if (combo().isEditable() == box_.locked()) window().layoutChanged();
  }
  void showContent() override {
    std::vector<Row> rows;
    for (int i = 0; i < box_.count(); ++i) {
      const auto& item = box_.item(i);
      rows.push_back({text(item.text), window().icon(item.picture), item.indentation});
    }
    showRows(rows);
  }
  void showSelection() override { showChoice(box_.listIndex()); }

 private:
  forms::ImageCombo& box_;
};

class DriveListView final : public ComboView {
 public:
  DriveListView(FormWindow& window, forms::Control& control)
      : ComboView(window, control), list_(static_cast<forms::DriveList&>(control)) {}

 protected:
  const std::string& bytes() const override {
    static const std::string kNone;
    return kNone;
  }
  bool locked() const override { return true; }
  void showContent() override { showRows(rowsOf(window(), list_)); }
  void showSelection() override { showChoice(list_.listIndex()); }

 private:
  forms::DriveList& list_;
};

}  // namespace

ControlView* makeComboBoxView(FormWindow& window, forms::Control& control) {
  return new ComboBoxView(window, control);
}
ControlView* makeImageComboView(FormWindow& window, forms::Control& control) {
  return new ImageComboView(window, control);
}
ControlView* makeDriveListView(FormWindow& window, forms::Control& control) {
  return new DriveListView(window, control);
}

}  // namespace kolvane::qt
