#include "workspace/paths.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

constexpr std::string_view kSeparators = "\\/";

std::size_t separatorIn(std::string_view path, const base::CodePage& page) {
  if (!page.isDoubleByte()) return path.find_first_of(kSeparators);
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t size = page.characterSize(path, at);
    if (size == 1 && kSeparators.find(path[at]) != std::string_view::npos) return at;
    at += size;
  }
  return std::string_view::npos;
}

std::vector<std::string_view> namesOf(std::string_view path, const base::CodePage& page) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::size_t end = separatorIn(path, page);
    const std::string_view name = path.substr(0, end);
    if (!name.empty() && name != ".") names.push_back(name);
    if (end == std::string_view::npos) break;
    path.remove_prefix(end + 1);
  }
  return names;
}

std::string joined(std::string folder, std::string_view name) {
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder.append(name);
}

std::string parentOf(const std::string& folder) {
  const std::string_view parent = folderOf(folder);
  return parent.empty() ? "/" : std::string(parent);
}

// Takes "name\.." pairs out and goes up from `folder` for each ".." in front.
void goUp(std::string& folder, std::vector<std::string_view>& names) {
  std::vector<std::string_view> kept;
  for (const std::string_view name : names) {
    if (name != "..") {
      kept.push_back(name);
    } else if (!kept.empty()) {
      kept.pop_back();
    } else {
      folder = parentOf(folder);
    }
  }
  names = std::move(kept);
}

}  // namespace

std::string_view fileName(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view folderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  if (separator == std::string_view::npos) return {};
  return path.substr(0, std::max<std::size_t>(separator, 1));
}

std::string_view baseName(std::string_view path) {
  const std::string_view name = fileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? name : name.substr(0, dot);
}

std::string extension(std::string_view path) {
  const std::string_view name = fileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : base::lCase(name.substr(dot));
}

// ---- Paths

std::string Paths::nameToSystem(std::string_view hostName) const {
  return base::isAscii(hostName) ? std::string(hostName) : codePage_.toUtf8(hostName);
}

std::string Paths::shown(std::string_view name) const {
  return base::isUtf8(name) ? std::string(name) : nameToSystem(name);
}

std::string Paths::notFound(std::string_view what, std::string_view name) const {
  const std::string text = std::string(what) + " not found: " + shown(name);
  return base::isAscii(name) ? text : text + " (if the name is misread: --code-page tells the code page)";
}

std::vector<std::string_view> Paths::namesIn(std::string_view hostPath) const {
  return namesOf(hostPath, codePage_);
}

std::string_view Paths::fileNameIn(std::string_view hostPath) const {
  const std::vector<std::string_view> names = namesIn(hostPath);
  return names.empty() ? std::string_view() : names.back();
}

std::string Paths::nameToHost(std::string_view systemName) const {
  if (base::isAscii(systemName)) return std::string(systemName);
  try {
    return codePage_.fromUtf8(systemName);
  } catch (const base::Error&) {
    return std::string(systemName);
  }
}

