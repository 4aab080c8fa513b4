// What is written, what is not, and what stands in the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workspace/host_support.h"

namespace kolvane::workspace {
namespace {

using test::file;
using test::Host;
using test::LedgerHost;
using test::raised;
using testing::ElementsAre;
using testing::HasSubstr;

std::string paths(const std::vector<FileChange>& changes) {
  std::string all;
  for (const FileChange& change : changes) all += change.path + (change.oldBytes ? "" : " (new)") + "\n";
  return all;
}

std::string text(const std::vector<Problem>& problems) {
  std::string all;
  for (const Problem& problem : problems) all += problem.text() + "\n";
  return all;
}

TEST(HostSaving, onlyFilesWhoseBytesChangedAreWritten) {
  LedgerHost host;
  const auto project = host.ledger();
  const int before = host.files.calls().replace;
  EXPECT_TRUE(host.host->saveAll().written.empty());
  const auto code = host.code("modMain");
  const std::string line = code->Lines(2, 1);
  code->ReplaceLine(2, "' other");
  code->ReplaceLine(2, line);
  EXPECT_TRUE(host.component("modMain")->IsDirty());
  EXPECT_EQ(paths(host.host->changedFiles()), "");
  EXPECT_TRUE(host.host->saveAll().written.empty());
  EXPECT_FALSE(host.component("modMain")->IsDirty());
  EXPECT_EQ(host.files.calls().replace, before);

  host.record();
  code->InsertLines(1, "' first");
  EXPECT_EQ(paths(host.host->changedFiles()), "/p/Ledger/Source/modMain.bas\n");
  EXPECT_EQ(host.host->changedFiles()[0].newBytes, host.host->pendingBytes(host.component("modMain")));
  EXPECT_THAT(host.host->saveProject(project).written, ElementsAre("/p/Ledger/Source/modMain.bas"));
  EXPECT_EQ(
      host.take(),
      "request write \\p\\Ledger\\Source\\modMain.bas\nafter write \\p\\Ledger\\Source\\modMain.bas 0\n");
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"),
            base::replaceAll(test::kMainModule, "Option Explicit", "' first\nOption Explicit"));
  EXPECT_FALSE(project->IsDirty());

  // A second round, over what the first one wrote.
  code->DeleteLines(1, 1);
  EXPECT_EQ(host.host->save(host.component("modMain")), SaveResult::kWritten);
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"), test::kMainModule);
}

TEST(HostSaving, codeIsFoundBehindAHeaderThatGrewWithTheSave) {
  LedgerHost host;
  host.ledger();
  host.component("modMain")->setName("modMainOfTheLedger");
  EXPECT_EQ(host.host->save(host.component("modMainOfTheLedger")), SaveResult::kWritten);
  const auto code = host.code("modMainOfTheLedger");
  EXPECT_EQ(code->Lines(1, 1), "Option Explicit");
  code->InsertLines(1, "' first");
  EXPECT_EQ(host.host->save(host.component("modMainOfTheLedger")), SaveResult::kWritten);
  const std::string renamed = base::replaceAll(test::kMainModule, "\"modMain\"", "\"modMainOfTheLedger\"");
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"),
            base::replaceAll(renamed, "Option Explicit", "' first\nOption Explicit"));
}

TEST(HostSaving, aHandlerCanKeepAFileFromBeingWritten) {
  LedgerHost host;
  host.ledger();
  host.record();
  host.cancelWrites = true;
  host.code("modMain")->DeleteLines(1);
  EXPECT_THAT(host.host->saveAll().cancelled, ElementsAre("/p/Ledger/Source/modMain.bas"));
  EXPECT_EQ(
      host.take(),
      "request write \\p\\Ledger\\Source\\modMain.bas\nafter write \\p\\Ledger\\Source\\modMain.bas 1\n");
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"), test::kMainModule);
  EXPECT_TRUE(host.component("modMain")->IsDirty());
}

