// The report window through its controls.
#include <gtest/gtest.h>

#include "base/text.h"
#include "forms/drive.h"
#include "forms/layout.h"
#include "maintenance/report_form.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

struct Fixture {
  Fixture() {
    host.addModule("Option Explicit\nSub Main()\nEnd Sub\nSub Other()\nEnd Sub");
    host.desk().takeLog();
  }
  std::shared_ptr<frmReport> report(std::string_view title) {
    auto created = reports.create();
    created->SetupReport(title);
    return created;
  }

  test::TestHost host;
  Reports reports{host.services()};
};

std::string text(const forms::Grid& grid) {
  std::string all;
  for (int row = 0; row < grid.rows(); ++row) {
    std::vector<std::string> cells;
    for (int column = 0; column < grid.columns(); ++column) cells.push_back(grid.cell(row, column));
    all += base::join(cells, "|") + "\n";
  }
  return all;
}

TEST(Report, KindsOfReport) {
  Fixture fixture;
  const auto shown = [&](std::string_view title) {
    const auto report = fixture.report(title);
    std::string all = report->caption() + ": " + text(report->grdResults);
    const bool plain = !report->control("mnuListMyCallers").visible() && !report->cmdUpdateHeaders.visible();
    EXPECT_EQ(plain, title != report_title::kListMyCallers);
    EXPECT_TRUE(report->grdResults.mergedColumn(0));
    EXPECT_TRUE(forms::layoutFaults(*report).empty());
    EXPECT_EQ(report->grdResults.rows(), 2) << "a header and a blank row";
    return all.substr(0, all.find('\n'));
  };
  fixture.host.services().settings.saveOption("SCF29", "True");
  EXPECT_EQ(shown("Modu Variable prefixes report "),
            "Variable prefixes report  - Module1: Procedure|Name|Used Prefix|Correct Prefix|Type");
  EXPECT_EQ(shown("Proj Variable prefixes report "),
            "Variable prefixes report  - Project1: Module|Procedure|Name|Used Prefix|Correct Prefix|Type");
  EXPECT_EQ(shown("Modu Unused variables report "),
            "Unused variables report  - Module1: Procedure|Name|Type");
  EXPECT_EQ(shown("Proj Unused variables report "),
            "Unused variables report  - Project1: Module|Procedure|Name|Type");
  EXPECT_EQ(shown("Modu Unused Procedures report"),
            "Unused Procedures report - Module1: Procedure|Type|Returns|Description");
  EXPECT_EQ(shown("Proj Unused Procedures report"),
            "Unused Procedures report - Project1: Module|Procedure|Type|Returns|Description");
  EXPECT_EQ(shown("List My Callers"), "List My Callers: Project|Module|Procedure");
}

TEST(Report, AnotherTitleLeavesTheFormAsItStands) {
  Fixture fixture;
  const auto report = fixture.report(report_title::kModuleUnusedVariables);
  report->Add_ReportUnusedVariables_CM_Item("Main", "lngX", "Long", "2", "Project1", "Module1");
  report->SetupReport("Modu Unused variables report");
  EXPECT_EQ(report->ReportType(), "Modu Unused variables report");
  EXPECT_EQ(text(report->grdResults), "Procedure|Name|Type\nMain|lngX|Long\n");
}

TEST(Report, RowsAndCount) {
  Fixture fixture;
  const auto prefixes = fixture.report(report_title::kProjectPrefixes);
  prefixes->ShowCount(report_count::kPrefixes);
  EXPECT_EQ(prefixes->StatusBar1.text(), "");
  prefixes->Add_ReportVariablePrefixes_Proj_Item("Main", "", "i", "lng", "Long", "2", "Project1", "Module1");
  prefixes->Add_ReportVariablePrefixes_Proj_Item("Main", "x", "", "lng", "Long", "2", "Project1", "Module1");
  prefixes->ShowCount(report_count::kPrefixes);
  EXPECT_EQ(prefixes->StatusBar1.text(), "There are 2 incorrect prefixes.");
  EXPECT_EQ(text(prefixes->grdResults),
            "Module|Procedure|Name|Used Prefix|Correct Prefix|Type\n"
            "Module1|Main||i|lng|Long\n"
            "Module1|Main|x||lng|Long\n");
  EXPECT_EQ(text(prefixes->grdLines), "||\nProject1|Module1|2\nProject1|Module1|2\n");

  const auto unused = fixture.report(report_title::kModuleUnusedProcedures);
  unused->Add_ReportUnusedProcedures_CM_Item("Main", "Function", "Long", "What it does", "2", "Project1",
                                             "Module1");
  EXPECT_EQ(text(unused->grdResults),
            "Procedure|Type|Returns|Description\nMain|Function|Long|What it does\n");
}

