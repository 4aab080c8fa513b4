// Who calls a procedure. Samples have a gutter of two characters: "? " is the line of the cursor, "> " a
// calling line, "2 " one that is listed twice. A run writes the gutter anew, and the texts are compared.
#include <gtest/gtest.h>

#include <map>

#include "base/error.h"
#include "base/text.h"
#include "forms/drive.h"
#include "maintenance/list_my_callers.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

struct SampleLine {
  std::string file;
  int line = 0;
  bool cursor = false;
  std::string text;
};

// A line "--- Module1.bas" begins a module.
std::vector<SampleLine> readSample(std::string_view sample) {
  std::vector<SampleLine> lines;
  std::string file;
  int line = 0;
  for (const std::string_view text : base::splitLines(sample)) {
    if (text.starts_with("--- ")) {
      file = text.substr(4);
      line = 0;
    } else if (!text.empty()) {
      lines.push_back({file, ++line, text.front() == '?', std::string(text.substr(2))});
    }
  }
  return lines;
}

struct Fixture {
  explicit Fixture(std::string_view sample) : lines(readSample(sample)) {
    std::map<std::string, std::vector<std::string>> modules;
    std::vector<std::string> order;
    const SampleLine* cursor = nullptr;
    for (const SampleLine& line : lines) {
      if (!modules.contains(line.file)) order.push_back(line.file);
      modules[line.file].push_back(line.text);
      if (line.cursor) cursor = &line;
    }
    for (const std::string& file : order) host.addComponent(file, modules[file]);
    if (cursor) host.activate(cursor->file, {cursor->line, 1, cursor->line, 1});
  }

  std::shared_ptr<frame::VBComponent> active() {
    return host.services().vbe.ActiveCodePane()->CodeModule()->Parent();
  }
  void option(std::string_view key, std::string_view text) { host.services().settings.saveOption(key, text); }
  frmReport* report() { return static_cast<frmReport*>(host.desk().openForms().find("frmReport")); }

  // The sample with the gutter as the report's rows tell it.
  std::string gutter() {
    std::map<std::pair<std::string, int>, int> counts;
    std::vector<std::pair<std::string, int>> rows;
    const auto list = callers.ListMyCallers(active(), false);
    for (int row = 1; row < list->grdLines.rows(); ++row)
      if (!list->isEmpty())
        rows.emplace_back(list->grdResults.cell(row, 1), std::stoi(list->grdLines.cell(row, 2)));
    list->unload();
    for (const auto& row : rows) ++counts[row];

    std::vector<std::pair<std::string, int>> found;
    const auto module = host.services().vbe.ActiveCodePane()->CodeModule();
    const auto sought = soughtAt(active(), module, module->CodePane()->GetSelection().startLine);
    for (const Caller& caller : findCallers(host.services(), sought))
      found.emplace_back(caller.module, caller.line);
    EXPECT_EQ(found, rows) << "the search without forms";

    std::string text, file;
    for (const SampleLine& line : lines) {
      if (line.file != file) text += "--- " + line.file + "\n";
      file = line.file;
      const int count = counts[{file.substr(0, file.find('.')), line.line}];
      const std::string mark = count > 1 ? std::to_string(count) : line.cursor ? "?" : count == 1 ? ">" : " ";
      text += mark + " " + line.text + "\n";
    }
    return text;
  }

  test::TestHost host;
  std::vector<SampleLine> lines;
  Reports reports{host.services()};
  Callers callers{host.services(), reports};
};

void expectCallers(std::string_view sample) {
  Fixture fixture(sample);
  EXPECT_EQ(fixture.gutter(), sample);
}

