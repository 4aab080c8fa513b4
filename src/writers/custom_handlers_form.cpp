#include "writers/custom_handlers_form.h"

#include <array>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "frame/form_placement.h"
#include "source/confirm_cancel.h"
#include "source/tab_width.h"
#include "writers/custom_handlers.h"
#include "writers/custom_handlers_options.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "ManEs148";
constexpr std::string_view kSaveQuestion = "You have made changes, Do you want to save them?";
constexpr std::string_view kNoColors = "Coloring the code of a handler is not available in this version.";

void choose(const std::function<void()>& action) {
  if (!action) throw base::Error(base::errors::kNotAvailable);
  action();
}

}  // namespace

frmCustomErrorHandlers::frmCustomErrorHandlers(frame::Services& services,
                                               const CustomHandlersActions& actions)
    : Form(services.desk, "frmCustomErrorHandlers", "Custom Error Handlers"),
      services_(services),
      actions_(actions) {
  setMinimumSize(7905, 6195);
  setHelpTopic("Help_CustomErrorHandlers.html");
  txtError.setFont("Courier New");
  cmdAdd.setEnabled(false);
  onLoad = entry("Form_Load", &frmCustomErrorHandlers::Form_Load);
  onActivate = entry("Form_Activate", &frmCustomErrorHandlers::Form_Activate);
  onQueryUnload = entry("Form_QueryUnload", &frmCustomErrorHandlers::Form_QueryUnload);
  cboErrors.onClick = entry("cboErrors_Click", &frmCustomErrorHandlers::cboErrors_Click);
  txtName.onChange =
      entry("txtName_Change", [this] { cmdAdd.setEnabled(!base::trim(txtName.text()).empty()); });
  txtError.onChange = entry("txtError_Change", [this] { cmdSave.setEnabled(true); });
  txtError.onKeyDown = entry("txtError_KeyDown", &frmCustomErrorHandlers::txtError_KeyDown);
  cboStandardElements.onKeyPress = [](int& character) { character = 0; };
  cboStandardElements.onClick =
      entry("cboStandardElements_Click", [this] { element_ = cboStandardElements.listIndex(); });
  cboStandardElements.onChange =
      entry("cboStandardElements_Change", [this] { cboStandardElements.setListIndex(element_); });
  cmdAdd.onClick = entry("cmdAdd_Click", &frmCustomErrorHandlers::cmdAdd_Click);
  cmdDelete.onClick = entry("cmdDelete_Click", &frmCustomErrorHandlers::cmdDelete_Click);
  cmdSave.onClick = entry("cmdSave_Click", &frmCustomErrorHandlers::cmdSave_Click);
  cmdAddElements.onClick = entry("cmdAddElements_Click", &frmCustomErrorHandlers::cmdAddElements_Click);
  cmdClear.onClick = entry("cmdClear_Click", &frmCustomErrorHandlers::cmdClear_Click);
  cmdColorCode.onClick = entry("cmdColorCode_Click", [this] { tell(std::string(kNoColors)); });
  cmdClose.onClick = entry("cmdClose_Click", &frmCustomErrorHandlers::cmdClose_Click);
  mnuExit.onClick = entry("mnuExit_Click", &frmCustomErrorHandlers::cmdClose_Click);
  mnuCustomErrorHandlers.onClick = entry("mnuCustomErrorHandlers_Click", [this] {
    const auto options = std::make_shared<frmCustomErrorHandlersOptions>(services_);
    options->showModal();
    options->unload();
  });
  mnuGeneral.onClick = entry("mnuGeneral_Click", [this] { choose(actions_.generalOptions); });
  mnuContents.onClick = entry("mnuContents_Click", [this] { showHelp(); });
  mnuAbout.onClick = entry("mnuAbout_Click", [this] { choose(actions_.about); });
}

forms::Layout frmCustomErrorHandlers::layout() const {
  using namespace forms;
  return column(row("Error&s:", grow(cboErrors), cmdDelete), row("&Name:", grow(txtName), cmdAdd),
                grow(group(fraHandler, grow(txtError),
                           row("Standard Ele&ments:", grow(cboStandardElements), cmdAddElements),
                           row(stretch(), cmdClear, cmdSave, cmdColorCode))),
                buttons(cmdClose));
}

void frmCustomErrorHandlers::Form_Load() {
  Load_StandardElements();
  frame::restorePlacement(*this, services_.settings, kPlacement);
  GetErrorTypes();
  tabText_ = base::repeat(' ', source::GetTabWidth(services_));
}

