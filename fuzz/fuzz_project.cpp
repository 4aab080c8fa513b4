// Projects and groups: opening never fails on what a file holds, and every file comes back byte for byte.
// Files are parted by lines that begin with "--- ", the rest of which is the name.
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "platform/memory_files.h"
#include "workspace/verify.h"
#include "workspace/workspace.h"

namespace {

using namespace kolvane;

// Names stay in one folder, so that the fuzzer finds files that name each other.
std::string pathOf(std::string_view name) {
  std::string path = "/p/f";
  for (const char c : name.substr(0, 24)) path.push_back(base::isWordCharacter(c) || c == '.' ? c : '_');
  return path;
}

void put(platform::MemoryFiles& files, std::string_view text) {
  constexpr std::string_view kMark = "--- f";
  while (text.starts_with(kMark)) {
    const std::size_t nameEnd = std::min(text.find('\n'), text.size());
    const std::string path = pathOf(text.substr(kMark.size(), nameEnd - kMark.size()));
    const std::size_t next = text.find("\n--- f", nameEnd);
    const std::size_t end = next == std::string_view::npos ? text.size() : next + 1;
    files.replace(path, text.substr(std::min(nameEnd + 1, end), end - std::min(nameEnd + 1, end)));
    text.remove_prefix(end);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  platform::MemoryFiles files;
  files.addFolder("/p");
  put(files, {reinterpret_cast<const char*>(data), size});
  const base::CodePage& page = base::CodePage::get(base::CodePage::kDefault);
  platform::MemoryClipboard clipboard;
  for (const auto& entry : files.list("/p")) {
    const std::string path = "/p/" + entry.name;
    try {
      const auto workspace = workspace::Workspace::create(files, clipboard, page);
      workspace->open(path);
      if (!workspace->changedFiles().empty()) std::abort();
    } catch (const base::Error&) {
      // no project, or one that cannot be read
    }
  }
  if (workspace::verify(files, {platform::CodePages(), {}}, {"/p"}).differingBytes != 0) std::abort();
  return 0;
}
