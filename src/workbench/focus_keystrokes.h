// Keystrokes for the widget that has the focus.
#pragma once

#include <functional>

#include "platform/keystrokes.h"

namespace kolvane::workbench {

// Sends them as key presses of the window system, handled before send() returns whether that is waited for or not.
// Signs in front of a key: "^" Control, "+" Shift, "%" Alt; brackets make them hold for several keys; names stand in
// braces ("{Home}", "{Del}"), with a count where wanted ("{Left 4}"). An unknown name raises 5. Without a focus
// nothing happens.
class FocusKeystrokes final : public platform::Keystrokes {
 public:
  void send(const std::string& keys, bool wait) override;

  // Brings the focus to where the host has it, before keys are sent.
  std::function<void()> beforeSending;
};

}  // namespace kolvane::workbench
