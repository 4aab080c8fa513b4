#include "writers/property_builder_options.h"

#include "source/classes.h"
#include "source/variable_prefixes.h"
#include "writers/property_defaults.h"

namespace kolvane::writers {
namespace {

constexpr BuilderOptionsTexts kTexts{
    .form = "frmPropertyBuilderOptions",
    .caption = "Property Builder Options",
    .helpTopic = "PropertyBuilderOptions.html",
    .placement = "PrBO56",
    .otherProjectsLabel = "Se&t Proj. As:",
    .clearQuestion = "This will clear all options for the selected project, are you sure?",
};
constexpr int kPublic = 1;

}  // namespace

frmPropertyBuilderOptions::frmPropertyBuilderOptions(frame::Services& services)
    : BuilderOptionsForm(services, kPropertyBuilder, kTexts) {
  chkUseErrorHandling.setTooltip("Add an Err.Raise to each procedure");
  chkClasses.setTooltip("Will add the classes of the project group to the dropdown");
  chkUseErrorHandling.onClick = entry("chkUseErrorHandling_Click", [this] { changed(); });
  chkClasses.onClick = entry("chkClasses_Click", [this] { changed(); });
  cboScope.onClick = entry("cboScope_Click", [this] { changed(); });
  cboReturns.onClick = entry("cboReturns_Click", [this] { changed(); });
  cboReturns.onChange = entry("cboReturns_Change", [this] { changed(); });
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
