// The file system under the host's paths: for tools, which know files by the paths that the host gives them.
#pragma once

#include "platform/files.h"
#include "workspace/paths.h"

namespace kolvane::workspace {

// Every path is resolved by the workspace's rules before the file system behind it is asked; errors name the path of
// the system. Absolute paths come back in the host's form.
class HostFiles final : public platform::Files {
 public:
  // Must not outlive `paths`.
  explicit HostFiles(Paths& paths) : paths_(paths) {}

  platform::ReadFile read(const std::string& path, std::uint64_t limit) override {
    return files().read(paths_.toSystem(path), limit);
  }
  std::optional<platform::FileStamp> stamp(const std::string& path) override {
    return files().stamp(paths_.toSystem(path));
  }
  std::optional<std::uint64_t> nameCount(const std::string& path) override {
    return files().nameCount(paths_.toSystem(path));
  }
  platform::FileStamp replace(const std::string& path, std::string_view bytes) override {
    return files().replace(paths_.toSystem(path), bytes);
  }
  std::vector<platform::DirectoryEntry> list(const std::string& directory) override {
    return files().list(paths_.toSystem(directory));
  }
  int attributes(const std::string& path) override { return files().attributes(paths_.toSystem(path)); }
  void setAttributes(const std::string& path, int attributes) override {
    files().setAttributes(paths_.toSystem(path), attributes);
  }
  void move(const std::string& from, const std::string& to) override {
    files().move(paths_.toSystem(from), paths_.toSystem(to));
  }
  void remove(const std::string& path) override { files().remove(paths_.toSystem(path)); }
  std::string absolute(const std::string& path) override {
    return paths_.toHost(files().absolute(paths_.toSystem(path)));
  }

 private:
  platform::Files& files() const { return paths_.files(); }

  Paths& paths_;
};

}  // namespace kolvane::workspace
