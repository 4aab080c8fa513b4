// Files that live in memory, for tests and for work that must not touch a disk.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/files.h"

namespace kolvane::platform {

// Paths are absolute with "/"; what is not begins at "/". Folders exist as soon as a path names them and have
// no attributes of their own. Stamps count the writes, so that two writes of the same bytes differ.
class MemoryFiles : public Files {
 public:
  ReadFile read(const std::string& path, std::uint64_t limit = 512ULL << 20) override;
  std::optional<FileStamp> stamp(const std::string& path) override;
  std::optional<std::uint64_t> nameCount(const std::string& path) override;
  FileStamp replace(const std::string& path, std::string_view bytes) override;
  std::vector<DirectoryEntry> list(const std::string& directory) override;
  int attributes(const std::string& path) override;
  void setAttributes(const std::string& path, int attributes) override;
  void move(const std::string& from, const std::string& to) override;
  void remove(const std::string& path) override;
  std::string absolute(const std::string& path) override;

  // Gives the file `count` names as hard links would; they name nothing here.
  void setNameCount(const std::string& path, std::uint64_t count) { entry(path).names = count; }
  // Makes a folder that holds nothing yet.
  void addFolder(const std::string& path);
  // From now on replace() of this path raises `number`; 0 lets it work again.
  void failReplacing(const std::string& path, long number);
  // How often each operation was called, for tests of cost.
  struct Calls {
    int read = 0;
    int stamp = 0;
    int replace = 0;
    int list = 0;
  };
  const Calls& calls() const { return calls_; }

 private:
  struct Entry {
    std::shared_ptr<const FileBytes> content;
    FileStamp stamp;
    int attributes = kAttributeArchive;
    std::uint64_t names = 1;
  };

  bool isFolder(const std::string& path) const;
  Entry& entry(const std::string& path);

  std::map<std::string, Entry> entries_;
  std::set<std::string> folders_;  // those named by addFolder, each with a final "/"
  std::map<std::string, long> failures_;
  std::int64_t writes_ = 0;
  Calls calls_;
};

}  // namespace kolvane::platform
