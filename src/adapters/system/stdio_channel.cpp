#include "adapters/system/stdio_channel.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "base/error.h"

namespace kolvane::adapters {
namespace {

class DescriptorChannel final : public platform::LineChannel {
 public:
  DescriptorChannel(int input, int output) : input_(input), output_(output) {}

  std::optional<platform::InputLine> read() override {
    while (!lineIsComplete() && !ended_) receive();
    return takeLine();
  }

  bool ready() override {
    while (!lineIsComplete() && !ended_ && somethingArrived()) receive();
    return lineIsComplete() || (ended_ && somethingIsLeft());
  }

  void write(std::string_view line) override {
    std::string bytes(line);
    bytes.push_back('\n');
    for (std::string_view rest = bytes; !rest.empty();) {
      const ssize_t put = ::write(output_, rest.data(), rest.size());
      if (put < 0 && errno == EINTR) continue;
      if (put < 0)
        throw base::Error(base::errors::kDeviceIo,
                          std::string("The answer could not be written: ") + std::strerror(errno));
      rest.remove_prefix(static_cast<std::size_t>(put));
    }
  }

 private:
  // Looks on from where it looked last, so that a long line is not searched again with every piece.
  bool lineIsComplete() {
    if (end_ != std::string::npos) return true;
    end_ = received_.find('\n', searched_);
    searched_ = received_.size();
    if (end_ == std::string::npos && received_.size() - start_ > platform::kLongestLine) {
      received_.resize(start_);
      searched_ = start_;
      tooLong_ = true;
    }
    return end_ != std::string::npos;
  }

  bool somethingIsLeft() const { return received_.size() > start_ || tooLong_; }

  std::optional<platform::InputLine> takeLine() {
    const bool complete = lineIsComplete();
    if (!complete && !somethingIsLeft()) return std::nullopt;
    const std::size_t stop = complete ? end_ : received_.size();
    platform::InputLine line{received_.substr(start_, stop - start_), tooLong_};
    if (tooLong_ || line.text.size() > platform::kLongestLine) line = {{}, true};
    start_ = complete ? stop + 1 : stop;
    end_ = std::string::npos;
    searched_ = start_;
    tooLong_ = false;
    return line;
  }

  bool somethingArrived() const {
    pollfd descriptor{input_, POLLIN, 0};
    int count = 0;
    do count = ::poll(&descriptor, 1, 0);
    while (count < 0 && errno == EINTR);
    return count > 0;
  }

  // Waits for the next piece.
  void receive() {
    if (start_ > 0) {
      received_.erase(0, start_);
      searched_ -= start_;
      start_ = 0;
    }
    std::array<char, 1 << 16> piece;
    ssize_t got = 0;
    do got = ::read(input_, piece.data(), piece.size());
    while (got < 0 && errno == EINTR);
    if (got > 0)
      received_.append(piece.data(), static_cast<std::size_t>(got));
    else
      ended_ = true;
  }

  int input_;
  int output_;
  std::string received_;
  std::size_t start_ = 0;                // of the line that comes next
  std::size_t searched_ = 0;             // no line feed stands between start_ and here
  std::size_t end_ = std::string::npos;  // of that line, once it is complete
  bool tooLong_ = false;                 // its beginning was dropped
  bool ended_ = false;
};

}  // namespace

std::unique_ptr<platform::LineChannel> makeStdioChannel(int input, int output) {
  return std::make_unique<DescriptorChannel>(input, output);
}

}  // namespace kolvane::adapters
