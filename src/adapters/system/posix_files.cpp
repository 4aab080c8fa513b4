#include "adapters/system/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <utility>

#include "base/error.h"

namespace kolvane::adapters {
namespace {

namespace errors = base::errors;
using platform::FileStamp;

long numberOf(int systemError) {
  switch (systemError) {
    case ENOENT:
      return errors::kFileNotFound;
    case ENOTDIR:
      return errors::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return errors::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
      return errors::kDiskFull;
    default:
      return errors::kDeviceIo;
  }
}

[[noreturn]] void fail(const std::string& path, int systemError) {
  throw base::Error(numberOf(systemError), path + ": " + std::strerror(systemError));
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int get() const { return number_; }

 private:
  int number_;
};

FileStamp stampOf(const struct stat& state) {
  return {static_cast<std::uint64_t>(state.st_dev), static_cast<std::uint64_t>(state.st_ino),
          static_cast<std::uint64_t>(state.st_size),
          static_cast<std::int64_t>(state.st_mtim.tv_sec) * 1'000'000'000 + state.st_mtim.tv_nsec};
}

// Left as the read fills it: a string would be set to zero first.
class HeapBytes final : public platform::FileBytes {
 public:
  explicit HeapBytes(std::size_t capacity)
      : data_(static_cast<char*>(std::malloc(std::max<std::size_t>(capacity, 1)))) {
    if (data_ == nullptr) throw std::bad_alloc();
  }
  HeapBytes(const HeapBytes&) = delete;
  HeapBytes& operator=(const HeapBytes&) = delete;
  ~HeapBytes() override { std::free(data_); }
  std::string_view bytes() const override { return {data_, size_}; }

  char* data_;
  std::size_t size_ = 0;
};

// Reads up to the size that the file had when it was opened; one that shrinks meanwhile gives less.
std::shared_ptr<const platform::FileBytes> readAll(int descriptor, std::size_t size,
                                                   const std::string& path) {
  auto content = std::make_shared<HeapBytes>(size);
  while (content->size_ < size) {
    const ssize_t got = ::read(descriptor, content->data_ + content->size_, size - content->size_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) fail(path, errno);
    if (got == 0) break;
    content->size_ += static_cast<std::size_t>(got);
  }
  return content;
}

void writeAll(int descriptor, std::string_view bytes, const std::string& path) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(descriptor, bytes.data(), bytes.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) fail(path, errno);
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
}

// The file that a path leads to, and its state when it is there. A link to nothing has no file that could be written.
struct Target {
  std::string path;
  std::optional<struct stat> state;
};

Target followed(const std::string& path) {
  struct stat state {};
  if (::lstat(path.c_str(), &state) != 0) return {path, std::nullopt};
  if (!S_ISLNK(state.st_mode)) return {path, state};
  std::array<char, PATH_MAX> resolved{};
  if (::realpath(path.c_str(), resolved.data()) == nullptr || ::stat(resolved.data(), &state) != 0)
    throw base::Error(numberOf(errno),
                      path + ": the file that this symbolic link leads to: " + std::strerror(errno));
  return {resolved.data(), state};
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// ---- hidden files
//
// ".Main.bas.kolvane-Ab12Cd" is a content of "Main.bas" that is not in its place yet. Its maker holds a lock on it for
// as long as it lives, so that one without a lock was left by a run that was killed.

constexpr std::string_view kTemporaryMark = ".kolvane-";
constexpr std::string_view kTemporaryRandom = "XXXXXX";  // that mkstemp replaces by letters and digits
constexpr std::size_t kLongestName = NAME_MAX - 1 - kTemporaryMark.size() - kTemporaryRandom.size();

bool isTemporaryName(std::string_view name) {
  const std::size_t tail = kTemporaryMark.size() + kTemporaryRandom.size();
  if (name.size() <= tail + 1 || name.front() != '.') return false;
  name.remove_prefix(name.size() - tail);
  return name.starts_with(kTemporaryMark) &&
         std::all_of(name.end() - kTemporaryRandom.size(), name.end(),
                     [](unsigned char c) { return std::isalnum(c) != 0; });
}

bool lock(int descriptor, int operation) {
  int result = 0;
  do result = ::flock(descriptor, operation);
  while (result != 0 && errno == EINTR);
  return result == 0;
}

// Removes a hidden file that nobody holds. Its maker, should it have come between the two, sees that it has gone.
void removeIfLeft(const std::string& path) {
  const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat opened {
  }, named{};
  if (descriptor.get() < 0 || ::fstat(descriptor.get(), &opened) != 0 || !S_ISREG(opened.st_mode)) return;
  if (!lock(descriptor.get(), LOCK_EX | LOCK_NB)) return;
  // Meanwhile it may have gone to its place, and another may have come by its name.
  if (::lstat(path.c_str(), &named) == 0 && named.st_ino == opened.st_ino && named.st_dev == opened.st_dev)
    ::unlink(path.c_str());
}

void removeLeftFiles(const std::string& folder) {
  std::error_code code;
  std::vector<std::string> left;
  for (std::filesystem::directory_iterator each(folder, code), end; !code && each != end;
       each.increment(code))
    if (isTemporaryName(each->path().filename().native())) left.push_back(each->path().native());
  for (const std::string& path : left) removeIfLeft(path);
}

// A new hidden file beside a target, locked, and gone again unless it was kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : pattern_(folderOf(target) + "/." + nameOf(target).substr(0, kLongestName) +
                 std::string(kTemporaryMark) + std::string(kTemporaryRandom)) {
    do make(folderOf(target));
    while (wasRemoved());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!kept_) ::unlink(path_.c_str());
  }
  int descriptor() const { return descriptor_->get(); }
  void renameOver(const std::string& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) fail(target, errno);
    kept_ = true;
  }

 private:
  void make(const std::string& folder) {
    path_ = pattern_;
    descriptor_.emplace(::mkostemp(path_.data(), O_CLOEXEC));
    if (descriptor() < 0 && errno == ENOENT)
      throw base::Error(errors::kPathNotFound, folder + ": " + std::strerror(errno));
    if (descriptor() < 0) fail(folder, errno);
    // Where a file system knows no locks, nobody gets one to remove the file either.
    lock(descriptor(), LOCK_EX);
  }

  // By another process, between making and locking.
  bool wasRemoved() const {
    struct stat state {};
    return ::fstat(descriptor(), &state) == 0 && state.st_nlink == 0;
  }

  std::string pattern_;
  std::string path_;
  std::optional<Descriptor> descriptor_;
  bool kept_ = false;
};

