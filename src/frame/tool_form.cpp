#include "frame/tool_form.h"

#include <vector>

#include "base/error.h"
#include "frame/confirm_cancel.h"
#include "frame/form_placement.h"

namespace kolvane::frame {

ToolForm::ToolForm(Services& services, const FormTraits& traits)
    : Form(services.desk, traits.name, traits.caption), services_(services), traits_(traits) {
  setFixedSize(traits.fixedSize);
  setHelpTopic(traits.help);
  addMenus();
  if (!traits.placement.empty())
    tie(forms::kLoad, [this] {
      restorePlacement(*this, services_.settings, traits_.placement);
      Form_Load();
    });
  if (traits.savesAtUnload)
    tie(forms::kUnload, [this](bool&) {
      savePlacement();
      Form_Unload();
    });
  if (traits.closing == Closing::kAsksAboutChanges)
    tie(forms::kQueryUnload, [this](bool& cancel, forms::UnloadMode mode) { refuseToClose(cancel, mode); });
  else
    onQueryUnload = [this](bool& cancel, forms::UnloadMode) { cancel = cancel || running_; };
}

void ToolForm::addMenus() {
  std::vector<forms::Menu*> open;  // by level
  for (const MenuRow& row : traits_.menus) {
    open.resize(static_cast<std::size_t>(row.level));
    auto menu = open.empty() ? std::make_unique<forms::Menu>(*this, row.name, row.caption)
                             : std::make_unique<forms::Menu>(*open.back(), row.name, row.caption);
    open.push_back(menu.get());
    wireMenu(*menu, row);
    menus_.emplace(row.name, std::move(menu));
  }
}

void ToolForm::wireMenu(forms::Menu& menu, const MenuRow& row) {
  switch (row.does) {
    case MenuDoes::kHolds:
      break;
    case MenuDoes::kLeaves:
      tie(forms::kClick, menu, [this] { leave(); });
      break;
    case MenuDoes::kHelps:
      tie(forms::kClick, menu, [this] { showHelp(); });
      break;
    case MenuDoes::kOpens:
      tie(forms::kClick, menu, [this, tool = row.tool] { openTool(services_, tool); });
      break;
  }
}

void ToolForm::refuseToClose(bool& cancel, forms::UnloadMode mode) {
  if (running_)
    cancel = true;
  else if (mode == forms::UnloadMode::kCloseButton)
    cancel = !mayDropChanges(services_, hasChanges());
}

void ToolForm::cancelBy(forms::CommandButton& button) {
  button.setCancel(true);
  tie(forms::kClick, button, [this] { leave(); });
}

void ToolForm::leave() {
  if (running_)
    desk().setBusy(true);
  else if (mayDropChanges(services_, hasChanges()))
    unload();
}

void ToolForm::savePlacement() { frame::savePlacement(*this, services_.settings, traits_.placement); }

ToolForm::Run::Run(ToolForm& form, bool busy) : form_(form), before_(form.running_), busy_(busy) {
  form_.running_ = true;
  if (busy_) form_.desk().setBusy(true);
}

ToolForm::Run::~Run() {
  if (busy_) form_.desk().setBusy(false);
  form_.running_ = before_;
}

}  // namespace kolvane::frame
