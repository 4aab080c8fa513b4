// The generated projects keep what their contract says: the same bytes for the same options, the counts that
// were asked for, balanced blocks, clean bytes.
#include "generate/generator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>
#include <stdexcept>

namespace kolvane::generate {
namespace {

bool isComponent(const GeneratedFile& file) {
  return file.path.ends_with(".bas") || file.path.ends_with(".cls") || file.path.ends_with(".frm") ||
         file.path.ends_with(".ctl");
}

std::vector<std::string> linesOf(const std::string& bytes) {
  std::vector<std::string> lines;
  std::istringstream in(bytes);
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

// The line without its comment, strings emptied, blanks at both ends removed.
std::string bare(const std::string& line) {
  std::string code;
  bool quoted = false;
  for (const char c : line) {
    if (c == '\'' && !quoted) break;
    if (c == '"') quoted = !quoted;
    if (!quoted) code += c;
  }
  const std::size_t first = code.find_first_not_of(' ');
  if (first == std::string::npos || code.starts_with("Rem ")) return {};
  return code.substr(first, code.find_last_not_of(' ') - first + 1);
}

// Code as logical lines: continued ones joined, line numbers removed.
std::vector<std::string> statementsOf(const std::vector<std::string>& lines, std::size_t from) {
  std::vector<std::string> statements;
  std::string joined;
  for (std::size_t i = from; i < lines.size(); ++i) {
    const bool comment = lines[i].find_first_not_of(' ') != std::string::npos &&
                         lines[i][lines[i].find_first_not_of(' ')] == '\'' && joined.empty();
    if (comment) {
      while (lines[i].ends_with(" _") && i + 1 < lines.size()) ++i;
      continue;
    }
    std::string code = bare(lines[i]);
    const bool continued = code.ends_with(" _");
    if (continued) code.resize(code.size() - 1);
    joined += code;
    if (continued) continue;
    while (!joined.empty() && (std::isdigit(static_cast<unsigned char>(joined[0])) != 0 || joined[0] == ' '))
      joined.erase(0, 1);
    if (!joined.empty()) statements.push_back(joined);
    joined.clear();
  }
  return statements;
}

// What a statement opens or closes; each block is told by the words that end it.
struct Opener {
  std::string_view begin;
  std::string_view end;
};
constexpr Opener kOpeners[] = {
    {"For ", "Next"},
    {"Do", "Loop"},
    {"While ", "Wend"},
    {"Select Case ", "End Select"},
    {"With ", "End With"},
    {"#If ", "#End If"},
    {"Sub ", "End Sub"},
    {"Function ", "End Function"},
    {"Property ", "End Property"},
    {"Type ", "End Type"},
    {"Enum ", "End Enum"},
};

std::string_view withoutModifiers(std::string_view statement) {
  for (const std::string_view word : {"Public ", "Private ", "Friend ", "Static "})
    if (statement.starts_with(word)) statement.remove_prefix(word.size());
  return statement;
}

// The end that a statement asks for; empty when it opens nothing.
std::string_view endOf(std::string_view statement) {
  if (statement.starts_with("If ")) return statement.ends_with(" Then") ? "End If" : "";
  const std::string_view title = withoutModifiers(statement);
  for (const Opener& opener : kOpeners)
    if (title.starts_with(opener.begin) &&
        (opener.begin != "Do" || title == "Do" || title.starts_with("Do ")))
      return opener.end;
  return {};
}

bool closes(std::string_view statement, std::string_view end) {
  return statement == end || statement.ends_with(": " + std::string(end)) ||
         statement.starts_with(std::string(end) + " ");
}

bool isTitle(std::string_view end) {
  return end == "End Sub" || end == "End Function" || end == "End Property";
}

// The first fault of the code, empty when every block has its end; `procedures` counts the ends of
// procedures.
std::string unbalanced(const std::vector<std::string>& statements, int& procedures) {
  std::vector<std::string_view> open;
  // A second title in an #Else belongs to the one body below.
  bool alternative = false;
  for (const std::string& statement : statements) {
    if (!open.empty() && closes(statement, open.back())) {
      if (isTitle(open.back())) ++procedures;
      open.pop_back();
      continue;
    }
    const std::string_view end = endOf(statement);
    if (isTitle(end) && !open.empty() && open.back() == "#End If") {
      if (!alternative) open.insert(open.end() - 1, end);
      alternative = !alternative;
      continue;
    }
    if (isTitle(end) && !open.empty()) return "a title inside a block: " + statement;
    if (!end.empty()) open.push_back(end);
    for (const Opener& opener : kOpeners)
      if (end.empty() && closes(statement, opener.end)) return "nothing to close: " + statement;
  }
  return open.empty() ? std::string() : "still open at the end: " + std::string(open.back());
}

std::size_t codeStart(const std::vector<std::string>& lines) {
  std::size_t i = 0;
  while (!lines[i].starts_with("Attribute VB_Name")) ++i;
  while (i < lines.size() && lines[i].starts_with("Attribute VB_")) ++i;
  return i;
}

// Levels of Begin and BeginProperty in front of the code; -1 where an End is too many.
int designerLevel(const std::vector<std::string>& lines) {
  int level = 0;
  for (std::size_t i = 0; i < codeStart(lines) && level >= 0; ++i) {
    const std::string line = bare(lines[i]);
    if (line.starts_with("Begin")) ++level;
    if (line == "End" || line == "EndProperty") --level;
  }
  return level;
}

class Generated : public testing::TestWithParam<int> {
 protected:
  const Options options_{static_cast<std::uint64_t>(GetParam()), 45, 24'000};
  const std::vector<GeneratedFile> files_ = generate(options_);
};

TEST_P(Generated, SameOptionsSameBytesOtherSeedOtherBytes) {
  const auto again = generate(options_);
  ASSERT_EQ(files_.size(), again.size());
  for (std::size_t i = 0; i < files_.size(); ++i) {
    EXPECT_EQ(files_[i].path, again[i].path);
    EXPECT_EQ(files_[i].bytes, again[i].bytes);
  }
  Options other = options_;
  other.seed += 1000;
  EXPECT_NE(files_[1].bytes, generate(other)[1].bytes);
}

TEST_P(Generated, CountsAndKindsAreThoseAskedFor) {
  std::size_t lines = 0;
  int components = 0;
  std::set<std::string> kinds;
  std::set<std::string> paths;
  for (const GeneratedFile& file : files_) {
    EXPECT_TRUE(paths.insert(file.path).second) << file.path;
    if (!isComponent(file)) continue;
    ++components;
    kinds.insert(file.path.substr(file.path.size() - 4));
    lines += linesOf(file.bytes).size();
  }
  EXPECT_EQ(components, options_.files);
  EXPECT_EQ(lines, static_cast<std::size_t>(options_.lines));
  EXPECT_EQ(kinds.size(), 4U);
}

TEST_P(Generated, EveryBlockHasItsEnd) {
  int procedures = 0;
  for (const GeneratedFile& file : files_) {
    if (!isComponent(file)) continue;
    const auto lines = linesOf(file.bytes);
    EXPECT_EQ(designerLevel(lines), 0) << file.path;
    EXPECT_EQ(unbalanced(statementsOf(lines, codeStart(lines)), procedures), "") << file.path;
  }
  EXPECT_NEAR(procedures, options_.lines * 71 / 100 / 33, 150);
}

TEST_P(Generated, BytesAreThoseOfTheCodePageAndLineEndsOfOneKind) {
  for (const GeneratedFile& file : files_) {
    if (!isComponent(file)) continue;
    for (const char c : file.bytes) {
      const auto byte = static_cast<unsigned char>(c);
      const bool undefined = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
      ASSERT_TRUE(!undefined && (byte >= 32 || byte == '\r' || byte == '\n'))
          << file.path << ": " << int{byte};
    }
    const auto returns = std::count(file.bytes.begin(), file.bytes.end(), '\r');
    const auto feeds = std::count(file.bytes.begin(), file.bytes.end(), '\n');
    EXPECT_TRUE(returns == 0 || returns == feeds) << file.path;
    EXPECT_TRUE(file.bytes.ends_with('\n')) << file.path;
  }
}

TEST_P(Generated, ProjectFileListsEveryComponentAndTabOrderHasNoGap) {
  std::string project = files_.front().bytes;
  const auto lower = [](std::string text) {
    std::replace(text.begin(), text.end(), '/', '\\');
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
  };
  ASSERT_TRUE(files_.front().path.ends_with(".vbp"));
  project = lower(project);
  for (const GeneratedFile& file : files_) {
    if (!isComponent(file)) continue;
    const std::string path = lower(file.path) + "\r\n";
    EXPECT_TRUE(project.find("=" + path) != std::string::npos ||
                project.find("; " + path) != std::string::npos)
        << file.path;
    std::set<int> order;
    for (const std::string& line : linesOf(file.bytes)) {
      const std::size_t at = line.find("TabIndex        =   ");
      if (at == std::string::npos) continue;
      EXPECT_TRUE(order.insert(std::stoi(line.substr(at + 20))).second) << file.path;
    }
    if (order.empty()) continue;
    EXPECT_EQ(*order.rbegin() + 1, static_cast<int>(order.size())) << file.path;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Generated, testing::Values(1, 2, 3, 77));

// The test's own eyes.
TEST(BlockCheck, SeesWhatIsMissing) {
  int procedures = 0;
  EXPECT_EQ(unbalanced({"Private Sub A()", "If x Then", "Next", "End Sub"}, procedures),
            "nothing to close: Next");
  EXPECT_EQ(unbalanced({"Private Sub A()", "If x Then", "End Sub"}, procedures), "nothing to close: End Sub");
  EXPECT_EQ(unbalanced({"Private Sub A()", "x = 1", "Sub B()"}, procedures),
            "a title inside a block: Sub B()");
  EXPECT_EQ(unbalanced({"Public Type T", "x As Long"}, procedures), "still open at the end: End Type");
}

// Compilers that choose another order of evaluation, and libraries of other machines, must not change a byte.
// A change of the generator itself does: take the new number when two compilers agree on it.
TEST(GeneratedBytes, AreThoseOfEveryMachine) {
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (const GeneratedFile& file : generate({.seed = 11, .files = 60, .lines = 60'000}))
    for (const char c : file.path + file.bytes)
      hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  EXPECT_EQ(hash, 13914739160749069114u);
}

TEST(GeneratedModule, HasTheLinesAndProceduresAskedFor) {
  for (const auto& [lines, procedures] :
       {std::pair{60'000, 1'800}, std::pair{8'000, 1'000}, std::pair{300, 1}}) {
    Options options;
    options.moduleLines = lines;
    options.procedures = procedures;
    const auto files = generate(options);
    ASSERT_EQ(files.size(), 2U);
    const auto text = linesOf(files[1].bytes);
    EXPECT_EQ(text.size(), static_cast<std::size_t>(lines) + 1);
    int counted = 0;
    EXPECT_EQ(unbalanced(statementsOf(text, 1), counted), "");
    EXPECT_EQ(counted, procedures);
  }
}

TEST(GeneratedModule, SmallestAndImpossibleCounts) {
  const auto one = generate({.seed = 5, .files = 1, .lines = 1});
  EXPECT_EQ(one.size(), 2U);
  EXPECT_THROW(generate({.seed = 1, .files = 0, .lines = 10}), std::invalid_argument);
  EXPECT_THROW(generate({.seed = 1, .files = 1, .lines = 10, .moduleLines = -1}), std::invalid_argument);
}

}  // namespace
}  // namespace kolvane::generate