// The permissions and, where allowed, the owner of the file that is replaced; those of a plain new file
// otherwise.
void takePermissions(int descriptor, const Target& target) {
  if (const auto& old = target.state) {
    if (::fchown(descriptor, old->st_uid, old->st_gid) != 0 && errno != EPERM) fail(target.path, errno);
    if (::fchmod(descriptor, old->st_mode & 07777) != 0) fail(target.path, errno);
    return;
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  if (::fchmod(descriptor, 0666 & ~mask) != 0) fail(target.path, errno);
}

void syncFolder(const std::string& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.get() >= 0) ::fsync(descriptor.get());
}

// Bytes that all programs have written and the disk does not hold yet; "a lot" where the system does not tell.
std::size_t bytesOnTheirWay() {
  constexpr std::size_t kALot = SIZE_MAX;
  std::ifstream memory("/proc/meminfo");
  std::size_t sum = 0, found = 0;
  for (std::string line; found < 2 && std::getline(memory, line);)
    for (const std::string_view key : {"Dirty:", "Writeback:"})
      if (line.starts_with(key)) {
        sum += std::strtoull(line.c_str() + key.size(), nullptr, 10) * 1024;
        ++found;
      }
  return found == 2 ? sum : kALot;
}

// The folders that one file system of ours has looked through for hidden files: each once, before it writes there.
class LookedThrough {
 public:
  void visit(const std::string& folder) {
    if (folders_.insert(folder).second) removeLeftFiles(folder);
  }

