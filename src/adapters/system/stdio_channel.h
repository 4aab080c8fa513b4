// The channel over standard input and output, or any two descriptors.
#pragma once

#include <memory>

#include "platform/line_channel.h"

namespace kolvane::adapters {

// Writing to a reader that has gone raises SIGPIPE, which ends the program unless it is ignored; then the
// write raises
// 57. Both descriptors must stay open; neither is closed.
std::unique_ptr<platform::LineChannel> makeStdioChannel(int input = 0, int output = 1);

}  // namespace kolvane::adapters
