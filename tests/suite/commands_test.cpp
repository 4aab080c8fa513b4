// What the catalogue's rows lead to, and what must hold before a tool's form opens.
#include <gmock/gmock.h>

#include "forms/drive.h"
#include "forms/form.h"
#include "frame/window_commands.h"
#include "suite/show_preconditions.h"
#include "suite/tool_forms.h"
#include "suite_fixture.h"

namespace kolvane::suite {
namespace {

// Tools that are still to come. The list only ever shrinks: a row leaves it together with its tool.
constexpr std::string_view kNotHere[] = {
    "Search",
    "Word Complete",
    "Word Complete Setup",
    "SQL Formatter",
    "DB Data Scriptier",
    "Auto Declare",
    "Template Coder",
    "Standards &Monitor",
    "Tab Controller",
    "MsgBox Builder",
    "Auto Access Keys",
    "Project Backup",
    "Project Backup Setup",
    "DB Class Generator",
    "Clipboard Ring",
    "Menu Copier",
    "Strings Writer",
    "Control Coder",
    "Control Defaulter",
    "Get Latest Versions",
    "Multi Check in",
    "MS Sourcesafe Options",
    "General Options",
    "Mass Property Updater",
    "Auto Documentor",
    "Hot Key Setup",
    "Project Stats",
    "Module Stats",
};

class CommandsTest : public SuiteTest {
 protected:
  std::vector<std::string> windows() {
    std::vector<std::string> captions;
    for (const auto& window : workspace_->Windows()->items())
      if (window->Visible()) captions.push_back(window->Caption());
    return captions;
  }

  // The texts of the boxes since the last call.
  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const forms::BoxRecord& box : desk_.takeLog()) texts.push_back(box.text);
    return texts;
  }

  std::shared_ptr<frame::VBComponent> add(frame::ComponentType type, std::string_view name,
                                          std::string_view code = "") {
    return workspace_->addComponent(workspace_->ActiveVBProject(), type, name, code);
  }
};

TEST_F(CommandsTest, everyRowReachesAnActionOrSaysThatItIsNotHere) {
  std::vector<std::string> missing;
  for (const frame::CatalogueRow& row : frame::kCatalogue) {
    if (suite_.available(row)) continue;
    suite_.click(row);
    EXPECT_EQ(told(), std::vector<std::string>{std::string(row.listName) + " is not in this version."});
    missing.emplace_back(row.listName);
  }
  EXPECT_THAT(missing, testing::ElementsAreArray(kNotHere));
}