 private:
  std::set<std::string> folders_;
};

class PosixBatch final : public platform::ReplacementBatch {
 public:
  explicit PosixBatch(LookedThrough& folders) : folders_(folders) {}

  void add(const std::string& path, std::string_view bytes) override {
    const Target target = followed(path);
    if (target.state && !S_ISREG(target.state->st_mode))
      throw base::Error(errors::kPathAccess, path + ": is not a regular file");
    folders_.visit(folderOf(target.path));
    auto content = std::make_unique<TemporaryFile>(target.path);
    writeAll(content->descriptor(), bytes, path);
    takePermissions(content->descriptor(), target);
    startWriting(content->descriptor());
    pending_.push_back({path, target.path, target.state.has_value(), std::move(content)});
    bytes_ += bytes.size();
  }

  std::vector<Outcome> finish() override {
    const std::vector<Pending> pending = std::exchange(pending_, {});
    const bool synced = syncTogether(pending);
    bytes_ = 0;
    std::vector<Outcome> outcomes;
    std::set<std::string> folders;
    for (const Pending& one : pending) {
      try {
        outcomes.emplace_back(place(one, synced));
        folders.insert(folderOf(one.target));
      } catch (const base::Error& error) {
        outcomes.emplace_back(error);
      }
    }
    for (const std::string& folder : folders) syncFolder(folder);
    return outcomes;
  }

 private:
  struct Pending {
    std::string path;
    std::string target;
    bool replaces;  // a file that was there
    std::unique_ptr<TemporaryFile> content;
  };

  // The disk works on the content while the next one is made.
  static void startWriting([[maybe_unused]] int descriptor) {
#ifdef SYNC_FILE_RANGE_WRITE
    ::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  }

  // One sync of the file system instead of one for each file costs a third. As it waits for what other programs have
  // written, too, it is worth it only for many files and on a quiet system.
  bool syncTogether([[maybe_unused]] const std::vector<Pending>& pending) const {
#ifdef SYNC_FILE_RANGE_WRITE
    constexpr std::size_t kMany = 8;
    constexpr std::size_t kQuiet = std::size_t{64} << 20;
    if (pending.size() < kMany || bytesOnTheirWay() > bytes_ + kQuiet) return false;
    const auto device = [](const Pending& one) {
      struct stat state {};
      return ::fstat(one.content->descriptor(), &state) == 0 ? state.st_dev : dev_t{};
    };
    const dev_t common = device(pending.front());
    return std::all_of(pending.begin(), pending.end(),
                       [&](const Pending& one) { return device(one) == common; }) &&
           ::syncfs(pending.front().content->descriptor()) == 0;
#else
    return false;
#endif
  }

  static FileStamp place(const Pending& one, bool synced) {
    const int descriptor = one.content->descriptor();
    if (synced ? !wasWritten(descriptor) : ::fsync(descriptor) != 0) fail(one.path, errno);
    struct stat state {};
    // One that was deleted meanwhile is not made again.
    if (one.replaces && ::lstat(one.target.c_str(), &state) != 0) fail(one.path, errno);
    if (::fstat(descriptor, &state) != 0) fail(one.path, errno);
    one.content->renameOver(one.target);
    return stampOf(state);
  }

  // Whether the content reached the disk: not every system's syncfs tells of errors.
  static bool wasWritten([[maybe_unused]] int descriptor) {
#ifdef SYNC_FILE_RANGE_WRITE
    return ::sync_file_range(
               descriptor, 0, 0,
               SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER) == 0;
#else
    return true;
#endif
  }

