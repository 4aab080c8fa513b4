#include "writers/auto_coder_options.h"

#include <algorithm>
#include <memory>

#include "frame/form_placement.h"
#include "source/options.h"
#include "writers/auto_coder.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "ACO63";
constexpr source::Option kHandler = source::option("ACSE64");
constexpr source::Option kHandlers = source::option("ACDE65");
constexpr source::Option kHeaders = source::option("ACDPH66");
constexpr source::Option kUserName = source::option("ACDIU67");

constexpr std::string_view flagText(bool flag) { return flag ? "True" : "False"; }

}  // namespace

AutoCoderDefaults autoCoderDefaults(const frame::Services& services) {
  return {source::isOn(services, kHandlers), source::isOn(services, kHeaders),
          source::isOn(services, kUserName), source::textOf(services, kHandler)};
}

void chooseHandler(forms::ComboBox& list, const std::string& handler) {
  list.setListIndex(std::max(0, list.indexOf(handler)));
}

frmAutoCoderOptions::frmAutoCoderOptions(frame::Services& services)
    : Form(services.desk, "frmAutoCoderOptions", "Auto Coder Options"), services_(services) {
  setFixedSize(true);
  setHelpTopic("AutoCoderOptions.html");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
  onLoad = entry("Form_Load", &frmAutoCoderOptions::Form_Load);
  cmdOK.onClick = entry("cmdOK_Click", &frmAutoCoderOptions::cmdOK_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", [this] { unload(); });
}

forms::Layout frmAutoCoderOptions::layout() const {
  using namespace forms;
  return column(
      group(fraDefaults, chkProcedureHeaders, chkUserName, chkError, group(fraErrorType, cboErrors)),
      buttons(cmdOK, cmdCancel));
}

void frmAutoCoderOptions::Form_Load() {
  frame::restorePlacement(*this, services_.settings, kPlacement);
  cboErrors.addItems(autoCoderHandlers(services_.settings));
  Set_Options();
}

void frmAutoCoderOptions::Set_Options() {
  const AutoCoderDefaults defaults = autoCoderDefaults(services_);
  chkProcedureHeaders.setChecked(defaults.headers);
  chkUserName.setChecked(defaults.userName);
  chkError.setChecked(defaults.handlers);
  chooseHandler(cboErrors, defaults.handler);
}

void frmAutoCoderOptions::Update_Registry() {
  frame::Settings& settings = services_.settings;
  settings.store().update([&] {
    settings.saveOption(kHandler.key, cboErrors.text());
    settings.saveOption(kHandlers.key, flagText(chkError.checked()));
    settings.saveOption(kHeaders.key, flagText(chkProcedureHeaders.checked()));
    settings.saveOption(kUserName.key, flagText(chkUserName.checked()));
  });
}

void frmAutoCoderOptions::cmdOK_Click() {
  Update_Registry();
  frame::savePlacement(*this, services_.settings, kPlacement);
  unload();
}

void showAutoCoderOptions(frame::Services& services) {
  const auto form = std::make_shared<frmAutoCoderOptions>(services);
  form->showModal();
  form->unload();
}

}  // namespace kolvane::writers