TEST(Callers, OfAPublicProcedureOfAStandardModule) {
  expectCallers(R"vb(--- Module1.bas
? Public Function Foo(Optional ByVal lngStep As Long) As Long
      Foo = 1
      If lngStep > 0 Then Foo = Foo(lngStep - 1)
  End Function
  Private Sub Local1()
>     Call Foo
>     Foo 1
>         lngX = Foo(1)
>     lngX = Foo
>     lngX = Foo + 1
      If (Foo) > Foo(2) Then Stop
      MsgBox Foo, 1
      lngX = -Foo
      Foo: Stop
      lngX = FooBar + MyFoo
      foo
      MsgBox "Foo 1"
      MsgBox "it's" ' Foo 1
      lngX = 1 ' Foo
>     MsgBox "it's Foo (1)"
      Dim Foo As Long
  End Sub
--- Module2.bas
> Private Const kFoo = Foo (1)
  Private Sub Foo()
      Module1.Foo
      Call Foo
  End Sub
  Private Property Get Value() As Long
>     Value = Foo
  End Property
--- Class1.cls
  Public Sub Run()
>     Call Foo
      objA.Foo
  End Sub
)vb");
}

TEST(Callers, OfAPrivateProcedureAreSoughtInItsModuleOnly) {
  expectCallers(R"vb(--- Module1.bas
? Private Sub Foo()
  End Sub
  Public Sub Main()
>     Foo
  End Sub
--- Module2.bas
  Public Sub Other()
      Foo
  End Sub
)vb");
  expectCallers(R"vb(--- Class1.cls
? Friend Sub Foo()
  End Sub
  Public Sub Main()
>     Foo
      Me.Foo
  End Sub
--- Module2.bas
  Public Sub Other()
      Dim objA As Class1
      objA.Foo
  End Sub
)vb");
}

TEST(Callers, OfAMethodByTheClassOfTheObject) {
  expectCallers(R"vb(--- clsMine.cls
? Public Sub Foo()
  End Sub
  Public Sub Again()
>     Me.Foo
>     Foo
>     objAny.Foo
>     x = -Foo
  End Sub
--- Module1.bas
  Private objModule As clsMine
  Public Sub Typed()
      Dim objA As clsMine
      Dim objB As New clsMine, objC As clsOther
      Dim objD As Project1.clsMine
      Dim objE As Project2.clsMine
      Dim x As clsMine
>     objA.Foo
>     objB.Foo (1)
      objC.Foo
>     objD.Foo
      objE.Foo
>     x.Foo ' at last
      objModule.Foo
      objA.Foo, 1
      obja.Foo
      Foo
      y = objA.Foo
  10  objA.Foo
      clsMine.Foo.Bar
>     clsMine.Foo
  End Sub
  Public Sub Elsewhere()
      objA.Foo
  End Sub
  Public Sub Members()
      Dim objA As clsMine
      .Foo
      With objOther
          .Foo
          With objA ' nested
>             .Foo
          End With
>         .Foo 1
      End With
  End Sub
)vb");
}

TEST(Callers, UseModuleDeclarations) {
  constexpr std::string_view kOff = R"vb(--- clsMine.cls
? Public Property Get Total() As Long
  End Property
--- Module1.bas
  Private objModule As clsMine
  Public gobjNew As New clsMine
  Private Sub Main()
      objModule.Total
      gobjNew.Total
  End Sub
)vb";
  constexpr std::string_view kOn = R"vb(--- clsMine.cls
? Public Property Get Total() As Long
  End Property
--- Module1.bas
  Private objModule As clsMine
  Public gobjNew As New clsMine
  Private Sub Main()
>     objModule.Total
>     gobjNew.Total
  End Sub
)vb";
  Fixture fixture(kOff);
  EXPECT_EQ(fixture.gutter(), kOff);
  fixture.option("srtgkhsdfjh46vsdfgshg", "1");
  EXPECT_EQ(fixture.gutter(), kOn);
}

TEST(Callers, OfAFormAreSoughtByItsNameToo) {
  expectCallers(R"vb(--- frmMain.frm
? Public Sub Fill()
  End Sub
  Private Sub Form_Load()
>     Fill
>     frmMain.Fill
  End Sub
--- Module1.bas
  Public Sub Main()
2     frmMain.Fill
>     Call frmMain.Fill
>     If x Then frmMain.Fill 1
      x.frmMain.Fill
      Fill
  End Sub
  Public Sub Fill()
>     Call frmMain.Fill
  End Sub
)vb");
}

