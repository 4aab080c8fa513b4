// The dialog of the user's own error handlers, driven through its controls.
#include "writers/custom_handlers_form.h"

#include <gmock/gmock.h>

#include <memory>

#include "forms/user.h"
#include "support/test_host.h"
#include "writers/custom_handlers.h"

namespace kolvane::writers {
namespace {

namespace user = forms::user;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kSaveQuestion = "You have made changes, Do you want to save them?";

class CustomHandlersFormTest : public testing::Test {
 protected:
  ~CustomHandlersFormTest() override {
    if (form_ && form_->loaded()) form_->unload(forms::UnloadMode::kEnd);
  }

  void store(std::string_view name, std::string_view text) { writeCustomHandler(settings_, name, text); }
  std::string stored(std::string_view name) { return ReturnCustomError(settings_, name); }
  frmCustomErrorHandlers& open() {
    form_ = std::make_shared<frmCustomErrorHandlers>(host_.services());
    form_->show();
    return *form_;
  }
  // The texts of the boxes since the last call.
  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const forms::BoxRecord& box : host_.desk().takeLog()) texts.push_back(box.text);
    return texts;
  }
  void add(std::string_view name) {
    user::setText(form_->txtName, name);
    user::click(form_->cmdAdd);
  }

  test::TestHost host_;
  frame::Settings& settings_ = host_.services().settings;
  std::shared_ptr<frmCustomErrorHandlers> form_;
};

TEST_F(CustomHandlersFormTest, WithoutHandlersOnlyANameCanBeTyped) {
  auto& form = open();
  EXPECT_THAT(forms::layoutFaults(form), IsEmpty());
  EXPECT_TRUE(form.txtName.hasFocus());
  EXPECT_TRUE(form.txtError.locked());
  for (const forms::Control* control : std::initializer_list<const forms::Control*>{
           &form.cmdDelete, &form.cmdAddElements, &form.cboErrors, &form.cboStandardElements, &form.cmdClear,
           &form.cmdSave, &form.cmdAdd})
    EXPECT_FALSE(control->enabled()) << control->name();
  user::setText(form.txtName, "   ");
  EXPECT_FALSE(form.cmdAdd.enabled());
  user::setText(form.txtName, "Log");
  EXPECT_TRUE(form.cmdAdd.enabled());
}

TEST_F(CustomHandlersFormTest, AHandlerIsStoredOnceItsTextIsSaved) {
  auto& form = open();
  add("Log");
  EXPECT_TRUE(form.txtError.hasFocus());
  EXPECT_EQ(form.txtName.text(), "");
  EXPECT_EQ(form.cboErrors.text(), "Log");
  EXPECT_FALSE(form.cmdSave.enabled());
  EXPECT_THAT(GetCustomErrors(settings_), IsEmpty());
  user::setText(form.txtError, "Beep\r\nStop");
  user::click(form.cmdSave);
  EXPECT_FALSE(form.cmdSave.enabled());
  EXPECT_EQ(stored("Log"), "Beep\r\nStop");
  EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CustomHandlersFormTest, TheListShowsTheFirstAndAnotherOnTheUsersChoice) {
  store("Log", "a");
  store("Mail", "b");
  auto& form = open();
  EXPECT_TRUE(form.cboErrors.hasFocus());
  EXPECT_THAT(form.cboErrors.items(), ElementsAre("Log", "Mail"));
  EXPECT_EQ(form.txtError.text(), "a");
  EXPECT_FALSE(form.cmdSave.enabled());
  user::selectItem(form.cboErrors, "Mail");
  EXPECT_EQ(form.txtError.text(), "b");
  EXPECT_FALSE(form.cmdSave.enabled());
}

TEST_F(CustomHandlersFormTest, ChangesAreSavedUnderTheNameThatTheyWereMadeTo) {
  store("Log", "a");
  store("Mail", "b");
  auto& form = open();
  user::setText(form.txtError, "A");
  host_.desk().answer("Yes");
  user::selectItem(form.cboErrors, "Mail");
  EXPECT_EQ(stored("Log"), "A");
  EXPECT_EQ(form.txtError.text(), "b");
  user::setText(form.txtError, "B");
  host_.desk().answer("No");
  user::selectItem(form.cboErrors, "Log");
  EXPECT_EQ(stored("Mail"), "b");
  EXPECT_EQ(form.txtError.text(), "A");
  EXPECT_THAT(told(), ElementsAre(kSaveQuestion, kSaveQuestion));
}

TEST_F(CustomHandlersFormTest, AddingAsksOnceForTheChangesOfTheOther) {
  store("Log", "a");
  auto& form = open();
  user::setText(form.txtError, "A");
  host_.desk().answer("No");
  add("Mail");
  EXPECT_THAT(told(), ElementsAre(kSaveQuestion));
  EXPECT_EQ(stored("Log"), "a");
  EXPECT_EQ(form.txtError.text(), "");
  user::setText(form.txtError, "B");
  host_.desk().answer("Yes");
  add("Third");
  EXPECT_THAT(told(), ElementsAre(kSaveQuestion));
  EXPECT_EQ(stored("Mail"), "B");
  EXPECT_EQ(form.cboErrors.text(), "Third");
}

