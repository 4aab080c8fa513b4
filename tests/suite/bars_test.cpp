// What the connection puts on the host's bars and into its context menus, as text.
#include <vector>

#include "suite_fixture.h"

namespace kolvane::suite {
namespace {

constexpr int kAllBars[] = {frame::kStandardToolbarIndex, frame::kCodeWindowMenuIndex,
                            frame::kControlsWindowMenuIndex};

constexpr std::string_view kCodeWindowMenu = R"(&List My Callers [List My Callers]
Pr&oc. Re-Coder
  Procedure &Header [PROCEDUREHEADER]
  &Standard Errors
    &Show
    &Raise
    &Next
    &Blank
  &Comments
    &5 Line Comment
    &3 Line Comment
    &Comment Block
    U&ncomment Block
  S&election Case
    &Lower
    &Upper
    - &Proper
  - M&isc.
    - Au&to With
    - Sort &Lines
    - Add Line &Numbers
    - &Remove Line Numbers
    - &Split Line
    - &Join Lines
&Enhanced Clipboard
  &Copy [Enhanced Clipboard Copy]
  Cop&y Procedure [Enhanced Clipboard Copy Procedure]
  C&lear [Enhanced Clipboard Clear]
  &Paste [Enhanced Clipboard Paste]
)";

class BarsTest : public SuiteTest {
 protected:
  void setAll(std::string_view value) {
    for (const frame::CatalogueRow& row : frame::kCatalogue)
      for (const std::string_view prefix : {frame::kInMenuPrefix, frame::kOnToolbarPrefix})
        set(std::string(prefix).append(row.key), value);
    set("b165328srgksjerg", value);
    for (const frame::ContextEntry& entry : frame::kContextEntries)
      set(std::string(entry.prefix).append(entry.key), value);
  }

  std::string allBars() {
    std::string text = bar("Add-Ins");
    for (const int index : kAllBars) text += bar(index);
    return text;
  }

  // A connection whose actions are these; the suite's own stays unconnected.
  void connectWith(frame::Connect::Bindings bindings) {
    connection_ = std::make_unique<frame::Connect>(suite_.services(), std::move(bindings));
    connection_->AddinInstance_Initialize();
    connection_->AddinInstance_OnConnection();
  }

  void click(std::initializer_list<std::string_view> path, int index = frame::kCodeWindowMenuIndex) {
    auto controls = workspace_->CommandBars()->Item(index)->Controls();
    std::shared_ptr<frame::CommandBarControl> control;
    for (const std::string_view caption : path) {
      control = controls->Item(caption);
      controls = control->Controls();
    }
    workspace_->click(control);
  }

