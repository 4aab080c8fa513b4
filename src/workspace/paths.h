// Paths of the host and paths of this file system.
//
// The host writes "\" between names and takes no regard to case; its full paths begin with "\" (or with a
// drive where the system has drives). "/home/ann/Ledger.vbp" of this system is "\home\ann\Ledger.vbp" of the
// host. The host's names are bytes of the code page, the system's are UTF-8: a name that the code page cannot
// hold keeps its bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/code_page.h"
#include "platform/files.h"

namespace kolvane::workspace {

// ---- parts of a path in ASCII, UTF-8 or a single-byte code page; "\" and "/" both part names

// "frmMain.frm" of "\a\frmMain.frm".
std::string_view fileName(std::string_view path);
// "\a" of "\a\b.frm", "" of "b.frm"; the root keeps its "\" or "/".
std::string_view folderOf(std::string_view path);
// "frmMain" of "\a\frmMain.frm".
std::string_view baseName(std::string_view path);
// ".frm" in lower case, "" without one.
std::string extension(std::string_view path);

// Places that a host path can lead to.
enum class PlaceKind { kMissing, kFile, kFolder };

struct Place {
  // The system's path, spelled as on the disk as far as it is there.
  std::string path;
  PlaceKind kind = PlaceKind::kMissing;
};

class Paths {
 public:
  // Both must outlive the object.
  Paths(platform::Files& files, const base::CodePage& codePage) : files_(files), codePage_(codePage) {}

  std::string toHost(const std::string& systemPath);
  // The way back: for every path that toHost gave, the very path it was given; for others the place that the
  // names lead to. A path of the system is taken as it is.
  std::string toSystem(std::string_view path);

  // The host's way from a folder to a file, both in the system's form: "..\Common\modApi.bas".
  std::string relative(const std::string& systemFolder, const std::string& systemPath);

  std::string nameToSystem(std::string_view hostName) const;
  // A name of a project file for people, who read UTF-8: one that is UTF-8 already stays.
  std::string shown(std::string_view name) const;
  // "file not found: Größe.bas", and what to do when the file is not called so.
  std::string notFound(std::string_view what, std::string_view name) const;
  // The parts of a path in the bytes of the code page, whose characters may hold a "\" of their own.
  std::vector<std::string_view> namesIn(std::string_view hostPath) const;
  std::string_view fileNameIn(std::string_view hostPath) const;
  std::string nameToHost(std::string_view systemName) const;

  platform::Files& files() const { return files_; }
  const base::CodePage& codePage() const { return codePage_; }

 private:
  std::string plainToHost(std::string_view systemPath) const;
  std::string plainToSystem(std::string_view hostPath) const;
  std::optional<std::string> remembered(std::string_view hostPath) const;

  platform::Files& files_;
  const base::CodePage& codePage_;
  // Host paths that the plain rule would lead elsewhere, and their folders.
  std::unordered_map<std::string, std::string> exceptions_;
};

// Finds files as project files name them. Keeps what it has seen of a folder, so that many look-ups cost one
// listing a folder, and none where names are spelled as on the disk: make one for each operation.
class PathFinder {
 public:
  // Names that are there as UTF-8 are found like those of the code page, or not.
  enum class Names { kOfThePageOrUtf8, kOfThePage };
  explicit PathFinder(Paths& paths, Names names = Names::kOfThePageOrUtf8) : paths_(paths), names_(names) {}

  // `path` is absolute or relative to `systemFolder`. An exact spelling is found first, then one without
  // regard to case (the first in byte order).
  Place find(const std::string& systemFolder, std::string_view path);
  // For when the code page has become another one.
  void forget() { folders_.clear(); }

 private:
  struct Name {
    std::string spelled;
    bool isFolder = false;
  };
  using Folder = std::unordered_multimap<std::string, Name>;

  std::optional<Place> exact(const std::string& folder, const std::vector<std::string_view>& names);
  Place search(std::string folder, const std::vector<std::string_view>& names);
  const Name* look(const std::string& folder, std::string_view name);
  const Folder& folder(const std::string& path);

  Paths& paths_;
  Names names_;
  std::unordered_map<std::string, Folder> folders_;
};

}  // namespace kolvane::workspace
