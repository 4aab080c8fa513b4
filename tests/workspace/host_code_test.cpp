// Code modules, panes and members as tools use them, and what protects a module.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workspace/host_support.h"

namespace kolvane::workspace {
namespace {

using frame::ProcKind;
using frame::TextRange;
using test::Host;
using test::LedgerHost;
using test::raised;

std::string positions(const TextRange& range) {
  return std::to_string(range.startLine) + "," + std::to_string(range.startColumn) + "-" +
         std::to_string(range.endLine) + "," + std::to_string(range.endColumn);
}

TEST(HostCode, aModuleAnswersThroughItsInterface) {
  LedgerHost host;
  host.ledger();
  const auto code = host.code("modMain");
  EXPECT_EQ(code->Name(), "modMain");
  EXPECT_EQ(code->Parent(), host.component("modMain"));
  EXPECT_EQ(code->CountOfLines(), 10);
  EXPECT_EQ(code->CountOfDeclarationLines(), 1);
  EXPECT_EQ(code->Lines(9, 99), "    Sum = a + b\r\nEnd Function");
  EXPECT_EQ(code->ProcOfLine(7), "Sum");
  EXPECT_EQ(code->ProcBodyLine("sum", ProcKind::kProc), 8);
  EXPECT_EQ(code->ProcStartLine("Sum", ProcKind::kProc), 6);
  EXPECT_EQ(code->ProcCountLines("Sum", ProcKind::kProc), 5);
  EXPECT_EQ(raised([&] { code->ProcBodyLine("Nobody", ProcKind::kProc); }), "error 35");
  EXPECT_EQ(raised([&] { code->ReplaceLine(99, ""); }), "error -2147024809");
  EXPECT_EQ(raised([&] { code->ReplaceLines(1, 99, ""); }), "error -2147024809");
  EXPECT_EQ(raised([&] { code->ReplaceLines(1, 0, ""); }), "error -2147024809");
  EXPECT_EQ(raised([&] { code->VisitLines(0, 1, [](std::string_view) {}); }), "error -2147024809");
  TextRange range{1, 1, -1, -1};
  EXPECT_TRUE(code->Find("a + b", range));
  EXPECT_EQ(positions(range), "9,11-9,16");
  EXPECT_FALSE(host.component("modMain")->IsDirty());
}

TEST(HostCode, editsMakeDirtyAndAreWrittenInTheFilesOwnManner) {
  LedgerHost host;
  host.files.replace("/p/Ledger/Source/modMain.bas", test::kMainModule);  // line feeds only
  const auto project = host.ledger();
  const auto code = host.code("modMain");
  code->InsertLines(2, "dim x as long\r\n' done");
  code->DeleteLines(12, 1);
  EXPECT_EQ(code->Lines(2, 2), "Dim x As Long\r\n' done");
  EXPECT_TRUE(host.component("modMain")->IsDirty());
  EXPECT_TRUE(project->IsDirty());
  EXPECT_EQ(host.host->pendingBytes(host.component("modMain")),
            base::replaceAll(base::replaceAll(test::kMainModule, "Option Explicit\n",
                                              "Option Explicit\nDim x As Long\n' done\n"),
                             "End Function\n", ""));
  host.host->setText(host.component("modMain"), "sub A\r\nend sub\r\n");
  EXPECT_EQ(code->Lines(1, 9), "sub A\r\nend sub");
  host.component("modMain")->Reload();
  EXPECT_EQ(code->CountOfLines(), 10);
  EXPECT_FALSE(project->IsDirty());
}

TEST(HostCode, textOfAFileComesWithoutHeaderAndAttributes) {
  LedgerHost host;
  host.ledger();
  host.code("modMain")->AddFromFile("\\p\\Ledger\\clsAccount.cls");
  EXPECT_EQ(test::shown(host.code("modMain")->Lines(1, 8)), R"(Option Explicit
Option Explicit
Public Event Changed(ByVal Amount As Currency, _
    Cancel As Boolean)
Public Property Get Balance() As Currency
End Property

Public Sub Main())");
  EXPECT_EQ(raised([&] { host.code("modMain")->AddFromFile("\\p\\none.bas"); }), "error 53");
}

TEST(HostCode, selectionsAreClippedAndFollowEdits) {
  Host host;
  const auto project = host.host->newProject();
  host.host->addComponent(project, frame::ComponentType::kStdModule, "modA",
                          "one\r\ntwo\r\nthree\r\nfour\r\n");
  const auto code = host.code("modA");
  const auto pane = code->CodePane();
  const auto after = [&](const TextRange& selection) {
    pane->SetSelection(selection);
    return positions(pane->GetSelection());
  };
  EXPECT_EQ(after({0, 0, 0, 0}), "1,1-1,1");
  EXPECT_EQ(after({2, 99, 1, 2}), "1,2-2,4");
  EXPECT_EQ(after({3, 2, 99, 1}), "3,2-4,5");
  EXPECT_EQ(raised([&] { pane->setTopLine(0); }), "error 5");
  pane->setTopLine(99);
  EXPECT_EQ(pane->TopLine(), 4);

  code->InsertLines(2, "new\r\nlines");
  EXPECT_EQ(positions(pane->GetSelection()), "5,2-6,5");
  EXPECT_EQ(pane->TopLine(), 6);
  code->ReplaceLine(5, "3");
  EXPECT_EQ(positions(pane->GetSelection()), "5,2-6,5");
  code->DeleteLines(1, 2);
  EXPECT_EQ(positions(pane->GetSelection()), "3,2-4,5");
  code->InsertLines(9, "behind");
  EXPECT_EQ(positions(pane->GetSelection()), "3,2-4,5");
  code->DeleteLines(2, 99);
  EXPECT_EQ(positions(pane->GetSelection()), "1,6-1,6");
  EXPECT_EQ(pane->TopLine(), 1);
  code->DeleteLines(1, 1);
  EXPECT_EQ(positions(pane->GetSelection()), "1,1-1,1");
  code->InsertLines(1, "again\r\nand again");
  EXPECT_EQ(positions(pane->GetSelection()), "1,1-1,1");
}

TEST(HostCode, membersFollowTheCode) {
  LedgerHost host;
  host.ledger();
  const auto code = host.code("clsAccount");
  const auto members = code->Members();
  ASSERT_EQ(members->Count(), 2);
  const auto balance = members->Item("BALANCE");
  EXPECT_EQ(balance->Type(), frame::MemberType::kProperty);
  EXPECT_EQ(balance->Description(), "What is left");
  EXPECT_EQ(balance->CodeLocation(), 4);
  EXPECT_EQ(members->Item(1)->Type(), frame::MemberType::kEvent);
  code->InsertLines(code->CountOfLines() + 1, "Public Sub Post()\r\nEnd Sub");
  EXPECT_EQ(members->Count(), 3);
  EXPECT_EQ(raised([&] { members->Item("Nobody"); }), "error 9");
}

struct Handler {
  const char* component;
  const char* object;
  const char* event;
  const char* expected;
};

TEST(HostCode, eventHandlersTakeTheirTitleFromTheObject) {
  for (const Handler& handler : std::vector<Handler>{
           {"frmMain", "form", "load", "Private Sub Form_Load()"},
           {"frmMain", "Form", "QueryUnload",
            "Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)"},
           {"frmMain", "cmdok", "KeyPress", "Private Sub cmdOK_KeyPress(KeyAscii As Integer)"},
           {"frmMain", "txtAmount", "Change", "Private Sub txtAmount_Change(Index As Integer)"},
           {"frmMain", "txtAmount", "keydown",
            "Private Sub txtAmount_KeyDown(Index As Integer, KeyCode As Integer, Shift As Integer)"},
           {"frmMain", "mAccount", "Changed",
            "Private Sub mAccount_Changed(ByVal Amount As Currency, Cancel As Boolean)"},
           {"clsAccount", "Class", "initialize", "Private Sub Class_Initialize()"},
           {"frmMain", "cmdOK", "Click", "error 57017"},
           {"frmMain", "cmdOK", "Boil", "error 57017"},
           {"frmMain", "cmdNone", "Click", "error 57017"},
           {"modMain", "Form", "Load", "error 57017"},
       }) {
    SCOPED_TRACE(std::string(handler.object) + "_" + handler.event);
    LedgerHost host;
    host.ledger();
    const auto code = host.code(handler.component);
    const int count = code->CountOfLines();
    const std::string error = raised([&] {
      const int line = code->CreateEventProc(handler.event, handler.object);
      EXPECT_EQ(line, count + 2);
      EXPECT_EQ(code->Lines(count + 1, 4), std::string("\r\n") + handler.expected + "\r\n\r\nEnd Sub");
    });
    EXPECT_EQ(error, std::string_view(handler.expected).starts_with("error") ? handler.expected : "");
    EXPECT_EQ(code->CountOfLines(), error.empty() ? count + 4 : count);
  }
}

TEST(HostCode, aModuleThatCannotBeEditedRefusesEveryChange) {
  LedgerHost host;
  host.ledger();
  const auto refusals = [&](const std::string& name) {
    const auto component = host.component(name);
    const auto code = component->CodeModule();
    std::string all;
    for (const auto& edit : std::vector<std::function<void()>>{
             [&] { code->InsertLines(1, "x"); }, [&] { code->DeleteLines(1); },
             [&] { code->ReplaceLine(1, "x"); }, [&] { code->AddFromString("x"); },
             [&] { code->AddFromFile("/p/Ledger/readme.txt"); },
             [&] { code->CreateEventProc("Load", "Form"); }, [&] { host.host->setText(component, "x"); },
             [&] { component->setName("other"); }, [&] { component->WriteProperty("", "k", "v"); },
             [&] { component->Properties()->Item("Caption")->setValue(std::string("x")); },
             [&] { component->Designer()->VBControls()->Add("VB.TextBox"); }})
      all += raised(edit) == "error 40198" ? "." : "!";
    return all + (component->IsDirty() ? " dirty" : "");
  };
  host.files.setAttributes("/p/Ledger/frmMain.frm", 33);
  EXPECT_EQ(refusals("frmMain"), "...........");
  host.files.setAttributes("/p/Ledger/frmMain.frm", 32);
  host.host->setReadOnly(host.component("frmMain"), true);
  EXPECT_EQ(refusals("frmMain"), "...........");
  host.host->setReadOnly(host.component("frmMain"), false);
  host.code("frmMain")->ReplaceLine(1, "Option Explicit");
  EXPECT_TRUE(host.component("frmMain")->IsDirty());
}

TEST(HostCode, designerEditsMakeDirtyAndRaiseTheirEvents) {
  LedgerHost host;
  host.ledger();
  host.record();
  const auto form = host.component("frmMain")->Designer();
  const auto added = form->VBControls()->Add("VB.CommandButton");
  added->Properties()->Item("Name")->setValue(std::string("cmdCancel"));
  form->VBControls()->Remove(form->VBControls()->Item("cmdOK"));
  EXPECT_EQ(host.take(),
            "control added Command1\ncontrol renamed cmdCancel from Command1\ncontrol removed cmdOK\n");
  EXPECT_TRUE(host.component("frmMain")->IsDirty());
  const std::string bytes = host.host->pendingBytes(host.component("frmMain"));
  EXPECT_THAT(bytes, testing::HasSubstr("   Begin VB.CommandButton cmdCancel \r\n"));
  EXPECT_THAT(bytes, testing::Not(testing::HasSubstr("VB.CommandButton cmdOK")));
}

}  // namespace
}  // namespace kolvane::workspace
