#include "forms/snapshot.h"

#include "forms/form.h"
#include "forms/menu.h"

namespace kolvane::forms {

namespace {

MenuState menuState(const Menu& menu) {
  MenuState state;
  state.name = menu.name();
  state.caption = menu.caption();
  state.shortcut = menu.shortcut();
  state.enabled = menu.enabled();
  state.visible = menu.visible();
  state.checked = menu.checked();
  for (const Menu* item : menu.items()) state.items.push_back(menuState(*item));
  return state;
}

}  // namespace

FormState snapshot(const Form& form) {
  FormState state;
  state.name = form.name();
  state.caption = form.caption();
  state.loaded = form.loaded();
  state.visible = form.visible();
  state.modal = form.modal();
  if (form.focus()) state.focus = form.focus()->name();
  if (form.visible())
    if (const Form* blocker = form.desk().openForms().blocker(form)) state.blockedBy = blocker->name();
  for (const Control* control : form.controls())
    if (control->kind() != Kind::kMenu) state.controls.push_back(control->snapshot());
  for (const Menu* menu : form.menuBar()) state.menus.push_back(menuState(*menu));
  return state;
}

}  // namespace kolvane::forms
