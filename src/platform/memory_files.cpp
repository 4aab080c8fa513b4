#include "platform/memory_files.h"

#include "base/error.h"

namespace kolvane::platform {
namespace {

namespace errors = base::errors;

class StringBytes final : public FileBytes {
 public:
  explicit StringBytes(std::string_view bytes) : bytes_(bytes) {}
  std::string_view bytes() const override { return bytes_; }

 private:
  std::string bytes_;
};

[[noreturn]] void fail(long number, const std::string& path, std::string_view reason) {
  throw base::Error(number, path + ": " + std::string(reason));
}

std::string asFolder(std::string path) {
  if (path.empty() || path.back() != '/') path += '/';
  return path;
}

}  // namespace

std::string MemoryFiles::absolute(const std::string& path) {
  std::vector<std::string_view> parts;
  std::string_view rest = path;
  while (!rest.empty()) {
    const std::size_t slash = rest.find('/');
    const std::string_view part = rest.substr(0, slash);
    rest = slash == std::string_view::npos ? std::string_view() : rest.substr(slash + 1);
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(part);
    } else if (!parts.empty()) {
      parts.pop_back();
    }
  }
  std::string result;
  for (const std::string_view part : parts) result.append("/").append(part);
  return result.empty() ? "/" : result;
}

bool MemoryFiles::isFolder(const std::string& path) const {
  if (path == "/") return true;
  const std::string prefix = asFolder(path);
  if (folders_.contains(prefix)) return true;
  const auto below = entries_.lower_bound(prefix);
  return below != entries_.end() && below->first.starts_with(prefix);
}

MemoryFiles::Entry& MemoryFiles::entry(const std::string& path) {
  const auto found = entries_.find(absolute(path));
  if (found == entries_.end()) fail(errors::kFileNotFound, path, "No such file or directory");
  return found->second;
}

ReadFile MemoryFiles::read(const std::string& path, std::uint64_t limit) {
  ++calls_.read;
  if (isFolder(absolute(path))) fail(errors::kPathAccess, path, "is a directory");
  const Entry& found = entry(path);
  if (found.stamp.size > limit)
    fail(errors::kDeviceIo, path, "is larger than " + std::to_string(limit >> 20) + " MB");
  return {found.content, found.stamp};
}

std::optional<FileStamp> MemoryFiles::stamp(const std::string& path) {
  ++calls_.stamp;
  const auto found = entries_.find(absolute(path));
  if (found == entries_.end()) return std::nullopt;
  return found->second.stamp;
}

std::optional<std::uint64_t> MemoryFiles::nameCount(const std::string& path) {
  const auto found = entries_.find(absolute(path));
  if (found == entries_.end()) return std::nullopt;
  return found->second.names;
}

FileStamp MemoryFiles::replace(const std::string& path, std::string_view bytes) {
  ++calls_.replace;
  const std::string target = absolute(path);
  if (isFolder(target)) fail(errors::kPathAccess, path, "is not a regular file");
  if (const auto failure = failures_.find(target); failure != failures_.end())
    fail(failure->second, path, base::standardDescription(failure->second));
  const bool isNew = !entries_.contains(target);
  Entry& stored = entries_[target];
  ++writes_;
  stored.content = std::make_shared<StringBytes>(bytes);
  const std::uint64_t inode = isNew ? static_cast<std::uint64_t>(writes_) : stored.stamp.inode;
  stored.names = 1;
  stored.stamp = {1, inode, bytes.size(), writes_};
  return stored.stamp;
}

std::vector<DirectoryEntry> MemoryFiles::list(const std::string& directory) {
  ++calls_.list;
  const std::string folder = absolute(directory);
  if (!isFolder(folder)) fail(errors::kPathNotFound, directory, "No such file or directory");
  const std::string prefix = asFolder(folder);
  std::map<std::string, bool> names;
  const auto add = [&](const std::string& path) {
    if (!path.starts_with(prefix) || path.size() == prefix.size()) return;
    const std::size_t slash = path.find('/', prefix.size());
    const bool isDirectory = slash != std::string::npos;
    names[path.substr(prefix.size(), isDirectory ? slash - prefix.size() : slash)] |= isDirectory;
  };
  for (const auto& [path, stored] : entries_) add(path);
  for (const std::string& path : folders_) add(path);
  std::vector<DirectoryEntry> result;
  for (const auto& [name, isDirectory] : names) result.push_back({name, isDirectory});
  return result;
}

int MemoryFiles::attributes(const std::string& path) {
  if (isFolder(absolute(path))) return kAttributeDirectory;
  const bool hidden = path.substr(path.rfind('/') + 1).starts_with('.');
  return entry(path).attributes + (hidden ? kAttributeHidden : 0);
}

void MemoryFiles::setAttributes(const std::string& path, int attributes) {
  const int readOnly = attributes & kAttributeReadOnly;
  Entry& stored = entry(path);
  stored.attributes = (stored.attributes & ~kAttributeReadOnly) | readOnly;
}

void MemoryFiles::move(const std::string& from, const std::string& to) {
  entry(from);
  if (entries_.contains(absolute(to)) || isFolder(absolute(to))) fail(kFileExists, to, "exists already");
  auto node = entries_.extract(absolute(from));
  node.key() = absolute(to);
  entries_.insert(std::move(node));
}

void MemoryFiles::remove(const std::string& path) {
  entry(path);
  entries_.erase(absolute(path));
}

void MemoryFiles::addFolder(const std::string& path) { folders_.insert(asFolder(absolute(path))); }

void MemoryFiles::failReplacing(const std::string& path, long number) {
  if (number == 0) {
    failures_.erase(absolute(path));
  } else {
    failures_[absolute(path)] = number;
  }
}

std::unique_ptr<Files> makeMemoryFiles() { return std::make_unique<MemoryFiles>(); }

}  // namespace kolvane::platform
