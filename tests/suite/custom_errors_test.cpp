// The popup of the user's own error handlers in the code window, and the way to their dialog.
#include "forms/form.h"
#include "frame/context_menus.h"
#include "suite_fixture.h"
#include "writers/custom_handlers.h"

namespace kolvane::suite {
namespace {

class CustomErrorsTest : public SuiteTest {
 protected:
  void store(std::string_view name, std::string_view text) {
    writers::writeCustomHandler(settings_, name, text);
  }
  std::shared_ptr<frame::CommandBarControls> popup() {
    return workspace_->CommandBars()
        ->Item(frame::kCodeWindowMenuIndex)
        ->Controls()
        ->Item("Proc. Re-Coder")
        ->Controls()
        ->Item("Custom Errors")
        ->Controls();
  }
  void click(std::string_view caption) { workspace_->click(popup()->Item(caption)); }
};

TEST_F(CustomErrorsTest, ButtonsAreMadeAtLoadTwelveAtMost) {
  for (int number = 1; number <= 14; ++number) store("Error " + std::to_string(number), "Stop");
  connect();
  EXPECT_EQ(popup()->Count(), 12);
  writers::deleteCustomHandler(settings_, "Error 1");
  EXPECT_EQ(popup()->Item(1)->Caption(), "Error 1");
  suite_.connection().AddinInstance_OnDisconnection();
  connect();
  EXPECT_EQ(popup()->Item(1)->Caption(), "Error 2");
}

TEST_F(CustomErrorsTest, AButtonWritesItsHandlerIntoTheActiveCodeWindow) {
  workspace_->newProject();
  const auto component =
      workspace_->addComponent(workspace_->ActiveVBProject(), frame::ComponentType::kClassModule, "Class1",
                               "Sub Load()\r\n    x = 1\r\nEnd Sub\r\n");
  store("Log", "    Log <Module Name>");
  store("Gone", "Stop");
  connect();
  writers::deleteCustomHandler(settings_, "Gone");
  workspace_->openCode(component)->SetSelection({2, 1, 2, 1});
  click("Log");
  const auto module = component->CodeModule();
  EXPECT_EQ(module->Lines(1, module->CountOfLines()),
            "Sub Load()\r\n\r\nOn Error GoTo errHandler\r\n    x = 1\r\nExit Sub\r\n \r\nerrHandler:\r\n \r\n"
            "    Log TypeName (Me)\r\nEnd Sub");
  module->DeleteLines(3, 1);
  EXPECT_TRUE(desk_.takeLog().empty());
  click("Gone");
  const auto log = desk_.takeLog();
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0].text, "Custom error 'Gone' not found!");
  EXPECT_EQ(log[0].flags, forms::box::kExclamation);
}

TEST_F(CustomErrorsTest, WithoutACodeWindowNothingHappens) {
  store("Log", "Stop");
  connect();
  click("Log");
  EXPECT_TRUE(desk_.takeLog().empty());
}

TEST_F(CustomErrorsTest, TheCatalogueOpensTheDialogBesideOthers) {
  suite_.click(*frame::findCatalogueRowByName("Custom Error Handlers"));
  forms::Form* form = desk_.openForms().find("frmCustomErrorHandlers");
  ASSERT_NE(form, nullptr);
  EXPECT_FALSE(form->modal());
  EXPECT_EQ(form->caption(), "Custom Error Handlers");
  EXPECT_EQ(form->minimumWidth(), 7905);
  EXPECT_EQ(form->minimumHeight(), 6195);
}

}  // namespace
}  // namespace kolvane::suite
