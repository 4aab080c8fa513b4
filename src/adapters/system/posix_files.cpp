#include "adapters/system/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
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

// The file that a path leads to, and its state when it is there.
struct Target {
  std::string path;
  std::optional<struct stat> state;
};

Target followed(const std::string& path) {
  struct stat state {};
  if (::lstat(path.c_str(), &state) != 0) return {path, std::nullopt};
  if (!S_ISLNK(state.st_mode)) return {path, state};
  std::array<char, PATH_MAX> resolved{};
  if (::realpath(path.c_str(), resolved.data()) == nullptr) return {path, std::nullopt};
  if (::stat(resolved.data(), &state) != 0) return {resolved.data(), std::nullopt};
  return {resolved.data(), state};
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// A new hidden file beside a target, gone again unless it was kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : path_(folderOf(target) + "/." + nameOf(target) + ".XXXXXX"), descriptor_(::mkstemp(path_.data())) {
    if (descriptor_.get() < 0) fail(folderOf(target), errno);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!kept_) ::unlink(path_.c_str());
  }
  int descriptor() const { return descriptor_.get(); }
  void renameOver(const std::string& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) fail(target, errno);
    kept_ = true;
  }

 private:
  std::string path_;
  Descriptor descriptor_;
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

class PosixBatch final : public platform::ReplacementBatch {
 public:
  void add(const std::string& path, std::string_view bytes) override {
    const Target target = followed(path);
    if (target.state && !S_ISREG(target.state->st_mode))
      throw base::Error(errors::kPathAccess, path + ": is not a regular file");
    auto content = std::make_unique<TemporaryFile>(target.path);
    writeAll(content->descriptor(), bytes, path);
    takePermissions(content->descriptor(), target);
    startWriting(content->descriptor());
    pending_.push_back({path, target.path, std::move(content)});
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

  FileStamp replace(const std::string& path, std::string_view bytes) override {
    PosixBatch batch;
    batch.add(path, bytes);
    const PosixBatch::Outcome outcome = batch.finish().front();
    if (const auto* error = std::get_if<base::Error>(&outcome)) throw *error;
    return std::get<FileStamp>(outcome);
  }

  std::unique_ptr<platform::ReplacementBatch> startBatch() override { return std::make_unique<PosixBatch>(); }

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

  void remove(const std::string& path) override {
    if (::unlink(path.c_str()) != 0) fail(path, errno);
  }

  std::string absolute(const std::string& path) override {
    return std::filesystem::absolute(path).lexically_normal().string();
  }
};

}  // namespace

std::unique_ptr<platform::Files> makePosixFiles() { return std::make_unique<PosixFiles>(); }

}  // namespace kolvane::adapters