void frmCustomErrorHandlers::Form_Activate() {
  if (cboErrors.listCount() > 0)
    cboErrors.setFocus();
  else
    txtName.setFocus();
}

void frmCustomErrorHandlers::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
  if (mode == forms::UnloadMode::kCloseButton) cancel = !source::mayDropChanges(services_, cmdSave.enabled());
}

void frmCustomErrorHandlers::Load_StandardElements() {
  cboStandardElements.clear();
  for (const CustomHandlerElement& element : customHandlerElements())
    cboStandardElements.add(element.key, element.text);
  cboStandardElements.setListIndex(element_);
}

void frmCustomErrorHandlers::enableEditing(bool enabled) {
  const std::array<forms::Control*, 5> controls{&cmdDelete, &cmdAddElements, &cboErrors, &cboStandardElements,
                                                &cmdClear};
  for (forms::Control* control : controls) control->setEnabled(enabled);
  txtError.setLocked(!enabled);
}

void frmCustomErrorHandlers::GetErrorTypes() {
  loading_ = true;
  cboErrors.clear();
  cboErrors.addItems(GetCustomErrors(services_.settings));
  const bool any = cboErrors.listCount() > 0;
  enableEditing(any);
  current_.clear();
  txtError.setText("");
  if (any) cboErrors.setListIndex(0);
  cmdSave.setEnabled(false);
  loading_ = false;
}

void frmCustomErrorHandlers::Save_Error(const std::string& name) {
  writeCustomHandler(services_.settings, name, txtError.text());
}

bool frmCustomErrorHandlers::wantsToSave() {
  return services_.desk.msgBox(kSaveQuestion, forms::box::kAsk, base::kProductName) == forms::Answer::kYes;
}

void frmCustomErrorHandlers::tell(const std::string& text) {
  services_.desk.msgBox(text, forms::box::kNotice, base::kProductName);
}

void frmCustomErrorHandlers::cboErrors_Click() {
  if (!loading_ && cmdSave.enabled() && wantsToSave()) Save_Error(current_);
  current_ = cboErrors.text();
  txtError.setText(readCustomHandler(services_.settings, current_).value_or(""));
  cmdSave.setEnabled(false);
}

void frmCustomErrorHandlers::cmdAdd_Click() {
  if (cboErrors.listCount() >= static_cast<int>(kMaxCustomHandlers)) return tell(tooManyCustomHandlers());
  const std::string name(base::trim(txtName.text()));
  if (cboErrors.indexOf(name) >= 0) {
    tell(name + " has already been used!");
    return txtName.setFocus();
  }
  if (cmdSave.enabled() && wantsToSave()) cmdSave_Click();
  // The list's own question is answered with this one.
  cmdSave.setEnabled(false);
  enableEditing(true);
  cboErrors.addItem(name);
  cboErrors.setListIndex(cboErrors.newIndex());
  txtName.setText("");
  txtError.setText("");
  cmdSave.setEnabled(false);
  txtError.setFocus();
}

void frmCustomErrorHandlers::cmdDelete_Click() {
  deleteCustomHandler(services_.settings, cboErrors.text());
  GetErrorTypes();
}

void frmCustomErrorHandlers::cmdSave_Click() {
  frame::savePlacement(*this, services_.settings, kPlacement);
  Save_Error(cboErrors.text());
  cmdSave.setEnabled(false);
}

// The element goes in at the caret, in place of what is selected; the clipboard keeps it.
void frmCustomErrorHandlers::cmdAddElements_Click() {
  const std::string element = cboStandardElements.selectedItem().text;
  services_.clipboard.clear();
  services_.clipboard.setText(element);
  txtError.setFocus();
  txtError.setSelText(element);
}

void frmCustomErrorHandlers::cmdClear_Click() {
  txtError.setText("");
  txtError.setFocus();
}

void frmCustomErrorHandlers::cmdClose_Click() {
  if (source::mayDropChanges(services_, cmdSave.enabled())) unload();
}

// Tab indents; a box that cannot be edited lets it lead on to the next control.
void frmCustomErrorHandlers::txtError_KeyDown(int& key, int shift) {
  if (key != forms::keys::kTab || shift != 0 || txtError.locked()) return;
  key = 0;
  txtError.setSelText(tabText_);
}

}  // namespace kolvane::writers