TEST(HostSaving, aFileThatChangedOnTheDiskIsNotOverwritten) {
  LedgerHost host;
  host.ledger();
  for (const char* name : {"modMain", "clsAccount"}) host.code(name)->InsertLines(1, "' mine");
  host.put("/p/Ledger/Source/modMain.bas", "' theirs\n");
  const SaveReport report = host.host->saveAll();
  EXPECT_THAT(report.written, ElementsAre("/p/Ledger/clsAccount.cls"));
  EXPECT_EQ(text(report.problems),
            "/p/Ledger/Source/modMain.bas: was changed by another program since it was read\n");
  EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"), "' theirs\n");
  EXPECT_EQ(raised([&] { host.host->save(host.component("modMain")); }), "error 75");
  EXPECT_EQ(host.host->save(host.component("modMain"), {.force = true}), SaveResult::kWritten);
  EXPECT_THAT(host.text("/p/Ledger/Source/modMain.bas"), HasSubstr("' mine\n"));

  // Touched without a change: nothing of anybody's would be lost.
  host.code("clsAccount")->InsertLines(1, "' more");
  host.files.replace("/p/Ledger/clsAccount.cls",
                     host.files.read("/p/Ledger/clsAccount.cls").content->bytes());
  EXPECT_EQ(host.host->save(host.component("clsAccount")), SaveResult::kWritten);
}

TEST(HostSaving, aFileThatWasDeletedIsNotMadeAgain) {
  for (const bool listens : {true, false}) {
    LedgerHost host;
    const auto project = host.ledger();
    if (listens) host.record();
    host.code("clsAccount")->InsertLines(1, "' mine");
    project->WriteProperty("", "Title", "New");
    for (const char* path : {"/p/Ledger/clsAccount.cls", "/p/Ledger/Ledger.vbp", "/p/Ledger/frmMain.frm"})
      host.files.remove(path);
    EXPECT_EQ(text(host.host->saveAll().problems),
              R"(/p/Ledger/clsAccount.cls: has been deleted or moved since it was read
/p/Ledger/Ledger.vbp: has been deleted or moved since it was read
)");
    EXPECT_EQ(host.files.stamp("/p/Ledger/clsAccount.cls"), std::nullopt);
    EXPECT_EQ(raised([&] { host.host->save(host.component("clsAccount")); }), "error 53");
    EXPECT_THAT(host.host->saveAll({.force = true}).written,
                ElementsAre("/p/Ledger/clsAccount.cls", "/p/Ledger/Ledger.vbp"));
    EXPECT_THAT(host.text("/p/Ledger/clsAccount.cls"), HasSubstr("' mine\n"));
  }
}

TEST(HostSaving, aFileWithOtherNamesIsWrittenOnlyWhenTheyMayPart) {
  for (const bool listens : {true, false}) {
    LedgerHost host;
    host.ledger();
    if (listens) host.record();
    host.code("clsAccount")->InsertLines(1, "' mine");
    host.files.setNameCount("/p/Ledger/clsAccount.cls", 3);
    EXPECT_EQ(
        text(host.host->saveAll({.force = true, .howToBreakLinks = "--x does"}).problems),
        "/p/Ledger/clsAccount.cls: the file has 2 other names (hard links), which would go on naming what it "
        "holds now; --x does\n");
    EXPECT_EQ(host.text("/p/Ledger/clsAccount.cls"), test::kAccountClass);
    EXPECT_EQ(raised([&] { host.host->saveAs(host.component("modMain"), "\\p\\Ledger\\clsAccount.cls"); }),
              "error 58");
    EXPECT_THAT(host.host->saveAll({.breakLinks = true}).written, ElementsAre("/p/Ledger/clsAccount.cls"));
  }
}

// Files go to the disk one by one when somebody listens, else several at a time.
TEST(HostSaving, readOnlyFilesAndFailingDisksLeaveEverythingAsItWas) {
  for (const bool listens : {true, false}) {
    LedgerHost host;
    const auto project = host.ledger();
    for (const char* name : {"modMain", "clsAccount", "frmMain"}) host.code(name)->InsertLines(1, "' mine");
    project->WriteProperty("", "Title", "New");
    host.files.setAttributes("/p/Ledger/Source/modMain.bas", 33);
    host.files.failReplacing("/p/Ledger/clsAccount.cls", 61);
    host.host->setReadOnly(project, true);
    if (listens) host.record();
    const SaveReport report = host.host->saveAll();
    EXPECT_THAT(report.written, ElementsAre("/p/Ledger/frmMain.frm"));
    EXPECT_EQ(text(report.problems), R"(/p/Ledger/Source/modMain.bas: is read-only
/p/Ledger/clsAccount.cls: Disk full
/p/Ledger/Ledger.vbp: is read-only
)");
    if (listens) {
      EXPECT_THAT(host.take(), HasSubstr("after write \\p\\Ledger\\clsAccount.cls 2\n"));
    }
    EXPECT_EQ(host.text("/p/Ledger/Source/modMain.bas"), test::kMainModule);
    EXPECT_EQ(host.text("/p/Ledger/clsAccount.cls"), test::kAccountClass);
    // The edits are still there, and can be saved when the way is free.
    EXPECT_TRUE(host.component("clsAccount")->IsDirty());
    host.files.failReplacing("/p/Ledger/clsAccount.cls", 0);
    EXPECT_EQ(host.host->save(host.component("clsAccount")), SaveResult::kWritten);
    EXPECT_THAT(host.text("/p/Ledger/clsAccount.cls"), HasSubstr("' mine\n"));
  }
}

