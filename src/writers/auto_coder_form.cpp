#include "writers/auto_coder_form.h"

#include <algorithm>

#include "frame/form_placement.h"
#include "source/form_utilities.h"
#include "source/pace.h"
#include "writers/auto_coder_options.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "Auto Coder";
constexpr std::string_view kNoWindow = "No code window open!";

// The flag of a run and the busy pointer, put back however the run ends.
class RunningState {
 public:
  RunningState(bool& running, forms::Desk& desk) : running_(running), desk_(desk) {
    running_ = true;
    desk_.setBusy(true);
  }
  ~RunningState() {
    desk_.setBusy(false);
    running_ = false;
  }
  RunningState(const RunningState&) = delete;
  RunningState& operator=(const RunningState&) = delete;

 private:
  bool& running_;
  forms::Desk& desk_;
};

}  // namespace

frmAutoCoder::frmAutoCoder(const AutoCoderParts& parts)
    : Form(parts.tools.context.services.desk, "frmAutoCoder", "Auto Coder"),
      parts_(parts),
      services_(parts.tools.context.services) {
  setFixedSize(true);
  setHelpTopic("AutoCoder.html");
  cmdCreate.setDefault(true);
  cmdCancel.setCancel(true);
  onLoad = entry("Form_Load", &frmAutoCoder::Form_Load);
  onQueryUnload = [this](bool& cancel, forms::UnloadMode) { cancel = cancel || running_; };
  chkErrorHandlers.onClick = entry("chkErrorHandlers_Click", &frmAutoCoder::chkErrorHandlers_Click);
  chkProcedureHeaders.onClick = entry("chkProcedureHeaders_Click", &frmAutoCoder::chkProcedureHeaders_Click);
  chkUserName.onClick = entry("chkUserName_Click", &frmAutoCoder::chkUserName_Click);
  cmdCreate.onClick = entry("cmdCreate_Click", &frmAutoCoder::cmdCreate_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", &frmAutoCoder::cmdCancel_Click);
  mnuExit.onClick = entry("mnuExit_Click", &frmAutoCoder::cmdCancel_Click);
  mnuCustomErrors.onClick =
      entry("mnuCustomErrors_Click", [this] { source::runAction(parts_.actions.customErrorHandlers); });
  mnuFileAutoCoder.onClick = entry("mnuFileAutoCoder_Click", [this] { showAutoCoderOptions(services_); });
  mnuFileGeneral.onClick =
      entry("mnuFileGeneral_Click", [this] { source::runAction(parts_.actions.generalOptions); });
  mnuHelpContents.onClick = entry("mnuHelpContents_Click", [this] { showHelp(); });
  mnuAbout.onClick = entry("mnuAbout_Click", [this] { source::runAction(parts_.actions.about); });
}

forms::Layout frmAutoCoder::layout() const {
  using namespace forms;
  return column(chkProcedureHeaders, chkUserName, row("&Name:", txtName), chkErrorHandlers, cboErrors,
                prgProgress, buttons(cmdCreate, cmdCancel));
}

void frmAutoCoder::Form_Load() {
  frame::restorePlacement(*this, services_.settings, kPlacement);
  userName_ = frame::GetCurrentUser(services_);
  cboErrors.addItems(autoCoderHandlers(services_.settings));
  Set_Options();
}

void frmAutoCoder::Set_Options() {
  const AutoCoderDefaults defaults = autoCoderDefaults(services_);
  chkErrorHandlers.setChecked(defaults.handlers);
  chkProcedureHeaders.setChecked(defaults.headers);
  chkUserName.setChecked(defaults.userName);
  chooseHandler(cboErrors, defaults.handler);
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
  const RunningState state(running_, desk());
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
      !add(Process_CodeModule_For_ErrorHandlers(parts_.tools, module, cboErrors.text(), progress)))
    return false;
  if (chkProcedureHeaders.checked())
    add(Process_CodeModule_For_Headers(parts_.tools.context, module, author(), progress));
  raiseFailures(failures);
  return true;
}

void frmAutoCoder::cmdCreate_Click() {
  if (running_) return;
  std::shared_ptr<frame::CodePane> pane;
  std::shared_ptr<frame::CodeModule> module;
  bool success = false;
  Create_Objects(pane, module, success);
  if (!success || !run(*module)) return;
  prgProgress.setValue(prgProgress.max());
  frame::savePlacement(*this, services_.settings, kPlacement);
  unload();
}

void frmAutoCoder::cmdCancel_Click() {
  if (!running_) unload();
}

}  // namespace kolvane::writers