std::string Paths::plainToHost(std::string_view systemPath) const {
  std::string path = nameToHost(systemPath);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

std::string Paths::plainToSystem(std::string_view hostPath) const {
  std::string path = nameToSystem(hostPath);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::string Paths::toHost(const std::string& systemPath) {
  std::string host = plainToHost(systemPath);
  if (plainToSystem(host) != systemPath) {
    const std::string systemFolder(folderOf(systemPath));
    exceptions_[plainToHost(systemFolder)] = systemFolder;
    exceptions_[host] = systemPath;
  }
  return host;
}

std::optional<std::string> Paths::remembered(std::string_view hostPath) const {
  for (std::string_view start = hostPath; !exceptions_.empty() && !start.empty();) {
    if (const auto found = exceptions_.find(std::string(start)); found != exceptions_.end())
      return found->second + plainToSystem(hostPath.substr(start.size()));
    const std::string_view folder = folderOf(start);
    if (folder.size() == start.size()) break;
    start = folder;
  }
  return std::nullopt;
}

std::string Paths::toSystem(std::string_view path) {
  if (const auto found = remembered(path)) return *found;
  if (path.starts_with('/') && files_.stamp(std::string(path))) return files_.absolute(std::string(path));
  const std::string plain = files_.absolute(plainToSystem(path));
  if (files_.stamp(plain)) return plain;
  return PathFinder(*this).find("/", nameToHost(plain)).path;
}

std::string Paths::relative(const std::string& systemFolder, const std::string& systemPath) {
  const base::CodePage& utf8 = base::CodePage::utf8();
  const std::vector<std::string_view> from = namesOf(systemFolder, utf8);
  const std::vector<std::string_view> to = namesOf(systemPath, utf8);
  const std::size_t most = to.empty() ? 0 : std::min(from.size(), to.size() - 1);
  std::size_t same = 0;
  while (same < most && from[same] == to[same]) ++same;
  std::string result;
  for (std::size_t i = same; i < from.size(); ++i) result += "..\\";
  for (std::size_t i = same; i < to.size(); ++i) {
    if (i > same) result += '\\';
    result += nameToHost(to[i]);
  }
  return result;
}

// ---- PathFinder

Place PathFinder::find(const std::string& systemFolder, std::string_view path) {
  std::string start = path.starts_with('\\') || path.starts_with('/') ? "/" : systemFolder;
  std::vector<std::string_view> names = paths_.namesIn(path);
  goUp(start, names);
  if (auto place = exact(start, names)) return *place;
  return search(std::move(start), names);
}

std::optional<Place> PathFinder::exact(const std::string& folder,
                                       const std::vector<std::string_view>& names) {
  std::string asSystem = folder;
  std::string asWritten = folder;
  for (const std::string_view name : names) {
    asSystem = joined(std::move(asSystem), paths_.nameToSystem(name));
    asWritten = joined(std::move(asWritten), name);
  }
  if (paths_.files().stamp(asSystem)) return Place{asSystem, PlaceKind::kFile};
  if (names_ == Names::kOfThePageOrUtf8 && asWritten != asSystem && paths_.files().stamp(asWritten))
    return Place{asWritten, PlaceKind::kFile};
  return std::nullopt;
}

Place PathFinder::search(std::string folderPath, const std::vector<std::string_view>& names) {
  Place place{std::move(folderPath), PlaceKind::kFolder};
  for (const std::string_view name : names) {
    const Name* found = place.kind == PlaceKind::kFolder ? look(place.path, name) : nullptr;
    place.path = joined(std::move(place.path), found ? found->spelled : paths_.nameToSystem(name));
    place.kind = !found ? PlaceKind::kMissing : found->isFolder ? PlaceKind::kFolder : PlaceKind::kFile;
  }
  return place;
}

const PathFinder::Name* PathFinder::look(const std::string& folderPath, std::string_view name) {
  const Folder& names = folder(folderPath);
  const auto [first, last] = names.equal_range(paths_.codePage().lower(name));
  const std::string exactName = paths_.nameToSystem(name);
  const Name* best = nullptr;
  for (auto each = first; each != last; ++each) {
    if (each->second.spelled == exactName) return &each->second;
    if (best == nullptr || each->second.spelled < best->spelled) best = &each->second;
  }
  return best;
}

const PathFinder::Folder& PathFinder::folder(const std::string& path) {
  const auto [place, isNew] = folders_.try_emplace(path);
  if (!isNew) return place->second;
  try {
    for (platform::DirectoryEntry& entry : paths_.files().list(path)) {
      const std::string name = paths_.nameToHost(entry.name);
      if (names_ == Names::kOfThePage && paths_.nameToSystem(name) != entry.name) continue;
      std::string key = paths_.codePage().lower(name);
      place->second.emplace(std::move(key), Name{std::move(entry.name), entry.isDirectory});
    }
  } catch (const base::Error&) {
    // A folder that cannot be read shows no names; what was looked for in it counts as missing.
  }
  return place->second;
}

}  // namespace kolvane::workspace