TEST(Callers, OutsideOfAProcedureNothingHappens) {
  Fixture fixture("--- Module1.bas\n? Option Explicit\n  Sub Main()\n  End Sub\n");
  fixture.callers.evtListMyCallers_Click();
  EXPECT_TRUE(fixture.host.desk().openForms().empty());
  EXPECT_TRUE(fixture.host.desk().takeLog().empty());
  EXPECT_FALSE(fixture.host.desk().busy());
}

constexpr std::string_view kThreeCalls = R"vb(--- Module1.bas
? Public Sub Foo()
  End Sub
--- Module2.bas
  Sub Twice()
      Foo
      Foo
  End Sub
--- Module3.bas
  Sub Once()
      Foo
  End Sub
)vb";

TEST(Callers, TheReportShowsCountsAndLeadsToTheLine) {
  Fixture fixture(kThreeCalls);
  fixture.callers.evtListMyCallers_Click();
  frmReport* const report = fixture.report();
  ASSERT_TRUE(report);
  EXPECT_EQ(fixture.host.desk().openForms().all().size(), 1U) << "the cancel dialog has gone";
  EXPECT_FALSE(fixture.host.desk().busy());
  EXPECT_EQ(report->caption(), "List My Callers");
  EXPECT_EQ(report->StatusBar1.text(), "Procedure Foo called 3 time(s).");
  EXPECT_EQ(report->grdResults.cell(0, 2), "Procedure");
  EXPECT_TRUE(report->grdResults.mergedColumn(1));
  EXPECT_FALSE(report->grdResults.mergedColumn(2));
  EXPECT_FALSE(report->cmdUpdateHeaders.visible());
  EXPECT_EQ(report->helpTopic(), "ListMyCallers.Html");

  forms::drive::doubleClick(*report, "grdResults", {.row = 2});
  EXPECT_EQ(fixture.host.services().vbe.ActiveCodePane()->CodeModule()->Name(), "Module2");
  EXPECT_EQ(fixture.host.selection("Module2.bas"), (frame::TextRange{3, 1, 3, 1}));
  forms::drive::set(*report, "grdResults", {.select = {3}});
  forms::drive::click(*report, "cmdCodeClose");
  EXPECT_EQ(fixture.host.selection("Module3.bas"), (frame::TextRange{2, 1, 2, 1}));
  EXPECT_FALSE(fixture.report());
  EXPECT_EQ(fixture.reports.count(), 0);
}

TEST(Callers, ANewListTakesThePlaceOfTheOneShown) {
  Fixture fixture(kThreeCalls);
  fixture.callers.evtListMyCallers_Click();
  fixture.callers.evtListMyCallers_Click();
  EXPECT_EQ(fixture.reports.count(), 1);
}

TEST(Callers, NoCallers) {
  Fixture fixture("--- Module1.bas\n? Public Sub Foo()\n  End Sub\n");
  fixture.callers.evtListMyCallers_Click();
  EXPECT_TRUE(fixture.host.desk().openForms().empty());
  const auto log = fixture.host.desk().takeLog();
  ASSERT_EQ(log.size(), 1U);
  EXPECT_EQ(log[0].text, "No callers found!");
  EXPECT_EQ(log[0].flags, forms::box::kExclamation);
}

// Clicks Cancel the n-th time that events are let through.
void cancelAt(Fixture& fixture, int turn) {
  fixture.host.desk().onDoEvents = [&fixture, turn, now = 0]() mutable {
    auto& desk = fixture.host.desk();
    if (++now == turn && desk.openForms().find("frmCancelSearch"))
      forms::drive::click(forms::drive::openForm(desk, "frmCancelSearch"), "cmdCancel");
  };
}

