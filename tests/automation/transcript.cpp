#include "transcript.h"

#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "automation/json.h"
#include "automation/server.h"
#include "base/error.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "test_commands.h"

namespace kolvane::test {
namespace {

using automation::Json;

constexpr std::string_view kAnything = "…";

std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The examples, at "/examples".
const std::vector<std::pair<std::string, std::string>>& exampleFiles() {
  static const auto files = [] {
    std::vector<std::pair<std::string, std::string>> all;
    const std::filesystem::path root(KOLVANE_SOURCE_DIR);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "examples"))
      if (entry.is_regular_file())
        all.emplace_back("/" + std::filesystem::relative(entry.path(), root).string(), bytesOf(entry.path()));
    return all;
  }();
  return files;
}

// ---- the channel: sends the transcript's requests and writes down what happens

class TranscriptChannel final : public platform::LineChannel {
 public:
  explicit TranscriptChannel(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
      if (line.starts_with('>')) requests_.push_back(line);
  }

  std::optional<platform::InputLine> read() override {
    if (requests_.empty()) return std::nullopt;
    const std::string line = requests_.front();
    requests_.pop_front();
    happened.push_back(line);
    return platform::InputLine{sent(line), false};
  }

  bool ready() override { return !requests_.empty() && requests_.front().starts_with(">>"); }

  void write(std::string_view line) override {
    happened.push_back(raw_ ? "<| " + std::string(line) : shown(line));
  }

  std::vector<std::string> happened;

 private:
  std::string sent(const std::string& line) {
    raw_ = line.starts_with(">|");
    const std::size_t text = std::min(line.find(' '), line.size() - 1) + 1;
    if (raw_) return line.substr(text);
    const std::size_t end = std::min(line.find(' ', text), line.size());
    const std::string params = end < line.size() ? ",\"params\":" + line.substr(end + 1) : std::string();
    const bool notification = line.starts_with(">-");
    if (!notification) ++id_;
    const std::string id = notification ? std::string() : ",\"id\":" + std::to_string(id_);
    return "{\"jsonrpc\":\"2.0\"" + id + ",\"method\":\"" + line.substr(text, end - text) + "\"" + params +
           "}";
  }

  std::string shown(std::string_view line) const {
    const Json answer = Json::parse(line);
    std::string text = "< ";
    if (answer["id"] != id_) text += "#" + answer["id"].dump() + " ";
    if (answer.contains("result")) return text + answer["result"].dump();
    const Json& error = answer["error"];
    text += "! " + error["code"].dump() + " " + error["message"].get<std::string>();
    if (error.contains("data")) text += " (" + error["data"]["number"].dump() + ")";
    return text;
  }

  std::deque<std::string> requests_;
  int id_ = 0;
  bool raw_ = false;
};

// True when `text` is `pattern` with something in place of each "…".
bool matches(std::string_view pattern, std::string_view text) {
  const std::size_t gap = pattern.find(kAnything);
  if (gap == std::string_view::npos) return pattern == text;
  if (text.substr(0, gap) != pattern.substr(0, gap)) return false;
  const std::string_view rest = pattern.substr(gap + kAnything.size());
  for (std::size_t at = gap; at <= text.size(); ++at)
    if (matches(rest, text.substr(at))) return true;
  return false;
}

std::unique_ptr<platform::TreeStore> openSettings(const std::string& path) {
  if (path == "/locked.db") throw base::Error(base::errors::kPermissionDenied, path + ": Permission denied");
  if (path == "/damaged.db") throw platform::StoreDamaged(path + ": it is damaged.");
  return std::make_unique<platform::MemoryTreeStore>();
}

}  // namespace

std::vector<Transcript> readTranscripts(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + ": cannot be read");
  std::vector<Transcript> all;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with("=== "))
      all.push_back({line.substr(4), {}, {}, number});
    else if (line.starts_with('#') && !all.empty() && all.back().lines.empty())
      all.back().remarks.push_back(line);
    else if ((line.starts_with('>') || line.starts_with('<')) && !all.empty())
      all.back().lines.push_back(line);
    else if (!line.empty())
      throw std::runtime_error(path + ":" + std::to_string(number) + ": belongs to no transcript");
  }
  return all;
}

std::vector<std::string> play(const Transcript& transcript) {
  platform::MemoryFiles files;
  for (const auto& [path, bytes] : exampleFiles()) files.replace(path, bytes);
  files.replace("/broken/Broken.vbp", "Type=Exe\r\nModule=modGone; modGone.bas\r\nName=\"Broken\"\r\n");
  TranscriptChannel channel(transcript.lines);
  platform::FixedClock clock({2026, 11, 22, 10, 20, 30});
  platform::FixedUser user("ann");
  std::unique_ptr<TestCommands> commands;
  automation::Environment environment{channel, files, clock, user, openSettings, ""};
  environment.started = [&](frame::Services& services) {
    commands = std::make_unique<TestCommands>(services);
  };
  automation::Server server(environment);
  server.run();
  commands.reset();
  for (std::size_t i = 0; i < channel.happened.size() && i < transcript.lines.size(); ++i)
    if (matches(transcript.lines[i], channel.happened[i])) channel.happened[i] = transcript.lines[i];
  return channel.happened;
}

}  // namespace kolvane::test
