#include "maintenance/callers_options_form.h"

#include <memory>

#include "base/text.h"
#include "frame/form_placement.h"
#include "source/key_filters.h"
#include "source/options.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kPlacement = "List My Callers Options";
constexpr source::Option kUseModuleDeclarations = source::option("srtgkhsdfjh46vsdfgshg");
constexpr source::Option kWidth = source::option("etrertretre4fg405ertwrt");
constexpr int kLeastWidth = 50;

}  // namespace

frmListMyCallersOptions::frmListMyCallersOptions(frame::Services& services)
    : Form(services.desk, "frmListMyCallersOptions", "List My Callers Options"), services_(services) {
  setFixedSize(true);
  setHelpTopic("ListMyCallers.Html");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
  onLoad = entry("Form_Load", &frmListMyCallersOptions::Form_Load);
  txtMaxWidth.onKeyPress = [](int& character) { character = source::Numbers_Only(character); };
  txtMaxWidth.onLostFocus = entry("txtMaxWidth_LostFocus", &frmListMyCallersOptions::txtMaxWidth_LostFocus);
  cmdOK.onClick = entry("cmdOK_Click", &frmListMyCallersOptions::cmdOK_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", [this] { unload(); });
}

forms::Layout frmListMyCallersOptions::layout() const {
  using namespace forms;
  return column(group(fraOptions, chkModuleDeclarations, row("Called From - &Max. Width:", txtMaxWidth)),
                buttons(cmdOK, cmdCancel));
}

void frmListMyCallersOptions::Form_Load() {
  restorePlacement(*this, services_.settings, kPlacement);
  txtMaxWidth.setText(source::textOf(services_, kWidth));
  chkModuleDeclarations.setChecked(source::isOn(services_, kUseModuleDeclarations));
}

void frmListMyCallersOptions::txtMaxWidth_LostFocus() {
  const std::string& text = txtMaxWidth.text();
  if (base::trim(text).empty() || base::val(text) < kLeastWidth)
    txtMaxWidth.setText(std::to_string(kLeastWidth));
}

void frmListMyCallersOptions::cmdOK_Click() {
  services_.settings.saveOption(kUseModuleDeclarations.key, chkModuleDeclarations.checked() ? "1" : "0");
  services_.settings.saveOption(kWidth.key, txtMaxWidth.text());
  savePlacement(*this, services_.settings, kPlacement);
  unload();
}

void showListMyCallersOptions(frame::Services& services) {
  const auto form = std::make_shared<frmListMyCallersOptions>(services);
  form->showModal();
  form->unload();
}

}  // namespace kolvane::maintenance