// Holds two new contents beside the files, but no third.
class NearlyFullDisk final : public platform::MemoryFiles {
 public:
  std::unique_ptr<platform::ReplacementBatch> startBatch() override { return std::make_unique<Batch>(*this); }

 private:
  class Batch final : public platform::ReplacementBatch {
   public:
    explicit Batch(NearlyFullDisk& disk) : batch_(disk.MemoryFiles::startBatch()) {}
    void add(const std::string& path, std::string_view bytes) override {
      if (held_ == 2) throw base::Error(61);
      batch_->add(path, bytes);
      ++held_;
    }
    std::vector<Outcome> finish() override {
      held_ = 0;
      return batch_->finish();
    }

   private:
    std::unique_ptr<platform::ReplacementBatch> batch_;
    int held_ = 0;
  };
};

TEST(HostSaving, aDiskWithoutRoomForAllFilesAtOnceGetsThemOneAfterTheOther) {
  NearlyFullDisk files;
  platform::MemoryClipboard clipboard;
  std::string lines = "Type=Exe\r\n";
  std::vector<std::string> paths;
  for (int i = 0; i < 150; ++i) {
    const std::string name = "mod" + std::to_string(1000 + i);
    lines += "Module=" + name + "; " + name + ".bas\r\n";
    paths.push_back("/p/" + name + ".bas");
    files.replace(paths.back(), "Attribute VB_Name = \"" + name + "\"\r\n' old\r\n");
  }
  files.replace("/p/P.vbp", lines);
  const auto host = Workspace::create(files, clipboard, base::CodePage::get(base::CodePage::kDefault));
  const auto project = host->open("/p/P.vbp").front();
  for (const auto& component : project->VBComponents()->items())
    component->CodeModule()->ReplaceLine(1, "' new");
  const SaveReport report = host->saveProject(project);
  EXPECT_EQ(report.written, paths);
  EXPECT_TRUE(report.problems.empty());
  for (const std::string& path : paths)
    EXPECT_TRUE(files.read(path).content->bytes().ends_with("\r\n' new\r\n")) << path;
  EXPECT_FALSE(project->IsDirty());
  EXPECT_EQ(project->VBComponents()->Item(1)->CodeModule()->Lines(1, 9), "' new");
}

TEST(HostSaving, attributesOfAMemberThatWentComeBackWithItUntilTheFileIsSaved) {
  const std::string item = "Attribute Item.VB_UserMemId = 0\n";
  for (const bool saved : {false, true}) {
    LedgerHost host;
    host.put("/p/Ledger/clsAccount.cls",
             std::string(test::kAccountClass) + "Public Sub Item()\n" + item + "End Sub\n");
    host.ledger();
    const auto code = host.code("clsAccount");
    const int title = code->ProcStartLine("Item", frame::ProcKind::kProc);
    const int count = code->ProcCountLines("Item", frame::ProcKind::kProc);
    const std::string text = code->Lines(title, count);
    code->DeleteLines(title, count);
    if (saved) host.host->save(host.component("clsAccount"));
    code->InsertLines(title, text);
    host.host->save(host.component("clsAccount"));
    EXPECT_EQ(host.text("/p/Ledger/clsAccount.cls").find(item) == std::string::npos, saved);
  }
}

