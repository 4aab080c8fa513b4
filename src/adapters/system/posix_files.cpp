#include "adapters/system/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
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

std::string followed(const std::string& path) {
  std::array<char, PATH_MAX> resolved{};
  return ::realpath(path.c_str(), resolved.data()) != nullptr ? std::string(resolved.data()) : path;
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
void takePermissions(int descriptor, const std::string& target) {
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) {
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0 && errno != EPERM) fail(target, errno);
    if (::fchmod(descriptor, old.st_mode & 07777) != 0) fail(target, errno);
    return;
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  if (::fchmod(descriptor, 0666 & ~mask) != 0) fail(target, errno);
}

void syncFolder(const std::string& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.get() >= 0) ::fsync(descriptor.get());
}

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
    const std::string target = followed(path);
    struct stat state {};
    if (::stat(target.c_str(), &state) == 0 && !S_ISREG(state.st_mode))
      throw base::Error(errors::kPathAccess, path + ": is not a regular file");
    TemporaryFile temporary(target);
    writeAll(temporary.descriptor(), bytes, path);
    takePermissions(temporary.descriptor(), target);
    if (::fsync(temporary.descriptor()) != 0) fail(path, errno);
    if (::fstat(temporary.descriptor(), &state) != 0) fail(path, errno);
    temporary.renameOver(target);
    syncFolder(folderOf(target));
    return stampOf(state);
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
