#include "writers/property_builder.h"

#include <memory>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "frame/form_placement.h"
#include "source/classes.h"
#include "source/confirm_cancel.h"
#include "source/form_utilities.h"
#include "source/variable_prefixes.h"
#include "writers/builder_defaults.h"
#include "writers/property_builder_options.h"
#include "writers/property_defaults.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "Property Builder";
constexpr int kPublic = 1;
constexpr std::string_view kNoComponent = "Select a component!";
constexpr std::string_view kNoName = "You must specify a name!";

PropertyDefaults defaultsOf(const frame::Services& services) {
  return propertyDefaults(
      BuilderDefaults(services.settings, kPropertyBuilder).inForce(activeProjectName(services)));
}

// A control that cannot have the focus now does without.
void focusIfPossible(forms::Control& control) {
  if (control.canFocus()) control.setFocus();
}

}  // namespace

frmPropertyBuilder::frmPropertyBuilder(frame::Services& services, const PropertyBuilderActions& actions)
    : Form(services.desk, "frmPropertyBuilder", "Property Builder"), services_(services), actions_(actions) {
  setFixedSize(true);
  setHelpTopic("PropertyBuilder.Html");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
  cmdApply.setEnabled(false);
  onLoad = entry("Form_Load", [this] { frame::restorePlacement(*this, services_.settings, kPlacement); });
  onQueryUnload = entry("Form_QueryUnload", [this](bool& cancel, forms::UnloadMode mode) {
    if (mode == forms::UnloadMode::kCloseButton)
      cancel = !source::mayDropChanges(services_, cmdApply.enabled());
  });
  onUnload =
      entry("Form_Unload", [this](bool&) { frame::savePlacement(*this, services_.settings, kPlacement); });
  txtName.onChange =
      entry("txtName_Change", [this] { cmdApply.setEnabled(!base::trim(txtName.text()).empty()); });
  cboTypes.onClick = entry("cboTypes_Click", &frmPropertyBuilder::cboTypes_Click);
  cboTypes.onChange = entry("cboTypes_Change", [this] {
    if (!loadingTypes_) cboTypes_Click();
  });
  cmdApply.onClick = entry("cmdApply_Click", [this] { apply(); });
  cmdOK.onClick = entry("cmdOK_Click", &frmPropertyBuilder::cmdOK_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", &frmPropertyBuilder::cmdCancel_Click);
  mnuExit.onClick = entry("mnuExit_Click", &frmPropertyBuilder::cmdCancel_Click);
  mnuFilePropertyBuilder.onClick =
      entry("mnuFilePropertyBuilder_Click", &frmPropertyBuilder::mnuFilePropertyBuilder_Click);
  mnuFileGeneral.onClick =
      entry("mnuFileGeneral_Click", [this] { source::runAction(actions_.generalOptions); });
  mnuHelpContents.onClick = entry("mnuHelpContents_Click", [this] { showHelp(); });
  mnuAbout.onClick = entry("mnuAbout_Click", [this] { source::runAction(actions_.about); });
}

forms::Layout frmPropertyBuilder::layout() const {
  using namespace forms;
  return column(row("&Name:", txtName), row("&Description:", txtDesc), row("Scop&e:", cboScope),
                row("Return &Type:", cboTypes), group(fraTypes, row(chkGet, chkLet, chkSet)), stretch(),
                buttons(cmdApply, cmdOK, cmdCancel));
}

void frmPropertyBuilder::prepare() {
  load();
  takeFlags();
  LoadTypes();
  ApplyDefaults();
  cmdApply.setEnabled(false);
}

void frmPropertyBuilder::takeFlags() {
  const PropertyDefaults defaults = defaultsOf(services_);
  includeClasses_ = defaults.includeClasses;
  useErrorHandler_ = defaults.property.useHandler;
}

// The type stays as it is, and so do the methods that were chosen for it.
void frmPropertyBuilder::LoadTypes() {
  const std::string type = cboTypes.text();
  loadingTypes_ = true;
  source::Generate_DataTypes_For_Combo(services_, {&cboTypes});
  if (includeClasses_) source::LoadTheClasses(services_, {&cboTypes});
  cboTypes.setText(type);
  loadingTypes_ = false;
}

void frmPropertyBuilder::ApplyDefaults() {
  const PropertyDefaults defaults = defaultsOf(services_);
  cboScope.setListIndex(defaults.property.isPublic ? kPublic : 0);
  cboTypes.setText(defaults.property.type);
  cboTypes_Click();
}

void frmPropertyBuilder::cboTypes_Click() {
  cmdApply.setEnabled(true);
  const auto methods = usualMethods(services_, cboTypes.text());
  if (!methods) return;
  chkGet.setChecked(methods->get);
  chkLet.setChecked(methods->let);
  chkSet.setChecked(methods->set);
}

PropertyValues frmPropertyBuilder::values() const {
  return {.name = txtName.text(),
          .description = txtDesc.text(),
          .type = cboTypes.text(),
          .methods = {.get = chkGet.checked(), .let = chkLet.checked(), .set = chkSet.checked()},
          .isPublic = cboScope.listIndex() == kPublic,
          .useHandler = useErrorHandler_};
}

forms::Control& frmPropertyBuilder::controlOf(PropertyField field) {
  switch (field) {
    case PropertyField::kType:
      return cboTypes;
    case PropertyField::kMethods:
      return chkGet;
    case PropertyField::kName:
      break;
  }
  return txtName;
}

void frmPropertyBuilder::tell(std::string_view message) {
  desk().msgBox(message, forms::box::kNotice, base::kProductName);
}

bool frmPropertyBuilder::apply() {
  frame::savePlacement(*this, services_.settings, kPlacement);
  const auto component = services_.vbe.SelectedVBComponent();
  const auto module = component ? component->CodeModule() : nullptr;
  if (!module) {
    tell(kNoComponent);
    return false;
  }
  const PropertyValues property = values();
  if (const auto fault = faultOf(services_, *module, property)) {
    tell(fault->message);
    focusIfPossible(controlOf(fault->field));
    return false;
  }
  if (!Create_Property(services_, *module, property)) return false;
  txtName.setText("");
  cmdApply.setEnabled(false);
  focusIfPossible(txtName);
  return true;
}

void frmPropertyBuilder::cmdOK_Click() {
  if (base::trim(txtName.text()).empty()) {
    tell(kNoName);
    focusIfPossible(txtName);
  } else if (apply()) {
    unload();
  }
}

void frmPropertyBuilder::cmdCancel_Click() {
  if (source::mayDropChanges(services_, cmdApply.enabled())) unload();
}

// What was changed there holds for the next property, and leaves alone what has been entered for it.
void frmPropertyBuilder::mnuFilePropertyBuilder_Click() {
  const auto options = std::make_shared<frmPropertyBuilderOptions>(services_);
  options->LoadForm(activeProjectName(services_));
  options->showModal();
  options->unload();
  takeFlags();
  LoadTypes();
}

void PropertyBuilder::Show_PropertyBuilder() {
  const auto form = form_.hold();
  if (!form->visible()) {
    form->prepare();
    form->txtName.setFocus();
  }
  form->show();
}

}  // namespace kolvane::writers
