// kolvane-generate: writes a generated project to a folder.
#include <CLI/CLI.hpp>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "generate/generator.h"

namespace {

namespace fs = std::filesystem;
using kolvane::generate::GeneratedFile;
using kolvane::generate::Options;

void writeFile(const fs::path& folder, const GeneratedFile& file) {
  const fs::path path = folder / file.path;
  fs::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary);
  out.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
  out.close();
  if (!out) throw std::runtime_error(path.string() + ": cannot be written");
}

void writeProject(const fs::path& folder, const Options& options) {
  const auto files = kolvane::generate::generate(options);
  std::size_t bytes = 0;
  for (const GeneratedFile& file : files) {
    writeFile(folder, file);
    bytes += file.bytes.size();
  }
  std::cout << (folder / files.front().path).string() << ": " << files.size() << " files, " << bytes
            << " bytes\n";
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  std::string folder;
  CLI::App app(
      "Writes a Visual Basic 6 project in the manner of real ones. The same options give the same bytes.");
  app.add_option("--out", folder, "Folder to write to; made when it is missing")->required();
  app.add_option("--lines", options.lines, "Lines of all component files together")->capture_default_str();
  app.add_option("--files", options.files, "Component files")->capture_default_str();
  app.add_option("--seed", options.seed, "Another number, another project")->capture_default_str();
  app.add_option("--module-lines", options.moduleLines, "One standard module of so many code lines instead");
  app.add_option("--procedures", options.procedures, "Procedures of that module");
  CLI11_PARSE(app, argc, argv);
  try {
    writeProject(folder, options);
    return 0;
  } catch (const std::invalid_argument& error) {
    std::cerr << "kolvane-generate: " << error.what() << "\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "kolvane-generate: " << error.what() << "\n";
    return 3;
  }
}
