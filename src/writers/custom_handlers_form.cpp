#include "writers/custom_handlers_form.h"

#include <array>

#include "base/error.h"
#include "base/text.h"
#include "frame/option_sheet.h"
#include "source/tab_width.h"
#include "writers/custom_handlers.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kSaveQuestion = "You have made changes, Do you want to save them?";
constexpr std::string_view kNoColors = "Coloring the code of a handler is not available in this version.";

constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuCustomErrorHandlers", "Custom &Error Handlers"),
    frame::opens(2, "mnuGeneral", "&General", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuContents", "&Contents..."),
    frame::opens(1, "mnuAbout", "&About", frame::kAboutBox),
};
constexpr frame::FormTraits kTraits{.name = "frmCustomErrorHandlers",
                                    .caption = "Custom Error Handlers",
                                    .help = "Help_CustomErrorHandlers.html",
                                    .placement = "ManEs148",
                                    .fixedSize = false,
                                    .closing = frame::Closing::kAsksAboutChanges,
                                    .menus = kMenus};

// The editor of handlers shows no colours yet: the setting is kept for the one that does.
constexpr std::array kSheetRows{
    frame::sheet::frame(0, "fraOptions", "&Options"),
    frame::sheet::check(1, "chkColorCode", "C&olor Code", frame::option("uklsdf5682srghs"),
                        frame::Stored::kOneZero),
};
constexpr frame::SheetTraits kSheet{{.name = "frmCustomErrorHandlersOptions",
                                     .caption = "Custom Error Handlers Options",
                                     .help = "Help_CustomErrorHandlersOptions.html",
                                     .placement = "aagkjh45654ydy"},
                                    kSheetRows};

}  // namespace

frmCustomErrorHandlers::frmCustomErrorHandlers(frame::Services& services) : ToolForm(services, kTraits) {
  using namespace forms;
  setMinimumSize(7905, 6195);
  txtError.setFont("Courier New");
  cmdAdd.setEnabled(false);
  cboStandardElements.onKeyPress = [](int& character) { character = 0; };
  tie(kActivate, &frmCustomErrorHandlers::Form_Activate);
  tie(kClick, cboErrors, &frmCustomErrorHandlers::cboErrors_Click);
  tie(kChange, txtName, [this] { cmdAdd.setEnabled(!base::trim(txtName.text()).empty()); });
  tie(kChange, txtError, [this] { cmdSave.setEnabled(true); });
  tie(kKeyDown, txtError, &frmCustomErrorHandlers::txtError_KeyDown);
  tie(kClick, cboStandardElements, [this] { element_ = cboStandardElements.listIndex(); });
  tie(kChange, cboStandardElements, [this] { cboStandardElements.setListIndex(element_); });
  tie(kClick, cmdAdd, &frmCustomErrorHandlers::cmdAdd_Click);
  tie(kClick, cmdDelete, &frmCustomErrorHandlers::cmdDelete_Click);
  tie(kClick, cmdSave, &frmCustomErrorHandlers::cmdSave_Click);
  tie(kClick, cmdAddElements, &frmCustomErrorHandlers::cmdAddElements_Click);
  tie(kClick, cmdClear, &frmCustomErrorHandlers::cmdClear_Click);
  tie(kClick, cmdColorCode, [this] { tell(std::string(kNoColors)); });
  tie(kClick, cmdClose, [this] { leave(); });
  tie(kClick, menu("mnuCustomErrorHandlers"), [this] { frame::showOptionSheet(services_, kSheet); });
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
  GetErrorTypes();
  tabText_ = base::repeat(' ', source::GetTabWidth(services_));
}

void frmCustomErrorHandlers::Form_Activate() {
  if (cboErrors.listCount() > 0)
    cboErrors.setFocus();
  else
    txtName.setFocus();
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
  savePlacement();
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

// Tab indents; a box that cannot be edited lets it lead on to the next control.
void frmCustomErrorHandlers::txtError_KeyDown(int& key, int shift) {
  if (key != forms::keys::kTab || shift != 0 || txtError.locked()) return;
  key = 0;
  txtError.setSelText(tabText_);
}

}  // namespace kolvane::writers
