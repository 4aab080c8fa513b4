// The samples of docs/guide/writing-code.md are what the commands really write: each "before" block is put into a
// module of a project, the commands are run, and the module must then be the "after" block.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <set>

#include "machine.h"

namespace kolvane::commandline {
namespace {

// A block between fences, such as "```vb before Rates.bas", with the line of its fence.
struct Block {
  std::string language;
  std::string part;
  std::string file;
  std::string text;
  int line = 0;
};

std::vector<Block> blocksOf(std::istream& guide) {
  std::vector<Block> blocks;
  bool inside = false;
  int number = 0;
  for (std::string line; std::getline(guide, line);) {
    ++number;
    if (line.starts_with("```")) {
      inside = !inside;
      if (!inside) continue;
      Block block;
      std::istringstream words(line.substr(3));
      words >> block.language >> block.part >> block.file;
      block.line = number;
      blocks.push_back(block);
    } else if (inside) {
      blocks.back().text.append(line).append("\n");
    }
  }
  return blocks;
}

// Blanks at the ends of lines and of the text do not show.
std::string shown(const std::string& text) {
  std::vector<std::string> lines;
  for (const std::string_view line : base::splitLines(text)) {
    const std::size_t last = line.find_last_not_of(" \t");
    lines.emplace_back(line.substr(0, last == std::string_view::npos ? 0 : last + 1));
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return base::join(lines, "\n");
}

class Guide {
 public:
  void take(const Block& block) {
    if (block.language == "sh") {
      runAll(block.text);
    } else if (block.part == "before") {
      machine_ = std::make_unique<Machine>();
      for (const Block& file : files_) machine_->files.replace("/" + file.file, file.text);
      files_.clear();
      const std::string type = isClass(block.file) ? "Class" : "Module";
      const std::string name = nameOf(block.file);
      machine_->files.replace(
          "/Project.vbp", "Type=Exe\r\n" + type + "=" + name + "; " + block.file + "\r\nName=\"Shop\"\r\n");
      machine_->files.replace("/" + block.file,
                              headOf(block.file) + base::replaceAll(block.text, "\n", "\r\n"));
    } else if (block.part == "after") {
      const std::string all = machine_->run("cat /" + block.file);
      const std::string head = base::replaceAll(headOf(block.file), "\r\n", "\n");
      ASSERT_TRUE(all.starts_with(head)) << all;
      EXPECT_EQ(shown(all.substr(head.size())), shown(block.text));
      ++samples;
    } else {
      files_.push_back(block);
    }
  }

  int samples = 0;
  std::set<std::string> commands;

 private:
  void runAll(const std::string& text) {
    for (const std::string& line : base::split(base::replaceAll(text, "\\\n", ""), "\n")) {
      if (line.empty()) continue;
      constexpr std::string_view kProgram = "kolvane ";
      ASSERT_TRUE(line.starts_with(kProgram)) << line;
      const std::string command = line.substr(kProgram.size());
      commands.insert(command.substr(0, command.find(' ')));
      const std::string said = machine_->run(command);
      EXPECT_FALSE(said.ends_with("]\n")) << line << "\n" << said;
    }
  }

  static bool isClass(const std::string& file) { return file.ends_with(".cls"); }
  static std::string nameOf(const std::string& file) { return file.substr(0, file.find('.')); }
  static std::string headOf(const std::string& file) {
    const std::string version =
        isClass(file) ? "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n" : "";
    return version + "Attribute VB_Name = \"" + nameOf(file) + "\"\r\n";
  }

  std::unique_ptr<Machine> machine_;
  std::vector<Block> files_;  // for the next machine
};

TEST(WritingGuide, SamplesAreWhatTheCommandsWrite) {
  std::ifstream file(std::string(KOLVANE_SOURCE_DIR) + "/docs/guide/writing-code.md");
  ASSERT_TRUE(file) << "the guide is not there";
  Guide guide;
  for (const Block& block : blocksOf(file)) {
    SCOPED_TRACE("line " + std::to_string(block.line));
    guide.take(block);
    if (testing::Test::HasFatalFailure()) return;
  }
  EXPECT_EQ(guide.commands,
            (std::set<std::string>{"autocode", "handlers", "header", "new", "run", "settings"}));
  EXPECT_GT(guide.samples, 0);
}

}  // namespace
}  // namespace kolvane::commandline
