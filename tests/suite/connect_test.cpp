// The suite's life in a host: what connection leaves in it, what disconnection takes away, what outlives
// both.
#include <gtest/gtest.h>

#include "suite_fixture.h"

namespace kolvane::suite {
namespace {

class ConnectTest : public SuiteTest {};

TEST_F(ConnectTest, rowsStandInTheirStoredOrderWithSeparatorsAndGoAgain) {
  const std::string menuBefore = controlsOf("Add-Ins");
  const std::string toolbarBefore = controlsOf("Standard");
  order(frame::kMenuOrderSection, frame::kInMenuPrefix,
        {"SS66", frame::kSeparatorKey, "thshgg546fhfg", "NoSuchKey", "SPB35", frame::kSeparatorKey});
  order(frame::kToolbarOrderSection, frame::kOnToolbarPrefix, {"thshgg546fhfg", "328srgksjerg"});
  set("y234wazappppff", "True");
  connect();
  const auto behind = [](const std::string& before, const std::string& own) {
    return before.empty() ? own : before + ", " + own;
  };
  EXPECT_EQ(controlsOf("Add-Ins"), behind(menuBefore, "&Search, | Procedure Header, &Procedure Builder"));
  EXPECT_EQ(controlsOf("Standard"), behind(toolbarBefore, "| Procedure Header, Dirty Project"));
  EXPECT_EQ(workspace_->CommandBars()->Item("Add-Ins")->Controls()->Item("Procedure Header")->Face(),
            "PROCEDUREHEADER");
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(controlsOf("Add-Ins"), menuBefore);
  EXPECT_EQ(controlsOf("Standard"), toolbarBefore);
}

TEST_F(ConnectTest, aRowThatIsNamedTwiceOrWithoutItsPrefixHasOneControl) {
  const std::string before = controlsOf("Add-Ins") + controlsOf("Standard");
  for (const auto& [section, prefix] : {std::pair{frame::kMenuOrderSection, frame::kInMenuPrefix},
                                        std::pair{frame::kToolbarOrderSection, frame::kOnToolbarPrefix}}) {
    order(section, prefix, {"SS66", "thshgg546fhfg", "328srgksjerg", "SS66", "328srgksjerg"});
    settings_.SaveSetting(section, "6", "thshgg546fhfg");
  }
  connect();
  EXPECT_EQ(controlsOf("Add-Ins"), "&Search, Procedure Header");
  EXPECT_EQ(controlsOf("Standard"), "Search, Procedure Header, Dirty Project");
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(controlsOf("Add-Ins") + controlsOf("Standard"), before);
}

TEST_F(ConnectTest, missingOrderTablesShowNothingAndFailNothing) {
  const std::string before = controlsOf("Add-Ins");
  settings_.DeleteSetting(frame::kMenuOrderSection);
  settings_.DeleteSetting(frame::kToolbarOrderSection);
  connect();
  EXPECT_EQ(controlsOf("Add-Ins"), before);
  EXPECT_EQ(suite_.connection().state(), frame::ConnectState::kRunning);
}

TEST_F(ConnectTest, ownToolbarAndMenuTakeTheButtonsAndKeepTheirPlace) {
  order(frame::kMenuOrderSection, frame::kInMenuPrefix, {"thshgg546fhfg"});
  order(frame::kToolbarOrderSection, frame::kOnToolbarPrefix, {"thshgg546fhfg"});
  set("CmTUs155", "1");
  set("CMergu161", "1");
  const std::string addIns = controlsOf("Add-Ins");
  connect();
  EXPECT_EQ(controlsOf("Add-Ins"), addIns);
  const auto bar = workspace_->CommandBars()->Item("KolvaneLite V3.0 Toolbar");
  EXPECT_TRUE(bar->Visible());
  EXPECT_EQ(bar->Left(), 300);
  EXPECT_EQ(suite_.connection().ToolbarIndex(), std::to_string(bar->Index()));
  EXPECT_EQ(controlsOf("KolvaneLite V3.0 Toolbar"), "Procedure Header");
  const auto menu = workspace_->CommandBars()->ActiveMenuBar()->Controls()->Item("Kolvane V3.0");
  EXPECT_EQ(menu->Caption(), "Kolvan&e V3.0");
  EXPECT_EQ(menu->Controls()->Count(), 1);
  bar->setLeft(42);
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(settings_.option("CuTlrft158"), "42");
  EXPECT_THROW(workspace_->CommandBars()->Item("KolvaneLite V3.0 Toolbar"), base::Error);
  EXPECT_THROW(workspace_->CommandBars()->ActiveMenuBar()->Controls()->Item("Kolvane V3.0"), base::Error);
}

TEST_F(ConnectTest, clicksReachTheirToolOrSayThatItIsNotHere) {
  order(frame::kMenuOrderSection, frame::kInMenuPrefix, {"thshgg546fhfg", "wesrg455sdfhgbdaszfg"});
  connect();
  const auto project = workspace_->newProject();
  const auto component = workspace_->addComponent(project, frame::ComponentType::kStdModule, "Module1",
                                                  "Sub A()\r\n    Beep\r\nEnd Sub\r\n");
  workspace_->openCode(component)->SetSelection({2, 1, 2, 1});
  const auto menu = workspace_->CommandBars()->Item("Add-Ins")->Controls();
  workspace_->click(menu->Item("Procedure Header"));
  EXPECT_EQ(component->CodeModule()->Lines(3, 1), "'*  Name         : A");
  workspace_->click(menu->Item("Auto Documentor"));
  const auto log = desk_.takeLog();
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0].text, "Auto Documentor is not in this version.");
  EXPECT_EQ(log[0].flags, 48);
}