TEST_F(CommandsTest, oneMenuHasEveryCommandOfThisVersionAndSaysWhyOneCannotBeUsed) {
  const auto shown = [&] {
    std::string text;
    for (const MenuLine& line : suite_.menu()) {
      const std::string reason = line.isPopup() ? "" : suite_.whyNot(line);
      text += std::string(line.beginsGroup ? "-\n" : "") + std::string(line.level == 0 ? "" : "  ") +
              base::replaceAll(line.caption, "&", "") + (reason.empty() ? "" : ": " + reason) + "\n";
    }
    return text;
  };
  EXPECT_EQ(shown(), R"(Procedure Builder
Property Builder
Auto Coder
Code Maintenance
Custom Error Handlers
-
Close Inactive Windows: No other window is open.
Clear Immediate Window
Add Module Header: Select a component!
-
List My Callers: You need to open a code window.
Procedure Header: You need to open a code window.
Standard Errors
  Show: You need to open a code window.
  Raise: You need to open a code window.
  Next: You need to open a code window.
  Blank: You need to open a code window.
Comments
  5 Line Comment: You need to open a code window.
  3 Line Comment: You need to open a code window.
  Comment Block: You need to open a code window.
  Uncomment Block: You need to open a code window.
Selection Case
  Lower: You need to open a code window.
  Upper: You need to open a code window.
  Proper: You need to open a code window.
Misc.
  Auto With: You need to open a code window.
  Sort Lines: You need to open a code window.
  Add Line Numbers: You need to open a code window.
  Remove Line Numbers: You need to open a code window.
  Split Line: You need to open a code window.
  Join Lines: You need to open a code window.
)");
  workspace_->newProject();
  const auto module =
      add(frame::ComponentType::kStdModule, "Module1",
          "Dim B\r\nDim A\r\n\r\nSub Post()\r\n    On Error GoTo errHandler\r\nEnd Sub\r\n\r\n"
          "Property Get Rate()\r\nEnd Property\r\n");
  const auto pane = workspace_->openCode(module);
  const auto whyNot = [&](std::string_view caption) {
    for (const MenuLine& line : suite_.menu())
      if (base::replaceAll(line.caption, "&", "") == caption) return suite_.whyNot(line);
    return std::string("not there");
  };
  EXPECT_EQ(whyNot("Procedure Header"), "Put the cursor into a procedure.");
  pane->SetSelection({5, 1, 5, 1});
  EXPECT_EQ(whyNot("Procedure Header"), "");
  EXPECT_EQ(whyNot("Show"), "The procedure has an error handler already.");
  pane->SetSelection({8, 1, 8, 1});
  EXPECT_EQ(whyNot("Show"), "A property takes a Raise handler only.");
  EXPECT_EQ(whyNot("Raise"), "");
  EXPECT_EQ(whyNot("Sort Lines"), "Select more than one line.");
  EXPECT_EQ(whyNot("Lower"), "Select some text.");
  EXPECT_EQ(whyNot("Close Inactive Windows"), "");
  EXPECT_EQ(whyNot("Add Module Header"), "Module headers are switched off (option ouloi45lwefwd).");
  set("ouloi45lwefwd", "1");
  EXPECT_EQ(whyNot("Add Module Header"), "No header text is stored for this type of module.");
  set("sfdgyu65kdsfgdf", "' <Project>");
  EXPECT_EQ(whyNot("Add Module Header"), "");
  pane->SetSelection({1, 1, 2, 6});
  for (const MenuLine& line : suite_.menu())
    if (base::replaceAll(line.caption, "&", "") == "Sort Lines") suite_.click(line);
  EXPECT_EQ(module->CodeModule()->Lines(1, 2), "Dim A\r\nDim B");
}

TEST_F(CommandsTest, controlsOfTheHostsBarsSayWhyTheyCannotBeUsed) {
  set("rtdhnty370sergkmujs", "True");
  connect();
  const auto popup = [&](std::string_view caption) {
    return workspace_->CommandBars()->Item(frame::kCodeWindowMenuIndex)->Controls()->Item(caption);
  };
  const auto recoder = popup("Proc. Re-Coder");
  workspace_->newProject();
  workspace_->openCode(add(frame::ComponentType::kStdModule, "Module1", "Dim B\r\nDim A\r\n"));
  EXPECT_EQ(suite_.whyNot(*recoder), "");
  EXPECT_EQ(suite_.whyNot(*recoder->Controls()->Item("Misc.")->Controls()->Item("Sort Lines")),
            "Select more than one line.");
  EXPECT_EQ(suite_.whyNot(*popup("List My Callers")), "");
  EXPECT_EQ(suite_.whyNot(*workspace_->CommandBars()->Item("Add-Ins")->Controls()->Item("Control Coder")),
            "Select a valid component type!");
}

// The procedure's name comes once into the source.
TEST_F(CommandsTest, aFailingCommandNamesItsProceduresOnce) {
  workspace_->newProject();
  std::string code = "Sub A()\r\n";
  for (int line = 1; line <= 1001; ++line) code += "    Beep\r\n";
  workspace_->openCode(add(frame::ComponentType::kStdModule, "Module1", code + "End Sub\r\n"));
  suite_.click(*frame::findCatalogueRowByName("Show Error"));
  const auto shown = desk_.takeUnattended();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_NE(shown[0].dump.find("\"KolvaneLite.modVBIDEFunctions.Create_Show_Error_Handler.modVBIDEFunctions."
                               "Add_Show_Error_Code.modVBIDEFunctions.Get_Name_Of_Current_Procedure\""),
            std::string::npos)
      << shown[0].dump;
}

