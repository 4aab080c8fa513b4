// One file as the workspace knows it: where it is, what it held when it was read or written last, and the
// rules for writing it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace kolvane::workspace {

// "File already exists" of the run time.
inline constexpr long kFileExists = 58;

class DiskFile {
 public:
  // Not saved yet.
  DiskFile() = default;
  // Known by its name; its content was not read.
  explicit DiskFile(std::string path) : path_(std::move(path)) {}
  DiskFile(std::string path, platform::ReadFile file)
      : path_(std::move(path)), stamp_(file.stamp), content_(std::move(file.content)) {}

  // The system's path; empty when there is none yet.
  const std::string& path() const { return path_; }
  bool hasPath() const { return !path_.empty(); }
  // Of the file when it was read or written last.
  const platform::FileStamp& stamp() const { return stamp_; }
  bool wasRead() const { return content_ != nullptr; }
  std::string_view bytes() const { return content_ ? content_->bytes() : std::string_view(); }
  const std::shared_ptr<const platform::FileBytes>& content() const { return content_; }

  // True when the file is there and its owner may not write it.
  bool isReadOnly(platform::Files& files) const;

  // Puts `bytes` into the file, whole or not at all. Raises 70 for a read-only file; without `force` 75 for a
  // file whose content is no longer what was read, and 58 for one that was never read. A file that has gone
  // is made anew.
  void write(platform::Files& files, std::string bytes, bool force);
  // The two halves of write(), for bytes that go into the file in company of others'.
  void requireWritable(platform::Files& files, bool force) const;
  void written(const platform::FileStamp& stamp, std::string bytes);

 private:
  bool isMarkedReadOnly(platform::Files& files) const;  // a file that is there
  bool isUnchanged(platform::Files& files, const platform::FileStamp& now) const;

  std::string path_;
  platform::FileStamp stamp_;
  std::shared_ptr<const platform::FileBytes> content_;
};

}  // namespace kolvane::workspace
