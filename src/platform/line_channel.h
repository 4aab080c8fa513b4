// Lines to and from a program at the other end of a pipe.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kolvane::platform {

// Longer lines are not kept: they come as a line that is marked and empty.
inline constexpr std::size_t kLongestLine = std::size_t{64} << 20;

struct InputLine {
  std::string text;  // without its line feed
  bool tooLong = false;
};

class LineChannel {
 public:
  virtual ~LineChannel() = default;
  // Waits for the next line; nothing at the end of the input. A last line needs no line feed.
  virtual std::optional<InputLine> read() = 0;
  // Whether read() would give a line without waiting. False at the end of the input.
  virtual bool ready() = 0;
  // Writes the line and a line feed, at once. Error 57 when the other end has gone.
  virtual void write(std::string_view line) = 0;
};

// Both ends in one process, for tests.
class MemoryLineChannel final : public LineChannel {
 public:
  // An `early` line has arrived before the one in front of it is answered.
  void send(std::string_view line, bool early = false) {
    if (line.size() > kLongestLine)
      input_.push_back({{{}, true}, early});
    else
      input_.push_back({{std::string(line), false}, early});
  }
  // What was written since the last call.
  std::vector<std::string> take() { return std::exchange(output_, {}); }

  std::optional<InputLine> read() override {
    if (input_.empty()) return std::nullopt;
    InputLine line = std::move(input_.front().line);
    input_.pop_front();
    return line;
  }
  bool ready() override { return !input_.empty() && input_.front().early; }
  void write(std::string_view line) override { output_.emplace_back(line); }

 private:
  struct Sent {
    InputLine line;
    bool early = false;
  };
  std::deque<Sent> input_;
  std::vector<std::string> output_;
};

}  // namespace kolvane::platform