TEST_F(CommandsTest, inactiveCodeWindowsAndDesignersAreClosedAndNoOtherWindow) {
  workspace_->newProject();
  const auto first = add(frame::ComponentType::kStdModule, "Module1");
  const auto second = add(frame::ComponentType::kClassModule, "Class1");
  workspace_->VBProjects()->Item(1)->VBComponents()->Item("Form1")->Activate();
  workspace_->openCode(first);
  workspace_->openCode(second);
  const auto before = windows();
  EXPECT_THAT(before, testing::IsSupersetOf({"Form1 (Form)", "Module1 (Code)", "Class1 (Code)"}));
  suite_.click(*frame::findCatalogueRowByName("Close Inactive Windows"));
  std::vector<std::string> expected = before;
  std::erase(expected, "Form1 (Form)");
  std::erase(expected, "Module1 (Code)");
  EXPECT_EQ(windows(), expected);
  suite_.click(*frame::findCatalogueRowByName("Close Inactive Windows"));
  EXPECT_EQ(windows(), expected);
}

TEST_F(CommandsTest, theImmediateWindowIsClearedByKeystrokesAlsoAsARunBegins) {
  const std::vector<std::string> keys{"^({Home})", "^(+({End}))", "{Del}"};
  suite_.click(*frame::findCatalogueRowByName("Clear Immediate Window"));
  EXPECT_EQ(keystrokes_.take(), keys);
  EXPECT_EQ(workspace_->ActiveWindow()->Type(), frame::WindowType::kImmediate);
  connect();
  suite_.connection().IDTExtensibility_OnStartupComplete();
  workspace_->enterRunMode();
  EXPECT_EQ(keystrokes_.take(), keys);
  suite_.connection().AddinInstance_OnDisconnection();
  workspace_->leaveRunMode();
  workspace_->enterRunMode();
  EXPECT_TRUE(keystrokes_.take().empty());
}

// What the host has selected when a condition is the first that fails.
TEST_F(CommandsTest, preconditionsTellTheFirstThatFails) {
  frame::Services& services = suite_.services();
  const auto messageOf = [](std::string_view form, Precondition condition) {
    for (const ShowPrecondition& row : kShowPreconditions)
      if (row.form == form && row.condition == condition) return std::string(row.message);
    return std::string();
  };
  const auto expectTold = [&](std::initializer_list<Precondition> failing) {
    for (const frame::CatalogueRow& row : frame::kCatalogue) {
      if (messageOf(row.target, Precondition::kAnswerYes) != "" || row.target == "frmSearch") continue;
      std::string expected;
      for (const Precondition condition : failing)
        if (expected.empty()) expected = messageOf(row.target, condition);
      EXPECT_EQ(mayShow(services, row.target), expected.empty()) << row.target;
      EXPECT_EQ(told(), expected.empty() ? std::vector<std::string>()
                                         : std::vector{base::replaceAll(expected, "<name>", "Form1")})
          << row.target;
    }
  };
  using enum Precondition;
  expectTold({kComponent, kFormLike, kDesigner, kControls});
  workspace_->newProject();
  const auto module = add(frame::ComponentType::kStdModule, "Module1");
  module->Activate();
  expectTold({kFormLike, kDesigner, kControls});
  const auto form = workspace_->ActiveVBProject()->VBComponents()->Item("Form1");
  form->Activate();
  expectTold({kControls});
  form->Designer()->VBControls()->Add("VB.TextBox");
  expectTold({});
}

TEST_F(CommandsTest, preconditionsHaveTheTextsThatUsersKnow) {
  EXPECT_FALSE(mayShow(suite_.services(), "frmSearch"));
  EXPECT_FALSE(mayShow(suite_.services(), "frmTabController"));
  EXPECT_FALSE(mayShow(suite_.services(), "frmMassPropertyUpdater"));
  EXPECT_FALSE(mayShow(suite_.services(), "frmMenuCopier"));
  EXPECT_EQ(told(), (std::vector<std::string>{"You need to open a code window.", "Select a component!",
                                              "Select a valid component type!", "Select a component!"}));
  workspace_->newProject();
  workspace_->openCode(add(frame::ComponentType::kStdModule, "Module1"));
  EXPECT_TRUE(mayShow(suite_.services(), "frmSearch"));
  EXPECT_FALSE(mayShow(suite_.services(), "frmTabController"));
  EXPECT_FALSE(mayShow(suite_.services(), "frmControlCoder"));
  EXPECT_EQ(told(),
            (std::vector<std::string>{"Select a valid module type!", "Select a valid component type!"}));
}

