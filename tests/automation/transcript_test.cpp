// Every transcript of transcripts/ is a test. With KOLVANE_REWRITE set, those that differ are
// written anew, to be read before they are kept.
#include "transcript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "automation/method_table.h"

namespace kolvane::test {
namespace {

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

std::vector<std::string> transcriptFiles() {
  std::vector<std::string> paths;
  for (const auto& entry :
       std::filesystem::directory_iterator(KOLVANE_SOURCE_DIR "/tests/automation/transcripts"))
    paths.push_back(entry.path().string());
  std::sort(paths.begin(), paths.end());
  return paths;
}

class TranscriptTest : public testing::Test {
 public:
  explicit TranscriptTest(Transcript transcript) : transcript_(std::move(transcript)) {}
  void TestBody() override { EXPECT_EQ(joined(play(transcript_)), joined(transcript_.lines)); }

 private:
  Transcript transcript_;
};

std::string testName(std::string name) {
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  return name;
}

void rewrite(const std::string& path, const std::vector<Transcript>& transcripts) {
  std::string text;
  for (const Transcript& transcript : transcripts)
    text += (text.empty() ? "=== " : "\n=== ") + transcript.name + "\n" + joined(transcript.remarks) +
            joined(play(transcript));
  std::ofstream(path, std::ios::binary) << text;
}

bool registerTranscripts() {
  for (const std::string& path : transcriptFiles()) {
    const auto transcripts = readTranscripts(path);
    if (std::getenv("KOLVANE_REWRITE") != nullptr) rewrite(path, transcripts);
    const std::string suite = "Transcripts_" + testName(std::filesystem::path(path).stem().string());
    for (const Transcript& transcript : transcripts)
      testing::RegisterTest(suite.c_str(), testName(transcript.name).c_str(), nullptr, nullptr, path.c_str(),
                            transcript.line,
                            [transcript]() -> TranscriptTest* { return new TranscriptTest(transcript); });
  }
  return true;
}

const bool kRegistered = registerTranscripts();

TEST(Transcripts, CallEveryMethod) {
  std::set<std::string> called;
  for (const std::string& path : transcriptFiles())
    for (const Transcript& transcript : readTranscripts(path))
      for (const std::string& line : transcript.lines)
        if (const std::size_t start = line.find(' ') + 1;
            line.starts_with('>') && line.find('/') != std::string::npos)
          called.insert(line.substr(start, std::min(line.find(' ', start), line.size()) - start));
  for (const automation::Method& method : automation::allMethods())
    EXPECT_TRUE(called.contains(std::string(method.name))) << method.name;
  EXPECT_TRUE(kRegistered);
}

}  // namespace
}  // namespace kolvane::test
