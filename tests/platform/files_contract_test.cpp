// One contract for every file system.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "adapters/system/posix_files.h"
#include "base/error.h"
#include "platform/files.h"
#include "platform/memory_files.h"

namespace kolvane::platform {
namespace {

namespace fs = std::filesystem;

struct Place {
  std::unique_ptr<Files> files;
  std::string root;
};

Place memoryPlace() { return {makeMemoryFiles(), "/project"}; }

Place diskPlace() {
  std::string root = (fs::temp_directory_path() / "kolvane-files-XXXXXX").string();
  if (::mkdtemp(root.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return {adapters::makePosixFiles(), root};
}

struct Kind {
  const char* name;
  Place (*make)();
};

class FilesContract : public testing::TestWithParam<Kind> {
 protected:
  FilesContract() : place_(GetParam().make()) {}
  ~FilesContract() override {
    std::error_code ignored;
    if (place_.root != "/project") fs::remove_all(place_.root, ignored);
  }
  std::string path(const std::string& name) const { return place_.root + "/" + name; }
  Files& files() { return *place_.files; }
  void makeFolder(const std::string& name) {
    if (auto* memory = dynamic_cast<MemoryFiles*>(place_.files.get()))
      memory->addFolder(path(name));
    else
      fs::create_directory(path(name));
  }

  void giveOtherName(const std::string& name, const std::string& other) {
    if (auto* memory = dynamic_cast<MemoryFiles*>(place_.files.get()))
      memory->setNameCount(path(name), 2);
    else
      fs::create_hard_link(path(name), path(other));
  }

  static long numberOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0;
  }

 private:
  Place place_;
};

TEST_P(FilesContract, whatWasPutIsRead) {
  const std::string bytes("a\r\n\0b", 5);
  const FileStamp stamp = files().replace(path("a.bas"), bytes);
  const ReadFile read = files().read(path("a.bas"));
  EXPECT_EQ(read.content->bytes(), bytes);
  EXPECT_EQ(read.stamp, stamp);
  EXPECT_EQ(files().stamp(path("a.bas")), stamp);
  EXPECT_EQ(stamp.size, 5u);
}

TEST_P(FilesContract, bytesThatWereReadStayWhenTheFileChanges) {
  files().replace(path("a.bas"), "old");
  const ReadFile read = files().read(path("a.bas"));
  const FileStamp next = files().replace(path("a.bas"), "new");
  EXPECT_EQ(read.content->bytes(), "old");
  EXPECT_NE(read.stamp, next);
}

TEST_P(FilesContract, missingFilesAndLimits) {
  EXPECT_EQ(numberOf([&] { files().read(path("none")); }), base::errors::kFileNotFound);
  EXPECT_EQ(numberOf([&] { files().attributes(path("none")); }), base::errors::kFileNotFound);
  EXPECT_EQ(numberOf([&] { files().remove(path("none")); }), base::errors::kFileNotFound);
  EXPECT_EQ(files().stamp(path("none")), std::nullopt);
  files().replace(path("big"), "12345");
  EXPECT_EQ(numberOf([&] { files().read(path("big"), 4); }), base::errors::kDeviceIo);
}

TEST_P(FilesContract, attributesFollowTheWritePermission) {
  files().replace(path("a.bas"), "x");
  EXPECT_EQ(files().attributes(path("a.bas")), 32);
  files().setAttributes(path("a.bas"), 33);
  EXPECT_EQ(files().attributes(path("a.bas")), 33);
  files().setAttributes(path("a.bas"), 32);
  EXPECT_EQ(files().attributes(path("a.bas")), 32);
  files().replace(path(".hidden"), "x");
  EXPECT_EQ(files().attributes(path(".hidden")), 34);
}

TEST_P(FilesContract, foldersAreListedInOrder) {
  files().replace(path("b.bas"), "");
  files().replace(path("A.bas"), "");
  const auto entries = files().list(path(""));
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].name, "A.bas");
  EXPECT_FALSE(entries[0].isDirectory);
  files().remove(path("A.bas"));
  EXPECT_EQ(files().list(path("")).size(), 1u);
}

TEST_P(FilesContract, aBatchReplacesEachOfItsFilesOrSaysWhyNot) {
  files().replace(path("old.bas"), "old");
  makeFolder("folder");
  const auto batch = files().startBatch();
  std::vector<std::string> wanted;
  for (int i = 0; i < 20; ++i) {
    wanted.push_back(path("new" + std::to_string(i) + ".bas"));
    batch->add(wanted.back(), "content " + std::to_string(i));
  }
  batch->add(path("old.bas"), "new");
  EXPECT_EQ(files().read(path("old.bas")).content->bytes(), "old");
  // A folder in the place of a file is told at once or at the end; the others are written all the same.
  const long refused = numberOf([&] { batch->add(path("folder"), "x"); });
  auto outcomes = batch->finish();
  if (refused == 0) {
    ASSERT_EQ(outcomes.size(), 22u);
    EXPECT_EQ(std::get<base::Error>(outcomes.back()).number(), base::errors::kPathAccess);
  } else {
    EXPECT_EQ(refused, base::errors::kPathAccess);
    ASSERT_EQ(outcomes.size(), 21u);
  }
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    EXPECT_EQ(files().read(wanted[i]).content->bytes(), "content " + std::to_string(i));
    EXPECT_EQ(std::get<FileStamp>(outcomes[i]), files().stamp(wanted[i]));
  }
  EXPECT_EQ(files().read(path("old.bas")).content->bytes(), "new");
  EXPECT_TRUE(batch->finish().empty());
}