TEST_F(CommandsTest, sourceSafeAsksOnlyWhenItIsToAsk) {
  EXPECT_TRUE(mayShow(suite_.services(), "frmGetLatestVersions"));
  EXPECT_TRUE(told().empty());
  set("So303Vdfsdrm", "1");
  desk_.answer("No");
  EXPECT_FALSE(mayShow(suite_.services(), "frmGetLatestVersions"));
  set("td305fhrwm", "1");
  desk_.answer("Yes");
  EXPECT_TRUE(mayShow(suite_.services(), "frmMultiCheckIn"));
  const auto log = desk_.takeLog();
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0].text, "Are you sure you want the latest versions?");
  EXPECT_EQ(log[0].flags, 52);
  EXPECT_EQ(log[1].text, "Are you sure you want to do a multi check in?");
}

TEST_F(CommandsTest, preconditionsNameFormsOfTheCatalogue) {
  for (const ShowPrecondition& row : kShowPreconditions)
    EXPECT_TRUE(std::any_of(frame::kCatalogue.begin(), frame::kCatalogue.end(), [&](const auto& command) {
      return command.target == row.form;
    })) << row.form;
}

TEST_F(CommandsTest, theAutoCoderTreatsTheModuleOfTheActiveWindow) {
  const frame::CatalogueRow& row = *frame::findCatalogueRowByName("Auto Coder");
  suite_.click(row);
  forms::Form* form = desk_.openForms().find("frmAutoCoder");
  ASSERT_NE(form, nullptr);
  EXPECT_FALSE(form->modal());
  forms::drive::click(*form, "cmdCreate");
  EXPECT_EQ(told(), std::vector<std::string>{"No code window open!"});
  workspace_->newProject();
  const auto module =
      add(frame::ComponentType::kClassModule, "Class1", "Option Explicit\r\n\r\nSub A()\r\nEnd Sub");
  workspace_->openCode(module);
  forms::drive::click(*form, "cmdCreate");
  EXPECT_EQ(desk_.openForms().find("frmAutoCoder"), nullptr);
  constexpr int kHeader = 9, kShowHandler = 14;
  EXPECT_EQ(module->CodeModule()->CountOfLines(), 4 + kHeader + kShowHandler);
  suite_.click(row);
  connect();
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_TRUE(desk_.openForms().empty());
}

// Refuses to close unless the suite ends.
class StubbornForm final : public forms::Form {
 public:
  StubbornForm(frame::Services& services, std::vector<std::string>& log)
      : Form(services.desk, "frmStubborn", "Stubborn"), log_(log) {
    log_.push_back("made");
    onQueryUnload = [](bool& cancel, forms::UnloadMode mode) { cancel = mode != forms::UnloadMode::kEnd; };
  }
  ~StubbornForm() override { log_.push_back(modal() ? "gone, modal" : "gone"); }

 private:
  std::vector<std::string>& log_;
};

TEST_F(CommandsTest, aToolHasOneFormWhichGoesWithoutAsking) {
  std::vector<std::string> log;
  frame::CatalogueRow row = frame::kCatalogue[0];
  row.target = "frmStubborn";
  ToolForms tools;
  tools.show<StubbornForm>(row, suite_.services(), log);
  tools.show<StubbornForm>(row, suite_.services(), log);
  EXPECT_EQ(log, std::vector<std::string>{"made"});
  ASSERT_EQ(desk_.openForms().all().size(), 1u);
  EXPECT_FALSE(desk_.openForms().all()[0].modal);
  EXPECT_FALSE(desk_.openForms().find("frmStubborn")->close());
  tools.unload("frmOther");
  tools.unload("frmStubborn");
  tools.unload("frmStubborn");
  EXPECT_EQ(log, (std::vector<std::string>{"made", "gone"}));
  EXPECT_TRUE(desk_.openForms().empty());

  row.action = frame::Action::kModalForm;
  desk_.runModal = [&](forms::Form& form) {
    log.push_back(form.modal() ? "modal" : "modeless");
    tools.unload(form.name());
  };
  log.clear();
  tools.show<StubbornForm>(row, suite_.services(), log);
  EXPECT_EQ(log.at(1), "modal");
  EXPECT_TRUE(desk_.openForms().empty());
}

}  // namespace
}  // namespace kolvane::suite
