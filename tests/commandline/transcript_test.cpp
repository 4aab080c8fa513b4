// Whole commands as people type them, with what they print: the cases in transcripts.txt.
//
// - "=== a module that does not exist" begins a case and names it.
// - "--- /p/Test.vbp" is a file, its lines below, with CR LF at each line's end. "readonly" behind the path takes the
//   permission to write away; "full" lets each write of it fail as on a full disk.
// - "--- run" begins the commands.
// - "$ header /p/Test.vbp --modules Nix" is one: blanks within "…" stay together, ' stands for a quote, "< text" is
//   the input. Below stands what it prints: out, then the lines of err with "! " in front, then the exit status in
//   brackets when it is not 0. "$ cat /p/Module1.bas" prints a file as it stands.
//
// Several commands of a case follow each other over the same files and settings.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "adapters/git/git_text_diff.h"
#include "base/code_page.h"
#include "base/error.h"
#include "base/text.h"
#include "commandline/environment.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"

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

std::vector<std::string> splitArguments(const std::string& text) {
  std::vector<std::string> arguments;
  bool quoted = false, open = false;
  for (const char c : text) {
    if (c == '\'') {
      if (!open) arguments.emplace_back();
      open = true;
      arguments.back().push_back('"');
    } else if (c == '"') {
      quoted = !quoted;
      if (!open) arguments.emplace_back();
      open = true;
    } else if (c == ' ' && !quoted) {
      open = false;
    } else {
      if (!open) arguments.emplace_back();
      open = true;
      arguments.back().push_back(c);
    }
  }
  return arguments;
}

// Forwards to a store that several commands share.
class SharedStore final : public platform::TreeStore {
 public:
  explicit SharedStore(std::shared_ptr<platform::TreeStore> store) : store_(std::move(store)) {}
  std::optional<platform::StoredValue> read(const std::string& path, const std::string& name) override {
    return store_->read(path, name);
  }
  void write(const std::string& path, const platform::StoredValue& value) override {
    store_->write(path, value);
  }
  std::vector<platform::StoredValue> values(const std::string& path) override { return store_->values(path); }
  std::vector<std::string> keys(const std::string& path) override { return store_->keys(path); }
  bool keyExists(const std::string& path) override { return store_->keyExists(path); }
  bool removeKey(const std::string& path) override { return store_->removeKey(path); }
  bool removeValue(const std::string& path, const std::string& name) override {
    return store_->removeValue(path, name);
  }
  void update(const std::function<void()>& work) override { store_->update(work); }

 private:
  std::shared_ptr<platform::TreeStore> store_;
};

class Machine {
 public:
  std::string run(const std::string& line) {
    const std::size_t redirect = line.find(" < ");
    const std::string typed = redirect == std::string::npos ? std::string() : line.substr(redirect + 3);
    const auto arguments = splitArguments(line.substr(0, redirect));
    if (arguments.size() == 2 && arguments[0] == "cat") return textOf(arguments[1]);
    std::istringstream in(base::replaceAll(typed, "\\n", "\n"));
    std::ostringstream out, err;
    Environment environment{{in, out, err},
                            files,
                            clock_,
                            user_,
                            *diff_,
                            [this](const std::string& path) { return openSettings(path); },
                            [] { return std::make_unique<platform::MemoryLineChannel>(); },
                            "/settings.db",
                            ""};
    const int exit = commandline::run(arguments, environment);
    return shown(out.str(), "") + shown(err.str(), "! ") +
           (exit == 0 ? "" : "[" + std::to_string(exit) + "]\n");
  }

  platform::MemoryFiles files;

 private:
  std::unique_ptr<platform::TreeStore> openSettings(const std::string& path) {
    auto& store = stores_[path];
    if (!store || path == ":memory:") store = std::make_shared<platform::MemoryTreeStore>();
    return std::make_unique<SharedStore>(store);
  }

  // Pipes get the files' own bytes, everything else is UTF-8. Carriage returns would not be seen in a case.
  static std::string shown(std::string bytes, const std::string& mark) {
    if (bytes.empty()) return {};
    if (bytes.ends_with('\n')) bytes.resize(bytes.size() - (bytes.ends_with("\r\n") ? 2 : 1));
    std::string text;
    for (const auto line : base::splitLines(bytes)) text += mark + utf8(line) + "\n";
    return text;
  }

  static std::string utf8(std::string_view line) {
    const base::CodePage& page = base::CodePage::get(1252);
    try {
      page.fromUtf8(line);
      return std::string(line);
    } catch (const base::Error&) {
      return page.toUtf8(line);
    }
  }

  std::string textOf(const std::string& path) {
    return shown(std::string(files.read(path).content->bytes()), "");
  }

  platform::FixedClock clock_{{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user_{"ann"};
  std::unique_ptr<platform::TextDiff> diff_ = adapters::makeGitTextDiff();
  std::map<std::string, std::shared_ptr<platform::TreeStore>> stores_;
};

constexpr long kDiskFull = 61;

void putFile(Machine& machine, const std::string& header, const std::vector<std::string>& lines) {
  const auto words = base::split(header, " ");
  std::string text;
  for (const auto& line : lines) text += line + "\r\n";
  machine.files.replace(words[0], base::CodePage::get(1252).fromUtf8(text));
  if (words.size() > 1 && words[1] == "readonly") machine.files.setAttributes(words[0], 33);
  if (words.size() > 1 && words[1] == "full") machine.files.failReplacing(words[0], kDiskFull);
}

class TranscriptTest : public testing::Test {
 public:
  explicit TranscriptTest(Transcript transcript) : transcript_(std::move(transcript)) {}

  void TestBody() override {
    Machine machine;
    std::string expected, actual;
    const auto& lines = transcript_.lines;
    std::size_t i = 0;
    while (i < lines.size() && lines[i] != "--- run") {
      ASSERT_TRUE(lines[i].starts_with("--- ")) << lines[i];
      const std::string header = lines[i++].substr(4);
      std::vector<std::string> content;
      while (i < lines.size() && !lines[i].starts_with("--- ")) content.push_back(lines[i++]);
      putFile(machine, header, content);
    }
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

}  // namespace
}  // namespace kolvane::commandline
