#include "writers/auto_coder_form.h"

#include <algorithm>
#include <array>

#include "frame/option_sheet.h"
#include "source/pace.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kNoWindow = "No code window open!";

constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::opens(1, "mnuCustomErrors", "Custom &Error Handlers", "Custom Error Handlers"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuFileAutoCoder", "&Auto Coder"),
    frame::opens(2, "mnuFileGeneral", "&General", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuHelpContents", "&Contents..."),
    frame::opens(1, "mnuAbout", "&About", frame::kAboutBox),
};
constexpr frame::FormTraits kTraits{.name = "frmAutoCoder",
                                    .caption = "Auto Coder",
                                    .help = "AutoCoder.html",
                                    .placement = "Auto Coder",
                                    .menus = kMenus};

constexpr frame::Option kHandler = frame::option("ACSE64");
constexpr frame::Option kHandlers = frame::option("ACDE65");
constexpr frame::Option kHeaders = frame::option("ACDPH66");
constexpr frame::Option kUserName = frame::option("ACDIU67");

std::vector<std::string> handlersToChoose(const frame::Services& services) {
  return autoCoderHandlers(services.settings);
}

using frame::Stored;
namespace sheet = frame::sheet;
constexpr std::array kSheetRows{
    sheet::frame(0, "fraDefaults", "&Defaults"),
    sheet::check(1, "chkProcedureHeaders", "&Procedure Headers", kHeaders, Stored::kTrueFalse),
    sheet::check(1, "chkUserName", "Include Login &UserName", kUserName, Stored::kTrueFalse),
    sheet::check(1, "chkError", "&Error Handlers", kHandlers, Stored::kTrueFalse),
    sheet::frame(1, "fraErrorType", "Error &Type"),
    sheet::choice(2, "cboErrors", "", kHandler, handlersToChoose),
};
constexpr frame::SheetTraits kSheet{{.name = "frmAutoCoderOptions",
                                     .caption = "Auto Coder Options",
                                     .help = "AutoCoderOptions.html",
                                     .placement = "ACO63"},
                                    kSheetRows};

}  // namespace

frmAutoCoder::frmAutoCoder(const AutoCoderTools& tools)
    : ToolForm(tools.context.services, kTraits), tools_(tools) {
  cmdCreate.setDefault(true);
  cancelBy(cmdCancel);
  tie(forms::kClick, chkErrorHandlers, &frmAutoCoder::chkErrorHandlers_Click);
  tie(forms::kClick, chkProcedureHeaders, &frmAutoCoder::chkProcedureHeaders_Click);
  tie(forms::kClick, chkUserName, &frmAutoCoder::chkUserName_Click);
  tie(forms::kClick, cmdCreate, &frmAutoCoder::cmdCreate_Click);
  tie(forms::kClick, menu("mnuFileAutoCoder"), [this] { showAutoCoderOptions(services_); });
}

forms::Layout frmAutoCoder::layout() const {
  using namespace forms;
  return column(chkProcedureHeaders, chkUserName, row("&Name:", txtName), chkErrorHandlers, cboErrors,
                prgProgress, buttons(cmdCreate, cmdCancel));
}

void frmAutoCoder::Form_Load() {
  userName_ = frame::GetCurrentUser(services_);
  cboErrors.addItems(autoCoderHandlers(services_.settings));
  Set_Options();
}

void frmAutoCoder::Set_Options() {
  chkErrorHandlers.setChecked(frame::isOn(services_, kHandlers));
  chkProcedureHeaders.setChecked(frame::isOn(services_, kHeaders));
  chkUserName.setChecked(frame::isOn(services_, kUserName));
  // The first one when the list has none of that name, as when it was deleted.
  cboErrors.setListIndex(std::max(0, cboErrors.indexOf(frame::textOf(services_, kHandler))));
  // Boxes that were set already have raised nothing.
  chkErrorHandlers_Click();
  chkProcedureHeaders_Click();
  chkUserName_Click();
}

void frmAutoCoder::chkErrorHandlers_Click() { cboErrors.setEnabled(chkErrorHandlers.checked()); }

void frmAutoCoder::chkProcedureHeaders_Click() {
  chkUserName.setEnabled(chkProcedureHeaders.checked());
  txtName.setEnabled(chkProcedureHeaders.checked());
}

void frmAutoCoder::chkUserName_Click() {
  txtName.setLocked(chkUserName.checked());
  txtName.setText(chkUserName.checked() ? userName_ : std::string());
}

std::string frmAutoCoder::author() const {
  if (chkUserName.checked()) return userName_;
  std::string name = txtName.text();
  return services_.codePage.upper(name.substr(0, 1)).append(name, std::min<std::size_t>(1, name.size()));
}

void frmAutoCoder::Create_Objects(std::shared_ptr<frame::CodePane>& pane,
                                  std::shared_ptr<frame::CodeModule>& module, bool& success) {
  pane = services_.vbe.ActiveCodePane();
  module = pane ? pane->CodeModule() : nullptr;
  success = module != nullptr;
  if (!success) services_.desk.msgBox(kNoWindow, forms::box::kNotice, base::kProductName);
}

bool frmAutoCoder::run(frame::CodeModule& module) {
  const Run running(*this);
  source::Pace pace(desk());
  const PassProgress progress{[this](int lines) {
                                prgProgress.setValue(0);
                                prgProgress.setMax(std::max(1, lines));
                              },
                              [&](int line) {
                                prgProgress.setValue(line);
                                pace.step();
                              }};
  std::vector<ProcedureFailure> failures;
  const auto add = [&failures](const AutoCoderResult& result) {
    failures.insert(failures.end(), result.failures.begin(), result.failures.end());
    return !result.stopped;
  };
  if (chkErrorHandlers.checked() &&
      !add(Process_CodeModule_For_ErrorHandlers(tools_, module, cboErrors.text(), progress)))
    return false;
  if (chkProcedureHeaders.checked())
    add(Process_CodeModule_For_Headers(tools_.context, module, author(), progress));
  raiseFailures(failures);
  return true;
}

void frmAutoCoder::cmdCreate_Click() {
  if (running()) return;
  std::shared_ptr<frame::CodePane> pane;
  std::shared_ptr<frame::CodeModule> module;
  bool success = false;
  Create_Objects(pane, module, success);
  if (!success || !run(*module)) return;
  prgProgress.setValue(prgProgress.max());
  savePlacement();
  unload();
}

void showAutoCoderOptions(frame::Services& services) { frame::showOptionSheet(services, kSheet); }

}  // namespace kolvane::writers
