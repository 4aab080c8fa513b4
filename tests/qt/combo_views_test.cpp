#include <QComboBox>
#include <QLineEdit>

#include "on_screen.h"

namespace kolvane::test {
namespace {

class Drives final : public forms::FolderSource {
 public:
  std::vector<std::string> drives() override { return {"c:", "d: [DATA]"}; }
  std::vector<std::string> folders(const std::string&) override { return {}; }
  std::vector<std::string> files(const std::string&) override { return {}; }
};

class ComboForm final : public forms::Form {
 public:
  ComboForm(forms::Desk& desk, forms::FolderSource& source)
      : Form(desk, "frmCombos", "Combos"), drvDrive(*this, "drvDrive", source) {
    imgType.add("s", "String", "Search", 0);
    imgType.add("l", "Long", "Hot Key Setup", 2);
  }

  forms::ComboBox cboScope{
      *this, "cboScope", forms::ComboBox::kDropdownList, {"Public", "Private", "Friend"}};
  forms::ComboBox cboName{*this, "cboName", forms::ComboBox::kDropdownCombo, {"Count", "Item"}};
  forms::ImageCombo imgType{*this, "imgType"};
  forms::DriveList drvDrive;
  forms::Layout layout() const override {
    using namespace forms;
    return column(row("&Scope:", cboScope), row("&Name:", cboName), row("&Type:", imgType), drvDrive);
  }
};

class ComboViews : public OnScreen {
 protected:
  Drives drives;
  ComboForm form{desk, drives};

  void choose(const forms::Control& control, int index) {
    auto* const combo = shown<QComboBox>(control);
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
    settle();
  }
};

TEST_F(ComboViews, TheTextIsSelectedWhenItGetsTheFocusSoThatTypingReplacesIt) {
  show(form);
  form.cboName.setText("Count");
  settle();
  auto* const name = shown<QComboBox>(form.cboName);
  press(shown<QComboBox>(form.cboScope), Qt::Key_Tab);
  EXPECT_TRUE(form.cboName.hasFocus());
  type(name, "n");
  EXPECT_EQ(form.cboName.text(), "n");
  press(name, Qt::Key_A, Qt::ControlModifier);
  settle();
  type(name, "o");
  EXPECT_EQ(form.cboName.text(), "o");
}

TEST_F(ComboViews, DropdownList) {
  form.cboScope.onClick = log("click");
  show(form);
  auto* const combo = shown<QComboBox>(form.cboScope);
  EXPECT_FALSE(combo->isEditable());
  EXPECT_EQ(combo->accessibleName(), "Scope");
  choose(form.cboScope, 1);
  EXPECT_EQ(form.cboScope.text(), "Private");
  press(combo, Qt::Key_Down);
  EXPECT_EQ(form.cboScope.text(), "Friend");
  type(combo, "pu");
  EXPECT_EQ(form.cboScope.text(), "Public");
  EXPECT_THAT(taken(), ElementsAre("click", "click", "click"));  // the second letter changed nothing
  form.cboScope.setListIndex(1);
  settle();
  EXPECT_EQ(combo->currentText(), "Private");
  form.cboScope.removeItem(0);
  form.cboScope.addItem("Static");
  settle();
  EXPECT_EQ(combo->itemText(2), "Static");
  EXPECT_EQ(combo->currentText(), "Private");
  form.cboScope.setLocked(true);
  settle();
  press(combo, Qt::Key_Down);
  EXPECT_EQ(combo->currentText(), "Private");
}

TEST_F(ComboViews, DropdownComboTakesAnyText) {
  form.cboName.onClick = log("click");
  form.cboName.onChange = log("change");
  show(form);
  auto* const combo = shown<QComboBox>(form.cboName);
  choose(form.cboName, 1);
  EXPECT_EQ(form.cboName.text(), "Item");
  EXPECT_THAT(taken(), ElementsAre("click"));
  combo->setFocus();
  combo->lineEdit()->end(false);
  type(combo, "s");
  EXPECT_EQ(form.cboName.text(), "Items");
  EXPECT_EQ(form.cboName.listIndex(), -1);
  EXPECT_THAT(taken(), ElementsAre("change"));
  form.cboName.setText("Count");
  settle();
  EXPECT_EQ(combo->currentText(), "Count");
  EXPECT_EQ(combo->currentIndex(), 0);
}

TEST_F(ComboViews, ImageCombo) {
  form.imgType.onClick = log("click");
  show(form);
  auto* const combo = shown<QComboBox>(form.imgType);
  EXPECT_FALSE(combo->itemIcon(0).isNull());
  choose(form.imgType, 1);
  EXPECT_EQ(form.imgType.selectedItem().key, "l");
  EXPECT_THAT(taken(), ElementsAre("click"));
  form.imgType.selectKey("s");
  settle();
  EXPECT_EQ(combo->currentText(), "String");
  form.imgType.setLocked(true);  // can be chosen from still
  auto* const closed = shown<QComboBox>(form.imgType);
  EXPECT_FALSE(closed->isEditable());
  choose(form.imgType, 1);
  EXPECT_EQ(form.imgType.text(), "Long");
}

TEST_F(ComboViews, DriveList) {
  form.drvDrive.onChange = log("drive");
  show(form);
  choose(form.drvDrive, 1);
  EXPECT_EQ(form.drvDrive.drive(), "d: [DATA]");
  form.drvDrive.setDrive("c");
  EXPECT_EQ(shown<QComboBox>(form.drvDrive)->currentText(), "c:");
  EXPECT_THAT(taken(), ElementsAre("drive", "drive"));
}

}  // namespace
}  // namespace kolvane::test
