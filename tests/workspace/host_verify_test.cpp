// The proof that nothing is lost, over files in memory and on a disk; and the paths of both worlds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "adapters/system/posix_files.h"
#include "workspace/host_support.h"
#include "workspace/verify.h"

namespace kolvane::workspace {
namespace {

using test::file;
using test::Host;
using test::LedgerHost;

std::string summary(const VerifyReport& report) {
  std::string text = std::to_string(report.groups) + " groups, " + std::to_string(report.projects) +
                     " projects, " + std::to_string(report.files) + " files, " +
                     std::to_string(report.lines) + " lines, " + std::to_string(report.differingBytes) +
                     " bytes differ\n";
  for (const Problem& problem : report.problems) text += problem.text() + "\n";
  return text;
}

const platform::CodePages kCodePages;
const VerifyPages kPages{kCodePages, {}};

TEST(HostVerify, everyFileOfEveryProjectIsProvedOnce) {
  LedgerHost host;
  host.put("/p/Ledger/all.vbg",
           "VBGROUP 5.0\nStartupProject=Ledger.vbp\nProject=..\\Tools\\Tools.vbp\nProject=all.vbg\n");
  host.put("/p/Tools/Tools.vbp",
           "Type=Exe\nModule=m; ..\\LEDGER\\source\\MODMAIN.bas\nForm=gone.frm\nForm=odd.frm\n");
  host.files.replace("/p/Tools/odd.frm",
                     "VERSION 5.00\nBegin VB.Form a \n   Begin VB.Label b \n   Tag=1\nEnd\nno end");
  host.put("/p/Ledger/notListed.bas", "x");
  EXPECT_EQ(summary(verify(host.files, kPages, {"/p"})),
            "1 groups, 2 projects, 4 files, 71 lines, 0 bytes differ\n"
            "/p/Tools/Tools.vbp(3): file not found: gone.frm\n"
            "/p/Tools/odd.frm(2): the file ends before the End of \"Begin VB.Form a\"\n"
            "/p/Ledger/all.vbg(4): is no project: /p/Ledger/all.vbg\n");
  EXPECT_EQ(summary(verify(host.files, kPages, {"/p/Ledger/notListed.bas", "/nowhere"})),
            "0 groups, 0 projects, 1 files, 1 lines, 0 bytes differ\n/nowhere: No such file or directory\n");
}

TEST(HostVerify, loopsOfLinksEnd) {
  const auto folder = std::filesystem::path(testing::TempDir()) / "kolvane_verify";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder / "a");
  std::filesystem::create_directory_symlink(folder, folder / "a" / "up");
  const auto files = adapters::makePosixFiles();
  files->replace((folder / "a" / "p.vbp").string(), file("Type=Exe\nModule=m; M.BAS\nModule=n; .\n"));
  files->replace((folder / "a" / "m.bas").string(), file("Option Explicit\n"));
  std::filesystem::create_symlink(folder / "a" / "p.vbp", folder / "again.vbp");
  EXPECT_EQ(summary(verify(*files, kPages, {folder.string()})),
            "0 groups, 1 projects, 1 files, 1 lines, 0 bytes differ\n" + (folder / "a" / "p.vbp").string() +
                "(3): is a folder, not a file: .\n");
  std::filesystem::remove_all(folder);
}

TEST(HostPaths, bothFormsLeadToTheSameFile) {
  Host host;
  Paths paths(host.files, base::CodePage::get(base::CodePage::kDefault));
  host.put("/home/ann/Büro/Größe.bas", "x");  // as the system spells it, in UTF-8
  host.put("/home/ann/b\\c/d.bas", "x");
  const std::string office = paths.toHost("/home/ann/Büro/Größe.bas");
  EXPECT_EQ(office,
            "\\home\\ann\\B\xFCro\\Gr\xF6\xDF"
            "e.bas");
  EXPECT_EQ(paths.toSystem(office), "/home/ann/Büro/Größe.bas");
  EXPECT_EQ(paths.toSystem("\\HOME\\ANN\\B\xDCRO\\gr\xF6\xDF"
                           "e.BAS"),
            "/home/ann/Büro/Größe.bas");
  EXPECT_EQ(paths.toSystem("\\home\\ann\\b\xFCro\\neu.bas"), "/home/ann/Büro/neu.bas");
  EXPECT_EQ(paths.toSystem("/home/ann/Büro\\Größe.bas"), "/home/ann/Büro/Größe.bas");
  // Paths that the host could not tell apart lead back to where they came from.
  for (const char* odd : {"/home/ann/b\\c/d.bas", "/home/\xE4\xB8\xAD/x.bas", "/home/\xFF/x.bas"})
    EXPECT_EQ(paths.toSystem(paths.toHost(odd)), odd) << odd;
  EXPECT_EQ(paths.toSystem(std::string(folderOf(paths.toHost("/home/ann/b\\c/d.bas"))) + "\\new.bas"),
            "/home/ann/b\\c/new.bas");
  EXPECT_EQ(paths.relative("/a/b/c", "/a/x/y.bas"), "..\\..\\x\\y.bas");
  EXPECT_EQ(paths.relative("/a", "/a/y.bas"), "y.bas");
}

}  // namespace
}  // namespace kolvane::workspace
