#include "workspace/disk_file.h"

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

void DiskFile::requireWritable(platform::Files& files, bool force) const {
  const auto now = files.stamp(path_);
  if (!now) return;
  if (isMarkedReadOnly(files)) throw base::Error(errors::kPermissionDenied, path_ + ": is read-only");
  if (!force && !wasRead()) throw base::Error(kFileExists, path_ + ": exists already");
  if (!force && !isUnchanged(files, *now))
    throw base::Error(errors::kPathAccess, path_ + ": was changed by another program since it was read");
}

void DiskFile::written(const platform::FileStamp& stamp, std::string bytes) {
  stamp_ = stamp;
  content_ = std::make_shared<WrittenBytes>(std::move(bytes));
}

void DiskFile::write(platform::Files& files, std::string bytes, bool force) {
  requireWritable(files, force);
  const platform::FileStamp stamp = files.replace(path_, bytes);
  written(stamp, std::move(bytes));
}

}  // namespace kolvane::workspace
