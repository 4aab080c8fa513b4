// The events of forms and controls, each with the name that its handlers bear: Click, Change, Load, …
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"
#include "forms/form.h"

namespace kolvane::forms {

// Where an event's handler is kept, and what the event is called.
template <class Owner, class Handles>
struct Event {
  Handles Owner::*handler;
  std::string_view name;
};

inline constexpr Event<Control, Handler> kClick{&Control::onClick, "Click"};
inline constexpr Event<Control, Handler> kDblClick{&Control::onDblClick, "DblClick"};
inline constexpr Event<Control, Handler> kChange{&Control::onChange, "Change"};
inline constexpr Event<Control, Handler> kGotFocus{&Control::onGotFocus, "GotFocus"};
inline constexpr Event<Control, Handler> kLostFocus{&Control::onLostFocus, "LostFocus"};
inline constexpr Event<Control, KeyPressHandler> kKeyPress{&Control::onKeyPress, "KeyPress"};
inline constexpr Event<Control, KeyHandler> kKeyDown{&Control::onKeyDown, "KeyDown"};
inline constexpr Event<Control, KeyHandler> kKeyUp{&Control::onKeyUp, "KeyUp"};
inline constexpr Event<Control, CancelHandler> kValidate{&Control::onValidate, "Validate"};

inline constexpr Event<Form, Handler> kLoad{&Form::onLoad, "Load"};
inline constexpr Event<Form, Handler> kActivate{&Form::onActivate, "Activate"};
inline constexpr Event<Form, Handler> kDeactivate{&Form::onDeactivate, "Deactivate"};
inline constexpr Event<Form, Handler> kResize{&Form::onResize, "Resize"};
inline constexpr Event<Form, QueryUnloadHandler> kQueryUnload{&Form::onQueryUnload, "QueryUnload"};
inline constexpr Event<Form, CancelHandler> kUnload{&Form::onUnload, "Unload"};

// The procedure that handles an event: "cmdOK_Click", "Form_Load". Of a control array's member it is the array's:
// "txtName(2)" gives "txtName_Change".
template <class Owner, class Handles>
std::string procedureName(const Event<Owner, Handles>& event, const Control& control) {
  const std::string& name = control.name();
  return name.substr(0, name.find('(')) + "_" + std::string(event.name);
}
template <class Owner, class Handles>
std::string procedureName(const Event<Owner, Handles>& event) {
  return "Form_" + std::string(event.name);
}

}  // namespace kolvane::forms
