// What a server works with: nothing global, so that a test runs whole sessions in its own process.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "frame/services.h"
#include "frame/settings_file.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/line_channel.h"

namespace kolvane::automation {

struct Environment {
  platform::LineChannel& channel;
  platform::Files& files;
  // Clock and user of a session that does not bring its own.
  platform::Clock& clock;
  platform::UserInfo& user;
  frame::OpenStore openSettings;
  // The folder with the suite's data files; empty when there is none.
  std::string home;
  // Called once, when the session has started: for programs that bring commands or forms of their own.
  // What it makes must not outlive the server.
  std::function<void(frame::Services&)> started = nullptr;
};

}  // namespace kolvane::automation
