// A machine for whole commands, everything in memory: files, settings, a clock that stands still, the user "ann".
#pragma once

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "adapters/git/git_text_diff.h"
#include "adapters/system/iconv_code_pages.h"
#include "base/code_page.h"
#include "base/error.h"
#include "base/text.h"
#include "commandline/environment.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"

namespace kolvane::commandline {

// Parted at blanks; "…" keeps them together, \' is a quote.
inline std::vector<std::string> splitArguments(const std::string& text) {
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
  // What the command prints: out, then lines of err with "! " in front, then the exit status in brackets when it
  // is not 0. "< text" behind the command is its input; "cat FILE" prints a file.
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
                            pages_,
                            [this](const std::string& path) { return openSettings(path); },
                            [] { return std::make_unique<platform::MemoryLineChannel>(); },
                            "/settings.db",
                            ""};
    if (outputFails) out.setstate(std::ios::badbit);
    environment.codePages = codePages;
    const int exit = commandline::run(arguments, environment);
    return shown(out.str(), "") + shown(err.str(), "! ") +
           (exit == 0 ? "" : "[" + std::to_string(exit) + "]\n");
  }

  platform::MemoryFiles files;
  bool outputFails = false;  // as when its reader has gone
  std::shared_ptr<const platform::CodePages> codePages = adapters::makeIconvCodePages();

 private:
  // A file of that name is none that a store has made.
  std::unique_ptr<platform::TreeStore> openSettings(const std::string& path) {
    if (files.stamp(path)) throw platform::StoreDamaged("Settings file \"" + path + "\": it is damaged.");
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
    return base::isUtf8(line) ? std::string(line) : base::CodePage::get(1252).toUtf8(line);
  }

  std::string textOf(const std::string& path) {
    return shown(std::string(files.read(path).content->bytes()), "");
  }

  platform::FixedClock clock_{{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user_{"ann"};
  std::unique_ptr<platform::TextDiff> diff_ = adapters::makeGitTextDiff();
  platform::NoWebPages pages_;
  std::map<std::string, std::shared_ptr<platform::TreeStore>> stores_;
};

}  // namespace kolvane::commandline
