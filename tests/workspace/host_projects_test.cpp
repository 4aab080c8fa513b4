// Opening projects and groups, their names and files, and what hostile ones do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workspace/host_support.h"

namespace kolvane::workspace {
namespace {

using test::file;
using test::Host;
using test::LedgerHost;
using test::raised;
using testing::HasSubstr;

TEST(HostProjects, aProjectShowsWhatItsFileSays) {
  LedgerHost host;
  const auto project = host.ledger();
  EXPECT_EQ(host.problems(), "");
  EXPECT_EQ(host.tree(), "Ledger: modMain(1) frmMain(5) clsAccount(2) readme.txt(10)\n");
  EXPECT_EQ(project->FileName(), "\\p\\Ledger\\Ledger.vbp");
  EXPECT_EQ(project->BuildFileName(), "\\p\\Ledger\\Ledger.exe");
  EXPECT_EQ(project->Description(), "Keeps accounts");
  EXPECT_EQ(project->ReadProperty("", "Title"), "The \"Ledger\" program");
  EXPECT_EQ(project->ReadProperty("MS Transaction Server", "AutoRefresh"), "1");
  EXPECT_FALSE(project->IsDirty());

  const auto references = project->References();
  ASSERT_EQ(references->Count(), 2);
  const auto data = references->Item("adodb");
  EXPECT_EQ(data->Major(), 2);
  EXPECT_EQ(data->Minor(), 10);
  EXPECT_EQ(data->Description(), "Microsoft ActiveX Data Objects 2.6 Library");
  EXPECT_EQ(data->FullPath(), "C:\\ado\\msado26.tlb");

  EXPECT_EQ(host.component("frmMain")->FileCount(), 2);
  EXPECT_EQ(host.component("FRMMAIN")->FileNames(2), "\\p\\Ledger\\frmMain.frx");
  EXPECT_EQ(raised([&] { host.component("frmMain")->FileNames(3); }), "error 9");
  EXPECT_EQ(raised([&] { host.component("nobody"); }), "error 9");
  EXPECT_EQ(host.component("readme.txt")->CodeModule(), nullptr);
  EXPECT_EQ(host.component("clsAccount")->ReadProperty("", "SavedWithClassBuilder6"), "Yes");
  EXPECT_EQ(host.component("modMain")->Designer(), nullptr);
}

TEST(HostProjects, openingTellsItsStoryInOrder) {
  LedgerHost host;
  host.record();
  host.ledger();
  EXPECT_EQ(host.take(), R"(before load \p\Ledger\Ledger.vbp
before load \p\Ledger\Source\modMain.bas
added modMain
after add \p\Ledger\Source\modMain.bas
before load \p\Ledger\frmMain.frm
before load \p\Ledger\frmMain.frx
added frmMain
after add \p\Ledger\frmMain.frm
before load \p\Ledger\clsAccount.cls
added clsAccount
after add \p\Ledger\clsAccount.cls
before load \p\Ledger\readme.txt
added readme.txt
after add \p\Ledger\readme.txt
project added Ledger
project activated Ledger
)");
}

TEST(HostProjects, aHandlerThatFailsDoesNotKeepTheRestFromOpening) {
  LedgerHost host;
  frame::VBComponentsHandlers handlers;
  handlers.ItemAdded = [](const auto&) { throw base::Error(1000); };
  host.keep(host.host->Events()->VBComponentsEvents(nullptr, handlers));
  EXPECT_EQ(raised([&] { host.ledger(); }), "error 1000");
  EXPECT_EQ(host.tree(), "Ledger: modMain(1) frmMain(5) clsAccount(2) readme.txt(10)\n");
}

TEST(HostProjects, namesOfFilesAreFoundWithoutRegardToCaseAtOneListingAFolder) {
  Host host;
  std::string lines = "Type=Exe\n";
  for (int i = 0; i < 50; ++i) {
    lines += "Module=m" + std::to_string(i) + "; ..\\COMMON\\M" + std::to_string(i) + ".BAS\n";
    host.put("/p/Common/m" + std::to_string(i) + ".bas",
             "Attribute VB_Name = \"m" + std::to_string(i) + "\"\n");
  }
  host.put("/p/App/App.vbp", lines);
  const int before = host.files.calls().list;
  const auto project = host.open("/p/App/App.vbp");
  EXPECT_EQ(host.problems(), "");
  EXPECT_EQ(project->VBComponents()->Count(), 50);
  EXPECT_EQ(project->VBComponents()->Item(3)->FileNames(1), "\\p\\Common\\m2.bas");
  EXPECT_EQ(host.files.calls().list - before, 2);  // "/p" and "/p/Common"
}

TEST(HostProjects, theNameInTheFileWins) {
  Host host;
  host.put("/p/a.vbp", "Type=OleDll\nModule=modListed; x.bas\nModule=modKept; y.bas\nForm=z.frm\n");
  host.put("/p/x.bas", "Attribute VB_Name = \"modReal\"\n");
  host.put("/p/y.bas", "Option Explicit\n");
  host.put("/p/z.frm", "VERSION 5.00\nBegin VB.MDIForm frmShell \nEnd\nAttribute VB_Name = \"frmShell\"\n");
  EXPECT_EQ(host.open("/p/a.vbp")->Type(), frame::ProjectType::kActiveXDll);
  EXPECT_EQ(host.tree(), "a: modReal(1) modKept(1) frmShell(6)\n");
}

struct RoundTrip {
  const char* name;
  std::string bytes;
};

// What is read is written: nothing is changed by opening, and a property that is written touches one line.
TEST(HostProjects, oddProjectFilesKeepEveryByte) {
  const std::vector<RoundTrip> samples = {
      {"no last line end", "Type=Exe\r\nName=\"a\""},
      {"line feeds only", "Type=Exe\nName=\"a\"\n"},
      {"mixed and lone returns", "Type=Exe\rName=\"a\"\r\nTitle=\"t\"\n\r"},
      {"unknown keys, junk and sections",
       "Type=Exe\r\nFoo=bar\r\n   ???\r\n=x\r\n\r\n[Their Tool]\r\nName=1\r\n\r\n[]\r\n"},
      {"zero bytes", std::string("Type=Exe\r\nName=\"a\"\r\n\0\0\0\r\n", 25)},
      {"exclamation marks for quotes", "Type=Exe\r\nStartup=!(None)!\r\nName=!a!\r\n"},
      {"a byte order mark", "\xEF\xBB\xBFType=Exe\r\nName=\"a\"\r\n"},
      {"empty", ""},
  };
  for (const RoundTrip& sample : samples) {
    SCOPED_TRACE(sample.name);
    Host host;
    host.files.replace("/p/a.vbp", sample.bytes);
    const auto project = host.open("/p/a.vbp");
    EXPECT_EQ(project->Name(), "a");
    EXPECT_EQ(host.host->changedFiles().size(), 0u);
    EXPECT_EQ(ProjectFile::parse(nullptr, sample.bytes).bytes(), sample.bytes);
    // Two edits that undo each other leave the file unwritten.
    const std::string title = project->ReadProperty("", "Name");
    if (!title.empty()) {
      project->WriteProperty("", "Name", "other");
      project->WriteProperty("", "Name", title);
      EXPECT_TRUE(host.host->saveAll().written.empty());
    }
  }
}

TEST(HostProjects, editsOfTheProjectFileChangeTheirLinesOnly) {
  const auto edited = [](const std::string& before, const std::function<void(ProjectFile&)>& edit) {
    ProjectFile text = ProjectFile::parse(nullptr, before);
    edit(text);
    return text.bytes();
  };
  // Keeps the marks that are there; a new line takes the file's own marks, line ends and the IDE's place.
  EXPECT_EQ(edited("Type=Exe\nName=!a!\nMajorVer=1\n",
                   [](ProjectFile& text) {
                     text.setValue("Name", "b");
                     text.setValue("Description", "says \"so\"");
                     text.setValue("MinorVer", "7");
                   }),
            "Type=Exe\nName=!b!\nDescription=!says \"so\"!\nMajorVer=1\nMinorVer=7\n");
  EXPECT_EQ(edited("Type=Exe\r\nForm=a.frm\r\nModule=m;  m.bas\r\nStartup=\"a\"",
                   [](ProjectFile& text) {
                     const LineId form = text.entries()[1].id;
                     text.addEntry("Class", "c; c.cls");
                     text.removeEntry(form);
                     text.setComponentName(text.entries()[1].id, "mm");
                     text.setValue("Their Tool", "Key", "1");
                     text.setValue("Their Tool", "Other", "2");
                   }),
            "Type=Exe\r\nModule=mm;  m.bas\r\nClass=c; c.cls\r\nStartup=\"a\"\r\n\r\n[Their "
            "Tool]\r\nKey=1\r\nOther=2");
  EXPECT_EQ(raised([&] { edited("", [](ProjectFile& text) { text.setValue("Title", "a\r\nb"); }); }),
            "error 5");
}

TEST(HostProjects, hostileProjectsOpenAsFarAsTheyCan) {
  Host host;
  host.files.addFolder("/p/folder.bas");
  host.put("/p/a.bas", "Attribute VB_Name = \"modA\"\n");
  host.put("/p/twin.bas", "Attribute VB_Name = \"MODA\"\n");
  host.put("/p/a.vbp", R"(Name="a"
Module=modA; a.bas
Module=modGone; gone.bas
Module=modFolder; folder.bas
Module=modTwin; twin.bas
Module=modAgain; .\A.BAS
Module=;
Form=
Reference=*\Aa.vbp
Object=*\Ab.vbp
Reference=*\G{
)");
  const auto project = host.open("/p/a.vbp");
  EXPECT_EQ(host.tree(), "a: modA(1) MODA(1)\n");
  EXPECT_EQ(project->References()->Count(), 2);
  EXPECT_EQ(host.problems(),
            R"(/p/a.vbp(1): the first line does not tell the project's type; taken as a standard program
/p/a.vbp(3): file not found: gone.bas
/p/a.vbp(4): is a folder, not a file: folder.bas
/p/twin.bas: another component of the project has the name MODA
/p/a.vbp(6): the file is named twice: .\A.BAS
/p/a.vbp(7): the line names no file
/p/a.vbp(8): the line names no file
)");
  // Lines of what is missing stay when others go.
  project->VBComponents()->Remove(host.component("modA"));
  host.host->saveAll();
  EXPECT_THAT(host.text("/p/a.vbp"), HasSubstr("Name=\"a\"\nModule=modGone; gone.bas\n"));

  EXPECT_EQ(raised([&] { host.open("/p/none.vbp"); }), "error 53");
  EXPECT_EQ(raised([&] { host.open("/p/folder.bas"); }), "error 75");
  host.put("/p/letter.txt", "Dear all");
  EXPECT_EQ(raised([&] { host.open("/p/letter.txt"); }), "error 321");
}

TEST(HostProjects, groupsOpenTheirProjectsOnce) {
  Host host;
  for (const char* name : {"a", "b"})
    host.put("/g/" + std::string(name) + "/" + name + ".vbp",
             "Type=Exe\nName=\"" + std::string(name) + "\"\n");
  host.put("/g/all.vbg", R"(VBGROUP 5.0
Project=a\a.vbp
StartupProject=B\b.vbp
Project=b\b.vbp
Project=a\A.vbp
Project=all.vbg
Project=gone.vbp
)");
  EXPECT_EQ(host.host->open("/g/all.vbg").size(), 2u);
  EXPECT_EQ(host.tree(), "a:\nb:\n");
  EXPECT_EQ(host.host->ActiveVBProject()->Name(), "b");
  EXPECT_EQ(host.problems(), R"(/g/all.vbg(5): the project is named twice: a\A.vbp
/g/all.vbg(6): is no project: all.vbg
/g/all.vbg(7): project file not found: gone.vbp
)");
  EXPECT_EQ(host.host->changedFiles().size(), 0u);

  // A project that is taken out and put in again keeps its line; one that is taken out loses it.
  const auto projects = host.host->VBProjects();
  projects->Remove(projects->Item("b"));
  projects->AddFromFile("/g/b/b.vbp");
  EXPECT_EQ(host.host->changedFiles().size(), 0u);
  EXPECT_EQ(host.host->open("/g/all.vbg").size(), 2u);  // open already
  projects->Remove(projects->Item("b"));
  host.host->saveAll();
  EXPECT_EQ(host.text("/g/all.vbg"),
            "VBGROUP 5.0\nProject=a\\a.vbp\nProject=a\\A.vbp\nProject=all.vbg\nProject=gone.vbp\n");
  // With its last project the group is closed, not emptied.
  projects->Remove(projects->Item("a"));
  EXPECT_EQ(host.host->changedFiles().size(), 0u);
}

TEST(HostProjects, eachEqualNameInAGroupIsToldOnce) {
  Host host;
  for (const char* name : {"a", "b", "c"})
    host.put("/g/" + std::string(name) + ".vbp", "Type=Exe\nName=\"Same\"\n");
  host.put("/g/all.vbg",
           "VBGROUP 5.0\nStartupProject=a.vbp\nProject=a.vbp\nProject=b.vbp\nProject=c.vbp\nProject=a.vbp\n");
  EXPECT_EQ(host.host->open("/g/all.vbg").size(), 3u);
  EXPECT_EQ(host.problems(), R"(/g/b.vbp: another open project has the name Same
/g/c.vbp: another open project has the name Same
/g/all.vbg(6): the project is named twice: a.vbp
)");
}

TEST(HostProjects, aFileByItselfOpensInAProjectWithoutAFile) {
  LedgerHost host;
  const auto project = host.open("/p/Ledger/Source/modMain.bas");
  EXPECT_EQ(host.tree(), "Project1: modMain(1)\n");
  EXPECT_EQ(project->FileName(), "");
  host.code("modMain")->ReplaceLine(1, "Option Base 1");
  const SaveReport report = host.host->saveAll();
  EXPECT_EQ(report.written, std::vector<std::string>{"/p/Ledger/Source/modMain.bas"});
  EXPECT_TRUE(report.problems.empty());
}

TEST(HostProjects, newProjectsAndComponentsAreNamedAndTold) {
  Host host;
  host.record();
  const auto project = host.host->newProject();
  EXPECT_EQ(host.take(), R"(added Form1
selected Form1
activated Form1
project added Project1
project activated Project1
)");
  EXPECT_FALSE(project->IsDirty());
  EXPECT_EQ(project->FileName(), "");
  EXPECT_EQ(host.component("Form1")->FileCount(), 0);
  EXPECT_EQ(host.component("Form1")->FileNames(1), "");
  EXPECT_EQ(host.code("Form1")->Lines(1, 9), "Option Explicit\r\n");
  EXPECT_EQ(host.code("Form1")->CountOfLines(), 2);

  project->VBComponents()->Add(frame::ComponentType::kStdModule);
  project->VBComponents()->Add(frame::ComponentType::kStdModule);
  host.host->addComponent(project, frame::ComponentType::kClassModule, "clsOne", "Public x\r\npublic y");
  EXPECT_EQ(host.take(), R"(added Module1
selected Module1
activated Module1
added Module2
selected Module2
activated Module2
added clsOne
selected clsOne
activated clsOne
)");
  EXPECT_EQ(host.code("clsOne")->Lines(1, 9), "Public x\r\npublic y");
  EXPECT_TRUE(project->IsDirty());
  host.host->newProject(frame::ProjectType::kActiveXControl);
  EXPECT_EQ(host.tree(), "Project1: Form1(5) Module1(1) Module2(1) clsOne(2)\nProject2: UserControl1(8)\n");
  EXPECT_EQ(raised([&] { project->VBComponents()->Add(frame::ComponentType::kResFile); }), "error 5");
  EXPECT_EQ(raised([&] { host.host->newProject(frame::ProjectType::kStandardExe, "Project2"); }),
            "error 32813");
}

TEST(HostProjects, renamingChecksNamesAndChangesOnlyTheNamesLines) {
  LedgerHost host;
  const auto project = host.ledger();
  host.record();
  for (const char* bad : {"", "1st", "a b", "a-b", "_x"})
    EXPECT_EQ(raised([&] { host.component("modMain")->setName(bad); }), "error 50132") << bad;
  EXPECT_EQ(raised([&] { host.component("modMain")->setName(std::string(41, 'a')); }), "error 50132");
  EXPECT_EQ(raised([&] { host.component("modMain")->setName("FRMMAIN"); }), "error 32813");
  EXPECT_EQ(raised([&] { host.component("modMain")->setName("ledger"); }), "error 32813");
  EXPECT_FALSE(project->IsDirty());
  EXPECT_EQ(host.take(), "");

  host.component("modMain")->setName("modStart");
  host.component("frmMain")->Properties()->Item("Name")->setValue(std::string("frmShell"));
  project->setName("Books");
  EXPECT_EQ(
      host.take(),
      "renamed modStart from modMain\nrenamed frmShell from frmMain\nproject renamed Books from Ledger\n");
  EXPECT_EQ(host.component("frmShell")->FileNames(1), "\\p\\Ledger\\frmMain.frm");
  host.host->saveAll();
  std::string expected = base::replaceAll(test::kLedgerProject, "Module=modMain", "Module=modStart");
  expected = base::replaceAll(expected, "\"frmMain\"", "\"frmShell\"");
  EXPECT_EQ(host.text("/p/Ledger/Ledger.vbp"),
            base::replaceAll(expected, "\"Ledger\"\nDesc", "\"Books\"\nDesc"));
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"),
            base::replaceAll(test::kMainModule, "\"modMain\"", "\"modStart\""));
  std::string form = base::replaceAll(test::kMainForm, "VB.Form frmMain", "VB.Form frmShell");
  EXPECT_EQ(host.text("/p/Ledger/frmMain.frm"),
            base::replaceAll(form, "VB_Name = \"frmMain\"", "VB_Name = \"frmShell\""));
}

TEST(HostProjects, filesAreAddedAndComponentsRemoved) {
  LedgerHost host;
  const auto project = host.ledger();
  host.put("/p/Common/modApi.bas", "Attribute VB_Name = \"modApi\"\n");
  host.put("/p/Common/modTwin.bas", "Attribute VB_Name = \"modMain\"\n");
  host.record();
  const auto added = project->VBComponents()->AddFile("\\p\\Common\\MODAPI.bas");
  EXPECT_EQ(host.take(),
            "added modApi\nafter add \\p\\Common\\modApi.bas\nselected modApi\nactivated modApi\n");
  EXPECT_EQ(raised([&] { project->VBComponents()->AddFile("/p/Common/modApi.bas"); }), "error 32813");
  EXPECT_EQ(raised([&] { project->VBComponents()->AddFile("/p/Common/modTwin.bas"); }), "error 32813");
  EXPECT_EQ(raised([&] { project->VBComponents()->AddFile("/home/Show Form\\frmVBError.frm"); }), "error 76");
  EXPECT_EQ(raised([&] { project->VBComponents()->AddFile("/p/Ledger/readme.txt"); }), "error 32813");
  project->VBComponents()->AddFile("/p/Ledger/frmMain.frx", true);
  project->VBComponents()->Remove(host.component("clsAccount"));
  EXPECT_EQ(host.take(), R"(added frmMain.frx
after add \p\Ledger\frmMain.frx
selected frmMain.frx
removed clsAccount
after remove \p\Ledger\clsAccount.cls
)");
  host.host->saveAll();
  const std::string expected = base::replaceAll(
      base::replaceAll(test::kLedgerProject, "Class=clsAccount; clsAccount.cls\n", ""),
      "RelatedDoc=readme.txt\n",
      "RelatedDoc=readme.txt\nModule=modApi; ..\\Common\\modApi.bas\nRelatedDoc=frmMain.frx\n");
  EXPECT_EQ(host.text("/p/Ledger/Ledger.vbp"), expected);
}

TEST(HostProjects, whatHasGoneRaises91) {
  LedgerHost host;
  const auto project = host.ledger();
  const auto module = host.component("modMain");
  const auto code = module->CodeModule();
  const auto pane = code->CodePane();
  const auto members = code->Members();
  const auto components = project->VBComponents();
  const auto control = host.component("frmMain")->Designer()->VBControls()->Item("cmdOK");
  pane->Show();
  const auto window = pane->Window();
  components->Remove(module);
  for (const auto& call : std::vector<std::function<void()>>{
           [&] { module->Name(); }, [&] { code->Lines(1, 1); }, [&] { code->ReplaceLine(1, "x"); },
           [&] { pane->GetSelection(); }, [&] { members->Count(); }, [&] { window->Caption(); },
           [&] { components->Remove(module); }})
    EXPECT_EQ(raised(call), "error 91");
  host.host->closeProject(project);
  for (const auto& call : std::vector<std::function<void()>>{
           [&] { project->Name(); }, [&] { project->IsDirty(); }, [&] { components->Count(); },
           [&] { control->ClassName(); }, [&] { host.host->closeProject(project); }})
    EXPECT_EQ(raised(call), "error 91");
  EXPECT_EQ(host.host->ActiveVBProject(), nullptr);

  const auto other = host.ledger();
  const auto bars = host.host->CommandBars();
  const auto all = host.host->VBProjects();
  host.host.reset();
  EXPECT_EQ(raised([&] { other->Name(); }), "error 91");
  EXPECT_EQ(raised([&] { all->Count(); }), "error 91");
  EXPECT_EQ(raised([&] { bars->Item(1); }), "error 91");
}

TEST(HostProjects, eventsAreLimitedToTheirProject) {
  Host host;
  const auto first = host.host->newProject();
  const auto second = host.host->newProject();
  host.keep(host.host->Events()->VBComponentsEvents(second, host.componentHandlers()));
  first->VBComponents()->Add(frame::ComponentType::kStdModule);
  EXPECT_EQ(host.take(), "");
  second->VBComponents()->Item(1)->setName("frmTwo");
  EXPECT_EQ(host.take(), "renamed frmTwo from Form1\n");
  const auto form = second->VBComponents()->Item(1)->Designer();
  host.keep(host.host->Events()->VBControlsEvents(nullptr, form, host.controlHandlers()));
  first->VBComponents()->Item(1)->Designer()->VBControls()->Add("VB.TextBox");
  form->VBControls()->Add("VB.TextBox");
  EXPECT_EQ(host.take(), "control added Text1\n");
}

// Each is named and left alone, and the rest of the project is there.
TEST(HostProjects, whatIsNotTextInACodePageIsNotRead) {
  const std::string code = "Sub A()\r\nEnd Sub\r\n";
  std::string wide, scattered = "Sub A()\r\n";
  for (const char c : code) wide += {c, '\0'};
  for (int i = 0; i < 9; ++i) scattered += std::string("x\0y\r\n", 5);
  const struct {
    const char* name;
    std::string bytes;
    const char* reason;  // "" where it is read
  } samples[] = {
      {"UTF-16 with its mark", "\xFF\xFE" + wide, "is UTF-16"},
      {"UTF-16 without", wide, "is UTF-16"},
      {"UTF-8 with its mark", "\xEF\xBB\xBF" + code, "byte order mark of UTF-8"},
      {"a program", std::string("MZ\x90\0\3\0\0\0\4\r\n", 11), "is binary data"},
      {"NULs all over", scattered, "is binary data"},
      {"a run of NULs at the end", code + std::string(600, '\0') + "\r\n", ""},
      {"one odd byte", "Sub A()\r\n' \x81" + std::string(1, '\0') + "\r\nEnd Sub\r\n", ""},
  };
  for (const auto& sample : samples) {
    SCOPED_TRACE(sample.name);
    Host host;
    host.put("/p/P.vbp", "Type=Exe\nModule=modX; x.bas\nModule=modA; a.bas\n");
    host.put("/p/a.bas", code);
    host.files.replace("/p/x.bas", sample.bytes);
    host.open("/p/P.vbp");
    const bool isRead = *sample.reason == '\0';
    EXPECT_EQ(host.tree(), isRead ? "P: modX(1) modA(1)\n" : "P: modA(1)\n");
    const std::string problems = host.problems();
    EXPECT_EQ(problems.empty(), isRead);
    EXPECT_THAT(problems, HasSubstr(sample.reason));
    EXPECT_EQ(host.host->changedFiles().size(), 0u);
  }
}

// As the binary forms of older versions are: an edit of what looks like their code would ruin them.
TEST(HostProjects, aFormThatIsNoneIsNotRead) {
  const std::string binary = std::string("\xFF\xCC\x31") + '\0' + "Sub A()\r\nx = 1\r\n";
  Host host;
  host.put("/p/P.vbp", "Type=Exe\nForm=Old.frm\nModule=modA; modA.bas\n");
  host.put("/p/modA.bas", "Attribute VB_Name = \"modA\"\n");
  host.files.replace("/p/Old.frm", binary);
  host.open("/p/P.vbp");
  EXPECT_EQ(host.tree(), "P: modA(1)\n");
  EXPECT_EQ(host.problems(), "/p/P.vbp(2): cannot be read: /p/Old.frm: no form or designer begins in it\n");
  host.code("modA")->InsertLines(1, "' new");
  host.host->saveAll();
  EXPECT_EQ(host.files.read("/p/Old.frm").content->bytes(), binary);
  EXPECT_THAT(host.text("/p/P.vbp"), HasSubstr("Form=Old.frm\n"));
  EXPECT_EQ(raised([&] { host.open("/p/Old.frm"); }), "error 321");
  EXPECT_EQ(host.tree(), "P: modA(1)\n");
}

}  // namespace
}  // namespace kolvane::workspace