TEST(HostSaving, newComponentsGetTheirDefaultNamesBesideTheProject) {
  LedgerHost host;
  const auto project = host.ledger();
  const auto form = project->VBComponents()->Add(frame::ComponentType::kVBForm);
  const auto module = project->VBComponents()->Add(frame::ComponentType::kStdModule);
  form->setName("frmNew");
  EXPECT_EQ(paths(host.host->changedFiles()),
            "/p/Ledger/frmNew.frm (new)\n/p/Ledger/Module1.bas (new)\n/p/Ledger/Ledger.vbp\n");
  host.put("/p/Ledger/Module1.bas", "somebody's");
  SaveReport report = host.host->saveAll();
  EXPECT_THAT(report.written, ElementsAre("/p/Ledger/frmNew.frm"));
  EXPECT_EQ(text(report.problems), R"(Module1: /p/Ledger/Module1.bas: exists already
/p/Ledger/Ledger.vbp: not written, as a new component could not be
)");
  EXPECT_EQ(host.text("/p/Ledger/Module1.bas"), "somebody's");

  module->setName("modNew");
  report = host.host->saveAll();
  EXPECT_THAT(report.written, ElementsAre("/p/Ledger/modNew.bas", "/p/Ledger/Ledger.vbp"));
  EXPECT_EQ(module->FileNames(1), "\\p\\Ledger\\modNew.bas");
  EXPECT_EQ(host.text("/p/Ledger/modNew.bas"), "Attribute VB_Name = \"modNew\"\nOption Explicit\n\n");
  EXPECT_EQ(host.text("/p/Ledger/Ledger.vbp"),
            base::replaceAll(test::kLedgerProject, "RelatedDoc=readme.txt\n",
                             "RelatedDoc=readme.txt\nForm=frmNew.frm\nModule=modNew; modNew.bas\n"));
  EXPECT_FALSE(project->IsDirty());
}

TEST(HostSaving, aNewProjectIsSavedUnderAName) {
  Host host;
  const auto project = host.host->newProject();
  EXPECT_EQ(text(host.host->saveAll().problems), "Project1: has no file name yet\n");
  project->SaveAs("\\jobs\\App.vbp");
  EXPECT_EQ(project->FileName(), "\\jobs\\App.vbp");
  EXPECT_EQ(project->VBComponents()->Item(1)->FileNames(1), "\\jobs\\Form1.frm");
  EXPECT_THAT(host.text("/jobs/App.vbp"), HasSubstr("Type=Exe\nReference=*\\G{00020430-"));
  EXPECT_THAT(host.text("/jobs/App.vbp"), HasSubstr("#OLE Automation\nForm=Form1.frm\nStartup=\"Form1\"\n"));
  EXPECT_THAT(host.text("/jobs/Form1.frm"), HasSubstr("VERSION 5.00\nBegin VB.Form Form1 \n   Caption"));
  EXPECT_FALSE(project->IsDirty());

  // What was written opens as it was.
  Host again;
  for (const char* path : {"/jobs/App.vbp", "/jobs/Form1.frm"})
    again.files.replace(path, host.files.read(path).content->bytes());
  again.open("/jobs/App.vbp");
  EXPECT_EQ(again.problems(), "");
  EXPECT_EQ(again.tree(), "Project1: Form1(5)\n");
}

TEST(HostSaving, aFormTakesItsCompanionsWithIt) {
  LedgerHost host;
  const auto project = host.ledger();
  const auto form = host.component("frmMain");
  host.put("/p/Ledger/frmTaken.frx", "another form's");
  EXPECT_EQ(raised([&] { form->SaveAs("\\p\\Ledger\\frmTaken.frm"); }), "error 58");
  host.files.failReplacing("/p/Ledger/Forms/frmShell.frm", 70);
  EXPECT_EQ(raised([&] { form->SaveAs("\\p\\Ledger\\Forms\\frmShell.frm"); }), "error 70");
  EXPECT_FALSE(host.files.stamp("/p/Ledger/Forms/frmShell.frx"));
  EXPECT_EQ(test::shown(host.host->pendingBytes(form)), test::kMainForm);

  host.files.failReplacing("/p/Ledger/Forms/frmShell.frm", 0);
  form->SaveAs("\\p\\Ledger\\Forms\\frmShell.frm");
  EXPECT_EQ(form->FileNames(2), "\\p\\Ledger\\Forms\\frmShell.frx");
  EXPECT_EQ(host.files.read("/p/Ledger/Forms/frmShell.frx").content->bytes(), std::string("\1\0\2", 3));
  EXPECT_EQ(host.text("/p/Ledger/Forms/frmShell.frm"),
            base::replaceAll(test::kMainForm, "\"frmMain.frx\"", "\"frmShell.frx\""));
  EXPECT_EQ(host.text("/p/Ledger/frmMain.frm"), test::kMainForm);
  project->SaveAs(project->FileName());
  EXPECT_THAT(host.text("/p/Ledger/Ledger.vbp"), HasSubstr("\nForm=Forms\\frmShell.frm\n"));
}

