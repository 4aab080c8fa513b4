// A line on the terminal that says how far long work is; nothing in a pipe.
#pragma once

#include <ostream>
#include <string>

#include "commandline/environment.h"
#include "commandline/text_table.h"

namespace kolvane::commandline {

// Shown from the second step on, so that quick work leaves no trace. Gone again at the end of its life.
class Progress {
 public:
  explicit Progress(Terminal& terminal) : terminal_(terminal) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { clear(); }

  void step(const std::string& what) {
    if (!terminal_.errIsTerminal || ++steps_ % kEvery != 0) return;
    clear();
    terminal_.err << cutTo(std::to_string(steps_) + "  " + what, terminal_.width - 1) << std::flush;
    shown_ = true;
  }

  void clear() {
    if (shown_) terminal_.err << "\r\x1b[K" << std::flush;
    shown_ = false;
  }

 private:
  static constexpr int kEvery = 16;
  Terminal& terminal_;
  int steps_ = 0;
  bool shown_ = false;
};

}  // namespace kolvane::commandline