TEST(Callers, CancelKeepsTheHitsSoFar) {
  Fixture fixture(kThreeCalls);
  // One turn before the dialog, then one in front of each module.
  cancelAt(fixture, 4);
  fixture.callers.evtListMyCallers_Click();
  ASSERT_TRUE(fixture.report());
  EXPECT_EQ(fixture.report()->StatusBar1.text(), "Procedure Foo called 2 time(s).");
  EXPECT_TRUE(fixture.callers.SearchCancelled());

  cancelAt(fixture, 2);
  fixture.host.activate("Module1.bas", {1, 1, 1, 1});
  fixture.callers.evtListMyCallers_Click();
  EXPECT_FALSE(fixture.report());
  EXPECT_EQ(fixture.host.desk().takeLog().at(0).text, "No callers found!");
}

TEST(Callers, CancelWithinAModule) {
  std::string sample = "--- Module1.bas\n? Public Sub Foo()\n  End Sub\n  Sub Main()\n";
  for (int i = 0; i < 100; ++i) sample += "      Foo\n";
  Fixture fixture(sample + "  End Sub\n");
  cancelAt(fixture, 3);
  fixture.callers.evtListMyCallers_Click();
  ASSERT_TRUE(fixture.report());
  EXPECT_LT(fixture.report()->countOfRows(), 20);
}

TEST(Callers, ASecondClickMeanwhileDoesNothing) {
  Fixture fixture(kThreeCalls);
  fixture.host.desk().onDoEvents = [&fixture] {
    if (fixture.host.desk().openForms().find("frmCancelSearch")) fixture.callers.evtListMyCallers_Click();
  };
  fixture.callers.evtListMyCallers_Click();
  EXPECT_EQ(fixture.reports.count(), 1);
  EXPECT_EQ(fixture.report()->countOfRows(), 3);
}

TEST(Callers, ByNameForTheCommandLine) {
  Fixture fixture(kThreeCalls);
  auto& services = fixture.host.services();
  const auto project = services.vbe.ActiveVBProject();
  const auto callers = findCallers(services, soughtProcedure(*project, "module1.FOO"));
  ASSERT_EQ(callers.size(), 3U);
  EXPECT_EQ(callers[2], (Caller{"Project1", "Module3", "Once", 2, "    Foo"}));
  const auto reason = [&](std::string_view name) {
    try {
      soughtProcedure(*project, name);
    } catch (const base::Error& error) {
      return error.description();
    }
    return std::string();
  };
  EXPECT_EQ(reason("Foo"), "Foo is no name of the form Module.Procedure.");
  EXPECT_EQ(reason("Module9.Foo"), "Project1 has no module Module9.");
  EXPECT_EQ(reason("Module1.Bar"), "Module1 has no procedure Bar.");
}

TEST(Callers, WithVariable) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule("Sub A()\nWith  objA ' one\n.x\nEnd With\n.y\n10 With objB\n.z");
  EXPECT_EQ(FindWithVariable(module, 3), "objA");
  EXPECT_EQ(FindWithVariable(module, 5), "objA");
  EXPECT_EQ(FindWithVariable(module, 7), "objA");
  EXPECT_EQ(FindWithVariable(module, 1), "");
}

TEST(Callers, TypesOfVariables) {
  source::colDeclarations declarations;
  const auto add = [&](std::string name, std::string type, std::string project) {
    declarations.Add(
        {.Original_Name = std::move(name), .Variable_Type = std::move(type), .Project = std::move(project)});
  };
  add("A", "clsMine", "P");
  add("B", "New P.clsMine", "P");
  add("C", "clsMine", "Other");
  add("D", "Q.clsMine", "P");
  add("E", "clsOther", "P");
  add("E", "clsMine", "P");
  std::string matches;
  for (const char name : std::string("ABCDEF"))
    if (TypesMatch("P", "clsMine", std::string(1, name), declarations)) matches += name;
  EXPECT_EQ(matches, "ABE");
  EXPECT_TRUE(TypesMatch("P", "clsMine", "clsMine", {}));
}

}  // namespace
}  // namespace kolvane::maintenance
