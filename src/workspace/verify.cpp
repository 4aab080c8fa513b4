#include "workspace/verify.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <unordered_set>

#include "base/error.h"
#include "base/text.h"
#include "workspace/code_text.h"
#include "workspace/component.h"
#include "workspace/designer_tree.h"
#include "workspace/opening.h"
#include "workspace/page_recognition.h"
#include "workspace/paths.h"
#include "workspace/project_file.h"

namespace kolvane::workspace {
namespace {

int byteAt(std::string_view bytes, std::size_t offset) {
  return offset < bytes.size() ? static_cast<unsigned char>(bytes[offset]) : -1;
}

// Line ends, and one more line when bytes follow the last of them.
std::uint64_t countLines(std::string_view bytes) {
  std::uint64_t count = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); ++i)
    if (bytes[i] == '\n' || (bytes[i] == '\r' && bytes[i + 1] != '\n')) ++count;
  return count + (bytes.empty() ? 0 : 1);
}

class Verifier {
 public:
  Verifier(platform::Files& files, const VerifyPages& pages,
           const std::function<void(const std::string&)>& onFile)
      : files_(files),
        pages_(pages.known),
        recognises_(!pages.number),
        given_(pages_.get(pages.number.value_or(base::CodePage::kDefault))),
        onFile_(onFile) {}

  void path(const std::string& path) {
    const std::string place = files_.absolute(path);
    try {
      if ((files_.attributes(place) & platform::kAttributeDirectory) != 0) {
        folders_.push_back(place);
        while (!folders_.empty()) nextFolder();
      } else {
        file(place, {}, nullptr);
      }
    } catch (const base::Error& error) {
      report(place, 0, error.description());
    }
  }

  VerifyReport take() { return std::move(report_); }

 private:
  // The line of a project or group that names a file.
  struct Origin {
    std::string file;
    int line;
  };

  void report(const std::string& file, int line, std::string reason) {
    if (reason.starts_with(file + ": ")) reason.erase(0, file.size() + 2);
    report_.problems.push_back({file, line, std::move(reason)});
  }

  // Depth first, each folder's own projects before those below it.
  void nextFolder() {
    const std::string folder = std::move(folders_.back());
    folders_.pop_back();
    std::vector<std::string> below;
    try {
      for (const platform::DirectoryEntry& entry : files_.list(folder)) {
        const std::string path = (folder == "/" ? "" : folder) + "/" + entry.name;
        if (entry.isLink) continue;
        if (entry.isDirectory) below.push_back(path);
        const std::string ending = extension(entry.name);
        if (!entry.isDirectory && (ending == ".vbp" || ending == ".vbg")) file(path, {}, nullptr);
      }
    } catch (const base::Error& error) {
      report(folder, 0, error.description());
    }
    folders_.insert(folders_.end(), below.rbegin(), below.rend());
  }

  void file(const std::string& path, std::optional<frame::ComponentType> listedAs, const Origin* origin) {
    if (!seenPaths_.insert(path).second) return;
    if (onFile_) onFile_(path);
    try {
      const platform::ReadFile read = files_.read(path);
      const std::string_view bytes = read.content->bytes();
      const FileNature nature =
          listedAs ? FileNature{FileKind::kComponent, *listedAs} : natureOf(path, bytes);
      switch (nature.kind) {
        case FileKind::kProject:
        case FileKind::kGroup:
          projectFile(path, read, nature.kind);
          break;
        case FileKind::kComponent:
          component(path, read, nature.type);
          break;
        case FileKind::kOther:
          report(path, 0, "is no project and no component of one");
      }
    } catch (const base::Error& error) {
      if (origin != nullptr) {
        report(origin->file, origin->line, "cannot be read: " + error.description());
      } else {
        report(path, 0, error.description());
      }
    }
  }

  // Finds the files of one project.
  struct Locator {
    Locator(platform::Files& files, const base::CodePage& page) : paths(files, page), finder(paths) {}
    Paths paths;
    PathFinder finder;
  };

  Locator& locatorOf(const std::string& path, const ProjectFile& text, FileKind kind) {
    const base::CodePage* page = nullptr;
    if (recognises_)
      page = pageByNames(files_, pages_, given_, std::string(folderOf(path)), namesIn(text, kind)).page;
    if (page == nullptr) page = &given_;
    auto& locator = locators_[page->number()];
    if (locator == nullptr) locator = std::make_unique<Locator>(files_, *page);
    return *locator;
  }

  static std::vector<std::string> namesIn(const ProjectFile& text, FileKind kind) {
    if (kind == FileKind::kProject) return componentFiles(text);
    std::vector<std::string> names;
    for (const ProjectEntry& entry : text.entries())
      if (base::equalNoCase(entry.key, "Project")) names.emplace_back(withoutMarks(entry.value));
    return names;
  }