TEST_P(FilesContract, aBatchThatIsNotFinishedLeavesNoTrace) {
  files().replace(path("a.bas"), "old");
  {
    const auto batch = files().startBatch();
    batch->add(path("a.bas"), "new");
    batch->add(path("b.bas"), "new");
  }
  EXPECT_EQ(files().read(path("a.bas")).content->bytes(), "old");
  EXPECT_EQ(files().list(path("")).size(), 1u);
}

TEST_P(FilesContract, aFileThatIsReplacedHasOneName) {
  EXPECT_EQ(files().nameCount(path("a.bas")), std::nullopt);
  files().replace(path("a.bas"), "old");
  EXPECT_EQ(files().nameCount(path("a.bas")), 1u);
  giveOtherName("a.bas", "b.bas");
  EXPECT_EQ(files().nameCount(path("a.bas")), 2u);
  files().replace(path("a.bas"), "new");
  EXPECT_EQ(files().nameCount(path("a.bas")), 1u);
}

TEST_P(FilesContract, aMoveTakesNoOtherFilesPlace) {
  files().replace(path("a.bas"), "a");
  files().replace(path("b.bas"), "b");
  EXPECT_EQ(numberOf([&] { files().move(path("a.bas"), path("b.bas")); }), kFileExists);
  EXPECT_EQ(numberOf([&] { files().move(path("none"), path("c.bas")); }), base::errors::kFileNotFound);
  files().move(path("a.bas"), path("c.bas"));
  EXPECT_EQ(files().read(path("c.bas")).content->bytes(), "a");
  EXPECT_EQ(files().stamp(path("a.bas")), std::nullopt);
}

TEST_P(FilesContract, absolutePathsAreTidied) { EXPECT_EQ(files().absolute("/a/./b/../c.bas"), "/a/c.bas"); }

INSTANTIATE_TEST_SUITE_P(Platform, FilesContract,
                         testing::Values(Kind{"memory", memoryPlace}, Kind{"disk", diskPlace}),
                         [](const auto& kind) { return std::string(kind.param.name); });

class DiskFiles : public testing::Test {
 protected:
  ~DiskFiles() override { fs::remove_all(place_.root); }
  std::string path(const std::string& name) const { return place_.root + "/" + name; }
  Place place_ = diskPlace();
};

