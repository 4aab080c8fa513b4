#include "writers/property_builder.h"

#include <array>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "source/classes.h"
#include "source/variable_prefixes.h"
#include "writers/builder_defaults.h"
#include "writers/property_builder_options.h"
#include "writers/property_defaults.h"

namespace kolvane::writers {
namespace {

constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuFilePropertyBuilder", "&Property Builder"),
    frame::opens(2, "mnuFileGeneral", "&General", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuHelpContents", "&Contents..."),
    frame::opens(1, "mnuAbout", "&About", frame::kAboutBox),
};
constexpr frame::FormTraits kTraits{.name = "frmPropertyBuilder",
                                    .caption = "Property Builder",
                                    .help = "PropertyBuilder.Html",
                                    .placement = "Property Builder",
                                    .savesAtUnload = true,
                                    .closing = frame::Closing::kAsksAboutChanges,
                                    .menus = kMenus};
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

frmPropertyBuilder::frmPropertyBuilder(frame::Services& services) : ToolForm(services, kTraits) {
  using namespace forms;
  cmdOK.setDefault(true);
  cancelBy(cmdCancel);
  cmdApply.setEnabled(false);
  tie(kChange, txtName, [this] { cmdApply.setEnabled(!base::trim(txtName.text()).empty()); });
  tie(kClick, cboTypes, &frmPropertyBuilder::cboTypes_Click);
  tie(kChange, cboTypes, [this] {
    if (!loadingTypes_) cboTypes_Click();
  });
  tie(kClick, cmdApply, [this] { apply(); });
  tie(kClick, cmdOK, &frmPropertyBuilder::cmdOK_Click);
  tie(kClick, menu("mnuFilePropertyBuilder"), &frmPropertyBuilder::mnuFilePropertyBuilder_Click);
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
  savePlacement();
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

// What was changed there holds for the next property, and leaves alone what has been entered for it.
void frmPropertyBuilder::mnuFilePropertyBuilder_Click() {
  showBuilderOptions<frmPropertyBuilderOptions>(services_);
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
