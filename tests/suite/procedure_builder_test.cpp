// The way to the Procedure Builder, and from it to other tools.
#include "writers/procedure_builder.h"

#include "forms/user.h"
#include "suite_fixture.h"
#include "writers/custom_handlers.h"

namespace kolvane::suite {
namespace {

class ProcedureBuilderTest : public SuiteTest {
 protected:
  void click(std::string_view name) { suite_.click(*frame::findCatalogueRowByName(name)); }
  forms::Form* open(std::string_view form) { return desk_.openForms().find(form); }
};

TEST_F(ProcedureBuilderTest, WritesIntoTheSelectedComponentAndEndsWithTheSuite) {
  workspace_->newProject();
  const auto component = workspace_->addComponent(workspace_->ActiveVBProject(),
                                                  frame::ComponentType::kClassModule, "clsOrder", "");
  component->Activate();
  writers::writeCustomHandler(settings_, "Log", "\tLog \"<Project Name>\"");
  set("DH7", "0");
  connect();
  click("Procedure Builder");
  auto& form = dynamic_cast<writers::frmProcedureBuilder&>(*open("frmProcedureBuilder"));
  EXPECT_FALSE(form.modal());
  EXPECT_NE(form.cboReturns.indexOf("clsOrder"), -1);
  forms::user::setText(form.txtName, "save");
  forms::user::selectItem(form.cboErrors, "Log");
  forms::user::click(form.cmdApply);
  const auto module = component->CodeModule();
  EXPECT_EQ(module->Lines(2, 1), "Private Sub Save()");
  EXPECT_EQ(module->Lines(module->CountOfLines() - 1, 1), "\tLog \"Project1\"");
  forms::user::click(form.control("mnuManageErrors"));
  EXPECT_NE(open("frmCustomErrorHandlers"), nullptr);
  forms::user::setText(form.txtName, "half");
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(open("frmProcedureBuilder"), nullptr);
}

TEST_F(ProcedureBuilderTest, OpensWithoutAProjectAndSaysWhatItLacks) {
  click("Procedure Builder");
  auto& form = dynamic_cast<writers::frmProcedureBuilder&>(*open("frmProcedureBuilder"));
  forms::user::setText(form.txtName, "save");
  forms::user::click(form.cmdApply);
  const auto log = desk_.takeLog();
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0].text, "Select a component!");
  EXPECT_EQ(log[0].flags, 48);
}

}  // namespace
}  // namespace kolvane::suite
