// What people do to a form. Everything that drives a form from outside goes through here: renderers, the
// automation server, tests.
//
// Each of these first sees whether a person could do it: the form must be open and not behind a modal one,
// the control enabled and visible with all that holds it. Else it raises 5 with a sentence that names the
// control and the reason, as it does when the control's kind has no use for the gesture, and nothing has
// changed. Then the form comes to the front and the focus moves to the control, with Validate, LostFocus and
// GotFocus. Then it is done, with its events. The answer is false when it was not done because the focus
// stayed or went elsewhere: a Validate handler refused, or another handler sent it on. The control may be
// gone when a function returns.
#pragma once

#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/form.h"

namespace kolvane::forms::user {

bool focus(Control& control, FocusCause cause = FocusCause::kMouse);

// Types a text in place of all that is there: each character runs through KeyPress, then Change is raised
// once. Several lines for a box of one are refused; what exceeds the greatest length is dropped.
bool setText(Control& control, std::string_view text);
// Types character by character at the caret, in lists too.
bool type(Control& control, std::string_view text);
bool setValue(Control& control, double value);
bool selectIndex(Control& control, int index);             // of a list, from 0; of tabs, the page
bool selectItem(Control& control, std::string_view text);  // by its text
// A row or a node. `extend` keeps what is selected already, in lists that allow several.
bool select(Control& control, const Spot& spot, bool extend = false);
// All of them and nothing else; more than one are refused by a list of one selection.
bool select(Control& control, const std::vector<Spot>& spots);
bool check(Control& control, const Spot& spot, bool value);
bool showTab(Control& control, int page);
bool click(Control& control, const Spot& spot = {}, FocusCause cause = FocusCause::kMouse);
bool doubleClick(Control& control, const Spot& spot = {});

// A key press in the control that has the focus: KeyDown of form and control, then its meaning (menu
// shortcut, Alt with an access key, Tab, F1, Enter and Esc for the default and cancel buttons, a list's and
// an editor's own keys, else KeyPress and the character), then KeyUp.
void key(Form& form, int key, int shift = 0);

// For renderers with editors and keys of their own, which call these instead of key(), type() and setText().
// KeyDown of form and control; 0 when the key was taken away, then the editor must not see it.
int keyDown(Control& control, int key, int shift);
// KeyPress; the character that the editor is to take, 0 for none.
int keyPress(Control& control, int character);
void keyUp(Control& control, int key, int shift);
// The editor's text has changed; raises Change.
bool edited(Control& control, std::string_view text, int caret);

// The window's close button. False when the form refused.
bool close(Form& form);

}  // namespace kolvane::forms::user
