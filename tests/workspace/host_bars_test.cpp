// Command bars, windows, the active things and run mode.
#include <gtest/gtest.h>

#include "workspace/host_support.h"

namespace kolvane::workspace {
namespace {

using frame::ControlKind;
using test::Host;
using test::LedgerHost;
using test::raised;

std::string captions(const std::shared_ptr<frame::CommandBarControls>& controls) {
  std::string all;
  for (const auto& control : controls->items())
    all += (control->BeginGroup() ? "| " : "") + control->Caption() + std::to_string(control->Index()) + " ";
  return all;
}

TEST(HostBars, theHostsBarsStandAtTheirPlaces) {
  Host host;
  const auto bars = host.host->CommandBars();
  EXPECT_EQ(bars->Item(1)->Name(), "Menu Bar");
  EXPECT_EQ(bars->Item(frame::kStandardToolbarIndex)->Name(), "Standard");
  EXPECT_EQ(bars->Item(frame::kCodeWindowMenuIndex)->Name(), "Code Window");
  EXPECT_EQ(bars->Item(frame::kControlsWindowMenuIndex)->Name(), "Controls");
  EXPECT_EQ(bars->ActiveMenuBar(), bars->Item("menu bar"));
  for (const char* name : {"Add-Ins", "&add-ins", "Tools"}) EXPECT_NO_THROW(bars->Item(name)) << name;
  EXPECT_EQ(bars->Item("Add-Ins")->Name(), "Add-Ins");
  EXPECT_EQ(bars->ActiveMenuBar()->Controls()->Item("F&ormat")->Caption(), "F&ormat");
  EXPECT_EQ(raised([&] { bars->Item("None"); }), "error 9");
  EXPECT_EQ(raised([&] { bars->Item(0); }), "error 9");
  EXPECT_EQ(raised([&] { bars->Item(2)->Delete(); }), "error 5");
}

TEST(HostBars, controlsComeAndGo) {
  Host host;
  const auto bars = host.host->CommandBars();
  const auto menu = bars->Item("Add-Ins");
  const auto add = [&](const std::string& caption, int before = 0) {
    const auto control = menu->Controls()->Add(ControlKind::kButton, 1, {}, before);
    control->setCaption(caption);
    return control;
  };
  const auto first = add("&One");
  const auto second = add("Two");
  add("Zero", 1);
  add("Last", 99);
  second->setBeginGroup(true);
  EXPECT_EQ(captions(menu->Controls()), "Zero1 &One2 | Two3 Last4 ");
  EXPECT_EQ(menu->Controls()->Item("one"), first);
  first->Delete();
  EXPECT_EQ(captions(menu->Controls()), "Zero1 | Two2 Last3 ");
  EXPECT_EQ(raised([&] { first->Caption(); }), "error 91");
  EXPECT_EQ(raised([&] { first->Delete(); }), "error 91");

  const auto own = bars->Add("Tools of ours");
  EXPECT_EQ(bars->Item(own->Index()), own);
  EXPECT_FALSE(own->Visible());
  const auto popup = own->Controls()->Add(ControlKind::kPopup);
  const auto child = popup->Controls()->Add();
  child->setTooltipText("A button");
  EXPECT_EQ(popup->Controls()->Item("a button"), child);
  EXPECT_EQ(child->Controls(), nullptr);
  EXPECT_EQ(raised([&] { bars->Add("tools OF ours"); }), "error 5");
  own->Delete();
  EXPECT_EQ(raised([&] { child->Caption(); }), "error 91");
  EXPECT_EQ(raised([&] { own->Visible(); }), "error 91");
}

TEST(HostBars, aFaceComesFromTheClipboard) {
  Host host;
  const auto button = host.host->CommandBars()->Item(2)->Controls()->Add();
  EXPECT_EQ(raised([&] { button->PasteFace(); }), "error 5");
  host.clipboard.setPicture("Search");
  button->PasteFace();
  EXPECT_EQ(button->Face(), "Search");
}

TEST(HostBars, clicksReachTheirHandlersUntilOneHasHandledThem) {
  Host host;
  const auto button = host.host->CommandBars()->Item(2)->Controls()->Add();
  const auto listen = [&](const std::string& name, bool handles) {
    return host.host->Events()->CommandBarEvents(button,
                                                 [&host, name, handles](const auto&, bool& handled, bool&) {
                                                   host.note(name);
                                                   handled = handles;
                                                 });
  };
  const auto first = listen("first", false);
  auto second = listen("second", true);
  const auto third = listen("third", false);
  host.host->click(button);
  EXPECT_EQ(host.take(), "first\nsecond\n");
  second.reset();
  host.host->click(button);
  EXPECT_EQ(host.take(), "first\nthird\n");
  button->setEnabled(false);
  EXPECT_EQ(raised([&] { host.host->click(button); }), "error 5");
  EXPECT_EQ(raised([&] { (void)host.host->Events()->CommandBarEvents(nullptr, {}); }), "error 5");
}

std::string windows(Host& host) {
  std::string all;
  for (const auto& window : host.host->Windows()->items())
    if (window->Visible())
      all += window->Caption() + ":" + std::to_string(static_cast<int>(window->Type())) + "\n";
  return all;
}

TEST(HostWindows, aWindowComesWithEachThingThatIsOpened) {
  LedgerHost host;
  EXPECT_EQ(windows(host), "Project:6\nProperties:7\nImmediate:5\n");
  host.ledger();
  EXPECT_EQ(host.host->ActiveWindow(), nullptr);
  EXPECT_EQ(host.host->ActiveCodePane(), nullptr);
  EXPECT_EQ(host.host->SelectedVBComponent(), nullptr);
  host.record();
  host.host->openCode(host.component("modMain"));
  host.host->openCode(host.component("frmMain"));
  host.component("frmMain")->Activate();
  host.component("frmMain")->Activate();
  EXPECT_EQ(host.take(), R"(selected modMain
activated modMain
selected frmMain
activated frmMain
activated frmMain
)");
  EXPECT_EQ(windows(host), R"(Project - Ledger:6
Properties - frmMain:7
Immediate:5
modMain (Code):0
frmMain (Code):0
frmMain (Form):1
)");
  EXPECT_EQ(host.host->ActiveWindow()->Caption(), "frmMain (Form)");
  EXPECT_EQ(host.host->ActiveCodePane()->CodeModule()->Name(), "frmMain");

  // The suite's own command: every code window and designer but the active one.
  const auto active = host.host->ActiveWindow();
  for (const auto& window : host.host->Windows()->items())
    if (window != active && static_cast<int>(window->Type()) <= 1) window->Close();
  EXPECT_EQ(windows(host), "Project - Ledger:6\nProperties - frmMain:7\nImmediate:5\nfrmMain (Form):1\n");
  EXPECT_EQ(host.host->ActiveCodePane(), nullptr);

  host.host->Windows()->Item("immediate")->SetFocus();
  EXPECT_EQ(static_cast<int>(host.host->ActiveWindow()->Type()), 5);
  EXPECT_EQ(host.take(), "");
  host.code("modMain")->CodePane()->Show();
  host.component("modMain")->setName("modStart");
  EXPECT_EQ(host.host->ActiveWindow()->Caption(), "modStart (Code)");
  host.host->removeComponent(host.component("modStart"));
  EXPECT_EQ(static_cast<int>(host.host->ActiveWindow()->Type()), 5);
  EXPECT_EQ(host.host->SelectedVBComponent(), nullptr);
}

TEST(HostWindows, closingAWindowSelectsWhatItUncovers) {
  Host host;
  const auto other = host.host->newProject();
  host.host->newProject();
  const auto add = [&](std::string_view name) {
    return host.host->addComponent(host.host->ActiveVBProject(), frame::ComponentType::kStdModule, name, "");
  };
  host.component("Form1")->Activate();
  add("Module1");
  host.host->openCode(other->VBComponents()->Item(1));
  host.host->setActiveVBProject(host.host->VBProjects()->Item(2));
  const auto last = add("Module2");
  host.record();
  const auto close = [&](std::string_view caption) {
    host.host->Windows()->Item(caption)->Close();
    return host.take();
  };
  EXPECT_EQ(close("Module1 (Code)"), "") << "it was not in front";
  EXPECT_EQ(close("Module2 (Code)"), "project activated Project1\nselected Form1\nactivated Form1\n");
  EXPECT_EQ(host.host->SelectedVBComponent(), other->VBComponents()->Item(1));
  host.host->openCode(last);
  host.host->Windows()->Item("Immediate")->SetFocus();
  host.host->openCode(host.component("Module1"));
  host.take();
  // Nobody works in the immediate window on a component: the next of the code windows is the one.
  EXPECT_EQ(close("Module1 (Code)"), "selected Module2\n");
  host.host->Windows()->Item("Module2 (Code)")->SetFocus();
  host.take();
  host.host->removeComponent(last);
  EXPECT_EQ(host.host->SelectedVBComponent(), nullptr) << "the immediate window is in front";
}

TEST(HostWindows, selectingFollowsTheProject) {
  Host host;
  const auto first = host.host->newProject();
  const auto second = host.host->newProject();
  host.record();
  host.host->select(first->VBComponents()->Item(1));
  EXPECT_EQ(host.take(), "project activated Project1\nselected Form1\n");
  EXPECT_EQ(host.host->ActiveVBProject(), first);
  host.host->setActiveVBProject(second);
  EXPECT_EQ(host.take(), "project activated Project2\n");
  EXPECT_EQ(host.host->SelectedVBComponent(), nullptr);
  EXPECT_EQ(raised([&] { host.host->setActiveVBProject(nullptr); }), "error 91");
}

TEST(HostWindows, runModeIsTold) {
  Host host;
  host.record();
  host.host->enterRunMode();
  host.host->leaveRunMode();
  EXPECT_EQ(host.take(), "run mode\ndesign mode\n");
}

}  // namespace
}  // namespace kolvane::workspace
