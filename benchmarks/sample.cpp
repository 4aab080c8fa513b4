#include "sample.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "adapters/system/posix_files.h"

namespace kolvane::benchmarks {

namespace {

namespace fs = std::filesystem;

void writeFile(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw std::runtime_error(path.string() + ": cannot be written");
}

bool isComponent(const std::string& path) {
  return path.ends_with(".bas") || path.ends_with(".cls") || path.ends_with(".frm") || path.ends_with(".ctl");
}

}  // namespace

Sample writeSample(const std::string& folder, const std::string& name, const generate::Options& options) {
  Sample sample;
  sample.folder = (fs::path(folder) / name).string();
  for (const generate::GeneratedFile& file : generate::generate(options)) {
    const fs::path path = fs::path(sample.folder) / file.path;
    writeFile(path, file.bytes);
    if (file.path.ends_with(".vbp")) sample.project = path.string();
    if (!isComponent(file.path)) continue;
    sample.components.push_back(path.string());
    sample.lines += static_cast<std::size_t>(std::count(file.bytes.begin(), file.bytes.end(), '\n'));
    sample.bytes += file.bytes.size();
  }
  return sample;
}

OpenProject openUnread(const std::string& project) {
  OpenProject opened;
  opened.files = adapters::makePosixFiles();
  opened.clipboard = std::make_unique<platform::MemoryClipboard>();
  opened.host = workspace::Workspace::create(*opened.files, *opened.clipboard,
                                             base::CodePage::get(base::CodePage::kDefault));
  opened.project = opened.host->open(project).at(0);
  if (!opened.host->problems().empty()) throw std::runtime_error(opened.host->problems().front().text());
  return opened;
}

OpenProject open(const std::string& project) {
  OpenProject opened = openUnread(project);
  for (const auto& component : opened.project->VBComponents()->items()) {
    opened.modules.push_back(component->CodeModule());
    opened.procedures += opened.host->procedures(component).size();
  }
  return opened;
}

}  // namespace kolvane::benchmarks
