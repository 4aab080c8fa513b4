#include "writers/property_builder_options.h"

#include "source/classes.h"
#include "source/variable_prefixes.h"
#include "writers/property_defaults.h"

namespace kolvane::writers {
namespace {

constexpr BuilderOptionsTexts kTexts{
    .form = {.name = "frmPropertyBuilderOptions",
             .caption = "Property Builder Options",
             .help = "PropertyBuilderOptions.html",
             .placement = "PrBO56",
             .savesAtUnload = true,
             .closing = frame::Closing::kAsksAboutChanges},
    .otherProjectsLabel = "Se&t Proj. As:",
    .clearQuestion = "This will clear all options for the selected project, are you sure?",
};
constexpr int kPublic = 1;

}  // namespace

frmPropertyBuilderOptions::frmPropertyBuilderOptions(frame::Services& services)
    : BuilderOptionsForm(services, kPropertyBuilder, kTexts) {
  chkUseErrorHandling.setTooltip("Add an Err.Raise to each procedure");
  chkClasses.setTooltip("Will add the classes of the project group to the dropdown");
  tie(forms::kClick, {&chkUseErrorHandling, &chkClasses, &cboScope, &cboReturns}, [this] { changed(); });
  tie(forms::kChange, cboReturns, [this] { changed(); });
}

forms::Layout frmPropertyBuilderOptions::layout() const {
  using namespace forms;
  return column(projectLayout(),
                group(fraOptions, row("&Scope:", cboScope), row("Retur&ns:", cboReturns), chkUseErrorHandling,
                      chkClasses),
                buttonLayout());
}

void frmPropertyBuilderOptions::fillLists() {
  source::Generate_DataTypes_For_Combo(services_, {&cboReturns});
  source::LoadTheClasses(services_, {&cboReturns});
}

void frmPropertyBuilderOptions::showValues(const BuilderValues& values) {
  const PropertyDefaults defaults = propertyDefaults(values);
  cboScope.setListIndex(defaults.property.isPublic ? kPublic : 0);
  cboReturns.setText(defaults.property.type);
  chkUseErrorHandling.setChecked(defaults.property.useHandler);
  chkClasses.setChecked(defaults.includeClasses);
}

frame::Settings::Rows frmPropertyBuilderOptions::values() const {
  PropertyDefaults defaults;
  defaults.property.isPublic = cboScope.listIndex() == kPublic;
  defaults.property.type = cboReturns.text();
  defaults.property.useHandler = chkUseErrorHandling.checked();
  defaults.includeClasses = chkClasses.checked();
  return valuesOf(defaults);
}

}  // namespace kolvane::writers