  std::unique_ptr<frame::Connect> connection_;
};

TEST_F(BarsTest, aFirstConnectionShowsTheDefaultsAndLeavesNothingBehind) {
  const std::string before = allBars();
  connect();
  EXPECT_EQ(bar("Add-Ins"), R"(&Procedure Builder [Procedure Builder]
P&roperty Builder [Property Builder]
A&uto Coder [Auto Coder]
Cod&e Maintenance [Code Maintenance]
&Search [Search]
&word Complete [Word Complete]
Word C&omplete Setup [Word Complete Setup]
S&QL Formatter [SQL Formatter]
D&B Data Scripter [DB Data Scriptier]
&Template Coder [Template Coder]
Standards &Monitor [Standards Monitor]
Strings Writer [Strings Writer]
&Control Coder [Control Coder]
Control Defaulter [Control Defaulter]
&General Options [General Options]
Mass Propert&y Updater [Mass Property Updater]
)");
  EXPECT_EQ(bar(frame::kStandardToolbarIndex), R"(Close Inactive Windows [Close Inactive Windows]
Clear Immediate Window [Clear Immediate Window]
Search [Search]
Auto Declare [Auto Declare]
Dirty Project [Dirty Project]
Project Stats [Project Stats]
Module Stats [Module Stats]
)");
  EXPECT_EQ(bar(frame::kCodeWindowMenuIndex), kCodeWindowMenu);
  EXPECT_EQ(bar(frame::kControlsWindowMenuIndex), R"(Cont&rol Coder [Control Coder]
Control De&faulter [Control Defaulter]
S&et Tab Order [Set Tab Order]
)");
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(allBars(), before);
}

// Some rows are switched on again by every connection.
TEST_F(BarsTest, whatIsSwitchedOffIsNotThere) {
  setAll("False");
  connect();
  EXPECT_EQ(allBars(), R"(&Search [Search]
Mass Propert&y Updater [Mass Property Updater]
Dirty Project [Dirty Project]
Project Stats [Project Stats]
Module Stats [Module Stats]
S&et Tab Order [Set Tab Order]
)");
  EXPECT_EQ(suite_.connection().state(), frame::ConnectState::kRunning);
}

TEST_F(BarsTest, everythingSwitchedOnStandsInTheCataloguesOrder) {
  setAll("True");
  connect();
  std::string menu;
  std::vector<std::string> toolbar(frame::kCatalogue.size() + 1);
  const auto button = [&toolbar](const frame::CatalogueRow& row) {
    toolbar[static_cast<std::size_t>(row.toolbarNumber) - 1] =
        std::string(row.toolbarTip) + " [" + std::string(row.pictureKey) + "]\n";
  };
  button(frame::kDirtyIndicator);
  for (const frame::CatalogueRow& row : frame::kCatalogue) {
    menu += std::string(row.menuCaption) + " [" + std::string(row.pictureKey) + "]\n";
    button(row);
  }
  EXPECT_EQ(bar("Add-Ins"), menu);
  std::string buttons;
  for (const std::string& text : toolbar) buttons += text;
  EXPECT_EQ(bar(frame::kStandardToolbarIndex), buttons);
}

TEST_F(BarsTest, itemsOfTheCodeMenuAreHiddenByTheirSettingsAndGoWhenAllAreOff) {
  for (const frame::PopupItem& item : frame::kProcRecoderPopup)
    if (!item.option.empty() && item.option != "rtdhnty370sergkmujs" && item.option != "e271der")
      set(item.option, "False");
  set("rtdhnty370sergkmujs", "True");
  connect();
  const std::string menu = bar(frame::kCodeWindowMenuIndex);
  for (const char* line : {"  Procedure &Header [PROCEDUREHEADER]\n", "  - &Standard Errors\n    &Show\n",
                           "  - &Comments\n    - &5 Line Comment\n", "  - S&election Case\n    - &Lower\n",
                           "  M&isc.\n    - Au&to With\n    Sort &Lines\n"})
    EXPECT_NE(menu.find(line), std::string::npos) << line << menu;
  suite_.connection().AddinInstance_OnDisconnection();

  set("rtdhnty370sergkmujs", "False");
  set("e271der", "False");
  connect();
  EXPECT_EQ(bar(frame::kCodeWindowMenuIndex).find("Re-Coder"), std::string::npos);
}

TEST_F(BarsTest, itemsOfTheCodeMenuWithoutAStoredSettingAreShown) {
  for (const frame::PopupItem& item : frame::kProcRecoderPopup)
    if (!item.option.empty()) settings_.DeleteSetting(frame::kOptions, item.option);
  set("AdVnc1", "3.0");
  connect();
  EXPECT_EQ(bar(frame::kCodeWindowMenuIndex), base::replaceAll(kCodeWindowMenu, "- ", ""));
}

// Menus of front ends that leave out what does nothing.
TEST_F(BarsTest, whatThisVersionDoesNotHaveIsNotThere) {
  Suite suite(Ports{*workspace_,
                    store_,
                    desk_,
                    clock_,
                    user_,
                    random_,
                    clipboard_,
                    keystrokes_,
                    hostFiles_,
                    pages_,
                    page_,
                    "",
                    {},
                    MissingCommands::kHidden});
  setAll("True");
  const std::string before = allBars();
  suite.connection().AddinInstance_OnConnection();
  std::string menu;
  for (const frame::CatalogueRow& row : frame::kCatalogue)
    if (suite.available(row))
      menu += std::string(row.menuCaption) + " [" + std::string(row.pictureKey) + "]\n";
  EXPECT_EQ(bar("Add-Ins"), menu);
  EXPECT_EQ(bar(frame::kStandardToolbarIndex).find("Search"), std::string::npos);
  EXPECT_EQ(bar(frame::kCodeWindowMenuIndex),
            std::string(kCodeWindowMenu.substr(0, kCodeWindowMenu.find("&Enhanced"))));
  EXPECT_EQ(bar(frame::kControlsWindowMenuIndex), "");
  suite.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(allBars(), before);
}

TEST_F(BarsTest, aGroupLineGoesToTheFirstEntryOfEachContextMenu) {
  set("greiwuh43hferwc3dsf", "True");
  set("ol168SCCo128", "False");
  set("o166SLMCs147", "False");
  connect();
  EXPECT_EQ(controlsOf("Controls"), "| Control De&faulter, S&et Tab Order");
  EXPECT_EQ(controlsOf("Code Window"), "| Pr&oc. Re-Coder, &Enhanced Clipboard");
}

TEST_F(BarsTest, customErrorsStandInTheirPopupTwelveAtMost) {
  std::vector<std::string> names, created;
  for (int i = 1; i <= 13; ++i) names.push_back("Error " + std::to_string(i));
  frame::Connect::Bindings bindings;
  bindings.menus.customErrors = [&] { return names; };
  bindings.menus.createCustomError = [&](const std::string& name) { created.push_back(name); };
  connectWith(bindings);
  const std::string menu = bar(frame::kCodeWindowMenuIndex);
  EXPECT_NE(menu.find("    &Blank\n  Custo&m Errors\n    Error 1 [CUSTOMERROR]\n"), std::string::npos)
      << menu;
  EXPECT_NE(menu.find("    Error 12 [CUSTOMERROR]\n  &Comments\n"), std::string::npos) << menu;
  click({"Proc. Re-Coder", "Custom Errors", "Error 3"});
  EXPECT_EQ(created, std::vector<std::string>{"Error 3"});
  connection_->AddinInstance_OnDisconnection();

  set("Pcl273oer", "False");
  connectWith(bindings);
  EXPECT_NE(bar(frame::kCodeWindowMenuIndex).find("  - Custo&m Errors\n"), std::string::npos);
}

TEST_F(BarsTest, aStandardErrorOfThePopupAsksForAHandlerFirst) {
  connect();
  const auto component = workspace_->addComponent(workspace_->newProject(), frame::ComponentType::kStdModule,
                                                  "Module1", "Sub A()\r\n    Beep\r\nEnd Sub\r\n");
  workspace_->openCode(component)->SetSelection({1, 1, 1, 1});
  click({"Proc. Re-Coder", "Standard Errors", "Show"});
  const std::string once = component->CodeModule()->Lines(1, component->CodeModule()->CountOfLines());
  EXPECT_NE(once.find("On Error GoTo"), std::string::npos) << once;
  click({"Proc. Re-Coder", "Standard Errors", "Blank"});
  EXPECT_EQ(component->CodeModule()->Lines(1, component->CodeModule()->CountOfLines()), once);

  std::vector<std::string> keys;
  frame::Connect::Bindings bindings;
  bool hasHandler = true;
  bindings.menus.handlerExists = [&](frame::CodeModule&, int) { return hasHandler; };
  bindings.menus.dispatch = [&](std::string_view key) { keys.emplace_back(key); };
  suite_.connection().AddinInstance_OnDisconnection();
  connectWith(bindings);
  for (const char* button : {"Show", "Raise", "Next", "Blank"})
    click({"Proc. Re-Coder", "Standard Errors", button});
  click({"Proc. Re-Coder", "Procedure Header"});
  hasHandler = false;
  click({"Proc. Re-Coder", "Standard Errors", "Raise"});
  EXPECT_EQ(keys, (std::vector<std::string>{"CPRProHe80", "CPRRaErHaC77"}));
}

TEST_F(BarsTest, entriesOfTheSelectionComeAndGo) {
  connect();
  frame::WindowMenus& menus = suite_.connection().windowMenus();
  const std::string before = bar(frame::kControlsWindowMenuIndex);
  menus.AddCopyControlCodeToControlsWindowMenu("cmdOK");
  menus.AddCopyControlCodeToControlsWindowMenu("cmdCancel");
  menus.AddPasteControlCodeToControlsWindowMenu("cmdOK");
  menus.AddSwapControlsToControlsWindowMenu();
  menus.AddSelectedControlsToControlsWindowMenu();
  EXPECT_EQ(bar(frame::kControlsWindowMenuIndex), before + R"(Cop&y cmdCancel Code [Copy Control Code]
P&aste cmdOK Code [Paste Control Code]
S&wap Controls [Swap Controls]
Selected Controls [Selected Controls]
)");
  EXPECT_TRUE(menus.hasEntry(frame::kSwapControlsEntry));
  menus.removeEntry(frame::kSwapControlsEntry);
  EXPECT_FALSE(menus.hasEntry(frame::kSwapControlsEntry));
  EXPECT_EQ(bar(frame::kControlsWindowMenuIndex).find("S&wap"), std::string::npos);
  suite_.connection().AddinInstance_OnDisconnection();
  EXPECT_EQ(bar(frame::kControlsWindowMenuIndex), "");
}

TEST_F(BarsTest, anOldSystemGetsTheOtherPictures) {
  frame::Connect::Bindings bindings;
  bindings.system = {1, 4, 10};
  connectWith(bindings);
  EXPECT_TRUE(bar("Add-Ins").starts_with("&Procedure Builder [Image95Procedure Builder]\n"))
      << bar("Add-Ins");
}

TEST_F(BarsTest, theHostsEventsAreHeardWhileConnectedAndFormsGoInTheirOrder) {
  std::vector<std::string> heard;
  frame::Connect::Bindings bindings;
  bindings.hooks.projects.ItemAdded = [&](const auto& project) { heard.push_back(project->Name()); };
  bindings.hooks.components.ItemAdded = [&](const auto& component) { heard.push_back(component->Name()); };
  bindings.hooks.build.EnterRunMode = [&] { heard.push_back("run"); };
  bindings.activateHotKeys = [&] { heard.push_back("hot keys on"); };
  bindings.deactivateHotKeys = [&] { heard.push_back("hot keys off"); };
  bindings.unloadForm = [&](std::string_view form) { heard.emplace_back(form); };
  set("SCoDr133", "True");
  connectWith(bindings);
  connection_->IDTExtensibility_OnStartupComplete();
  const auto project = workspace_->newProject();
  workspace_->enterRunMode();
  EXPECT_EQ(heard.front(), "hot keys on");
  EXPECT_NE(std::find(heard.begin(), heard.end(), "Project1"), heard.end());
  EXPECT_EQ(heard.back(), "run");
  heard.clear();
  workspace_->addComponent(project, frame::ComponentType::kStdModule, "Module1", "");
  EXPECT_EQ(heard, std::vector<std::string>{"Module1"});
  heard.clear();
  connection_->AddinInstance_OnDisconnection();
  EXPECT_EQ(heard.size(), 28u);  // 27 forms beside the timer's, and the hot keys
  EXPECT_EQ(heard.front(), "frmProcedureBuilder");
  EXPECT_EQ(heard.back(), "hot keys off");
  heard.clear();
  workspace_->newProject();
  EXPECT_TRUE(heard.empty());
}

}  // namespace
}  // namespace kolvane::suite
