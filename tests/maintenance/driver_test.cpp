// Code Maintenance through its dialog: what runs, in which order, what stops it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/layout.h"
#include "maintenance_host.h"

namespace kolvane::maintenance {
namespace {

using test::MaintenanceHost;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum Operation;

constexpr std::string_view kCode =
    "Option Explicit\n"
    "' about zeta\n"
    "' and more\n"
    "Sub zeta()\n"
    "Dim strCount As Long\n"
    "If strCount Then\n"
    "alpha\n"
    "End If\n"
    "End Sub\n"
    "Private Sub alpha()\n"
    "Dim lngUnused As Long\n"
    "End Sub\n"
    "Private Sub idle()\n"
    "End Sub\n";

constexpr std::string_view kNotice =
    "Either the file Module1 is readonly or it's checked in within Source Code control.";
constexpr std::string_view kQuestion =
    "Either the file Module1 is readonly or it's checked in within Source Code control. Continue with "
    "operation?";

struct Driver : ::testing::Test {
  void twoModules() {
    host.put("Module1.bas", kCode);
    host.put("Class1.cls", kCode);
    host.open();
    host.select("Module1");
  }
  void oneModule(std::string_view code = kCode) {
    host.put("Module1.bas", code);
    host.open();
    host.select("Module1");
  }
  MaintenanceHost host;
};

std::string ticks(const forms::ListView& list) {
  std::string all;
  for (int row = 1; row <= list.count(); ++row) all += list.item(row).checked() ? 'x' : '-';
  return all;
}

// ---- the list of operations

TEST_F(Driver, ChecksComeFromTheSettingsOfTheTarget) {
  oneModule();
  auto& settings = host.services().settings;
  auto& form = host.show();
  EXPECT_EQ(ticks(form.lvwOptions), "xx------");
  EXPECT_EQ(form.lvwOptions.item(7).text(), "Update 'Called From' Header Field");
  EXPECT_EQ(form.lvwOptions.item(7).key(), "Project Update Called From");
  settings.saveOption("CMMSP103", "True");
  settings.saveOption("CMMIC104", "False");
  host.show(Target::kModule);
  EXPECT_EQ(ticks(form.lvwOptions), "-xx-----");
  EXPECT_EQ(form.lvwOptions.item(8).key(), "Module Unused Procedures");
  LoadOptionsIntoListview(host.services(), form.lvwOptions, "Group");
  EXPECT_EQ(form.lvwOptions.count(), 0);
  EXPECT_THAT(forms::layoutFaults(form), IsEmpty());
}

TEST_F(Driver, TicksAreNotKept) {
  oneModule();
  auto& form = host.show();
  host.tick({kSort});
  forms::drive::set(form, "cboType", {.index = 1});
  forms::drive::set(form, "cboType", {.index = 0});
  EXPECT_EQ(ticks(form.lvwOptions), "xx------");
  forms::drive::click(form, "cmdCancel");
  EXPECT_FALSE(host.isOpen());
}

TEST_F(Driver, OptionsFormWritesTheTargetThatItShows) {
  oneModule();
  auto& settings = host.services().settings;
  host.desk().runModal = [&](forms::Form& form) {
    ASSERT_EQ(form.name(), "frmCodeMaintenanceOptions");
    EXPECT_THAT(forms::layoutFaults(form), IsEmpty());
    forms::drive::set(form, "cboDefaultTarget", {.index = 1});
    forms::drive::set(form, "cboTarget", {.index = 1});
    forms::drive::set(form, "lvwOptions", {.check = forms::drive::Tick{4, true}});
    forms::drive::set(form, "chkShowProgress", {.value = 0});
    forms::drive::click(form, "cmdOK");
  };
  auto& form = host.show();
  forms::drive::click(form, "mnuFileCodeMaintenance");
  EXPECT_EQ(settings.option("CMDT99"), "1");
  EXPECT_EQ(settings.option("CMMLN102"), "True");
  EXPECT_EQ(settings.option("CMMSP103"), "False");
  EXPECT_EQ(settings.option("CMPLN107"), "0") << "the other target stays as it is stored";
  EXPECT_EQ(settings.option("sfdgsfdg624fdzgdfg"), "0");
  form.unload();
  host.tool.Show_CodeMaintenance();
  EXPECT_EQ(host.tool.form().cboType.text(), "Module");
  EXPECT_EQ(ticks(host.tool.form().lvwOptions), "xx-x----");
}

TEST_F(Driver, HelpAndMenus) {
  oneModule();
  auto& form = host.show();
  forms::drive::click(form, "mnuFileContents");
  EXPECT_THAT(host.boxes(), ElementsAre("CodeMaintenance.Html"));
  std::string errors;
  host.desk().runModal = [&](forms::Form& shown) {
    errors += shown.name();
    shown.unload();
  };
  forms::drive::click(form, "mnuHelpAbout");
  EXPECT_EQ(errors, "frmVBError") << "nothing was bound to it";
}

// ---- what has to hold before a run

TEST_F(Driver, NothingTicked) {
  oneModule();
  host.run(Target::kProject, {});
  EXPECT_THAT(host.boxes(), ElementsAre("You must select an operation!"));
  EXPECT_TRUE(host.isOpen());
  EXPECT_FALSE(host.tool.form().running());
}

TEST_F(Driver, NumbersAndIndentingAreAskedAbout) {
  oneModule();
  host.desk().answer("No");
  host.run(Target::kModule, {kIndent, kLineNumbers});
  const auto log = host.desk().takeLog();
  ASSERT_EQ(log.size(), 1U);
  EXPECT_EQ(log[0].title, "Warning");
  EXPECT_EQ(log[0].text,
            "You are advised not to run Code Indenting on code with Line Numbers, Do you want to continue?");
  EXPECT_EQ(host.text("Module1"), kCode);
  EXPECT_TRUE(host.isOpen());
  host.desk().answer("Yes");
  forms::drive::click(host.tool.form(), "cmdOK");
  EXPECT_NE(host.text("Module1"), kCode);
  EXPECT_FALSE(host.isOpen());
}

TEST_F(Driver, UnsavedModules) {
  oneModule();
  host.host->addComponent(std::dynamic_pointer_cast<workspace::Project>(host.project),
                          frame::ComponentType::kStdModule, "Fresh", "Sub a()\r\nEnd Sub\r\n");
  host.run(Target::kProject, {kIndent});
  EXPECT_THAT(host.boxes(), ElementsAre("You need to save all modules before you can use Code Maintenance!"));
  host.select("Fresh");
  host.run(Target::kModule, {kIndent});
  EXPECT_THAT(host.boxes(), ElementsAre("You need to save the module before you can use Code Maintenance!"));
  host.select("Module1");
  host.run(Target::kModule, {kIndent});
  EXPECT_THAT(host.boxes(), IsEmpty());
  EXPECT_FALSE(host.isOpen());
}

TEST_F(Driver, NoSelectedComponentIsAnError) {
  oneModule();
  host.host->select(nullptr);
  std::string errors;
  host.desk().runModal = [&](forms::Form& form) {
    errors += form.name();
    form.unload();
  };
  host.run(Target::kModule, {kIndent});
  EXPECT_EQ(errors, "frmVBError");
  EXPECT_TRUE(host.isOpen());
  EXPECT_FALSE(host.tool.form().running());
}

// ---- the orders

TEST_F(Driver, OrderOfAProjectRun) {
  twoModules();
  host.desk().answer("Yes");
  host.run(Target::kProject, {kIndent, kComments, kSort, kLineNumbers, kVariablePrefixes, kUnusedVariables,
                              kCalledFrom, kUnusedProcedures});
  EXPECT_THAT(
      host.shown,
      ElementsAre("Module1 - Code Indenting", "Class1 - Code Indenting", "Module1 - Formatting Comments",
                  "Module1 - Line Numbers", "Module1 - Reporting on Variable Prefixes",
                  "Module1 - Reporting on Unused Variables", "Module1 - Reporting on Unused Procedures",
                  "Module1 - Updating 'Called From' field", "Class1 - Formatting Comments",
                  "Class1 - Line Numbers", "Class1 - Reporting on Variable Prefixes",
                  "Class1 - Reporting on Unused Variables", "Class1 - Reporting on Unused Procedures",
                  "Class1 - Updating 'Called From' field", "Module1 - Sorting", "Class1 - Sorting"));
  EXPECT_EQ(host.reports.count(), 3);
  EXPECT_FALSE(host.isOpen());
  EXPECT_EQ(host.desk().openForms().find("frmProgress"), nullptr);
  EXPECT_EQ(host.desk().openForms().find("frmCancelSearch"), nullptr);
  EXPECT_FALSE(host.desk().busy());
  EXPECT_EQ(host.host->ActiveCodePane(), nullptr) << "panes opened for Called From are closed again";
}

TEST_F(Driver, OrderOfAModuleRun) {
  twoModules();
  host.desk().answer("Yes");
  host.run(Target::kModule, {kIndent, kComments, kSort, kLineNumbers, kVariablePrefixes, kUnusedVariables,
                             kCalledFrom, kUnusedProcedures});
  EXPECT_THAT(host.shown,
              ElementsAre("Module1 - Indenting Code", "Module1 - Formatting Comments",
                          "Module1 - Line Numbers", "Module1 - Sort Procedures",
                          "Module1 - Reporting on Variable Prefixes", "Module1 - Unused Procedures",
                          "Module1 - Unused Variables", "Module1 - Updating Called From Header Field"));
  EXPECT_EQ(host.text("Class1"), kCode);
  EXPECT_EQ(host.reports.count(), 3);
}

TEST_F(Driver, WithoutProgressNothingIsShown) {
  oneModule();
  host.services().settings.saveOption("sfdgsfdg624fdzgdfg", "0");
  host.run(Target::kModule, {kIndent});
  EXPECT_THAT(host.shown, IsEmpty());
  EXPECT_NE(host.text("Module1"), kCode);
}

// ---- what comes out

TEST_F(Driver, AModuleIndentedFormattedAndSorted) {
  oneModule();
  host.run(Target::kModule, {kIndent, kComments, kSort});
  EXPECT_EQ(host.text("Module1"),
            "Option Explicit\n"
            "Private Sub alpha()\n"
            "Dim lngUnused As Long\n"
            "End Sub\n"
            "\n"
            "Private Sub idle()\n"
            "End Sub\n"
            "\n"
            "'******************************************************************\n"
            "'* about zeta\n"
            "'* and more\n"
            "'******************************************************************\n"
            "\n"
            "Sub zeta()\n"
            "Dim strCount As Long\n"
            "    If strCount Then\n"
            "        alpha\n"
            "    End If\n"
            "End Sub\n"
            "\n");
  EXPECT_THAT(host.boxes(), IsEmpty());
}

TEST_F(Driver, SortingAlone) {
  twoModules();
  host.run(Target::kProject, {kSort});
  for (const char* name : {"Module1", "Class1"}) {
    const std::string text = host.text(name);
    EXPECT_LT(text.find("alpha()"), text.find("idle()"));
    EXPECT_LT(text.find("idle()"), text.find("zeta()"));
  }
  EXPECT_EQ(host.reports.count(), 0);
}

TEST_F(Driver, ReportsOfAProject) {
  twoModules();
  host.run(Target::kProject, {kVariablePrefixes});
  EXPECT_EQ(host.reportText(),
            "Module | Procedure | Name | Used Prefix | Correct Prefix | Type\n"
            "Module1 | zeta | Count | str | lng | Long\n"
            "Class1 | zeta | Count | str | lng | Long\n");
  EXPECT_EQ(host.report()->StatusBar1.text(), "There are 2 incorrect prefixes.");
  host.reports.unloadAll();
  host.run(Target::kProject, {kUnusedVariables});
  EXPECT_EQ(host.reportText(),
            "Module | Procedure | Name | Type\n"
            "Module1 | alpha | lngUnused | Long\n"
            "Class1 | alpha | lngUnused | Long\n");
  host.reports.unloadAll();
  host.run(Target::kProject, {kUnusedProcedures});
  EXPECT_EQ(host.report()->StatusBar1.text(), "There are 2 unused procedures.");
  EXPECT_EQ(host.text("Module1"), kCode) << "reports change nothing";
}

TEST_F(Driver, AReportWithNothingToReportOpensAllTheSame) {
  oneModule("Sub Main()\nMsgBox 1\nBeep\nEnd Sub\n");
  host.run(Target::kProject, {kUnusedVariables});
  ASSERT_EQ(host.reports.count(), 1);
  EXPECT_EQ(host.report()->StatusBar1.text(), "");
}

TEST_F(Driver, ModulesOfDeclarationsAloneAreLeftAlone) {
  oneModule("Option Explicit\nPrivate x As Long\n");
  host.run(Target::kModule, {kIndent, kVariablePrefixes});
  EXPECT_EQ(host.reports.count(), 0);
  EXPECT_THAT(host.shown, IsEmpty());
  const auto summary = maintain(host.tool.tools(), *host.project, {{kIndent}, {"Module1"}});
  EXPECT_THAT(summary.empty, ElementsAre("Module1"));
  EXPECT_TRUE(summary.complete());
}

TEST_F(Driver, CalledFromFieldsOfAProject) {
  const std::string header = "'*  Called From  :\nPublic Sub ";
  host.put("Module1.bas", header + "One()\nTwo\nEnd Sub\n");
  host.put("Module2.bas", header + "Two()\nOne\nEnd Sub\n");
  host.open();
  host.run(Target::kProject, {kComments, kCalledFrom});
  EXPECT_EQ(host.text("Module1"), "'*  Called From  : Module2.Two\nPublic Sub One()\nTwo\nEnd Sub\n");
  EXPECT_EQ(host.text("Module2"), "'*  Called From  : Module1.One\nPublic Sub Two()\nOne\nEnd Sub\n");
}

// ---- read-only modules

TEST_F(Driver, AReadOnlyModuleIsLeftOutOnYes) {
  twoModules();
  host.makeReadOnly("Module1.bas");
  host.desk().answer("OK");
  host.desk().answer("Yes");
  host.run(Target::kProject, {kIndent, kComments, kUnusedVariables});
  EXPECT_THAT(host.boxes(), ElementsAre(std::string(kNotIndentedMessage), std::string(kQuestion)));
  EXPECT_EQ(host.text("Module1"), kCode);
  EXPECT_EQ(host.reportText(),
            "Module | Procedure | Name | Type\n"
            "Class1 | alpha | lngUnused | Long\n");
}

TEST_F(Driver, AReadOnlyModuleEndsTheRunOnNo) {
  twoModules();
  host.makeReadOnly("Module1.bas");
  host.desk().answer("No");
  host.run(Target::kProject, {kComments, kSort, kUnusedVariables});
  EXPECT_EQ(host.text("Class1"), kCode) << "not even sorted";
  EXPECT_EQ(host.reports.count(), 0) << "the report was never shown";
  EXPECT_FALSE(host.isOpen());
}

TEST_F(Driver, ReportsRunOnReadOnlyModules) {
  twoModules();
  host.makeReadOnly("Module1.bas");
  host.run(Target::kProject, {kSort, kUnusedVariables});
  EXPECT_THAT(host.boxes(), IsEmpty());
  EXPECT_EQ(host.report()->countOfRows(), 2);
  EXPECT_EQ(host.text("Module1"), kCode);
  EXPECT_NE(host.text("Class1"), kCode) << "sorting passes over the other one without a word";
}

TEST_F(Driver, AReadOnlyModuleByItself) {
  oneModule();
  host.makeReadOnly("Module1.bas");
  host.run(Target::kModule, {kSort, kUnusedVariables});
  EXPECT_THAT(host.boxes(), ElementsAre(std::string(kNotice)));
  EXPECT_EQ(host.reports.count(), 0);
}

TEST_F(Driver, AModuleThatTheHostRefusesEndsTheRun) {
  twoModules();
  host.host->setReadOnly(
      std::dynamic_pointer_cast<workspace::Component>(host.project->VBComponents()->Item("Module1")), true);
  host.run(Target::kProject, {kComments, kUnusedVariables, kSort});
  const auto boxes = host.boxes();
  ASSERT_GE(boxes.size(), 2U);
  EXPECT_EQ(boxes[0], kNotice);
  EXPECT_EQ(boxes[1], "Code formatting will now stop.");
  EXPECT_EQ(host.reports.count(), 0);
  EXPECT_EQ(host.text("Class1").find("'*"), std::string::npos) << "behind the module that failed";
  EXPECT_LT(host.text("Class1").find("alpha()"), host.text("Class1").find("zeta()")) << "sorting follows";
}

// ---- while it runs

TEST_F(Driver, TheDialogStaysWhileItRuns) {
  oneModule();
  int asked = 0;
  host.whileRunning = [&] {
    auto& form = host.tool.form();
    if (!form.running()) return;
    ++asked;
    EXPECT_FALSE(form.close());
    forms::drive::click(form, "cmdCancel");
    forms::drive::click(form, "cmdOK");
    EXPECT_TRUE(form.visible());
  };
  host.run(Target::kProject, {kIndent});
  EXPECT_GT(asked, 0);
  EXPECT_EQ(host.shown.size(), 1U) << "one run";
  EXPECT_FALSE(host.isOpen());
}

TEST_F(Driver, AClosedProgressFormDoesNotMatter) {
  twoModules();
  host.whileRunning = [&] {
    if (auto* form = host.desk().openForms().find("frmProgress")) form->unload();
  };
  host.run(Target::kProject, {kIndent, kComments});
  EXPECT_NE(host.text("Class1"), kCode);
  EXPECT_FALSE(host.isOpen());
}

// ---- without the dialog

std::vector<std::string> namesOf(const std::vector<MaintenanceSummary::Module>& modules) {
  std::vector<std::string> names;
  for (const auto& module : modules) names.push_back(module.name + ": " + module.reason);
  return names;
}

TEST_F(Driver, MaintainTellsWhatWasDone) {
  twoModules();
  host.makeReadOnly("Module1.bas");
  const auto summary = maintain(host.tool.tools(), *host.project, {{kIndent, kSort, kUnusedVariables}, {}});
  EXPECT_THAT(summary.done, ElementsAre("Class1"));
  EXPECT_THAT(namesOf(summary.skipped), ElementsAre("Module1: " + std::string(kNotice)));
  EXPECT_THAT(summary.failed, IsEmpty());
  ASSERT_EQ(summary.findings.size(), 1U);
  EXPECT_EQ(summary.findings[0].module, "Class1");
  EXPECT_THAT(host.boxes(), IsEmpty());
}

TEST_F(Driver, MaintainGoesOnAfterAFailure) {
  twoModules();
  host.host->setReadOnly(
      std::dynamic_pointer_cast<workspace::Component>(host.project->VBComponents()->Item("Module1")), true);
  const auto summary = maintain(host.tool.tools(), *host.project, {{kComments}, {}});
  EXPECT_THAT(namesOf(summary.failed), ElementsAre("Module1: Comments: stopped"));
  EXPECT_THAT(summary.done, ElementsAre("Class1"));
  EXPECT_NE(host.text("Class1"), kCode);
}

TEST_F(Driver, MaintainNamedModules) {
  twoModules();
  EXPECT_THROW(maintain(host.tool.tools(), *host.project, {{kSort}, {"Module1", "Nowhere"}}), base::Error);
  EXPECT_EQ(host.text("Module1"), kCode);
  const auto summary = maintain(host.tool.tools(), *host.project, {{kSort}, {"class1"}});
  EXPECT_THAT(summary.done, ElementsAre("Class1"));
  EXPECT_EQ(host.text("Module1"), kCode);
  host.disk.remove("/p/Module1.bas");
  const auto gone = maintain(host.tool.tools(), *host.project, {{kSort}, {"Module1", "Class1"}});
  EXPECT_THAT(gone.done, ElementsAre("Class1"));
  ASSERT_EQ(gone.failed.size(), 1U);
  EXPECT_EQ(gone.failed[0].name, "Module1");
}

}  // namespace
}  // namespace kolvane::maintenance
