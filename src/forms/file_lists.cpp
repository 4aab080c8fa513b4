#include "forms/file_lists.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

namespace {

bool isRoot(std::string_view path) { return path.size() <= 3 && path.size() >= 2 && path[1] == ':'; }

// Without a last "\", but "C:\" for a root.
std::string normalised(std::string_view path) {
  std::string result(path);
  while (result.size() > 1 && result.back() == '\\') result.pop_back();
  if (isRoot(result)) result += '\\';
  return result;
}

std::string joined(const std::string& path, const std::string& name) {
  return path.empty() || path.back() == '\\' ? path + name : path + "\\" + name;
}

std::string parentOf(const std::string& path) {
  const auto slash = path.rfind('\\');
  return slash == std::string::npos || slash == 0 ? "\\" : normalised(path.substr(0, slash));
}

bool hasParent(const std::string& path) { return !path.empty() && path != "\\" && !isRoot(path); }

bool matches(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  std::size_t n = 0, p = 0, star = std::string_view::npos, mark = 0;
  while (n < name.size()) {
    if (p < pattern.size() &&
        (pattern[p] == '?' ||
         (pattern[p] != '*' && base::equalNoCase(name.substr(n, 1), pattern.substr(p, 1))))) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      mark = n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace

// DriveList

DriveList::DriveList(Form& form, std::string_view name, FolderSource& source)
    : ListControl(form, Kind::kDriveList, name) {
  addItems(source.drives());
  if (listCount() > 0) listIndex_ = 0;
}

std::string DriveList::drive() const { return listIndex() < 0 ? std::string() : list(listIndex()); }

void DriveList::setDrive(std::string_view drive) {
  for (int i = 0; i < listCount(); ++i)
    if (!drive.empty() && base::startsWithNoCase(list(i), drive.substr(0, 1))) return setListIndex(i);
  constexpr long kDeviceUnavailable = 68;
  throw base::Error(kDeviceUnavailable, "There is no drive \"" + std::string(drive) + "\".");
}

void DriveList::describe(ControlState& state) const {
  ListControl::describe(state);
  state.text = drive();
}

// FolderList

FolderList::FolderList(Form& form, std::string_view name, FolderSource& source)
    : ListControl(form, Kind::kFolderList, name), source_(source) {}

void FolderList::setPath(std::string_view path) {
  std::string next = normalised(path);
  const auto folders = source_.folders(next);
  const bool differs = next != path_;
  path_ = std::move(next);
  clear();
  if (hasParent(path_)) addItem("..");
  addItems(folders);
  if (differs) raise(onChange);
}

void FolderList::enter(int index) {
  if (index >= 0) setPath(list(index) == ".." ? parentOf(path_) : joined(path_, list(index)));
}

Deed FolderList::takeText(std::string_view text) {
  return [this, path = std::string(text)] { setPath(path); };
}

Deed FolderList::takeDoubleClick(const Spot& spot) {
  const Deed select = spot.row ? takeSelection(spot, false) : Deed();
  return [this, select] {
    if (select) select();
    if (form().visible()) enter(listIndex());
    if (form().visible()) raise(onDblClick);
  };
}

bool FolderList::takeKey(int key, int shift) {
  if (key == keys::kEnter && shift == 0 && listIndex() >= 0) {
    enter(listIndex());
    return true;
  }
  return ListControl::takeKey(key, shift);
}

void FolderList::describe(ControlState& state) const {
  ListControl::describe(state);
  state.text = path_;
}

// FileList

FileList::FileList(Form& form, std::string_view name, FolderSource& source)
    : ListControl(form, Kind::kFileList, name), source_(source) {}

void FileList::setPath(std::string_view path) {
  const std::string next = normalised(path);
  refill(source_.files(next));
  path_ = next;
}

void FileList::setPattern(std::string_view pattern) {
  pattern_ = pattern;
  if (!path_.empty()) refill(source_.files(path_));
}

void FileList::refill(const std::vector<std::string>& files) {
  const auto patterns = base::split(pattern_, ";");
  clear();
  for (const auto& file : files)
    if (std::any_of(patterns.begin(), patterns.end(),
                    [&](const auto& pattern) { return matches(file, base::trim(pattern)); }))
      addItem(file);
}

void FileList::describe(ControlState& state) const {
  ListControl::describe(state);
  state.text = path_;
}

}  // namespace kolvane::forms
