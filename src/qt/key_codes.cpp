#include "qt/key_codes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "forms/control.h"

namespace kolvane::qt {

namespace {

namespace keys = forms::keys;

constexpr std::array<std::pair<int, int>, 22> kNamed{{
    {Qt::Key_Backspace, keys::kBack},
    {Qt::Key_Tab, keys::kTab},
    {Qt::Key_Backtab, keys::kTab},
    {Qt::Key_Return, keys::kEnter},
    {Qt::Key_Enter, keys::kEnter},
    {Qt::Key_Escape, keys::kEscape},
    {Qt::Key_Space, keys::kSpace},
    {Qt::Key_PageUp, keys::kPageUp},
    {Qt::Key_PageDown, keys::kPageDown},
    {Qt::Key_End, keys::kEnd},
    {Qt::Key_Home, keys::kHome},
    {Qt::Key_Left, keys::kLeft},
    {Qt::Key_Up, keys::kUp},
    {Qt::Key_Right, keys::kRight},
    {Qt::Key_Down, keys::kDown},
    {Qt::Key_Insert, keys::kInsert},
    {Qt::Key_Delete, keys::kDelete},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
}};
constexpr int kFirstPadKey = 96;
constexpr int kLastPadKey = 111;
constexpr int kLastCode = 222;
constexpr int kFunctionKeys = 16;

}  // namespace

int keyCode(int qtKey, bool keypad) {
  for (const auto& [from, to] : kNamed)
    if (from == qtKey) return to;
  if (qtKey >= Qt::Key_F1 && qtKey < Qt::Key_F1 + kFunctionKeys) return keys::kF1 + qtKey - Qt::Key_F1;
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 'A' + qtKey - Qt::Key_A;
  if (qtKey < Qt::Key_Space || qtKey > Qt::Key_AsciiTilde) return 0;
  if (keypad)
    for (int code = kFirstPadKey; code <= kLastPadKey; ++code)
      if (keys::character(code, 0) == qtKey) return code;
  for (int code = '0'; code <= kLastCode; ++code) {
    const bool pad = code >= kFirstPadKey && code <= kLastPadKey;
    if (!pad && (keys::character(code, 0) == qtKey || keys::character(code, keys::kShift) == qtKey))
      return code;
  }
  return 0;
}

int keyCode(const QKeyEvent& event) {
  return keyCode(event.key(), event.modifiers().testFlag(Qt::KeypadModifier));
}

int shiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? keys::kShift : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? keys::kCtrl : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? keys::kAlt : 0);
}

Qt::Key qtKey(int code) {
  for (const auto& [to, from] : kNamed)
    if (from == code) return static_cast<Qt::Key>(to);
  if (code >= keys::kF1 && code < keys::kF1 + kFunctionKeys)
    return static_cast<Qt::Key>(Qt::Key_F1 + code - keys::kF1);
  const int character = keys::character(code, keys::kShift);
  if (code >= 'A' && code <= 'Z') return static_cast<Qt::Key>(Qt::Key_A + code - 'A');
  const int plain = character == 0 ? 0 : keys::character(code, 0);
  return plain == 0 ? Qt::Key_unknown : static_cast<Qt::Key>(plain);
}

}  // namespace kolvane::qt