  void projectFile(const std::string& path, const platform::ReadFile& read, FileKind kind) {
    if (const std::string reason = whyNotProject(read.content->bytes()); !reason.empty())
      return report(path, 0, reason);
    ++(kind == FileKind::kGroup ? report_.groups : report_.projects);
    const ProjectFile text = ProjectFile::parse(read.content, read.content->bytes());
    Locator& locator = locatorOf(path, text, kind);
    page_ = &locator.paths.codePage();
    compare(path, read.content->bytes(), text.bytes());
    for (const ProjectEntry& entry : text.entries()) {
      if (kind == FileKind::kGroup) {
        groupLine(locator, path, entry);
      } else {
        componentEntry(locator, path, entry);
      }
    }
  }

  void groupLine(Locator& locator, const std::string& path, const ProjectEntry& entry) {
    if (!base::equalNoCase(entry.key, "Project") && !base::equalNoCase(entry.key, "StartupProject")) return;
    const std::string target = locate(locator, path, entry, withoutMarks(entry.value));
    const Origin origin{path, entry.number};
    // A group inside a group is no project; it is found by itself when it lies below a path.
    if (extension(target) == ".vbg") return report(path, entry.number, "is no project: " + target);
    if (!target.empty()) file(target, {}, &origin);
  }

  void componentEntry(Locator& locator, const std::string& path, const ProjectEntry& entry) {
    const auto type = componentTypeOf(entry.key);
    if (!type) return;
    const std::string target = locate(locator, path, entry, componentLine(entry).file);
    const Origin origin{path, entry.number};
    if (!target.empty() && traitsOf(*type).hasCode) file(target, type, &origin);
  }

  std::string locate(Locator& locator, const std::string& path, const ProjectEntry& entry,
                     std::string_view named) {
    if (named.empty()) {
      report(path, entry.number, "the line names no file");
      return {};
    }
    Place place = locator.finder.find(std::string(folderOf(path)), named);
    if (place.kind == PlaceKind::kFile) return std::move(place.path);
    report(path, entry.number,
           place.kind == PlaceKind::kFolder ? "is a folder, not a file: " + locator.paths.shown(named)
                                            : locator.paths.notFound("file", named));
    return {};
  }

  void component(const std::string& path, const platform::ReadFile& read, frame::ComponentType type) {
    // Two names may lead to one file.
    if (!seenFiles_.insert({read.stamp.device, read.stamp.inode}).second) return;
    const std::string_view bytes = read.content->bytes();
    if (const std::string reason = whyNoModule(bytes); !reason.empty()) return report(path, 0, reason);
    ++report_.files;
    report_.lines += countLines(bytes);
    std::vector<Problem> faults;
    ComponentHeader header = ComponentHeader::parse(read.content, bytes, path, faults);
    for (const Problem& fault : faults) report(path, fault.line, Paths(files_, *page_).shown(fault.reason));
    const CodeKind kind =
        type == frame::ComponentType::kStdModule ? CodeKind::kStandardModule : CodeKind::kObjectModule;
    const CodeText code(kind, read.content, bytes.substr(header.codeOffset()));
    written_.clear();
    header.appendBytes(written_);
    code.appendBytes(written_);
    if (compare(path, bytes, written_)) designer(path, bytes.substr(0, header.codeOffset()), header);
  }

  // The header writes its designer's block as it was until the designer is edited; here it goes through the
  // tree.
  void designer(const std::string& path, std::string_view header, ComponentHeader& source) {
    DesignerTree* tree = source.designer();
    if (tree == nullptr || tree->root() == nullptr) return;
    written_.clear();
    tree->appendBytes(written_);
    const std::string_view first = std::string_view(written_).substr(0, written_.find_first_of("\r\n"));
    const std::size_t start = std::min(header.find(first), header.size());
    const std::string_view block = header.substr(start, written_.size());
    if (block != written_) differ(path, start, block, written_);
  }

  // True when both are the same.
  bool compare(const std::string& path, std::string_view before, std::string_view after) {
    report_.bytes += before.size();
    if (before == after) return true;
    differ(path, 0, before, after);
    return false;
  }

  void differ(const std::string& path, std::size_t base, std::string_view before, std::string_view after) {
    std::size_t shown = 0;
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
      if (byteAt(before, i) == byteAt(after, i)) continue;
      ++report_.differingBytes;
      if (shown++ < kShownDifferences)
        report_.differences.push_back({path, base + i, byteAt(before, i), byteAt(after, i)});
    }
  }

  platform::Files& files_;
  const platform::CodePages& pages_;
  bool recognises_;
  const base::CodePage& given_;
  const base::CodePage* page_ = &given_;              // of the project that is read
  std::map<int, std::unique_ptr<Locator>> locators_;  // by page
  const std::function<void(const std::string&)>& onFile_;
  VerifyReport report_;
  std::vector<std::string> folders_;
  std::unordered_set<std::string> seenPaths_;
  std::set<std::pair<std::uint64_t, std::uint64_t>> seenFiles_;
  std::string written_;
};

}  // namespace

VerifyReport verify(platform::Files& files, const VerifyPages& pages, const std::vector<std::string>& paths,
                    const std::function<void(const std::string& file)>& onFile) {
  Verifier verifier(files, pages, onFile);
  for (const std::string& path : paths) verifier.path(path);
  return verifier.take();
}

}  // namespace kolvane::workspace
