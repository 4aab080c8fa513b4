#include "workspace/disk_file.h"

#include <algorithm>

#include "base/error.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

class WrittenBytes final : public platform::FileBytes {
 public:
  explicit WrittenBytes(std::string bytes) : bytes_(std::move(bytes)) {}
  std::string_view bytes() const override { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace

bool DiskFile::isReadOnly(platform::Files& files) const {
  return hasPath() && files.stamp(path_) && isMarkedReadOnly(files);
}

bool DiskFile::isMarkedReadOnly(platform::Files& files) const {
  return (files.attributes(path_) & platform::kAttributeReadOnly) != 0;
}

// A file that was only touched still holds what was read.
bool DiskFile::isUnchanged(platform::Files& files, const platform::FileStamp& now) const {
  return now == stamp_ || (now.size == bytes().size() && files.read(path_).content->bytes() == bytes());
}

std::uint64_t DiskFile::otherNames(platform::Files& files) const {
  const std::uint64_t names = files.nameCount(path_).value_or(1);
  return names - std::min<std::uint64_t>(names, 1);
}

void DiskFile::requireWritable(platform::Files& files, const SaveOptions& options) const {
  const auto now = files.stamp(path_);
  if (!now) {
    if (wasRead() && !options.force)
      throw base::Error(errors::kFileNotFound, path_ + ": has been deleted or moved since it was read");
    return;
  }
  if (isMarkedReadOnly(files)) throw base::Error(errors::kPermissionDenied, path_ + ": is read-only");
  if (!options.force && !wasRead()) throw base::Error(kFileExists, path_ + ": exists already");
  if (!options.force && !isUnchanged(files, *now))
    throw base::Error(errors::kPathAccess, path_ + ": was changed by another program since it was read");
  if (!options.breakLinks) requireOneName(files, options.howToBreakLinks);
}

void DiskFile::requireOneName(platform::Files& files, std::string_view howToBreakLinks) const {
  const std::uint64_t others = otherNames(files);
  if (others == 0) return;
  std::string reason = "the file has " + std::to_string(others) + " other " +
                       (others == 1 ? "name" : "names") +
                       " (hard links), which would go on naming what it holds now";
  if (!howToBreakLinks.empty()) reason.append("; ").append(howToBreakLinks);
  throw base::Error(errors::kPathAccess, path_ + ": " + reason);
}

void DiskFile::written(const platform::FileStamp& stamp, std::string bytes) {
  stamp_ = stamp;
  content_ = std::make_shared<WrittenBytes>(std::move(bytes));
}

void DiskFile::write(platform::Files& files, std::string bytes, const SaveOptions& options) {
  requireWritable(files, options);
  const platform::FileStamp stamp = files.replace(path_, bytes);
  written(stamp, std::move(bytes));
}

}  // namespace kolvane::workspace