TEST(Report, GoesToTheLine) {
  Fixture fixture;
  const auto report = fixture.report(report_title::kModuleUnusedProcedures);
  report->Add_ReportUnusedProcedures_CM_Item("Main", "Sub", "Nothing", "", "2", "Project1", "Module1");
  report->Add_ReportUnusedProcedures_CM_Item("Other", "Sub", "Nothing", "", "4", "Project1", "Module1");
  report->Add_ReportUnusedProcedures_CM_Item("Gone", "Sub", "Nothing", "", "4", "Project1", "Module9");
  report->show();
  forms::drive::doubleClick(*report, "grdResults", {.row = 2});
  EXPECT_EQ(fixture.host.selection("Module1.bas"), (frame::TextRange{4, 1, 4, 1}));
  EXPECT_EQ(fixture.host.module("Module1.bas").CodePane()->TopLine(), 4);
  EXPECT_TRUE(report->visible());

  // A module that has gone is told as an error, and nothing moves.
  std::string errors;
  fixture.host.desk().runModal = [&](forms::Form& form) {
    errors += form.name();
    form.unload();
  };
  forms::drive::doubleClick(*report, "grdResults", {.row = 3});
  EXPECT_EQ(errors, "frmVBError");
  EXPECT_EQ(fixture.host.selection("Module1.bas"), (frame::TextRange{4, 1, 4, 1}));

  forms::drive::set(*report, "grdResults", {.select = {1}});
  forms::drive::click(*report, "cmdCodeClose");
  EXPECT_EQ(fixture.host.selection("Module1.bas"), (frame::TextRange{2, 1, 2, 1}));
  EXPECT_FALSE(report->loaded());
}

TEST(Report, AnEmptyReportLeadsNowhere) {
  Fixture fixture;
  const auto report = fixture.report(report_title::kModuleUnusedProcedures);
  report->show();
  forms::drive::doubleClick(*report, "grdResults", {.row = 1});
  EXPECT_EQ(fixture.host.selection("Module1.bas"), (frame::TextRange{1, 1, 1, 1}));
  EXPECT_EQ(report->GetCallers(), "");
}

TEST(Report, MenusAndHelp) {
  Fixture fixture;
  const auto report = fixture.report(report_title::kListMyCallers);
  report->show();
  forms::drive::click(*report, "mnuContents");
  EXPECT_EQ(fixture.host.desk().takeLog().at(0).text, "ListMyCallers.Html");
  report->SetupReport(report_title::kModulePrefixes);
  forms::drive::key(*report, std::nullopt, forms::keys::kF1);
  EXPECT_EQ(fixture.host.desk().takeLog().at(0).text, "CodeMaintenance.Html");
  forms::drive::click(*report, "mnuExit");
  EXPECT_EQ(fixture.reports.count(), 0);
}

TEST(Report, OnlyTheListOfCallersKeepsItsPlace) {
  Fixture fixture;
  auto& settings = fixture.host.services().settings;
  settings.saveOption("seg360nsdgdg", "1");
  const auto closeAt = [&](std::string_view title, int left) {
    const auto report = fixture.report(title);
    report->setPlacement({left, 600, 7000, 4000});
    report->unload();
  };
  closeAt(report_title::kListMyCallers, 700);
  EXPECT_EQ(settings.option("LMCWL649"), "700");
  closeAt(report_title::kModulePrefixes, 900);
  EXPECT_EQ(settings.option("LMCWL649"), "700");
  EXPECT_EQ(fixture.report(report_title::kModulePrefixes)->placement()->left, 700);
}

TEST(Report, CallersAsText) {
  Fixture fixture;
  const auto report = fixture.report(report_title::kListMyCallers);
  report->Add_ListMyCalllers_Item("Project1", "Module1", "Main", "2");
  report->Add_ListMyCalllers_Item("Project1", "Class1", "Load", "3");
  report->Add_ListMyCalllers_Item("Project2", "Module1", "Main", "2");
  report->Add_ListMyCalllers_Item("Project2", "Class2", "Run", "5");
  report->Add_ListMyCalllers_Item("Project1", "Module1", "", "1");
  EXPECT_EQ(report->GetCallers(), "Main, Class1.Load, Project2.Main, Class2.Run, ");
  EXPECT_EQ(report->ShowCount_ListMyCallers("Foo"), 5);
}

}  // namespace
}  // namespace kolvane::maintenance
