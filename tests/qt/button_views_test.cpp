#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "on_screen.h"

namespace kolvane::test {
namespace {

class ButtonForm final : public forms::Form {
 public:
  explicit ButtonForm(forms::Desk& desk) : Form(desk, "frmButtons", "Buttons") {
    cmdOK.setDefault(true);
    cmdCancel.setCancel(true);
  }

  forms::CheckBox chkLoud{*this, "chkLoud", "&Loud"};
  forms::OptionButton optRed{*this, "optRed", "&Red"};
  forms::OptionButton optBlue{*this, "optBlue", "&Blue"};
  forms::Frame fraSize{*this, "fraSize", "Size"};
  forms::OptionButton optBig{*this, "optBig", "Bi&g"};
  forms::Picture picFace{*this, "picFace", "Search"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};
  forms::Layout layout() const override {
    using namespace forms;
    return column(chkLoud, optRed, optBlue, group(fraSize, optBig), picFace, buttons(cmdOK, cmdCancel));
  }
};

class ButtonViews : public OnScreen {
 protected:
  ButtonForm form{desk};
};

TEST_F(ButtonViews, CommandButton) {
  form.cmdOK.onClick = log("ok");
  form.cmdCancel.onClick = log("cancel");
  show(form);
  auto* const button = shown<QPushButton>(form.cmdOK);
  EXPECT_TRUE(button->isDefault());
  click(form.cmdCancel);
  EXPECT_EQ(form.focus(), &form.cmdCancel);
  press(form, Qt::Key_Space);
  press(form, Qt::Key_Return);  // the button that has the focus, not the default one
  EXPECT_THAT(taken(), ElementsAre("cancel", "cancel", "cancel"));
  form.chkLoud.setFocus();
  press(form, Qt::Key_Return);
  press(form, Qt::Key_Escape);
  EXPECT_THAT(taken(), ElementsAre("ok", "cancel"));
  form.cmdOK.setEnabled(false);
  form.cmdOK.setCaption("&Go");
  form.cmdOK.setPicture("Search");
  click(form.cmdOK);
  EXPECT_THAT(taken(), IsEmpty());
  EXPECT_EQ(button->text(), "&Go");
  EXPECT_FALSE(button->icon().isNull());
}

TEST_F(ButtonViews, CheckBox) {
  form.chkLoud.onClick = log("click");
  show(form);
  auto* const box = shown<QCheckBox>(form.chkLoud);
  click(form.chkLoud);
  EXPECT_TRUE(form.chkLoud.checked());
  EXPECT_TRUE(box->isChecked());
  press(box, Qt::Key_Space);
  EXPECT_FALSE(form.chkLoud.checked());
  EXPECT_FALSE(box->isChecked());
  press(box, Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(form.chkLoud.checked());
  EXPECT_THAT(taken(), ElementsAre("click", "click", "click"));
  form.chkLoud.setValue(forms::Check::kGrayed);
  settle();
  EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
  EXPECT_THAT(taken(), ElementsAre("click"));
  form.chkLoud.onClick = [this] { form.chkLoud.setChecked(true); };  // a handler that insists
  click(form.chkLoud);
  EXPECT_TRUE(box->isChecked());
}

TEST_F(ButtonViews, OptionButtonsOfAGroup) {
  form.optRed.onClick = log("red");
  form.optBlue.onClick = log("blue");
  show(form);
  form.optBig.setValue(true);
  click(form.optRed);
  click(form.optBlue);
  click(form.optBlue);
  EXPECT_THAT(taken(), ElementsAre("red", "blue"));
  EXPECT_FALSE(shown<QRadioButton>(form.optRed)->isChecked());
  EXPECT_TRUE(shown<QRadioButton>(form.optBlue)->isChecked());
  EXPECT_TRUE(shown<QRadioButton>(form.optBig)->isChecked());
  press(form, Qt::Key_Down);  // round the group's end
  EXPECT_EQ(form.focus(), &form.optRed);
  EXPECT_TRUE(form.optRed.value());
  press(form, Qt::Key_Left);
  EXPECT_THAT(taken(), ElementsAre("red", "blue"));
  form.optRed.setValue(true);
  EXPECT_FALSE(shown<QRadioButton>(form.optBlue)->isChecked());
  EXPECT_TRUE(shown<QRadioButton>(form.optRed)->isChecked());
}

TEST_F(ButtonViews, Picture) {
  form.picFace.onClick = log("click");
  form.picFace.onDblClick = log("double");
  show(form);
  auto* const label = shown<QLabel>(form.picFace);
  EXPECT_EQ(label->pixmap(Qt::ReturnByValue).deviceIndependentSize(), QSizeF(32, 32));
  click(form.picFace);
  QTest::mouseClick(label, Qt::LeftButton);
  QTest::mouseDClick(label, Qt::LeftButton);
  EXPECT_THAT(taken(), ElementsAre("click", "click", "double"));
  // A picture of 2 by 1 pixels as the bytes of a file.
  using namespace std::string_literals;
  form.picFace.setImage("P6 2 1 255 abcdef"s);
  settle();
  EXPECT_EQ(label->pixmap(Qt::ReturnByValue).size(), QSize(2, 1));
}

}  // namespace
}  // namespace kolvane::test
