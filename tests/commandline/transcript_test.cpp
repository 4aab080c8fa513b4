// Whole commands as people type them, with what they print: the cases in transcripts.txt.
//
// - "=== a module that does not exist" begins a case and names it.
// - "--- /p/Test.vbp" is a file, its lines below, with CR LF at each line's end. "readonly" behind the path takes the
//   permission to write away; "full" lets each write of it fail as on a full disk; "linked" gives it a second name.
//   A file at "/settings.db" is a damaged settings file. A line "{257} With x" stands for so many of them.
// - "--- run" begins the commands; behind "--- run without output" all that they print is lost.
// - "$ header /p/Test.vbp --modules Nix" is one: blanks within "…" stay together, ' stands for a quote, "< text" is
//   the input. Below stands what it prints: out, then the lines of err with "! " in front, then the exit status in
//   brackets when it is not 0. "$ cat /p/Module1.bas" prints a file as it stands.
//
// Several commands of a case follow each other over the same files and settings.
#include <gtest/gtest.h>

#include <fstream>

#include "machine.h"

namespace kolvane::commandline {
namespace {

struct Transcript {
  std::string name;
  std::vector<std::string> lines;
};

std::vector<Transcript> readTranscripts(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::vector<Transcript> all;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("=== "))
      all.push_back({line.substr(4), {}});
    else if (!all.empty())
      all.back().lines.push_back(line);
  }
  return all;
}

constexpr long kDiskFull = 61;

void putFile(Machine& machine, const std::string& header, const std::vector<std::string>& lines) {
  const auto words = base::split(header, " ");
  std::string text;
  for (const auto& line : lines) {
    const std::size_t end = line.starts_with('{') ? line.find("} ") : std::string::npos;
    const int times = end == std::string::npos ? 1 : std::stoi(line.substr(1));
    for (int i = 0; i < times; ++i) text += (end == std::string::npos ? line : line.substr(end + 2)) + "\r\n";
  }
  const bool inPage = words.size() > 1 && base::isDigit(words[1].front());
  const base::CodePage& page = machine.codePages->get(inPage ? std::stoi(words[1]) : 1252);
  machine.files.replace(words[0], page.fromUtf8(text));
  if (words.size() > 1 && words[1] == "readonly") machine.files.setAttributes(words[0], 33);
  if (words.size() > 1 && words[1] == "full") machine.files.failReplacing(words[0], kDiskFull);
  if (words.size() > 1 && words[1] == "linked") machine.files.setNameCount(words[0], 2);
}

class TranscriptTest : public testing::Test {
 public:
  explicit TranscriptTest(Transcript transcript) : transcript_(std::move(transcript)) {}

  void TestBody() override {
    Machine machine;
    std::string expected, actual;
    const auto& lines = transcript_.lines;
    std::size_t i = 0;
    while (i < lines.size() && !lines[i].starts_with("--- run")) {
      ASSERT_TRUE(lines[i].starts_with("--- ")) << lines[i];
      const std::string header = lines[i++].substr(4);
      std::vector<std::string> content;
      while (i < lines.size() && !lines[i].starts_with("--- ")) content.push_back(lines[i++]);
      putFile(machine, header, content);
    }
    machine.outputFails = i < lines.size() && lines[i] == "--- run without output";
    for (++i; i < lines.size(); ++i) {
      if (lines[i].empty() && i + 1 == lines.size()) break;
      expected += lines[i] + "\n";
      if (lines[i].starts_with("$ ")) actual += lines[i] + "\n" + machine.run(lines[i].substr(2));
    }
    EXPECT_EQ(actual, expected);
  }

 private:
  Transcript transcript_;
};

[[maybe_unused]] const bool kRegistered = [] {
  const std::string path = std::string(KOLVANE_SOURCE_DIR) + "/tests/commandline/transcripts.txt";
  for (const Transcript& transcript : readTranscripts(path)) {
    std::string name = transcript.name;
    for (char& c : name)
      if (!base::isWordCharacter(c)) c = '_';
    testing::RegisterTest("CommandLine", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [transcript]() -> testing::Test* { return new TranscriptTest(transcript); });
  }
  return true;
}();

TEST(CommandsCommand, whatIsNotInThisVersionIsListedOnlyWhenAllIsAskedFor) {
  Machine machine;
  const std::string listed = machine.run("commands") + machine.run("commands --json");
  EXPECT_NE(listed.find("Sort Lines"), std::string::npos) << listed;
  EXPECT_EQ(listed.find("Search"), std::string::npos) << listed;
  const std::string all = machine.run("commands --all");
  EXPECT_NE(all.find("\n   thshgg546fhfg"), std::string::npos) << all;
  EXPECT_NE(all.find("\n-  SS66"), std::string::npos) << all;
}

}  // namespace
}  // namespace kolvane::commandline
