// One file as the workspace knows it: where it is, what it held when it was read or written last, and the
// rules for writing it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace kolvane::workspace {

using platform::kFileExists;

struct SaveOptions {
  // Overwrites what another program has changed, and makes anew what was deleted.
  bool force = false;
  // Writes a file that has several names (hard links), which parts this one from the others.
  bool breakLinks = false;
  // How the user of this front end asks for that, put behind the sentence that refuses it. A literal.
  std::string_view howToBreakLinks = {};
};

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

  // How many names the file has besides this one; 0 when it is not there.
  std::uint64_t otherNames(platform::Files& files) const;
  // True when the file was read and has gone since.
  bool isGone(platform::Files& files) const { return wasRead() && !files.stamp(path_); }
  // True when the file is there and its owner may not write it.
  bool isReadOnly(platform::Files& files) const;

  // Puts `bytes` into the file, whole or not at all. Raises 70 for a read-only file; without `force` 75 for a
  // file whose content is no longer what was read, 53 for one that was read and has gone, and 58 for one that was never
  // read; without `breakLinks` 75 for a file that has other names.
  void write(platform::Files& files, std::string bytes, const SaveOptions& options);
  // The two halves of write(), for bytes that go into the file in company of others'.
  void requireWritable(platform::Files& files, const SaveOptions& options) const;
  void written(const platform::FileStamp& stamp, std::string bytes);

 private:
  bool isMarkedReadOnly(platform::Files& files) const;  // a file that is there
  void requireOneName(platform::Files& files, std::string_view howToBreakLinks) const;
  bool isUnchanged(platform::Files& files, const platform::FileStamp& now) const;

  std::string path_;
  platform::FileStamp stamp_;
  std::shared_ptr<const platform::FileBytes> content_;
};

}  // namespace kolvane::workspace