TEST(HostSaving, aProjectSavedElsewhereStillFindsItsFiles) {
  LedgerHost host;
  const auto project = host.ledger();
  project->WriteProperty("", "HelpFile", "Help\\Ledger.chm");
  host.put("/q/Ledger.vbp", "taken");
  EXPECT_EQ(raised([&] { project->SaveAs("/q/Ledger.vbp"); }), "error 58");
  EXPECT_EQ(project->FileName(), "\\p\\Ledger\\Ledger.vbp");
  project->SaveAs("/p/Other/Books.vbp");
  std::string expected(test::kLedgerProject);
  for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
           {"modMain; Source\\modMain.bas", "modMain; ..\\Ledger\\Source\\modMain.bas"},
           {"Form=frmMain.frm", "Form=..\\Ledger\\frmMain.frm"},
           {"clsAccount; clsAccount.cls", "clsAccount; ..\\Ledger\\clsAccount.cls"},
           {"RelatedDoc=readme.txt", "RelatedDoc=..\\Ledger\\readme.txt"},
           {"HelpFile=\"\"", "HelpFile=\"..\\Ledger\\Help\\Ledger.chm\""}})
    expected = base::replaceAll(expected, from, to);
  EXPECT_EQ(host.text("/p/Other/Books.vbp"), expected);
  EXPECT_EQ(host.text("/p/Ledger/Ledger.vbp"), test::kLedgerProject);

  const auto tree = host.tree();
  host.host->closeProject(project);
  host.open("/p/Other/Books.vbp");
  EXPECT_EQ(host.problems(), "");
  EXPECT_EQ(host.tree(), tree);
}

TEST(HostSaving, oddLinesSurviveAMoveOfTheProject) {
  Host host;
  host.put("/p/a/a.vbp", R"(Type=Exe
Module="m; gone.bas"
Form=
Module=;
Reference=*\A..\Lib\Lib.vbp
Reference=*\G{g}#1.0#0#..\types\x.tlb#X
Reference=*\G{h}#1.0#0#stdole2.tlb#Y
ResFile32="C:\app.res"
)");
  host.open("/p/a/a.vbp")->SaveAs("/q/a.vbp");
  EXPECT_EQ(host.text("/q/a.vbp"), R"(Type=Exe
Module="m; ..\p\a\gone.bas"
Form=
Module=;
Reference=*\A..\p\Lib\Lib.vbp
Reference=*\G{g}#1.0#0#..\p\types\x.tlb#X
Reference=*\G{h}#1.0#0#stdole2.tlb#Y
ResFile32="C:\app.res"
)");
}

TEST(HostSaving, projectsThatShareAFileSeeWhatWasSaved) {
  Host host;
  host.put("/g/mod.bas", "Attribute VB_Name = \"modShared\"\n' old\n");
  for (const char* name : {"a", "b"})
    host.put("/g/" + std::string(name) + ".vbp",
             "Type=Exe\nModule=modShared; mod.bas\nName=\"" + std::string(name) + "\"\n");
  const auto a = host.open("/g/a.vbp")->VBComponents()->Item(1);
  const auto b = host.open("/g/b.vbp")->VBComponents()->Item(1);
  host.record();
  a->CodeModule()->ReplaceLine(1, "' new");
  host.host->save(a);
  EXPECT_THAT(host.take(), HasSubstr("reloaded modShared\n"));
  EXPECT_EQ(b->CodeModule()->Lines(1, 1), "' new");
  // Two sets of changes: the second one is not put over the first.
  a->CodeModule()->ReplaceLine(1, "' a");
  b->CodeModule()->ReplaceLine(1, "' b");
  host.host->save(a);
  EXPECT_EQ(raised([&] { host.host->save(b); }), "error 75");
}

}  // namespace
}  // namespace kolvane::workspace
