// The file system. Paths are the system's own, in bytes. Failures are base::Error with the run time's
// numbers: 53 file not found, 57 read or write failed, 58 there is a file of that name, 61 disk full, 70 permission
// denied, 75 not a regular file, 76 path not found; the description names the path and the system's reason.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/error.h"

namespace kolvane::platform {

// "File already exists" of the run time.
inline constexpr long kFileExists = 58;

// What tells one state of a file from another. Equal stamps mean: not touched in between.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t modifiedNanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

// The bytes of one file as they were when it was read; they do not change when the file does later.
class FileBytes {
 public:
  virtual ~FileBytes() = default;
  virtual std::string_view bytes() const = 0;
};

struct ReadFile {
  std::shared_ptr<const FileBytes> content;
  FileStamp stamp;
};

struct DirectoryEntry {
  std::string name;
  bool isDirectory = false;  // also for a symbolic link to one
  bool isLink = false;       // a symbolic link
};

// File attributes as the tools know them; a plain file has 32, a read-only one 33.
inline constexpr int kAttributeReadOnly = 1;
inline constexpr int kAttributeHidden = 2;
inline constexpr int kAttributeDirectory = 16;
inline constexpr int kAttributeArchive = 32;

// Contents on their way to their files: as Files::replace() for each of them, at the price of few waits for the disk.
// What is not finished leaves no trace.
class ReplacementBatch {
 public:
  // The file's new state, or why it is as it was.
  using Outcome = std::variant<FileStamp, base::Error>;

  virtual ~ReplacementBatch() = default;
  // Takes `bytes` for the file, which stays as it is for now. May raise what replace() raises; the batch then goes on
  // without it. A disk holds old and new content of all files until they are finished.
  virtual void add(const std::string& path, std::string_view bytes) = 0;
  // Puts the contents in their places in the order in which they came, each whole or not at all. The batch is empty
  // then. Returns an outcome for each.
  virtual std::vector<Outcome> finish() = 0;
};

class Files {
 public:
  virtual ~Files() = default;

  // Reads a regular file. A directory, device or pipe raises 75 without being opened for reading; a file
  // above `limit` bytes raises 57.
  virtual ReadFile read(const std::string& path, std::uint64_t limit = 512ULL << 20) = 0;

  // The state of a regular file; nothing when there is none.
  virtual std::optional<FileStamp> stamp(const std::string& path) = 0;

  // How many names the file has on its file system, one of them this path; nothing when there is no such file. What
  // replace() writes is a file with one name: the others go on naming the old content.
  virtual std::optional<std::uint64_t> nameCount(const std::string& path) = 0;

  // Puts `bytes` in the place of the file, whole or not at all: written beside it, synced, renamed over it.
  // The permissions of an existing file survive; a symbolic link is followed, and one that leads to nothing raises
  // 53. Returns the new state. A killed run's hidden files are removed from the folder.
  virtual FileStamp replace(const std::string& path, std::string_view bytes) = 0;
  // An empty batch, which must not outlive its file system. Unless that knows better, finish() calls replace() for each.
  virtual std::unique_ptr<ReplacementBatch> startBatch();

  // Entries of a folder in byte order, without "." and "..". A folder that cannot be read raises 70 or 76.
  virtual std::vector<DirectoryEntry> list(const std::string& directory) = 0;

  // Sum of the constants above. A missing file raises 53.
  virtual int attributes(const std::string& path) = 0;
  // Takes the owner's write permission away when `attributes` holds 1, gives it back otherwise.
  virtual void setAttributes(const std::string& path, int attributes) = 0;

  // Gives a file another name, in the same folder or on the same file system; one that is taken raises 58.
  virtual void move(const std::string& from, const std::string& to) = 0;

  // A missing file raises 53.
  virtual void remove(const std::string& path) = 0;

  // Absolute, without "." and "..", symbolic links kept; needs no file to exist.
  virtual std::string absolute(const std::string& path) = 0;
};

// Files that live in memory: every folder named by a path exists. Stamps count the writes.
std::unique_ptr<Files> makeMemoryFiles();

}  // namespace kolvane::platform
