// Keys as the language numbers them (forms/control.h), and keys of the window system.
#pragma once

#include <QKeyEvent>

namespace kolvane::qt {

// The key's code whatever the shift state: letters as capitals, keys of the main block by the US layout. 0 for
// one that has no code: a lone dead key, a character of an input method.
int keyCode(const QKeyEvent& event);
int keyCode(int qtKey, bool keypad = false);
// forms::keys::kShift, kCtrl and kAlt, summed.
int shiftState(Qt::KeyboardModifiers modifiers);
// The other way; Qt::Key_unknown for a code that no key has.
Qt::Key qtKey(int keyCode);

}  // namespace kolvane::qt