TEST_F(CustomHandlersFormTest, AThirteenthIsRefusedBeforeAnythingElse) {
  for (int number = 1; number <= 12; ++number) store(std::to_string(number), "Stop");
  auto& form = open();
  add("12");
  EXPECT_THAT(told(), ElementsAre("Only 12 custom error handlers are currently supported!"));
  user::click(form.cmdDelete);
  add("12");
  EXPECT_THAT(told(), ElementsAre("12 has already been used!"));
  EXPECT_TRUE(form.txtName.hasFocus());
  add("13");
  EXPECT_THAT(told(), IsEmpty());
  EXPECT_EQ(form.cboErrors.listCount(), 12);
}

TEST_F(CustomHandlersFormTest, TheLastOneDeletedLeavesALockedEmptyBox) {
  store("Log", "a");
  store("Mail", "b");
  auto& form = open();
  user::click(form.cmdDelete);
  EXPECT_THAT(GetCustomErrors(settings_), ElementsAre("Mail"));
  EXPECT_EQ(form.txtError.text(), "b");
  user::click(form.cmdDelete);
  EXPECT_THAT(GetCustomErrors(settings_), IsEmpty());
  EXPECT_THAT(told(), IsEmpty());
  EXPECT_EQ(form.txtError.text(), "");
  EXPECT_TRUE(form.txtError.locked());
  EXPECT_FALSE(form.cboErrors.enabled());
  form.hide();
  form.show();
  EXPECT_TRUE(form.txtName.hasFocus());
}

TEST_F(CustomHandlersFormTest, ElementsLandAtTheCaretAndStayOnTheClipboard) {
  store("Log", "Log \"\"");
  auto& form = open();
  EXPECT_EQ(form.cboStandardElements.text(), "<Procedure Name>");
  form.txtError.setSelection(5, 0);
  user::selectItem(form.cboStandardElements, "<Username>");
  user::type(form.cboStandardElements, "x");
  user::setText(form.cboStandardElements, "nothing");
  EXPECT_EQ(form.cboStandardElements.text(), "<Username>");
  user::click(form.cmdAddElements);
  EXPECT_EQ(form.txtError.text(), "Log \"<Username>\"");
  EXPECT_TRUE(form.txtError.hasFocus());
  EXPECT_TRUE(form.cmdSave.enabled());
  EXPECT_EQ(host_.services().clipboard.text(), "<Username>");
  std::vector<std::string> elements;
  for (int i = 0; i < form.cboStandardElements.count(); ++i)
    elements.push_back(form.cboStandardElements.item(i).text);
  EXPECT_THAT(elements, ElementsAre("<Procedure Name>", "<Module Name>", "<Project Name>", "<Username>",
                                    "<Date>", "<Time>"));
}

TEST_F(CustomHandlersFormTest, TabIndentsByTheEditorsWidth) {
  store("Log", "Stop");
  auto& form = open();
  user::focus(form.txtError);
  user::key(form, forms::keys::kTab);
  EXPECT_EQ(form.txtError.text(), "    Stop");
  EXPECT_TRUE(form.txtError.hasFocus());
  user::key(form, forms::keys::kTab, forms::keys::kShift);
  EXPECT_FALSE(form.txtError.hasFocus());
  EXPECT_EQ(form.txtError.text(), "    Stop");
  user::click(form.cmdClear);
  EXPECT_EQ(form.txtError.text(), "");
  EXPECT_TRUE(form.txtError.hasFocus());
}

TEST_F(CustomHandlersFormTest, ClosingAsksOnlyWhenTheOptionsSayAndSomethingChanged) {
  store("Log", "a");
  settings_.saveOption("CCAMC19", "1");
  auto& form = open();
  user::setText(form.txtError, "A");
  host_.desk().answer("No");
  user::click(form.cmdClose);
  EXPECT_TRUE(form.visible());
  host_.desk().answer("No");
  EXPECT_FALSE(user::close(form));
  host_.desk().answer("Yes");
  user::click(form.control("mnuExit"));
  EXPECT_FALSE(form_->visible());
  EXPECT_THAT(told(),
              ElementsAre("You have made changes, are you sure?", "You have made changes, are you sure?",
                          "You have made changes, are you sure?"));
  EXPECT_EQ(stored("Log"), "a");

  settings_.saveOption("CCAMC19", "0");
  auto& second = open();
  user::setText(second.txtError, "A");
  user::click(second.cmdClose);
  EXPECT_FALSE(form_->visible());
  EXPECT_THAT(told(), IsEmpty());
}

}  // namespace
}  // namespace kolvane::writers