  LookedThrough& folders_;
  std::vector<Pending> pending_;
  std::size_t bytes_ = 0;
};

class PosixFiles final : public platform::Files {
 public:
  platform::ReadFile read(const std::string& path, std::uint64_t limit) override {
    // Without blocking, so that a pipe nobody writes to cannot hold us up before fstat tells what it is.
    const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (descriptor.get() < 0) fail(path, errno);
    struct stat state {};
    if (::fstat(descriptor.get(), &state) != 0) fail(path, errno);
    if (!S_ISREG(state.st_mode))
      throw base::Error(errors::kPathAccess,
                        path + (S_ISDIR(state.st_mode) ? ": is a directory" : ": is not a regular file"));
    const FileStamp stamp = stampOf(state);
    if (stamp.size > limit)
      throw base::Error(errors::kDeviceIo, path + ": is larger than " + std::to_string(limit >> 20) + " MB");
    return {readAll(descriptor.get(), static_cast<std::size_t>(stamp.size), path), stamp};
  }

  std::optional<FileStamp> stamp(const std::string& path) override {
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
    return stampOf(state);
  }

  std::optional<std::uint64_t> nameCount(const std::string& path) override {
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(state.st_nlink);
  }

  FileStamp replace(const std::string& path, std::string_view bytes) override {
    PosixBatch batch(folders_);
    batch.add(path, bytes);
    const PosixBatch::Outcome outcome = batch.finish().front();
    if (const auto* error = std::get_if<base::Error>(&outcome)) throw *error;
    return std::get<FileStamp>(outcome);
  }

  std::unique_ptr<platform::ReplacementBatch> startBatch() override {
    return std::make_unique<PosixBatch>(folders_);
  }

  std::vector<platform::DirectoryEntry> list(const std::string& directory) override {
    std::error_code code;
    std::vector<platform::DirectoryEntry> entries;
    std::filesystem::directory_iterator iterator(directory, code);
    if (code)
      throw base::Error(code.value() == ENOENT ? errors::kPathNotFound : numberOf(code.value()),
                        directory + ": " + code.message());
    for (; iterator != std::filesystem::directory_iterator(); iterator.increment(code)) {
      if (code) break;
      std::error_code ignored;
      entries.push_back({iterator->path().filename().string(), iterator->is_directory(ignored),
                         iterator->is_symlink(ignored)});
    }
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return entries;
  }

  int attributes(const std::string& path) override {
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0) fail(path, errno);
    int sum = S_ISDIR(state.st_mode) ? platform::kAttributeDirectory : platform::kAttributeArchive;
    if ((state.st_mode & S_IWUSR) == 0) sum += platform::kAttributeReadOnly;
    if (std::filesystem::path(path).filename().string().starts_with('.')) sum += platform::kAttributeHidden;
    return sum;
  }

  void setAttributes(const std::string& path, int attributes) override {
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0) fail(path, errno);
    const bool readOnly = (attributes & platform::kAttributeReadOnly) != 0;
    const mode_t mode = readOnly ? state.st_mode & ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH)
                                 : state.st_mode | S_IWUSR;
    if (mode != state.st_mode && ::chmod(path.c_str(), mode & 07777) != 0) fail(path, errno);
  }

  void move(const std::string& from, const std::string& to) override {
    struct stat state {};
    if (::lstat(to.c_str(), &state) == 0) throw base::Error(platform::kFileExists, to + ": exists already");
    if (::rename(from.c_str(), to.c_str()) != 0) fail(from, errno);
  }

  void remove(const std::string& path) override {
    if (::unlink(path.c_str()) != 0) fail(path, errno);
  }

  std::string absolute(const std::string& path) override {
    return std::filesystem::absolute(path).lexically_normal().string();
  }

 private:
  LookedThrough folders_;
};

}  // namespace

std::unique_ptr<platform::Files> makePosixFiles() { return std::make_unique<PosixFiles>(); }

}  // namespace kolvane::adapters
