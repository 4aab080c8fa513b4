// The settings file among processes, kills and damage.
#include "adapters/sqlite/sqlite_tree_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include "adapters/sqlite/sqlite_connection.h"
#include "base/error.h"
#include "platform/temporary_folder.h"

namespace kolvane::adapters {
namespace {

namespace fs = std::filesystem;
using platform::StoredValue;
using platform::ValueType;
using test::TemporaryFolder;
using testing::HasSubstr;

void put(SqliteTreeStore& store, const std::string& path, const std::string& name, const std::string& text) {
  store.write(path, {name, ValueType::kString, text});
}
std::string get(SqliteTreeStore& store, const std::string& path, const std::string& name) {
  const auto found = store.read(path, name);
  return found ? found->text : "(none)";
}
std::string bytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}
std::set<std::string> filesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
  return names;
}

// Another process; `work` tells by its result whether all went well. It does not outlive the object.
class Child {
 public:
  explicit Child(const std::function<bool()>& work) : process_(fork()) {
    if (process_ != 0) return;
    bool good = false;
    try {
      good = work();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(good ? 0 : 1);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() { kill(); }

  bool endsWell() {
    int status = 0;
    const bool waited = waitpid(std::exchange(process_, 0), &status, 0) > 0;
    return waited && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  void kill() {
    if (process_ == 0) return;
    ::kill(process_, SIGKILL);
    endsWell();
  }

 private:
  pid_t process_;
};

// In a process whose write permissions count, also when the tests run as root.
bool asPlainUser(const std::function<bool()>& work) {
  Child child([&] {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return false;
    return work();
  });
  return child.endsWell();
}
void giveToPlainUser(const std::string& path) {
  if (geteuid() == 0 && chown(path.c_str(), 65534, 65534) != 0) FAIL() << "chown";
}

base::Error errorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const base::Error& error) {
    return error;
  }
  return base::Error(0, "no error");
}
base::Error errorOfOpening(const std::string& path) {
  return errorOf([&] { SqliteTreeStore store(path); });
}

TEST(SqliteTreeStore, RemembersAndLeavesOnlyItsFile) {
  TemporaryFolder folder;
  const std::string path = folder.path("my settings 100%?#.db");
  {
    SqliteTreeStore store(path);
    put(store, "A\\B", "v", "text");
  }
  EXPECT_EQ(filesIn(folder.path()).size(), 1u);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  SqliteTreeStore store(path);
  EXPECT_EQ(get(store, "a\\b", "V"), "text");
}

TEST(SqliteTreeStore, TwoProcessesWriteAtOnce) {
  constexpr int kRounds = 200;
  TemporaryFolder folder;
  const std::string path = folder.path("settings.db");
  // Each adds one to a shared count, in one transaction a time, and leaves a value of its own.
  const auto writer = [&path](const std::string& name) {
    return [&path, name] {
      SqliteTreeStore store(path);
      for (int i = 0; i < kRounds; ++i) {
        store.update([&] {
          const auto count = store.read("Shared", "count");
          put(store, "Shared", "count", std::to_string(count ? std::stoi(count->text) + 1 : 1));
        });
        put(store, "Own\\" + name, std::to_string(i), name);
      }
      return true;
    };
  };
  Child first(writer("first"));
  Child second(writer("second"));
  EXPECT_TRUE(first.endsWell());
  EXPECT_TRUE(second.endsWell());
  SqliteTreeStore store(path);
  EXPECT_EQ(get(store, "Shared", "count"), std::to_string(2 * kRounds));
  for (const char* name : {"first", "second"})
    EXPECT_EQ(store.values(std::string("Own\\") + name).size(), static_cast<std::size_t>(kRounds));
}

TEST(SqliteTreeStore, OneProcessSeesAtOnceWhatAnotherHasWritten) {
  TemporaryFolder folder;
  const std::string path = folder.path("settings.db");
  SqliteTreeStore store(path);
  put(store, "S", "v", "0");
  int orders[2], answers[2];
  ASSERT_EQ(pipe(orders), 0);
  ASSERT_EQ(pipe(answers), 0);
  // Adds one to the value at each order.
  Child child([&] {
    SqliteTreeStore other(path);
    char byte = 0;
    while (read(orders[0], &byte, 1) == 1 && byte == '+') {
      put(other, "S", "v", std::to_string(std::stoi(get(other, "S", "v")) + 1));
      if (write(answers[1], "x", 1) != 1) return false;
    }
    return true;
  });
  for (int i = 1; i < 2000; i += 2) {
    ASSERT_EQ(get(store, "S", "v"), std::to_string(i - 1));
    ASSERT_EQ(write(orders[1], "+", 1), 1);
    char byte = 0;
    ASSERT_EQ(read(answers[0], &byte, 1), 1);
    ASSERT_EQ(get(store, "S", "v"), std::to_string(i));
    ASSERT_EQ(store.values("S").at(0).text, std::to_string(i));
    put(store, "S", "v", std::to_string(i + 1));
  }
  ASSERT_EQ(write(orders[1], ".", 1), 1);
  EXPECT_TRUE(child.endsWell());
}

TEST(SqliteTreeStore, AKillInTheMiddleOfAnUpdateLeavesTheOldState) {
  TemporaryFolder folder;
  const std::string path = folder.path("settings.db");
  {
    SqliteTreeStore store(path);
    put(store, "S", "v", "old");
  }
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  Child child([&] {
    SqliteTreeStore store(path);
    store.update([&] {
      put(store, "S", "v", "new");
      // More than the page cache holds, so that the file itself has uncommitted pages.
      for (int i = 0; i < 5000; ++i) put(store, "Big", std::to_string(i), std::string(2000, 'x'));
      static_cast<void>(!write(ready[1], "x", 1));
      for (;;) pause();
    });
    return true;
  });
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  SqliteTreeStore store(path);
  EXPECT_EQ(get(store, "S", "v"), "old");
  child.kill();
  EXPECT_EQ(get(store, "S", "v"), "old");
  EXPECT_FALSE(store.keyExists("Big"));
  put(store, "S", "v", "newer");
  EXPECT_EQ(get(store, "S", "v"), "newer");
}

TEST(SqliteTreeStore, AKillAtAnyMomentLeavesWholeUpdates) {
  constexpr int kValues = 40;
  TemporaryFolder folder;
  for (int round = 0; round < 25; ++round) {
    const std::string path = folder.path("settings.db");
    Child child([&] {
      SqliteTreeStore store(path);
      for (int count = 0;; ++count)
        store.update([&] {
          for (int i = 0; i < kValues; ++i) put(store, "S", std::to_string(i), std::to_string(count));
        });
      return true;
    });
    std::this_thread::sleep_for(std::chrono::microseconds(300 * round));
    child.kill();
    SqliteTreeStore store(path);
    std::set<std::string> texts;
    const auto values = store.values("S");
    for (const StoredValue& value : values) texts.insert(value.text);
    EXPECT_TRUE(values.empty() || (values.size() == kValues && texts.size() == 1))
        << values.size() << " values, " << texts.size() << " texts after kill " << round;
    // Every third round begins with no file at all, so that its making is killed too.
    if (round % 3 == 0)
      for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(path + suffix);
  }
}

TEST(SqliteTreeStore, ManyProcessesMakeTheFileAtOnce) {
  for (int round = 0; round < 5; ++round) {
    TemporaryFolder folder;
    std::vector<std::unique_ptr<Child>> children;
    for (int i = 0; i < 6; ++i)
      children.push_back(std::make_unique<Child>([&, i] {
        SqliteTreeStore store(folder.path("settings.db"));
        put(store, "S", std::to_string(i), "here");
        return true;
      }));
    for (const auto& child : children) EXPECT_TRUE(child->endsWell());
    SqliteTreeStore store(folder.path("settings.db"));
    EXPECT_EQ(store.values("S").size(), 6u);
  }
}

TEST(SqliteTreeStore, AnotherProgramsFileIsReportedAndLeftAlone) {
  TemporaryFolder folder;
  const std::string path = folder.path("settings.db");
  for (const std::string& bytes : {std::string("[Settings]\nkey=value\n"), std::string(5000, '\0'),
                                   std::string("SQLite format 3\0", 16) + std::string(84, '\1')}) {
    writeBytes(path, bytes);
    const base::Error error = errorOfOpening(path);
    EXPECT_EQ(error.number(), base::errors::kInvalidFormat);
    EXPECT_THAT(error.description(), HasSubstr(path));
    EXPECT_EQ(bytesOf(path), bytes);
    EXPECT_EQ(filesIn(folder.path()).size(), 1u);
  }

  fs::remove(path);
  { SqliteConnection other(path, {1234, 1, "CREATE TABLE key (id INTEGER PRIMARY KEY)"}); }
  const std::string bytes = bytesOf(path);
  const base::Error error = errorOfOpening(path);
  EXPECT_EQ(error.number(), base::errors::kInvalidFormat);
  EXPECT_THAT(error.description(), HasSubstr("another program"));
  EXPECT_TRUE(bytesOf(path) == bytes);
  EXPECT_EQ(filesIn(folder.path()).size(), 1u);
}

// A settings file of some pages, closed.
std::string filledFile(const TemporaryFolder& folder) {
  const std::string path = folder.path("settings.db");
  SqliteTreeStore store(path);
  store.update([&] {
    for (int i = 0; i < 400; ++i) put(store, "S", std::to_string(i), std::string(200, 'x'));
  });
  return path;
}

TEST(SqliteTreeStore, ADamagedFileIsReportedAndLeftAlone) {
  TemporaryFolder folder;
  const std::string path = filledFile(folder);
  const std::string whole = bytesOf(path);
  const std::string noise(4000, '\xA5');
  const auto damaged = [&](std::size_t at) {
    std::string bytes = whole;
    return bytes.replace(at, std::min(noise.size(), bytes.size() - at), noise.substr(0, bytes.size() - at));
  };
  const std::vector<std::string> cases{
      whole.substr(0, whole.size() / 2), whole.substr(0, 60), damaged(100), damaged(0), damaged(16),
      // The last bytes of user_version, as in a file that was never finished.
      std::string(whole).replace(60, 4, std::string(4, '\0'))};
  for (std::size_t i = 0; i < cases.size(); ++i) {
    writeBytes(path, cases[i]);
    const base::Error error = errorOfOpening(path);
    EXPECT_EQ(error.number(), base::errors::kInvalidFormat) << "case " << i;
    EXPECT_THAT(error.description(), HasSubstr(path));
    EXPECT_TRUE(bytesOf(path) == cases[i]) << "case " << i;
  }

  // Damage to the values alone is found as well before anybody works with the rest.
  const std::string values = [&] {
    std::string bytes = whole;
    for (std::size_t page = 4096 * 5; page < bytes.size(); page += 4096) bytes.replace(page, 4000, noise);
    return bytes;
  }();
  writeBytes(path, values);
  EXPECT_THROW(SqliteTreeStore store(path), platform::StoreDamaged);
  EXPECT_TRUE(bytesOf(path) == values);
}

TEST(SqliteTreeStore, ANewerFormatIsReportedAndLeftAlone) {
  TemporaryFolder folder;
  const std::string path = filledFile(folder);
  std::string bytes = bytesOf(path);
  bytes[63] = 2;  // the last byte of user_version
  writeBytes(path, bytes);
  const base::Error error = errorOfOpening(path);
  EXPECT_EQ(error.number(), base::errors::kInvalidFormat);
  EXPECT_THAT(error.description(), HasSubstr("newer version of the program"));
  EXPECT_TRUE(bytesOf(path) == bytes);
  EXPECT_EQ(filesIn(folder.path()).size(), 1u);
}

TEST(SqliteTreeStore, WhatCannotBeOpenedIsNamed) {
  TemporaryFolder folder;
  EXPECT_EQ(errorOfOpening(folder.path("no such folder/settings.db")).number(), base::errors::kPathNotFound);
  EXPECT_EQ(errorOfOpening(folder.path()).number(), base::errors::kPathAccess);
  EXPECT_EQ(errorOfOpening("/dev/null").number(), base::errors::kPathAccess);
  EXPECT_EQ(errorOfOpening("").number(), base::errors::kPathNotFound);
}

// Reads work, what changes something raises 70, what changes nothing is no fault.
bool readsOnly(const std::string& path) {
  SqliteTreeStore store(path);
  const auto refused = [&](const std::function<void()>& work) {
    const base::Error error = errorOf(work);
    return error.number() == base::errors::kPermissionDenied &&
           error.description().find(path) != std::string::npos;
  };
  return store.readOnly() && get(store, "S", "7") == std::string(200, 'x') &&
         store.values("S").size() == 400 && refused([&] { put(store, "S", "7", "new"); }) &&
         refused([&] { store.removeKey("S"); }) && refused([&] {
           store.update([&] {
             put(store, "S", "8", std::string(200, 'x'));
             put(store, "S", "9", "new");
           });
         }) &&
         errorOf([&] { store.update([&] { put(store, "S", "7", std::string(200, 'x')); }); }).number() == 0 &&
         store.values("S").size() == 400;
}

TEST(SqliteTreeStore, AReadOnlyFileIsRead) {
  TemporaryFolder folder;
  const std::string path = filledFile(folder);
  fs::permissions(folder.path(), fs::perms::all);
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  giveToPlainUser(path);
  const std::string bytes = bytesOf(path);
  EXPECT_TRUE(asPlainUser([&] { return readsOnly(path); }));
  EXPECT_TRUE(asPlainUser([&] { return readsOnly(path); }));
  EXPECT_TRUE(bytesOf(path) == bytes);
  // Writable again, it takes values again, whatever the readers left beside it.
  EXPECT_TRUE(asPlainUser([&] {
    chmod(path.c_str(), 0644);
    SqliteTreeStore store(path);
    put(store, "S", "7", "new");
    return get(store, "S", "7") == "new";
  }));
}

TEST(SqliteTreeStore, AFileInAReadOnlyFolderIsRead) {
  TemporaryFolder folder;
  const std::string path = filledFile(folder);
  for (const mode_t mode : {0644u, 0444u}) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    giveToPlainUser(path);
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    EXPECT_TRUE(asPlainUser([&] { return readsOnly(path); })) << std::oct << mode;
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  }
  fs::remove(path);
  ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
  EXPECT_TRUE(asPlainUser([&] { return errorOfOpening(path).number() == base::errors::kPermissionDenied; }));
}

}  // namespace
}  // namespace kolvane::adapters
