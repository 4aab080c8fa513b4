// The contract of line channels, on the one in memory and on descriptors.
#include "platform/line_channel.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "adapters/system/stdio_channel.h"
#include "base/error.h"

namespace kolvane {
namespace {

// A channel with both of its far ends.
class Pipes {
 public:
  Pipes() {
    if (::pipe(in_.data()) != 0 || ::pipe(out_.data()) != 0) throw std::runtime_error("no pipe");
    channel = adapters::makeStdioChannel(in_[0], out_[1]);
  }
  Pipes(const Pipes&) = delete;
  Pipes& operator=(const Pipes&) = delete;
  ~Pipes() {
    for (const int descriptor : {in_[0], in_[1], out_[0], out_[1]})
      if (descriptor >= 0) ::close(descriptor);
  }
  void send(const std::string& bytes) const {
    for (std::size_t at = 0; at < bytes.size();) {
      const ssize_t put = ::write(in_[1], bytes.data() + at, bytes.size() - at);
      ASSERT_GT(put, 0);
      at += static_cast<std::size_t>(put);
    }
  }
  void end() { ::close(std::exchange(in_[1], -1)); }
  std::string received() const {
    std::string bytes(1 << 12, '\0');
    bytes.resize(static_cast<std::size_t>(::read(out_[0], bytes.data(), bytes.size())));
    return bytes;
  }

  std::unique_ptr<platform::LineChannel> channel;

 private:
  std::array<int, 2> in_{};
  std::array<int, 2> out_{};
};

std::string textOf(const std::optional<platform::InputLine>& line) { return line ? line->text : "(end)"; }

TEST(LineChannel, InMemoryKeepsOrderAndTellsWhatHasArrived) {
  platform::MemoryLineChannel channel;
  channel.send("one");
  channel.send("two", true);
  EXPECT_FALSE(channel.ready());
  EXPECT_EQ(textOf(channel.read()), "one");
  EXPECT_TRUE(channel.ready());
  EXPECT_EQ(textOf(channel.read()), "two");
  EXPECT_FALSE(channel.ready());
  EXPECT_FALSE(channel.read());
  channel.write("answer");
  EXPECT_EQ(channel.take(), std::vector<std::string>{"answer"});
}

TEST(LineChannel, DescriptorsGiveLinesAsTheyAreParted) {
  Pipes pipes;
  EXPECT_FALSE(pipes.channel->ready());
  pipes.send("one\ntw");
  EXPECT_TRUE(pipes.channel->ready());
  EXPECT_EQ(textOf(pipes.channel->read()), "one");
  EXPECT_FALSE(pipes.channel->ready()) << "half a line has arrived";
  pipes.send("o\n\nlast");
  EXPECT_EQ(textOf(pipes.channel->read()), "two");
  EXPECT_EQ(textOf(pipes.channel->read()), "");
  EXPECT_FALSE(pipes.channel->ready());
  pipes.end();
  EXPECT_TRUE(pipes.channel->ready()) << "the last line needs no line feed";
  EXPECT_EQ(textOf(pipes.channel->read()), "last");
  EXPECT_FALSE(pipes.channel->ready());
  EXPECT_FALSE(pipes.channel->read());
}

TEST(LineChannel, DescriptorsWriteWholeLines) {
  Pipes pipes;
  pipes.channel->write("{}");
  EXPECT_EQ(pipes.received(), "{}\n");
}

TEST(LineChannel, DescriptorsDropALineThatIsTooLong) {
  Pipes pipes;
  std::thread sender([&] {
    const std::string piece(1 << 20, 'x');
    for (std::size_t sent = 0; sent <= platform::kLongestLine; sent += piece.size()) pipes.send(piece);
    pipes.send("\nnext\n");
  });
  const auto line = pipes.channel->read();
  ASSERT_TRUE(line);
  EXPECT_TRUE(line->tooLong);
  EXPECT_TRUE(line->text.empty());
  const auto next = pipes.channel->read();
  EXPECT_EQ(textOf(next), "next");
  EXPECT_FALSE(next->tooLong);
  sender.join();
}

}  // namespace
}  // namespace kolvane