TEST_F(ConnectTest, aNewProjectGetsItsDefaultsAndAnOldOneNone) {
  set("RComWA15", "1");
  set("ouloi45lwefwd", "1");
  set("ghj456hgjsdfg", "' <Project>, <Author>\r\n' <Date>");
  const auto project = workspace_->newProject();
  connect();
  const auto form = project->VBComponents()->Item(1);
  EXPECT_EQ(form->Name(), "frm1");
  EXPECT_EQ(frame::toText(form->Properties()->Item("Caption")->value()), "");
  EXPECT_EQ(form->CodeModule()->Lines(1, 2), "' Project1, ann\r\n' 22 Nov 2026");
  suite_.connection().AddinInstance_OnDisconnection();
  connect();
  EXPECT_EQ(form->Name(), "frm1");
  EXPECT_NE(form->CodeModule()->Lines(3, 1), "' Project1, ann");
}

TEST_F(ConnectTest, theClipboardSurvivesTheStart) {
  set("srtg322aeRrgf", "1");
  clipboard_.setText("mine");
  connect();
  EXPECT_EQ(clipboard_.text(), "mine");
  EXPECT_EQ(clipboard_.picture(), std::nullopt);
}

TEST_F(ConnectTest, shutDownEmptiesWindowFilesAndRemovesThoseOfTheCompiler) {
  files_.replace("/p/Test.vbp", "Type=OleDll\r\nName=\"Test\"\r\nExeName32=\"Test.dll\"\r\n");
  files_.replace("/p/Test.vbw", "Module1 = 0, 0, 0, 0, \r\n");
  files_.replace("/p/Test.exp", "x");
  files_.replace("/p/Old.vbp", "Type=Exe\r\nName=\"Old\"\r\n");
  files_.replace("/p/Old.vbw", "kept");
  files_.setAttributes("/p/Old.vbw", 33);
  for (const auto* path : {"/p/Test.vbp", "/p/Old.vbp"}) workspace_->open(path);
  workspace_->newProject();
  set("dvdfg348sdfgsdg", "True");
  set("ReCFonCl16", "1");
  connect();
  suite_.connection().AddinInstance_OnBeginShutdown();
  EXPECT_EQ(files_.read("/p/Test.vbw").content->bytes(), "");
  EXPECT_EQ(files_.attributes("/p/Test.vbw"), 33);
  EXPECT_EQ(files_.read("/p/Old.vbw").content->bytes(), "kept");
  EXPECT_EQ(files_.stamp("/p/Test.exp"), std::nullopt);
  EXPECT_TRUE(desk_.takeUnattended().empty());

  files_.remove("/p/Test.vbw");
  suite_.connection().AddinInstance_OnBeginShutdown();
  const auto shown = desk_.takeUnattended();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].name, "frmVBError");
  EXPECT_NE(shown[0].dump.find("KolvaneLite.Connect.AddinInstance_OnBeginShutdown"), std::string::npos)
      << shown[0].dump;
}

TEST_F(ConnectTest, theHostIsToldWhetherModulesAreMaximized) {
  set("VMM18", "1");
  connect();
  EXPECT_EQ(settings_.ReadRegistryValue(frame::RegistryRoot::kCurrentUser,
                                        "SOFTWARE\\Microsoft\\Visual Basic\\6.0", "MDIMaximized"),
            "1");
}

}  // namespace
}  // namespace kolvane::suite