TEST_F(DiskFiles, permissionsSurviveAndLinksAreFollowed) {
  std::ofstream(path("real.bas")) << "old";
  ::chmod(path("real.bas").c_str(), 0640);
  fs::create_symlink("real.bas", path("link.bas"));
  place_.files->replace(path("link.bas"), "new");
  EXPECT_TRUE(fs::is_symlink(path("link.bas")));
  EXPECT_EQ(place_.files->read(path("real.bas")).content->bytes(), "new");
  struct stat state {};
  ::stat(path("real.bas").c_str(), &state);
  EXPECT_EQ(state.st_mode & 0777, 0640u);
}

TEST_F(DiskFiles, aLinkToNothingIsNotReplaced) {
  fs::create_symlink("gone.bas", path("link.bas"));
  EXPECT_THROW(place_.files->replace(path("link.bas"), "new"), base::Error);
  EXPECT_TRUE(fs::is_symlink(path("link.bas")));
  EXPECT_FALSE(fs::exists(path("gone.bas")));
}

TEST_F(DiskFiles, aFileThatIsDeletedInTheMiddleIsNotMadeAgain) {
  place_.files->replace(path("a.bas"), "old");
  const auto batch = place_.files->startBatch();
  batch->add(path("a.bas"), "new");
  fs::remove(path("a.bas"));
  EXPECT_EQ(std::get<base::Error>(batch->finish().front()).number(), base::errors::kFileNotFound);
  EXPECT_TRUE(fs::is_empty(path("")));
}

// Of hidden files those go that a killed run has left; those that a living run holds, and those of others, stay.
TEST_F(DiskFiles, whatAKilledRunLeftIsRemovedByTheNextOne) {
  place_.files->replace(path("a.bas"), "old");
  const pid_t child = ::fork();
  if (child == 0) {
    const auto files = adapters::makePosixFiles();
    const auto batch = files->startBatch();
    batch->add(path("a.bas"), "killed");
    ::raise(SIGKILL);
  }
  ::waitpid(child, nullptr, 0);
  ASSERT_EQ(place_.files->list(path("")).size(), 2u);
  const auto living = adapters::makePosixFiles();
  const auto held = living->startBatch();  // removes what was left, and leaves one of its own
  held->add(path("b.bas"), "living");
  ASSERT_EQ(place_.files->list(path("")).size(), 2u);
  for (const char* foreign :
       {".a.bas.Ab12Cd", ".a.bas.kolvane-Ab12C", ".kolvane-Ab12Cd", "a.bas.kolvane-Ab12Cd"})
    std::ofstream(path(foreign)) << "not ours";
  fs::create_directory(path(".x.kolvane-Ab12Cd"));
  adapters::makePosixFiles()->replace(path("a.bas"), "next");
  EXPECT_EQ(place_.files->list(path("")).size(), 7u);
  EXPECT_TRUE(std::holds_alternative<FileStamp>(held->finish().front()));
  EXPECT_EQ(place_.files->read(path("b.bas")).content->bytes(), "living");
}

TEST_F(DiskFiles, aNameAsLongAsNamesMayBeIsWritten) {
  const std::string name(255, 'n');
  place_.files->replace(path(name), "new");
  EXPECT_EQ(place_.files->read(path(name)).content->bytes(), "new");
}

TEST_F(DiskFiles, onlyRegularFilesAreRead) {
  ::mkfifo(path("pipe").c_str(), 0600);
  for (const auto& special : {path("pipe"), path(""), std::string("/dev/zero")}) {
    try {
      place_.files->read(special);
      FAIL() << special;
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), base::errors::kPathAccess) << special;
    }
  }
}

TEST_F(DiskFiles, aFailedWriteLeavesTheOldFileAndNothingBeside) {
  place_.files->replace(path("a.bas"), "old");
  // A file that may grow to 4 KB only: the write fails half-way.
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, SIG_IGN);
    try {
      place_.files->replace(path("a.bas"), std::string(100000, 'x'));
    } catch (const base::Error&) {
      ::_exit(7);
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 7);
  EXPECT_EQ(place_.files->read(path("a.bas")).content->bytes(), "old");
  EXPECT_EQ(place_.files->list(path("")).size(), 1u);
}

}  // namespace
}  // namespace kolvane::platform
