#include "writers/custom_handlers_options.h"

#include "frame/form_placement.h"
#include "source/options.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "aagkjh45654ydy";
constexpr source::Option kColorCode = source::option("uklsdf5682srghs");

}  // namespace

frmCustomErrorHandlersOptions::frmCustomErrorHandlersOptions(frame::Services& services)
    : Form(services.desk, "frmCustomErrorHandlersOptions", "Custom Error Handlers Options"),
      services_(services) {
  setFixedSize(true);
  setHelpTopic("Help_CustomErrorHandlersOptions.html");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
  onLoad = entry("Form_Load", &frmCustomErrorHandlersOptions::Form_Load);
  cmdOK.onClick = entry("cmdOK_Click", &frmCustomErrorHandlersOptions::cmdOK_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", [this] { unload(); });
}

forms::Layout frmCustomErrorHandlersOptions::layout() const {
  using namespace forms;
  return column(group(fraOptions, chkColorCode), buttons(cmdOK, cmdCancel));
}

void frmCustomErrorHandlersOptions::Form_Load() {
  frame::restorePlacement(*this, services_.settings, kPlacement);
  chkColorCode.setChecked(source::isOn(services_, kColorCode));
}

void frmCustomErrorHandlersOptions::cmdOK_Click() {
  services_.settings.saveOption(kColorCode.key, chkColorCode.checked() ? "1" : "0");
  frame::savePlacement(*this, services_.settings, kPlacement);
  unload();
}

}  // namespace kolvane::writers
