// Access keys: the letter behind "&" in a caption, pressed with Alt. "&&" is an ampersand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kolvane::forms {

class Form;

// In lower case; 0 for a caption without one.
char accessKey(std::string_view caption);
// The caption as people read it.
std::string plainCaption(std::string_view caption);

// Letters that two captions of the form share, one sentence each: controls, labels of the layout and the menu
// bar together (controls on different pages of the same tabs do not meet), each menu's items by themselves.
std::vector<std::string> accessKeyFaults(const Form& form);

// Does what Alt with the letter does, in the control behind the focus in tab order that has it: a button is
// clicked, a check box ticked, an option button chosen; a label or frame leads on to its control; a menu of
// the bar opens, which is the renderer's affair. False when no control that can be used has it.
bool activateAccessKey(Form& form, char key);

}  // namespace kolvane::forms
